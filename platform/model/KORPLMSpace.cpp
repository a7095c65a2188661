// The space in which identificators resolve.
#include "platform/model/KORPLMSpace.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORPLMIdentificator.h"
#include "platform/system/KORPerform.h"

namespace {

class PLMSpace final : public KORImplements<KORIPLMSpace> {
 public:
  long ResolveComponent(KORIAdpPLMIdentificator* identificator, const KORUuid& interface_id, void** out) override {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    return KORPerform("ResolveComponent", [identificator, &interface_id, out] {
      const auto* const of_model =
          identificator == nullptr ? nullptr : dynamic_cast<KORPLMIdentificator*>(identificator->GetImpl(0));
      if (of_model == nullptr) return E_INVALIDARG;
      const KORBaseUnknown_var object = of_model->FindObject();
      return object.IsNull() ? E_FAIL : object->QueryInterface(interface_id, out);
    });
  }
};

}  // namespace

long KORPLMSpaceServices::GetResolutionSpace(KORIPLMSpace*& space, int /*category*/, Space /*kind*/) {
  return KORHandOut("GetResolutionSpace", KORIPLMSpace_var::Adopt(new PLMSpace), space);
}
