#include "model/layer.h"

#include "protocol/FieldTypes.h"
#include "model/LeadingNumber.h"
#include "model/MapCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace orbelan {

namespace {

// Searches for the nearest drawn entity start here; an entity not drawn is
// farther still.
constexpr double kSearchStart = 1E35;
constexpr double kNotDrawn = 1E36;

// The zoom value that lifts the limit when zooming out.
constexpr float kUnlimitedZoom = 1E37f;

// The thematic value of every entity of a layer without thematic classes.
const std::string kNoThemeValue = "0";

// A highlighted entity is outlined in red.
constexpr std::int32_t kHighlightColor = 255;

std::int16_t userLevel(std::int16_t level)
{
    return level >= 0 && level <= 2 ? level : std::int16_t{1};
}

// A zoom value is the height of the visible map, in thousands of map units,
// at which a limit lies; this turns it into the scale (pixels per unit) of
// that limit. 0 means no limit when zooming in.
double ZoomThreshold(float zoom, std::int32_t height)
{
    if (zoom == 0) {
        return 99999.0;
    }
    if (zoom == kUnlimitedZoom) {
        return 0;
    }
    return static_cast<double>(height) / zoom / 1000;
}

std::int32_t cellIndex(double offset, float delta)
{
    const double index = std::nearbyint(offset / delta);
    if (!(index >= std::numeric_limits<std::int32_t>::min() && index <= std::numeric_limits<std::int32_t>::max())) {
        throw std::out_of_range("grid index " + std::to_string(offset) + " / " + std::to_string(delta) +
                                " does not fit a Long");
    }
    return static_cast<std::int32_t>(index);
}

// Whether the point is near enough to the box for the entity to be within
// reach of the tolerance. The factor 2 is a margin for rounding in the
// distance computation, which alone decides.
bool nearBox(const Entidad& entity, double X, double Y, double tolerance)
{
    const BoundingBox& box = entity.bb;
    const double reach = 2 * tolerance;
    return X >= box.MinX - reach && X <= box.MaxX + reach && Y >= box.MinY - reach && Y <= box.MaxY + reach;
}

// An entity without vertices has an empty box, but a point entity without
// vertices is 0 away from everything: only entities with vertices are skipped
// by their box.
bool outOfReach(const Entidad& entity, double X, double Y, double tolerance)
{
    return entity.UboundPoints() > 0 && !nearBox(entity, X, Y, tolerance);
}

// An array whose last element is 0 (or less) has a free place there.
void appendID(std::vector<std::int32_t>& ids, std::int32_t id)
{
    if (ids.empty() || ids.back() > 0) {
        ids.push_back(id);
    } else {
        ids.back() = id;
    }
}

// Without WholeElementInside the first vertex inside decides, with it the
// first vertex outside.
bool verticesInside(const Entidad& entity, const Entidad& polygon, bool whole)
{
    for (const Vertex& vertex : entity.Points()) {
        const bool inside = polygon.PointInPolygon(vertex.X, vertex.Y);
        if (inside != whole) {
            return inside;
        }
    }
    return whole;
}

// The best answer of query over the entities; on equal distances the later
// entity wins. An entity that passOver tells, by the best distance so far,
// that it can neither beat nor tie is not asked.
template <typename Match, typename Query, typename PassOver>
Match nearestOf(std::span<Entidad* const> entities, Match best, Query query, PassOver passOver)
{
    for (const Entidad* entity : entities) {
        if (entity != nullptr && !passOver(*entity, best.distance)) {
            Match match = query(*entity);
            if (match.distance <= best.distance) {
                best = match;
            }
        }
    }
    return best;
}

std::string_view trimSpaces(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

void layer::setUserVisibility(std::int16_t level)
{
    userVisibility_ = userLevel(level);
}

void layer::setUserLabelVisibility(std::int16_t level)
{
    userLabelVisibility_ = userLevel(level);
}

void layer::setUserDirectionVisibility(std::int16_t level)
{
    userDirectionVisibility_ = userLevel(level);
}

void layer::setLabels(orbelan::Labels labels)
{
    labels_ = std::move(labels);
}

void layer::setCampos(orbelan::Campos campos)
{
    campos_ = std::move(campos);
}

void layer::setThematicMap(orbelan::ThematicMap themes)
{
    themes_ = std::move(themes);
}

void layer::setDefaultTheme(const Theme& theme)
{
    Theme* current = DefaultTheme();
    if (current == nullptr) {
        throw std::out_of_range("layer " + std::to_string(IDLayer) + " has no default class to replace");
    }
    *current = theme;
}

bool layer::zoomVisible(float upper, float lower, std::int16_t level) const
{
    if (level != 1) {
        return level == 2;
    }
    const ParentMap& viewer = parentMap();
    const double scale = viewer.DrawScale();
    return ZoomThreshold(upper, viewer.Height()) <= scale && scale <= ZoomThreshold(lower, viewer.Height());
}

bool layer::CalculateVisibility() const
{
    return AccessLevel != ALNoAccess && zoomVisible(ZoomMax, ZoomMin, userVisibility_);
}

bool layer::CalculateLabelVisibility() const
{
    return zoomVisible(lblZoomMax, lblZoomMin, userLabelVisibility_);
}

bool layer::CalculateDirectionVisibility() const
{
    return zoomVisible(DirectionZoomMax, DirectionZoomMin, userDirectionVisibility_);
}

GridCell layer::GetRowColumn(double X, double Y, float dDeltaX, float dDeltaY)
{
    return {cellIndex(Y + 90, dDeltaY), cellIndex(X + 180, dDeltaX)};
}

GridCell layer::GetPointCell(double X, double Y) const
{
    return GetRowColumn(X, Y, GridDeltaX, GridDeltaY);
}

namespace {

// The clamped rows and columns of an area: rows by minCol and maxCol,
// columns by minRow and maxRow, and only the last index of each is lowered.
struct CellSpan {
    std::int64_t rowFirst;
    std::int64_t rowLast;
    std::int64_t colFirst;
    std::int64_t colLast;

    bool empty() const { return rowFirst > rowLast || colFirst > colLast; }
};

CellSpan spanOf(const layer& grid, double x1, double y1, double x2, double y2)
{
    const GridCell first = grid.GetPointCell(x1, y1);
    const GridCell last = grid.GetPointCell(x2, y2);
    return {std::max<std::int64_t>(first.row, grid.minCol),
            std::min<std::int64_t>(std::max(last.row, grid.minCol), grid.maxCol),
            std::max<std::int64_t>(first.column, grid.minRow),
            std::min<std::int64_t>(std::max(last.column, grid.minRow), grid.maxRow)};
}

} // namespace

std::vector<GridCell> layer::GetCellsInArea(double x1, double y1, double x2, double y2) const
{
    const CellSpan span = spanOf(*this, x1, y1, x2, y2);
    if (span.empty()) {
        return {};
    }
    const std::int64_t rows = span.rowLast - span.rowFirst + 1;
    const std::int64_t columns = span.colLast - span.colFirst + 1;
    if (rows > std::numeric_limits<std::int32_t>::max() / columns) {
        throw std::length_error("the area covers more cells than a Long counts");
    }
    std::vector<GridCell> cells;
    cells.reserve(static_cast<std::size_t>(rows * columns));
    VisitCellsInArea(x1, y1, x2, y2, [&cells](GridCell cell) {
        cells.push_back(cell);
        return true;
    });
    return cells;
}

void layer::VisitCellsInArea(double x1, double y1, double x2, double y2,
                             const std::function<bool(GridCell cell)>& visit) const
{
    const CellSpan span = spanOf(*this, x1, y1, x2, y2);
    for (std::int64_t row = span.rowFirst; row <= span.rowLast; ++row) {
        for (std::int64_t column = span.colFirst; column <= span.colLast; ++column) {
            if (!visit({static_cast<std::int32_t>(row), static_cast<std::int32_t>(column)})) {
                return;
            }
        }
    }
}

std::vector<GridCell> layer::GetEntityCells(std::int32_t ID) const
{
    const Entidad* entity = Entidades.Find(ID);
    if (entity == nullptr) {
        throw std::invalid_argument("layer " + std::to_string(IDLayer) + " has no entity " + std::to_string(ID));
    }
    std::vector<GridCell> cells;
    std::unordered_set<std::uint64_t> seen;
    for (const Vertex& vertex : entity->Points()) {
        const GridCell cell = GetPointCell(vertex.X, vertex.Y);
        if (seen.insert(cell.packed()).second) {
            cells.push_back(cell);
        }
    }
    return cells;
}

void layer::AppendDrawnID(std::int32_t ID)
{
    drawnIDs_.push_back(ID);
    drawnEntities_.push_back(Entidades.Find(ID));
}

void layer::ClearDrawnIDs()
{
    drawnIDs_.clear();
    drawnEntities_.clear();
    drawnRemovals_ = Entidades.removals();
}

std::span<Entidad* const> layer::drawnEntities()
{
    const bool stale = drawnRemovals_ != Entidades.removals();
    for (std::size_t k = 0; k < drawnIDs_.size(); ++k) {
        if (stale || drawnEntities_[k] == nullptr) {
            drawnEntities_[k] = Entidades.Find(drawnIDs_[k]);
        }
    }
    drawnRemovals_ = Entidades.removals();
    return drawnEntities_;
}

// Rejecting invisible entities: a class drawn without outline (style 5)
// hides a point or a line; a polygon also needs to be without fill (style 1).
bool layer::isShown(const Entidad& entity) const
{
    const Theme* theme = themes_.Find(entity.ThemeCode);
    if (theme == nullptr || theme->DrawStyle != 5) {
        return true;
    }
    return Tipo == polygonlayer && theme->FillStyle != 1;
}

std::int32_t layer::SelectByPoint(double X, double Y, double reach)
{
    if (!Selectable || drawnIDs_.empty()) {
        return 0;
    }
    const Entidad* hit = nullptr;
    if (Tipo >= pointlayer && Tipo <= 3) {
        hit = nearestDrawn(X, Y, std::max(kPickTolerance, reach));
    } else if (Tipo == polygonlayer) {
        hit = firstDrawnPolygonAt(X, Y);
    }
    return hit == nullptr ? 0 : hit->ID;
}

void layer::SelectByPointMany(double X, double Y, std::vector<std::int32_t>& Entities, double reach)
{
    if (!Selectable || drawnIDs_.empty()) {
        return;
    }
    if (Tipo == pointlayer) {
        appendPointsNear(X, Y, Entities, std::max(kPointsPickTolerance, reach));
        return;
    }
    const Entidad* hit = nullptr;
    if (Tipo == polylinelayer || Tipo == 3) {
        hit = nearestDrawn(X, Y, std::max(kPickTolerance, reach));
    } else if (Tipo == polygonlayer) {
        hit = firstDrawnPolygonAt(X, Y);
    }
    if (hit != nullptr) {
        appendID(Entities, hit->ID);
    }
}

const Entidad* layer::nearestDrawn(double X, double Y, double tolerance)
{
    double best = kSearchStart;
    const Entidad* nearest = nullptr;
    for (const Entidad* entity : drawnEntities()) {
        const double distance = pickDistance(entity, X, Y, tolerance);
        if (distance <= best) {
            best = distance;
            nearest = entity;
        }
    }
    return best < tolerance ? nearest : nullptr;
}

const Entidad* layer::firstDrawnPolygonAt(double X, double Y)
{
    for (const Entidad* entity : drawnEntities()) {
        if (entity != nullptr && entity->PointInPolygon(X, Y) && isShown(*entity)) {
            return entity;
        }
    }
    return nullptr;
}

// Each point goes in as it ties or improves on every one before it.
void layer::appendPointsNear(double X, double Y, std::vector<std::int32_t>& ids, double tolerance)
{
    double best = kSearchStart;
    for (const Entidad* entity : drawnEntities()) {
        const double distance = pickDistance(entity, X, Y, tolerance);
        if (distance <= best) {
            best = distance;
            if (distance < tolerance) {
                appendID(ids, entity->ID);
            }
        }
    }
}

// The entity's distance for picking. One that is not drawn is farther than
// where every search starts, and so is one whose box is out of reach: its
// distance could neither be close enough nor stop a later entity that is.
double layer::pickDistance(const Entidad* entity, double X, double Y, double tolerance) const
{
    if (entity == nullptr || outOfReach(*entity, X, Y, tolerance) || !isShown(*entity)) {
        return kNotDrawn;
    }
    return entity->DistPuntoAEntidad(X, Y);
}

std::vector<std::int32_t> layer::SelectElementsInPolygon(std::span<const double> X, std::span<const double> Y,
                                                         bool WholeElementInside)
{
    if (X.size() != Y.size()) {
        throw std::invalid_argument("the polygon has " + std::to_string(X.size()) + " X and " +
                                    std::to_string(Y.size()) + " Y coordinates");
    }
    std::vector<Vertex> ring(X.size());
    for (std::size_t k = 0; k < ring.size(); ++k) {
        ring[k] = {X[k], Y[k]};
    }
    Entidad polygon;
    polygon.SetPoints(ring);
    polygon.CalculateBoundingBox();

    std::vector<std::int32_t> hits;
    if (!bb.InterseccionCon(polygon.bb)) {
        return hits;
    }
    for (const Entidad& entity : Entidades.NewEnum()) {
        if (entity.bb.InterseccionCon(polygon.bb) && verticesInside(entity, polygon, WholeElementInside) &&
            isShown(entity)) {
            hits.push_back(entity.ID);
        }
    }
    return hits;
}

SegmentMatch layer::NearestSegmentInLayer(double x, double y)
{
    // A segment's distance is measured to its whole line, which may come
    // closer than its box: every entity is asked.
    return nearestOf(
        drawnEntities(), SegmentMatch{Entidad::kNoSegment, {}, {}},
        [x, y](const Entidad& entity) { return entity.GetNearestSegment(x, y); },
        [](const Entidad&, double) { return false; });
}

VertexMatch layer::NearestVertexInLayer(double x, double y)
{
    // A vertex lies in its entity's box, so a box out of reach of the best
    // distance so far holds no vertex as near.
    return nearestOf(
        drawnEntities(), VertexMatch{Entidad::kNoVertex, {}},
        [x, y](const Entidad& entity) { return entity.NearestVertex(x, y); },
        [x, y](const Entidad& entity, double best) { return outOfReach(entity, x, y, best); });
}

void layer::CalculateThemeObject(Entidad* ent) const
{
    if (ent == nullptr) {
        return;
    }
    ent->ThemeCode = 1;
    if (themes_.count() == 1) {
        return;
    }
    ent->ThemeCode = IsTextFieldType(ThematicFieldType) ? textClass(ent->ThemeValue) : numericClass(ent->ThemeValue);
}

// Text classes hold their value in min; the default class is a candidate too.
std::int32_t layer::textClass(std::string_view value) const
{
    const std::string_view trimmed = trimSpaces(value);
    std::int32_t position = 1;
    for (const Theme& theme : themes_.NewEnum()) {
        if (theme.min == trimmed) {
            return position;
        }
        ++position;
    }
    return 1;
}

// Numeric classes are ranges with both bounds included; the default class
// (its min is the marker text "MICanyMIC") is not a range and is skipped.
std::int32_t layer::numericClass(std::string_view value) const
{
    const double number = Val(value);
    std::int32_t position = 1;
    for (const Theme& theme : themes_.NewEnum()) {
        if (position > 1 && Val(theme.min) <= number && number <= Val(theme.max)) {
            return position;
        }
        ++position;
    }
    return 1;
}

std::int32_t layer::GetLabelIndex(const std::string& text)
{
    std::int32_t position = 1;
    for (const Dictionary& label : labels_.NewEnum()) {
        if (label.word == text) {
            return position;
        }
        ++position;
    }
    labels_.Add(text);
    return labels_.count();
}

bool layer::IsAddressLayer() const
{
    if (Tipo != polylinelayer && Tipo != 3) {
        return false;
    }
    constexpr std::array<std::string_view, 5> kAddressFields = {"STREET", "FROML", "FROMR", "TOL", "TOR"};
    return std::ranges::all_of(kAddressFields, [this](std::string_view name) {
        return std::ranges::any_of(campos_.NewEnum(), [name](const Campo& campo) { return campo.Nombre == name; });
    });
}

void layer::ResetThemes()
{
    for (Entidad& entity : Entidades.NewEnum()) {
        entity.ThemeValue.clear();
        entity.ThemeCode = 1;
    }
}

void layer::ResetLabels()
{
    for (Entidad& entity : Entidades.NewEnum()) {
        entity.IDLabel = 0;
    }
    labels_.Clear();
    requestedLabelCells_.Clear();
}

void layer::Redraw(const BoundingBox& BBox, MapCanvas& Wnd)
{
    Visible = CalculateVisibility();
    if (!Visible) {
        ClearDrawnIDs();
        return;
    }
    if (Tipo == ImageLayer) {
        drawImage(Wnd);
        return;
    }
    if (!BBox.InterseccionCon(bb) || Entidades.count() == 0) {
        ClearDrawnIDs();
        return;
    }
    const std::vector<std::int32_t> newIDs = Entidades.GetNewIDs();
    if (newIDs.empty()) {
        redrawCompletely(BBox, Wnd);
    } else {
        redrawIncrementally(newIDs, BBox, Wnd);
    }
    CalculateThemes = false;
}

// What is on screen is drawn as it was, and the arrivals over it.
void layer::redrawIncrementally(const std::vector<std::int32_t>& newIDs, const BoundingBox& BBox, MapCanvas& Wnd)
{
    for (Entidad* entity : drawnEntities()) {
        if (entity != nullptr) {
            entity->DrawWOCalc(Wnd, Tipo);
        }
    }
    for (const std::int32_t ID : newIDs) {
        Entidad* entity = Entidades.Find(ID);
        if (entity == nullptr) {
            continue;
        }
        if (ThematicType != 0) {
            CalculateThemeObject(entity);
        } else {
            entity->ThemeValue = kNoThemeValue;
        }
        if (entity->Draw(BBox, Wnd, Tipo)) {
            AppendDrawnID(ID);
        }
    }
}

void layer::redrawCompletely(const BoundingBox& BBox, MapCanvas& Wnd)
{
    ClearDrawnIDs();
    for (Entidad& entity : Entidades.NewEnum()) {
        if (ThematicType == 0) {
            entity.ThemeValue = kNoThemeValue;
        } else if (CalculateThemes) {
            CalculateThemeObject(&entity);
        }
        if (entity.Draw(BBox, Wnd, Tipo)) {
            drawnIDs_.push_back(entity.ID);
            drawnEntities_.push_back(&entity);
        }
    }
}

void layer::drawImage(MapCanvas& Wnd) const
{
    if (ImageNumber != -1) {
        Wnd.DrawImage(ImageNumber);
    }
}

void layer::RedrawWOCalc(const BoundingBox& BBox, MapCanvas& Wnd)
{
    Visible = CalculateVisibility();
    if (Visible && Tipo == ImageLayer) {
        drawImage(Wnd);
    }
    if (!Visible || Tipo == ImageLayer || !BBox.InterseccionCon(bb)) {
        return;
    }
    for (Entidad* entity : drawnEntities()) {
        if (entity != nullptr) {
            entity->DrawWOCalc(Wnd, Tipo);
        }
    }
}

std::vector<Entidad*> layer::labelledEntities(const BoundingBox& BBox, bool oncePerText)
{
    std::vector<Entidad*> labelled;
    if (!Loaded || !Visible) {
        return labelled;
    }
    lblVisible = CalculateLabelVisibility();
    if (!lblVisible || !BBox.InterseccionCon(bb) || labels_.count() == 0) {
        return labelled;
    }
    // Indexed by label position; an entity whose IDLabel has no text has
    // no label to draw either.
    std::vector<bool> used(static_cast<std::size_t>(labels_.count()) + 1, false);
    for (Entidad* entity : drawnEntities()) {
        if (entity == nullptr || !isShown(*entity) || entity->IDLabel < 0 || entity->IDLabel > labels_.count()) {
            continue;
        }
        if (oncePerText) {
            if (used[entity->IDLabel]) {
                continue;
            }
            used[entity->IDLabel] = true;
        }
        labelled.push_back(entity);
    }
    return labelled;
}

void layer::DrawLabels(const BoundingBox& BBox, MapCanvas& Wnd)
{
    for (const Entidad* entity : labelledEntities(BBox, !lblAllowDuplicates)) {
        entity->DrawEntityLabel(Wnd);
    }
}

void layer::CollectLabels(const BoundingBox& BBox, const MapCanvas& Wnd, std::size_t layerOrder,
                          std::vector<LabelCandidate>& candidates)
{
    // A name shared by a street's blocks is one candidate of all of them, so
    // that it can go on whichever block suits it best; a name shared by the
    // parts of a country goes on its largest part, not on its first island.
    const bool onePerText = !lblAllowDuplicates && Tipo != pointlayer;
    std::unordered_map<std::int32_t, std::size_t> byText;
    for (Entidad* entity : labelledEntities(BBox, !lblAllowDuplicates && !onePerText)) {
        std::optional<LabelCandidate> candidate = entity->labelCandidate(Wnd);
        if (!candidate) {
            continue;
        }
        candidate->layerOrder = layerOrder;
        if (onePerText) {
            const auto [at, first] = byText.try_emplace(entity->IDLabel, candidates.size());
            if (!first) {
                joinSameText(candidates[at->second], std::move(*candidate));
                continue;
            }
        }
        candidates.push_back(std::move(*candidate));
    }
}

void layer::joinSameText(LabelCandidate& kept, LabelCandidate&& other) const
{
    if (Tipo == polygonlayer) {
        if (other.size > kept.size) {
            kept = std::move(other);
        }
        return;
    }
    constexpr float gap = std::numeric_limits<float>::quiet_NaN();
    kept.points.push_back({gap, gap});
    kept.points.insert(kept.points.end(), other.points.begin(), other.points.end());
    kept.size += other.size;
}

void layer::DrawDirections(const BoundingBox& BBox, MapCanvas& Wnd)
{
    if (!Loaded || !Visible || (Tipo != polylinelayer && Tipo != 3)) {
        return;
    }
    DirectionVisible = CalculateDirectionVisibility();
    if (!DirectionVisible || !BBox.InterseccionCon(bb)) {
        return;
    }
    for (const Entidad* entity : drawnEntities()) {
        if (entity != nullptr) {
            entity->DrawDirection(Wnd);
        }
    }
}

void layer::resaltar(std::int32_t IDEntidad, const BoundingBox& BBox, MapCanvas& Wnd)
{
    Entidad* entity = Entidades.Find(IDEntidad);
    if (entity == nullptr) {
        return;
    }
    Theme highlight;
    const Theme* defaultClass = themes_.Find(1);
    if (defaultClass != nullptr && defaultClass->DrawWidth == 0) {
        highlight.DrawWidth = 1;
    } else if (themes_.count() > 0) {
        // An entity whose class is gone is drawn in a new class's style, so
        // it is that width that doubles.
        const Theme* entityClass = themes_.Find(entity->ThemeCode);
        const std::int64_t width = 2 * static_cast<std::int64_t>((entityClass ? *entityClass : Theme{}).DrawWidth);
        highlight.DrawWidth = static_cast<std::int32_t>(std::clamp<std::int64_t>(
            width, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    }
    highlight.DrawColor = kHighlightColor;
    entity->resaltar(BBox, Wnd, Tipo, highlight);
}

} // namespace orbelan
