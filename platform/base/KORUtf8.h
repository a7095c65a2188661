// UTF-8 byte by byte: what the text type is made of.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korutf8 {

/// True if every byte stands for the ASCII character of the same number.
bool IsAscii(std::string_view bytes);

/// True if the bytes are UTF-8 as a whole: no overlong form, no surrogate, nothing above U+10FFFF.
bool IsValid(std::string_view bytes);

/// Number of characters in valid UTF-8.
std::size_t CountCharacters(std::string_view bytes);

/// Byte offset of the character at `position` in valid UTF-8; the length of the bytes if there are not so many.
std::size_t OffsetOf(std::string_view bytes, std::size_t position);

/// Reads the character at `offset` of valid UTF-8 and moves `offset` behind it.
char32_t ReadCharacter(std::string_view bytes, std::size_t& offset);

/// Appends a character; what is no character of Unicode becomes U+FFFD.
void AppendCharacter(std::string& bytes, char32_t character);

}  // namespace korutf8
