// The revision status that is remembered on a time analysis.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"

class VEXITimeAnalysisRevisionCache : public KORInterface<VEXITimeAnalysisRevisionCache> {
 public:
  static constexpr const char* InterfaceName = "VEXITimeAnalysisRevisionCache";

  /// The status set last; 0 (unknown) on a new analysis. S_OK.
  virtual long GetRevisionStatus(int& status) = 0;
  /// S_OK.
  virtual long SetRevisionStatus(int status) = 0;
};
using VEXITimeAnalysisRevisionCache_var = KORHandle<VEXITimeAnalysisRevisionCache>;
