// What the node of an analysis is called, and what stands below it.
#include "presentation/VEXESTMTimeAnalysisNavigate.h"

#include <memory>

#include "objects/OperationWalk.h"
#include "platform/model/KORIAlias.h"
#include "presentation/DisplayGate.h"
#include "presentation/Registration.h"

namespace {

// The representation reference that an object is or is an instance of; null for any other object.
PLMIRepReference_var RepReferenceOfEither(KORBaseUnknown* object) {
  const PLMIRepReference_var itself(object);
  if (!itself.IsNull()) return itself;
  const PLMIRepInstance_var instance(object);
  return instance.IsNull() ? NULL_var : objects::RepReferenceOf(instance).Get();
}

}  // namespace

const KORMetaClass* VEXESTMTimeAnalysisNavigate::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXESTMTimeAnalysisNavigate");
  return meta_object;
}

KORListValKORUnicodeString* VEXESTMTimeAnalysisNavigate::GetNodeNames() {
  if (!presentation::IsNodeDisplayed()) return nullptr;
  const KORIAlias_var named = RepReferenceOfEither(GetImpl(0));
  if (named.IsNull()) return nullptr;
  auto names = std::make_unique<KORListValKORUnicodeString>(1);
  names->Append(named->GetAlias());
  return names.release();
}

KORListValKORBaseUnknown_var* VEXESTMTimeAnalysisNavigate::GetChildObjects() {
  return nullptr;
}
