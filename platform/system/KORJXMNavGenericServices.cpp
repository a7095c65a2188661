// Who works in the current session.
#include "platform/system/KORJXMNavGenericServices.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

long KORJXMNavGenericServices::GetCurrentUserId(KORUnicodeString& user) {
  return KORPerform("GetCurrentUserId", [&user] {
    const KORUnicodeString& current = KORSession::Current().GetCurrentUserId();
    if (current.IsEmpty()) return E_FAIL;
    user = current;
    return S_OK;
  });
}
