#include "session/AttributeEditing.h"

#include "model/layer.h"
#include "protocol/FieldValueText.h"
#include "protocol/RequestSender.h"
#include "protocol/messages/AttributeUpdate.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "ui/UiServices.h"
#include "ui/dlgEditInfo.h"

#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

namespace orbelan {

namespace {

// New values by field number, from 1.
using FieldValues = std::map<std::int32_t, std::string>;

QString typeName(std::int16_t type)
{
    switch (wireTypeOf(type)) {
    case WireType::Integer: return QStringLiteral("Integer");
    case WireType::Long: return QStringLiteral("Long");
    case WireType::Single: return QStringLiteral("Single");
    case WireType::Double: return QStringLiteral("Double");
    case WireType::String: return QStringLiteral("Text");
    case WireType::None: break;
    }
    return QStringLiteral("Type %1").arg(type);
}

// The fields that belong to the layer can change; values past them cannot.
std::size_t editableCount(const layer& mapLayer, const std::vector<InformationField>& fields)
{
    return std::min(fields.size(), static_cast<std::size_t>(mapLayer.Campos().count()));
}

std::optional<FieldValues> askValues(std::size_t count, const std::vector<InformationField>& fields,
                                     LoadContext& context)
{
    QList<EditableField> shown;
    for (std::size_t i = 0; i < count; ++i) {
        const InformationField& field = fields[i];
        shown.push_back({QString::fromStdString(field.name), field.type, typeName(field.type),
                         QString::fromStdString(field.text), wireTypeOf(field.type) != WireType::None});
    }
    dlgEditInfo dialog(shown, context.events.dialogParent());
    context.ui.execDialog(dialog);
    if (dialog.cancelled()) {
        return std::nullopt;
    }
    FieldValues typed;
    const QStringList texts = dialog.values();
    for (qsizetype i = 0; i < texts.size(); ++i) {
        typed[static_cast<std::int32_t>(i + 1)] = texts[i].toStdString();
    }
    return typed;
}

// The text a field keeps of a value: numbers in their plain form, as the
// field's type holds them; nothing when the type cannot hold the value.
std::optional<std::string> storedText(const std::string& value, std::int16_t type)
{
    const WireType wire = wireTypeOf(type);
    if (wire == WireType::String) {
        return value;
    }
    const std::optional<double> number = wire == WireType::None ? std::nullopt : storedNumber(value, wire);
    return number ? std::optional(numberText(*number, wire)) : std::nullopt;
}

void refuse(const std::string& value, const InformationField& field, LoadContext& context)
{
    context.ui.messageBox(context.events.dialogParent(),
                          QStringLiteral("The value \"%1\" does not fit the field %2 (%3).\r\nNothing was updated.")
                              .arg(QString::fromStdString(value), QString::fromStdString(field.name),
                                   typeName(field.type)),
                          MessageButtons::OK, MessageIcon::Exclamation, QStringLiteral("Orbelan"));
}

// Where the client holds the element: the first cell the request knew, else
// the cell of the centre of the element's box; 0 0 when it is not loaded.
GridCell cellOf(const layer& mapLayer, std::int32_t elementId, const SessionState& state)
{
    if (!state.editCellI.empty() && !state.editCellJ.empty()) {
        return {state.editCellI.front(), state.editCellJ.front()};
    }
    const Entidad* element = mapLayer.Entidades.Find(elementId);
    if (!element) {
        return {};
    }
    try {
        return mapLayer.GetPointCell((element->bb.MinX + element->bb.MaxX) / 2,
                                     (element->bb.MinY + element->bb.MaxY) / 2);
    } catch (const std::out_of_range&) {
        return {};
    }
}

} // namespace

void editElementValues(const layer& mapLayer, std::int32_t elementId, const std::vector<InformationField>& fields,
                       LoadContext& context)
{
    const std::size_t count = editableCount(mapLayer, fields);
    std::optional<FieldValues> given = std::exchange(context.state.presetEditValues, std::nullopt);
    if (!given) {
        given = askValues(count, fields, context);
    }
    if (!given) {
        return;
    }
    const GridCell cell = cellOf(mapLayer, elementId, context.state);
    std::vector<messages::AttributeUpdate> updates;
    for (const auto& [number, value] : *given) {
        if (number < 1 || static_cast<std::size_t>(number) > count) {
            continue;
        }
        const InformationField& field = fields[static_cast<std::size_t>(number) - 1];
        if (value == field.text) {
            continue;
        }
        const std::optional<std::string> stored = storedText(value, field.type);
        if (!stored) {
            refuse(value, field, context);
            return;
        }
        if (*stored != field.text) {
            updates.push_back({mapLayer.IDLayer, elementId, cell.row, cell.column, number, field.type, *stored});
        }
    }
    for (const messages::AttributeUpdate& update : updates) {
        sendMessage(context.requests, update);
    }
}

} // namespace orbelan
