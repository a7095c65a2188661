// The typed attributes of a time analysis.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

/// Attributes by key. A read gives S_OK, or E_FAIL with `value` left as it was if the attribute is not set or is set
/// under another type. A write gives S_OK and replaces a value of another type, too.
class VEXITimeAnalysisRepReference : public KORInterface<VEXITimeAnalysisRepReference> {
 public:
  static constexpr const char* InterfaceName = "VEXITimeAnalysisRepReference";

  virtual long GetValue(const KORString& key, unsigned char& value) = 0;
  virtual long GetValue(const KORString& key, double& value) = 0;
  virtual long GetValue(const KORString& key, int& value) = 0;
  virtual long GetValue(const KORString& key, KORUnicodeString& value) = 0;

  /// Fills two lists of equal size with the set attributes and their values as text, in the order and the form of
  /// VEXITimeAnalysisLines::GetLineAttributes. S_OK.
  virtual long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) = 0;

  virtual long SetValue(const KORString& key, unsigned char value) = 0;
  virtual long SetValue(const KORString& key, double value) = 0;
  virtual long SetValue(const KORString& key, int value) = 0;
  virtual long SetValue(const KORString& key, const KORUnicodeString& value) = 0;
};
using VEXITimeAnalysisRepReference_var = KORHandle<VEXITimeAnalysisRepReference>;
