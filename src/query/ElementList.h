#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace orbelan {

// What the element list shows: the elements that met a condition ("FIND"),
// or a given group of elements ("VIEW", operator 11 and no values), each
// with a text that describes it.
struct ElementList {
    QString mode;
    std::int32_t layerId = 0;
    QString field;
    std::int16_t fieldType = 0;
    std::uint8_t op = 0;
    QString value1;
    QString value2;
    std::vector<std::int32_t> ids;
    // One per id.
    QStringList texts;
};

} // namespace orbelan
