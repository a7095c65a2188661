// Loads the applicative containers of components.
#include "platform/services/KORPLMApplicativeContainerServices.h"

#include <string_view>

#include "platform/base/KORStatus.h"
#include "platform/model/KORFindRepReference.h"
#include "platform/system/KORPerform.h"

long KORPLMApplicativeContainerServices::Retrieve(void** out, KORIPLMComponent* component, const KORUuid& interface_id,
                                                  const char* type) {
  if (out != nullptr) *out = nullptr;
  return KORPerform("KORPLMApplicativeContainerServices::Retrieve", [&]() -> long {
    if (out == nullptr || component == nullptr || type == nullptr) return E_INVALIDARG;
    const auto* const representation = KORFindRepReference(component);
    if (representation == nullptr) return E_FAIL;
    const KORHandle<KORFeatureContainer>& held = representation->GetContent().Container;
    return held.IsNull() || std::string_view(type) != held->GetType() ? E_FAIL
                                                                      : held->QueryInterface(interface_id, out);
  });
}
