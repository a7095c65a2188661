// An analysis brought into the mode in which it is worked on.
#pragma once

#include "platform/base/KORBaseUnknown.h"

namespace objects {

/// As VEXSTMTimeAnalysisDlgServices::LoadRepRef.
long LoadForAuthoring(KORBaseUnknown* analysis);

}  // namespace objects
