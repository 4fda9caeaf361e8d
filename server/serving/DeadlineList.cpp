#include "serving/DeadlineList.h"

namespace orbelan::server {

void DeadlineList::touch(std::uint64_t key, Clock::time_point time)
{
    const auto found = where_.find(key);
    if (found == where_.end()) {
        add(key, time);
    } else if (found->second->second != time) {
        found->second->second = time;
        order_.splice(order_.end(), order_, found->second);
    }
}

void DeadlineList::add(std::uint64_t key, Clock::time_point time)
{
    if (!where_.contains(key)) {
        where_.emplace(key, order_.insert(order_.end(), {key, time}));
    }
}

void DeadlineList::remove(std::uint64_t key)
{
    if (const auto found = where_.find(key); found != where_.end()) {
        order_.erase(found->second);
        where_.erase(found);
    }
}

std::vector<std::uint64_t> DeadlineList::before(Clock::time_point limit) const
{
    std::vector<std::uint64_t> keys;
    for (auto entry = order_.begin(); entry != order_.end() && entry->second < limit; ++entry) {
        keys.push_back(entry->first);
    }
    return keys;
}

} // namespace orbelan::server
