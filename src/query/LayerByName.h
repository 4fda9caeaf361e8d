#pragma once

#include <QString>

namespace orbelan {

class Layers;
class layer;

// The first layer of the map with the name; null when none has it.
const layer* layerByName(const Layers& layers, const QString& name);

} // namespace orbelan
