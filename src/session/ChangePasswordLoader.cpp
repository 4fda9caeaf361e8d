#include "session/ChangePasswordLoader.h"

#include "protocol/messages/ChangePasswordAnswer.h"
#include "session/LoadContext.h"
#include "session/SessionEvents.h"
#include "ui/UiServices.h"

namespace orbelan {

void loadChangePasswordAnswer(DWBUffer& message, LoadContext& context)
{
    using messages::ChangePasswordAnswer;
    const ChangePasswordAnswer answer = ChangePasswordAnswer::decode(message);
    QString text;
    if (answer.result == ChangePasswordAnswer::kChanged) {
        text = QStringLiteral("Password succesfully changed");
    } else if (answer.result == ChangePasswordAnswer::kWrongPassword) {
        text = QStringLiteral("Wrong Password. Please try again");
    } else {
        return;
    }
    context.ui.messageBox(context.events.dialogParent(), text, MessageButtons::OK, MessageIcon::Information,
                          QStringLiteral("Change Password"));
}

} // namespace orbelan
