#include "viewer/PickCollection.h"

#include <algorithm>

namespace orbelan {

void PickCollection::add(std::int32_t id)
{
    if (!contains(id)) {
        ids_.push_back(id);
    }
}

void PickCollection::remove(std::int32_t id)
{
    std::erase(ids_, id);
}

bool PickCollection::contains(std::int32_t id) const
{
    return std::ranges::find(ids_, id) != ids_.end();
}

} // namespace orbelan
