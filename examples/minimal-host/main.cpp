// The smallest host of the map viewer: a window holding one Viewer that
// shows one map of a map server.
//
//   minimal-host [HOST [PORT [USER [MAP]]]]      (127.0.0.1 10010 1 1)

#include "viewer/Viewer.h"

#include <QApplication>
#include <QStringList>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();

    orbelan::Viewer viewer;
    viewer.setWindowTitle(QStringLiteral("Minimal Orbelan host"));
    viewer.setURL(arguments.value(1, QStringLiteral("127.0.0.1")));
    viewer.setPort(arguments.value(2, QStringLiteral("10010")).toInt());
    viewer.setIDUser(arguments.value(3, QStringLiteral("1")).toInt());
    viewer.setMapCode(arguments.value(4, QStringLiteral("1")).toInt());
    QObject::connect(&viewer, &orbelan::Viewer::MapLoaded, [&viewer] {
        QTextStream(stdout) << "map " << viewer.Nombre() << " loaded\n";
    });
    viewer.resize(800, 600);
    viewer.show();
    return QApplication::exec();
}
