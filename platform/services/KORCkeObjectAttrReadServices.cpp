// Attributes of objects, read for the knowledge engine.
#include "platform/services/KORCkeObjectAttrReadServices.h"

#include "platform/base/KORStatus.h"
#include "platform/model/KORIInstance.h"
#include "platform/system/KORPerform.h"

long KORCkeObjectAttrReadServices::GetValueAsString(const KORICkeObject_var& object, const KORUnicodeString& name,
                                                    KORUnicodeString& text) {
  return KORPerform("GetValueAsString", [&]() -> long {
    if (object.IsNull()) return E_INVALIDARG;
    const KORIInstance_var instance = object;
    if (instance.IsNull()) return E_NOINTERFACE;
    const auto value = KORIValue_var::Adopt(instance->GetAttribute(name));
    return value.IsNull() ? E_FAIL : value->GetText(text);
  });
}
