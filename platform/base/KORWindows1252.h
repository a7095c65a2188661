// The code page of old files that hold neither ASCII nor UTF-8.
#pragma once

#include <array>

/// Code points of the bytes 0x80 to 0x9F in Windows-1252; every other byte is the code point of the same number.
/// The five bytes that the code page leaves open (81, 8D, 8F, 90, 9D) are the control characters of the same number.
// clang-format off
inline constexpr std::array<char16_t, 32> Windows1252Characters{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};
// clang-format on

constexpr char32_t Windows1252Character(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? Windows1252Characters[byte - 0x80u] : byte;
}
