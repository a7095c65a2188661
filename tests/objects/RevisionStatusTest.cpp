// Whether an analysis and those that it reuses are last revisions: asked of the database one by one, and remembered.
#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "VEXSTTProvider.h"
#include "platform/base/KORError.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/objects/RevisionTest.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultRow;
using objectstest::FaultsFor;
using objectstest::FaultTest;
using objectstest::IdentificatorFor;
using objectstest::Line;
using objectstest::NewDrawing;
using objectstest::NewOperation;
using objectstest::NewRevision;
using objectstest::NewShell;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::QueryCount;
using objectstest::Revision;
using objectstest::RevisionShell_var;
using objectstest::SetRevision;
using objectstest::StatusBy;
using support::CircleBreaker;
using support::RowName;
using support::TimeAnalysis_var;

using Provider = VEXSTTProvider;

VEXITimeAnalysisRepReference_var AnOlderRevision() {
  return NewRevision("Older", Revision::Older);
}

// ---- One analysis ----

struct LatestRow {
  const char* name;
  std::function<VEXITimeAnalysisRepReference_var()> make;
  unsigned char is_latest;
  int queries;
};

void PrintTo(const LatestRow& row, std::ostream* out) {
  *out << row.name;
}

class IsLatestTest : public ObjectsRowTest<LatestRow> {};

TEST_P(IsLatestTest, IsAskedOfTheDatabase) {
  const VEXITimeAnalysisRepReference_var analysis = GetParam().make();
  EXPECT_EQ(Provider::IsTARevLatest(analysis), GetParam().is_latest);
  EXPECT_EQ(QueryCount(), GetParam().queries);
}

// An analysis of that revision of which the database also tells something it was not asked for.
std::function<VEXITimeAnalysisRepReference_var()> WithNewsOfAnother(Revision revision, bool other_is_last) {
  return [revision, other_is_last] {
    const auto other = IdentificatorFor(KORIPLMComponent_var(NewRevision("Other", Revision::Last)));
    KORVersioningDatabase::Current().AnswerBesides(KORAdpVersioningInfo(other, other_is_last));
    return NewRevision("Fasten", revision);
  };
}

INSTANTIATE_TEST_SUITE_P(
    Analyses, IsLatestTest,
    testing::Values(LatestRow{"Null", [] { return VEXITimeAnalysisRepReference_var(); }, 0, 0},
                    LatestRow{"Last", [] { return NewRevision("Fasten", Revision::Last); }, 1, 1},
                    LatestRow{"Older", AnOlderRevision, 0, 1},
                    LatestRow{"UnknownToTheDatabase", [] { return NewRevision("Fasten", Revision::Unknown); }, 0, 1},
                    LatestRow{"NoComponent",
                              [] {
                                const RevisionShell_var shell = NewShell(NewRevision("Fasten", Revision::Last));
                                shell->Without<KORIPLMComponent>();
                                return shell;
                              },
                              0, 0},
                    LatestRow{"NoIdentificator",
                              [] {
                                const RevisionShell_var shell = NewShell(NewRevision("Fasten", Revision::Last));
                                shell->Identificator = nullptr;
                                return shell;
                              },
                              0, 0},
                    LatestRow{"WhatItReusesDoesNotCount",
                              [] { return NewRevision("Fasten", Revision::Last, {AnOlderRevision()}); }, 1, 1},
                    LatestRow{"TwoInformations", WithNewsOfAnother(Revision::Last, true), 0, 1},
                    // Whom a single information is of is not looked at.
                    LatestRow{"OnlyNewsOfAnotherThatIsLast", WithNewsOfAnother(Revision::Unknown, true), 1, 1},
                    LatestRow{"OnlyNewsOfAnotherThatIsOlder", WithNewsOfAnother(Revision::Unknown, false), 0, 1}),
    RowName());

// ---- An analysis and what it reuses ----

struct StatusRow {
  const char* name;
  std::function<VEXITimeAnalysisRepReference_var()> make;
  std::string outcome;
  int queries;
};

void PrintTo(const StatusRow& row, std::ostream* out) {
  *out << row.name;
}

// An analysis that reuses those, and is the last revision unless told otherwise.
std::function<VEXITimeAnalysisRepReference_var()> Reusing(const std::vector<Revision>& reused,
                                                          Revision revision = Revision::Last) {
  return [reused, revision] {
    std::vector<KORBaseUnknown_var> analyses;
    for (const Revision one : reused) analyses.emplace_back(NewRevision("Reused", one));
    return NewRevision("Fasten", revision, analyses);
  };
}

class RevisionStatusTest : public ObjectsRowTest<StatusRow> {};

TEST_P(RevisionStatusTest, IsAskedOfTheDatabase) {
  const VEXITimeAnalysisRepReference_var analysis = GetParam().make();
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatusFromDB, analysis), GetParam().outcome);
  EXPECT_EQ(QueryCount(), GetParam().queries);
}

TEST_P(RevisionStatusTest, IsTheSameWhereNothingIsRemembered) {
  const VEXITimeAnalysisRepReference_var analysis = GetParam().make();
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, analysis), GetParam().outcome);
  EXPECT_EQ(QueryCount(), GetParam().queries);
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, analysis), GetParam().outcome);
  EXPECT_EQ(QueryCount(), GetParam().queries) << "once it is remembered";
}

INSTANTIATE_TEST_SUITE_P(
    Analyses, RevisionStatusTest,
    testing::Values(
        StatusRow{"Null", [] { return VEXITimeAnalysisRepReference_var(); }, "E_FAIL 99", 0},
        StatusRow{"Last", Reusing({}), "S_OK Latest", 1},
        StatusRow{"Older", Reusing({}, Revision::Older), "S_OK NotLatest", 1},
        StatusRow{"UnknownToTheDatabase", Reusing({}, Revision::Unknown), "S_OK NotLatest", 1},
        StatusRow{"ReusesLastOnes", Reusing({Revision::Last, Revision::Last}), "S_OK Latest", 3},
        StatusRow{"ReusesAnOlderOne", Reusing({Revision::Older}), "S_OK ReusedNotLatest", 2},
        StatusRow{"ReusesOneUnknownToTheDatabase", Reusing({Revision::Unknown}), "S_OK ReusedNotLatest", 2},
        StatusRow{"EndsAtTheFirstOlderOne", Reusing({Revision::Last, Revision::Older, Revision::Older, Revision::Last}),
                  "S_OK ReusedNotLatest", 3},
        StatusRow{"OlderAndReusesAnOlderOne", Reusing({Revision::Older}, Revision::Older), "S_OK NotLatest", 1},
        StatusRow{"ReusesOneOnTwoLines",
                  [] {
                    const auto reused = NewRevision("Reused", Revision::Last);
                    return NewRevision("Fasten", Revision::Last, {reused, reused});
                  },
                  "S_OK Latest", 3},
        StatusRow{"OnlyWhatItReusesDirectlyCounts",
                  [] {
                    const auto middle = NewRevision("Middle", Revision::Last, {AnOlderRevision()});
                    return NewRevision("Fasten", Revision::Last, {middle});
                  },
                  "S_OK Latest", 2},
        StatusRow{"OrdinaryLines",
                  [] {
                    return NewRevision("Fasten", Revision::Last, {KORBaseUnknown_var(), KORBaseUnknown_var()});
                  },
                  "S_OK Latest", 1},
        StatusRow{"ReusesWhatIsNoAnalysis",
                  [] {
                    const KORBaseUnknown_var drawing = NewDrawing("Sketch");
                    dynamic_cast<KORRepReference&>(*drawing).GetContent().IsLastMajorRevision = false;
                    return NewRevision("Fasten", Revision::Last, {drawing, NewOperation("Cover")});
                  },
                  "S_OK Latest", 1},
        StatusRow{"NoLines",
                  [] {
                    const RevisionShell_var shell =
                        NewShell(NewRevision("Fasten", Revision::Last, {AnOlderRevision()}));
                    shell->Hide<VEXITimeAnalysisLines>();
                    return shell;
                  },
                  "S_OK Latest", 1}),
    RowName());

TEST_F(ObjectsTest, RevisionStatusOfACircleEnds) {
  const auto first = NewRevision("First", Revision::Last);
  const auto second = NewRevision("Second", Revision::Older, {first, first});
  const CircleBreaker breaker({first});
  support::AppendLines(*first, {Line().Reuses(first), Line().Reuses(second)});
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatusFromDB, first), "S_OK ReusedNotLatest");
  EXPECT_EQ(QueryCount(), 3);
}

// ---- What is remembered ----

class RememberedStatusTest : public ObjectsTest {
 protected:
  TimeAnalysis_var _Analysis = NewRevision("Fasten", Revision::Last);
  RevisionShell_var _Shell = NewShell(_Analysis);
};

TEST_F(RememberedStatusTest, IsGivenWithoutAQueryAndWrittenBack) {
  for (const int remembered : {1, 2, 3, 7, -1}) {
    _Shell->Written.clear();
    _Shell->Remembered = remembered;
    EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, _Shell), "S_OK " + objectstest::RevisionName(remembered));
    EXPECT_EQ(_Shell->Written, std::vector<int>{remembered});
  }
  EXPECT_EQ(QueryCount(), 0);
}

TEST_F(RememberedStatusTest, IsWorkedOutAndWrittenWhereItIsUnknown) {
  SetRevision(_Analysis, Revision::Older);
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, _Shell), "S_OK NotLatest");
  EXPECT_EQ(_Shell->Written, std::vector<int>{Provider::TARevNotLatest});
  EXPECT_EQ(QueryCount(), 1);
}

TEST_F(RememberedStatusTest, OutlivesAChangeInTheDatabase) {
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, _Analysis), "S_OK Latest");
  SetRevision(_Analysis, Revision::Older);
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, _Analysis), "S_OK Latest");
  (void)_Analysis->SetRevisionStatus(Provider::TARevUnknown);
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatus, _Analysis), "S_OK NotLatest");
}

TEST_F(RememberedStatusTest, IsNeitherReadNorFilledByTheQuery) {
  _Shell->Remembered = Provider::TARevNotLatest;
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatusFromDB, _Shell), "S_OK Latest");
  EXPECT_EQ(_Shell->Written, std::vector<int>{});
  EXPECT_EQ(Provider::IsTARevLatest(_Shell), 1);
  EXPECT_EQ(_Shell->Written, std::vector<int>{});
}

TEST_F(RememberedStatusTest, RaisesTheNullHandleErrorWhereItHasNoPlace) {
  _Shell->Without<VEXITimeAnalysisRevisionCache>();
  EXPECT_THROW((void)StatusBy(&Provider::GetTARevStatus, _Shell), KORError);
  EXPECT_EQ(QueryCount(), 0);
  EXPECT_EQ(StatusBy(&Provider::GetTARevStatusFromDB, _Shell), "S_OK Latest");
}

// ---- Faults of the platform ----

class IsLatestFaultTest : public FaultTest {};

TEST_P(IsLatestFaultTest, OfALastRevision) {
  const auto analysis = NewRevision("Fasten", Revision::Last);
  ExpectOutcome([&analysis] { return std::string(Provider::IsTARevLatest(analysis) == 1 ? "last" : "not"); }, "last");
}

INSTANTIATE_TEST_SUITE_P(Calls, IsLatestFaultTest,
                         testing::ValuesIn(AllFaults({{"GetPLMIdentificator", "not", "last", "not"},
                                                      {"CreateErrorMonitor", "last", "last", "last"},
                                                      // A query that fails counts for a last revision, unless it tells
                                                      // something all the same.
                                                      {"GetVersioningInfo", "last", "not", "not"},
                                                      {"GetMajorVersioningInformation", "not", "not", "not"},
                                                      {"IsLastMajor", "not", "last", "not"}})),
                         FaultCaseName());

TEST_F(ObjectsTest, FailingQueryThatTellsOfAnotherIsNoLastRevision) {
  const VEXITimeAnalysisRepReference_var analysis = WithNewsOfAnother(Revision::Unknown, true)();
  _Session.InjectFault("GetVersioningInfo", FaultOf(KORFault::Kind::StatusAlone));
  EXPECT_EQ(Provider::IsTARevLatest(analysis), 0);
}

constexpr const char* Latest = "S_OK Latest";
constexpr const char* NotLatest = "S_OK NotLatest";
constexpr const char* ReusedNotLatest = "S_OK ReusedNotLatest";

// Of a last revision that reuses an older one.
class RevisionStatusFaultTest : public FaultTest {
 protected:
  RevisionShell_var _Analysis = NewShell(NewRevision("Fasten", Revision::Last, {AnOlderRevision()}));
};

TEST_P(RevisionStatusFaultTest, AskedOfTheDatabase) {
  ExpectOutcome([this] { return StatusBy(&Provider::GetTARevStatusFromDB, _Analysis); }, ReusedNotLatest);
}

TEST_P(RevisionStatusFaultTest, RememberedFromThenOn) {
  const auto ask_anew = [this] {
    _Analysis->Remembered = Provider::TARevUnknown;
    std::string outcome = StatusBy(&Provider::GetTARevStatus, _Analysis);
    EXPECT_EQ("S_OK " + objectstest::RevisionName(_Analysis->Remembered), outcome);
    return outcome;
  };
  ExpectOutcome(ask_anew, ReusedNotLatest);
}

const std::vector<FaultRow> StatusFaults{
    {"GetPLMIdentificator", NotLatest, ReusedNotLatest, NotLatest},
    {"CreateErrorMonitor", ReusedNotLatest, ReusedNotLatest, ReusedNotLatest},
    {"GetMajorVersioningInformation", NotLatest, NotLatest, NotLatest},
    {"IsLastMajor", NotLatest, ReusedNotLatest, NotLatest},
    {"GetLineCount", Latest, ReusedNotLatest, Latest},
    {"GetLines", Latest, ReusedNotLatest, Latest},
};
INSTANTIATE_TEST_SUITE_P(Calls, RevisionStatusFaultTest, testing::ValuesIn(AllFaults(StatusFaults)), FaultCaseName());
// The second query is that for the older revision.
INSTANTIATE_TEST_SUITE_P(FirstQuery, RevisionStatusFaultTest,
                         testing::ValuesIn(FaultsFor(KORFault::Life::Once,
                                                     {{"GetVersioningInfo", ReusedNotLatest, NotLatest, NotLatest}})),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(EveryQuery, RevisionStatusFaultTest,
                         testing::ValuesIn(FaultsFor(KORFault::Life::Always,
                                                     {{"GetVersioningInfo", Latest, NotLatest, NotLatest}})),
                         FaultCaseName());

// What cannot be remembered, or not be read, is worked out each time.
class RememberedFaultTest : public RevisionStatusFaultTest {};

TEST_P(RememberedFaultTest, WorkedOutAgain) {
  ExpectOutcome([this] { return StatusBy(&Provider::GetTARevStatus, _Analysis); }, ReusedNotLatest);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, RememberedFaultTest,
    testing::ValuesIn(AllFaults({{"GetRevisionStatus", ReusedNotLatest, ReusedNotLatest, ReusedNotLatest},
                                 {"SetRevisionStatus", ReusedNotLatest, ReusedNotLatest, ReusedNotLatest}})),
    FaultCaseName());

TEST_F(ObjectsTest, RevisionStatusPassesARaisedErrorOn) {
  const auto analysis = NewRevision("Fasten", Revision::Last, {AnOlderRevision()});
  for (const char* call : {"GetPLMIdentificator", "CreateErrorMonitor", "GetVersioningInfo",
                           "GetMajorVersioningInformation", "IsLastMajor"}) {
    KORFault fault = FaultOf(KORFault::Kind::Raised);
    fault.Error = std::make_exception_ptr(KORError(E_FAIL, "raised"));
    _Session.InjectFault(call, fault);
    EXPECT_THROW((void)StatusBy(&Provider::GetTARevStatus, analysis), KORError) << call;
    _Session.ClearFaults();
  }
  int remembered = 0;
  (void)analysis->GetRevisionStatus(remembered);
  EXPECT_EQ(remembered, Provider::TARevUnknown);
}

}  // namespace
