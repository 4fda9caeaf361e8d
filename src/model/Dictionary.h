#pragma once

#include <string>

namespace orbelan {

// One distinct label text of a layer; entities point to it by position.
struct Dictionary {
    std::string word;
};

} // namespace orbelan
