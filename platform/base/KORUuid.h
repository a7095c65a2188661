// Class identifiers.
#pragma once

#include <array>
#include <cstdint>

/// Identifies a class or a component. Two identifiers are the same if their bytes are.
struct KORUuid {
  std::array<std::uint8_t, 16> Bytes{};

  friend bool operator==(const KORUuid&, const KORUuid&) = default;
};
