#include "session/ResultTableLoader.h"

#include "model/MapDocument.h"
#include "protocol/FieldTypes.h"
#include "protocol/RequestSender.h"
#include "protocol/messages/Condition.h"
#include "protocol/messages/ElementInformationRequest.h"
#include "protocol/messages/ResultTable.h"
#include "query/InfoGridModel.h"
#include "query/UnionBoxCells.h"
#include "query/dlgShowInfoElements.h"
#include "query/dlgViewConditionElements.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "ui/UiServices.h"

namespace orbelan {

namespace {

const QString kCaption = QStringLiteral("Orbelan");
// More rows than this are cut to kShownRows.
constexpr std::size_t kMostRows = 10000;
constexpr std::size_t kShownRows = 9997;
const std::string kDescriptionField = "KEYDESC";

bool nothingFound(const messages::ResultTable& table)
{
    return table.rowCount() == 1 && table.ids.front() == 0;
}

std::vector<GridColumn> gridColumns(const layer* target)
{
    std::vector<GridColumn> columns{{QStringLiteral("# Element"), 0, false}};
    if (target) {
        for (const Campo& field : target->Campos())
            columns.push_back({QString::fromStdString(field.Nombre), field.Tipo, !IsTextFieldType(field.Tipo)});
    }
    return columns;
}

bool editable(const layer* target)
{
    return target && (target->AccessLevel == ALEditor || target->AccessLevel == ALDraw);
}

void sendUpdate(const messages::ResultTable& table, const layer& target, const GridChanges& changes,
                LoadContext& context)
{
    if (changes.fields.empty() || changes.ids.empty())
        return;
    const CellLists cells = unionBoxCells(target, changes.ids);
    sendMessage(context.requests,
                messages::MultipleAttributeUpdate{table.layer, changes.ids, cells.first, cells.second, changes.fields});
}

void showInformationGrid(const messages::ResultTable& table, LoadContext& context)
{
    const layer* target = context.document.Layers().Find(table.layer);
    std::size_t shown = table.rowCount();
    if (shown > kMostRows) {
        context.ui.messageBox(context.events.dialogParent(),
                              QStringLiteral("Demasiados elementos más de 10000, solamente 9997 aparecen en esta "
                                             "ventana!!!"),
                              MessageButtons::OK, MessageIcon::Exclamation, kCaption);
        shown = kShownRows;
    }
    dlgShowInfoElements dialog(std::make_unique<InfoGridModel>(gridColumns(target), table, shown), table.layer,
                               editable(target), context.events, context.events.dialogParent());
    context.ui.execDialog(dialog);
    if (!dialog.cancelled() && target)
        sendUpdate(table, *target, dialog.edits().changes(target->Campos()), context);
}

// The 1-based position of the layer's field of that name; 0 when it has none.
std::size_t fieldPosition(const layer* target, const std::string& name)
{
    std::size_t position = 0;
    if (target) {
        for (const Campo& field : target->Campos()) {
            ++position;
            if (field.Nombre == name)
                return position;
        }
    }
    return 0;
}

// The list describes each element by its KEYDESC value when the layer has
// that field, else by its id.
ElementList listOf(const messages::ResultTable& table, const layer* target)
{
    const std::size_t described = fieldPosition(target, kDescriptionField);
    ElementList list{QStringLiteral("VIEW"), table.layer, QStringLiteral("IDINFO"), fieldtype::kInteger,
                     messages::conditionop::kGivenElements, {}, {}, table.ids, {}};
    if (described > 0 && described <= table.valuesPerRow()) {
        list.field = QString::fromStdString(kDescriptionField);
        list.fieldType = fieldtype::kVarChar;
    }
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        list.texts << (list.fieldType == fieldtype::kVarChar
                           ? QString::fromStdString(table.value(row, described - 1))
                           : QString::number(table.ids[row]));
    }
    return list;
}

void editElement(const messages::ResultTable& table, const layer* target, std::int32_t id, LoadContext& context)
{
    const CellLists cells = target ? unionBoxCells(*target, table.ids) : CellLists{};
    context.state.editInformation = true;
    context.state.editCellI = cells.first;
    context.state.editCellJ = cells.second;
    context.state.presetEditValues.reset();
    sendMessage(context.requests, messages::ElementInformationRequest{table.layer, id});
}

void showElementList(const messages::ResultTable& table, LoadContext& context)
{
    const layer* target = context.document.Layers().Find(table.layer);
    const ElementList list = listOf(table, target);
    for (;;) {
        dlgViewConditionElements dialog(list, target, context.events, context.events.dialogParent());
        context.ui.execDialog(dialog);
        if (dialog.mode() != QLatin1String("EDIT"))
            return;
        editElement(table, target, dialog.chosenId(), context);
    }
}

} // namespace

void loadResultTable(DWBUffer& message, LoadContext& context)
{
    const messages::ResultTable table = messages::ResultTable::decode(message);
    if (nothingFound(table)) {
        context.ui.messageBox(context.events.dialogParent(), QStringLiteral("No elements found."), MessageButtons::OK,
                              MessageIcon::Information, kCaption);
    } else if (context.state.resultTableMode == 0) {
        showElementList(table, context);
    } else {
        showInformationGrid(table, context);
    }
}

} // namespace orbelan
