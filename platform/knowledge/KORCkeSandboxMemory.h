// The memory of a sandbox, which ends where it is told to.
#pragma once

#include <cstddef>
#include <cstdint>

class KORCkeRunClock;

/// What a sandbox may take.
struct KORCkeMemoryLimits {
  std::size_t Total = 0;         // in use at a time
  std::size_t Piece = SIZE_MAX;  // in one block
  std::size_t Text = SIZE_MAX;   // in one block that holds a text
  /// Where a request is refused, the machine looks for what it can do without, and asks again. True: that does not
  /// help, everything is refused from the first refusal on.
  bool IsFinal = false;
};

/// Gives memory out and counts it. What would go beyond the limits is refused; what shrinks never is.
class KORCkeSandboxMemory {
 public:
  /// Looking for what can be done without takes time, and so does the machine's work on large blocks. So the clock is
  /// asked at each refusal and for each large block, and from its end on everything is refused.
  explicit KORCkeSandboxMemory(KORCkeRunClock& clock) : _Clock(&clock) {}

  /// Allots, resizes and frees, as the language's machine asks for it.
  ///
  /// memory    the KORCkeSandboxMemory
  /// block     null for a new block, and then `old_size` is no size but tells what the block is for
  /// new_size  0 frees the block
  /// Returns the block, with the content that it had; null if it was freed, and null with the block as it was if it was
  /// refused.
  static void* Allocate(void* memory, void* block, std::size_t old_size, std::size_t new_size) noexcept;

  std::size_t GetBytesInUse() const { return _BytesInUse; }
  /// Counts from now on against `limits`, what is in use already included.
  void SetLimits(const KORCkeMemoryLimits& limits);
  /// True if a request was refused since the limits were set.
  bool HasRefused() const { return _HasRefused; }

 private:
  bool Allows(std::size_t old_size, std::size_t new_size, bool is_text) noexcept;
  bool Fits(std::size_t growth, std::size_t new_size, bool is_text) noexcept;

  KORCkeRunClock* _Clock;
  std::size_t _BytesInUse = 0;
  KORCkeMemoryLimits _Limits;
  bool _HasRefused = false;
};
