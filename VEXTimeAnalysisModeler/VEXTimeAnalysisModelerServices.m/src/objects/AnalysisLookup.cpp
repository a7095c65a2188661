// Time analyses found by their identifier.
#include "objects/AnalysisLookup.h"

#include "calculation/LineKeys.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"

namespace objects {

KORBaseUnknown_var FindByIdentifier(const KORUnicodeString& identifier) {
  VEXSTTAdpIdentificationSet set;
  (void)set.AddAttribute(calculation::ExternalIdKey, identifier);
  KOROmbLifeCycleRootsBag bag;
  KORListValKORBaseUnknown_var found;
  (void)VEXSTTAnalysesQueryServices::GetElementsFromAttributes(set, found, bag);
  return found.Size() > 0 ? found[1] : NULL_var;
}

}  // namespace objects
