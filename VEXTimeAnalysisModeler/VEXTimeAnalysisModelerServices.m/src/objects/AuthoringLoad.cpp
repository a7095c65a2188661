// An analysis brought into the mode in which it is worked on.
#include "objects/AuthoringLoad.h"

#include "HandedOut.h"
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
  const auto container = HandedOutUntyped<KORIContainer>([component](void** out) {
    return KORPLMApplicativeContainerServices::Retrieve(out, component, KORIContainer::ClassId(), "KORFeatCont");
  });
  return container.GetStatus();
}

}  // namespace

long LoadForAuthoring(KORBaseUnknown* analysis) {
  const HandedOut<KORIOmiSwitchEngine> engine(
      [](KORIOmiSwitchEngine*& out) { return KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(out); });
  if (!engine.IsGiven() || analysis == nullptr) return engine.GetStatus();
  const long switched = SwitchToAuthoring(*engine.Get(), analysis);
  const KORIPLMComponent_var component(analysis);
  return Failed(switched) || component.IsNull() ? switched : LoadContainer(component.Get());
}

}  // namespace objects
