// Who has reserved a time analysis.
#include "objects/LockStatus.h"

#include "objects/OperationWalk.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORICkeObject.h"
#include "platform/model/PLMIRepInstance.h"
#include "platform/services/KORCkeObjectAttrReadServices.h"
#include "platform/services/KORCkePLMNavPublicServices.h"
#include "platform/system/KORJXMNavGenericServices.h"

namespace objects {

namespace {

// Whether the two texts have any likeness: reservations ask for no more than that, whereas names are compared exactly.
bool IsAlike(const KORUnicodeString& left, const KORUnicodeString& right) {
  return left.Compare(right) != 0;
}

void FillWithCurrentUser(KORUnicodeString& user) {
  if (user.IsEmpty()) (void)KORJXMNavGenericServices::GetCurrentUserId(user);
}

// `status` is left as it was unless the result is S_OK.
long LockStatusOf(const KORICkeObject_var& object, const KORUnicodeString& user, VEXSTTProvider::TALockStatus& status) {
  if (object.IsNull()) return E_INVALIDARG;
  const KORUnicodeString reserved_name = KORCkePLMNavPublicServices::GetReservedAttributeNameFromObject(object);
  const KORUnicodeString reserved_by_name = KORCkePLMNavPublicServices::GetReservedByAttributeNameFromObject(object);
  KORUnicodeString reserved_by;
  if (Failed(KORCkeObjectAttrReadServices::GetValueAsString(object, reserved_by_name, reserved_by))) return S_FALSE;
  KORUnicodeString reserved;
  if (Failed(KORCkeObjectAttrReadServices::GetValueAsString(object, reserved_name, reserved))) return S_FALSE;
  if (!IsAlike(reserved, "TRUE")) return S_FALSE;
  status = IsAlike(reserved_by, user) ? VEXSTTProvider::TALockByMe : VEXSTTProvider::TANotLockByMe;
  return S_OK;
}

}  // namespace

long LockStatusOfInstance(const KORBaseUnknown_var& instance, VEXSTTProvider::TALockStatus& status,
                          KORUnicodeString user) {
  status = VEXSTTProvider::TANotLocked;
  FillWithCurrentUser(user);
  return LockStatusOf(PLMIRepInstance_var(instance), user, status);
}

long LockStatusOfReference(const KORBaseUnknown_var& instance, VEXSTTProvider::TALockStatus& status,
                           KORUnicodeString user) {
  status = VEXSTTProvider::TANotLocked;
  FillWithCurrentUser(user);
  return LockStatusOf(AnalysisOfRepInstance(instance), user, status);
}

}  // namespace objects
