// The magnitudes that a parameter may have, each with its unit.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// A magnitude. Every value of it is in its unit, wherever it is read or written.
struct KORCkeMagnitude {
  const char* Name;
  const char* Unit;  // symbol of the unit; empty for a plain number
};

/// The magnitudes that the engine knows:
///
///   Time     seconds (s), as the times of lines are
///   Length   metres (m)
///   Mass     kilograms (kg)
///   Angle    radians (rad)
///   Number   a plain number, without unit
namespace KORParmDictionary {

/// The magnitude of exactly that name, small and capital letters told apart; null if there is none. It lives as long
/// as the process. Safe across threads.
KORPLATFORM_API const KORCkeMagnitude* FindMagnitude(const KORUnicodeString& name);

}  // namespace KORParmDictionary
