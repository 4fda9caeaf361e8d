#include "protocol/messages/CellFieldValuesBuilder.h"

#include <utility>

namespace orbelan::messages {

CellFieldValuesBuilder::CellFieldValuesBuilder(std::int32_t layer, std::string field)
{
    reply_.layer = layer;
    reply_.field = std::move(field);
}

void CellFieldValuesBuilder::add(std::int32_t element, const std::string& value)
{
    const auto [entry, isNew] =
        numbers_.try_emplace(value, static_cast<std::int32_t>(reply_.values.size() + 1));
    if (isNew) {
        reply_.values.push_back(value);
    }
    reply_.references.push_back({element, entry->second});
}

CellFieldValues CellFieldValuesBuilder::take()
{
    numbers_.clear();
    return std::move(reply_);
}

} // namespace orbelan::messages
