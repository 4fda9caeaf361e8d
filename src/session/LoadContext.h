#pragma once

namespace orbelan {

class CellRequester;
class MapDocument;
class RequestSender;
class SessionEvents;
struct SessionState;
class UiServices;

// What a reply handler works on: the map it fills, where further requests go
// (cells through the cell requester, everything else straight to the
// sender), the message boxes, the control that shows the map, and what the
// replies of the session remember between them.
struct LoadContext {
    MapDocument& document;
    RequestSender& requests;
    CellRequester& cells;
    UiServices& ui;
    SessionEvents& events;
    SessionState& state;
};

} // namespace orbelan
