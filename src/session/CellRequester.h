#pragma once

#include "model/GridCell.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan {

class MapDocument;
class RequestSender;
class SessionEvents;
class Viewport;
class layer;

// Which grid cells of the map are asked for, and when: each cell of the view
// once per layer for its geometry, and once for its label and direction
// values where those show. Every request shows as a step in the status list.
class CellRequester {
public:
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

private:
    void requestCellsOfLayer(layer& mapLayer, const std::vector<GridCell>& cells);

    RequestSender& sender_;
    MapDocument& document_;
    const Viewport& view_;
    SessionEvents& events_;
};

} // namespace orbelan
