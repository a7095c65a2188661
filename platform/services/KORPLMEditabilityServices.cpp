// Whether objects may be changed by the user.
#include "platform/services/KORPLMEditabilityServices.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KOROperation.h"
#include "platform/system/KORPerform.h"

namespace {

// The operation reference that an object is and that may not be changed; null for all others.
const KOROperationReference* FindLocked(const KORBaseUnknown_var& object) {
  const auto* const operation = dynamic_cast<const KOROperationReference*>(object.Get());
  return operation == nullptr || operation->IsEditable() ? nullptr : operation;
}

KORUnicodeString IdentifierOf(const KOROperationReference& operation) {
  KORUnicodeString identifier;
  (void)operation.GetAttributes().Get("PLM_ExternalID", identifier);
  return identifier;
}

}  // namespace

long KORPLMEditabilityServices::GetEditabilityStatus(const KORListValKORBaseUnknown_var& objects,
                                                     KORListValKORBoolean& editable,
                                                     KORListValKORUnicodeString* errors) {
  return KORPerform("GetEditabilityStatus", [&] {
    long status = S_OK;
    for (const KORBaseUnknown_var& object : objects) {
      const KOROperationReference* const locked = FindLocked(object);
      editable.Append(object.IsNull() || locked != nullptr ? 0 : 1);
      if (locked == nullptr) continue;
      if (errors != nullptr) errors->Append(IdentifierOf(*locked));
      status = E_FAIL;
    }
    return status;
  });
}
