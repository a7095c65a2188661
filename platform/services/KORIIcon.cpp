// The icon of an object.
#include "platform/services/KORIIcon.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

long KORIconAdaptor::GetIconName(KORUnicodeString& name) {
  return KORPerform("KORIconAdaptor::GetIconName", [this, &name] {
    name = _NameThatWasSet;
    return S_OK;
  });
}

long KORIconAdaptor::SetIconName(const KORUnicodeString& name) {
  return KORPerform("KORIconAdaptor::SetIconName", [this, &name] {
    _NameThatWasSet = name;
    return S_OK;
  });
}
