#pragma once

#include "model/Campo.h"
#include "model/KeyedCollection.h"

#include <cstdint>
#include <string>

namespace orbelan {

// The attribute fields of a layer, keyed by field name.
class Campos : public KeyedCollection<Campo, std::string> {
public:
    // DuplicateKeyError when a field of that name exists.
    Campo& Add(const std::string& Nombre, std::int16_t Tipo);
};

} // namespace orbelan
