#include "orbelan-viewer/MainWindow.h"

#include "orbelan-viewer/EventRelay.h"
#include "orbelan-viewer/LineFormat.h"
#include "viewer/Viewer.h"

#include <QMenuBar>
#include <QMetaMethod>
#include <QStatusBar>

namespace orbelan {

namespace {

constexpr int kStatusMessageMilliseconds = 4000;

} // namespace

MainWindow::MainWindow(Viewer* viewer)
    : viewer_(viewer)
{
    setWindowTitle(QStringLiteral("Orbelan Viewer"));
    setCentralWidget(viewer_);
    addMenus();
    reportEvents();
}

// One entry per public command of the control that takes no arguments and
// returns nothing, so the menu grows with the control.
void MainWindow::addMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

    QMenu* map = menuBar()->addMenu(tr("&Map"));
    const QMetaObject* type = viewer_->metaObject();
    for (int index = type->methodOffset(); index < type->methodCount(); ++index) {
        const QMetaMethod method = type->method(index);
        const bool command = method.methodType() == QMetaMethod::Method && method.parameterCount() == 0 &&
                             method.returnMetaType().id() == QMetaType::Void;
        if (!command) {
            continue;
        }
        map->addAction(QString::fromUtf8(method.name()), this,
                       [this, method] { method.invoke(viewer_, Qt::DirectConnection); });
    }
}

void MainWindow::reportEvents()
{
    new EventRelay(
        *viewer_,
        [this](const QByteArray& name, const QVariantList& arguments) {
            QStringList words{QString::fromUtf8(name)};
            for (const QVariant& argument : arguments) {
                words << lineformat::formatValue(argument);
            }
            statusBar()->showMessage(words.join(' '), kStatusMessageMilliseconds);
        },
        {"propertyChanged"});
}

} // namespace orbelan
