// The text properties of a time analysis.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

/// The attributes of VEXITimeAnalysisRepReference, seen as texts; statuses as there.
class VEXITimeAnalysisProperties : public KORInterface<VEXITimeAnalysisProperties> {
 public:
  static constexpr const char* InterfaceName = "VEXITimeAnalysisProperties";

  virtual long GetValue(const KORString& key, KORUnicodeString& value) = 0;
  virtual long SetValue(const KORString& key, const KORUnicodeString& value) = 0;
};
using VEXITimeAnalysisProperties_var = KORHandle<VEXITimeAnalysisProperties>;
