#pragma once

#include <stdexcept>
#include <string>

namespace orbelan {

// Raised when an element is added to a keyed collection under a key that one
// of its elements already has. The collection is left as it was.
class DuplicateKeyError : public std::invalid_argument {
public:
    explicit DuplicateKeyError(const std::string& key);
};

} // namespace orbelan
