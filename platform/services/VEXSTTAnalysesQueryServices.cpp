// Looks time analyses up by their attributes.
#include "platform/services/VEXSTTAnalysesQueryServices.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <variant>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORPerform.h"

namespace {

// True if the attribute is set as a text and has that value.
bool HasText(const KORKeyedValues& attributes, const KORString& name, const KORUnicodeString& value) {
  const std::optional<KORKeyedValues::View> present = attributes.Look(name.Bytes());
  const auto* const text = present ? std::get_if<std::string_view>(&*present) : nullptr;
  return text != nullptr && *text == value.Bytes();
}

bool HasAll(const KORKeyedValues& attributes, const VEXSTTAdpIdentificationSet& set) {
  const auto& wanted = set.GetAttributes();
  return std::all_of(wanted.begin(), wanted.end(), [&attributes](const auto& attribute) {
    return HasText(attributes, attribute.first, attribute.second);
  });
}

}  // namespace

KORReachedObjects& KORReachedObjects::Current() {
  return KORSession::Current().GetPart<KORReachedObjects>();
}

long VEXSTTAdpIdentificationSet::AddAttribute(const KORString& name, const KORUnicodeString& value) {
  return KORPerform("AddAttribute", [this, &name, &value] {
    _Attributes.emplace_back(name, value);
    return S_OK;
  });
}

long VEXSTTAnalysesQueryServices::GetElementByIdentificationSet(const VEXSTTAdpIdentificationSet& set,
                                                                KORBaseUnknown*& element) {
  element = nullptr;
  return KORPerform("GetElementByIdentificationSet", [&set, &element] {
    if (set.GetAttributes().empty()) return E_INVALIDARG;
    for (const KORHandle<VEXTimeAnalysisRepReference>& analysis : KORModel::Current().GetTimeAnalyses()) {
      if (!HasAll(analysis->GetAttributes(), set)) continue;
      element = analysis->GetImpl(0);
      element->AddRef();
      return S_OK;
    }
    return E_FAIL;
  });
}

long VEXSTTAnalysesQueryServices::GetElementsFromAttributes(const VEXSTTAdpIdentificationSet& set,
                                                            KORListValKORBaseUnknown_var& elements,
                                                            KOROmbLifeCycleRootsBag& bag) {
  elements.RemoveAll();
  return KORPerform("GetElementsFromAttributes", [&set, &elements, &bag] {
    if (set.GetAttributes().empty()) return E_INVALIDARG;
    for (const KORHandle<VEXTimeAnalysisRepReference>& analysis : KORModel::Current().GetTimeAnalyses()) {
      if (HasAll(analysis->GetAttributes(), set)) elements.Append(analysis);
    }
    bag.Keep(elements);
    return S_OK;
  });
}

long VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(KORListValKORBaseUnknown_var& analyses,
                                                     KOROmbLifeCycleRootsBag& bag) {
  analyses.RemoveAll();
  return KORPerform("GetAllTimeAnalysis", [&analyses, &bag] {
    for (const KORHandle<VEXTimeAnalysisRepReference>& analysis : KORModel::Current().GetTimeAnalyses()) {
      analyses.Append(analysis);
    }
    analyses.Append(KORReachedObjects::Current().GetAll());
    bag.Keep(analyses);
    return S_OK;
  });
}
