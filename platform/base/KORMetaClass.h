// The description that every class of objects has.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUuid.h"

/// Describes a class of objects: its name, its identifier and the class that it derives from.
struct KORMetaClass {
  const char* Name;
  KORUuid Identifier;
  const KORMetaClass* Base;

  /// True if the class is called `name` or derives from the one that is.
  KORPLATFORM_API bool IsAKindOf(const char* name) const;
};
