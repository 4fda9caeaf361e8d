#pragma once

#include "CommandCatalogue.h"
#include "DWBUffer.h"
#include "ServerConnection.h"

namespace orbelan {

class Viewer;

// What handles one server message: the message, read up to its first payload
// byte, the connection it came through and the control it is for.
using CommandHandler = void (*)(DWBUffer& message, ServerConnection& connection, Viewer& viewer);

// The command dispatcher: every whole message of the connection comes here,
// its header and code are read and the code's handler is called.
//
// Codes 107 and 108 are accepted and do nothing. Any other code without a
// handler is announced with a message box and the message is dropped. A
// handler that meets the end of its message, or a value the map refuses (a
// layer id given twice, say), stops there: what it applied stays, and the
// rest of the message is abandoned as the connection reports.
class wsckComandos {
public:
    explicit wsckComandos(Viewer& viewer) : viewer_(&viewer) {}

    // The message has its read position at byte 1.
    void operator()(DWBUffer& message) const;

private:
    void notUnderstood() const;

    Viewer* viewer_;
};

} // namespace orbelan
