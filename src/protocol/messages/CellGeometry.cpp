#include "protocol/messages/CellGeometry.h"

#include "protocol/messages/MessageIO.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orbelan::messages {

namespace {

// A degree of latitude is at most this long (at the poles); a degree of
// longitude is never longer. Measuring both with it bounds the true error.
constexpr double kMetresPerDegree = 111'700.0;

bool offsetIsExact(double value, double base)
{
    const double received = base + static_cast<double>(static_cast<float>(value - base));
    const double error = std::abs(received - value) * kMetresPerDegree;
    return error <= CellGeometry::kRelativeTolerance;
}

WirePoint centreOf(const std::vector<CellElement>& elements)
{
    double minX = std::numeric_limits<double>::infinity();
    double minY = minX;
    double maxX = -minX;
    double maxY = -minX;
    for (const CellElement& element : elements) {
        for (const WirePoint& point : element.points) {
            minX = std::min(minX, point.x);
            minY = std::min(minY, point.y);
            maxX = std::max(maxX, point.x);
            maxY = std::max(maxY, point.y);
        }
    }
    return {minX + (maxX - minX) / 2, minY + (maxY - minY) / 2};
}

} // namespace

void CellGeometry::chooseCoordinates()
{
    const WirePoint centre = centreOf(elements);
    relative = std::isfinite(centre.x) && std::isfinite(centre.y) && survivesOffsetsFrom(centre);
    base = relative ? centre : WirePoint{};
}

bool CellGeometry::survivesOffsetsFrom(const WirePoint& centre) const
{
    return std::all_of(elements.begin(), elements.end(), [&centre](const CellElement& element) {
        return std::all_of(
            element.points.begin(), element.points.end(), [&centre](const WirePoint& point) {
                return offsetIsExact(point.x, centre.x) && offsetIsExact(point.y, centre.y);
            });
    });
}

void CellGeometry::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(row);
    message.PutLong(column);
    message.PutByte(relative ? 1 : 0);
    message.PutDouble(base.x);
    message.PutDouble(base.y);
    message.PutLong(longCount(elements.size()));
    for (const CellElement& element : elements) {
        element.encode(message, relative, base);
    }
}

CellGeometry CellGeometry::decode(DWBUffer& message)
{
    CellGeometry reply;
    std::vector<CellElement> elements;
    decodeEach(message, reply, [&elements](CellElement&& element) { elements.push_back(std::move(element)); });
    reply.elements = std::move(elements);
    return reply;
}

void CellGeometry::decodeEach(DWBUffer& message, CellGeometry& reply,
                              const std::function<void(CellElement&&)>& onElement)
{
    reply.layer = message.GetLong();
    reply.row = message.GetLong();
    reply.column = message.GetLong();
    reply.relative = message.GetByte() != 0;
    reply.base.x = message.GetDouble();
    reply.base.y = message.GetDouble();
    forEachRecord(
        message, message.GetLong(),
        [&reply](DWBUffer& m) { return CellElement::decode(m, reply.relative, reply.base); }, onElement);
}

} // namespace orbelan::messages
