#pragma once

#include "model/CONSTACCESSLEVEL.h"

#include <cstdint>
#include <string>

namespace orbelan {

// The settings of one layer as the layer setup dialog keeps them while the
// user reorders, drops and restyles layers.
struct CLayerSetupDef {
    std::string Nombre;
    std::int32_t IDLayer = 0;
    float ZoomMin = 0;
    float ZoomMax = 0;
    std::int16_t Order = 0;
    bool Dropped = false;
    std::int16_t UserVisibility = 0;
    CONSTACCESSLEVEL AccessLevel = ALNoAccess;
};

} // namespace orbelan
