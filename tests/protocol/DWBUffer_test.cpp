#include "protocol/DWBUffer.h"
#include "protocol/WireReadError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using orbelan::DWBUffer;
using orbelan::WireReadError;
using Bytes = std::vector<std::uint8_t>;

namespace {

// A thematic-class style message written out byte by byte from the layout:
// Long 42, Integer 1, String "0", String "Pérez", Long 255, Integer -1,
// Single 1.5, Double -69, Byte 7.
const Bytes kGolden = {
    'M', 'I', 'C', ' ', 45, 0, 0, 0,        // signature, total length 45
    109, 0,                                 // command 109
    42, 0, 0, 0,                            // Long 42
    1, 0,                                   // Integer 1
    1, 0, '0',                              // String "0"
    5, 0, 'P', 0xE9, 'r', 'e', 'z',         // String "Pérez" in Windows-1252
    0xFF, 0, 0, 0,                          // Long 255
    0xFF, 0xFF,                             // Integer -1
    0, 0, 0xC0, 0x3F,                       // Single 1.5
    0, 0, 0, 0, 0, 0x40, 0x51, 0xC0,        // Double -69
    7,                                      // Byte 7
};

DWBUffer goldenBuilt()
{
    DWBUffer message;
    message.CrearHeader();
    message.PutInteger(109);
    message.PutLong(42);
    message.PutInteger(1);
    message.PutString("0");
    message.PutString("Pérez");
    message.PutLong(255);
    message.PutInteger(-1);
    message.PutSingle(1.5f);
    message.PutDouble(-69.0);
    message.PutByte(7);
    message.cerrarMensaje(0);
    return message;
}

// Reads the golden payload in field order, as a handler would.
void readGoldenPayload(DWBUffer& message)
{
    message.GetLong();
    message.GetLong();
    EXPECT_EQ(message.GetInteger(), 109);
    EXPECT_EQ(message.GetLong(), 42);
    EXPECT_EQ(message.GetInteger(), 1);
    EXPECT_EQ(message.GetString(), "0");
    EXPECT_EQ(message.GetString(), "Pérez");
    EXPECT_EQ(message.GetLong(), 255);
    EXPECT_EQ(message.GetInteger(), -1);
    EXPECT_EQ(message.GetSingle(), 1.5f);
    EXPECT_EQ(message.GetDouble(), -69.0);
    EXPECT_EQ(message.GetByte(), 7);
}

TEST(DWBUfferWriting, TypedPutsProduceTheWireLayoutOfTheirExactLength)
{
    EXPECT_EQ(goldenBuilt().buffer(), kGolden);
    DWBUffer header;
    header.CrearHeader();
    header.cerrarMensaje(0);
    EXPECT_EQ(header.buffer(), (Bytes{'M', 'I', 'C', ' ', 8, 0, 0, 0}));

    DWBUffer request;
    request.CrearHeader();
    request.PutInteger(1);
    request.PutLong(3);
    request.cerrarMensaje(0);
    EXPECT_EQ(request.buffer(), (Bytes{'M', 'I', 'C', ' ', 14, 0, 0, 0, 1, 0, 3, 0, 0, 0}));
}

TEST(DWBUfferWriting, StringsCarryTheirCharacterCount)
{
    DWBUffer message;
    message.CrearHeader();
    message.PutString("");
    EXPECT_EQ(message.TamanoBuffer(), 10);
    message.PutString("Calle");
    EXPECT_EQ(message.TamanoBuffer(), 17);
    message.PutString("Ω1"); // no Windows-1252 code: one "?" for the character
    EXPECT_EQ(message.GetFromBuffer(4, 18), (Bytes{2, 0, '?', '1'}));
}

TEST(DWBUfferWriting, ATextTooLongForTheWireLeavesTheMessageIntact)
{
    DWBUffer message;
    message.CrearHeader();
    message.PutString(std::string(32767, 'x'));
    const auto size = message.TamanoBuffer();
    EXPECT_THROW(message.PutString(std::string(32768, 'x')), std::length_error);
    EXPECT_EQ(message.TamanoBuffer(), size);
}

TEST(DWBUfferWriting, ClosingWritesOnlyTheLengthField)
{
    DWBUffer message(kGolden);
    message.cerrarMensaje(1000);
    EXPECT_EQ(message.getLength(), 1000);
    message.cerrarMensaje(-5); // below 1: the current size
    EXPECT_EQ(message.buffer(), kGolden);

    DWBUffer headless;
    headless.setBuffer(Bytes{1, 2, 3});
    EXPECT_THROW(headless.cerrarMensaje(0), std::logic_error);
    EXPECT_EQ(headless.buffer(), (Bytes{1, 2, 3}));
}

TEST(DWBUfferReading, TheGoldenMessageReadsBackInFieldOrder)
{
    DWBUffer message(kGolden);
    EXPECT_TRUE(message.IsHeaderCorrect());
    EXPECT_EQ(message.getLength(), 45);
    EXPECT_EQ(message.commandCode(), 109);
    readGoldenPayload(message);
    EXPECT_EQ(message.readPosition(), 46);
}

TEST(DWBUfferReading, EveryTruncationThrowsAtTheFirstMissingField)
{
    for (std::size_t length = 0; length < kGolden.size(); ++length) {
        SCOPED_TRACE("truncated to " + std::to_string(length) + " bytes");
        DWBUffer message{std::span(kGolden).first(length)};
        try {
            readGoldenPayload(message);
            ADD_FAILURE() << "reading a truncated message did not fail";
        } catch (const WireReadError& error) {
            EXPECT_LE(error.offset(), static_cast<std::int64_t>(length) + 1);
            EXPECT_GT(error.offset() + error.width() - 1, static_cast<std::int64_t>(length));
            EXPECT_EQ(error.command().has_value(), length >= 10);
        }
    }
}

TEST(DWBUfferReading, AFailedReadHasMovedPastTheWantedWidth)
{
    DWBUffer message{std::span(kGolden).first(12)};
    message.GetFromBuffer(10);
    EXPECT_THROW(message.GetLong(), WireReadError);
    EXPECT_EQ(message.readPosition(), 15);
    EXPECT_THROW(message.GetByte(), WireReadError);
}

TEST(DWBUfferReading, ANegativeStringLengthIsAnError)
{
    DWBUffer message;
    message.CrearHeader();
    message.PutInteger(1);
    message.PutInteger(-3);
    message.PutLong(0);
    message.cerrarMensaje(0);
    message.GetFromBuffer(10);
    try {
        message.GetString();
        ADD_FAILURE() << "a negative string length was accepted";
    } catch (const WireReadError& error) {
        EXPECT_EQ(error.offset(), 13);
        EXPECT_EQ(error.command(), 1);
    }
}

TEST(DWBUfferReading, ABufferWithoutContentOrSignatureCannotBeRead)
{
    DWBUffer never;
    EXPECT_EQ(never.readPosition(), 0);
    EXPECT_THROW(never.GetByte(), WireReadError);
    EXPECT_THROW(never.GetFromBuffer(1), WireReadError);
    EXPECT_THROW(never.getLength(), WireReadError);
    EXPECT_FALSE(never.IsHeaderCorrect());
    EXPECT_FALSE(never.commandCode().has_value());
}

TEST(DWBUfferReading, GetFromBufferAdvancesFromTheReadPositionEvenWhenShort)
{
    DWBUffer message(kGolden);
    EXPECT_EQ(message.GetFromBuffer(4), (Bytes{'M', 'I', 'C', ' '}));
    EXPECT_EQ(message.readPosition(), 5);
    EXPECT_TRUE(message.GetFromBuffer(100).empty());
    EXPECT_EQ(message.readPosition(), 105);
    EXPECT_TRUE(message.GetFromBuffer(0).empty());
    EXPECT_EQ(message.readPosition(), 105);

    // At a given start the read position stays where it was.
    message = DWBUffer(kGolden);
    EXPECT_EQ(message.GetFromBuffer(2, 9), (Bytes{109, 0}));
    EXPECT_EQ(message.GetFromBuffer(1, 45), (Bytes{7}));
    EXPECT_TRUE(message.GetFromBuffer(2, 45).empty());
    EXPECT_TRUE(message.GetFromBuffer(1, 46).empty());
    EXPECT_EQ(message.readPosition(), 1);
    EXPECT_THROW(message.GetFromBuffer(-1), std::invalid_argument);
    EXPECT_THROW(message.GetFromBuffer(1, -1), std::invalid_argument);
}

TEST(DWBUfferReading, HeaderChecks)
{
    Bytes wrongBlank = kGolden;
    wrongBlank[3] = '!';
    EXPECT_FALSE(DWBUffer(wrongBlank).IsHeaderCorrect());
    EXPECT_FALSE(DWBUffer(std::span(kGolden).first(3)).IsHeaderCorrect());
    EXPECT_TRUE(DWBUffer(std::span(kGolden).first(4)).IsHeaderCorrect());
}

TEST(DWBUfferFlush, KeepsOnlyTheUnreadBytes)
{
    DWBUffer message(kGolden);
    message.GetFromBuffer(40);
    message.Flush();
    EXPECT_EQ(message.buffer(), (Bytes{0, 0x40, 0x51, 0xC0, 7}));
    EXPECT_EQ(message.readPosition(), 1);
    EXPECT_EQ(message.GetByte(), 0);
}

TEST(DWBUfferFlush, AfterEverythingWasReadTheBufferIsEmptyAndStartsAfresh)
{
    DWBUffer message(kGolden);
    message.GetFromBuffer(45);
    message.Flush();
    EXPECT_EQ(message.TamanoBuffer(), 0);
    message.PutInteger(2);
    EXPECT_EQ(message.buffer(), (Bytes{'M', 'I', 'C', ' ', 0, 0, 0, 0, 2, 0}));

    DWBUffer overRead(kGolden);
    overRead.GetFromBuffer(500);
    overRead.Flush();
    EXPECT_EQ(overRead.TamanoBuffer(), 0);
}

} // namespace
