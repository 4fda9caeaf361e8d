#include "orbelan-viewer/MainWindow.h"

#include "orbelan-viewer/EventRelay.h"
#include "orbelan-viewer/LineFormat.h"
#include "orbelan-viewer/MapStatusBar.h"
#include "orbelan-viewer/dlgChangePassword.h"
#include "ui/UiServices.h"
#include "model/Layers.h"
#include "viewer/Viewer.h"
#include "viewer/tools/ToolCursors.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMetaMethod>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPolygonF>
#include <QRegularExpression>
#include <QTime>
#include <QToolBar>

#include <optional>

namespace orbelan {

namespace {

constexpr float kClickZoomFactor = 2;
// The virtual key numbers of the plus and minus keys, on the keypad and in the main rows.
constexpr int kKeypadPlus = 107;
constexpr int kKeypadMinus = 109;
constexpr int kPlus = 187;
constexpr int kMinus = 189;
constexpr int kCtrlOrAlt = 2 | 4;
constexpr int kEventLogLines = 2000;
const QString kProgramName = QStringLiteral("Orbelan Viewer");

// A command of the Map menu with a label of its own, its shortcuts, and the
// tool it makes current (0 for none), whose entry is checked while it is.
struct MenuCommand {
    const char* method;
    const char* label;
    QList<QKeySequence> shortcuts;
    int tool;
};

const MenuCommand kMenuCommands[] = {
    {"ZoomIn", "Zoom In", {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::Key_Plus)}, 0},
    {"ZoomOut", "Zoom Out", {QKeySequence(Qt::Key_Minus), QKeySequence(Qt::CTRL | Qt::Key_Minus)}, 0},
    {"ZoomExtents", "Zoom to Extents", {QKeySequence(Qt::CTRL | Qt::Key_0)}, 0},
    {"Redraw", "Redraw", {QKeySequence(Qt::Key_F5)}, 0},
    {"ZoomWindow", "Zoom Window", {}, 1},
    {"Pan", "Pan", {}, 3},
    {"MeasureDistance", "Measure Distance", {}, 8},
};

// The entry of a command without a label of its own: its name with its words apart.
MenuCommand menuCommandOf(const QByteArray& method)
{
    for (const MenuCommand& command : kMenuCommands) {
        if (method == command.method) {
            return command;
        }
    }
    return {method.constData(), nullptr, {}, 0};
}

QString labelOf(const MenuCommand& command)
{
    if (command.label) {
        return QString::fromUtf8(command.label);
    }
    static const QRegularExpression wordStart(QStringLiteral("(?<=[a-z])(?=[A-Z])"));
    return QString::fromUtf8(command.method).replace(wordStart, QStringLiteral(" "));
}

// The layer the tool bar selects on: the map's first polygon layer; 0, which
// the control refuses, when it has none.
int selectionLayer(Viewer& viewer)
{
    for (const layer& mapLayer : viewer.Layers()) {
        if (mapLayer.Tipo == polygonlayer) {
            return mapLayer.IDLayer;
        }
    }
    return 0;
}

// A mouse tool of the tool bar: the number the control reports while it is
// current (-1 for a command that opens a dialog), its pointer (none for the
// default arrow) and what selects it.
struct ToolButton {
    int tool;
    std::optional<toolcursors::Resource> cursor;
    const char* tip;
    void (*select)(Viewer&);
};

const ToolButton kToolButtons[] = {
    {1, toolcursors::ZoomWindow, "Zoom Window", [](Viewer& v) { v.ZoomWindow(); }},
    {2, toolcursors::ZoomIn, "Zoom In at a Click", [](Viewer& v) { v.ZoomFactor(kClickZoomFactor); }},
    {3, toolcursors::Pan, "Pan", [](Viewer& v) { v.Pan(); }},
    {8, toolcursors::Measure, "Measure Distance", [](Viewer& v) { v.MeasureDistance(); }},
    {11, std::nullopt, "Select objects", [](Viewer& v) { v.SelectObjects(selectionLayer(v)); }},
    {12, std::nullopt, "Multiple selection", [](Viewer& v) { v.MultipleSelect(true, selectionLayer(v), 0, 0); }},
    {-1, std::nullopt, "Find by condition", [](Viewer& v) { v.FindByCondition(0, {}, 0, {}, {}, false); }},
};

// The button shows the tool's pointer.
QIcon iconOf(const ToolButton& button)
{
    if (button.cursor) {
        return QIcon(toolcursors::cursor(*button.cursor).pixmap());
    }
    constexpr int kSize = 32;
    QPixmap arrow(kSize, kSize);
    arrow.fill(Qt::transparent);
    QPainter painter(&arrow);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 2));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({{8, 4}, {8, 26}, {14, 20}, {19, 29}, {23, 27}, {18, 18}, {26, 18}}));
    return QIcon(arrow);
}

} // namespace

MainWindow::MainWindow(Viewer* viewer, UiServices& ui)
    : viewer_(viewer),
      ui_(ui)
{
    setWindowTitle(kProgramName);
    setCentralWidget(viewer_);
    setStatusBar(new MapStatusBar(*viewer_, this));
    addEventLog();
    addMenus();
    addToolBar();
    reportEvents();
    zoomOnKeys();
    connect(viewer_, &Viewer::MapLoaded, this, [this] {
        const QString name = viewer_->Nombre();
        setWindowTitle(name.isEmpty() ? kProgramName : name + QStringLiteral(" — ") + kProgramName);
    });
}

void MainWindow::addEventLog()
{
    auto* dock = new QDockWidget(tr("Event log"), this);
    dock->setObjectName(QStringLiteral("dockEventLog"));
    eventLog_ = new QPlainTextEdit(dock);
    eventLog_->setReadOnly(true);
    eventLog_->setMaximumBlockCount(kEventLogLines);
    dock->setWidget(eventLog_);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    dock->hide();
}

// The button of the current tool is checked; none while no tool of the bar is.
void MainWindow::addToolBar()
{
    QToolBar* bar = QMainWindow::addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tbTools"));
    auto* buttons = new QActionGroup(bar);
    buttons->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const ToolButton& button : kToolButtons) {
        QAction* action = bar->addAction(iconOf(button), tr(button.tip));
        action->setCheckable(true);
        buttons->addAction(action);
        const auto follow = [action, button](int tool) { action->setChecked(tool == button.tool); };
        connect(action, &QAction::triggered, this, [this, button, follow] {
            button.select(*viewer_);
            follow(viewer_->currentTool());
        });
        connect(viewer_, &Viewer::toolChanged, action, follow);
    }
}

// One entry per public command of the control that takes no arguments and
// returns nothing, so the menu grows with the control; About goes to Help.
void MainWindow::addMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("Change password…"), this, &MainWindow::changePassword)
        ->setObjectName(QStringLiteral("mnuChangePassword"));
    file->addAction(tr("Save map as…"), this, &MainWindow::saveMap)->setObjectName(QStringLiteral("mnuSaveMap"));
    file->addAction(tr("Export…"), this, &MainWindow::exportMap)->setObjectName(QStringLiteral("mnuExport"));
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

    QMenu* map = menuBar()->addMenu(tr("&Map"));
    const QMetaObject* type = viewer_->metaObject();
    for (int index = type->methodOffset(); index < type->methodCount(); ++index) {
        const QMetaMethod method = type->method(index);
        const bool command = method.methodType() == QMetaMethod::Method && method.parameterCount() == 0 &&
                             method.returnMetaType().id() == QMetaType::Void;
        if (command && method.name() != "About") {
            addCommand(*map, method);
        }
    }

    addLayerMenu(*map, tr("Layer setup"), QStringLiteral("mnuLayerSetup"),
                 [this](std::int32_t id) { viewer_->LayerSetup(id); });

    // A click on the map then picks the element.
    QMenu* query = menuBar()->addMenu(tr("&Query"));
    addLayerMenu(*query, tr("Identify"), QStringLiteral("mnuIdentify"),
                 [this](std::int32_t id) { viewer_->GetInfo(id, 0); });
    addLayerMenu(*query, tr("Edit attributes"), QStringLiteral("mnuEditAttributes"),
                 [this](std::int32_t id) { viewer_->EditInfo(id, 0); });
    query->addAction(tr("Find by condition…"), this, [this] { viewer_->FindByCondition(0, {}, 0, {}, {}, false); })
        ->setObjectName(QStringLiteral("mnuFindByCondition"));

    QMenu* view = menuBar()->addMenu(tr("&View"));
    QAction* log = findChild<QDockWidget*>(QStringLiteral("dockEventLog"))->toggleViewAction();
    log->setObjectName(QStringLiteral("mnuEventLog"));
    view->addAction(log);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Orbelan Viewer…"), viewer_, &Viewer::About)->setObjectName(QStringLiteral("mnuAbout"));
}

// The layers are known once the map has loaded: the submenu lists those
// with elements as it opens, and its entries act on the chosen one.
void MainWindow::addLayerMenu(QMenu& menu, const QString& title, const QString& name,
                              const std::function<void(std::int32_t)>& act)
{
    QMenu* layers = menu.addMenu(title);
    layers->setObjectName(name);
    connect(layers, &QMenu::aboutToShow, this, [this, layers, act] {
        layers->clear();
        for (const layer& mapLayer : viewer_->Layers()) {
            if (mapLayer.Tipo != ImageLayer) {
                const std::int32_t id = mapLayer.IDLayer;
                layers->addAction(QString::fromStdString(mapLayer.Nombre), this, [act, id] { act(id); });
            }
        }
    });
}

void MainWindow::addCommand(QMenu& menu, const QMetaMethod& method)
{
    const MenuCommand command = menuCommandOf(method.name());
    QAction* action = menu.addAction(labelOf(command), this,
                                      [this, method] { method.invoke(viewer_, Qt::DirectConnection); });
    action->setShortcuts(command.shortcuts);
    if (command.tool != 0) {
        action->setCheckable(true);
        connect(viewer_, &Viewer::toolChanged, action,
                [action, tool = command.tool](int current) { action->setChecked(current == tool); });
        connect(action, &QAction::triggered, action,
                [this, action, tool = command.tool] { action->setChecked(viewer_->currentTool() == tool); });
    }
}

void MainWindow::changePassword()
{
    dlgChangePassword form(ui_, this);
    if (ui_.execDialog(form) == QDialog::Accepted) {
        viewer_->ChangePassword(form.oldPassword(), form.newPassword());
    }
}

// The map as it looks now is stored on the server as a new map of the
// logged-in user; the server's answer comes as a message box.
void MainWindow::saveMap()
{
    QInputDialog prompt(this);
    prompt.setObjectName(QStringLiteral("dlgSaveMap"));
    prompt.setWindowTitle(tr("Save map"));
    prompt.setLabelText(tr("Name of the new map:"));
    if (ui_.execDialog(prompt) == QDialog::Accepted) {
        viewer_->SaveMap(viewer_->IDUser(), prompt.textValue());
    }
}

// The view as the control shows it, at its size and the screen's resolution;
// an error shows in the status bar.
void MainWindow::exportMap()
{
    QFileDialog chooser(this, tr("Export the map"), QString(), tr("PNG picture (*.png);;PDF document (*.pdf)"));
    chooser.setObjectName(QStringLiteral("dlgExport"));
    chooser.setAcceptMode(QFileDialog::AcceptSave);
    chooser.setDefaultSuffix(QStringLiteral("png"));
    if (ui_.execDialog(chooser) == QDialog::Accepted && !chooser.selectedFiles().isEmpty()) {
        viewer_->ExportImage(chooser.selectedFiles().constFirst(), viewer_->width(), viewer_->height(),
                             viewer_->logicalDpiY());
    }
}

// Plain + and - zoom as the menu says, but while the control has the focus
// they are its keys: it raises KeyDown and KeyUp for them, and the window
// zooms on its KeyDown rather than through the menu's shortcuts.
void MainWindow::zoomOnKeys()
{
    viewer_->installEventFilter(this);
    connect(viewer_, &Viewer::KeyDown, this, [this](int code, int shift) {
        if ((shift & kCtrlOrAlt) != 0) {
            return;
        }
        if (code == kPlus || code == kKeypadPlus) {
            viewer_->ZoomIn();
        } else if (code == kMinus || code == kKeypadMinus) {
            viewer_->ZoomOut();
        }
    });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == viewer_ && event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool plain = (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
        if (plain && (key->key() == Qt::Key_Plus || key->key() == Qt::Key_Minus)) {
            event->accept();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
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
            const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
            eventLog_->appendPlainText(time + u' ' + words.join(u' '));
        },
        {"propertyChanged"});
}

} // namespace orbelan
