// What the tests of reservation and revision share: analyses of each kind of revision, an analysis whose interfaces,
// identificator and remembered status a test decides over, and outcomes as texts.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "VEXSTTProvider.h"
#include "platform/model/PLMIRepInstance.h"
#include "platform/model/VEXITimeAnalysisRevisionCache.h"
#include "platform/services/KORAdpVersioning.h"
#include "platform/system/KORPerform.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"

namespace objectstest {

/// What the database knows of an analysis.
enum class Revision {
  Last,
  Older,   // there is a later major revision
  Unknown  // nothing
};

inline void SetRevision(const TimeAnalysis_var& analysis, Revision revision) {
  analysis->GetContent().IsInDatabase = revision != Revision::Unknown;
  analysis->GetContent().IsLastMajorRevision = revision == Revision::Last;
}

/// An analysis of the current session's model that reuses others, one on each of its lines.
inline TimeAnalysis_var NewRevision(std::string_view identifier, Revision revision,
                                    const std::vector<KORBaseUnknown_var>& reused = {}) {
  std::vector<Line> lines;
  for (const KORBaseUnknown_var& one : reused) lines.push_back(Line().Reuses(one));
  TimeAnalysis_var analysis = NewAnalysis(identifier, lines);
  SetRevision(analysis, revision);
  return analysis;
}

/// The identificator of an object of the model.
inline KORIAdpPLMIdentificator_var IdentificatorFor(const KORIPLMComponent_var& component) {
  KORIAdpPLMIdentificator* identificator = nullptr;
  EXPECT_EQ(component->GetPLMIdentificator(identificator), S_OK);
  return KORIAdpPLMIdentificator_var::Adopt(identificator);
}

/// How often the database of the current session was asked.
inline int QueryCount() {
  return KORVersioningDatabase::Current().GetQueryCount();
}

/// An analysis around another one, of which it has attributes and lines; the rest a test decides over. Faults of the
/// session reach its lines and what is remembered on it, too.
class RevisionShell : public KORDerives<calculationtest::AnalysisShell, PLMIRepReference, KORIPLMComponent,
                                        VEXITimeAnalysisRevisionCache> {
 public:
  explicit RevisionShell(TimeAnalysis_var inside)
      : KORDerives(inside), Identificator(IdentificatorFor(KORIPLMComponent_var(inside))) {}

  KORIAdpPLMIdentificator_var Identificator;  // at first that of the analysis inside; null for none
  int Remembered = 0;
  std::vector<int> Written;  // all that was remembered, in order

  /// From now on the interface is not offered.
  template <class Interface>
  RevisionShell& Without() {
    _Hidden.push_back(Interface::ClassId());
    return *this;
  }

  long GetLineCount(int& count) override {
    return KORPerform("GetLineCount", [this, &count] { return AnalysisShell::GetLineCount(count); });
  }
  long GetLines(int first, int count, KORRawCollPV& lines) override {
    return KORPerform("GetLines", [&] { return AnalysisShell::GetLines(first, count, lines); });
  }
  long GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) override {
    return KORHandOut("GetPLMIdentificator", Identificator, identificator);
  }
  long GetRevisionStatus(int& status) override {
    return KORPerform("GetRevisionStatus", [this, &status] {
      status = Remembered;
      return S_OK;
    });
  }
  long SetRevisionStatus(int status) override {
    return KORPerform("SetRevisionStatus", [this, status] {
      Remembered = status;
      Written.push_back(status);
      return S_OK;
    });
  }

 protected:
  void* FindInterface(const KORUuid& interface_id) override {
    const bool is_hidden = std::find(_Hidden.begin(), _Hidden.end(), interface_id) != _Hidden.end();
    return is_hidden ? nullptr : KORDerives::FindInterface(interface_id);
  }

 private:
  std::vector<KORUuid> _Hidden;
};
using RevisionShell_var = KORHandle<RevisionShell>;

inline RevisionShell_var NewShell(const TimeAnalysis_var& inside) {
  return RevisionShell_var::Adopt(new RevisionShell(inside));
}

/// The name of a TARevStatus; the number of any other value.
inline std::string RevisionName(int status) {
  switch (status) {
    case VEXSTTProvider::TARevUnknown:
      return "Unknown";
    case VEXSTTProvider::TARevLatest:
      return "Latest";
    case VEXSTTProvider::TARevNotLatest:
      return "NotLatest";
    case VEXSTTProvider::TARevReusedNotLatest:
      return "ReusedNotLatest";
    default:
      return std::to_string(status);
  }
}

/// A number that is no status, for out arguments that are to stay as they were.
inline constexpr int UntouchedStatus = 99;

/// Result and status of GetTARevStatusFromDB or GetTARevStatus, as "S_OK Latest".
using StatusQuestion = long (*)(const VEXITimeAnalysisRepReference_var&, VEXSTTProvider::TARevStatus&);
inline std::string StatusBy(StatusQuestion question, const VEXITimeAnalysisRepReference_var& analysis) {
  auto status = static_cast<VEXSTTProvider::TARevStatus>(UntouchedStatus);
  const long result = question(analysis, status);
  return StatusName(result) + " " + RevisionName(status);
}

/// The rows of a table of faults, each under every kind, for one life.
inline std::vector<FaultCase> FaultsFor(KORFault::Life life, const std::vector<FaultRow>& rows) {
  std::vector<FaultCase> cases;
  for (const FaultRow& row : rows) {
    for (const KORFault::Kind kind : FaultKinds) cases.push_back({row, kind, life});
  }
  return cases;
}

}  // namespace objectstest
