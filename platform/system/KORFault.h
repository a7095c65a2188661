// Faults that a test puts into the operations of the platform.
#pragma once

#include <exception>

#include "platform/base/KORStatus.h"

/// How an operation of the platform fails (KORSession::InjectFault).
struct KORFault {
  enum class Kind {
    StatusAndNull,  // nothing is done or handed out, and the status says so
    StatusAlone,    // the work is done and handed out all the same, though the status tells of a failure
    NullAlone,      // nothing is done or handed out, though the status is S_OK
    Raised          // nothing is done; an error is raised
  };
  enum class Life { Always, Once };

  long Status = E_FAIL;  // of the first two kinds
  Kind What = Kind::StatusAndNull;
  Life Holds = Life::Always;
  std::exception_ptr Error = nullptr;  // of the last kind; not null there
};
