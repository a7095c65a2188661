// The attributes that a command shows of a representation that is being edited.
#include "objects/KnowledgeParameters.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "HandedOut.h"
#include "objects/TimeAnalysisType.h"
#include "platform/base/KORList.h"
#include "platform/base/KORStatus.h"
#include "platform/services/KORCkePLMNavPublicServices.h"
#include "platform/services/KORPLMMetaDataFrameModel.h"

namespace objects {

namespace {

// Shown whenever the representation has them, and never writable.
constexpr std::array<std::string_view, 4> AlwaysShown{"V_Direction", "V_Category", "V_discipline", "V_nature"};

bool IsAlwaysShown(const KORUnicodeString& name) {
  return std::find(AlwaysShown.begin(), AlwaysShown.end(), name.Bytes()) != AlwaysShown.end();
}

// The attributes of the knowledge type of a time analysis.
KORListValKORAttributeInfos AttributesOfType(const KORPLMMetaDataFrameModel& model) {
  KORListValKORAttributeInfos infos;
  KORIType_var type;
  (void)RetrieveAnalysisType(type);
  const HandedOut<KORIAdpEnvironment> environment(
      [&model](KORIAdpEnvironment*& out) { return model.GetLocalEnvironment(out); });
  if (!type.IsNull()) {
    (void)KORCkePLMNavPublicServices::ListAttributesFromType(0, type, environment.Get().Get(), infos, 0);
  }
  return infos;
}

// The attributes changed so far, then those that are always shown.
KORListValKORUnicodeString ShownAttributes(const KORPLMMetaDataFrameModel& model) {
  KORListValKORUnicodeString shown;
  (void)model.GetListOfModifiedAttributes(shown);
  KORListValKORUnicodeString all;
  (void)model.GetListOfAttributes(all);
  for (const std::string_view always_shown : AlwaysShown) {
    const KORUnicodeString name(always_shown);
    if (all.Locate(name) != 0 && shown.Locate(name) == 0) shown.Append(name);
  }
  return shown;
}

// The first description of that very name; null if there is none.
const KORAttributeInfos* FindDescription(const KORListValKORAttributeInfos& infos, const KORUnicodeString& name) {
  const auto found = std::find_if(infos.begin(), infos.end(), [&name](const KORAttributeInfos& info) {
    return info.Name().Compare(name) == KORUnicodeString::Identical;
  });
  return found == infos.end() ? nullptr : &*found;
}

}  // namespace

long SortParameters(const KORBaseUnknown* model, KORListValKORICkeParm_var& writable,
                    KORListValKORICkeParm_var& not_writable) {
  if (model == nullptr) return E_FAIL;
  const auto* const edited = dynamic_cast<const KORPLMMetaDataFrameModel*>(model);
  if (edited == nullptr) return S_OK;
  const KORListValKORAttributeInfos infos = AttributesOfType(*edited);
  for (const KORUnicodeString& name : ShownAttributes(*edited)) {
    KORICkeParm_var parameter;
    if (Failed(edited->GetAttributeParm(name, parameter)) || parameter.IsNull()) continue;
    if (IsAlwaysShown(name)) {
      not_writable.Append(parameter);
    } else if (const KORAttributeInfos* const description = FindDescription(infos, name); description != nullptr) {
      (description->IsWritable() != 0 ? writable : not_writable).Append(parameter);
    }
  }
  return S_OK;
}

}  // namespace objects
