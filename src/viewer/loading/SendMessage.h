#pragma once

#include "ServerConnection.h"

namespace orbelan {

// Sends one request of a message layout: its code, then its payload.
template <typename Message>
void sendMessage(ServerConnection& connection, const Message& message)
{
    connection.sendRequest(Message::kCode, [&message](DWBUffer& buffer) { message.encode(buffer); });
}

} // namespace orbelan
