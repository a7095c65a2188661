// The attributes that a command shows of a representation that is being edited.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/knowledge/KORICkeParm.h"

namespace objects {

/// As VEXSTTProvider::GetCkeParameters.
long SortParameters(const KORBaseUnknown* model, KORListValKORICkeParm_var& writable,
                    KORListValKORICkeParm_var& not_writable);

}  // namespace objects
