#include "model/DuplicateKeyError.h"

namespace orbelan {

DuplicateKeyError::DuplicateKeyError(const std::string& key)
    : std::invalid_argument("the key \"" + key + "\" is already associated with an element of this collection")
{
}

} // namespace orbelan
