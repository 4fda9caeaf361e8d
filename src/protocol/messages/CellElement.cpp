#include "protocol/messages/CellElement.h"

#include "protocol/messages/MessageIO.h"

namespace orbelan::messages {

void CellElement::encode(DWBUffer& message, bool relative, const WirePoint& base) const
{
    message.PutLong(id);
    message.PutLong(longCount(points.size()));
    for (const WirePoint& point : points) {
        if (relative) {
            message.PutSingle(static_cast<float>(point.x - base.x));
            message.PutSingle(static_cast<float>(point.y - base.y));
        } else {
            message.PutDouble(point.x);
            message.PutDouble(point.y);
        }
    }
}

CellElement CellElement::decode(DWBUffer& message, bool relative, const WirePoint& base)
{
    CellElement element;
    element.id = message.GetLong();
    const std::size_t pointSize = relative ? 8 : 16;
    element.points = readRecords<WirePoint>(
        message, message.GetLong(), pointSize, [relative, &base](DWBUffer& m) {
            if (relative) {
                const double x = base.x + static_cast<double>(m.GetSingle());
                return WirePoint{x, base.y + static_cast<double>(m.GetSingle())};
            }
            const double x = m.GetDouble();
            return WirePoint{x, m.GetDouble()};
        });
    return element;
}

} // namespace orbelan::messages
