#include "ui/UiServices.h"

#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace orbelan;
using enum MessageAnswer;

TEST(MessageNames, AnswerNamesParseBackInAnyLetterCase)
{
    for (MessageAnswer answer : {OK, Cancel, Abort, Retry, Ignore, Yes, No})
        EXPECT_EQ(parseAnswer(answerName(answer)), answer) << answerName(answer).toStdString();
    EXPECT_EQ(answerName(OK), "OK");
    EXPECT_EQ(parseAnswer("yes"), Yes);
    EXPECT_EQ(parseAnswer("  CANCEL\n"), Cancel);
    for (const char* text : {"", "Y", "Yess", "O K", "6"})
        EXPECT_FALSE(parseAnswer(text).has_value()) << text;
}
