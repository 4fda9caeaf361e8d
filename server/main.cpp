#include "cli/CommandLine.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orbelan-server"));
    return orbelan::server::CommandLine::run(QCoreApplication::arguments());
}
