#include "Viewer.h"

#include "AccessRequest.h"
#include "ActivityShape.h"
#include "CellFieldValuesRequest.h"
#include "CellGeometryRequest.h"
#include "CToolTip.h"
#include "ElementBoundingBoxRequest.h"
#include "InputCodes.h"
#include "OleColor.h"
#include "PanTool.h"
#include "ZoomFactorTool.h"
#include "ZoomWindowTool.h"
#include "PropertyBag.h"
#include "SendMessage.h"
#include "TextCompare.h"
#include "wsckComandos.h"
#include "QtMapCanvas.h"
#include "Windows1252.h"
#include "WidgetUiServices.h"
#include "dlgAbout.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRubberBand>
#include <QTimer>
#include <QWheelEvent>
#include <QSignalBlocker>

#include <limits>
#include <stdexcept>

namespace orbelan {

namespace {

const QString kCaption = QStringLiteral("Orbelan Viewer");

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

constexpr const char* kDefaultUrl = "nada";
constexpr std::int32_t kDefaultPort = 10010;
constexpr int kCompanyLabelMargin = 10;
constexpr int kIndicatorMargin = 4;
constexpr int kMaximumPort = std::numeric_limits<quint16>::max();
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kShiftKey = 1;
constexpr int kEscape = 27;
constexpr double kArrowPanShare = 0.25;

// A box narrower than 0.002 degrees becomes its centre +- 0.001, so that a
// single point shows with its surroundings.
void widenToMinimum(double& low, double& high)
{
    constexpr double kMinimumSpan = 0.002;
    if (high - low < kMinimumSpan) {
        const double centre = low + (high - low) / 2;
        low = centre - kMinimumSpan / 2;
        high = centre + kMinimumSpan / 2;
    }
}

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
      ownUi_(std::make_unique<WidgetUiServices>()),
      ui_(ownUi_.get()),
      backColor_(olecolor::kButtonFace),
      foreColor_(olecolor::kButtonText)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    tools_[ZoomWindowToolNumber] = std::make_unique<ZoomWindowTool>(*this);
    tools_[ZoomFactorToolNumber] = std::make_unique<ZoomFactorTool>(*this);
    tools_[PanToolNumber] = std::make_unique<PanTool>(*this);
    connection_.socket().setRemoteHost(kDefaultUrl);
    connection_.socket().setRemotePort(kDefaultPort);
    createSurface();
    connectReceiveSide();
    connection_.setMessageHandler(wsckComandos(*this));
    applyColors();
}

Viewer::~Viewer()
{
    closeConnection();
}

void Viewer::setUiServices(UiServices& services)
{
    ui_ = &services;
}

void Viewer::createSurface()
{
    shpReadingData_ = new ActivityShape(this);
    shpReadingData_->hide();
    lblstatus_ = new QLabel(this);
    lblstatus_->setObjectName("lblstatus");
    lblstatus_->move(kCompanyLabelMargin, kCompanyLabelMargin);
    lblstatus_->hide();
    lblCompany_ = new QLabel(QStringLiteral("Orbelan"), this);
    lblCompany_->setObjectName("lblCompany");
    RubberBand_ = new QRubberBand(QRubberBand::Rectangle, this);
    RubberBand_->setObjectName("RubberBand");
    createToolTipBox();
}

void Viewer::createToolTipBox()
{
    tmrToolTip_ = new QTimer(this);
    tmrToolTip_->setObjectName("tmrToolTip");
    picToolTip_ = new QWidget(this);
    picToolTip_->setObjectName("picToolTip");
    // The box never takes the pointer's moves away from the map.
    picToolTip_->setAttribute(Qt::WA_TransparentForMouseEvents);
    picToolTip_->hide();
    lblToolTip_ = new QLabel(picToolTip_);
    lblToolTip_->setObjectName("lblToolTip");
}

CToolTip& Viewer::toolTip()
{
    if (!toolTip_) {
        toolTip_ = std::make_unique<CToolTip>();
        toolTip_->initialize(*this, *tmrToolTip_, *picToolTip_, *lblToolTip_);
        connect(tmrToolTip_, &QTimer::timeout, this, [this] { toolTip_->timer(); });
    }
    return *toolTip_;
}

void Viewer::SetToolTip(int IDLayer, const QString& ToolTipField)
{
    toolTip().SetLayer(IDLayer, ToolTipField);
}

void Viewer::connectReceiveSide()
{
    connect(&connection_, &ServerConnection::dataArriving, shpReadingData_, &QWidget::show);
    connect(&connection_, &ServerConnection::furtherChunk, shpReadingData_, &ActivityShape::toggleColor);
    connect(&connection_, &ServerConnection::dispatching, this, [this] { setCursor(Qt::BusyCursor); });
    connect(&connection_, &ServerConnection::receiveIdle, this, [this] {
        showIdlePointer();
        shpReadingData_->hide();
    });
    connect(&connection_, &ServerConnection::allRepliesIn, this, &Viewer::Redraw);
}

void Viewer::setBackColor(std::uint32_t color)
{
    backColor_ = color;
    applyColors();
    emit propertyChanged(kBackColorKey);
}

void Viewer::setForeColor(std::uint32_t color)
{
    foreColor_ = color;
    applyColors();
    emit propertyChanged(kForeColorKey);
}

void Viewer::setAppearance(std::int16_t appearance)
{
    appearance_ = appearance;
    emit propertyChanged(kAppearanceKey);
}

void Viewer::setBackStyle(std::int16_t backStyle)
{
    backStyle_ = backStyle;
    applyColors();
    emit propertyChanged(kBackStyleKey);
}

void Viewer::setBorderStyle(std::int16_t borderStyle)
{
    borderStyle_ = borderStyle;
    update();
    emit propertyChanged(kBorderStyleKey);
}

QString Viewer::URL() const
{
    return connection_.socket().RemoteHost();
}

void Viewer::setURL(const QString& url)
{
    connection_.socket().setRemoteHost(url);
    emit propertyChanged(kUrlKey);
}

std::int32_t Viewer::port() const
{
    return connection_.socket().RemotePort();
}

void Viewer::setPort(std::int32_t port)
{
    if (port < 0 || port > kMaximumPort) {
        throw std::invalid_argument("port " + std::to_string(port) +
                                    " is not a TCP port (0 to 65535)");
    }
    connection_.socket().setRemotePort(static_cast<quint16>(port));
    emit propertyChanged(kPortKey);
}

void Viewer::setMapCode(std::int32_t mapCode)
{
    mapCode_ = mapCode;
    emit propertyChanged(kMapCodeKey);
}

void Viewer::setIDUser(std::int32_t idUser)
{
    idUser_ = idUser;
    emit propertyChanged(kIdUserKey);
}

void Viewer::setWidth(int width)
{
    resize(width, height());
    emit propertyChanged(QStringLiteral("Width"));
}

void Viewer::setHeight(int height)
{
    resize(width(), height);
    emit propertyChanged(QStringLiteral("height"));
}

void Viewer::InitProperties()
{
    const QSignalBlocker quiet(this);
    setFont(ambientFont());
    mapCode_ = 1;
    firstShow_ = true;
}

void Viewer::ReadProperties(const PropertyBag& bag)
{
    const QSignalBlocker quiet(this);
    backColor_ = readNumber<std::uint32_t>(bag, kBackColorKey, olecolor::kButtonFace);
    foreColor_ = readNumber<std::uint32_t>(bag, kForeColorKey, olecolor::kButtonText);
    QWidget::setEnabled(bag.ReadProperty(kEnabledKey, true).toBool());
    QFont font = ambientFont();
    font.fromString(bag.ReadProperty(kFontKey, font.toString()).toString());
    setFont(font);
    appearance_ = readNumber<std::int16_t>(bag, kAppearanceKey, 1);
    backStyle_ = readNumber<std::int16_t>(bag, kBackStyleKey, 1);
    borderStyle_ = readNumber<std::int16_t>(bag, kBorderStyleKey, 0);
    connection_.socket().setRemoteHost(bag.ReadProperty(kUrlKey, kDefaultUrl).toString());
    connection_.socket().setRemotePort(
        static_cast<quint16>(readNumber(bag, kPortKey, kDefaultPort, 0, kMaximumPort)));
    mapCode_ = readNumber<std::int32_t>(bag, kMapCodeKey, 1);
    idUser_ = readNumber<std::int32_t>(bag, kIdUserKey, 0);
    connection_.resetPendingRequests();
    applyColors();
}

void Viewer::WriteProperties(PropertyBag& bag) const
{
    bag.WriteProperty(kBackColorKey, number(backColor_), number(olecolor::kButtonFace));
    bag.WriteProperty(kForeColorKey, number(foreColor_), number(olecolor::kButtonText));
    bag.WriteProperty(kEnabledKey, isEnabled(), true);
    bag.WriteProperty(kFontKey, font().toString(), ambientFont().toString());
    bag.WriteProperty(kAppearanceKey, number(appearance_), number(1));
    bag.WriteProperty(kBackStyleKey, number(backStyle_), number(1));
    bag.WriteProperty(kBorderStyleKey, number(borderStyle_), number(0));
    bag.WriteProperty(kUrlKey, URL(), QString());
    bag.WriteProperty(kPortKey, number(port()), number(0));
    bag.WriteProperty(kMapCodeKey, number(mapCode_), number(1));
    bag.WriteProperty(kIdUserKey, number(idUser_), number(0));
}

void Viewer::About()
{
    dlgAbout about(this);
    ui_->execDialog(about);
}

QString Viewer::statusText() const
{
    return status_.text();
}

void Viewer::changeStatus(std::int32_t layerId, std::uint8_t step, const QString& layerName)
{
    status_.change(layerId, step, layerName);
    // Laying out the label's text costs far more than a step: a map of many
    // cells changes the list hundreds of times between two paints, so the
    // label is brought up to date once, when the event loop comes round.
    if (!statusRefreshPending_) {
        statusRefreshPending_ = true;
        QTimer::singleShot(0, this, &Viewer::refreshStatusLabel);
    }
}

void Viewer::refreshStatusLabel()
{
    statusRefreshPending_ = false;
    lblstatus_->setText(status_.text());
    lblstatus_->adjustSize();
}

void Viewer::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // A window coming back from the task bar is not the host showing the control.
    if (event->spontaneous() || !userMode_) {
        return;
    }
    if (firstShow_) {
        firstShow_ = false;
        firstShow();
    }
    placeCompanyLabel();
}

void Viewer::firstShow()
{
    Redraw();
    if (!connection_.connectToServer()) {
        ui_->messageBox(this, kConnectionFailure, MessageButtons::OK, MessageIcon::Critical, kCaption);
        return;
    }
    requestAccess();
    changeStatus(0, StatusList::RequestingMap);
    lblstatus_->show();
}

void Viewer::requestAccess()
{
    sendMessage(connection_, messages::AccessRequest{idUser_, mapCode_});
}

void Viewer::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        closeConnection();
    }
}

void Viewer::closeConnection()
{
    connection_.closeAndWait();
}

void Viewer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeCompanyLabel();
    placeIndicators();
    BoundingBox keepCentreAndScale;
    if (viewport_.resize(width(), height(), keepCentreAndScale) && !busy) {
        SetView(keepCentreAndScale.MinX, keepCentreAndScale.MinY, keepCentreAndScale.MaxX,
                keepCentreAndScale.MaxY);
    } else {
        Redraw();
    }
}

void Viewer::placeCompanyLabel()
{
    lblCompany_->adjustSize();
    lblCompany_->move(kCompanyLabelMargin, height() - kCompanyLabelMargin - lblCompany_->height());
    lblCompany_->show();
}

void Viewer::placeIndicators()
{
    shpReadingData_->move(width() - shpReadingData_->width() - kIndicatorMargin, kIndicatorMargin);
}

void Viewer::applyColors()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, olecolor::toQColor(backColor_, QApplication::palette()));
    colors.setColor(QPalette::WindowText, olecolor::toQColor(foreColor_, QApplication::palette()));
    setPalette(colors);
    // Back style 0 is transparent: the host's surface shows through.
    setAutoFillBackground(backStyle_ != 0);
    update();
}

void Viewer::SetView(double x1, double y1, double x2, double y2)
{
    setCursor(Qt::BusyCursor);
    hideRubberBand();
    viewport_.setSize(width(), height());
    if (viewport_.SetView(x1, y1, x2, y2)) {
        Redraw();
        RequestMissingCells();
    }
    selectToolCursor();
}

void Viewer::Redraw()
{
    redrawMap(std::nullopt);
}

void Viewer::RedrawLayer(std::int32_t IDLayer)
{
    redrawMap(IDLayer);
}

// Layers are drawn in collection order, each over the ones before, the
// labels over all geometry and the direction marks over all labels. Redrawing one layer draws the others
// from what they drew last.
void Viewer::redrawMap(std::optional<std::int32_t> onlyLayer)
{
    viewport_.setSize(width(), height());
    if (imgMap_.size() != size()) {
        imgMap_ = QImage(size(), QImage::Format_ARGB32_Premultiplied);
    }
    hideRubberBand();
    imgMap_.fill(olecolor::toQColor(BackgroundColor, palette()));
    if (viewport_.viewReady() && !imgMap_.isNull()) {
        QtMapCanvas canvas(imgMap_, viewport_, palette());
        canvas.setTextMetrics(font(), logicalDpiY());
        const BoundingBox& view = viewport_.viewBox();
        for (layer& mapLayer : layers_) {
            if (!onlyLayer || mapLayer.IDLayer == *onlyLayer) {
                mapLayer.Redraw(view, canvas);
            } else {
                mapLayer.RedrawWOCalc(view, canvas);
            }
        }
        for (layer& mapLayer : layers_) {
            mapLayer.DrawLabels(view, canvas);
        }
        for (layer& mapLayer : layers_) {
            mapLayer.DrawDirections(view, canvas);
        }
    }
    update();
    selectToolCursor();
    if (!busy) {
        emit MapRedrawn();
    }
}

void Viewer::ZoomIn()
{
    zoomAboutCentre(2);
}

void Viewer::ZoomOut()
{
    zoomAboutCentre(0.5f);
}

void Viewer::zoomAboutCentre(float factor)
{
    tool_.dragging = false;
    hideRubberBand();
    zoomAbout(factor, {viewport_.ScreenToWorldX(static_cast<float>(width()) / 2),
                       viewport_.ScreenToWorldY(static_cast<float>(height()) / 2)});
}

void Viewer::zoomAbout(float factor, MapPoint centre)
{
    BoundingBox box;
    if (!busy && viewport_.zoomBox(factor, centre, box)) {
        SetView(box.MinX, box.MinY, box.MaxX, box.MaxY);
    }
}

void Viewer::ZoomWindow()
{
    if (!busy) {
        armTool(ZoomWindowToolNumber);
    }
}

void Viewer::ZoomFactor(float Factor)
{
    if (!busy && Factor > 0 && Factor != 1) {
        tool_.zoomFactor = Factor;
        armTool(ZoomFactorToolNumber);
    }
}

void Viewer::Pan()
{
    if (!busy) {
        armTool(PanToolNumber);
    }
}

// Zoom and pan keep the tool they interrupt, to resume it afterwards.
void Viewer::armTool(int number)
{
    if (tool_.current != NoToolNumber) {
        tool_.previous = tool_.current;
    }
    tool_.current = number;
    selectToolCursor();
}

void Viewer::finishNavigation(int number, bool completed)
{
    tool_.current = tool_.multiStep ? tool_.previous : NoToolNumber;
    if (completed) {
        tool_.previous = number;
    }
    tool_.dragging = false;
    selectToolCursor();
}

void Viewer::ResetTool()
{
    tool_.current = NoToolNumber;
    tool_.previous = NoToolNumber;
    tool_.multiStep = false;
    tool_.dragging = false;
    Redraw();
}

MapTool* Viewer::tool() const
{
    const auto found = tools_.find(tool_.current);
    return found == tools_.end() ? nullptr : found->second.get();
}

void Viewer::selectToolCursor()
{
    const MapTool* current = tool();
    setCursor(current ? current->cursor() : QCursor(Qt::ArrowCursor));
}

void Viewer::showRubberBand(const QRect& rectangle)
{
    RubberBand_->setGeometry(rectangle);
    RubberBand_->show();
}

void Viewer::hideRubberBand()
{
    RubberBand_->hide();
}

void Viewer::setPanOffset(QPoint offset)
{
    panOffset_ = offset;
    update();
}

MapMouseEvent Viewer::mapEvent(const QMouseEvent& event) const
{
    const QPointF pixel = event.position();
    return {inputcodes::buttonOf(event.button()), inputcodes::shiftOf(event.modifiers()), pixel,
            {viewport_.ScreenToWorldX(static_cast<float>(pixel.x())),
             viewport_.ScreenToWorldY(static_cast<float>(pixel.y()))}};
}

void Viewer::mousePressEvent(QMouseEvent* event)
{
    const MapMouseEvent press = mapEvent(*event);
    // Shift and the right button free a control whose load never finished.
    if (press.button == kRightButton && (press.shift & kShiftKey)) {
        busy = false;
        tool_.current = NoToolNumber;
        selectToolCursor();
        return;
    }
    if (!viewport_.viewReady() || busy) {
        return;
    }
    tool_.pressed = press.map;
    tool_.pressedPixel = press.pixel;
    const MapTool* current = tool();
    tool_.dragging = current && current->drags();
    tool_.pressedButton = press.button;
    emit MouseDown(press.button, press.shift, static_cast<float>(press.pixel.x()),
                   static_cast<float>(press.pixel.y()));
}

void Viewer::mouseMoveEvent(QMouseEvent* event)
{
    if (!viewport_.viewReady()) {
        return;
    }
    if (busy) {
        setCursor(Qt::WaitCursor);
        return;
    }
    if (cursor().shape() == Qt::WaitCursor) {
        selectToolCursor();
    }
    const MapMouseEvent move = mapEvent(*event);
    tool_.currentPoint = move.map;
    if (MapTool* current = tool(); current && tool_.dragging) {
        current->move(move);
    }
    if (toolTip_) {
        toolTip_->mousemove(static_cast<float>(move.pixel.x()), static_cast<float>(move.pixel.y()));
    }
    double lon = 0;
    double lat = 0;
    if (viewport_.unproject(move.map, lon, lat)) {
        emit MousePosition(lon, lat);
    }
}

// A release ends the tool's drag; a left release is also a click, handled by
// the tool that is current after the release.
void Viewer::mouseReleaseEvent(QMouseEvent* event)
{
    if (!viewport_.viewReady() || busy) {
        return;
    }
    const MapMouseEvent release = mapEvent(*event);
    MapTool* current = tool();
    const bool completed = !current || current->release(release);
    tool_.dragging = false;
    if (completed) {
        emit MouseUp(release.button, release.shift, static_cast<float>(release.pixel.x()),
                     static_cast<float>(release.pixel.y()));
    }
    if (tool_.pressedButton == kLeftButton) {
        if (MapTool* clicked = tool()) {
            clicked->click(release);
        }
        emit click();
    }
}

void Viewer::mouseDoubleClickEvent(QMouseEvent*)
{
    emit DblClick();
}

// The wheel zooms by 2 or 0.5 and keeps the point under the cursor in place.
void Viewer::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y();
    if (steps == 0 || !viewport_.viewReady()) {
        return;
    }
    const float factor = steps > 0 ? 2.0f : 0.5f;
    const QPointF pixel = event->position();
    const MapPoint under{viewport_.ScreenToWorldX(static_cast<float>(pixel.x())),
                         viewport_.ScreenToWorldY(static_cast<float>(pixel.y()))};
    const MapPoint centre = viewport_.centre();
    zoomAbout(factor, {under.x + (centre.x - under.x) / factor, under.y + (centre.y - under.y) / factor});
}

// The arrow keys move the view by a quarter of its size.
bool Viewer::navigationKey(int key)
{
    switch (key) {
    case Qt::Key_Left: panByQuarter(-1, 0); return true;
    case Qt::Key_Right: panByQuarter(1, 0); return true;
    case Qt::Key_Up: panByQuarter(0, 1); return true;
    case Qt::Key_Down: panByQuarter(0, -1); return true;
    default: return false;
    }
}

void Viewer::panByQuarter(int dx, int dy)
{
    if (busy || !viewport_.viewReady()) {
        return;
    }
    const BoundingBox& box = viewport_.viewBox();
    const double shiftX = (box.MaxX - box.MinX) * kArrowPanShare * dx;
    const double shiftY = (box.MaxY - box.MinY) * kArrowPanShare * dy;
    SetView(box.MinX + shiftX, box.MinY + shiftY, box.MaxX + shiftX, box.MaxY + shiftY);
}

void Viewer::ZoomExtents()
{
    if (!busy) {
        SetView(mapExtent.MinX, mapExtent.MinY, mapExtent.MaxX, mapExtent.MaxY);
    }
}

float Viewer::CurrentZoom() const
{
    return viewport_.CurrentZoom();
}

void Viewer::RequestMissingCells()
{
    const BoundingBox& view = viewport_.viewBox();
    for (layer& mapLayer : layers_) {
        if (!mapLayer.CalculateVisibility()) {
            continue;
        }
        std::vector<GridCell> cells;
        try {
            cells = mapLayer.GetCellsInArea(view.MinX, view.MinY, view.MaxX, view.MaxY);
        } catch (const std::exception&) {
            // A grid without cell size, or with more cells than can be
            // numbered, holds nothing that can be asked for.
            continue;
        }
        requestMissingCells(mapLayer, cells);
    }
}

void Viewer::ZoomToSelected(std::int32_t IDLayer, const QList<int>& IDElement)
{
    const layer* mapLayer = layers_.Find(IDLayer);
    if (busy || !mapLayer || mapLayer->Tipo == ImageLayer || IDElement.isEmpty()) {
        return;
    }
    // An element 0 names nothing: there is no box to zoom to.
    if (IDElement.size() == 1 && IDElement.front() == 0) {
        return;
    }
    if (IDElement.size() == 1 && !mapLayer->Entidades.Find(IDElement.front())) {
        sendMessage(connection_, messages::ElementBoundingBoxRequest{IDLayer, IDElement.front()});
        return;
    }
    BoundingBox box;
    for (const int id : IDElement) {
        if (const Entidad* element = mapLayer->Entidades.Find(id)) {
            box.Union(element->bb.MinX, element->bb.MinY, element->bb.MaxX, element->bb.MaxY);
        }
    }
    if (box.MinX > box.MaxX || box.MinY > box.MaxY) {
        return;
    }
    widenToMinimum(box.MinX, box.MaxX);
    widenToMinimum(box.MinY, box.MaxY);
    SetView(box.MinX, box.MinY, box.MaxX, box.MaxY);
}

void Viewer::requestMissingCells(layer& mapLayer, const std::vector<GridCell>& cells)
{
    const bool labels = !mapLayer.lblField.empty() && mapLayer.CalculateLabelVisibility();
    const bool directions = !mapLayer.DirectionField.empty() && mapLayer.CalculateDirectionVisibility();
    for (const GridCell& cell : cells) {
        if (!mapLayer.IsCeldaSolicitada(cell.row, cell.column)) {
            RequestCell(mapLayer.IDLayer, cell.row, cell.column, mapLayer.ThematicField);
            mapLayer.CeldaSolicitada(cell.row, cell.column);
        }
        if (labels && !mapLayer.IsLabelCellSolicitada(cell.row, cell.column)) {
            requestFieldValues(mapLayer, cell, mapLayer.lblField);
            mapLayer.LabelCellSolicitada(cell.row, cell.column);
        }
        if (directions && !mapLayer.IsDirectionCellSolicitada(cell.row, cell.column)) {
            requestFieldValues(mapLayer, cell, mapLayer.DirectionField);
            mapLayer.DirectionCellSolicitada(cell.row, cell.column);
        }
    }
}

void Viewer::RequestCell(std::int32_t layerID, std::int32_t row, std::int32_t column, std::string_view)
{
    const layer* mapLayer = layers_.Find(layerID);
    changeStatus(layerID, StatusList::RequestingLayer,
                 mapLayer ? QString::fromStdString(mapLayer->Nombre) : QString());
    sendMessage(connection_, messages::CellGeometryRequest{layerID, row, column});
}

void Viewer::requestFieldValues(const layer& mapLayer, GridCell cell, const std::string& field)
{
    const QString name = QString::fromStdString(mapLayer.Nombre);
    if (sameText(field, mapLayer.lblField)) {
        changeStatus(mapLayer.IDLayer, StatusList::RequestingLabels, name);
    } else if (sameText(field, mapLayer.ThematicField)) {
        changeStatus(mapLayer.IDLayer, StatusList::RequestingTheme, name);
    }
    sendMessage(connection_, messages::CellFieldValuesRequest{mapLayer.IDLayer, cell.row, cell.column, field});
}

std::int32_t Viewer::ImageNumberOf(std::string_view) const
{
    return -1;
}

void Viewer::showIdlePointer()
{
    unsetCursor();
}

void Viewer::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (backStyle_ != 0) {
        if (!panOffset_.isNull()) {
            painter.fillRect(rect(), olecolor::toQColor(BackgroundColor, palette()));
        }
        painter.drawImage(panOffset_, imgMap_);
    }
    if (borderStyle_ == 1) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void Viewer::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        emit propertyChanged(kFontKey);
    } else if (event->type() == QEvent::EnabledChange) {
        emit propertyChanged(kEnabledKey);
    }
}

void Viewer::keyPressEvent(QKeyEvent* event)
{
    emit KeyDown(inputcodes::keyCodeOf(static_cast<Qt::Key>(event->key())),
                 inputcodes::shiftOf(event->modifiers()));
    const std::string character = windows1252::fromUtf8(event->text().left(1).toStdString());
    if (!character.empty()) {
        const int ascii = static_cast<unsigned char>(character.front());
        if (ascii == kEscape) {
            ResetTool();
        }
        emit KeyPress(ascii);
    }
    navigationKey(event->key());
}

void Viewer::keyReleaseEvent(QKeyEvent* event)
{
    emit KeyUp(inputcodes::keyCodeOf(static_cast<Qt::Key>(event->key())),
               inputcodes::shiftOf(event->modifiers()));
}

QFont Viewer::ambientFont() const
{
    return parentWidget() ? parentWidget()->font() : QApplication::font();
}

} // namespace orbelan
