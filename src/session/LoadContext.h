#pragma once

namespace orbelan {

class CellRequester;
class MapDocument;
class RequestSender;
class SessionEvents;
class UiServices;

// What a reply handler works on: the map it fills, where further requests go
// (cells through the cell requester, everything else straight to the
// sender), the message boxes, and the control that shows the map.
struct LoadContext {
    MapDocument& document;
    RequestSender& requests;
    CellRequester& cells;
    UiServices& ui;
    SessionEvents& events;
};

} // namespace orbelan
