// The analyses that streams become, and those that their lines refer to.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/Messages.h"
#include "tools/analysis/AnalysisBuilder.h"
#include "tools/exchange/ExchangedAnalysis.h"
#include "tools/exchange/StreamInputs.h"
#include "tools/exchange/StreamReader.h"

namespace tool {

/// They are all made ahead of the first that is filled, so that each finds those that it refers to, in any order.
class StreamAnalyses {
 public:
  /// Makes the analysis of a stream in the model of the current session, without lines.
  AnalysisHandle Make(const std::string& identifier);

  /// The analysis that is meant by the identifier from now on; lines may refer to the one before all the same.
  void Replace(const std::string& identifier, const AnalysisHandle& analysis) {
    _ByIdentifier[identifier].Analysis = analysis;
  }

  /// Makes an empty analysis for each that a stream refers to and that is not there, so that its identifier is kept.
  void Resolve(const StreamInput& input, const StreamContent& content);

  /// By row, what the analysis reuses.
  ReusedAnalyses ReusedBy(const AnalysisHandle& analysis) const;

  /// The references that lead to such an empty analysis, each once for a stream.
  const std::vector<Failure>& Unresolved() const { return _Unresolved; }

 private:
  std::map<std::string, BuiltAnalysis> _ByIdentifier;
  std::set<std::string> _StandIns;
  std::vector<Failure> _Unresolved;
};

}  // namespace tool
