#pragma once

// Helpers shared by the message layouts: whole messages from a layout, and
// the counts that precede repeated records.

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orbelan::messages {

// Header, command code, payload and closed length: the bytes to send.
template <typename Message>
DWBUffer buildMessage(const Message& message)
{
    DWBUffer buffer;
    buffer.CrearHeader();
    buffer.PutInteger(codeNumber(Message::kCode));
    message.encode(buffer);
    buffer.cerrarMensaje(0);
    return buffer;
}

// Reads the signature, the length and the command code of a whole message,
// leaving the read position at the first payload byte.
CommandCode readHeader(DWBUffer& message);

// A count sent as an Integer; throws std::length_error above 32767.
std::int16_t shortCount(std::size_t count);
// A count sent as a Long; throws std::length_error above 2^31 - 1.
std::int32_t longCount(std::size_t count);

// A received count as a number of records: a negative count is no record.
std::size_t recordCount(std::int32_t count);
// How many records of at least minimumSize bytes may still follow in the
// message; used to bound what is reserved for a count that a hostile or
// truncated message may overstate.
std::size_t reservableRecords(const DWBUffer& message, std::size_t count, std::size_t minimumSize);

// Reads count records with readOne and hands each to onRecord as soon as it
// is whole; reading stops with WireReadError at the first record that is not
// all there, after the records before it were handed out.
template <typename ReadOne, typename OnRecord>
void forEachRecord(DWBUffer& message, std::int32_t count, ReadOne readOne, OnRecord onRecord)
{
    const std::size_t wanted = recordCount(count);
    for (std::size_t i = 0; i < wanted; ++i) {
        onRecord(readOne(message));
    }
}

// Reads count records with readOne into a vector.
template <typename Record, typename ReadOne>
std::vector<Record> readRecords(DWBUffer& message, std::int32_t count, std::size_t minimumSize,
                                ReadOne readOne)
{
    std::vector<Record> records;
    records.reserve(reservableRecords(message, recordCount(count), minimumSize));
    forEachRecord(message, count, readOne, [&records](Record record) { records.push_back(std::move(record)); });
    return records;
}

} // namespace orbelan::messages
