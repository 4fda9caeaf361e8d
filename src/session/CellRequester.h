#pragma once

#include "model/GridCell.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace orbelan {

class BoundingBox;
class MapDocument;
class RequestSender;
class SessionEvents;
class Viewport;
class layer;

// Which grid cells of the map are asked for, and when: each cell of the view
// once per layer for its geometry, and once for its label and direction
// values where those show. Every request shows as a step in the status list.
//
// One view asks for at most kCellsPerView cells of a layer; the status list
// then says so, and a later view asks for more. The cells whose replies are
// awaited are remembered until they arrive, so that when the connection loses
// them they are marked as never asked for, and a later view asks again.
class CellRequester {
public:
    static constexpr int kCellsPerView = 4096;

    CellRequester(RequestSender& sender, MapDocument& document, const Viewport& view, SessionEvents& events);

    // Asks for the grid cells of the view never asked for: geometry of every
    // visible layer, label and direction values where those show.
    void requestCellsOfView();
    // Asks for the geometry of one cell of a layer.
    void requestCell(const layer& mapLayer, GridCell cell);
    // Asks for one field's values in a cell of the layer; label and thematic
    // requests show as such in the status list.
    void requestFieldValues(const layer& mapLayer, GridCell cell, const std::string& field);
    // Asks for every geometry cell the layer asked for before, again, in order.
    void requestCellsAgain(const layer& mapLayer);

    // The geometry of a cell has arrived.
    void cellArrived(const layer& mapLayer, GridCell cell);
    // The values of a field for the oldest such request of the layer have
    // arrived (the reply does not name its cell; replies come in order).
    void valuesArrived(const layer& mapLayer, const std::string& field);
    // The replies awaited are lost: their cells count as never asked for.
    void forgetAwaited();

private:
    enum class Kind { Geometry, Labels, Directions, Themes, Other };
    struct Awaited {
        std::int32_t layerId;
        Kind kind;
        GridCell cell;
    };

    void requestCellsOfLayer(layer& mapLayer, const BoundingBox& view);
    static bool missing(const layer& mapLayer, GridCell cell, bool labels, bool directions);
    void requestMissing(layer& mapLayer, GridCell cell, bool labels, bool directions);
    void arrived(const std::function<bool(const Awaited&)>& matches);
    static Kind kindOf(const layer& mapLayer, const std::string& field);

    RequestSender& sender_;
    MapDocument& document_;
    const Viewport& view_;
    SessionEvents& events_;
    // In the order asked for, which is the order the replies come in.
    std::deque<Awaited> awaited_;
};

} // namespace orbelan
