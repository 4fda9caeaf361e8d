// The smallest host of the map viewer: a login control asks the map server
// who the user is, then a window holding one Viewer shows the first map the
// server offers that user.
//
//   minimal-host [HOST [PORT [USER [PASSWORD]]]]      (127.0.0.1 10010 admin admin)

#include "login/login.h"
#include "viewer/Viewer.h"

#include <QApplication>
#include <QStringList>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString host = arguments.value(1, QStringLiteral("127.0.0.1"));
    const int port = arguments.value(2, QStringLiteral("10010")).toInt();

    orbelan::Viewer viewer;
    viewer.setWindowTitle(QStringLiteral("Minimal Orbelan host"));
    viewer.setURL(host);
    viewer.setPort(port);
    viewer.resize(800, 600);
    QObject::connect(&viewer, &orbelan::Viewer::MapLoaded, [&viewer] {
        QTextStream(stdout) << "map " << viewer.Nombre() << " loaded\n";
    });

    orbelan::login login;
    QObject::connect(&login, &orbelan::login::LoginResponse,
                     [&viewer](int user, int mapCount, const QStringList&, const QList<int>& mapCodes) {
                         if (user < 1 || mapCount < 1) {
                             QTextStream(stderr) << "login refused (" << user << ")\n";
                             QApplication::exit(1);
                             return;
                         }
                         viewer.setIDUser(user);
                         viewer.setMapCode(mapCodes.front());
                         viewer.show();
                     });
    login.Checklogin(host, port, arguments.value(3, QStringLiteral("admin")),
                     arguments.value(4, QStringLiteral("admin")));
    if (!login.awaitingReply()) {
        return 1;
    }
    return QApplication::exec();
}
