#include "session/MapSession.h"

#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/ChangePasswordRequest.h"
#include "protocol/messages/ConstrainedElementQuery.h"
#include "protocol/messages/ElementBoundingBoxRequest.h"
#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/FindByConditionRequest.h"
#include "session/CommandDispatcher.h"
#include "session/SaveMapRequestBuilder.h"
#include "model/MapDocument.h"
#include "session/SessionEvents.h"
#include "ui/ConnectionFailure.h"

namespace orbelan {

MapSession::MapSession(MapDocument& document, const Viewport& view, UiServices& ui, SessionEvents& events)
    : document_(document),
      events_(events),
      ui_(&ui),
      cells_(connection_, document, view, events)
{
    installDispatcher(ui);
    connectRecovery();
}

void MapSession::setUiServices(UiServices& ui)
{
    ui_ = &ui;
    installDispatcher(ui);
}

void MapSession::installDispatcher(UiServices& ui)
{
    connection_.setMessageHandler(
        CommandDispatcher(LoadContext{document_, connection_, cells_, ui, events_, state_}));
}

void MapSession::connectRecovery()
{
    QObject::connect(&connection_, &ServerConnection::reconnected, &connection_, [this] { identify(); });
    QObject::connect(&connection_, &ServerConnection::connectionFailed, &connection_,
                     [this] { tellConnectionFailure(); });
    QObject::connect(&connection_, &ServerConnection::repliesLost, &connection_, [this] { forgetLostRequests(); });
}

bool MapSession::open()
{
    state_ = SessionState{};
    connection_.resumeSending();
    if (!connection_.connectToServer()) {
        tellConnectionFailure();
        return false;
    }
    identify();
    events_.changeStatus(0, StatusList::RequestingMap);
    return true;
}

void MapSession::close()
{
    connection_.closeAndWait();
}

void MapSession::requestElementBox(std::int32_t layerId, std::int32_t elementId, bool zoom)
{
    state_.zoomToElementBox = zoom;
    sendMessage(connection_, messages::ElementBoundingBoxRequest{layerId, elementId});
}

// The cells of an element edited from a list go with that list's requests only.
void MapSession::requestInformation(std::int32_t layerId, std::int32_t elementId, bool forEditing)
{
    state_.editInformation = forEditing;
    state_.editCellI.clear();
    state_.editCellJ.clear();
    events_.changeStatus(layerId, StatusList::RequestingInformation);
    sendMessage(connection_, messages::ElementInformationRequest{layerId, elementId});
}

void MapSession::findByCondition(const messages::Condition& condition)
{
    sendMessage(connection_, messages::FindByConditionRequest{condition});
}

void MapSession::queryElements(const messages::ConstrainedElementQuery& query, std::int32_t mode)
{
    state_.resultTableMode = mode;
    sendMessage(connection_, query);
}

void MapSession::changePassword(const std::string& oldPassword, const std::string& newPassword)
{
    sendMessage(connection_, messages::ChangePasswordRequest{document_.IDUser, oldPassword, newPassword});
}

void MapSession::saveMap(std::int32_t user, const std::string& name)
{
    requestSaveMap(connection_, document_, user, name);
}

void MapSession::identify()
{
    sendMessage(connection_, messages::AccessRequest{document_.IDUser, document_.MapCode});
}

void MapSession::tellConnectionFailure()
{
    showConnectionFailure(*ui_, events_.dialogParent());
}

void MapSession::forgetLostRequests()
{
    cells_.forgetAwaited();
    for (const auto& [layerId, code] : status_.steps()) {
        events_.changeStatus(layerId, static_cast<std::uint8_t>(StatusList::Remove + code));
    }
}

} // namespace orbelan
