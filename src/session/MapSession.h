#pragma once

#include "session/CellRequester.h"
#include "protocol/ServerConnection.h"
#include "session/SessionState.h"
#include "session/StatusList.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace orbelan {

namespace messages {
struct Condition;
struct ConstrainedElementQuery;
} // namespace messages

class MapDocument;
class SessionEvents;
class UiServices;
class Viewport;

// One control's conversation with the map server about one map: the
// connection, the dispatcher that hands each reply to its loader, the cell
// requests, and the steps in progress that the status label lists.
//
// The session outlives its connection: a connection opened again by a
// request first asks for access again as the same user and map, and the
// requests whose replies the old connection lost are forgotten (their steps
// leave the status list, their cells count as never asked for). A
// re-connection that fails is told to the user with the message of a failed
// start.
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
    // Asks the server for the box of an element; the reply shows it when
    // zoom is set.
    void requestElementBox(std::int32_t layerId, std::int32_t elementId, bool zoom);
    // Asks the server for the values of an element, to show them or, with
    // forEditing, to let them change.
    void requestInformation(std::int32_t layerId, std::int32_t elementId, bool forEditing);
    // Whether the values of the next elements shown go to the host as an
    // event instead of into a dialog.
    void releaseInformation(bool asEvent) { state_.releaseInformation = asEvent; }
    // The new values, by field number from 1, for the next element edited;
    // nothing lets the user type them.
    void presetEditValues(std::optional<std::map<std::int32_t, std::string>> values)
    {
        state_.presetEditValues = std::move(values);
    }
    // Asks for the elements that meet the condition.
    void findByCondition(const messages::Condition& condition);
    // Asks for the elements of the query; the reply shows them in the
    // information grid when mode is -1, as a list when it is 0.
    void queryElements(const messages::ConstrainedElementQuery& query, std::int32_t mode);
    // Asks the server to change the password of the document's user.
    void changePassword(const std::string& oldPassword, const std::string& newPassword);
    // Asks the server to store the map as the document holds it under a new
    // name for the user; nothing while replies are awaited (the map is still
    // loading).
    void saveMap(std::int32_t user, const std::string& name);

private:
    void installDispatcher(UiServices& ui);
    void connectRecovery();
    void identify();
    void tellConnectionFailure();
    void forgetLostRequests();

    MapDocument& document_;
    SessionEvents& events_;
    UiServices* ui_;
    ServerConnection connection_;
    StatusList status_;
    SessionState state_;
    CellRequester cells_;
};

} // namespace orbelan
