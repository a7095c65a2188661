// The motion-time system of older analyses: it moves from the older attribute to the present one.
#include "objects/SubsystemMigration.h"

#include "objects/ComponentsToSave.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"

namespace objects {

namespace {

constexpr const char* OlderAttribute = "Subsystem";
constexpr const char* PresentAttribute = "V_Subsystem";
constexpr const char* Modapts = "MODAPTS";
constexpr const char* SystemToRepair = "GTE";

template <class Attributes>
KORUnicodeString TextOf(Attributes& attributes, const char* key) {
  KORUnicodeString text;
  (void)attributes.GetValue(key, text);
  return text;
}

// Changes the analysis if it is one to repair: the status of the last write then, and `status` if it is not.
long Repair(const VEXITimeAnalysisRepReference_var& analysis, long status) {
  const VEXITimeAnalysisProperties_var properties(analysis);
  if (properties.IsNull() || TextOf(*properties, PresentAttribute) != SystemToRepair) return status;
  (void)properties->SetValue(PresentAttribute, Modapts);
  return analysis->SetValue(OlderAttribute, KORUnicodeString());
}

}  // namespace

long MigrateSubsystemToModapts(KOROmbLifeCycleRootsBag& bag) {
  KORListValKORBaseUnknown_var analyses;
  long status = VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(analyses, bag);
  ComponentsToSave components;
  for (const KORBaseUnknown_var& entry : analyses) {
    const VEXITimeAnalysisRepReference_var analysis(entry);
    if (analysis.IsNull() || TextOf(*analysis, OlderAttribute) != Modapts) continue;
    status = Repair(analysis, status);
    AppendComponent(entry, components.List());
  }
  components.Save();
  return status;
}

}  // namespace objects
