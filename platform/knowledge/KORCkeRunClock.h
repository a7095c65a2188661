// The processor time that a run has taken.
#pragma once

#include <chrono>

/// Tells when a run has lasted too long. It begins with the first question after a restart, so that a run that ends
/// before anybody asks costs nothing.
class KORCkeRunClock {
 public:
  void Restart() { _IsRunning = false; }

  /// True once this thread has used korcke::LongestRun of processor time since the first question.
  bool IsOver();

 private:
  bool _IsRunning = false;
  std::chrono::steady_clock::time_point _Start;
  std::chrono::nanoseconds _ProcessorTimeAtStart{};
};
