// The memory of a sandbox, which ends where it is told to.
#include "platform/knowledge/KORCkeSandboxMemory.h"

#include <cstdlib>

#include "platform/knowledge/KORCkeRunClock.h"

void* KORCkeSandboxMemory::Allocate(void* memory, void* block, std::size_t old_size, std::size_t new_size) noexcept {
  auto& self = *static_cast<KORCkeSandboxMemory*>(memory);
  if (block == nullptr) old_size = 0;
  if (new_size == 0) {
    std::free(block);
    self._BytesInUse -= old_size;
    return nullptr;
  }
  if (!self.Allows(old_size, new_size)) return nullptr;
  void* const resized = std::realloc(block, new_size);
  if (resized == nullptr) return nullptr;
  self._BytesInUse = self._BytesInUse - old_size + new_size;
  return resized;
}

bool KORCkeSandboxMemory::Allows(std::size_t old_size, std::size_t new_size) noexcept {
  if (new_size <= old_size) return true;
  const std::size_t growth = new_size - old_size;
  if (_BytesInUse <= _Limit && growth <= _Limit - _BytesInUse) return true;
  if (_Clock->IsOver()) _Limit = 0;
  return false;
}
