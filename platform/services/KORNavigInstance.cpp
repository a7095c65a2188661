// What a node of the tree stands for.
#include "platform/services/KORNavigInstance.h"

#include "platform/system/KORPerform.h"

KORBaseUnknown_var KORNavigInstance::GetReference() const {
  return KORGive("KORNavigInstance::GetReference", [this] { return _Object; });
}
