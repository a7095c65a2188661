// The change of an analysis carried to all analyses above it.
#include "objects/ImpactPropagation.h"

#include <optional>
#include <unordered_set>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "objects/ComponentsToSave.h"
#include "objects/ImpactClimb.h"
#include "objects/ReuseIndex.h"
#include "objects/ReusingLines.h"
#include "platform/base/KORStatus.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"

namespace objects {

namespace {

void Climb(ImpactClimb climb, VEXSTMTimeAnalysisDlgServices& services, KORListPtrKORIPLMComponent& components) {
  while (const std::optional<ImpactStep> step = climb.Next()) {
    BringUpToDate(KORBaseUnknown_var(step->Impacted), {step->Changed}, services, components);
  }
}

// The first visit of the climb to each analysis. It calculates the analysis while its lines that reuse others still
// hold what they held before: what that leaves in a line stays there if the line has no formula any more behind it.
void VisitFirst(const std::vector<ImpactStep>& steps, VEXSTMTimeAnalysisDlgServices& services) {
  ComponentsToSave visited;
  for (const ImpactStep& step : steps) {
    BringUpToDate(KORBaseUnknown_var(step.Impacted), {step.Changed}, services, visited.List());
  }
}

}  // namespace

void UpdateOnEveryWay(const KORBaseUnknown_var& changed, const KORHashObject& reuses,
                      KORListPtrKORIPLMComponent& components) {
  VEXSTMTimeAnalysisDlgServices services;
  Climb(ImpactClimb(reuses, {changed->GetImpl(0)}), services, components);
}

void UpdateEachOnce(const KORBaseUnknown_var& changed, const KORHashObject& reuses,
                    KORListPtrKORIPLMComponent& components) {
  VEXSTMTimeAnalysisDlgServices services;
  const ImpactOrder order = OrderOfImpact(reuses, changed->GetImpl(0));
  VisitFirst(order.FirstSteps, services);
  std::unordered_set<const KORBaseUnknown*> up_to_date{changed->GetImpl(0)};
  for (KORBaseUnknown* const impacted : order.Analyses) {
    BringUpToDate(KORBaseUnknown_var(impacted), up_to_date, services, components);
    up_to_date.insert(impacted);
  }
}

void UpdateAndClimb(const KORBaseUnknown_var& changed, const KORBaseUnknown_var& impacted, const KORHashObject* reuses,
                    KORListPtrKORIPLMComponent& components) {
  if (changed.IsNull() || impacted.IsNull()) return;
  VEXSTMTimeAnalysisDlgServices services;
  BringUpToDate(impacted, {changed->GetImpl(0)}, services, components);
  if (reuses == nullptr) return;
  Climb(ImpactClimb(*reuses, {changed->GetImpl(0), impacted->GetImpl(0)}), services, components);
}

long UpdateAllAbove(const KORBaseUnknown_var& changed, KOROmbLifeCycleRootsBag& bag,
                    KORListValKORBaseUnknown_var& all_analyses) {
  if (all_analyses.Size() > 0) return S_OK;
  ReuseIndex reuses;
  long status = VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(all_analyses, bag);
  status = reuses.Enter(all_analyses, status);
  if (changed.IsNull() || reuses.Table().Get(changed->GetImpl(0)) == nullptr) return S_OK;

  ComponentsToSave components;
  const bool once = HasManyWays(reuses.Table(), changed->GetImpl(0));
  (once ? UpdateEachOnce : UpdateOnEveryWay)(changed, reuses.Table(), components.List());
  components.Save();
  return status;
}

}  // namespace objects
