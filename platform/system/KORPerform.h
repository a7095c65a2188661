// How an operation of the platform runs: its work, unless a test has put a fault into it.
#pragma once

#include <exception>
#include <optional>

#include "platform/base/KORStatus.h"
#include "platform/system/KORFault.h"
#include "platform/system/KORSession.h"

/// Runs an operation that gives a status. Out arguments are to be as on a failure before it is called.
///
/// operation  its name, by which faults are put into it
/// work       gives the status
template <class Work>
long KORPerform(const char* operation, const Work& work) {
  const std::optional<KORFault> fault = KORSession::Current().TakeFault(operation);
  if (!fault) return work();
  if (fault->What == KORFault::Kind::Raised) std::rethrow_exception(fault->Error);
  if (fault->What == KORFault::Kind::StatusAlone) (void)work();
  return fault->What == KORFault::Kind::NullAlone ? S_OK : fault->Status;
}

/// Runs an operation whose result is what it returns: a pointer, a handle or a text, empty with a fault of any kind
/// but StatusAlone, which it has no use for.
template <class Work>
auto KORGive(const char* operation, const Work& work) -> decltype(work()) {
  const std::optional<KORFault> fault = KORSession::Current().TakeFault(operation);
  if (!fault || fault->What == KORFault::Kind::StatusAlone) return work();
  if (fault->What == KORFault::Kind::Raised) std::rethrow_exception(fault->Error);
  return {};
}
