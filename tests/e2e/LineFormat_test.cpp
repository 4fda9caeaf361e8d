#include "orbelan-viewer/LineFormat.h"

#include <QFont>

#include <gtest/gtest.h>

using namespace orbelan::lineformat;

namespace {

TEST(LineFormat, QuotedTextsSplitBackIntoTheSameWords)
{
    const QStringList texts = {"plain", "with blank", "tab\tand\nnew line\r", "back\\slash",
                               "\"quoted\"", "", "Polígono Nuevo"};
    QString line = QStringLiteral("cmd");
    for (const QString& text : texts) {
        line += ' ' + quote(text);
    }
    EXPECT_EQ(splitWords(line), QStringList{"cmd"} + texts);
}

TEST(LineFormat, WordsAreSeparatedByAnyRunOfBlanks)
{
    EXPECT_EQ(splitWords("  mouse   down 1\t20 30  "), (QStringList{"mouse", "down", "1", "20", "30"}));
    EXPECT_EQ(splitWords(""), QStringList{});
    EXPECT_EQ(splitWords("say \"unterminated"), std::nullopt);
    EXPECT_EQ(splitWords("call [a,\"\"]"), (QStringList{"call", "[a,\"\"]"}));
}

TEST(LineFormat, ValuesPrintInTheirShortestExactForm)
{
    EXPECT_EQ(formatValue(-69.123456789012), "-69.123456789012");
    EXPECT_EQ(formatValue(0.1f), "0.1");
    EXPECT_EQ(formatValue(1e37), "1e+37");
    EXPECT_EQ(formatValue(42), "42");
    EXPECT_EQ(formatValue(true), "true");
    EXPECT_EQ(formatValue(QString("a \"b\"")), "\"a \\\"b\\\"\"");
    EXPECT_TRUE(formatValue(QFont("Arial", 10)).startsWith("\"Arial,10,"));
    EXPECT_EQ(formatValue(QVariant::fromValue(QList<int>{1, -2, 3})), "[1,-2,3]");
    EXPECT_EQ(formatValue(QStringList{"x", "y z"}), "[\"x\",\"y z\"]");
    EXPECT_EQ(formatValue(QVariant::fromValue(QList<int>{})), "[]");
}

} // namespace
