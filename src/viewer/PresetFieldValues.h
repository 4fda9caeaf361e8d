#pragma once

#include <QVariant>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace orbelan {

class layer;

// The new values a host hands EditInfo: a map of field names (in any letter
// case) to values, given back by the number from 1 of each field in the
// layer's fields. Nothing when no value is given (an empty variant): the
// user is to type them. std::invalid_argument for anything but such a map,
// or for a name the layer has no field of.
std::optional<std::map<std::int32_t, std::string>> presetFieldValues(const layer& target, const QVariant& fieldInfo);

} // namespace orbelan
