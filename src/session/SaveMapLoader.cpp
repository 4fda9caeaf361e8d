#include "session/SaveMapLoader.h"

#include "protocol/messages/SaveMapAnswer.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "ui/UiServices.h"

namespace orbelan {

void loadSaveMapAnswer(DWBUffer& message, LoadContext& context)
{
    using messages::SaveMapAnswer;
    const SaveMapAnswer answer = SaveMapAnswer::decode(message);
    QString text;
    switch (answer.result) {
    case SaveMapAnswer::kSaved: text = QStringLiteral("Mapa guardado con éxito!"); break;
    case SaveMapAnswer::kInvalidName: text = QStringLiteral("Nombre Inválido. Intente de nuevo"); break;
    case SaveMapAnswer::kUnexpectedError: text = QStringLiteral("Error inesperado."); break;
    default: return;
    }
    context.ui.messageBox(context.events.dialogParent(), text, MessageButtons::OK, MessageIcon::None,
                          QStringLiteral("Orbelan"));
}

} // namespace orbelan
