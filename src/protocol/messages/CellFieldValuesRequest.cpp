#include "protocol/messages/CellFieldValuesRequest.h"

namespace orbelan::messages {

void CellFieldValuesRequest::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutLong(row);
    message.PutLong(column);
    message.PutString(field);
}

CellFieldValuesRequest CellFieldValuesRequest::decode(DWBUffer& message)
{
    CellFieldValuesRequest request;
    request.layer = message.GetLong();
    request.row = message.GetLong();
    request.column = message.GetLong();
    request.field = message.GetString();
    return request;
}

} // namespace orbelan::messages
