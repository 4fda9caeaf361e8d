#include "Viewer.h"

#include "AccessRequest.h"
#include "ActivityShape.h"
#include "CellFieldValuesRequest.h"
#include "CellGeometryRequest.h"
#include "InputCodes.h"
#include "OleColor.h"
#include "PropertyBag.h"
#include "Windows1252.h"
#include "WidgetUiServices.h"
#include "dlgAbout.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
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

bool sameText(std::string_view a, std::string_view b)
{
    return QString::fromUtf8(a.data(), static_cast<qsizetype>(a.size()))
               .compare(QString::fromUtf8(b.data(), static_cast<qsizetype>(b.size())), Qt::CaseInsensitive) == 0;
}

template <typename Message>
void send(ServerConnection& connection, const Message& message)
{
    connection.sendRequest(Message::kCode, [&message](DWBUffer& buffer) { message.encode(buffer); });
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
    connection_.socket().setRemoteHost(kDefaultUrl);
    connection_.socket().setRemotePort(kDefaultPort);
    createSurface();
    connectReceiveSide();
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
    connect(&connection_, &ServerConnection::allRepliesIn, this, [this] {
        showIdlePointer();
        Redraw();
    });
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
    send(connection_, messages::AccessRequest{idUser_, mapCode_});
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
    viewport_.setSize(width(), height());
    if (viewport_.SetView(x1, y1, x2, y2)) {
        Redraw();
        RequestMissingCells();
    }
    showIdlePointer();
}

void Viewer::Redraw()
{
    viewport_.setSize(width(), height());
    if (imgMap_.size() != size()) {
        imgMap_ = QImage(size(), QImage::Format_ARGB32_Premultiplied);
    }
    imgMap_.fill(olecolor::toQColor(BackgroundColor, palette()));
    update();
    showIdlePointer();
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
    const MapPoint centre{viewport_.ScreenToWorldX(static_cast<float>(width()) / 2),
                          viewport_.ScreenToWorldY(static_cast<float>(height()) / 2)};
    BoundingBox box;
    if (!busy && viewport_.zoomBox(factor, centre, box)) {
        SetView(box.MinX, box.MinY, box.MaxX, box.MaxY);
    }
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
        if (mapLayer.CalculateVisibility()) {
            requestMissingCells(mapLayer, mapLayer.GetCellsInArea(view.MinX, view.MinY, view.MaxX, view.MaxY));
        }
    }
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
    send(connection_, messages::CellGeometryRequest{layerID, row, column});
}

// Label and thematic requests show as such in the status list; others do not.
void Viewer::requestFieldValues(const layer& mapLayer, GridCell cell, const std::string& field)
{
    const QString name = QString::fromStdString(mapLayer.Nombre);
    if (sameText(field, mapLayer.lblField)) {
        changeStatus(mapLayer.IDLayer, StatusList::RequestingLabels, name);
    } else if (sameText(field, mapLayer.ThematicField)) {
        changeStatus(mapLayer.IDLayer, StatusList::RequestingTheme, name);
    }
    send(connection_, messages::CellFieldValuesRequest{mapLayer.IDLayer, cell.row, cell.column, field});
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
        painter.drawImage(0, 0, imgMap_);
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
        emit KeyPress(static_cast<unsigned char>(character.front()));
    }
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
