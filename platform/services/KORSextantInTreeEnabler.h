// Icons of nodes.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/services/KORIGraphNode.h"

/// Gives nodes their icons.
struct KORPLATFORM_API KORSextantInTreeEnabler {
  /// Sets the icon of the node that stands for an object; masks on the icon before are gone. S_OK; E_INVALIDARG for
  /// null.
  static long NodeIconDisplay(const KORBaseUnknown_var& object, KORIGraphNode* node, const KORUnicodeString& icon_name);
};
