#include "session/CellFieldValuesLoader.h"

#include "protocol/messages/CellFieldValues.h"
#include "session/LoadContext.h"
#include "model/MapDocument.h"
#include "session/SessionEvents.h"
#include "session/StatusList.h"
#include "session/TextCompare.h"
#include "ui/UiServices.h"
#include "protocol/WireReadError.h"

#include <QString>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace orbelan {

namespace {

using ValueReference = messages::CellFieldValues::Reference;

[[noreturn]] void abandon(const DWBUffer& message, const std::string& why)
{
    throw WireReadError(message.readPosition(), 0, message.commandCode(), why);
}

// An element id of 0 in the values of a layer of the map is reported as it is
// read, and reading goes on.
void reportElementZero(LoadContext& context, std::int32_t layerId, const std::string& field)
{
    context.ui.messageBox(context.events.dialogParent(),
                          QStringLiteral("Error when loading labels.\r\nLayer: %1, Field: %2")
                              .arg(layerId)
                              .arg(QString::fromStdString(field)),
                          MessageButtons::OK, MessageIcon::None, QStringLiteral("Proyecto Pelmarito"));
}

// The value a reference points at; a number outside the list abandons the
// rest of the message.
const std::string& valueOf(const ValueReference& reference, const std::vector<std::string>& values,
                           const DWBUffer& message)
{
    if (reference.value < 1 || static_cast<std::size_t>(reference.value) > values.size()) {
        abandon(message, "value number " + std::to_string(reference.value) + " outside the " +
                             std::to_string(values.size()) + " values sent");
    }
    return values[static_cast<std::size_t>(reference.value) - 1];
}

// A direction as the Integer it is written as: empty is 0, halves round to even.
std::int16_t directionOf(const std::string& text, const DWBUffer& message)
{
    if (text.empty()) {
        return 0;
    }
    double value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    const double rounded = std::nearbyint(value);
    if (failure != std::errc() || end != text.data() + text.size() ||
        !(rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max())) {
        abandon(message, "direction \"" + text + "\" is not an Integer");
    }
    return static_cast<std::int16_t>(rounded);
}

void applyLabels(layer& mapLayer, const std::vector<ValueReference>& references,
                 const std::vector<std::string>& texts, const DWBUffer& message)
{
    std::vector<std::int32_t> labelNumbers;
    for (const std::string& text : texts) {
        labelNumbers.push_back(mapLayer.GetLabelIndex(text));
    }
    for (const ValueReference& reference : references) {
        valueOf(reference, texts, message);
        if (Entidad* element = mapLayer.Entidades.Find(reference.element)) {
            element->IDLabel = labelNumbers[static_cast<std::size_t>(reference.value) - 1];
        }
    }
}

void applyThemes(layer& mapLayer, const std::vector<ValueReference>& references,
                 const std::vector<std::string>& values, const DWBUffer& message)
{
    for (const ValueReference& reference : references) {
        const std::string& value = valueOf(reference, values, message);
        if (Entidad* element = mapLayer.Entidades.Find(reference.element)) {
            element->ThemeValue = value;
            mapLayer.CalculateThemeObject(element);
        }
    }
}

void applyDirections(layer& mapLayer, const std::vector<ValueReference>& references,
                     const std::vector<std::string>& values, const DWBUffer& message)
{
    for (const ValueReference& reference : references) {
        const std::int16_t direction = directionOf(valueOf(reference, values, message), message);
        if (Entidad* element = mapLayer.Entidades.Find(reference.element)) {
            element->Direction = direction;
        }
    }
}

} // namespace

void loadCellFieldValues(DWBUffer& message, LoadContext& context)
{
    messages::CellFieldValues reply;
    std::vector<ValueReference> references;
    std::vector<std::string> values;
    messages::CellFieldValues::decodeEach(
        message, reply,
        [&](const ValueReference& reference) {
            if (reference.element == 0 && context.document.Layers().Find(reply.layer)) {
                reportElementZero(context, reply.layer, reply.field);
            }
            references.push_back(reference);
        },
        [&values](std::string&& value) { values.push_back(std::move(value)); });

    layer* mapLayer = context.document.Layers().Find(reply.layer);
    if (mapLayer == nullptr) {
        return;
    }
    const bool labels = sameText(reply.field, mapLayer->lblField);
    const bool themes = !labels && sameText(reply.field, mapLayer->ThematicField);
    const std::uint8_t step = labels ? StatusList::LoadingLabels : StatusList::LoadingTheme;
    if (labels || themes) {
        context.events.changeStatus(reply.layer, step, QString::fromStdString(mapLayer->Nombre));
    }
    if (labels) {
        applyLabels(*mapLayer, references, values, message);
    } else if (themes) {
        applyThemes(*mapLayer, references, values, message);
    } else if (sameText(reply.field, mapLayer->DirectionField)) {
        applyDirections(*mapLayer, references, values, message);
    }
    if (labels || themes) {
        context.events.changeStatus(reply.layer, static_cast<std::uint8_t>(StatusList::Remove + step));
    }
}

} // namespace orbelan
