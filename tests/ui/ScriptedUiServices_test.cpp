#include "ui/ScriptedUiServices.h"

#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <utility>

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

} // namespace
