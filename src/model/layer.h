#pragma once

#include "model/BoundingBox.h"
#include "model/CONSTACCESSLEVEL.h"
#include "model/Campos.h"
#include "model/CellList.h"
#include "model/Entidades.h"
#include "model/GridCell.h"
#include "model/LabelCandidate.h"
#include "model/Labels.h"
#include "model/ParentMap.h"
#include "model/SegmentMatch.h"
#include "model/ThematicMap.h"
#include "model/TipoLayer.h"
#include "model/VertexMatch.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orbelan {

class MapCanvas;

// One layer of the map: what it is, when it shows, its fields, classes,
// labels and entities, the grid in which the server delivers its geometry and
// the cells already asked for, and the hit tests of the mouse tools.
//
// Coordinates and tolerances are in degrees; the grid's origin is
// (-180, -90). Hit tests work on the entities the last redraw drew
// (DrawnIDs), except SelectElementsInPolygon, which looks at them all.
//
// The public fields are the layer's properties, in their declared order,
// with the values of a new layer. The map view the layer belongs to, which
// the visibility tests at user level 1 consult, is given when it is made.
class layer {
public:
    // A hit must lie closer than this to the nearest line (or point, for a
    // single pick).
    static constexpr double kPickTolerance = 0.00065;
    // A point is picked among several when closer than this.
    static constexpr double kPointsPickTolerance = 7.5E-5;

    explicit layer(const ParentMap& parent) : parent_(&parent) {}

    BoundingBox bb;
    std::string Nombre;
    TipoLayer Tipo{};
    bool Selectable = false;
    // The result of the last CalculateVisibility that a redraw stored.
    bool Visible = false;
    orbelan::Entidades Entidades;
    // Non-zero: every entity's class is computed from its ThemeValue.
    std::int16_t ThematicType = 0;
    std::string ThematicField;
    std::int16_t ThematicFieldType = 0;
    std::int32_t IDLayer = 0;
    bool Loaded = false;
    bool CamposPedidos = false;
    float GridDeltaX = 0;
    float GridDeltaY = 0;
    float ZoomMin = 0;
    std::string lblField;
    float lblZoomMin = 0;
    float ZoomMax = 0;
    bool lblVisible = false;
    bool lblBold = false;
    std::int32_t lblColor = 0;
    float lblZoomMax = 0;
    bool lblAllowDuplicates = false;
    // The classes of all entities are recomputed at the next full redraw.
    bool CalculateThemes = true;
    bool DirectionVisible = false;
    bool DirectionBold = false;
    std::int32_t DirectionColor = 0;
    float DirectionZoomMax = 0;
    float DirectionZoomMin = 0;
    std::string DirectionField;
    CONSTACCESSLEVEL AccessLevel = ALNoAccess;
    // The grid bounds, in the order the server sends them. Mind the names:
    // minCol and maxCol bound row indices, minRow and maxRow column indices.
    std::int32_t minCol = 0;
    std::int32_t minRow = 0;
    std::int32_t maxCol = 0;
    std::int32_t maxRow = 0;
    std::string ImageName;
    std::int32_t ImageNumber = 0;

    // The user's choice for geometry, labels and direction marks: 0 hidden,
    // 1 by zoom, 2 always. Any other value is stored as 1.
    std::int16_t UserVisibility() const { return userVisibility_; }
    void setUserVisibility(std::int16_t level);
    std::int16_t UserLabelVisibility() const { return userLabelVisibility_; }
    void setUserLabelVisibility(std::int16_t level);
    std::int16_t UserDirectionVisibility() const { return userDirectionVisibility_; }
    void setUserDirectionVisibility(std::int16_t level);

    // The map view the layer belongs to.
    const ParentMap& parentMap() const { return *parent_; }
    // Moves the layer to another map view, with that view's number for its image.
    void belongTo(const ParentMap& parent)
    {
        parent_ = &parent;
        ImageNumber = parent.ImageNumberOf(ImageName);
    }

    orbelan::Labels& Labels() { return labels_; }
    const orbelan::Labels& Labels() const { return labels_; }
    void setLabels(orbelan::Labels labels);
    orbelan::Campos& Campos() { return campos_; }
    const orbelan::Campos& Campos() const { return campos_; }
    void setCampos(orbelan::Campos campos);
    orbelan::ThematicMap& ThematicMap() { return themes_; }
    const orbelan::ThematicMap& ThematicMap() const { return themes_; }
    void setThematicMap(orbelan::ThematicMap themes);
    // Class "1", or null when there is none.
    Theme* DefaultTheme() { return themes_.Find(1); }
    // Replaces the style and values of class "1"; std::out_of_range when
    // there is no class "1".
    void setDefaultTheme(const Theme& theme);

    // Whether geometry, labels and direction marks show at the Viewer's
    // current scale and height.
    bool CalculateVisibility() const;
    bool CalculateLabelVisibility() const;
    bool CalculateDirectionVisibility() const;

    // The cell of a point for the given deltas, each index rounded to the
    // nearest whole number with halves to even. std::out_of_range when an
    // index does not fit a Long (a zero delta, say).
    static GridCell GetRowColumn(double X, double Y, float dDeltaX, float dDeltaY);
    // The cell of a point in this layer's grid.
    GridCell GetPointCell(double X, double Y) const;
    // Every cell of the rectangle that lies within the grid bounds, row by
    // row. std::length_error when they would be more than a Long counts.
    std::vector<GridCell> GetCellsInArea(double x1, double y1, double x2, double y2) const;
    // Hands the same cells, in the same order, to visit one at a time until
    // it returns false; nothing is built, however many cells the area holds.
    void VisitCellsInArea(double x1, double y1, double x2, double y2,
                          const std::function<bool(GridCell cell)>& visit) const;
    // The cells of an entity's vertices, each once, in vertex order.
    // std::invalid_argument when there is no entity with that ID.
    std::vector<GridCell> GetEntityCells(std::int32_t ID) const;

    // The cells asked for: geometry, label texts or thematic values, and
    // direction values. Appending does not check for duplicates.
    void CeldaSolicitada(std::int32_t i, std::int32_t j) { requestedCells_.Append({i, j}); }
    bool RemoveCell(std::int32_t i, std::int32_t j) { return requestedCells_.RemoveFirst({i, j}); }
    bool IsCeldaSolicitada(std::int32_t i, std::int32_t j) const { return requestedCells_.Contains({i, j}); }
    void LabelCellSolicitada(std::int32_t i, std::int32_t j) { requestedLabelCells_.Append({i, j}); }
    bool IsLabelCellSolicitada(std::int32_t i, std::int32_t j) const { return requestedLabelCells_.Contains({i, j}); }
    bool RemoveLabelCell(std::int32_t i, std::int32_t j) { return requestedLabelCells_.RemoveFirst({i, j}); }
    void DirectionCellSolicitada(std::int32_t i, std::int32_t j) { requestedDirectionCells_.Append({i, j}); }
    bool RemoveDirectionCell(std::int32_t i, std::int32_t j) { return requestedDirectionCells_.RemoveFirst({i, j}); }
    bool IsDirectionCellSolicitada(std::int32_t i, std::int32_t j) const
    {
        return requestedDirectionCells_.Contains({i, j});
    }
    const CellList& RequestedCells() const { return requestedCells_; }
    const CellList& RequestedLabelCells() const { return requestedLabelCells_; }
    const CellList& RequestedDirectionCells() const { return requestedDirectionCells_; }

    // The IDs the last full redraw drew, in drawing order; a redraw empties
    // the list and appends each entity it draws.
    const std::vector<std::int32_t>& DrawnIDs() const { return drawnIDs_; }
    void AppendDrawnID(std::int32_t ID);
    void ClearDrawnIDs();

    // The drawn entity under the point, or 0: for points and lines the nearest
    // one closer than kPickTolerance (of equal distances the later one), for
    // polygons the first that contains the point. A reach beyond the
    // tolerance widens it (a few pixels of a view far out).
    std::int32_t SelectByPoint(double X, double Y, double reach = 0);
    // Adds the entities under the point to the caller's IDs: for points every
    // one closer than kPointsPickTolerance (or the reach beyond it) that ties
    // or improves on all before it, for lines and polygons the one
    // SelectByPoint finds. An ID goes into the last element when that is 0 or
    // less, else after it.
    void SelectByPointMany(double X, double Y, std::vector<std::int32_t>& Entities, double reach = 0);
    // The IDs, in collection order, of all entities with a vertex inside the
    // polygon, or with every vertex inside it when WholeElementInside.
    // std::invalid_argument when X and Y differ in length.
    std::vector<std::int32_t> SelectElementsInPolygon(std::span<const double> X, std::span<const double> Y,
                                                      bool WholeElementInside);
    // The nearest segment of any drawn entity, the later one on a tie.
    SegmentMatch NearestSegmentInLayer(double x, double y);
    // The nearest vertex of any drawn entity, the later one on a tie.
    VertexMatch NearestVertexInLayer(double x, double y);

    // Drawing, for the view box BBox in geographic degrees. Redraw stores
    // Visible and draws the entities: incrementally when entities arrived
    // since the last redraw (those drawn before are drawn again from their
    // screen positions, then the new ones get their class and are drawn and
    // appended to DrawnIDs), else completely (DrawnIDs rebuilt from every
    // entity the view shows, classes recomputed when CalculateThemes).
    // Either way CalculateThemes is cleared after. A hidden layer, or one
    // that the view misses or that has no entities, empties DrawnIDs. Image
    // layers draw their image (ImageNumber, unless -1) instead of entities.
    void Redraw(const BoundingBox& BBox, MapCanvas& Wnd);
    // Stores Visible and draws DrawnIDs again as they were drawn last.
    void RedrawWOCalc(const BoundingBox& BBox, MapCanvas& Wnd);
    // The direction marks of the drawn lines of a loaded, visible layer,
    // when they show at this scale (DirectionVisible is stored).
    void DrawDirections(const BoundingBox& BBox, MapCanvas& Wnd);
    // The labels of the drawn, shown entities of a loaded, visible layer,
    // when they show at this scale (lblVisible is stored). Unless
    // lblAllowDuplicates, a text is drawn once: for the first entity in
    // DrawnIDs that carries it.
    void DrawLabels(const BoundingBox& BBox, MapCanvas& Wnd);
    // The same labels as candidates for placement, each marked with the
    // layer's position among the map's layers. Unless lblAllowDuplicates,
    // the drawn lines that share a text make one candidate, their vertices
    // parted by a point that is not a number.
    void CollectLabels(const BoundingBox& BBox, const MapCanvas& Wnd, std::size_t layerOrder,
                       std::vector<LabelCandidate>& candidates);
    // Draws the entity highlighted: red, twice its class's width (1 when the
    // default class has width 0), and a polygon filled solid in the colour
    // of a new class.
    void resaltar(std::int32_t IDEntidad, const BoundingBox& BBox, MapCanvas& Wnd);

    // Puts the entity into its thematic class by its ThemeValue: for a text
    // field the first class whose min equals the trimmed value, for a number
    // the first class from 2 on whose bounds hold it; else class 1.
    void CalculateThemeObject(Entidad* ent) const;
    // The position of the label text, which is added when it is new.
    std::int32_t GetLabelIndex(const std::string& text);
    // A line layer with the fields of an address range.
    bool IsAddressLayer() const;
    // Every entity back to class 1 with no thematic value.
    void ResetThemes();
    // No entity labelled, no label texts, no label cells requested.
    void ResetLabels();
    bool RemoveEntity(std::int32_t ID) { return Entidades.RemoveKey(ID); }

private:
    bool zoomVisible(float upper, float lower, std::int16_t level) const;
    bool isShown(const Entidad& entity) const;
    double pickDistance(const Entidad* entity, double X, double Y, double tolerance) const;
    std::span<Entidad* const> drawnEntities();
    // The drawn, shown entities whose label shows, the first of each text
    // only when oncePerText.
    std::vector<Entidad*> labelledEntities(const BoundingBox& BBox, bool oncePerText);
    // Another element's candidate of the same text: lines join it, a polygon
    // keeps the larger of the two.
    void joinSameText(LabelCandidate& kept, LabelCandidate&& other) const;
    const Entidad* nearestDrawn(double X, double Y, double tolerance);
    const Entidad* firstDrawnPolygonAt(double X, double Y);
    void appendPointsNear(double X, double Y, std::vector<std::int32_t>& ids, double tolerance);
    std::int32_t textClass(std::string_view value) const;
    std::int32_t numericClass(std::string_view value) const;
    void redrawIncrementally(const std::vector<std::int32_t>& newIDs, const BoundingBox& BBox, MapCanvas& Wnd);
    void redrawCompletely(const BoundingBox& BBox, MapCanvas& Wnd);
    // An image layer shows its image when the view has one for it.
    void drawImage(MapCanvas& Wnd) const;

    const ParentMap* parent_;
    orbelan::ThematicMap themes_;
    orbelan::Campos campos_;
    orbelan::Labels labels_;
    // The drawn entities, found once by ID. Valid while the collection has
    // lost no element since removals were counted; a null is looked up again
    // in case the entity has arrived since.
    std::vector<std::int32_t> drawnIDs_;
    std::vector<Entidad*> drawnEntities_;
    std::uint64_t drawnRemovals_ = 0;
    CellList requestedCells_;
    CellList requestedLabelCells_;
    CellList requestedDirectionCells_;
    std::int16_t userVisibility_ = 1;
    std::int16_t userLabelVisibility_ = 0;
    std::int16_t userDirectionVisibility_ = 0;
};

} // namespace orbelan
