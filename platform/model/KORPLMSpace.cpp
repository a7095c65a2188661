// The space in which identificators resolve.
#include "platform/model/KORPLMSpace.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORPLMIdentificator.h"
#include "platform/system/KORSession.h"

namespace {

class PLMSpace final : public KORImplements<KORIPLMSpace> {
 public:
  long ResolveComponent(KORIAdpPLMIdentificator* identificator, const KORUuid& interface_id, void** out) override {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    if (const long fault = KORSession::Current().GetFault("ResolveComponent"); fault != S_OK) return fault;
    const auto* const of_model =
        identificator == nullptr ? nullptr : dynamic_cast<KORPLMIdentificator*>(identificator->GetImpl(0));
    if (of_model == nullptr) return E_INVALIDARG;
    const KORBaseUnknown_var object = of_model->FindObject();
    return object.IsNull() ? E_FAIL : object->QueryInterface(interface_id, out);
  }
};

}  // namespace

long KORPLMSpaceServices::GetResolutionSpace(KORIPLMSpace*& space, int /*category*/, Space /*kind*/) {
  space = nullptr;
  if (const long fault = KORSession::Current().GetFault("GetResolutionSpace"); fault != S_OK) return fault;
  space = new PLMSpace;
  return S_OK;
}
