#pragma once

#include "protocol/DWBUffer.h"
#include "session/LoadContext.h"

namespace orbelan {

// What handles one server message: the message, read up to its first payload
// byte, and what it loads into.
using CommandHandler = void (*)(DWBUffer& message, LoadContext& context);

// Every whole message of the connection comes here: its header and code are
// read, a counted reply is counted off, and the code's handler is called.
//
// Codes 107 and 108 are accepted and do nothing. Any other code without a
// handler is announced with a message box and the message is dropped. A
// handler that meets the end of its message, or a value the map refuses (a
// layer id given twice, say), stops there: what it applied stays, and the
// rest of the message is abandoned as the connection reports.
class CommandDispatcher {
public:
    explicit CommandDispatcher(LoadContext context) : context_(context) {}

    // The message has its read position at byte 1.
    void operator()(DWBUffer& message);

private:
    void notUnderstood() const;

    LoadContext context_;
};

} // namespace orbelan
