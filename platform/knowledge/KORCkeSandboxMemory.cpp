// The memory of a sandbox, which ends where it is told to.
#include "platform/knowledge/KORCkeSandboxMemory.h"

#include <cstdlib>
#include <lua.hpp>

#include "platform/knowledge/KORCkeRunClock.h"

namespace {

// From this size on the work on a block shows.
constexpr std::size_t LargeBlock = std::size_t{8} << 10;

}  // namespace

void* KORCkeSandboxMemory::Allocate(void* memory, void* block, std::size_t old_size, std::size_t new_size) noexcept {
  auto& self = *static_cast<KORCkeSandboxMemory*>(memory);
  const bool is_text = block == nullptr && old_size == LUA_TSTRING;
  if (block == nullptr) old_size = 0;
  if (new_size == 0) {
    std::free(block);
    self._BytesInUse -= old_size;
    return nullptr;
  }
  if (!self.Allows(old_size, new_size, is_text)) return nullptr;
  void* const resized = std::realloc(block, new_size);
  if (resized == nullptr) return nullptr;
  self._BytesInUse = self._BytesInUse - old_size + new_size;
  return resized;
}

void KORCkeSandboxMemory::SetLimits(const KORCkeMemoryLimits& limits) {
  _Limits = limits;
  _HasRefused = false;
}

bool KORCkeSandboxMemory::Allows(std::size_t old_size, std::size_t new_size, bool is_text) noexcept {
  if (new_size <= old_size) return true;
  if (Fits(new_size - old_size, new_size, is_text)) return true;
  _HasRefused = true;
  if (_Limits.IsFinal || _Clock->IsOver()) _Limits.Total = 0;
  return false;
}

bool KORCkeSandboxMemory::Fits(std::size_t growth, std::size_t new_size, bool is_text) noexcept {
  if (new_size > (is_text ? _Limits.Text : _Limits.Piece)) return false;
  if (new_size >= LargeBlock && _Limits.Piece != SIZE_MAX && _Clock->IsOver()) return false;
  return _BytesInUse <= _Limits.Total && growth <= _Limits.Total - _BytesInUse;
}
