// The reference-counted base of every platform object and its class description.
#include "platform/base/KORBaseUnknown.h"

#include <cstring>

bool KORMetaClass::IsAKindOf(const char* name) const {
  if (name == nullptr) return false;
  for (const KORMetaClass* candidate = this; candidate != nullptr; candidate = candidate->Base) {
    if (std::strcmp(candidate->Name, name) == 0) return true;
  }
  return false;
}

unsigned long KORBaseUnknown::AddRef() const noexcept {
  return _References.fetch_add(1, std::memory_order_relaxed) + 1;
}

unsigned long KORBaseUnknown::Release() const noexcept {
  const unsigned long before = _References.fetch_sub(1, std::memory_order_acq_rel);
  if (before == 1) delete this;
  return before - 1;
}

const KORMetaClass* KORBaseUnknown::MetaObject() {
  static constexpr KORMetaClass Description{"KORBaseUnknown", {}, nullptr};
  return &Description;
}
