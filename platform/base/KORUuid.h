// Class identifiers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/base/KORExport.h"

/// Identifies a class, an interface or a component. Two identifiers are the same if their bytes are.
struct KORUuid {
  std::array<std::uint8_t, 16> Bytes{};

  /// The identifier that belongs to a name: the same in every process and on every machine. Its halves are two 64-bit
  /// FNV-1a hashes of the name, the second over the name with its first hash ahead of it.
  static constexpr KORUuid OfName(std::string_view name) {
    KORUuid identifier;
    std::uint64_t hash = Hash(0xcbf29ce484222325u, name);
    for (std::size_t half = 0; half < 2; ++half) {
      for (std::size_t index = 0; index < 8; ++index) {
        identifier.Bytes[half * 8 + index] = static_cast<std::uint8_t>(hash >> (8 * (7 - index)));
      }
      hash = Hash(hash, name);
    }
    return identifier;
  }

  /// An identifier that nothing else has: drawn at random. Safe across threads.
  KORPLATFORM_API static KORUuid Fresh();

  friend constexpr bool operator==(const KORUuid&, const KORUuid&) = default;

 private:
  static constexpr std::uint64_t Hash(std::uint64_t start, std::string_view name) {
    for (const char character : name) start = (start ^ static_cast<std::uint8_t>(character)) * 0x100000001b3u;
    return start;
  }
};
