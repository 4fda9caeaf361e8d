#include "orbelan-viewer/HeadlessHost.h"
#include "orbelan-viewer/HostOptions.h"

#include "orbelan-viewer/EventRelay.h"
#include "viewer/InputCodes.h"
#include "orbelan-viewer/LineFormat.h"
#include "ui/ScriptedUiServices.h"
#include "model/Layers.h"
#include "viewer/Viewer.h"
#include "view/Viewport.h"

#include <QAction>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace orbelan {

using lineformat::formatValue;
using lineformat::quote;

namespace {

constexpr int kDefaultIdleWaitSeconds = 30;
constexpr int kIdlePollMilliseconds = 20;
constexpr int kMaximumArguments = 10;

std::optional<int> toInt(const QString& text)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

std::optional<double> toDouble(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

// A list of whole numbers written as 1,2,3 or [1,2,3].
std::optional<QVariant> toIntegerList(QString word)
{
    if (word.startsWith('[') && word.endsWith(']')) {
        word = word.mid(1, word.size() - 2);
    }
    QList<int> numbers;
    for (const QString& item : word.split(',', Qt::SkipEmptyParts)) {
        const auto number = toInt(item.trimmed());
        if (!number) {
            return std::nullopt;
        }
        numbers << *number;
    }
    return QVariant::fromValue(numbers);
}

// The word as a value of the parameter's type, when it can be one.
// A list of texts written as a,b,c or [a,b,c]; [] is the empty list and
// "" an empty text in it ([""], [a,""]).
QVariant toTextList(QString word)
{
    if (word.startsWith('[') && word.endsWith(']')) {
        word = word.mid(1, word.size() - 2);
    }
    QStringList texts = word.isEmpty() ? QStringList() : word.split(',');
    for (QString& text : texts) {
        if (text == QStringLiteral("\"\"")) {
            text.clear();
        }
    }
    return QVariant::fromValue(texts);
}

std::optional<QVariant> toArgument(const QString& word, QMetaType type)
{
    if (type == QMetaType::fromType<QList<int>>()) {
        return toIntegerList(word);
    }
    if (type == QMetaType::fromType<QStringList>()) {
        return toTextList(word);
    }
    if (type == QMetaType::fromType<QVariant>()) {
        // A variant parameter gets the word as a text, wrapped so that the
        // call finds a QVariant where it looks.
        const QVariant text = word;
        return QVariant(type, &text);
    }
    QVariant value = word;
    return value.convert(type) ? std::optional(value) : std::nullopt;
}

// FIELD=VALUE words as a map of names to values; std::invalid_argument for a
// word without a name before its "=".
QMap<QString, QString> namedValues(const QStringList& words)
{
    QMap<QString, QString> values;
    for (const QString& pair : words) {
        const qsizetype equals = pair.indexOf('=');
        if (equals <= 0) {
            throw std::invalid_argument(quote(pair).toStdString() + " is not FIELD=VALUE");
        }
        values.insert(pair.left(equals), pair.mid(equals + 1));
    }
    return values;
}

void sendMouse(QWidget& target, QEvent::Type type, Qt::MouseButton button, QPointF position,
               Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, position, target.mapToGlobal(position), button,
                      type == QEvent::MouseMove ? Qt::MouseButtons(Qt::NoButton) : held, modifiers);
    QCoreApplication::sendEvent(&target, &event);
}

// The text a key types, for the keys that type one.
QString keyText(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if ((key >= Qt::Key_A && key <= Qt::Key_Z)) {
        const QChar letter(static_cast<char16_t>(key));
        return modifiers & Qt::ShiftModifier ? QString(letter) : QString(letter.toLower());
    }
    // Qt's keys of the printable ASCII characters are those characters.
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde) {
        return QString(QChar(static_cast<char16_t>(key)));
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        return QStringLiteral("\r");
    }
    if (key == Qt::Key_Escape) {
        return QString(QChar(27));
    }
    return {};
}

} // namespace

HeadlessHost::HeadlessHost(Viewer& viewer, ScriptedUiServices& ui, std::ostream& out)
    : viewer_(viewer),
      ui_(ui),
      out_(out)
{
    login_.setUiServices(ui);
    addCommands();
    reportEvents();
}

void HeadlessHost::addCommands()
{
    auto bind = [this](void (HeadlessHost::*member)(const QStringList&)) {
        return [this, member](const QStringList& arguments) { (this->*member)(arguments); };
    };
    commands_ = {
        {"show", bind(&HeadlessHost::show)},
        {"hide", bind(&HeadlessHost::hide)},
        {"sleep", bind(&HeadlessHost::sleep)},
        {"wait-idle", bind(&HeadlessHost::waitIdle)},
        {"snapshot", bind(&HeadlessHost::snapshot)},
        {"answer", bind(&HeadlessHost::answer)},
        {"dialog", bind(&HeadlessHost::queueDialog)},
        {"menu", bind(&HeadlessHost::clickMenuItem)},
        {"mouse", bind(&HeadlessHost::mouse)},
        {"key", bind(&HeadlessHost::key)},
        {"set", bind(&HeadlessHost::setProperty)},
        {"get", bind(&HeadlessHost::getProperty)},
        {"view", bind(&HeadlessHost::printView)},
        {"layers", bind(&HeadlessHost::printLayers)},
        {"layer-visibility", bind(&HeadlessHost::setLayerVisibility)},
        {"EditInfo", bind(&HeadlessHost::editInfo)},
        {"login", bind(&HeadlessHost::checkLogin)},
        {"export", bind(&HeadlessHost::exportImage)},
        {"quit", [this](const QStringList&) { quit(); }},
    };
}

void HeadlessHost::reportEvents()
{
    new EventRelay(
        viewer_,
        [this](const QByteArray& name, const QVariantList& arguments) {
            QString line = QStringLiteral("event ") + QString::fromUtf8(name);
            for (const QVariant& argument : arguments) {
                line += ' ' + formatValue(argument);
            }
            print(line);
        },
        {"propertyChanged", "errorOccurred", "toolChanged"});
    connect(&viewer_, &Viewer::errorOccurred, this, &HeadlessHost::error);
    ui_.setMessageObserver([this](const ShownMessage& message) {
        print(QStringLiteral("msgbox %1 %2 %3")
                  .arg(iconName(message.icon), quote(message.caption), quote(message.text)));
    });
    ui_.setDialogObserver([this](const ShownDialog& dialog) {
        print(QStringLiteral("dialog %1 %2").arg(dialog.objectName, quote(dialog.caption)));
    });
    ui_.setMenuObserver([this](const ShownMenu& menu) {
        print(QStringLiteral("menu %1 %2").arg(menu.objectName, quote(menu.title)));
    });
    toolTipBox_ = viewer_.toolTipBox();
    toolTipLabel_ = viewer_.toolTipLabel();
    toolTipBox_->installEventFilter(this);
}

bool HeadlessHost::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == toolTipBox_ && event->type() == QEvent::Show) {
        print(QStringLiteral("tooltip ") + quote(toolTipLabel_->text()));
    }
    return QObject::eventFilter(watched, event);
}

void HeadlessHost::readStandardInput()
{
    input_ = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(input_, &QSocketNotifier::activated, this, &HeadlessHost::readAvailableInput);
}

bool HeadlessHost::readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
        return false;
    }
    for (const QByteArray& line : file.readAll().split('\n')) {
        pending_.push_back(QString::fromUtf8(line));
    }
    inputEnded_ = true;
    QTimer::singleShot(0, this, &HeadlessHost::drain);
    return true;
}

void HeadlessHost::readAvailableInput()
{
    std::array<char, 4096> chunk{};
    const ssize_t count = ::read(STDIN_FILENO, chunk.data(), chunk.size());
    if (count <= 0) {
        input_->setEnabled(false);
        if (!partialLine_.isEmpty()) {
            pending_.push_back(QString::fromUtf8(partialLine_));
        }
        inputEnded_ = true;
        drain();
        return;
    }
    partialLine_.append(chunk.data(), count);
    for (qsizetype end = partialLine_.indexOf('\n'); end >= 0; end = partialLine_.indexOf('\n')) {
        pending_.push_back(QString::fromUtf8(partialLine_.left(end)));
        partialLine_.remove(0, end + 1);
    }
    drain();
}

// Runs the queued commands in order. A command that waits (sleep, wait-idle,
// a connection) lets events run, and lines read meanwhile only join the queue.
void HeadlessHost::drain()
{
    if (running_) {
        return;
    }
    running_ = true;
    while (!pending_.empty() && !quitting_) {
        const QString line = pending_.front();
        pending_.pop_front();
        execute(line);
    }
    running_ = false;
    if (inputEnded_ && pending_.empty()) {
        quit();
    }
}

void HeadlessHost::execute(const QString& line)
{
    const auto words = lineformat::splitWords(line);
    if (!words) {
        error(QStringLiteral("unterminated quote in: %1").arg(line));
        return;
    }
    if (words->isEmpty() || words->front().startsWith('#')) {
        return;
    }
    const QString name = words->front();
    const QStringList arguments = words->mid(1);
    try {
        if (const auto command = commands_.find(name); command != commands_.end()) {
            command->second(arguments);
        } else if (!invokeViewerMethod(name, arguments)) {
            error(QStringLiteral("unknown command: %1").arg(name));
        }
    } catch (const std::exception& failure) {
        error(QStringLiteral("%1: %2").arg(name, QString::fromUtf8(failure.what())));
    }
}

// Calls a public method of the Viewer by name, converting the words to its
// parameter types, and prints what it returns.
bool HeadlessHost::invokeViewerMethod(const QString& name, const QStringList& arguments)
{
    const QMetaObject* type = viewer_.metaObject();
    for (int index = type->methodOffset(); index < type->methodCount(); ++index) {
        const QMetaMethod method = type->method(index);
        if (method.methodType() != QMetaMethod::Method || method.name() != name.toUtf8() ||
            method.parameterCount() != arguments.size() || arguments.size() > kMaximumArguments) {
            continue;
        }
        std::array<QVariant, kMaximumArguments> values;
        std::array<QByteArray, kMaximumArguments> typeNames;
        std::array<QGenericArgument, kMaximumArguments> generic;
        for (int i = 0; i < method.parameterCount(); ++i) {
            const auto value = toArgument(arguments[i], method.parameterMetaType(i));
            if (!value) {
                error(QStringLiteral("%1: %2 is not a %3")
                          .arg(name, quote(arguments[i]), QString::fromUtf8(method.parameterTypeName(i))));
                return true;
            }
            values[i] = *value;
            // The argument keeps a pointer to its type name, which must outlive the call.
            typeNames[i] = method.parameterTypeName(i);
            generic[i] = QGenericArgument(typeNames[i].constData(), values[i].constData());
        }
        QVariant result(method.returnMetaType());
        const bool returnsValue = method.returnMetaType().id() != QMetaType::Void;
        method.invoke(&viewer_, Qt::DirectConnection,
                      returnsValue ? QGenericReturnArgument(method.typeName(), result.data())
                                   : QGenericReturnArgument(),
                      generic[0], generic[1], generic[2], generic[3], generic[4], generic[5],
                      generic[6], generic[7], generic[8], generic[9]);
        if (returnsValue) {
            print(QStringLiteral("result ") + formatValue(result));
        }
        return true;
    }
    return false;
}

void HeadlessHost::quit()
{
    quitting_ = true;
    QCoreApplication::exit(0);
}

void HeadlessHost::show(const QStringList&)
{
    viewer_.show();
}

void HeadlessHost::hide(const QStringList&)
{
    viewer_.hide();
}

void HeadlessHost::sleep(const QStringList& arguments)
{
    const auto milliseconds = arguments.size() == 1 ? toInt(arguments[0]) : std::nullopt;
    if (!milliseconds || *milliseconds < 0) {
        error(QStringLiteral("sleep needs a number of milliseconds"));
        return;
    }
    QEventLoop loop;
    QTimer::singleShot(*milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void HeadlessHost::waitIdle(const QStringList& arguments)
{
    const auto seconds = arguments.isEmpty() ? std::optional(double(kDefaultIdleWaitSeconds))
                                             : toDouble(arguments[0]);
    if (!seconds || *seconds < 0 || arguments.size() > 1) {
        error(QStringLiteral("wait-idle takes an optional number of seconds"));
        return;
    }
    QDeadlineTimer deadline(static_cast<qint64>(*seconds * 1000));
    while (!viewer_.isIdle() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, kIdlePollMilliseconds);
    }
    if (!viewer_.isIdle()) {
        error(QStringLiteral("wait-idle: %1 request(s) still pending after %2 s")
                  .arg(viewer_.PendingRequests())
                  .arg(*seconds));
    }
}

void HeadlessHost::snapshot(const QStringList& arguments)
{
    if (arguments.size() != 1) {
        error(QStringLiteral("snapshot needs a file name"));
        return;
    }
    saveImage(arguments[0]);
}

// A critical box (no connection, access refused) means the map will not come.
bool HeadlessHost::failureShown() const
{
    return std::any_of(ui_.messages().begin(), ui_.messages().end(),
                       [](const ShownMessage& message) { return message.icon == MessageIcon::Critical; });
}

bool HeadlessHost::saveImage(const QString& path)
{
    // What the control leaves for the next turn of the event loop, such as
    // its status line, belongs in the picture.
    QCoreApplication::processEvents();
    // At the control's own size, also on a screen of more pixels a point.
    QImage image = viewer_.grab().toImage();
    if (image.devicePixelRatio() != 1) {
        image = image.scaled(viewer_.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    if (!image.save(path)) {
        error(QStringLiteral("snapshot: cannot write %1").arg(path));
        return false;
    }
    return true;
}

// export FILE [WxH] [DPI]: the control's size and 96 dots per inch unless given.
void HeadlessHost::exportImage(const QStringList& arguments)
{
    const auto size = arguments.size() >= 2 ? HostOptions::parseSize(arguments[1]) : viewer_.size();
    const auto dpi = arguments.size() == 3 ? toInt(arguments[2]) : 96;
    if (arguments.isEmpty() || arguments.size() > 3 || !size || !dpi) {
        error(QStringLiteral("export needs FILE [WIDTHxHEIGHT] [DPI]"));
        return;
    }
    viewer_.ExportImage(arguments[0], size->width(), size->height(), *dpi);
}

void HeadlessHost::answer(const QStringList& arguments)
{
    const auto answer = arguments.size() == 1 ? parseAnswer(arguments[0]) : std::nullopt;
    if (!answer) {
        error(QStringLiteral("answer needs one of Yes, No, OK, Cancel, Abort, Retry, Ignore"));
        return;
    }
    ui_.queueAnswer(*answer);
}

// dialog NAME FIELD=VALUE ... BUTTON: what a person will do with the next
// dialog, which must be NAME.
void HeadlessHost::queueDialog(const QStringList& arguments)
{
    if (arguments.size() < 2) {
        error(QStringLiteral("dialog needs a dialog's name, FIELD=VALUE pairs and a button"));
        return;
    }
    ui_.queueDialog({arguments.front(), namedValues(arguments.mid(1, arguments.size() - 2)), arguments.back()});
}

// EditInfo LAYER ELEMENT [FIELD=VALUE ...]: the values given are applied as
// they are; without any, the control's dialog asks for them.
void HeadlessHost::editInfo(const QStringList& arguments)
{
    const auto layer = arguments.size() >= 2 ? toInt(arguments[0]) : std::nullopt;
    const auto element = arguments.size() >= 2 ? toInt(arguments[1]) : std::nullopt;
    if (!layer || !element) {
        error(QStringLiteral("EditInfo needs a layer, an element and optional FIELD=VALUE pairs"));
        return;
    }
    QVariant fieldInfo;
    if (arguments.size() > 2) {
        QVariantMap values;
        for (const auto& [name, value] : namedValues(arguments.mid(2)).asKeyValueRange()) {
            values.insert(name, value);
        }
        fieldInfo = values;
    }
    viewer_.EditInfo(*layer, *element, fieldInfo);
}

// login HOST PORT USER PASSWORD: the answer is printed, nothing is applied.
void HeadlessHost::checkLogin(const QStringList& arguments)
{
    const auto port = arguments.size() == 4 ? toInt(arguments[1]) : std::nullopt;
    if (!port) {
        error(QStringLiteral("login needs HOST PORT USER PASSWORD"));
        return;
    }
    logIn(arguments[0], *port, arguments[2], arguments[3]);
}

std::optional<LoginResult> HeadlessHost::logIn(const QString& host, int port, const QString& user,
                                               const QString& password)
{
    const auto answer = waitForLogin(login_, host, port, user, password);
    if (answer) {
        print(QStringLiteral("event LoginResponse %1 %2 %3 %4")
                  .arg(answer->user)
                  .arg(answer->count)
                  .arg(formatValue(answer->names), formatValue(QVariant::fromValue(answer->codes))));
    } else if (login_.awaitingReply()) {
        error(QStringLiteral("login: no answer within %1 s").arg(kLoginAnswerLimit.count()));
    }
    return answer;
}

bool HeadlessHost::logInControl(const QString& user, const QString& password, std::optional<int> map)
{
    const auto answer = logIn(viewer_.URL(), viewer_.port(), user, password);
    if (!answer || !answer->accepted()) {
        error(QStringLiteral("login as %1 was not accepted").arg(quote(user)));
        return false;
    }
    applyLogin(viewer_, *answer, map);
    return true;
}

// Clicks an item of one of the control's pop-up menus, whether the menu is
// open or not, as long as a person could click it: shown and enabled.
void HeadlessHost::clickMenuItem(const QStringList& arguments)
{
    QAction* item = nullptr;
    for (const QMenu* menu : viewer_.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        if (!item && arguments.size() == 1) {
            item = menu->findChild<QAction*>(arguments.front(), Qt::FindDirectChildrenOnly);
        }
    }
    if (!item || item->isSeparator()) {
        error(QStringLiteral("menu needs an item of the control's menus"));
    } else if (!item->isVisible() || !item->isEnabled()) {
        error(QStringLiteral("menu: %1 is not offered now").arg(arguments.front()));
    } else {
        item->trigger();
    }
}

void HeadlessHost::mouse(const QStringList& arguments)
{
    static const std::map<QString, std::vector<QEvent::Type>> kActions = {
        {"down", {QEvent::MouseButtonPress}},
        {"up", {QEvent::MouseButtonRelease}},
        {"move", {QEvent::MouseMove}},
        {"click", {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}},
        {"dblclick", {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                      QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}},
    };
    const auto action = arguments.isEmpty() ? kActions.end() : kActions.find(arguments[0]);
    const auto button = arguments.size() > 1 ? toInt(arguments[1]) : std::nullopt;
    const auto x = arguments.size() > 2 ? toDouble(arguments[2]) : std::nullopt;
    const auto y = arguments.size() > 3 ? toDouble(arguments[3]) : std::nullopt;
    const auto shift = arguments.size() > 4 ? toInt(arguments[4]) : std::optional(0);
    if (action == kActions.end() || !button || !x || !y || !shift || arguments.size() > 5) {
        error(QStringLiteral("mouse needs down|up|move|click|dblclick BUTTON X Y [SHIFT]"));
        return;
    }
    for (const QEvent::Type type : action->second) {
        sendMouse(viewer_, type, inputcodes::mouseButtonOf(*button), QPointF(*x, *y),
                  inputcodes::modifiersOf(*shift));
    }
}

void HeadlessHost::key(const QStringList& arguments)
{
    const auto code = arguments.size() >= 1 ? toInt(arguments[0]) : std::nullopt;
    const auto shift = arguments.size() >= 2 ? toInt(arguments[1]) : std::optional(0);
    const inputcodes::QtKey key = code ? inputcodes::keyOf(*code) : inputcodes::QtKey{};
    if (key.key == Qt::Key_unknown || !shift || arguments.size() > 2) {
        error(QStringLiteral("key needs a known key CODE and an optional SHIFT"));
        return;
    }
    const Qt::KeyboardModifiers modifiers = key.modifiers | inputcodes::modifiersOf(*shift);
    const QString text = keyText(key.key, modifiers);
    QKeyEvent press(QEvent::KeyPress, key.key, modifiers, text);
    QCoreApplication::sendEvent(&viewer_, &press);
    QKeyEvent release(QEvent::KeyRelease, key.key, modifiers, text);
    QCoreApplication::sendEvent(&viewer_, &release);
}

void HeadlessHost::setProperty(const QStringList& arguments)
{
    const QByteArray name = arguments.isEmpty() ? QByteArray() : arguments[0].toUtf8();
    const int index = viewer_.metaObject()->indexOfProperty(name.constData());
    if (arguments.size() != 2 || index < viewer_.metaObject()->propertyOffset()) {
        error(QStringLiteral("set needs one of the control's properties and a value"));
        return;
    }
    if (!viewer_.setProperty(name.constData(), arguments[1])) {
        error(QStringLiteral("set %1: %2 is not a valid value").arg(arguments[0], quote(arguments[1])));
    }
}

void HeadlessHost::getProperty(const QStringList& arguments)
{
    const QByteArray name = arguments.isEmpty() ? QByteArray() : arguments[0].toUtf8();
    const int index = viewer_.metaObject()->indexOfProperty(name.constData());
    if (arguments.size() != 1 || index < viewer_.metaObject()->propertyOffset()) {
        error(QStringLiteral("get needs one of the control's properties"));
        return;
    }
    print(QStringLiteral("property %1 %2").arg(arguments[0], formatValue(viewer_.property(name.constData()))));
}

void HeadlessHost::printView(const QStringList&)
{
    const Viewport& view = viewer_.viewport();
    const BoundingBox& box = view.viewBox();
    QStringList words{QStringLiteral("view")};
    for (const double value : {view.centre().x, view.centre().y, double(view.scale()), box.MinX, box.MinY,
                               box.MaxX, box.MaxY}) {
        words << formatValue(value);
    }
    print(words.join(' '));
}

// One line per layer, in drawing order.
void HeadlessHost::printLayers(const QStringList&)
{
    for (const layer& mapLayer : viewer_.Layers()) {
        const QVariantList values = {
            mapLayer.IDLayer,
            QString::fromStdString(mapLayer.Nombre),
            static_cast<int>(mapLayer.Tipo),
            static_cast<int>(mapLayer.AccessLevel),
            mapLayer.UserVisibility(),
            mapLayer.ZoomMin,
            mapLayer.ZoomMax,
            QString::fromStdString(mapLayer.lblField),
            QString::fromStdString(mapLayer.ThematicField),
            mapLayer.Campos().count(),
            mapLayer.ThematicMap().count(),
            mapLayer.Entidades.count(),
        };
        QStringList words{QStringLiteral("layer")};
        for (const QVariant& value : values) {
            words << formatValue(value);
        }
        print(words.join(' '));
    }
}

// The user's choice for a layer's geometry, labels or direction marks, as
// the layer setup makes it: the map is redrawn and what now shows is asked for.
void HeadlessHost::setLayerVisibility(const QStringList& arguments)
{
    const auto id = arguments.size() == 3 ? toInt(arguments[0]) : std::nullopt;
    const auto level = arguments.size() == 3 ? toInt(arguments[2]) : std::nullopt;
    layer* mapLayer = id ? viewer_.Layers().Find(*id) : nullptr;
    const QString& aspect = arguments.value(1);
    if (!mapLayer || !level || *level < 0 || *level > 2) {
        error(QStringLiteral("layer-visibility needs a layer, geometry|labels|directions and a level 0 to 2"));
        return;
    }
    const auto value = static_cast<std::int16_t>(*level);
    if (aspect == QLatin1String("geometry")) {
        mapLayer->setUserVisibility(value);
    } else if (aspect == QLatin1String("labels")) {
        mapLayer->setUserLabelVisibility(value);
    } else if (aspect == QLatin1String("directions")) {
        mapLayer->setUserDirectionVisibility(value);
    } else {
        error(QStringLiteral("layer-visibility: %1 is not geometry, labels or directions").arg(quote(aspect)));
        return;
    }
    viewer_.Redraw();
    viewer_.RequestMissingCells();
}

bool HeadlessHost::snapshotWhenLoaded(const QString& path, int seconds)
{
    bool loaded = false;
    const QMetaObject::Connection watch = connect(&viewer_, &Viewer::MapLoaded, this, [&loaded] { loaded = true; });
    QDeadlineTimer deadline(static_cast<qint64>(seconds) * 1000);
    while (!(loaded && viewer_.isIdle()) && !deadline.hasExpired() && !failureShown()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, kIdlePollMilliseconds);
    }
    disconnect(watch);
    if (failureShown()) {
        error(QStringLiteral("snapshot: the map cannot be loaded"));
        return false;
    }
    if (!loaded || !viewer_.isIdle()) {
        error(QStringLiteral("snapshot: the map did not finish loading within %1 s").arg(seconds));
        return false;
    }
    return saveImage(path);
}

void HeadlessHost::print(const QString& line)
{
    out_ << line.toStdString() << '\n' << std::flush;
}

void HeadlessHost::error(const QString& message)
{
    print(QStringLiteral("error ") + quote(message));
}

} // namespace orbelan
