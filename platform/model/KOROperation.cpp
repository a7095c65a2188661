// Operations: occurrences, instances and references, and the representation instances under a reference.
#include "platform/model/KOROperation.h"

#include <algorithm>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

namespace {

// Hands out what the handle holds, with a reference; null and a failure for a null handle and for a fault.
template <class Interface>
long HandOut(const char* operation, const KORHandle<Interface>& held, Interface*& out) {
  out = nullptr;
  if (const long fault = KORSession::Current().GetFault(operation); fault != S_OK) return fault;
  if (held.IsNull()) return E_FAIL;
  held->AddRef();
  out = held.Get();
  return S_OK;
}

}  // namespace

long KORRepInstance::GetRepReference(PLMIRepReference*& reference) {
  return HandOut("GetRepReference", _Reference, reference);
}

long KOROperationInstance::GetInstanceReference(KORIPLMNavReference*& reference) {
  return HandOut("GetInstanceReference", _Reference, reference);
}

long KOROperationOccurrence::GetRelatedInstance(KORIPLMNavInstance*& instance) {
  return HandOut("GetRelatedInstance", _Instance, instance);
}

long KOROperationReference::ListRepInstances(KORListValKORBaseUnknown_var& instances) {
  instances.RemoveAll();
  if (const long fault = KORSession::Current().GetFault("ListRepInstances"); fault != S_OK) return fault;
  for (const KORHandle<KORRepInstance>& instance : _Instances) instances.Append(instance);
  return S_OK;
}

long KOROperationReference::AddRepInstance(KORIAdpEnvironment* /*environment*/, PLMIRepReference* reference,
                                           PLMIRepInstance*& instance, int /*reserved*/) {
  instance = nullptr;
  if (const long fault = KORSession::Current().GetFault("AddRepInstance"); fault != S_OK) return fault;
  if (reference == nullptr) return E_INVALIDARG;
  const auto added = KORHandle<KORRepInstance>::Adopt(new KORRepInstance(PLMIRepReference_var(reference)));
  _Instances.push_back(added);
  added->AddRef();
  instance = added.Get();
  return S_OK;
}

long KOROperationReference::RemoveRepInstance(PLMIRepInstance* instance) {
  if (const long fault = KORSession::Current().GetFault("RemoveRepInstance"); fault != S_OK) return fault;
  if (instance == nullptr) return E_INVALIDARG;
  const auto found = std::find(_Instances.begin(), _Instances.end(), PLMIRepInstance_var(instance));
  if (found == _Instances.end()) return E_FAIL;
  _Instances.erase(found);
  return S_OK;
}
