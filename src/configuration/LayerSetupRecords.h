#pragma once

#include "model/CLayerSetupDef.h"

#include <QString>

#include <span>
#include <vector>

namespace orbelan {

class Layers;

// The records of the map setup, one per layer, from the last layer of the
// collection to the first: the order in which the dialog lists them.
std::vector<CLayerSetupDef> layerSetupRecords(const Layers& layers);

// Puts the layers in the records' order (the first record's layer drawn
// last, on top of the others, as the list shows it), gives them the records' zoom
// ranges and user visibility, and takes the dropped ones out of the
// collection. A record whose layer is gone is passed over.
void applyLayerSetup(Layers& layers, std::span<const CLayerSetupDef> records);

// The record's line in the dialog's list: name, zoom range, access and
// "Dropped" when it is.
QString layerSetupLine(const CLayerSetupDef& record);

} // namespace orbelan
