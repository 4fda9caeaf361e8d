#include "viewer/Viewer.h"

#include "viewer/Guarded.h"
#include "viewer/InputCodes.h"
#include "render/OleColor.h"
#include "viewer/tools/MeasureTool.h"
#include "viewer/tools/PanTool.h"
#include "viewer/PropertyBag.h"
#include "viewer/ViewerPrivate.h"
#include "ui/UiServices.h"
#include "protocol/Windows1252.h"
#include "viewer/tools/ZoomWindowTool.h"
#include "ui/dlgAbout.h"
#include "protocol/messages/Condition.h"
#include "query/Constraint.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <limits>
#include <stdexcept>

namespace orbelan {

namespace {

constexpr const char* kDefaultUrl = "nada";
constexpr std::int32_t kDefaultPort = 10010;
constexpr int kMaximumPort = std::numeric_limits<quint16>::max();
constexpr int kEscape = 27;

QVariant number(std::int64_t value)
{
    return QVariant::fromValue<qlonglong>(value);
}

// A stored number, or the read default when the bag holds none or holds
// something that is not a number in range.
std::int64_t readNumber(const PropertyBag& bag, const char* key, std::int64_t readDefault,
                        std::int64_t minimum, std::int64_t maximum)
{
    bool ok = false;
    const qlonglong value = bag.ReadProperty(key, number(readDefault)).toLongLong(&ok);
    return ok && value >= minimum && value <= maximum ? value : readDefault;
}

template <typename T>
T readNumber(const PropertyBag& bag, const char* key, T readDefault)
{
    return static_cast<T>(readNumber(bag, key, readDefault, std::numeric_limits<T>::min(),
                                     std::numeric_limits<T>::max()));
}

} // namespace

Viewer::Viewer(QWidget* parent)
    : QWidget(parent),
      d_(std::make_unique<ViewerPrivate>(*this))
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    Socket& socket = d_->session().connection().socket();
    socket.setRemoteHost(kDefaultUrl);
    socket.setRemotePort(kDefaultPort);
    d_->applyColors();
}

Viewer::~Viewer()
{
    d_->session().close();
}

void Viewer::setUiServices(UiServices& services)
{
    d_->setUiServices(services);
}

bool Viewer::userMode() const { return d_->userMode; }
void Viewer::setUserMode(bool userMode) { d_->userMode = userMode; }

std::uint32_t Viewer::BackColor() const { return d_->surface.back; }
std::uint32_t Viewer::ForeColor() const { return d_->surface.fore; }
std::int16_t Viewer::Appearance() const { return d_->surface.look; }
std::int16_t Viewer::BackStyle() const { return d_->surface.backMode; }
std::int16_t Viewer::BorderStyle() const { return d_->surface.border; }

void Viewer::setBackColor(std::uint32_t color)
{
    guarded(*this, kBackColorKey, [&] {
        d_->surface.back = color;
        d_->applyColors();
        emit propertyChanged(kBackColorKey);
    });
}

void Viewer::setForeColor(std::uint32_t color)
{
    guarded(*this, kForeColorKey, [&] {
        d_->surface.fore = color;
        d_->applyColors();
        emit propertyChanged(kForeColorKey);
    });
}

void Viewer::setAppearance(std::int16_t appearance)
{
    d_->surface.look = appearance;
    emit propertyChanged(kAppearanceKey);
}

void Viewer::setBackStyle(std::int16_t backStyle)
{
    guarded(*this, kBackStyleKey, [&] {
        d_->surface.backMode = backStyle;
        d_->applyColors();
        emit propertyChanged(kBackStyleKey);
    });
}

void Viewer::setBorderStyle(std::int16_t borderStyle)
{
    guarded(*this, kBorderStyleKey, [&] {
        d_->surface.border = borderStyle;
        update();
        emit propertyChanged(kBorderStyleKey);
    });
}

std::int16_t Viewer::LabelPlacement() const { return d_->renderer().labelPlacement(); }

void Viewer::setLabelPlacement(std::int16_t mode)
{
    guarded(*this, kLabelPlacementKey, [&] {
        if (mode != 0 && mode != 1) {
            throw std::invalid_argument(std::to_string(mode) + " is not a label placement (0 or 1)");
        }
        d_->setDrawingSwitch(kLabelPlacementKey, &MapRenderer::labelPlacement, &MapRenderer::setLabelPlacement, mode);
    });
}

QString Viewer::URL() const
{
    return d_->session().connection().socket().RemoteHost();
}

void Viewer::setURL(const QString& url)
{
    guarded(*this, kUrlKey, [&] {
        d_->session().connection().socket().setRemoteHost(url);
        emit propertyChanged(kUrlKey);
    });
}

std::int32_t Viewer::port() const
{
    return d_->session().connection().socket().RemotePort();
}

void Viewer::setPort(std::int32_t port)
{
    guarded(*this, "port", [&] {
        if (port < 0 || port > kMaximumPort) {
            throw std::invalid_argument(std::to_string(port) + " is not a TCP port (0 to 65535)");
        }
        d_->session().connection().socket().setRemotePort(static_cast<quint16>(port));
        emit propertyChanged(kPortKey);
    });
}

std::int32_t Viewer::MapCode() const { return d_->document().MapCode; }
std::int32_t Viewer::IDUser() const { return d_->document().IDUser; }

void Viewer::setMapCode(std::int32_t mapCode)
{
    d_->document().MapCode = mapCode;
    emit propertyChanged(kMapCodeKey);
}

void Viewer::setIDUser(std::int32_t idUser)
{
    d_->document().IDUser = idUser;
    emit propertyChanged(kIdUserKey);
}

void Viewer::setWidth(int width)
{
    guarded(*this, "Width", [&] {
        resize(width, height());
        emit propertyChanged(QStringLiteral("Width"));
    });
}

void Viewer::setHeight(int height)
{
    guarded(*this, "Height", [&] {
        resize(width(), height);
        emit propertyChanged(QStringLiteral("height"));
    });
}

int Viewer::Projection() const { return d_->document().Projection; }
void Viewer::setProjection(int code) { d_->document().Projection = code; }
QString Viewer::Nombre() const { return QString::fromStdString(d_->document().Nombre); }
void Viewer::setNombre(const QString& name)
{
    guarded(*this, "Nombre", [&] { d_->document().Nombre = name.toStdString(); });
}

bool Viewer::layerscargados() const { return d_->document().layerscargados; }
void Viewer::setLayerscargados(bool loaded) { d_->document().layerscargados = loaded; }
std::uint32_t Viewer::BackgroundColor() const { return d_->document().BackgroundColor; }
void Viewer::setBackgroundColor(std::uint32_t color) { d_->document().BackgroundColor = color; }
float Viewer::origenX() const { return static_cast<float>(d_->viewport().centre().x); }
void Viewer::setOrigenX(float x)
{
    guarded(*this, "origenX", [&] { d_->centreView({x, d_->viewport().centre().y}); });
}
float Viewer::origenY() const { return static_cast<float>(d_->viewport().centre().y); }
void Viewer::setOrigenY(float y)
{
    guarded(*this, "origenY", [&] { d_->centreView({d_->viewport().centre().x, y}); });
}
Layers& Viewer::Layers() { return d_->document().Layers(); }
void Viewer::setLayers(orbelan::Layers layers) { d_->replaceLayers(std::move(layers)); }
const Viewport& Viewer::viewport() const { return d_->viewport(); }

void Viewer::InitProperties()
{
    const QSignalBlocker quiet(this);
    setFont(ambientFont());
    d_->document().MapCode = 1;
    d_->firstShowPending = true;
}

void Viewer::ReadProperties(const PropertyBag& bag)
{
    const QSignalBlocker quiet(this);
    d_->surface.back = readNumber<std::uint32_t>(bag, kBackColorKey, olecolor::kButtonFace);
    d_->surface.fore = readNumber<std::uint32_t>(bag, kForeColorKey, olecolor::kButtonText);
    QWidget::setEnabled(bag.ReadProperty(kEnabledKey, true).toBool());
    QFont font = ambientFont();
    font.fromString(bag.ReadProperty(kFontKey, font.toString()).toString());
    setFont(font);
    d_->surface.look = readNumber<std::int16_t>(bag, kAppearanceKey, 1);
    d_->surface.backMode = readNumber<std::int16_t>(bag, kBackStyleKey, 1);
    d_->surface.border = readNumber<std::int16_t>(bag, kBorderStyleKey, 0);
    ServerConnection& connection = d_->session().connection();
    connection.socket().setRemoteHost(bag.ReadProperty(kUrlKey, kDefaultUrl).toString());
    connection.socket().setRemotePort(static_cast<quint16>(readNumber(bag, kPortKey, kDefaultPort, 0, kMaximumPort)));
    d_->document().MapCode = readNumber<std::int32_t>(bag, kMapCodeKey, 1);
    d_->document().IDUser = readNumber<std::int32_t>(bag, kIdUserKey, 0);
    d_->setImagePath(bag.ReadProperty(kImagePathKey, QString()).toString());
    d_->renderer().setScaleBar(bag.ReadProperty(kScaleBarKey, true).toBool());
    d_->renderer().setAntialiasing(bag.ReadProperty(kAntialiasingKey, true).toBool());
    d_->renderer().setLabelPlacement(readNumber<std::int16_t>(bag, kLabelPlacementKey, 1) == 0 ? 0 : 1);
    connection.resetPendingRequests();
    d_->applyColors();
}

void Viewer::WriteProperties(PropertyBag& bag) const
{
    bag.WriteProperty(kBackColorKey, number(BackColor()), number(olecolor::kButtonFace));
    bag.WriteProperty(kForeColorKey, number(ForeColor()), number(olecolor::kButtonText));
    bag.WriteProperty(kEnabledKey, isEnabled(), true);
    bag.WriteProperty(kFontKey, font().toString(), ambientFont().toString());
    bag.WriteProperty(kAppearanceKey, number(Appearance()), number(1));
    bag.WriteProperty(kBackStyleKey, number(BackStyle()), number(1));
    bag.WriteProperty(kBorderStyleKey, number(BorderStyle()), number(0));
    bag.WriteProperty(kUrlKey, URL(), QString());
    bag.WriteProperty(kPortKey, number(port()), number(0));
    bag.WriteProperty(kMapCodeKey, number(MapCode()), number(1));
    bag.WriteProperty(kIdUserKey, number(IDUser()), number(0));
    bag.WriteProperty(kImagePathKey, ImagePath(), QString());
    bag.WriteProperty(kScaleBarKey, ScaleBar(), true);
    bag.WriteProperty(kAntialiasingKey, Antialiasing(), true);
    bag.WriteProperty(kLabelPlacementKey, number(LabelPlacement()), number(1));
}

void Viewer::About()
{
    guarded(*this, "About", [this] {
        dlgAbout about(this);
        d_->ui().execDialog(about);
    });
}

void Viewer::SetView(double x1, double y1, double x2, double y2)
{
    guarded(*this, "SetView", [&] {
        BoundingBox box;
        box.MinX = x1;
        box.MinY = y1;
        box.MaxX = x2;
        box.MaxY = y2;
        d_->showBox(box);
    });
}

void Viewer::Redraw() { guarded(*this, "Redraw", [this] { d_->redrawMap(); }); }
void Viewer::Refresh() { guarded(*this, "Refresh", [this] { repaint(); }); }
void Viewer::RedrawLayer(std::int32_t IDLayer) { d_->drawMap(IDLayer); }
void Viewer::ZoomIn() { guarded(*this, "ZoomIn", [this] { d_->zoomAboutCentre(2); }); }
void Viewer::ZoomOut() { guarded(*this, "ZoomOut", [this] { d_->zoomAboutCentre(0.5f); }); }
void Viewer::ZoomExtents() { guarded(*this, "ZoomExtents", [this] { d_->zoomToExtents(); }); }
void Viewer::ZoomWindow() { guarded(*this, "ZoomWindow", [this] { d_->armTool(ZoomWindowTool::kNumber); }); }
void Viewer::Pan() { guarded(*this, "Pan", [this] { d_->armTool(PanTool::kNumber); }); }
void Viewer::MeasureDistance()
{
    guarded(*this, "MeasureDistance", [this] { d_->selectTool(MeasureTool::kNumber, 0); });
}
void Viewer::SetDirections(int IDLayer) { guarded(*this, "SetDirections", [&] { d_->setDirections(IDLayer); }); }
void Viewer::SelectObjects(int IDLayer) { guarded(*this, "SelectObjects", [&] { d_->selectObjects(IDLayer); }); }

void Viewer::ChangePassword(const QString& OldPassword, const QString& NewPassword)
{
    guarded(*this, "ChangePassword", [&] {
        d_->session().changePassword(OldPassword.toStdString(), NewPassword.toStdString());
    });
}

void Viewer::MapSetup() { guarded(*this, "MapSetup", [this] { d_->mapSetup(); }); }
void Viewer::ShowMapReferences() { guarded(*this, "ShowMapReferences", [this] { d_->showMapReferences(); }); }
void Viewer::RestoreMapReferences()
{
    guarded(*this, "RestoreMapReferences", [this] { d_->restoreMapReferences(); });
}
void Viewer::HideMapReferences() { guarded(*this, "HideMapReferences", [this] { d_->hideMapReferences(); }); }
void Viewer::TerminateMapReferences()
{
    guarded(*this, "TerminateMapReferences", [this] { d_->terminateMapReferences(); });
}

void Viewer::SaveMap(int IDUser, const QString& MapName)
{
    guarded(*this, "SaveMap", [&] { d_->session().saveMap(IDUser, MapName.toStdString()); });
}

void Viewer::GetInfo(int IDLayer, int IDElement, bool ReleaseEvent)
{
    guarded(*this, "GetInfo", [&] { d_->getInfo(IDLayer, IDElement, ReleaseEvent); });
}

void Viewer::EditInfo(int IDLayer, int IDElement, const QVariant& FieldInfo)
{
    guarded(*this, "EditInfo", [&] { d_->editInfo(IDLayer, IDElement, FieldInfo); });
}

void Viewer::ZoomFactor(float Factor)
{
    guarded(*this, "ZoomFactor", [&] {
        if (Factor > 0 && Factor != 1) {
            d_->armZoomFactor(Factor);
        }
    });
}

void Viewer::FindByCondition(std::int32_t& IDLayer, QString& FieldName, std::uint8_t& Operation, QString& Value1,
                             QString& Value2, bool)
{
    guarded(*this, "FindByCondition", [&] {
        messages::Condition condition{IDLayer, FieldName.toStdString(), 0, Operation, Value1.toStdString(),
                                      Value2.toStdString()};
        d_->findByCondition(condition);
        IDLayer = condition.layer;
        FieldName = QString::fromStdString(condition.field);
        Operation = condition.op;
        Value1 = QString::fromStdString(condition.value1);
        Value2 = QString::fromStdString(condition.value2);
    });
}

// An operation code that is no byte is no operator.
void Viewer::FindByCondition(int IDLayer, const QString& FieldName, int Operation, const QString& Value1,
                             const QString& Value2, bool ReleaseEvent)
{
    std::int32_t layerId = IDLayer;
    QString field = FieldName;
    std::uint8_t op = Operation >= 0 && Operation <= 255 ? static_cast<std::uint8_t>(Operation) : 0;
    QString value1 = Value1;
    QString value2 = Value2;
    FindByCondition(layerId, field, op, value1, value2, ReleaseEvent);
}

void Viewer::MultipleSelect(bool FromPolygon, int SourceLayer, int IDElement, int TargetLayer,
                            const QStringList& ConstraintsFields, const QList<int>& ConstraintsRestrictions,
                            const QStringList& ConstraintsValue1, const QStringList& ConstraintsValue2)
{
    guarded(*this, "MultipleSelect", [&] {
        SelectionPreset preset{SourceLayer, TargetLayer, IDElement, FromPolygon, {}};
        const qsizetype count = ConstraintsFields.size();
        if (ConstraintsRestrictions.size() == count && ConstraintsValue1.size() == count &&
            ConstraintsValue2.size() == count) {
            for (qsizetype i = 0; i < count; ++i) {
                preset.constraints.push_back({ConstraintsFields[i], static_cast<std::int16_t>(ConstraintsRestrictions[i]),
                                              ConstraintsValue1[i], ConstraintsValue2[i]});
            }
        }
        d_->multipleSelection().select(preset);
    });
}

void Viewer::LayerSetup(const QVariant& IDLayer)
{
    guarded(*this, "LayerSetup", [&] {
        bool isNumber = false;
        const int layerId = IDLayer.toInt(&isNumber);
        if (!isNumber) {
            throw std::invalid_argument("the layer id is not a number");
        }
        d_->layerSetup(layerId);
    });
}

float Viewer::CurrentZoom() const { return d_->viewport().CurrentZoom(); }

void Viewer::ZoomToSelected(int IDLayer, const QList<int>& IDElement)
{
    guarded(*this, "ZoomToSelected", [&] { d_->showElements(IDLayer, IDElement); });
}

void Viewer::SetToolTip(int IDLayer, const QString& ToolTipField)
{
    guarded(*this, "SetToolTip", [&] { d_->chooseToolTipLayer(IDLayer, ToolTipField); });
}

void Viewer::RequestMissingCells() { d_->requestCellsOfView(); }
int Viewer::currentTool() const { return d_->tools().current(); }
std::int32_t Viewer::PendingRequests() const { return d_->session().connection().pendingRequests(); }
bool Viewer::isIdle() const { return d_->session().connection().idle(); }
QString Viewer::statusText() const { return d_->statusText(); }
QWidget* Viewer::toolTipBox() const { return d_->toolTipBox(); }
const QLabel* Viewer::toolTipLabel() const { return d_->toolTipLabel(); }

void Viewer::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // A window coming back from the task bar is not the host showing the control.
    if (event->spontaneous() || !d_->userMode) {
        return;
    }
    guarded(*this, "show", [this] {
        if (d_->firstShowPending) {
            d_->firstShowPending = false;
            d_->firstShow();
        }
        d_->placeCompanyLabel();
    });
}

void Viewer::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        guarded(*this, "hide", [this] { d_->hidden(); });
    }
}

void Viewer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    guarded(*this, "resize", [this] { d_->resized(); });
}

void Viewer::paintEvent(QPaintEvent*)
{
    guarded(*this, "paint", [this] { d_->paint(); });
}

void Viewer::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    guarded(*this, "change", [&] {
        if (event->type() == QEvent::FontChange) {
            emit propertyChanged(kFontKey);
        } else if (event->type() == QEvent::EnabledChange) {
            emit propertyChanged(kEnabledKey);
        }
    });
}

void Viewer::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    guarded(*this, "mouse leave", [this] { d_->pointerLeft(); });
}

void Viewer::keyPressEvent(QKeyEvent* event)
{
    guarded(*this, "key press", [&] { keyPressed(*event); });
}

void Viewer::keyReleaseEvent(QKeyEvent* event)
{
    guarded(*this, "key release", [&] {
        emit KeyUp(inputcodes::keyCodeOf(static_cast<Qt::Key>(event->key()), event->modifiers()),
                   inputcodes::shiftOf(event->modifiers()));
    });
}

void Viewer::mousePressEvent(QMouseEvent* event) { guarded(*this, "mouse press", [&] { d_->mousePress(*event); }); }
void Viewer::mouseMoveEvent(QMouseEvent* event) { guarded(*this, "mouse move", [&] { d_->mouseMove(*event); }); }
void Viewer::mouseReleaseEvent(QMouseEvent* event) { guarded(*this, "mouse release", [&] { d_->mouseRelease(*event); }); }

void Viewer::mouseDoubleClickEvent(QMouseEvent* event)
{
    guarded(*this, "double click", [&] { d_->mouseDoubleClick(*event); });
}

void Viewer::wheelEvent(QWheelEvent* event)
{
    guarded(*this, "wheel", [&] { d_->wheel(event->angleDelta().y(), event->position()); });
}

// Escape resets the tool before hosts hear the key; the current tool, then
// the arrow keys, use it after.
void Viewer::keyPressed(const QKeyEvent& event)
{
    const int keyCode = inputcodes::keyCodeOf(static_cast<Qt::Key>(event.key()), event.modifiers());
    const int shift = inputcodes::shiftOf(event.modifiers());
    emit KeyDown(keyCode, shift);
    const std::string character = windows1252::fromUtf8(event.text().left(1).toStdString());
    if (!character.empty()) {
        const int ascii = static_cast<unsigned char>(character.front());
        if (ascii == kEscape) {
            d_->resetTool();
        }
        emit KeyPress(ascii);
    }
    if (!d_->tools().key(keyCode, shift)) {
        d_->navigationKey(event.key());
    }
}

QFont Viewer::ambientFont() const
{
    return parentWidget() ? parentWidget()->font() : QApplication::font();
}

QString Viewer::ImagePath() const { return d_->images().path(); }

void Viewer::setImagePath(const QString& path)
{
    guarded(*this, kImagePathKey, [&] {
        if (d_->setImagePath(path)) {
            emit propertyChanged(kImagePathKey);
        }
    });
}

bool Viewer::ScaleBar() const { return d_->renderer().scaleBar(); }

void Viewer::setScaleBar(bool shown)
{
    guarded(*this, kScaleBarKey, [&] {
        d_->setDrawingSwitch(kScaleBarKey, &MapRenderer::scaleBar, &MapRenderer::setScaleBar, shown);
    });
}

bool Viewer::Antialiasing() const { return d_->renderer().antialiasing(); }

void Viewer::setAntialiasing(bool on)
{
    guarded(*this, kAntialiasingKey, [&] {
        d_->setDrawingSwitch(kAntialiasingKey, &MapRenderer::antialiasing, &MapRenderer::setAntialiasing, on);
    });
}

int Viewer::LoadRasterFile(const QString& FileName)
{
    int number = -1;
    guarded(*this, "LoadRasterFile", [&] { number = d_->images().load(FileName); });
    return number;
}

bool Viewer::RendererExists(int Index) const { return d_->images().exists(Index); }

void Viewer::DrawImageLayer(int IDLayer)
{
    guarded(*this, "DrawImageLayer", [&] { d_->drawImageLayer(IDLayer); });
}

void Viewer::SnapShot()
{
    guarded(*this, "SnapShot", [this] { d_->snapShot(); });
}

bool Viewer::ExportImage(const QString& FileName, int Width, int Height, int Dpi)
{
    bool written = false;
    guarded(*this, "ExportImage", [&] {
        d_->exportImage(FileName, Width, Height, Dpi);
        written = true;
    });
    return written;
}

} // namespace orbelan
