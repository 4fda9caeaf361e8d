#include "protocol/messages/CellGeometryRequest.h"

namespace orbelan::messages {

void CellGeometryRequest::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(row);
    message.PutLong(column);
}

CellGeometryRequest CellGeometryRequest::decode(DWBUffer& message)
{
    CellGeometryRequest request;
    request.layer = message.GetLong();
    request.row = message.GetLong();
    request.column = message.GetLong();
    return request;
}

} // namespace orbelan::messages
