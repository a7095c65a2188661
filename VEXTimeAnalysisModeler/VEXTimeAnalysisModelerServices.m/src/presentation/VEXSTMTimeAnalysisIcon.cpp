// The icon of analyses.
#include "presentation/VEXSTMTimeAnalysisIcon.h"

#include "objects/OperationWalk.h"
#include "platform/base/KORStatus.h"
#include "presentation/Registration.h"

namespace {

long IconNameOfReference(const PLMIRepInstance_var& instance, KORUnicodeString& name) {
  const HandedOut<PLMIRepReference> reference = objects::RepReferenceOf(instance);
  const KORIIcon_var icon = reference.Get();
  return icon.IsNull() ? reference.GetStatus() : icon->GetIconName(name);
}

}  // namespace

const KORMetaClass* VEXSTMTimeAnalysisIcon::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXSTMTimeAnalysisIcon");
  return meta_object;
}

long VEXSTMTimeAnalysisIcon::GetIconName(KORUnicodeString& name) {
  if (_IconIsCached != 0) {
    name = _IconName;
    return S_OK;
  }
  const long status = FetchIconName(name);
  if (Succeeded(status) && !name.IsEmpty()) {
    _IconName = name;
    _IconIsCached = 1;
  }
  return status;
}

long VEXSTMTimeAnalysisIcon::FetchIconName(KORUnicodeString& name) {
  if (!PLMIRepReference_var(GetImpl(0)).IsNull()) return KORIconAdaptor::GetIconName(name);
  const PLMIRepInstance_var instance(GetImpl(0));
  return instance.IsNull() ? E_FAIL : IconNameOfReference(instance, name);
}
