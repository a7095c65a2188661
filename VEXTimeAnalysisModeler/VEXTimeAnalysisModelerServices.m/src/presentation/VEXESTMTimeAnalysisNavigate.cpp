// What the node of an analysis is called, and what stands below it.
#include "presentation/VEXESTMTimeAnalysisNavigate.h"

#include <memory>

#include "HandedOut.h"
#include "platform/model/KORIAlias.h"
#include "platform/model/PLMIRepInstance.h"
#include "presentation/DisplayGate.h"
#include "presentation/Registration.h"

namespace {

// The representation reference that an object is or is an instance of; null for any other object.
PLMIRepReference_var RepReferenceOf(KORBaseUnknown* object) {
  const PLMIRepReference_var itself(object);
  if (!itself.IsNull()) return itself;
  const PLMIRepInstance_var instance(object);
  if (instance.IsNull()) return NULL_var;
  return HandedOut<PLMIRepReference>(
             [&instance](PLMIRepReference*& reference) { return instance->GetRepReference(reference); })
      .Get();
}

}  // namespace

const KORMetaClass* VEXESTMTimeAnalysisNavigate::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXESTMTimeAnalysisNavigate");
  return meta_object;
}

KORListValKORUnicodeString* VEXESTMTimeAnalysisNavigate::GetNodeNames() {
  if (!presentation::IsNodeDisplayed()) return nullptr;
  const KORIAlias_var named = RepReferenceOf(GetImpl(0));
  if (named.IsNull()) return nullptr;
  auto names = std::make_unique<KORListValKORUnicodeString>(1);
  names->Append(named->GetAlias());
  return names.release();
}

KORListValKORBaseUnknown_var* VEXESTMTimeAnalysisNavigate::GetChildObjects() {
  return nullptr;
}
