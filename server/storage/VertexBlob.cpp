#include "storage/VertexBlob.h"

#include "storage/StorageError.h"
#include "protocol/WireValues.h"

#include <span>

namespace orbelan::server {

namespace {

constexpr qsizetype kPairSize = 16;

} // namespace

QByteArray VertexBlob::pack(const std::vector<messages::WirePoint>& points)
{
    QByteArray blob;
    blob.reserve(static_cast<qsizetype>(points.size()) * kPairSize);
    for (const messages::WirePoint& point : points) {
        for (const double value : {point.x, point.y}) {
            const auto bytes = wirevalues::DoubleToBytes(value);
            blob.append(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
        }
    }
    return blob;
}

std::vector<messages::WirePoint> VertexBlob::unpack(const QByteArray& blob)
{
    if (blob.size() % kPairSize != 0) {
        throw StorageError("a vertex blob of " + std::to_string(blob.size()) +
                           " bytes is not a whole number of points");
    }
    const std::span<const std::uint8_t> bytes(reinterpret_cast<const std::uint8_t*>(blob.data()),
                                              static_cast<std::size_t>(blob.size()));
    std::vector<messages::WirePoint> points;
    points.reserve(bytes.size() / kPairSize);
    for (std::size_t at = 0; at < bytes.size(); at += kPairSize) {
        points.push_back(
            {wirevalues::BytesToDouble(bytes, at), wirevalues::BytesToDouble(bytes, at + 8)});
    }
    return points;
}

} // namespace orbelan::server
