// What stands in for an analysis where the exchange asks for one.
#pragma once

#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace tool {

/// Refuses all that is asked of it; those that derive from it answer what they can.
class AnalysisStandIn : public KORImplements<VEXITimeAnalysisRepReference, VEXITimeAnalysisLines> {
 public:
  long GetValue(const KORString& /*key*/, unsigned char& /*value*/) override { return E_FAIL; }
  long GetValue(const KORString& /*key*/, double& /*value*/) override { return E_FAIL; }
  long GetValue(const KORString& /*key*/, int& /*value*/) override { return E_FAIL; }
  long GetValue(const KORString& /*key*/, KORUnicodeString& /*value*/) override { return E_FAIL; }
  long GetAllValues(KORListValKORUnicodeString& /*names*/, KORListValKORUnicodeString& /*values*/) override {
    return E_FAIL;
  }
  long SetValue(const KORString& /*key*/, unsigned char /*value*/) override { return E_FAIL; }
  long SetValue(const KORString& /*key*/, double /*value*/) override { return E_FAIL; }
  long SetValue(const KORString& /*key*/, int /*value*/) override { return E_FAIL; }
  long SetValue(const KORString& /*key*/, const KORUnicodeString& /*value*/) override { return E_FAIL; }

  long GetLineCount(int& /*count*/) override { return E_FAIL; }
  long GetLine(int /*row*/, VEXTimeAnalysisLineData& /*line*/) override { return E_FAIL; }
  long SetLine(int /*row*/, VEXTimeAnalysisLineData& /*line*/) override { return E_FAIL; }
  long GetLineAttributes(int /*row*/, KORListValKORUnicodeString& /*names*/,
                         KORListValKORUnicodeString& /*values*/) override {
    return E_FAIL;
  }
  long RemoveAllLines() override { return E_FAIL; }
  long GetLines(int /*first*/, int /*count*/, KORRawCollPV& /*lines*/) override { return E_FAIL; }
};

}  // namespace tool
