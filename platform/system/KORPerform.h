// How an operation of the platform runs: its work, unless a test has put a fault into it.
#pragma once

#include <exception>
#include <optional>

#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORFault.h"
#include "platform/system/KORSession.h"

/// Runs an operation that gives a status. Out arguments are to be as on a failure before it is called.
///
/// operation  its name, by which faults are put into it
/// work       gives the status
/// aftermath  what a fault of whichever kind does besides, behind the work of a fault that has it done
template <class Work, class Aftermath>
long KORPerform(const char* operation, const Work& work, const Aftermath& aftermath) {
  const std::optional<KORFault> fault = KORSession::Current().TakeFault(operation);
  if (!fault) return work();
  if (fault->What == KORFault::Kind::StatusAlone) (void)work();
  aftermath();
  if (fault->What == KORFault::Kind::Raised) std::rethrow_exception(fault->Error);
  return fault->What == KORFault::Kind::NullAlone ? S_OK : fault->Status;
}

template <class Work>
long KORPerform(const char* operation, const Work& work) {
  return KORPerform(operation, work, [] {});
}

/// Runs an operation that hands out an object: S_OK, and `out` gets it with a reference of its own; E_FAIL and null for
/// a null handle.
template <class Held, class Interface>
long KORHandOut(const char* operation, const KORHandle<Held>& held, Interface*& out) {
  out = nullptr;
  return KORPerform(operation, [&held, &out] {
    if (held.IsNull()) return E_FAIL;
    held->AddRef();
    out = held.Get();
    return S_OK;
  });
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
