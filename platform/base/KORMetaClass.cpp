// The description that every class of objects has, and the descriptions that the process knows by name.
#include "platform/base/KORMetaClass.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <string_view>

namespace {

struct KnownClasses {
  std::mutex Mutex;                                        // guards the descriptions
  std::map<std::string_view, const KORMetaClass*> ByName;  // the names are those of the descriptions
};

// Never destroyed: objects that end behind the static ones may still ask.
KnownClasses& OfProcess() {
  static auto* const known = new KnownClasses;
  return *known;
}

}  // namespace

bool KORMetaClass::IsAKindOf(const char* name) const {
  if (name == nullptr) return false;
  for (const KORMetaClass* candidate = this; candidate != nullptr; candidate = candidate->Base) {
    if (std::strcmp(candidate->Name, name) == 0) return true;
  }
  return false;
}

bool KORMetaClass::SetExtensionOf(const char* component) {
  const auto free_place = std::find(Extends.begin(), Extends.end(), nullptr);
  if (component == nullptr || free_place == Extends.end()) return false;
  *free_place = component;
  return true;
}

const KORMetaClass* fct_RetrieveMetaObject(const KORMetaClass& description) {
  KnownClasses& known = OfProcess();
  const std::lock_guard lock(known.Mutex);
  return known.ByName.try_emplace(description.Name, &description).first->second;
}

const KORMetaClass* fct_FindMetaObject(const char* name) {
  if (name == nullptr) return nullptr;
  KnownClasses& known = OfProcess();
  const std::lock_guard lock(known.Mutex);
  const auto found = known.ByName.find(name);
  return found == known.ByName.end() ? nullptr : found->second;
}
