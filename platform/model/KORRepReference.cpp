// Representation references: their container, their legacy stream and their display name.
#include "platform/model/KORRepReference.h"

#include <string_view>

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

namespace {

// Empties the out argument of an operation that hands out an interface.
void Clear(void** out) {
  if (out != nullptr) *out = nullptr;
}

}  // namespace

long KORRepReference::CreateApplicativeContainer(void** out, const char* model, const KORUuid& interface_id,
                                                 const char* type, const KORUnicodeString& name) {
  Clear(out);
  return KORPerform("CreateApplicativeContainer", [&]() -> long {
    if (out == nullptr || model == nullptr || type == nullptr) return E_INVALIDARG;
    if (std::string_view(type) != KORFeatureContainerType) return E_INVALIDARG;
    if (!_Content.Container.IsNull()) return E_FAIL;
    const auto made = KORHandle<KORFeatureContainer>::Adopt(new KORFeatureContainer(model, name));
    if (const long status = made->QueryInterface(interface_id, out); Failed(status)) return status;
    _Content.Container = made;
    return S_OK;
  });
}

long KORRepReference::RetrieveApplicativeContainer(const KORUnicodeString& name, const KORUuid& interface_id,
                                                   void** out) {
  Clear(out);
  return KORPerform("RetrieveApplicativeContainer", [&]() -> long {
    if (out == nullptr) return E_INVALIDARG;
    const KORHandle<KORFeatureContainer>& held = _Content.Container;
    return held.IsNull() || held->GetName() != name ? E_FAIL : held->QueryInterface(interface_id, out);
  });
}

long KORRepReference::GetStreamFilePath(KORUnicodeString& path) {
  path = KORUnicodeString();
  return KORPerform("GetStreamFilePath", [&] {
    path = _Content.LegacyStreamPath;
    return path.IsEmpty() ? E_FAIL : S_OK;
  });
}

KORUnicodeString KORRepReference::GetAlias() {
  return KORGive("GetAlias", [this] { return _Content.Alias; });
}
