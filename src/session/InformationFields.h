#pragma once

#include "protocol/messages/TypedValue.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan {

class layer;

// One value of an element with the field it belongs to.
struct InformationField {
    std::string name;
    std::int16_t type = 0;
    std::string text;
};

// The values of an element paired with the layer's fields in order: each
// takes its field's name and type. A value past the last field keeps the
// type it came with and has no name.
std::vector<InformationField> informationFields(const layer& mapLayer,
                                                const std::vector<messages::TypedValue>& values);

// The values as the information dialog shows them: "Layer: " and the layer's
// name, then each field's name, ": " and its value without surrounding
// blanks, every line followed by an empty one (CR LF CR LF).
QString informationText(const std::string& layerName, const std::vector<InformationField>& fields);

} // namespace orbelan
