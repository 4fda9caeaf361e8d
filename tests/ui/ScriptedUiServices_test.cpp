#include "ui/ScriptedUiServices.h"

#include "TestPrinters.h"

#include <QDialog>

#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

using namespace orbelan;
using enum MessageAnswer;

namespace {

// The headless host types its answers ahead of time: each one waits for a box
// that offers it, and every other box gets its default, the first button.
TEST(ScriptedUiServices, AnAnswerIsTakenOnlyByABoxThatOffersIt)
{
    ScriptedUiServices services;
    const auto ask = [&services](MessageButtons buttons) {
        return services.messageBox(nullptr, "Question", buttons, MessageIcon::Question, "Orbelan");
    };
    const std::pair<MessageButtons, MessageAnswer> defaults[] = {
        {MessageButtons::OK, OK},       {MessageButtons::OKCancel, OK}, {MessageButtons::AbortRetryIgnore, Abort},
        {MessageButtons::YesNoCancel, Yes}, {MessageButtons::YesNo, Yes}, {MessageButtons::RetryCancel, Retry},
    };
    for (const auto& [buttons, answer] : defaults)
        EXPECT_EQ(ask(buttons), answer) << answerName(answer).toStdString();

    services.queueAnswer(No);
    services.queueAnswer(Cancel);
    // Cancel is one of this box's buttons, but No is first in line.
    EXPECT_EQ(ask(MessageButtons::OKCancel), OK);
    EXPECT_EQ(services.queuedAnswers(), 2u);
    EXPECT_EQ(ask(MessageButtons::YesNoCancel), No);
    EXPECT_EQ(ask(MessageButtons::RetryCancel), Cancel);
    EXPECT_EQ(services.queuedAnswers(), 0u);
}

// The host reports every box and dialog through the observers.
TEST(ScriptedUiServices, BoxesAndDialogsAreRecordedAndObserved)
{
    ScriptedUiServices services;
    std::vector<ShownMessage> boxes;
    std::vector<ShownDialog> dialogs;
    services.setMessageObserver([&boxes](const ShownMessage& shown) { boxes.push_back(shown); });
    services.setDialogObserver([&dialogs](const ShownDialog& shown) { dialogs.push_back(shown); });
    services.queueAnswer(No);
    services.messageBox(nullptr, "Acceso Denegado", MessageButtons::OK, MessageIcon::Critical, "Orbelan Viewer");
    services.messageBox(nullptr, "Save?", MessageButtons::YesNoCancel, MessageIcon::Question, "Orbelan");

    ASSERT_EQ(services.messages().size(), 2u);
    const auto fields = [](const ShownMessage& box) {
        return std::tuple(box.icon, box.caption, box.text, box.buttons, box.answer);
    };
    EXPECT_EQ(fields(services.messages()[0]),
              std::tuple(MessageIcon::Critical, "Orbelan Viewer", "Acceso Denegado", MessageButtons::OK, OK));
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(fields(boxes[1]), std::tuple(MessageIcon::Question, "Orbelan", "Save?", MessageButtons::YesNoCancel, No));

    // Without a script a dialog is rejected, never shown.
    QDialog form;
    form.setObjectName("dlgForm");
    form.setWindowTitle("Form");
    EXPECT_EQ(services.execDialog(form), QDialog::Rejected);
    EXPECT_FALSE(form.isVisible());
    ASSERT_EQ(dialogs.size(), 1u);
    EXPECT_EQ(dialogs[0].objectName, "dlgForm");
    EXPECT_EQ(dialogs[0].caption, "Form");
    EXPECT_EQ(services.dialogs().size(), 1u);
}

} // namespace
