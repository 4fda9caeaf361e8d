#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstdint>
#include <functional>

namespace orbelan {

// Where requests to the map server go, and where the replies still awaited
// are counted: the connection, or a recorder in tests.
class RequestSender {
public:
    virtual ~RequestSender() = default;

    // Sends one request: its code, then the payload writePayload puts after it.
    virtual void sendRequest(CommandCode code, const std::function<void(DWBUffer&)>& writePayload = {}) = 0;
    // One counted reply has been handled.
    virtual void replyHandled() = 0;
    // The requests sent whose replies have not been handled yet.
    virtual std::int32_t pendingRequests() const = 0;
    // Nothing more is sent (the server refused this user the map).
    virtual void stopSending() = 0;
};

// A whole request: header, command code, the payload writePayload puts after
// it, and the length closed.
inline DWBUffer composeRequest(CommandCode code, const std::function<void(DWBUffer&)>& writePayload)
{
    DWBUffer message;
    message.CrearHeader();
    message.PutInteger(codeNumber(code));
    if (writePayload) {
        writePayload(message);
    }
    message.cerrarMensaje(0);
    return message;
}

// Sends one request of a message layout: its code, then its payload.
template <typename Message>
void sendMessage(RequestSender& sender, const Message& message)
{
    sender.sendRequest(Message::kCode, [&message](DWBUffer& buffer) { message.encode(buffer); });
}

} // namespace orbelan
