#pragma once

#include "serving/SharedReply.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orbelan::server {

// What the server does after one request: send the reply, drop the request,
// close the connection, or wait for an answer that comes later (a password
// check) before answering anything more; with a note for the log, and what
// to announce.
struct HandlerOutcome {
    enum class Action { Reply, Drop, Close, Await };

    Action action = Action::Drop;
    // Set exactly when the action is Reply.
    SharedReply reply;
    std::string note;
    // The note belongs in the log even when it is not verbose (a refused or
    // malformed request).
    bool notable = false;

    // Messages for every connection on a map, the one that asked included: a
    // client learns of its own changes as the others do.
    struct Announcement {
        std::int32_t map = 0;
        SharedReply messages;
    };
    std::optional<Announcement> announcement = std::nullopt;
};

} // namespace orbelan::server
