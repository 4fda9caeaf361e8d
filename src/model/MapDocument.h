#pragma once

#include "model/BoundingBox.h"
#include "model/Layers.h"
#include "model/ParentMap.h"

#include <cstdint>
#include <string>
#include <utility>

namespace orbelan {

// The loaded map: what its definition says of it (name, extent, background,
// projection), its layers with everything that has arrived of them, and
// whether it is still loading. The Viewer's public fields of the same names
// read and write these.
class MapDocument {
public:
    // Every layer added belongs to parent, which tells it the view's height
    // and scale.
    explicit MapDocument(const ParentMap& parent) : parent_(parent) {}

    MapDocument(const MapDocument&) = delete;
    MapDocument& operator=(const MapDocument&) = delete;

    // Which map of the server is shown, and for which user.
    std::int32_t MapCode = 1;
    std::int32_t IDUser = 0;
    // The map's name, as its definition gives it.
    std::string Nombre;
    // The map's whole area in degrees, shown by ZoomExtents.
    BoundingBox mapExtent;
    // The colour the map is cleared with before each redraw.
    std::uint32_t BackgroundColor = 0xFFFFFF;
    // The map's projection code: 0 latitude/longitude, 1 Albers, 40 to 160 UTM.
    std::int32_t Projection = 0;
    // True once the geometry of a first cell has arrived.
    bool layerscargados = false;
    // True while a map or layer is loading: navigation then does nothing.
    bool busy = false;

    orbelan::Layers& Layers() { return layers_; }
    const orbelan::Layers& Layers() const { return layers_; }
    // Puts a collection in place of the map's layers; its layers belong to
    // this map from now on.
    void setLayers(orbelan::Layers layers)
    {
        for (layer& mapLayer : layers) {
            mapLayer.belongTo(parent_);
        }
        layers_ = std::move(layers);
    }
    // Adds a layer at the end, as Layers::AddLayer does, belonging to this map.
    layer& addLayer(const std::string& name, std::int32_t id, TipoLayer kind)
    {
        return layers_.AddLayer(name, id, kind, parent_);
    }

private:
    const ParentMap& parent_;
    orbelan::Layers layers_;
};

} // namespace orbelan
