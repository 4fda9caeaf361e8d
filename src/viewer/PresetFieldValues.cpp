#include "viewer/PresetFieldValues.h"

#include "model/layer.h"
#include "session/TextCompare.h"

#include <stdexcept>

namespace orbelan {

namespace {

std::int32_t fieldNumber(const layer& target, const QString& name)
{
    std::int32_t number = 0;
    for (const Campo& field : target.Campos()) {
        ++number;
        if (sameText(field.Nombre, name.toStdString())) {
            return number;
        }
    }
    throw std::invalid_argument("layer " + std::to_string(target.IDLayer) + " has no field \"" +
                                name.toStdString() + "\"");
}

} // namespace

std::optional<std::map<std::int32_t, std::string>> presetFieldValues(const layer& target, const QVariant& fieldInfo)
{
    if (!fieldInfo.isValid()) {
        return std::nullopt;
    }
    if (fieldInfo.typeId() != QMetaType::QVariantMap && fieldInfo.typeId() != QMetaType::QVariantHash) {
        throw std::invalid_argument("FieldInfo is not a map of field names to values");
    }
    std::map<std::int32_t, std::string> values;
    const QVariantMap given = fieldInfo.toMap();
    for (auto value = given.begin(); value != given.end(); ++value) {
        values[fieldNumber(target, value.key())] = value.value().toString().toStdString();
    }
    return values;
}

} // namespace orbelan
