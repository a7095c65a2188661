// The signals by which a person stops a program.
#include "tools/impact/StopSignals.h"

namespace tool {

namespace {

volatile sig_atomic_t raised = 0;

extern "C" void NoteStopSignal(int /*signal*/) {
  raised = 1;
}

}  // namespace

StopSignals::StopSignals() {
  raised = 0;
  struct sigaction note {};
  note.sa_handler = NoteStopSignal;
  note.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  (void)sigemptyset(&note.sa_mask);
  (void)sigaction(SIGINT, &note, &_Interrupt);
  (void)sigaction(SIGTERM, &note, &_Terminate);
}

StopSignals::~StopSignals() {
  (void)sigaction(SIGINT, &_Interrupt, nullptr);
  (void)sigaction(SIGTERM, &_Terminate, nullptr);
}

bool StopSignals::AreRaised() const {
  return raised != 0;
}

}  // namespace tool
