// Icons of nodes.
#include "platform/services/KORSextantInTreeEnabler.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

long KORSextantInTreeEnabler::NodeIconDisplay(const KORBaseUnknown_var& object, KORIGraphNode* node,
                                              const KORUnicodeString& icon_name) {
  return KORPerform("NodeIconDisplay", [&] {
    if (object.IsNull() || node == nullptr) return E_INVALIDARG;
    return node->SetIcon(icon_name);
  });
}
