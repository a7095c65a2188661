// Components opened in the session.
#include "objects/ComponentOpening.h"

#include "HandedOut.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORStatus.h"
#include "platform/services/KORPLMServices.h"

namespace objects {

long OpenAnalysis(KORIPLMComponent* component, VEXITimeAnalysisRepReference_var& analysis) {
  if (component == nullptr) return E_FAIL;
  const HandedOut<KORIPLMOpen> open([](KORIPLMOpen*& out) { return KORPLMServices::GetOpenServices(out); });
  if (!open.IsGiven()) return open.GetStatus();
  KORListPtrKORIPLMComponent components;
  components.Append(component);
  KORListValKORBaseUnknown_var opened;
  const long status = open.Get()->OpenComponents(components, KORListPtrKORIPLMComponent(), KORJXMNavOpenParameters(),
                                                 KORListValKORUnicodeString(), KORUnicodeString(), opened, 1, 0);
  if (Failed(status) || opened.Size() != 1) return status;
  const HandedOut<KORIPLMComponent> opened_component = Query<KORIPLMComponent>(opened[1]);
  analysis = opened_component.Get();
  return analysis.IsNull() ? opened_component.GetStatus() : S_OK;
}

}  // namespace objects
