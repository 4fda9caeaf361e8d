#include "session/ElementInformationLoader.h"

#include "model/MapDocument.h"
#include "protocol/messages/ElementInformation.h"
#include "session/AttributeEditing.h"
#include "session/InformationFields.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/StatusList.h"
#include "ui/UiServices.h"
#include "ui/dlgVerInfo.h"

namespace orbelan {

namespace {

void reportValues(std::int32_t elementId, const layer& mapLayer, const std::vector<InformationField>& fields,
                  LoadContext& context)
{
    QStringList names;
    QList<int> types;
    QStringList values;
    for (const InformationField& field : fields) {
        names << QString::fromStdString(field.name);
        types << field.type;
        values << QString::fromStdString(field.text);
    }
    context.events.informationArrived(mapLayer.IDLayer, elementId, names, types, values);
}

void showValues(const layer& mapLayer, const std::vector<InformationField>& fields, LoadContext& context)
{
    dlgVerInfo dialog(informationText(mapLayer.Nombre, fields), context.events.dialogParent());
    context.ui.execDialog(dialog);
}

} // namespace

void loadElementInformation(DWBUffer& message, LoadContext& context)
{
    const messages::ElementInformation reply = messages::ElementInformation::decode(message);
    context.events.changeStatus(reply.layer, StatusList::LoadingInformation);
    context.events.changeStatus(reply.layer,
                                static_cast<std::uint8_t>(StatusList::Remove + StatusList::LoadingInformation));
    const layer* mapLayer = context.document.Layers().Find(reply.layer);
    if (!reply.known || !mapLayer) {
        return;
    }
    const std::vector<InformationField> fields = informationFields(*mapLayer, reply.values);
    if (context.state.editInformation) {
        editElementValues(*mapLayer, reply.element, fields, context);
    } else if (context.state.releaseInformation) {
        reportValues(reply.element, *mapLayer, fields, context);
    } else {
        showValues(*mapLayer, fields, context);
    }
    context.events.redrawMap();
}

} // namespace orbelan
