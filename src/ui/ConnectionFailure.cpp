#include "ui/ConnectionFailure.h"

#include "ui/UiServices.h"

namespace orbelan {

void showConnectionFailure(UiServices& ui, QWidget* parent)
{
    static const QString text = QStringLiteral(
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
    ui.messageBox(parent, text, MessageButtons::OK, MessageIcon::Critical, QStringLiteral("Orbelan Viewer"));
}

} // namespace orbelan
