#include "session/FindResultLoader.h"

#include "model/MapDocument.h"
#include "protocol/messages/FindByConditionResult.h"
#include "query/dlgViewConditionElements.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "ui/UiServices.h"

namespace orbelan {

void loadFindResult(DWBUffer& message, LoadContext& context)
{
    const messages::FindByConditionResult result = messages::FindByConditionResult::decode(message);
    const messages::Condition& condition = result.condition;
    ElementList list{QStringLiteral("FIND"),
                     condition.layer,
                     QString::fromStdString(condition.field),
                     condition.fieldType,
                     condition.op,
                     QString::fromStdString(condition.value1),
                     QString::fromStdString(condition.value2),
                     {},
                     {}};
    for (const messages::FindByConditionResult::Found& found : result.elements) {
        list.ids.push_back(found.id);
        list.texts << QString::fromStdString(found.value);
    }
    dlgViewConditionElements dialog(std::move(list), context.document.Layers().Find(condition.layer), context.events,
                                    context.events.dialogParent());
    context.ui.execDialog(dialog);
}

} // namespace orbelan
