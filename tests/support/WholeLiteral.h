// Literals with NULs in them.
#pragma once

#include <cstddef>
#include <string>

namespace support {

/// All characters of a literal, NULs included, without the one at its end.
template <std::size_t Length>
std::string Whole(const char (&literal)[Length]) {
  return std::string(literal, Length - 1);
}

}  // namespace support
