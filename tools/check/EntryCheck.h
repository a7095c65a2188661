// One entry of a catalogue put through the lookup: do codes reach it, and do its formulas evaluate.
#pragma once

#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tools/CodeLookup.h"
#include "tools/PatternMatch.h"
#include "tools/PatternText.h"
#include "tools/check/EntryFields.h"
#include "tools/check/Finding.h"

namespace tool {

/// Checks the entries of one loaded entry file.
class EntryCheck {
 public:
  /// The service has the file loaded and has to outlive the object.
  explicit EntryCheck(VEXSTMTimeAnalysisDlgServices& service);

  /// What is wrong with the entry at `index` (from 0); `fields` are those of its element.
  std::vector<LineFlaw> Check(int index, const EntryFields& fields);

 private:
  struct SampleTally;

  void CheckPattern(int index);
  void CheckSamples(int index);
  void TakeMatch(int index, const std::string& code, const PatternMatch& match, SampleTally& tally);
  void TellWhatIsNeverReached(int index, const std::vector<PatternToken>& tokens, const SampleTally& tally);
  static bool AllTaken(const std::vector<PatternToken>& tokens, const SampleTally& tally);
  void CheckCode(int index);
  void CheckNumber(int index);
  void CheckOption(int index);
  void CheckReferences(int index);
  void CheckExample(int index);
  void CheckExampleOptions(const CodeAnswer& answer);
  bool CheckFormula(const std::string& formula, const double* values, const int* flags, const std::string& code);
  int AnsweringEntry(const std::string& code);
  void Add(const char* field, const char* kind, const std::string& text);

  VEXSTMTimeAnalysisDlgServices& _Service;
  bool _PartsWithPlus;
  const EntryFields* _Fields = nullptr;
  std::vector<LineFlaw> _Flaws;
};

}  // namespace tool
