// Operations: occurrences, instances and references, and the representation instances under a reference.
#include "platform/model/KOROperation.h"

#include <algorithm>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/system/KORPerform.h"

KORRepInstance::KORRepInstance(PLMIRepReference_var reference)
    : _Reference(std::move(reference)),
      _Component(VEXITimeAnalysisRepReference_var(_Reference).IsNull() ? "" : "PCCMemVEXTimeAnalysisRepInstance") {
}

long KORRepInstance::GetRepReference(PLMIRepReference*& reference) {
  return KORHandOut("GetRepReference", _Reference, reference);
}

long KOROperationInstance::GetInstanceReference(KORIPLMNavReference*& reference) {
  return KORHandOut("GetInstanceReference", _Reference, reference);
}

long KOROperationOccurrence::GetRelatedInstance(KORIPLMNavInstance*& instance) {
  return KORHandOut("GetRelatedInstance", _Instance, instance);
}

long KOROperationReference::ListRepInstances(KORListValKORBaseUnknown_var& instances) {
  instances.RemoveAll();
  return KORPerform("ListRepInstances", [this, &instances] {
    for (const KORHandle<KORRepInstance>& instance : _Instances) instances.Append(instance);
    return S_OK;
  });
}

long KOROperationReference::AddRepInstance(KORIAdpEnvironment* /*environment*/, PLMIRepReference* reference,
                                           PLMIRepInstance*& instance, int /*reserved*/) {
  instance = nullptr;
  return KORPerform("AddRepInstance", [this, reference, &instance] {
    if (reference == nullptr) return E_INVALIDARG;
    const auto added = KORHandle<KORRepInstance>::Adopt(new KORRepInstance(PLMIRepReference_var(reference)));
    _Instances.push_back(added);
    added->AddRef();
    instance = added.Get();
    return S_OK;
  });
}

long KOROperationReference::RemoveRepInstance(PLMIRepInstance* instance) {
  return KORPerform("RemoveRepInstance", [this, instance] {
    if (instance == nullptr) return E_INVALIDARG;
    const auto found = std::find(_Instances.begin(), _Instances.end(), PLMIRepInstance_var(instance));
    if (found == _Instances.end()) return E_FAIL;
    _Instances.erase(found);
    return S_OK;
  });
}
