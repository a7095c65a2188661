// Components: classes that are made by their name.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"

/// Makes a new object of a component, with one reference, which is the caller's.
using KORComponentMaker = KORBaseUnknown* (*)();

struct KORPLATFORM_API KORFillDictionary {
  /// Registers how a component is made, for the process. Safe across threads; it can be called from static
  /// initialisers. True; false, with nothing changed, for a name that is registered already.
  static bool RegisterFunctionCreation(const char* component, KORComponentMaker maker);

  /// How a component is made; null if it is not registered. Safe across threads.
  static KORComponentMaker FindFunctionCreation(const char* component);
};
