// Who works in the current session.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

struct KORPLATFORM_API KORJXMNavGenericServices {
  /// The user who is logged in to the current session, in the form in which reservations name users.
  /// S_OK; E_FAIL, with `user` left as it was, if nobody is logged in.
  static long GetCurrentUserId(KORUnicodeString& user);
};
