#pragma once

#include <cstdint>
#include <string>

namespace orbelan {

// One attribute field of a layer: its data-type code (see protocol/FieldTypes.h) and
// its name.
struct Campo {
    std::int16_t Tipo = 0;
    std::string Nombre;
};

} // namespace orbelan
