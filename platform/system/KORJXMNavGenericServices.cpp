// Who works in the current session.
#include "platform/system/KORJXMNavGenericServices.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

long KORJXMNavGenericServices::GetCurrentUserId(KORUnicodeString& user) {
  const KORSession& session = KORSession::Current();
  if (const long fault = session.GetFault("GetCurrentUserId"); fault != S_OK) return fault;
  if (session.GetCurrentUserId().IsEmpty()) return E_FAIL;
  user = session.GetCurrentUserId();
  return S_OK;
}
