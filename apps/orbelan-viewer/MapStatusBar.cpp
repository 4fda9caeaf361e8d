#include "orbelan-viewer/MapStatusBar.h"

#include "orbelan-viewer/CoordinateText.h"
#include "render/ScaleBar.h"
#include "view/Viewport.h"
#include "viewer/Viewer.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>

#include <optional>

namespace orbelan {

namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr int kBusyPollMilliseconds = 200;
constexpr int kBusyWidth = 80;
constexpr int kErrorMilliseconds = 8000;

QLabel* addLabel(QStatusBar& bar, const char* name)
{
    auto* label = new QLabel(&bar);
    label->setObjectName(QString::fromLatin1(name));
    bar.addPermanentWidget(label);
    return label;
}

} // namespace

MapStatusBar::MapStatusBar(Viewer& viewer, QWidget* parent)
    : QStatusBar(parent),
      viewer_(viewer),
      position_(addLabel(*this, "lblPosition")),
      scale_(addLabel(*this, "lblScale")),
      busy_(new QProgressBar(this))
{
    busy_->setObjectName(QStringLiteral("pbBusy"));
    busy_->setRange(0, 0);
    busy_->setMaximumWidth(kBusyWidth);
    busy_->hide();
    addPermanentWidget(busy_);
    connect(&viewer_, &Viewer::MousePosition, this, &MapStatusBar::showPosition);
    connect(&viewer_, &Viewer::MapRedrawn, this, &MapStatusBar::showScale);
    connect(&viewer_, &Viewer::MapLoaded, this, [this] { showMessage(tr("Map loaded")); });
    connect(&viewer_, &Viewer::errorOccurred, this,
            [this](const QString& message) { showMessage(message, kErrorMilliseconds); });
    auto* poll = new QTimer(this);
    connect(poll, &QTimer::timeout, this, &MapStatusBar::showBusy);
    poll->start(kBusyPollMilliseconds);
}

void MapStatusBar::showPosition(double lon, double lat)
{
    QString text = coordinatetext::geographic(lon, lat);
    MapPoint point;
    if (viewer_.Projection() != 0 && viewer_.viewport().project(lon, lat, point)) {
        text += QStringLiteral("   ") + coordinatetext::plane(point.x, point.y);
    }
    position_->setText(text);
}

void MapStatusBar::showScale()
{
    const std::optional<double> metresPerPixel = ScaleBar::groundMetresPerPixel(viewer_.viewport());
    scale_->setText(metresPerPixel
                        ? coordinatetext::scale(*metresPerPixel * viewer_.logicalDpiX() / kMetresPerInch)
                        : QString());
}

void MapStatusBar::showBusy() { busy_->setVisible(viewer_.PendingRequests() > 0); }

} // namespace orbelan
