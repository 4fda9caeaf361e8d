#pragma once

#include "protocol/DWBUffer.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/WireReadError.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

// Decodes a whole message as a handler would: header, code, then payload.
template <typename Message>
Message decodeWhole(const std::vector<std::uint8_t>& bytes)
{
    orbelan::DWBUffer buffer(bytes);
    EXPECT_EQ(orbelan::messages::readHeader(buffer), Message::kCode);
    return Message::decode(buffer);
}

// The message survives encode then decode, and every shorter prefix of it
// (header and command code kept) fails with WireReadError, never otherwise.
template <typename Message>
void expectRoundTripAndTruncation(const Message& original)
{
    const std::vector<std::uint8_t> bytes = orbelan::messages::buildMessage(original).buffer();
    EXPECT_EQ(decodeWhole<Message>(bytes), original);
    for (std::size_t length = 10; length < bytes.size(); ++length) {
        const std::vector<std::uint8_t> prefix(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_THROW(decodeWhole<Message>(prefix), orbelan::WireReadError) << "length " << length;
    }
}
