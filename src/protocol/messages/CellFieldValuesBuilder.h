#pragma once

#include "protocol/messages/CellFieldValues.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace orbelan::messages {

// Builds the value list of a reply 105, numbering each distinct text once.
class CellFieldValuesBuilder {
public:
    CellFieldValuesBuilder(std::int32_t layer, std::string field);

    void add(std::int32_t element, const std::string& value);
    CellFieldValues take();

private:
    CellFieldValues reply_;
    std::unordered_map<std::string, std::int32_t> numbers_;
};

} // namespace orbelan::messages
