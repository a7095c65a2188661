// Makes features in containers.
#include "platform/services/KOROsmSUHandler.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORFeatureContainer.h"
#include "platform/services/VEXTimeAnalysisModelerDeclarations.h"
#include "platform/system/KORPerform.h"

long KOROsmSUHandler::Instanciate(KORISpecObject_var& feature, const KORIContainer_var& container,
                                  const KORUnicodeString& /*text*/) const {
  return KORPerform("Instanciate", [&]() -> long {
    auto* const of_model = container.IsNull() ? nullptr : dynamic_cast<KORFeatureContainer*>(container->GetImpl(0));
    if (of_model == nullptr) return E_INVALIDARG;
    if (_Name.IsEmpty() || _Storage != VEXTimeAnalysisModelerDeclarations::StorageName) return E_FAIL;
    const auto made = KORHandle<KORFeature>::Adopt(new KORFeature(_Name));
    of_model->AddMember(made);
    feature = made;
    return S_OK;
  });
}
