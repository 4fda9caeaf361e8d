#pragma once

// Texts travel as Windows-1252, one byte per character. Inside the component
// they are UTF-8. Decoding is total: the five bytes Windows-1252 leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the C1 control characters
// of the same number, so every byte string survives decode then encode
// unchanged. Encoding writes "?" for a character without a Windows-1252 code
// and for every byte of malformed UTF-8.

#include <string>
#include <string_view>

namespace orbelan::windows1252 {

std::string fromUtf8(std::string_view utf8);
std::string toUtf8(std::string_view windows1252);

} // namespace orbelan::windows1252
