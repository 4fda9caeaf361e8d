#include "query/LayerByName.h"

#include "model/Layers.h"

namespace orbelan {

const layer* layerByName(const Layers& layers, const QString& name)
{
    const std::string wanted = name.toStdString();
    for (const layer& mapLayer : layers) {
        if (mapLayer.Nombre == wanted)
            return &mapLayer;
    }
    return nullptr;
}

} // namespace orbelan
