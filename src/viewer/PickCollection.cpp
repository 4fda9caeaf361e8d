#include "viewer/PickCollection.h"

#include <algorithm>

namespace orbelan {

void PickCollection::add(std::int32_t id)
{
    if (members_.insert(id).second) {
        ids_.push_back(id);
    }
}

void PickCollection::remove(std::int32_t id)
{
    if (members_.erase(id) != 0) {
        ids_.erase(std::find(ids_.begin(), ids_.end(), id));
    }
}

void PickCollection::clear()
{
    ids_.clear();
    members_.clear();
}

} // namespace orbelan
