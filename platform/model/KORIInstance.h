// Attributes of any object, looked up by name and read as text.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

/// The value of one attribute at the time it was asked for.
class KORIValue : public KORInterface<KORIValue> {
 public:
  static constexpr const char* InterfaceName = "KORIValue";

  /// The value as text: reals with as many digits as read back bit for bit, booleans as "TRUE" and "FALSE". S_OK.
  virtual long GetText(KORUnicodeString& text) = 0;
};
using KORIValue_var = KORHandle<KORIValue>;

class KORIInstance : public KORInterface<KORIInstance> {
 public:
  static constexpr const char* InterfaceName = "KORIInstance";

  /// The value of an attribute, with a reference that the caller releases; null if the object has no such attribute.
  virtual KORIValue* GetAttribute(const KORUnicodeString& name) = 0;
};
using KORIInstance_var = KORHandle<KORIInstance>;
