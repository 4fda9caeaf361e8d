#pragma once

#include "session/CellRequester.h"
#include "protocol/ServerConnection.h"
#include "session/StatusList.h"

namespace orbelan {

class MapDocument;
class SessionEvents;
class UiServices;
class Viewport;

// One control's conversation with the map server about one map: the
// connection, the dispatcher that hands each reply to its loader, the cell
// requests, and the steps in progress that the status label lists.
class MapSession {
public:
    MapSession(MapDocument& document, const Viewport& view, UiServices& ui, SessionEvents& events);

    MapSession(const MapSession&) = delete;
    MapSession& operator=(const MapSession&) = delete;

    ServerConnection& connection() { return connection_; }
    const ServerConnection& connection() const { return connection_; }
    CellRequester& cells() { return cells_; }
    StatusList& status() { return status_; }
    const StatusList& status() const { return status_; }

    // Message boxes of the replies open through these services from now on.
    void setUiServices(UiServices& ui);

    // Connects to the server and asks for access to the document's map as
    // its user. False, after the connection failure message, when the
    // server cannot be reached.
    bool open();
    // Closes the connection and waits until it is closed.
    void close();

private:
    void installDispatcher(UiServices& ui);

    MapDocument& document_;
    SessionEvents& events_;
    UiServices* ui_;
    ServerConnection connection_;
    StatusList status_;
    CellRequester cells_;
};

} // namespace orbelan
