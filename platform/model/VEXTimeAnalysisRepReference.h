// A time analysis: attributes, lines, and the revision status remembered on it.
#pragma once

#include <vector>

#include "platform/base/KORExport.h"
#include "platform/model/KORRepReference.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/model/VEXITimeAnalysisRevisionCache.h"

/// The representation reference of a time analysis.
///
/// A line that reuses an analysis holds a counted handle to it. Analyses that reuse each other in a circle therefore
/// keep each other alive until one of them loses its lines (RemoveAllLines); KORModel does so for the analyses that it
/// made. One analysis serves one thread at a time.
class KORPLATFORM_API VEXTimeAnalysisRepReference final
    : public KORDerives<KORRepReference, VEXITimeAnalysisRepReference, VEXITimeAnalysisLines,
                        VEXITimeAnalysisProperties, VEXITimeAnalysisRevisionCache> {
 public:
  using KORDerives::KORDerives;

  const char* GetComponentName() const override { return "PCCMemVEXTimeAnalysisRepReference"; }

  // Attributes
  long GetValue(const KORString& key, unsigned char& value) override;
  long GetValue(const KORString& key, double& value) override;
  long GetValue(const KORString& key, int& value) override;
  long GetValue(const KORString& key, KORUnicodeString& value) override;
  long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override;
  long SetValue(const KORString& key, unsigned char value) override;
  long SetValue(const KORString& key, double value) override;
  long SetValue(const KORString& key, int value) override;
  long SetValue(const KORString& key, const KORUnicodeString& value) override;

  // Lines
  long GetLineCount(int& count) override;
  long GetLine(int row, VEXTimeAnalysisLineData& line) override;
  long SetLine(int row, VEXTimeAnalysisLineData& line) override;
  long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override;
  long RemoveAllLines() override;
  long GetLines(int first, int count, KORRawCollPV& lines) override;

  // Revision
  long GetRevisionStatus(int& status) override;
  long SetRevisionStatus(int status) override;

 private:
  const VEXTimeAnalysisLineData::Content* FindRow(int row) const;

  std::vector<VEXTimeAnalysisLineData::Content> _Rows;
  int _RevisionStatus = 0;
};
