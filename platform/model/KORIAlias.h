// The display name of an object.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

/// How an object is called where it is shown.
class KORIAlias : public KORInterface<KORIAlias> {
 public:
  static constexpr const char* InterfaceName = "KORIAlias";

  /// The name under which the object is shown; empty for none.
  virtual KORUnicodeString GetAlias() = 0;
};
using KORIAlias_var = KORHandle<KORIAlias>;
