#include "protocol/Windows1252.h"

#include <gtest/gtest.h>

using namespace orbelan::windows1252;

namespace {

TEST(Windows1252, SpanishTextsSurviveTheRoundTrip)
{
    for (const char* text : {"Polígono Nuevo", "Selección Múltiple", "Año, señal, ¿qué? ¡Sí! Ü",
                             "Acceso Denegado", ""}) {
        EXPECT_EQ(toUtf8(fromUtf8(text)), text);
    }
    EXPECT_EQ(fromUtf8("Polígono"), "Pol\xEDgono");
    EXPECT_EQ(fromUtf8("Selección"), "Selecci\xF3n");
}

TEST(Windows1252, TheCodePagesOwnCharactersAbove0x7FAreMapped)
{
    EXPECT_EQ(fromUtf8("€ “quote” – Œ ™ Ÿ"), "\x80 \x93quote\x94 \x96 \x8C \x99 \x9F");
    EXPECT_EQ(toUtf8("\x80\x85\x8A\x9E"), "€…Šž");
}

TEST(Windows1252, EveryByteSurvivesDecodeThenEncode)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(fromUtf8(toUtf8(all)), all);
}

TEST(Windows1252, CharactersWithoutACodeBecomeQuestionMarks)
{
    EXPECT_EQ(fromUtf8("Ωmega 北京 😀"), "?mega ?? ?");
    // C1 controls other than the five undefined bytes have no code either.
    EXPECT_EQ(fromUtf8("\xC2\x80"), "?");
    EXPECT_EQ(fromUtf8("\xC2\x81"), "\x81");
}

TEST(Windows1252, MalformedUtf8BecomesOneQuestionMarkPerByte)
{
    EXPECT_EQ(fromUtf8("a\xFF" "b"), "a?b");
    EXPECT_EQ(fromUtf8("\xC3"), "?");                 // truncated sequence
    EXPECT_EQ(fromUtf8("\xC3(x"), "?(x");              // bad continuation
    EXPECT_EQ(fromUtf8("\xC0\xAF"), "??");             // overlong "/"
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), "???");        // surrogate
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), "????");   // beyond U+10FFFF
}

} // namespace
