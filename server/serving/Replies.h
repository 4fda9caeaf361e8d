#pragma once

#include "protocol/messages/MessageIO.h"
#include "serving/HandlerOutcome.h"
#include "serving/Remarks.h"
#include "serving/SharedReply.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orbelan::server {

// The whole message, built once to be shared.
template <typename Message>
SharedReply shareMessage(const Message& message)
{
    return std::make_shared<std::vector<std::uint8_t>>(messages::buildMessage(message).buffer());
}

template <typename Message>
HandlerOutcome replyWith(const Message& message, const std::string& summary, const Remarks& remarks)
{
    return {HandlerOutcome::Action::Reply, shareMessage(message), summary + remarks.text, remarks.notable};
}

// A request that gets no reply (or closes the connection), logged.
inline HandlerOutcome refuse(HandlerOutcome::Action action, std::string note)
{
    return {action, nullptr, std::move(note), true};
}

} // namespace orbelan::server
