// The description that every class of objects has.
#include "platform/base/KORMetaClass.h"

#include <cstring>

bool KORMetaClass::IsAKindOf(const char* name) const {
  if (name == nullptr) return false;
  for (const KORMetaClass* candidate = this; candidate != nullptr; candidate = candidate->Base) {
    if (std::strcmp(candidate->Name, name) == 0) return true;
  }
  return false;
}
