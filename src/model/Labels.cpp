#include "model/Labels.h"

#include <memory>
#include <utility>

namespace orbelan {

Dictionary& Labels::Add(std::string word)
{
    return InsertNumbered(std::make_unique<Dictionary>(Dictionary{std::move(word)}));
}

} // namespace orbelan
