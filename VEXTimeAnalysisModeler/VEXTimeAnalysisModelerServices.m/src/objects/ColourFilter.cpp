// The colour filter of the tree in the current window.
#include "objects/ColourFilter.h"

#include "platform/base/KORList.h"
#include "platform/base/KORStatus.h"
#include "platform/services/KORFrmLayout.h"

namespace objects {

namespace {

// Null if there is no window, or one without a colour filter.
KORIPLMSextantQuadrantsCustomizationMngt_var FilterOfWindow() {
  const KORFrmLayout* const layout = KORFrmLayout::GetCurrentLayout();
  if (layout == nullptr) return NULL_var;
  return KORIPLMSextantQuadrantsCustomizationMngt_var(layout->GetCurrentWindow());
}

}  // namespace

long ReadFilterState(unsigned char& active, KORUnicodeString& name) {
  const KORIPLMSextantQuadrantsCustomizationMngt_var filter = FilterOfWindow();
  if (filter.IsNull()) return E_FAIL;
  KORListValKORString values;
  return filter->GetBIFilterInfo(active, name, &values);
}

long ReadColour(const FilterValue& value, const ColourIndices& indices) {
  const KORPLMCompQuadrantsOpennessManager* const manager = KORPLMCompQuadrantsOpennessManager::GetManager();
  if (manager == nullptr) return E_FAIL;
  const KORIPLMSextantQuadrantsCustomizationMngt_var filter = FilterOfWindow();
  if (filter.IsNull()) return E_FAIL;
  KORString openness;
  const long status = filter->GetQuadrantOpennessID(openness);
  if (Failed(status) || openness.GetLengthInChar() == 0) return status;
  return manager->GetMaterialIndexFromIDForGivenQOpenness(openness, value.Filter, value.Attribute, value.Text,
                                                          *indices[0], *indices[1], *indices[2], *indices[3],
                                                          *indices[4]);
}

}  // namespace objects
