#pragma once

#include "protocol/messages/CellElement.h"

#include <QByteArray>

#include <vector>

namespace orbelan::server {

// An element's vertices as they are stored: (x, y) pairs of little-endian
// Doubles, back to back.
class VertexBlob {
public:
    static QByteArray pack(const std::vector<messages::WirePoint>& points);
    // Throws StorageError when the blob is not a whole number of pairs.
    static std::vector<messages::WirePoint> unpack(const QByteArray& blob);
};

} // namespace orbelan::server
