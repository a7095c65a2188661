// The ways in which components are made, by their name.
#include "platform/base/KORFillDictionary.h"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace {

class ComponentMakers {
 public:
  static ComponentMakers& OfProcess() {
    // Never destroyed: an object that ends behind the static ones may still make components.
    static ComponentMakers* const makers = new ComponentMakers;
    return *makers;
  }

  bool Add(const char* component, KORComponentMaker maker) {
    const std::lock_guard lock(_Mutex);
    return _Makers.try_emplace(component, maker).second;
  }

  KORComponentMaker Find(const char* component) {
    const std::lock_guard lock(_Mutex);
    const auto found = _Makers.find(std::string_view(component));
    return found == _Makers.end() ? nullptr : found->second;
  }

 private:
  std::mutex _Mutex;  // guards the makers
  std::map<std::string, KORComponentMaker, std::less<>> _Makers;
};

}  // namespace

bool KORFillDictionary::RegisterFunctionCreation(const char* component, KORComponentMaker maker) {
  return ComponentMakers::OfProcess().Add(component, maker);
}

KORComponentMaker KORFillDictionary::FindFunctionCreation(const char* component) {
  return ComponentMakers::OfProcess().Find(component);
}
