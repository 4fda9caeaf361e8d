#include "viewer/PickCollection.h"

namespace orbelan {

void PickCollection::add(std::int32_t id)
{
    if (members_.insert(id).second) {
        ids_.push_back(id);
    }
}

void PickCollection::clear()
{
    ids_.clear();
    members_.clear();
}

} // namespace orbelan
