// The revision status of the analyses of many operations while operations of the platform fail.
#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <vector>

#include "platform/base/KORError.h"
#include "tests/objects/RevisionBatchTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::ByCache;
using objectstest::ByOneQuery;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultRow;
using objectstest::FaultsFor;
using objectstest::FaultTest;
using objectstest::IdentificatorFor;
using objectstest::ListOf;
using objectstest::NewRevision;
using objectstest::NewShell;
using objectstest::ObjectsTest;
using objectstest::Placed;
using objectstest::QueryCount;
using objectstest::Revision;
using objectstest::RevisionShell_var;
using objectstest::StatusesBy;
using support::TimeAnalysis_var;

// Two operations. The analysis of the first one, "Top", is the last revision and reuses an older one; that of the
// second one, "Other", is older.
class RevisionBatchFaultTest : public FaultTest {
 protected:
  std::string AskOnce() {
    const int before = QueryCount();
    std::string outcome = StatusesBy(ByOneQuery, _Occurrences);
    EXPECT_LE(QueryCount(), before + 1);
    return outcome;
  }

  std::string AskOneByOne() {
    _Top->Remembered = VEXSTTProvider::TARevUnknown;
    (void)_Other->SetRevisionStatus(VEXSTTProvider::TARevUnknown);
    return StatusesBy(ByCache, _Occurrences);
  }

 private:
  RevisionShell_var _Top = NewShell(NewRevision("Top", Revision::Last, {NewRevision("Older", Revision::Older)}));
  TimeAnalysis_var _Other = NewRevision("Other", Revision::Older);
  KORListValKORBaseUnknown_var _Occurrences = ListOf({Placed(PLMIRepReference_var(_Top), "Top"), Placed(_Other)});
};

constexpr const char* All = "S_OK | Top Other | ReusedNotLatest NotLatest";
constexpr const char* None = "E_FAIL |  | ";
constexpr const char* OnlyOther = "S_OK | Other | NotLatest";
constexpr const char* AllUnknown = "S_OK | Top Other | Unknown Unknown";
constexpr const char* TopUnknown = "S_OK | Top Other | Unknown NotLatest";
constexpr const char* AllOlder = "S_OK | Top Other | NotLatest NotLatest";
constexpr const char* TopLatest = "S_OK | Top Other | Latest NotLatest";
constexpr const char* AllLatest = "S_OK | Top Other | Latest Latest";
constexpr const char* Lost = "E_FAIL | Top Other | ";

// On what the lines reuse: the same for one call and for all, and either way.
const std::vector<FaultRow> LineFaults{
    {"GetLineCount", TopLatest, All, TopLatest},
    {"GetLines", TopLatest, All, TopLatest},
};
// On what is remembered.
const std::vector<FaultRow> CacheFaults{
    {"GetRevisionStatus", All, All, All},
    {"SetRevisionStatus", All, All, All},
};
// On the way from the occurrences to the analyses.
const std::vector<FaultRow> WayAlways{
    {"GetRelatedInstance", None, None, None},
    {"GetInstanceReference", None, None, None},
    {"ListRepInstances", None, All, None},
};
const std::vector<FaultRow> WayOnce{
    {"GetRelatedInstance", OnlyOther, OnlyOther, OnlyOther},
    {"GetInstanceReference", OnlyOther, OnlyOther, OnlyOther},
    {"ListRepInstances", OnlyOther, All, OnlyOther},
    {"GetRepReference", OnlyOther, All, OnlyOther},
};

class OneQueryFaultTest : public RevisionBatchFaultTest {};

TEST_P(OneQueryFaultTest, GivesItsOutcome) {
  ExpectOutcome([this] { return AskOnce(); }, All);
}

INSTANTIATE_TEST_SUITE_P(Lines, OneQueryFaultTest, testing::ValuesIn(AllFaults(LineFaults)), FaultCaseName());
INSTANTIATE_TEST_SUITE_P(Way, OneQueryFaultTest, testing::ValuesIn(FaultsFor(KORFault::Life::Always, WayAlways)),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstStep, OneQueryFaultTest, testing::ValuesIn(FaultsFor(KORFault::Life::Once, WayOnce)),
                         FaultCaseName());
// The way does not look at the status of a reference, the tables do.
INSTANTIATE_TEST_SUITE_P(Calls, OneQueryFaultTest,
                         testing::ValuesIn(FaultsFor(KORFault::Life::Always,
                                                     {{"GetRepReference", None, AllUnknown, None},
                                                      {"GetPLMIdentificator", AllUnknown, All, AllUnknown},
                                                      {"CreateErrorMonitor", All, All, All},
                                                      {"GetVersioningInfo", AllUnknown, All, AllUnknown},
                                                      {"GetMajorVersioningInformation", AllOlder, AllOlder, AllOlder},
                                                      {"IsLastMajor", AllOlder, All, AllOlder},
                                                      {"GetElement", AllUnknown, All, AllUnknown},
                                                      {"IsSameAs", AllUnknown, All, AllUnknown}})),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstCall, OneQueryFaultTest,
                         testing::ValuesIn(FaultsFor(KORFault::Life::Once,
                                                     {{"GetPLMIdentificator", TopUnknown, All, TopUnknown},
                                                      {"CreateErrorMonitor", All, All, All},
                                                      {"GetVersioningInfo", AllUnknown, All, AllUnknown},
                                                      {"GetMajorVersioningInformation", AllOlder, AllOlder, AllOlder},
                                                      {"IsLastMajor", AllOlder, All, AllOlder},
                                                      {"GetElement", TopUnknown, All, TopUnknown},
                                                      {"IsSameAs", TopUnknown, All, TopUnknown}})),
                         FaultCaseName());

class OneByOneFaultTest : public RevisionBatchFaultTest {};

TEST_P(OneByOneFaultTest, GivesItsOutcome) {
  ExpectOutcome([this] { return AskOneByOne(); }, All);
}

INSTANTIATE_TEST_SUITE_P(Lines, OneByOneFaultTest, testing::ValuesIn(AllFaults(LineFaults)), FaultCaseName());
INSTANTIATE_TEST_SUITE_P(Cache, OneByOneFaultTest, testing::ValuesIn(AllFaults(CacheFaults)), FaultCaseName());
INSTANTIATE_TEST_SUITE_P(Way, OneByOneFaultTest, testing::ValuesIn(FaultsFor(KORFault::Life::Always, WayAlways)),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstStep, OneByOneFaultTest, testing::ValuesIn(FaultsFor(KORFault::Life::Once, WayOnce)),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(Calls, OneByOneFaultTest,
                         testing::ValuesIn(FaultsFor(KORFault::Life::Always,
                                                     {{"GetRepReference", None, Lost, None},
                                                      {"GetPLMIdentificator", AllOlder, All, AllOlder},
                                                      {"CreateErrorMonitor", All, All, All},
                                                      {"GetVersioningInfo", AllLatest, AllOlder, AllOlder},
                                                      {"GetMajorVersioningInformation", AllOlder, AllOlder, AllOlder},
                                                      {"IsLastMajor", AllOlder, All, AllOlder}})),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstCall, OneByOneFaultTest,
                         testing::ValuesIn(FaultsFor(KORFault::Life::Once,
                                                     {{"GetPLMIdentificator", AllOlder, All, AllOlder},
                                                      {"CreateErrorMonitor", All, All, All},
                                                      {"GetVersioningInfo", All, AllOlder, AllOlder},
                                                      {"GetMajorVersioningInformation", AllOlder, AllOlder, AllOlder},
                                                      {"IsLastMajor", AllOlder, All, AllOlder}})),
                         FaultCaseName());

// Lines that could not be read when the analysis was entered are read again behind the query.
TEST_F(ObjectsTest, LinesThatCannotBeReadAtFirstAreReadAgainBehindTheQuery) {
  const auto older = NewRevision("Older", Revision::Older);
  const RevisionShell_var top = NewShell(NewRevision("Top", Revision::Last, {older}));
  const KORListValKORBaseUnknown_var occurrences = ListOf({Placed(PLMIRepReference_var(top), "Top"), Placed(older)});
  for (const char* call : {"GetLineCount", "GetLines"}) {
    _Session.InjectFault(call, FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once));
    EXPECT_EQ(StatusesBy(ByOneQuery, occurrences), "S_OK | Top Older | ReusedNotLatest NotLatest") << call;
  }
}

// How many references there are to the identificator of an analysis.
unsigned long IdentificatorReferences(const TimeAnalysis_var& analysis) {
  const auto identificator = IdentificatorFor(KORIPLMComponent_var(analysis));
  (void)identificator->AddRef();
  return identificator->Release() - 1;  // but for the one of this function
}

// A raised error passes through, and what was handed out by then goes back.
class RevisionRaisedErrorTest : public objectstest::ObjectsRowTest<const char*> {};

TEST_P(RevisionRaisedErrorTest, IsPassedOn) {
  const auto top = NewRevision("Top", Revision::Last, {NewRevision("Older", Revision::Older)});
  const KORListValKORBaseUnknown_var occurrences = ListOf({Placed(top)});
  KORFault fault = FaultOf(KORFault::Kind::Raised);
  fault.Error = std::make_exception_ptr(KORError(E_FAIL, "raised"));
  _Session.InjectFault(GetParam(), fault);
  EXPECT_THROW((void)StatusesBy(ByOneQuery, occurrences), KORError);
  _Session.ClearFaults();
  EXPECT_EQ(IdentificatorReferences(top), 1u);
}

INSTANTIATE_TEST_SUITE_P(Calls, RevisionRaisedErrorTest,
                         testing::Values("GetRelatedInstance", "GetInstanceReference", "ListRepInstances",
                                         "GetRepReference", "GetPLMIdentificator", "CreateErrorMonitor",
                                         "GetVersioningInfo", "GetMajorVersioningInformation", "IsLastMajor",
                                         "GetElement", "IsSameAs"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
