#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orbelan {

// One wire message: the 8-byte header ("MIC " and the Long total length), the
// Integer command code and the payload fields, without padding.
//
// Positions are 1-based as on the wire: byte 1 is the "M" of the signature.
// Writing always appends after the last byte and never looks at the read
// position; reading never changes the content. A typed read that runs past the
// end throws WireReadError before touching a byte outside the message (the
// read position has moved past the requested width all the same). Strings are
// UTF-8 here and Windows-1252 on the wire.
class DWBUffer {
public:
    static constexpr std::size_t kHeaderSize = 8;

    DWBUffer() = default;
    // Takes a copy of a whole message; the read position is 1.
    explicit DWBUffer(std::span<const std::uint8_t> message);

    // A copy of the whole message, header included.
    std::vector<std::uint8_t> buffer() const;
    // Replaces the content by the given bytes; the read position is 1.
    void setBuffer(std::span<const std::uint8_t> bytes);
    // The content without copying it, valid until the next change.
    std::span<const std::uint8_t> bytes() const { return content_; }

    // A value the owner may keep with the message; no operation consults it.
    std::int16_t status() const { return status_; }
    void setStatus(std::int16_t status) { status_ = status; }

    // Index of the next byte a Get... reads: 0 in a new object, 1 after
    // CrearHeader, a buffer assignment or Flush.
    std::int64_t readPosition() const { return readPosition_; }

    void ClearBuffer();
    // The content becomes exactly "MIC " and four zero bytes; read position 1.
    void CrearHeader();
    // Appends the bytes; an empty buffer gets its header first.
    void Add2Buffer(std::span<const std::uint8_t> bytes);
    // count bytes from the 1-based index start, or from the read position
    // (which then advances by count) when start is 0. Empty when count is 0 or
    // fewer than count bytes exist from there on.
    std::vector<std::uint8_t> GetFromBuffer(std::int32_t count, std::int32_t start = 0);
    // Keeps only the unread bytes; read position 1.
    void Flush();
    // The number of bytes held, 0 for an empty buffer.
    std::int64_t TamanoBuffer() const { return static_cast<std::int64_t>(content_.size()); }
    // Writes the total length into bytes 5 to 8; a length below 1 stands for
    // the current size.
    void cerrarMensaje(std::int32_t length = 0);

    void PutByte(std::uint8_t value);
    void PutInteger(std::int16_t value);
    void PutLong(std::int32_t value);
    void PutSingle(float value);
    void PutDouble(double value);
    // An Integer character count, then one Windows-1252 byte per character.
    void PutString(std::string_view utf8);

    std::uint8_t GetByte();
    std::int16_t GetInteger();
    std::int32_t GetLong();
    float GetSingle();
    double GetDouble();
    std::string GetString();

    // True exactly when bytes 1 to 4 are "M", "I", "C", " ".
    bool IsHeaderCorrect() const;
    // The declared total length in bytes 5 to 8.
    std::int32_t getLength() const;
    // The command code in bytes 9 and 10, when the message is that long.
    std::optional<std::int16_t> commandCode() const;

private:
    void append(std::span<const std::uint8_t> bytes);
    std::span<const std::uint8_t> read(std::size_t width);
    [[noreturn]] void throwReadError(std::int64_t offset, std::int64_t width,
                                     const std::string& what) const;

    std::vector<std::uint8_t> content_;
    std::int64_t readPosition_ = 0;
    std::int16_t status_ = 0;
};

} // namespace orbelan
