// The signals by which a person stops a program.
#pragma once

#include <signal.h>

namespace tool {

/// While it lives, the first SIGINT (Ctrl-C) and the first SIGTERM do not end the process but are remembered; a second
/// one ends it as ever. One at a time in a process.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  bool AreRaised() const;

 private:
  struct sigaction _Interrupt {};  // as they were before
  struct sigaction _Terminate {};
};

}  // namespace tool
