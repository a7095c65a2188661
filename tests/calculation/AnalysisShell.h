// An analysis that passes every call on to another one, for tests that watch the calls, spoil them, or take interfaces
// away.
#pragma once

#include <utility>
#include <vector>

#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "tests/support/AnalysisBuilder.h"

namespace calculationtest {

class AnalysisShell
    : public KORImplements<VEXITimeAnalysisRepReference, VEXITimeAnalysisLines, VEXITimeAnalysisProperties> {
 public:
  explicit AnalysisShell(support::TimeAnalysis_var inside) : _Inside(std::move(inside)) {}

  /// From now on the interface is not offered.
  template <class Interface>
  AnalysisShell& Hide() {
    _Hidden.push_back(Interface::ClassId());
    return *this;
  }

  VEXTimeAnalysisRepReference& Inside() { return *_Inside; }

  long GetValue(const KORString& key, unsigned char& value) override { return _Inside->GetValue(key, value); }
  long GetValue(const KORString& key, double& value) override { return _Inside->GetValue(key, value); }
  long GetValue(const KORString& key, int& value) override { return _Inside->GetValue(key, value); }
  long GetValue(const KORString& key, KORUnicodeString& value) override { return _Inside->GetValue(key, value); }
  long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    return _Inside->GetAllValues(names, values);
  }
  long SetValue(const KORString& key, unsigned char value) override { return _Inside->SetValue(key, value); }
  long SetValue(const KORString& key, double value) override { return _Inside->SetValue(key, value); }
  long SetValue(const KORString& key, int value) override { return _Inside->SetValue(key, value); }
  long SetValue(const KORString& key, const KORUnicodeString& value) override { return _Inside->SetValue(key, value); }

  long GetLineCount(int& count) override { return _Inside->GetLineCount(count); }
  long GetLine(int row, VEXTimeAnalysisLineData& line) override { return _Inside->GetLine(row, line); }
  long SetLine(int row, VEXTimeAnalysisLineData& line) override { return _Inside->SetLine(row, line); }
  long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    return _Inside->GetLineAttributes(row, names, values);
  }
  long RemoveAllLines() override { return _Inside->RemoveAllLines(); }
  long GetLines(int first, int count, KORRawCollPV& lines) override { return _Inside->GetLines(first, count, lines); }

 protected:
  void* FindInterface(const KORUuid& interface_id) override {
    for (const KORUuid& hidden : _Hidden) {
      if (hidden == interface_id) return nullptr;
    }
    return KORImplements::FindInterface(interface_id);
  }

 private:
  support::TimeAnalysis_var _Inside;
  std::vector<KORUuid> _Hidden;
};

using AnalysisShell_var = KORHandle<AnalysisShell>;

/// A shell around an analysis.
inline AnalysisShell_var MakeShell(const support::TimeAnalysis_var& inside) {
  return AnalysisShell_var::Adopt(new AnalysisShell(inside));
}

/// A shell without one of its interfaces.
template <class Interface>
AnalysisShell_var MakeShellWithout(const support::TimeAnalysis_var& inside) {
  const AnalysisShell_var shell = MakeShell(inside);
  shell->Hide<Interface>();
  return shell;
}

/// An object that offers no interface at all.
class BareObject : public KORBaseUnknown {};

inline KORBaseUnknown_var MakeBareObject() {
  return KORBaseUnknown_var::Adopt(new BareObject);
}

}  // namespace calculationtest
