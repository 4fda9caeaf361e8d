#include "viewer/ViewerPrivate.h"
#include "configuration/MapSetup.h"
#include "configuration/dlgMapReferences.h"

#include "viewer/ActivityShape.h"
#include "viewer/CToolTip.h"
#include "viewer/Guarded.h"
#include "viewer/InputCodes.h"
#include "viewer/MapExport.h"
#include "render/OleColor.h"
#include "viewer/PresetFieldValues.h"
#include "viewer/Viewer.h"
#include "ui/WidgetUiServices.h"
#include "ui/dlgSetDirections.h"
#include "protocol/messages/Condition.h"
#include "query/dlgFindByCondition.h"
#include "configuration/LayerRestyle.h"
#include "viewer/tools/DirectionsTool.h"
#include "viewer/tools/InformationTool.h"
#include "viewer/tools/SelectTool.h"
#include "viewer/tools/ZoomFactorTool.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QTimer>

namespace orbelan {

namespace {

constexpr int kCompanyLabelMargin = 10;
constexpr int kIndicatorMargin = 4;
constexpr int kRightButton = 2;
constexpr int kShiftKey = 1;
constexpr double kArrowPanShare = 0.25;

// How far inside the map's corner the legend first opens, in pixels.
constexpr int kLegendInset = 12;

// The renderer's scale bar over a finished picture or page of that size.
void addScaleBar(const MapRenderer& renderer, QPaintDevice& device, QSize size, const Viewport& view)
{
    QPainter painter(&device);
    renderer.drawScaleBar(painter, size, view);
}

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

} // namespace

ViewerPrivate::ViewerPrivate(Viewer& viewer)
    : surface{olecolor::kButtonFace, olecolor::kButtonText},
      viewer_(viewer),
      ownUi_(std::make_unique<WidgetUiServices>()),
      ui_(ownUi_.get()),
      document_(viewport_),
      session_(document_, viewport_, *ui_, *this),
      renderer_(viewer.palette(), viewer.font(), viewer.logicalDpiY()),
      tools_(*this),
      menus_(viewer),
      pointEntry_({menus_.item("mnuEndPoint"), menus_.item("mnuRelativeTo"), menus_.item("mnuSmartEndPoint")},
                  document_, viewport_, *ui_, viewer,
                  [this](const Vertex& first, const Vertex& second, const Vertex& click) {
                      markSegment(first, second, click);
                  })
{
    createSurface();
    connectReceiveSide();
    connectMenus();
    renderer_.setRasters(&images_.images());
    renderer_.setScaleBar(true);
    renderer_.setAntialiasing(true);
}

ViewerPrivate::~ViewerPrivate() = default;

void ViewerPrivate::setUiServices(UiServices& services)
{
    ui_ = &services;
    session_.setUiServices(services);
    pointEntry_.setUiServices(services);
}

void ViewerPrivate::createSurface()
{
    readingData_ = new ActivityShape(&viewer_);
    readingData_->hide();
    statusLabel_ = new QLabel(&viewer_);
    statusLabel_->setObjectName("lblstatus");
    statusLabel_->move(kCompanyLabelMargin, kCompanyLabelMargin);
    statusLabel_->hide();
    companyLabel_ = new QLabel(QStringLiteral("Orbelan"), &viewer_);
    companyLabel_->setObjectName("lblCompany");
    rubberBand_ = new QRubberBand(QRubberBand::Rectangle, &viewer_);
    rubberBand_->setObjectName("RubberBand");
    toolTipTimer_ = new QTimer(&viewer_);
    toolTipTimer_->setObjectName("tmrToolTip");
    toolTipBox_ = new QWidget(&viewer_);
    toolTipBox_->setObjectName("picToolTip");
    // The box never takes the pointer's moves away from the map.
    toolTipBox_->setAttribute(Qt::WA_TransparentForMouseEvents);
    toolTipBox_->hide();
    toolTipLabel_ = new QLabel(toolTipBox_);
    toolTipLabel_->setObjectName("lblToolTip");
}

void ViewerPrivate::connectReceiveSide()
{
    ServerConnection& connection = session_.connection();
    QObject::connect(&connection, &ServerConnection::dataArriving, readingData_, &QWidget::show);
    QObject::connect(&connection, &ServerConnection::furtherChunk, readingData_, &ActivityShape::toggleColor);
    QObject::connect(&connection, &ServerConnection::dispatching, &viewer_,
                     [this] { viewer_.setCursor(Qt::BusyCursor); });
    QObject::connect(&connection, &ServerConnection::receiveIdle, &viewer_, [this] {
        viewer_.unsetCursor();
        readingData_->hide();
    });
    // The replies that bring the count to 0 redraw the map themselves.
    QObject::connect(&connection, &ServerConnection::allRepliesIn, &viewer_, [this] { selectToolCursor(); });
}

void ViewerPrivate::chooseToolTipLayer(int layerId, const QString& field)
{
    if (!toolTip_) {
        toolTip_ = std::make_unique<CToolTip>(viewer_, viewport_, document_.Layers(), *toolTipTimer_, *toolTipBox_,
                                              *toolTipLabel_);
        QObject::connect(toolTipTimer_, &QTimer::timeout, &viewer_,
                         [this] { guarded(viewer_, "tooltip timer", [this] { toolTip_->timer(); }); });
    }
    toolTip_->SetLayer(layerId, field);
}

void ViewerPrivate::pointerLeft()
{
    if (toolTip_) {
        toolTip_->pointerLeft();
    }
}

void ViewerPrivate::changeStatus(std::int32_t layerId, std::uint8_t step, const QString& layerName)
{
    session_.status().change(layerId, step, layerName);
    // Laying out the label's text costs far more than a step: a map of many
    // cells changes the list hundreds of times between two paints, so the
    // label is brought up to date once, when the event loop comes round.
    if (!statusRefreshPending_) {
        statusRefreshPending_ = true;
        QTimer::singleShot(0, &viewer_, [this] { guarded(viewer_, "status text", [this] { refreshStatusLabel(); }); });
    }
}

void ViewerPrivate::refreshStatusLabel()
{
    statusRefreshPending_ = false;
    statusLabel_->setText(statusText());
    statusLabel_->adjustSize();
}

QString ViewerPrivate::statusText() const
{
    const QString steps = session_.status().text();
    return toolStatus_.isEmpty() || steps.isEmpty() ? steps + toolStatus_ : steps + '\n' + toolStatus_;
}

void ViewerPrivate::showToolStatus(const QString& text)
{
    toolStatus_ = text;
    refreshStatusLabel();
}

void ViewerPrivate::definitionLoaded()
{
    images_.bind(document_.Layers());
    emit viewer_.MapLoaded();
}

void ViewerPrivate::informationArrived(std::int32_t layerId, std::int32_t elementId, const QStringList& fieldNames,
                                       const QList<int>& fieldTypes, const QStringList& values)
{
    emit viewer_.InfoArrival(layerId, elementId, fieldNames, fieldTypes, values);
}

QWidget* ViewerPrivate::dialogParent()
{
    return &viewer_;
}

void ViewerPrivate::firstShow()
{
    redrawMap();
    if (session_.open()) {
        statusLabel_->show();
    }
}

// The map and the connection go with the hidden control: a later show
// starts a new session, as the first one did.
void ViewerPrivate::hidden()
{
    session_.close();
    document_.Layers().Clear();
    images_.closeAll();
    document_.layerscargados = false;
    firstShowPending = true;
}

void ViewerPrivate::resized()
{
    placeCompanyLabel();
    readingData_->move(viewer_.width() - readingData_->width() - kIndicatorMargin, kIndicatorMargin);
    // Before the first view there is nothing to show: the empty picture only
    // follows the new size.
    if (!viewport_.resize(viewer_.width(), viewer_.height())) {
        renderPicture(std::nullopt);
    } else if (!document_.busy) {
        showChangedView(true);
    }
}

void ViewerPrivate::placeCompanyLabel()
{
    companyLabel_->adjustSize();
    companyLabel_->move(kCompanyLabelMargin, viewer_.height() - kCompanyLabelMargin - companyLabel_->height());
    companyLabel_->show();
}

void ViewerPrivate::applyColors()
{
    QPalette colors = viewer_.palette();
    colors.setColor(QPalette::Window, olecolor::toQColor(surface.back, QApplication::palette()));
    colors.setColor(QPalette::WindowText, olecolor::toQColor(surface.fore, QApplication::palette()));
    viewer_.setPalette(colors);
    // Back style 0 is transparent: the host's surface shows through.
    viewer_.setAutoFillBackground(surface.backMode != 0);
    viewer_.update();
}

void ViewerPrivate::showBox(const BoundingBox& box)
{
    viewer_.setCursor(Qt::BusyCursor);
    hideRubberBand();
    viewport_.setSize(viewer_.width(), viewer_.height());
    viewport_.setProjection(document_.Projection);
    showChangedView(viewport_.SetView(box.MinX, box.MinY, box.MaxX, box.MaxY));
    selectToolCursor();
}

void ViewerPrivate::showChangedView(bool changed)
{
    if (changed) {
        hideRubberBand();
        redrawMap();
        requestCellsOfView();
    }
}

bool ViewerPrivate::dragView(MapPoint from, MapPoint to)
{
    return navigate([&] { return viewport_.drag(from, to); });
}

void ViewerPrivate::centreView(MapPoint centre)
{
    navigate([&] { return viewport_.centreOn(centre); });
}

// Redrawing one layer draws the others from what they drew last.
void ViewerPrivate::drawMap(std::optional<std::int32_t> onlyLayer)
{
    renderPicture(onlyLayer);
    selectToolCursor();
    if (!document_.busy) {
        emit viewer_.MapRedrawn();
    }
}

void ViewerPrivate::renderPicture(std::optional<std::int32_t> onlyLayer)
{
    viewport_.setSize(viewer_.width(), viewer_.height());
    // On a HiDPI screen the picture has the screen's pixels.
    const qreal ratio = viewer_.devicePixelRatioF();
    if (picture_.deviceIndependentSize() != QSizeF(viewer_.size()) || picture_.devicePixelRatio() != ratio) {
        picture_ = QImage(viewer_.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        picture_.setDevicePixelRatio(ratio);
    }
    hideRubberBand();
    renderer_.setPalette(viewer_.palette());
    renderer_.setTextMetrics(viewer_.font(), viewer_.logicalDpiY());
    renderer_.render(picture_, viewport_, document_, onlyLayer);
    // What a tool picked stands out while the tool goes on.
    const ToolState& tool = tools_.state();
    layer* target = document_.Layers().Find(tool.targetLayer);
    if (tool.current != ToolController::kNoTool && target) {
        renderer_.highlight(picture_, viewport_, *target, tool.picked.ids());
    }
    if (layer* queried = document_.Layers().Find(highlightedLayer_)) {
        renderer_.highlight(picture_, viewport_, *queried, highlighted_);
    }
    viewer_.update();
}

void ViewerPrivate::zoomAboutCentre(float factor)
{
    tools_.stopDragging();
    hideRubberBand();
    zoomAbout(factor, viewport_.toMap(viewer_.width() / 2.0, viewer_.height() / 2.0));
}

void ViewerPrivate::zoomAbout(float factor, MapPoint centre)
{
    navigate([&] { return viewport_.zoomAbout(factor, centre); });
}

void ViewerPrivate::zoomToExtents()
{
    if (!document_.busy) {
        showBox(document_.mapExtent);
        viewer_.unsetCursor();
    }
}

// Zoom and pan keep the tool they interrupt, to resume it afterwards.
void ViewerPrivate::armTool(int number)
{
    if (!document_.busy) {
        tools_.arm(number);
        selectToolCursor();
    }
}

void ViewerPrivate::armZoomFactor(float factor)
{
    if (!document_.busy) {
        tools_.zoomFactorTool().setFactor(factor);
        armTool(ZoomFactorTool::kNumber);
    }
}

void ViewerPrivate::finishNavigation(int tool, bool completed)
{
    tools_.finishNavigation(tool, completed);
    selectToolCursor();
}

// Giving up an element's edit needs the user's word.
bool ViewerPrivate::resetTool()
{
    if (tools_.editing() && ui_->messageBox(&viewer_, QStringLiteral("Do you really want to Cancel Edition?"),
                                            MessageButtons::YesNo, MessageIcon::None,
                                            QStringLiteral("Orbelan")) == MessageAnswer::No) {
        return false;
    }
    tools_.reset();
    entryOverlay_.followPointer(std::nullopt, false);
    redrawMap();
    return true;
}

void ViewerPrivate::selectTool(int number, std::int32_t targetLayer)
{
    if (resetTool()) {
        tools_.select(number, targetLayer);
        menus_.toolSelected(number);
        selectToolCursor();
    }
}

const layer& ViewerPrivate::existingLayer(std::int32_t layerId)
{
    const layer* found = document_.Layers().Find(layerId);
    if (!found) {
        throw std::invalid_argument("there is no layer " + std::to_string(layerId));
    }
    return *found;
}

void ViewerPrivate::setDirections(std::int32_t layerId)
{
    QStringList fieldNames;
    for (const Campo& field : existingLayer(layerId).Campos()) {
        fieldNames << QString::fromStdString(field.Nombre);
    }
    dlgSetDirections dialog(fieldNames, &viewer_);
    ui_->execDialog(dialog);
    if (!dialog.cancelled()) {
        selectTool(DirectionsTool::kNumber, layerId);
    }
}

void ViewerPrivate::selectObjects(std::int32_t layerId)
{
    existingLayer(layerId);
    selectTool(SelectTool::kNumber, layerId);
}

void ViewerPrivate::getInfo(std::int32_t layerId, std::int32_t elementId, bool releaseEvent)
{
    if (document_.busy) {
        return;
    }
    session_.releaseInformation(releaseEvent);
    if (informationAllowed(existingLayer(layerId), ALViewer)) {
        startInformation(layerId, elementId, false);
    }
}

void ViewerPrivate::editInfo(std::int32_t layerId, std::int32_t elementId, const QVariant& fieldInfo)
{
    if (document_.busy) {
        return;
    }
    const layer& target = existingLayer(layerId);
    auto preset = presetFieldValues(target, fieldInfo);
    if (informationAllowed(target, ALEditor)) {
        session_.presetEditValues(std::move(preset));
        startInformation(layerId, elementId, true);
    }
}

bool ViewerPrivate::informationAllowed(const layer& target, CONSTACCESSLEVEL needed)
{
    if (target.AccessLevel < needed) {
        messageBox(QStringLiteral("Acceso Denegado"), MessageButtons::OK, MessageIcon::Critical,
                   QStringLiteral("Orbelan"));
        return false;
    }
    return target.Tipo != ImageLayer;
}

void ViewerPrivate::startInformation(std::int32_t layerId, std::int32_t elementId, bool forEditing)
{
    if (elementId != 0) {
        requestInformation(layerId, elementId, forEditing);
    } else {
        selectTool(forEditing ? InformationTool::kEditingNumber : InformationTool::kNumber, layerId);
    }
}

void ViewerPrivate::selectionSet(std::int32_t layerId, const std::vector<std::int32_t>& ids)
{
    const QList<int> elements(ids.begin(), ids.end());
    emit viewer_.SelectionSet(layerId, static_cast<int>(elements.size()), elements);
}

void ViewerPrivate::toolChanged(int number)
{
    emit viewer_.toolChanged(number);
}

void ViewerPrivate::showEnteredPoints()
{
    viewer_.update();
}

void ViewerPrivate::followPointer(const std::optional<QPointF>& pointer, bool closing)
{
    entryOverlay_.followPointer(pointer, closing);
    viewer_.update();
}

MessageAnswer ViewerPrivate::messageBox(const QString& text, MessageButtons buttons, MessageIcon icon,
                                        const QString& caption)
{
    return ui_->messageBox(&viewer_, text, buttons, icon, caption);
}

void ViewerPrivate::markSegment(const Vertex& first, const Vertex& second, const Vertex& click)
{
    EntryOverlay::markSegment(picture_, viewport_, first, second, click);
    viewer_.update();
}

void ViewerPrivate::connectMenus()
{
    onMenuItem("mnuCerrarPline", [](ViewerPrivate& d) { d.tools_.closeLine(); });
    onMenuItem("mnuEraseLastPoint", [](ViewerPrivate& d) { d.tools_.eraseLastPoint(); });
    onMenuItem("mnuRelativeTo", [](ViewerPrivate& d) { d.pointEntry_.relativeToChosen(); });
    onMenuItem("mnuSmartEndPoint", [](ViewerPrivate& d) { d.pointEntry_.smartEndPointChosen(); });
    onMenuItem("mnuCancelElement", [](ViewerPrivate& d) { d.typeEscape(); });
    onMenuItem("mnuEndSelection", [](ViewerPrivate& d) { d.tools_.endSelection(); });
    onMenuItem("mnuCancelSelection", [](ViewerPrivate& d) {
        d.menus_.stopRemoving();
        d.typeEscape();
    });
    onMenuItem("mnuClearSelection", [](ViewerPrivate& d) {
        d.menus_.stopRemoving();
        d.tools_.clearPicked();
        d.redrawMap();
    });
    onMenuItem("mnuSelectPolygon", [](ViewerPrivate& d) { d.startSelectionPolygon(); });
    onMenuItem("mnuWholeElementInside", [](ViewerPrivate& d) { d.startSelectionPolygon(); });
    onMenuItem("mnuOneVertex", [](ViewerPrivate& d) { d.startSelectionPolygon(); });
    onMenuItem("mnuZoomToSelected", [](ViewerPrivate& d) {
        const std::vector<std::int32_t>& picked = d.tools_.state().picked.ids();
        d.showElements(d.tools_.state().targetLayer, QList<int>(picked.begin(), picked.end()));
    });
}

void ViewerPrivate::startSelectionPolygon()
{
    menus_.setSelectionMethod(2);
    tools_.clearEnteredPoints();
    followPointer(std::nullopt, false);
}

void ViewerPrivate::onMenuItem(const char* name, void (*handler)(ViewerPrivate&))
{
    QAction& item = menus_.item(QString::fromLatin1(name));
    QObject::connect(&item, &QAction::triggered, &viewer_,
                     [this, name, handler] { guarded(viewer_, name, [&] { handler(*this); }); });
}

void ViewerPrivate::popupMenu(PopupMenu which, QPointF pixel)
{
    if (QMenu* menu = menus_.menu(which)) {
        ui_->popupMenu(*menu, viewer_.mapToGlobal(pixel.toPoint()));
    }
}

void ViewerPrivate::typeEscape()
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent escape(type, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
        QCoreApplication::sendEvent(&viewer_, &escape);
    }
}

void ViewerPrivate::selectToolCursor()
{
    viewer_.setCursor(tools_.cursor());
}

void ViewerPrivate::showRubberBand(const QRect& rectangle)
{
    rubberBand_->setGeometry(rectangle);
    rubberBand_->show();
}

void ViewerPrivate::hideRubberBand()
{
    rubberBand_->hide();
}

void ViewerPrivate::setPanOffset(QPoint offset)
{
    panOffset_ = offset;
    viewer_.update();
}

void ViewerPrivate::showElements(std::int32_t layerId, const QList<int>& elements)
{
    const layer* mapLayer = document_.Layers().Find(layerId);
    if (document_.busy || !mapLayer || mapLayer->Tipo == ImageLayer || elements.isEmpty()) {
        return;
    }
    // An element 0 names nothing: there is no box to zoom to.
    if (elements.size() == 1 && elements.front() == 0) {
        return;
    }
    if (elements.size() == 1 && !mapLayer->Entidades.Find(elements.front())) {
        session_.requestElementBox(layerId, elements.front(), true);
        return;
    }
    BoundingBox box;
    for (const int id : elements) {
        if (const Entidad* element = mapLayer->Entidades.Find(id)) {
            box.Union(element->bb.MinX, element->bb.MinY, element->bb.MaxX, element->bb.MaxY);
        }
    }
    if (box.MinX > box.MaxX || box.MinY > box.MaxY) {
        return;
    }
    widenToMinimum(box.MinX, box.MaxX);
    widenToMinimum(box.MinY, box.MaxY);
    showBox(box);
}

void ViewerPrivate::paint()
{
    QPainter painter(&viewer_);
    if (surface.backMode != 0) {
        if (!panOffset_.isNull()) {
            painter.fillRect(viewer_.rect(), olecolor::toQColor(document_.BackgroundColor, viewer_.palette()));
        }
        painter.drawImage(panOffset_, picture_);
    }
    entryOverlay_.paint(painter, viewport_, tools_.state().vertices);
    // Over everything the map shows, highlights and marks included.
    if (surface.backMode != 0) {
        renderer_.drawScaleBar(painter, viewer_.size(), viewport_);
    }
    if (surface.border == 1) {
        painter.setPen(viewer_.palette().color(QPalette::WindowText));
        painter.drawRect(viewer_.rect().adjusted(0, 0, -1, -1));
    }
}

MapMouseEvent ViewerPrivate::mapEvent(const QMouseEvent& event) const
{
    const QPointF pixel = event.position();
    return {inputcodes::buttonOf(event.button()), inputcodes::shiftOf(event.modifiers()), pixel,
            viewport_.toMap(pixel.x(), pixel.y())};
}

void ViewerPrivate::mousePress(const QMouseEvent& event)
{
    const MapMouseEvent press = mapEvent(event);
    // Shift and the right button free a control whose load never finished.
    if (press.button == kRightButton && (press.shift & kShiftKey)) {
        document_.busy = false;
        tools_.drop();
        selectToolCursor();
        return;
    }
    if (!viewport_.viewReady() || document_.busy) {
        return;
    }
    tools_.press(press);
    emit viewer_.MouseDown(press.button, press.shift, static_cast<float>(press.pixel.x()),
                           static_cast<float>(press.pixel.y()));
}

void ViewerPrivate::mouseMove(const QMouseEvent& event)
{
    if (!viewport_.viewReady()) {
        return;
    }
    if (document_.busy) {
        viewer_.setCursor(Qt::WaitCursor);
        return;
    }
    if (viewer_.cursor().shape() == Qt::WaitCursor) {
        selectToolCursor();
    }
    const MapMouseEvent move = mapEvent(event);
    tools_.move(move);
    if (toolTip_) {
        toolTip_->mousemove(static_cast<float>(move.pixel.x()), static_cast<float>(move.pixel.y()));
    }
    double lon = 0;
    double lat = 0;
    if (viewport_.unproject(move.map, lon, lat)) {
        emit viewer_.MousePosition(lon, lat);
    }
}

// A release ends the tool's drag; a left release is also a click, handled by
// the tool that is current after the release.
void ViewerPrivate::mouseRelease(const QMouseEvent& event)
{
    if (!viewport_.viewReady() || document_.busy) {
        return;
    }
    const MapMouseEvent release = mapEvent(event);
    if (tools_.release(release)) {
        emit viewer_.MouseUp(release.button, release.shift, static_cast<float>(release.pixel.x()),
                             static_cast<float>(release.pixel.y()));
    }
    if (tools_.click(release)) {
        emit viewer_.click();
    } else {
        popupMenu(tools_.rightClickMenu(), release.pixel);
    }
}

void ViewerPrivate::mouseDoubleClick(const QMouseEvent& event)
{
    tools_.doubleClick(mapEvent(event));
    emit viewer_.DblClick();
}

// The wheel zooms by 2 or 0.5 and keeps the point under the cursor in place.
void ViewerPrivate::wheel(int steps, QPointF pixel)
{
    if (steps != 0) {
        navigate([&] { return viewport_.zoomAboutPixel(steps > 0 ? 2.0f : 0.5f, pixel.x(), pixel.y()); });
    }
}

void ViewerPrivate::navigationKey(int key)
{
    switch (key) {
    case Qt::Key_Left: panByQuarter(-1, 0); break;
    case Qt::Key_Right: panByQuarter(1, 0); break;
    case Qt::Key_Up: panByQuarter(0, 1); break;
    case Qt::Key_Down: panByQuarter(0, -1); break;
    default: break;
    }
}

void ViewerPrivate::panByQuarter(int east, int north)
{
    navigate([&] { return viewport_.moveByShares(kArrowPanShare * east, kArrowPanShare * north); });
}

} // namespace orbelan

namespace orbelan {

void ViewerPrivate::clearHighlight()
{
    if (!highlighted_.empty()) {
        highlighted_.clear();
        renderPicture(std::nullopt);
    }
}

void ViewerPrivate::highlightElement(std::int32_t layerId, std::int32_t elementId)
{
    layer* target = document_.Layers().Find(layerId);
    if (target == nullptr || target->Entidades.Find(elementId) == nullptr) {
        return;
    }
    if (layerId != highlightedLayer_) {
        highlighted_.clear();
        highlightedLayer_ = layerId;
    }
    highlighted_.push_back(elementId);
    const std::int32_t ids[] = {elementId};
    renderer_.highlight(picture_, viewport_, *target, ids);
    viewer_.update();
}

void ViewerPrivate::zoomToElements(std::int32_t layerId, const std::vector<std::int32_t>& elementIds)
{
    showElements(layerId, QList<int>(elementIds.begin(), elementIds.end()));
}

void ViewerPrivate::showElementInformation(std::int32_t layerId, std::int32_t elementId)
{
    viewer_.GetInfo(layerId, elementId, false);
}

// The condition is complete when its layer has its field, its operator is
// known and its first value is given.
void ViewerPrivate::findByCondition(messages::Condition& condition)
{
    if (document_.busy) {
        return;
    }
    const layer* target = document_.Layers().Find(condition.layer);
    const Campo* field = target ? target->Campos().Find(condition.field) : nullptr;
    if (field && messages::conditionop::isComparison(condition.op) && !condition.value1.empty()) {
        condition.fieldType = field->Tipo;
    } else {
        dlgFindByCondition dialog(document_.Layers(), condition, &viewer_);
        ui_->execDialog(dialog);
        if (dialog.cancelled()) {
            return;
        }
        condition = dialog.condition();
    }
    session_.findByCondition(condition);
}

bool ViewerPrivate::setImagePath(const QString& path)
{
    if (!images_.setPath(path, document_.Layers())) {
        return false;
    }
    if (document_.Layers().count() > 0) {
        redrawMap();
    }
    return true;
}

template <typename Value>
void ViewerPrivate::setDrawingSwitch(const char* key, Value (MapRenderer::*current)() const,
                                     void (MapRenderer::*change)(Value), Value value)
{
    if ((renderer_.*current)() == value) {
        return;
    }
    (renderer_.*change)(value);
    if (document_.Layers().count() > 0) {
        redrawMap();
    } else {
        viewer_.update();
    }
    emit viewer_.propertyChanged(key);
}

template void ViewerPrivate::setDrawingSwitch<bool>(const char*, bool (MapRenderer::*)() const,
                                                    void (MapRenderer::*)(bool), bool);
template void ViewerPrivate::setDrawingSwitch<std::int16_t>(const char*, std::int16_t (MapRenderer::*)() const,
                                                            void (MapRenderer::*)(std::int16_t), std::int16_t);

void ViewerPrivate::replaceLayers(Layers layers)
{
    document_.setLayers(std::move(layers));
    images_.bind(document_.Layers());
}

void ViewerPrivate::drawImageLayer(std::int32_t layerId)
{
    const layer& imageLayer = existingLayer(layerId);
    if (imageLayer.Tipo == ImageLayer && imageLayer.ImageNumber != -1) {
        renderer_.drawImage(picture_, viewport_, imageLayer.ImageNumber);
        viewer_.update();
    }
}

void ViewerPrivate::snapShot()
{
    if (document_.busy) {
        return;
    }
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    // The picture at the control's own size, as on a screen of one pixel a point.
    QImage shot = picture_.devicePixelRatio() == 1
                      ? picture_.copy()
                      : picture_.scaled(viewer_.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    shot.setDevicePixelRatio(1);
    addScaleBar(renderer_, shot, shot.size(), viewport_);
    clipboard->setImage(shot);
}

void ViewerPrivate::exportImage(const QString& fileName, int width, int height, int dpi)
{
    MapExport::check(fileName, width, height, dpi);
    // The same piece of the map, fitted into the asked size; labels are sized
    // for the asked resolution.
    Viewport view;
    view.setProjection(viewport_.Projection());
    view.setSize(width, height);
    const BoundingBox& box = viewport_.viewBox();
    if (viewport_.viewReady()) {
        view.SetView(box.MinX, box.MinY, box.MaxX, box.MaxY);
    }
    MapRenderer renderer = renderer_;
    renderer.setTextMetrics(viewer_.font(), dpi);
    if (MapExport::isPdf(fileName)) {
        MapExport::writePdf(fileName, {width, height}, dpi,
                            [&](QPaintDevice& page) { renderer.render(page, {width, height}, view, document_); });
    } else {
        QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
        renderer.render(picture, view, document_);
        addScaleBar(renderer, picture, picture.size(), view);
        MapExport::writePng(picture, fileName, dpi);
    }
    // The layers list what the export drew; the control's own view lists its own again.
    renderPicture(std::nullopt);
}

void ViewerPrivate::mapSetup()
{
    if (MapSetup(document_, viewport_, *ui_, &viewer_).run()) {
        drawMap(std::nullopt);
    }
}

void ViewerPrivate::showMapReferences()
{
    const bool created = !legend_;
    if (created) {
        legend_ = std::make_unique<dlgMapReferences>(&viewer_);
    }
    legend_->build(document_, viewport_.viewBox(), viewer_.palette());
    if (created) {
        // Over the map's top-left corner, not the host's menus; moved by the
        // user, it stays where it was put.
        legend_->move(viewer_.mapToGlobal(QPoint(kLegendInset, kLegendInset)));
    }
    legend_->show();
}

void ViewerPrivate::restoreMapReferences()
{
    if (legend_) {
        legend_->build(document_, viewport_.viewBox(), viewer_.palette());
    }
}

void ViewerPrivate::hideMapReferences()
{
    if (legend_) {
        legend_->hide();
    }
}

void ViewerPrivate::terminateMapReferences() { legend_.reset(); }

void ViewerPrivate::layerSetup(std::int32_t layerId)
{
    layer* target = document_.Layers().Find(layerId);
    if (document_.busy || !document_.layerscargados || target == nullptr || target->Tipo == ImageLayer) {
        return;
    }
    auto outcome = layerSetup_.run(*target, viewport_.CurrentZoom(), *ui_, &viewer_);
    if (const auto* query = std::get_if<LayerSetupLoop::StatisticsQuery>(&outcome)) {
        session_.requestFieldStatistics(query->layer, query->field, query->method);
    } else if (auto* style = std::get_if<LayerStyle>(&outcome)) {
        restyleLayer(*target, std::move(*style), session_.cells());
        drawMap(std::nullopt);
        requestCellsOfView();
    }
}

void ViewerPrivate::statisticsArrived(std::int32_t layerId, std::vector<std::string> values)
{
    if (layerSetup_.statisticsArrived(layerId, std::move(values))) {
        viewer_.LayerSetup(layerId);
    }
}

} // namespace orbelan
