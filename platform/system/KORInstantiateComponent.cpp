// Makes the objects of registered components.
#include "platform/system/KORInstantiateComponent.h"

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

long KORInstantiateComponent(const char* component, const KORUuid& interface_id, void** out) {
  if (out != nullptr) *out = nullptr;
  return KORPerform("KORInstantiateComponent", [component, &interface_id, out] {
    if (component == nullptr || out == nullptr) return E_INVALIDARG;
    const KORComponentMaker maker = KORFillDictionary::FindFunctionCreation(component);
    if (maker == nullptr) return E_FAIL;
    return KORBaseUnknown_var::Adopt(maker())->QueryInterface(interface_id, out);
  });
}
