// An analysis brought into the mode in which it is worked on.
#include "objects/AuthoringLoad.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORIContainer.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/services/KOROmbSwitchSessionService.h"
#include "platform/services/KORPLMApplicativeContainerServices.h"

namespace objects {

namespace {

long SwitchToAuthoring(KORIOmiSwitchEngine& engine, KORBaseUnknown* analysis) {
  (void)engine.AddSwitchComponent(analysis);
  KOROmbLoadingModeRuleSet rules;
  (void)rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode"));
  (void)engine.SetLoadingRules(rules);
  KORListPtrKOROmiSwitchOperation prepared;
  if (const long status = engine.PrepareSwitch(prepared); Failed(status)) return status;
  KORListPtrKOROmiSwitchOperation executed;
  return engine.ExecuteSwitch(executed);
}

long LoadContainer(KORIPLMComponent* component) {
  void* container = nullptr;
  const long status = KORPLMApplicativeContainerServices::Retrieve(&container, component, KORIContainer::ClassId(),
                                                                   "KORFeatCont");
  const auto release_at_once = KORIContainer_var::Adopt(static_cast<KORIContainer*>(container));
  return status;
}

}  // namespace

long LoadForAuthoring(KORBaseUnknown* analysis) {
  KORIOmiSwitchEngine* created = nullptr;
  const long status = KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(created);
  const auto engine = KORIOmiSwitchEngine_var::Adopt(created);
  if (Failed(status) || engine.IsNull() || analysis == nullptr) return status;
  const long switched = SwitchToAuthoring(*engine, analysis);
  const KORIPLMComponent_var component(analysis);
  return Failed(switched) || component.IsNull() ? switched : LoadContainer(component.Get());
}

}  // namespace objects
