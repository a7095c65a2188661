// The memory of a sandbox, which ends where it is told to.
#pragma once

#include <cstddef>

class KORCkeRunClock;

/// Gives memory out and counts it. What would go beyond the limit is refused; what shrinks never is.
class KORCkeSandboxMemory {
 public:
  /// Where a request is refused, the sandbox looks for what it can do without, and asks again. Looking takes time, so
  /// that from the first refusal behind the end of `clock` on everything is refused.
  explicit KORCkeSandboxMemory(KORCkeRunClock& clock) : _Clock(&clock) {}

  /// Allots, resizes and frees, as the language's machine asks for it.
  ///
  /// memory    the KORCkeSandboxMemory
  /// block     null for a new block, and then `old_size` is no size
  /// new_size  0 frees the block
  /// Returns the block, with the content that it had; null if it was freed, and null with the block as it was if it was
  /// refused.
  static void* Allocate(void* memory, void* block, std::size_t old_size, std::size_t new_size) noexcept;

  std::size_t GetBytesInUse() const { return _BytesInUse; }
  /// Counts from now on against `bytes`, what is in use already included.
  void SetLimit(std::size_t bytes) { _Limit = bytes; }

 private:
  bool Allows(std::size_t old_size, std::size_t new_size) noexcept;

  KORCkeRunClock* _Clock;
  std::size_t _BytesInUse = 0;
  std::size_t _Limit = 0;
};
