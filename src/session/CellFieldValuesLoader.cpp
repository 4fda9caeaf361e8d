#include "session/CellFieldValuesLoader.h"

#include "protocol/messages/CellFieldValues.h"
#include "session/CellRequester.h"
#include "session/DirectionText.h"
#include "session/LoadContext.h"
#include "protocol/RequestSender.h"
#include "model/MapDocument.h"
#include "session/SessionEvents.h"
#include "session/StatusList.h"
#include "session/TextCompare.h"
#include "ui/UiServices.h"
#include "protocol/WireReadError.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace orbelan {

namespace {

using ValueReference = messages::CellFieldValues::Reference;

[[noreturn]] void abandon(const DWBUffer& message, const std::string& why)
{
    throw WireReadError(message.readPosition(), 0, message.commandCode(), why);
}

// An element id of 0 in the values of a layer of the map is reported once per
// reply, when the first is read, and reading goes on.
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

// Each apply function passes over the pairs of elements the layer does not
// hold before their value number is looked at.
void applyLabels(layer& mapLayer, const std::vector<ValueReference>& references,
                 const std::vector<std::string>& texts, const DWBUffer& message)
{
    std::vector<std::int32_t> labelNumbers;
    for (const std::string& text : texts) {
        labelNumbers.push_back(mapLayer.GetLabelIndex(text));
    }
    for (const ValueReference& reference : references) {
        if (Entidad* element = mapLayer.Entidades.Find(reference.element)) {
            valueOf(reference, texts, message);
            element->IDLabel = labelNumbers[static_cast<std::size_t>(reference.value) - 1];
        }
    }
}

void applyThemes(layer& mapLayer, const std::vector<ValueReference>& references,
                 const std::vector<std::string>& values, const DWBUffer& message)
{
    for (const ValueReference& reference : references) {
        if (Entidad* element = mapLayer.Entidades.Find(reference.element)) {
            element->ThemeValue = valueOf(reference, values, message);
            mapLayer.CalculateThemeObject(element);
        }
    }
}

void applyDirections(layer& mapLayer, const std::vector<ValueReference>& references,
                     const std::vector<std::string>& values, const DWBUffer& message)
{
    for (const ValueReference& reference : references) {
        if (Entidad* element = mapLayer.Entidades.Find(reference.element)) {
            element->Direction = directionOfText(valueOf(reference, values, message), message);
        }
    }
}

// The values go where the field says: labels, themes or directions; the
// loading of labels and themes shows as a step while they are applied.
void applyValues(layer& mapLayer, const messages::CellFieldValues& reply,
                 const std::vector<ValueReference>& references, const std::vector<std::string>& values,
                 const DWBUffer& message, LoadContext& context)
{
    const bool labels = sameText(reply.field, mapLayer.lblField);
    const bool themes = !labels && sameText(reply.field, mapLayer.ThematicField);
    const std::uint8_t step = labels ? StatusList::LoadingLabels : StatusList::LoadingTheme;
    if (labels || themes) {
        context.events.changeStatus(reply.layer, step, QString::fromStdString(mapLayer.Nombre));
    }
    if (labels) {
        applyLabels(mapLayer, references, values, message);
    } else if (themes) {
        applyThemes(mapLayer, references, values, message);
    } else if (sameText(reply.field, mapLayer.DirectionField)) {
        applyDirections(mapLayer, references, values, message);
    }
    if (labels || themes) {
        context.events.changeStatus(reply.layer, static_cast<std::uint8_t>(StatusList::Remove + step));
    }
}

} // namespace

void loadCellFieldValues(DWBUffer& message, LoadContext& context)
{
    messages::CellFieldValues reply;
    std::vector<ValueReference> references;
    std::vector<std::string> values;
    bool elementZeroReported = false;
    messages::CellFieldValues::decodeEach(
        message, reply,
        [&](const ValueReference& reference) {
            if (reference.element == 0 && !elementZeroReported && context.document.Layers().Find(reply.layer)) {
                reportElementZero(context, reply.layer, reply.field);
                elementZeroReported = true;
            }
            references.push_back(reference);
        },
        [&values](std::string&& value) { values.push_back(std::move(value)); });

    if (layer* mapLayer = context.document.Layers().Find(reply.layer)) {
        context.cells.valuesArrived(*mapLayer, reply.field);
        applyValues(*mapLayer, reply, references, values, message, context);
    }
    if (context.requests.pendingRequests() == 0) {
        context.events.redrawMap();
    }
}

} // namespace orbelan
