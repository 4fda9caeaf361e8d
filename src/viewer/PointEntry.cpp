#include "viewer/PointEntry.h"

#include "model/Entidad.h"
#include "model/LeadingNumber.h"
#include "model/MapDocument.h"
#include "ui/UiServices.h"
#include "ui/dlgRelativeTo.h"
#include "ui/dlgSmartEndPoint.h"
#include "viewer/GeoPixels.h"
#include "viewer/SmartEndPoint.h"

#include <QAction>

namespace orbelan {

namespace {

double valueOf(const QString& text)
{
    return Val(text.toStdString());
}

// The nearest match of the visible layers, nearer than `none`; of equal
// distances the earlier layer's.
template <typename Match, typename Query>
std::optional<Match> nearestInVisibleLayers(Layers& layers, double none, Query query)
{
    std::optional<Match> best;
    double bestDistance = none;
    for (layer& candidate : layers) {
        if (candidate.Visible) {
            const Match match = query(candidate);
            if (match.distance < bestDistance) {
                bestDistance = match.distance;
                best = match;
            }
        }
    }
    return best;
}

} // namespace

PointEntry::PointEntry(Methods methods, MapDocument& document, const Viewport& view, UiServices& ui,
                       QWidget& parent, SegmentMarker marker)
    : methods_(methods),
      document_(document),
      view_(view),
      ui_(&ui),
      parent_(parent),
      marker_(std::move(marker))
{
}

PointEntry::~PointEntry() = default;

std::optional<Vertex> PointEntry::resolve(MapPoint click)
{
    const auto at = geographicOf(view_, click);
    if (!at) {
        return std::nullopt;
    }
    if (methods_.endPoint.isChecked()) {
        return nearestVertex(*at);
    }
    if (methods_.relativeTo.isChecked()) {
        return offsetFromNearestVertex(*at);
    }
    if (methods_.smartEndPoint.isChecked() && smartEndPoint_) {
        if (smartEndPoint_->state() == dlgSmartEndPoint::DistancesConfirmed) {
            return pointFromSegment(click, *at);
        }
        pickSegment(*at);
        return std::nullopt;
    }
    return at;
}

// Without any vertex in a visible layer there is nothing to enter.
std::optional<Vertex> PointEntry::nearestVertex(const Vertex& at) const
{
    const auto nearest = nearestInVisibleLayers<VertexMatch>(
        document_.Layers(), Entidad::kNoVertex,
        [&](layer& candidate) { return candidate.NearestVertexInLayer(at.X, at.Y); });
    return nearest ? std::optional(nearest->vertex) : std::nullopt;
}

// The offset is in the map's plane and applies to this one point.
std::optional<Vertex> PointEntry::offsetFromNearestVertex(const Vertex& at)
{
    methods_.relativeTo.setChecked(false);
    const auto vertex = nearestVertex(at);
    const auto projected = vertex ? projectedOf(view_, *vertex) : std::nullopt;
    if (!projected) {
        return std::nullopt;
    }
    return geographicOf(view_, {projected->x + offset_.x, projected->y + offset_.y});
}

void PointEntry::relativeToChosen()
{
    methods_.relativeTo.setChecked(true);
    dlgRelativeTo dialog(&parent_);
    ui_->execDialog(dialog);
    if (dialog.cancelled()) {
        methods_.relativeTo.setChecked(false);
        offset_ = {};
    } else {
        offset_ = {valueOf(dialog.xText()), valueOf(dialog.yText())};
    }
}

void PointEntry::smartEndPointChosen()
{
    methods_.smartEndPoint.setChecked(true);
    smartEndPoint_ = std::make_unique<dlgSmartEndPoint>(&parent_);
    askSmartEndPoint();
}

void PointEntry::askSmartEndPoint()
{
    if (ui_->execDialog(*smartEndPoint_) == QDialog::Rejected) {
        endSmartEndPoint();
    }
}

void PointEntry::endSmartEndPoint()
{
    methods_.smartEndPoint.setChecked(false);
    smartEndPoint_.reset();
}

// A click near no segment leaves the dialog waiting for another.
void PointEntry::pickSegment(const Vertex& at)
{
    const auto nearest = nearestInVisibleLayers<SegmentMatch>(
        document_.Layers(), Entidad::kNoSegment,
        [&](layer& candidate) { return candidate.NearestSegmentInLayer(at.X, at.Y); });
    if (!nearest) {
        return;
    }
    segmentFirst_ = nearest->from;
    segmentSecond_ = nearest->to;
    marker_(segmentFirst_, segmentSecond_, at);
    askSmartEndPoint();
}

std::optional<Vertex> PointEntry::pointFromSegment(MapPoint click, const Vertex& at)
{
    const auto first = projectedOf(view_, segmentFirst_);
    const auto second = projectedOf(view_, segmentSecond_);
    const double longitudinal = valueOf(smartEndPoint_->longitudinalText());
    const double transversal = valueOf(smartEndPoint_->transversalText());
    const auto point = first && second ? SmartEndPointCompute(*second, *first, click, longitudinal, transversal)
                                       : std::nullopt;
    marker_(segmentFirst_, segmentSecond_, at);
    endSmartEndPoint();
    return point ? geographicOf(view_, *point) : std::nullopt;
}

} // namespace orbelan
