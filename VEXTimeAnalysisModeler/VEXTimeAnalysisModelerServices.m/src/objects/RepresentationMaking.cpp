// Time analyses made, put under operations and taken away from there.
#include "objects/RepresentationMaking.h"

#include "HandedOut.h"
#include "objects/OperationWalk.h"
#include "objects/TimeAnalysisType.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORICkeObject.h"
#include "platform/model/PLMIRepInstance.h"
#include "platform/services/KORCkePLMCoreServices.h"
#include "platform/services/KORIType.h"
#include "platform/services/PLMIRepresentationReferenceFactory.h"
#include "platform/services/PLMPSISessionHelpers.h"

namespace objects {

namespace {

// The environment of the session; null if there is none. Statuses are not looked at.
KORIAdpEnvironment_var CurrentEnvironment() {
  const HandedOut<PLMPSISessionHelpers> helpers(
      [](PLMPSISessionHelpers*& out) { return PLMPSISessionHelpers::GetSessionHelpers(out); });
  if (helpers.Get().IsNull()) return NULL_var;
  return HandedOut<KORIAdpEnvironment>(
             [&helpers](KORIAdpEnvironment*& out) { return helpers.Get()->GetCurrentEnvironment(out); })
      .Get();
}

// Copies the values of a proxy to a new representation. The status of the copying; `status` if there is nothing to copy
// or nothing to copy it to.
long FillFromProxy(const KORBaseUnknown_var& representation, const KORIInstance_var& proxy, long status) {
  const KORIInstance_var instance = representation;
  if (proxy.IsNull() || instance.IsNull()) return status;
  KORIType_var type;
  (void)KORCkePLMCoreServices::RetrieveTypeFromProxy(KORICkeObject_var(proxy), type);
  return KORCkePLMCoreServices::FillAttributesFromProxyOrBusinessLogicOnObject(instance, type, nullptr, proxy, nullptr,
                                                                               1);
}

}  // namespace

long MakeRepresentation(KORBaseUnknown_var& representation, const KORListValKORICkeParm_var& /*writable_attributes*/,
                        const KORListValKORICkeParm_var& creation_attributes, const KORIInstance_var& proxy) {
  const HandedOut<PLMIRepresentationReferenceFactory> factory = FetchAnalysisFactory();
  if (!factory.IsGiven()) return factory.GetStatus();
  KORIType_var type;
  const long type_status = RetrieveAnalysisType(type);
  const KORIAdpEnvironment_var environment = CurrentEnvironment();
  if (environment.IsNull() || type.IsNull()) return type_status;
  const HandedOut<KORBaseUnknown> made([&](KORBaseUnknown*& out) {
    return factory.Get()->CreateRepReference(environment.Get(), type, creation_attributes, "KORData", out, 0);
  });
  if (!made.IsGiven()) return made.GetStatus();
  representation = KORBaseUnknown_var(made.Get().Get());
  return FillFromProxy(representation, proxy, made.GetStatus());
}

long AttachRepresentation(const KORBaseUnknown_var& operation, const KORBaseUnknown_var& representation) {
  if (operation.IsNull()) return E_FAIL;
  const PLMIRepInstances_var instances = operation;
  const PLMIRepReference_var reference = representation;
  const KORIAdpEnvironment_var environment = CurrentEnvironment();
  if (environment.IsNull() || instances.IsNull()) return E_FAIL;
  return HandedOut<PLMIRepInstance>([&](PLMIRepInstance*& out) {
           return instances->AddRepInstance(environment.Get(), reference.Get(), out, 0);
         })
      .GetStatus();
}

long DetachAnalysis(const KORBaseUnknown_var& operation) {
  if (operation.IsNull()) return E_FAIL;
  const PLMIRepInstances_var instances = operation;
  const AnalysisPlace place = FindAnalysis(instances);
  if (place.Instance.IsNull()) return E_FAIL;
  (void)instances->RemoveRepInstance(place.Instance.Get());
  return S_OK;
}

}  // namespace objects
