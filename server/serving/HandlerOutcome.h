#pragma once

#include "serving/SharedReply.h"

#include <string>

namespace orbelan::server {

// What the server does after one request: send the reply, drop the request,
// or close the connection; with a note for the log.
struct HandlerOutcome {
    enum class Action { Reply, Drop, Close };

    Action action = Action::Drop;
    // Set exactly when the action is Reply.
    SharedReply reply;
    std::string note;
    // The note belongs in the log even when it is not verbose (a refused or
    // malformed request).
    bool notable = false;
};

} // namespace orbelan::server
