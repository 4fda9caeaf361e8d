#include "viewer/CToolTip.h"

#include "model/Layers.h"
#include "viewer/GeoPixels.h"
#include "view/Viewport.h"

#include <QLabel>
#include <QTimer>

namespace orbelan {

namespace {

constexpr int kTwipsPerInch = 1440;
// The box hangs this far below the pointer, clear of the cursor's arrow.
constexpr int kBoxDropTwips = 290;
constexpr int kBoxPaddingWidthTwips = 100;
constexpr int kBoxPaddingHeightTwips = 50;
constexpr int kLabelLeftTwips = 50;
constexpr int kRightMarginTwips = 100;

const QString kLabelPrefix = QStringLiteral("Etiqueta: ");
const QString kUndefinedLabel = QStringLiteral("<Undefined>");

int twipsToPixels(int twips, int dotsPerInch)
{
    return qRound(static_cast<double>(twips) * dotsPerInch / kTwipsPerInch);
}

// The label text of an entity; a number that names no text counts as no label.
QString labelWord(const layer& mapLayer, std::int32_t IDLabel)
{
    const Dictionary* label = IDLabel != 0 ? mapLayer.Labels().Item(IDLabel) : nullptr;
    return label ? QString::fromStdString(label->word) : kUndefinedLabel;
}

} // namespace

CToolTip::CToolTip(const QWidget& surface, const Viewport& view, Layers& layers, QTimer& timer,
                   QWidget& box, QLabel& label)
    : surface_(surface),
      view_(view),
      layers_(layers),
      timer_(timer),
      box_(box),
      label_(label)
{
    box.hide();
    QPalette boxColors = box.palette();
    boxColors.setColor(QPalette::Window, boxColors.color(QPalette::ToolTipBase));
    box.setPalette(boxColors);
    box.setAutoFillBackground(true);
    QPalette labelColors = label.palette();
    labelColors.setColor(QPalette::WindowText, labelColors.color(QPalette::ToolTipText));
    label.setPalette(labelColors);
    label.setAutoFillBackground(false);
}

void CToolTip::mousemove(float X, float Y)
{
    currentX_ = X;
    currentY_ = Y;
    if (timer_.isActive()) {
        box_.hide();
        return;
    }
    sampledX_ = X;
    sampledY_ = Y;
    timer_.start(kSampleMilliseconds);
}

void CToolTip::pointerLeft()
{
    timer_.stop();
    box_.hide();
}

void CToolTip::SetLayer(std::int32_t layerID, const QString& fieldName)
{
    layerID_ = layerID;
    fieldName_ = fieldName;
    if (layerID == 0) {
        box_.hide();
    }
}

void CToolTip::timer()
{
    if (currentX_ != sampledX_ || currentY_ != sampledY_) {
        sampledX_ = currentX_;
        sampledY_ = currentY_;
        return;
    }
    timer_.stop();
    if (layerID_ == 0) {
        return;
    }
    if (const auto text = labelUnderPointer()) {
        show(*text);
    }
}

// Nothing when the layer does not exist, its labels do not show at this
// scale, or no drawn entity lies under the pointer.
std::optional<QString> CToolTip::labelUnderPointer() const
{
    layer* mapLayer = layers_.Find(layerID_);
    double lon = 0;
    double lat = 0;
    if (!mapLayer || !mapLayer->lblVisible ||
        !view_.screenToGeographic(currentX_, currentY_, lon, lat)) {
        return std::nullopt;
    }
    const std::int32_t id = mapLayer->SelectByPoint(lon, lat, pickReach(view_, QPointF(currentX_, currentY_)));
    const Entidad* entity = id > 0 ? mapLayer->Entidades.Find(id) : nullptr;
    if (!entity) {
        return std::nullopt;
    }
    return kLabelPrefix + labelWord(*mapLayer, entity->IDLabel);
}

// Below the pointer, kept clear of the right edge; near the bottom edge the
// box goes up by the drop and its own height.
void CToolTip::show(const QString& text)
{
    label_.setText(text);
    label_.adjustSize();
    label_.move(twipsToPixelsX(kLabelLeftTwips), 0);
    const int drop = twipsToPixelsY(kBoxDropTwips);
    QRect placed(qRound(currentX_), qRound(currentY_) + drop,
                 label_.width() + twipsToPixelsX(kBoxPaddingWidthTwips),
                 label_.height() + twipsToPixelsY(kBoxPaddingHeightTwips));
    const int rightLimit = surface_.width() - twipsToPixelsX(kRightMarginTwips);
    if (placed.left() + placed.width() > rightLimit) {
        placed.moveLeft(rightLimit - placed.width());
    }
    if (placed.top() > surface_.height()) {
        placed.moveTop(surface_.height() - drop - placed.height());
    }
    box_.setGeometry(placed);
    box_.raise();
    box_.show();
}

int CToolTip::twipsToPixelsX(int twips) const
{
    return twipsToPixels(twips, surface_.logicalDpiX());
}

int CToolTip::twipsToPixelsY(int twips) const
{
    return twipsToPixels(twips, surface_.logicalDpiY());
}

} // namespace orbelan
