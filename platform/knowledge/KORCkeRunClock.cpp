// The processor time that a run has taken.
#include "platform/knowledge/KORCkeRunClock.h"

#include <ctime>

#include "platform/knowledge/KORCkeLimits.h"

namespace {

std::chrono::nanoseconds ProcessorTimeOfThread() {
  std::timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

bool KORCkeRunClock::IsOver() {
  const auto now = std::chrono::steady_clock::now();
  if (!_IsRunning) {
    _IsRunning = true;
    _Start = now;
    _ProcessorTimeAtStart = ProcessorTimeOfThread();
    return false;
  }
  // The clock on the wall is cheap to read, and a thread can't work longer than it shows.
  if (now - _Start < korcke::LongestRun) return false;
  return ProcessorTimeOfThread() - _ProcessorTimeAtStart >= korcke::LongestRun;
}
