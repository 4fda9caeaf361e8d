#include "protocol/messages/AccessAnswer.h"

namespace orbelan::messages {

void AccessAnswer::encode(DWBUffer& message) const
{
    message.PutInteger(result);
}

AccessAnswer AccessAnswer::decode(DWBUffer& message)
{
    return AccessAnswer{message.GetInteger()};
}

} // namespace orbelan::messages
