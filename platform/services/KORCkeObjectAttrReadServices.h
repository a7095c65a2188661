// Attributes of objects, read for the knowledge engine.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORICkeObject.h"

struct KORPLATFORM_API KORCkeObjectAttrReadServices {
  /// The value of an attribute as text, in the form of KORIValue::GetText: "TRUE" for a boolean that is set.
  /// S_OK; E_INVALIDARG for a null object; E_NOINTERFACE for one without KORIInstance; E_FAIL if it has no such
  /// attribute. `text` is left as it was on failure.
  static long GetValueAsString(const KORICkeObject_var& object, const KORUnicodeString& name, KORUnicodeString& text);
};
