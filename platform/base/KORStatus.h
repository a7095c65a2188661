// Status codes of the platform: a negative code is a failure, on every size of long.
#pragma once

#include <cstdint>

inline constexpr long S_OK = 0;
inline constexpr long S_FALSE = 1;
inline constexpr long E_FAIL = static_cast<std::int32_t>(0x80004005u);
inline constexpr long E_NOINTERFACE = static_cast<std::int32_t>(0x80004002u);
inline constexpr long E_INVALIDARG = static_cast<std::int32_t>(0x80070057u);

/// True if an operation that returned `status` failed.
constexpr bool Failed(long status) {
  return status < 0;
}

/// True if an operation that returned `status` did its work.
constexpr bool Succeeded(long status) {
  return status >= 0;
}
