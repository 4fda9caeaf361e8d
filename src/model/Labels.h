#pragma once

#include "model/Dictionary.h"
#include "model/KeyedCollection.h"

#include <cstdint>
#include <string>

namespace orbelan {

// The distinct label texts of a layer. Each text is keyed by the decimal text
// of the count at the time it was added plus one, so after Clear numbering
// starts again at "1"; an entity's IDLabel is the position of its text.
class Labels : public KeyedCollection<Dictionary, std::int32_t> {
public:
    Dictionary& Add(std::string word);
};

} // namespace orbelan
