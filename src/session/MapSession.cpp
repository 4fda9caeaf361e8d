#include "session/MapSession.h"

#include "protocol/messages/AccessRequest.h"
#include "session/CommandDispatcher.h"
#include "model/MapDocument.h"
#include "session/SessionEvents.h"
#include "ui/UiServices.h"

namespace orbelan {

namespace {

const QString kConnectionFailure = QStringLiteral(
    "Error: Unable to connect to map server.\r\n"
    "\r\n"
    "Orbelan uses port 1001 to communicate with the map\r\n"
    "server and now this port is blocked.\r\n"
    "May be the port is blocked by: \r\n"
    "\t1.- Network Firewall or personal Firewall\r\n"
    "\t2.- Network Proxy\r\n"
    "\r\n"
    "Please contact your LAN Manager to enable the port 1001\r\n"
    "to communicate between your computer and Orbelan.");

} // namespace

MapSession::MapSession(MapDocument& document, const Viewport& view, UiServices& ui, SessionEvents& events)
    : document_(document),
      events_(events),
      ui_(&ui),
      cells_(connection_, document, view, events)
{
    installDispatcher(ui);
}

void MapSession::setUiServices(UiServices& ui)
{
    ui_ = &ui;
    installDispatcher(ui);
}

void MapSession::installDispatcher(UiServices& ui)
{
    connection_.setMessageHandler(CommandDispatcher(LoadContext{document_, connection_, cells_, ui, events_}));
}

bool MapSession::open()
{
    if (!connection_.connectToServer()) {
        ui_->messageBox(events_.dialogParent(), kConnectionFailure, MessageButtons::OK, MessageIcon::Critical,
                      QStringLiteral("Orbelan Viewer"));
        return false;
    }
    sendMessage(connection_, messages::AccessRequest{document_.IDUser, document_.MapCode});
    events_.changeStatus(0, StatusList::RequestingMap);
    return true;
}

void MapSession::close()
{
    connection_.closeAndWait();
}

} // namespace orbelan
