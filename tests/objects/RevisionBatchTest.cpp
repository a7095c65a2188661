// The revision status of the analyses of many operations: by one query, and by what is remembered on them.
#include <gtest/gtest.h>

#include <csignal>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/base/KORError.h"
#include "tests/objects/RevisionBatchTest.h"

namespace {

using objectstest::BatchQuestion;
using objectstest::BatchTables;
using objectstest::ByCache;
using objectstest::ByOneQuery;
using objectstest::IdentificatorFor;
using objectstest::InstancesUnder;
using objectstest::Line;
using objectstest::ListOf;
using objectstest::NewDrawing;
using objectstest::NewOccurrence;
using objectstest::NewOperation;
using objectstest::NewRevision;
using objectstest::NewShell;
using objectstest::ObjectsTest;
using objectstest::Placed;
using objectstest::QueryCount;
using objectstest::Revision;
using objectstest::RevisionShell_var;
using objectstest::StatusBy;
using objectstest::StatusesBy;
using objectstest::StatusesOf;
using support::TimeAnalysis_var;

class RevisionBatchTest : public ObjectsTest {
 protected:
  // Both ways give the same; the first one by a single query.
  static void ExpectStatuses(const KORListValKORBaseUnknown_var& occurrences, const std::string& outcome) {
    const int before = QueryCount();
    EXPECT_EQ(StatusesBy(ByOneQuery, occurrences), outcome);
    EXPECT_EQ(QueryCount(), before + 1);
    EXPECT_EQ(StatusesBy(ByCache, occurrences), outcome);
  }
};

TEST_F(RevisionBatchTest, TellsEveryRevision) {
  const auto last = NewRevision("Last", Revision::Last);
  const auto older = NewRevision("Older", Revision::Older);
  const auto reusing = NewRevision("Reusing", Revision::Last, {last, older});
  ExpectStatuses(ListOf({Placed(last), Placed(older), Placed(reusing)}),
                 "S_OK | Last Older Reusing | Latest NotLatest ReusedNotLatest");
}

TEST_F(RevisionBatchTest, AsksOnceWhereTheCacheAsksForEachAnalysis) {
  KORListValKORBaseUnknown_var occurrences;
  for (const char* name : {"A", "B", "C", "D"}) {
    occurrences.Append(Placed(NewRevision(name, Revision::Last, {NewRevision("Reused", Revision::Last)})));
  }
  (void)StatusesBy(ByOneQuery, occurrences);
  EXPECT_EQ(QueryCount(), 1);
  (void)StatusesBy(ByCache, occurrences);
  EXPECT_EQ(QueryCount(), 1 + 8);
  (void)StatusesBy(ByCache, occurrences);
  EXPECT_EQ(QueryCount(), 1 + 8) << "once it is remembered";
}

TEST_F(RevisionBatchTest, OlderReusedOneIsToldThroughAllThreeWays) {
  const auto reusing = NewRevision("Reusing", Revision::Last, {NewRevision("Older", Revision::Older)});
  ExpectStatuses(ListOf({Placed(reusing)}), "S_OK | Reusing | ReusedNotLatest");
  EXPECT_EQ(StatusBy(&VEXSTTProvider::GetTARevStatusFromDB, reusing), "S_OK ReusedNotLatest");
}

// What is two levels below does not count, wherever the level in between stands in the list.
TEST_F(RevisionBatchTest, OnlyWhatIsReusedDirectlyCounts) {
  const auto older = NewRevision("Older", Revision::Older);
  const auto middle = NewRevision("Middle", Revision::Last, {older});
  const auto top = NewRevision("Top", Revision::Last, {middle});
  ExpectStatuses(ListOf({Placed(top)}), "S_OK | Top | Latest");
  ExpectStatuses(ListOf({Placed(top), Placed(middle), Placed(older)}),
                 "S_OK | Top Middle Older | Latest ReusedNotLatest NotLatest");
  ExpectStatuses(ListOf({Placed(older), Placed(middle), Placed(top)}),
                 "S_OK | Older Middle Top | NotLatest ReusedNotLatest Latest");
}

TEST_F(RevisionBatchTest, AnalysisOfTwoOccurrencesHasTwoEqualStatuses) {
  const auto older = NewRevision("Older", Revision::Older);
  const KORBaseUnknown_var occurrence = Placed(older);
  ExpectStatuses(ListOf({occurrence, Placed(older)}), "S_OK | Older Older | NotLatest NotLatest");
  ExpectStatuses(ListOf({occurrence, occurrence}), "S_OK | Older Older | NotLatest NotLatest");
}

TEST_F(RevisionBatchTest, CirclesOfReuseEnd) {
  const auto first = NewRevision("First", Revision::Last);
  const auto second = NewRevision("Second", Revision::Last, {first, first});
  const support::CircleBreaker breaker({first});
  support::AppendLines(*first, {Line().Reuses(first), Line().Reuses(second)});
  ExpectStatuses(ListOf({Placed(first), Placed(second)}), "S_OK | First Second | Latest Latest");
}

// ---- Occurrences ----

TEST_F(RevisionBatchTest, OccurrencesWithoutAnalysisArePassedOver) {
  const auto last = NewRevision("Last", Revision::Last);
  const KORBaseUnknown_var none = NewOccurrence("None", {});
  const KORBaseUnknown_var drawing = NewOccurrence("Drawing", {NewDrawing("Sketch")});
  ExpectStatuses(ListOf({none, NULL_var, drawing, Placed(last), NewOperation("Cover"), none}), "S_OK | Last | Latest");
}

TEST_F(RevisionBatchTest, WithoutAnalysisItFailsAndTheDatabaseIsNotAsked) {
  const KORBaseUnknown_var none = NewOccurrence("None", {});
  for (const BatchQuestion question : {ByOneQuery, ByCache}) {
    for (const KORListValKORBaseUnknown_var& occurrences : {ListOf({}), ListOf({none, NULL_var})}) {
      EXPECT_EQ(StatusesBy(question, occurrences), "E_FAIL |  | ");
      EXPECT_EQ(StatusesBy(question, occurrences, StatusesOf({7})), "E_FAIL |  | 7");
    }
  }
  EXPECT_EQ(QueryCount(), 0);
}

TEST_F(RevisionBatchTest, StatusesThatDoNotComeEmptyFailAndNoLongerLineUp) {
  const KORListValKORBaseUnknown_var occurrences =
      ListOf({Placed(NewRevision("Last", Revision::Last)), Placed(NewRevision("Older", Revision::Older))});
  EXPECT_EQ(StatusesBy(ByOneQuery, occurrences, StatusesOf({7})), "E_FAIL | Last Older | Latest NotLatest Unknown");
  EXPECT_EQ(StatusesBy(ByOneQuery, occurrences, StatusesOf({7, 8, 9})),
            "E_FAIL | Last Older | Latest NotLatest 9 Unknown Unknown");
  EXPECT_EQ(StatusesBy(ByCache, occurrences, StatusesOf({7})), "E_FAIL | Last Older | 7 Latest NotLatest");
}

// ---- Answers of the database ----

TEST_F(RevisionBatchTest, AnalysisUnknownToTheDatabaseIsToldInThreeWays) {
  const auto unknown = NewRevision("Unknown", Revision::Unknown);
  const auto reusing = NewRevision("Reusing", Revision::Last, {unknown});
  const KORListValKORBaseUnknown_var occurrences = ListOf({Placed(unknown), Placed(reusing)});
  EXPECT_EQ(StatusesBy(ByOneQuery, occurrences), "S_OK | Unknown Reusing | Unknown Latest");
  EXPECT_EQ(StatusesBy(ByCache, occurrences), "S_OK | Unknown Reusing | NotLatest ReusedNotLatest");
  EXPECT_EQ(StatusBy(&VEXSTTProvider::GetTARevStatusFromDB, unknown), "S_OK NotLatest");
  EXPECT_EQ(StatusBy(&VEXSTTProvider::GetTARevStatusFromDB, reusing), "S_OK ReusedNotLatest");
}

TEST_F(RevisionBatchTest, OrderOfTheAnswersDoesNotMatter) {
  const auto older = NewRevision("Older", Revision::Older);
  const auto reusing = NewRevision("Reusing", Revision::Last, {older});
  KORVersioningDatabase::Current().SetOrder(KORVersioningDatabase::Order::Reversed);
  ExpectStatuses(ListOf({Placed(NewRevision("Last", Revision::Last)), Placed(reusing), Placed(older)}),
                 "S_OK | Last Reusing Older | Latest ReusedNotLatest NotLatest");
}

TEST_F(RevisionBatchTest, NewsOfAnalysesNeverAskedForIsPassedOver) {
  const auto other = NewRevision("Other", Revision::Older);
  KORVersioningDatabase::Current().AnswerBesides(
      KORAdpVersioningInfo(IdentificatorFor(KORIPLMComponent_var(other)), false));
  KORVersioningDatabase::Current().AnswerBesides(KORAdpVersioningInfo(NULL_var, false));
  EXPECT_EQ(StatusesBy(ByOneQuery, ListOf({Placed(NewRevision("Last", Revision::Last))})), "S_OK | Last | Latest");
}

TEST_F(RevisionBatchTest, LaterNewsOfAnAnalysisReplacesEarlier) {
  const auto last = NewRevision("Last", Revision::Last);
  KORVersioningDatabase::Current().AnswerBesides(
      KORAdpVersioningInfo(IdentificatorFor(KORIPLMComponent_var(last)), false));
  EXPECT_EQ(StatusesBy(ByOneQuery, ListOf({Placed(last)})), "S_OK | Last | NotLatest");
}

// ---- Analyses ----

TEST_F(RevisionBatchTest, OneQueryNeitherReadsNorFillsWhatIsRemembered) {
  const RevisionShell_var shell = NewShell(NewRevision("Last", Revision::Last));
  shell->Remembered = VEXSTTProvider::TARevNotLatest;
  const KORListValKORBaseUnknown_var occurrences = ListOf({Placed(PLMIRepReference_var(shell), "Shell")});
  EXPECT_EQ(StatusesBy(ByOneQuery, occurrences), "S_OK | Shell | Latest");
  EXPECT_EQ(shell->Written, std::vector<int>{});
  EXPECT_EQ(StatusesBy(ByCache, occurrences), "S_OK | Shell | NotLatest");
  EXPECT_EQ(shell->Written, std::vector<int>{VEXSTTProvider::TARevNotLatest});
}

TEST_F(RevisionBatchTest, AnalysisWithoutIdentificatorStaysUnknownAndWhatItReusesIsAskedFor) {
  const auto older = NewRevision("Older", Revision::Older);
  for (const bool is_component : {true, false}) {
    const RevisionShell_var shell = NewShell(NewRevision("Last", Revision::Last, {older}));
    if (is_component) {
      shell->Identificator = nullptr;
    } else {
      shell->Without<KORIPLMComponent>();
    }
    const KORListValKORBaseUnknown_var occurrences = ListOf({Placed(PLMIRepReference_var(shell), "Shell")});
    EXPECT_EQ(StatusesBy(ByOneQuery, occurrences), "S_OK | Shell | Unknown");
    BatchTables tables;
    tables.Build(InstancesUnder(NewOperation("Cover", {PLMIRepReference_var(shell)})));
    EXPECT_EQ(tables.Told(), "? Unknown, Older Unknown");
    EXPECT_EQ(tables.Identificators.Size(), 1);
  }
}

// Of two analyses that share an identificator, the one that was entered first is the one that it identifies.
TEST_F(RevisionBatchTest, SharedIdentificatorTellsOfTheFirstAnalysis) {
  const auto older = NewRevision("Older", Revision::Older);
  const RevisionShell_var shell = NewShell(older);
  const KORBaseUnknown_var of_shell = Placed(PLMIRepReference_var(shell), "Shell");
  EXPECT_EQ(StatusesBy(ByOneQuery, ListOf({of_shell, Placed(older)})), "S_OK | Shell Older | NotLatest Unknown");
  EXPECT_EQ(StatusesBy(ByOneQuery, ListOf({Placed(older), of_shell})), "S_OK | Older Shell | NotLatest Unknown");
  EXPECT_EQ(StatusesBy(ByCache, ListOf({of_shell, Placed(older)})), "S_OK | Shell Older | NotLatest NotLatest");
}

TEST_F(RevisionBatchTest, CacheRaisesTheNullHandleErrorWhereItHasNoPlace) {
  const RevisionShell_var shell = NewShell(NewRevision("Last", Revision::Last));
  shell->Without<VEXITimeAnalysisRevisionCache>();
  const KORListValKORBaseUnknown_var occurrences = ListOf({Placed(PLMIRepReference_var(shell), "Shell")});
  EXPECT_THROW((void)StatusesBy(ByCache, occurrences), KORError);
  EXPECT_EQ(StatusesBy(ByOneQuery, occurrences), "S_OK | Shell | Latest");
}

// ---- Building the tables ----

class BatchTablesTest : public ObjectsTest {
 protected:
  BatchTables _Tables;
};

TEST_F(BatchTablesTest, AnalysisThatIsMetAgainIsEnteredOnce) {
  const auto shared = NewRevision("Shared", Revision::Last);
  const auto first = NewRevision("First", Revision::Last, {shared, shared});
  const auto second = NewRevision("Second", Revision::Last, {first, shared});
  const auto operation =
      NewOperation("Cover", {PLMIRepReference_var(first), PLMIRepReference_var(second), PLMIRepReference_var(first)});
  _Tables.Build(InstancesUnder(operation));
  EXPECT_EQ(_Tables.Told(), "First Unknown, Shared Unknown, Second Unknown");
  ASSERT_EQ(_Tables.Identificators.Size(), 3);
  int position = 0;
  for (const TimeAnalysis_var& analysis : {first, shared, second}) {
    KORIAdpPLMIdentificator* const identificator = _Tables.Identificators[++position];
    EXPECT_EQ(identificator, IdentificatorFor(KORIPLMComponent_var(analysis)).Get());
    EXPECT_EQ(_Tables.Identifiers()->Get(identificator->GetImpl(0)), analysis->GetImpl(0));
  }
}

TEST_F(BatchTablesTest, WhatIsTwoLevelsBelowIsNotEntered) {
  const auto middle = NewRevision("Middle", Revision::Last, {NewRevision("Older", Revision::Older)});
  const auto top = NewRevision("Top", Revision::Last, {middle});
  _Tables.Build(InstancesUnder(NewOperation("Cover", {PLMIRepReference_var(top)})));
  EXPECT_EQ(_Tables.Told(), "Top Unknown, Middle Unknown");
}

TEST_F(BatchTablesTest, WhatIsNoAnalysisIsNotEntered) {
  const auto top = NewRevision("Top", Revision::Last, {NewDrawing("Sketch"), NULL_var, NewOperation("Cover")});
  KORListValKORBaseUnknown_var instances =
      InstancesUnder(NewOperation("Cover", {NewDrawing("Sketch"), PLMIRepReference_var(top)}));
  instances.Append(NULL_var);
  instances.Append(top);
  _Tables.Build(instances);
  EXPECT_EQ(_Tables.Told(), "Top Unknown");
}

TEST_F(BatchTablesTest, MissingTableLeavesTheOtherAlone) {
  KORListValKORBaseUnknown_var instances =
      InstancesUnder(NewOperation("Cover", {PLMIRepReference_var(NewRevision("Top", Revision::Last))}));
  KORListValKORAdpVersioningInfo infos;
  KORHashObject* none = nullptr;
  objects::BuildTAsHashWithListOfPLMIdentificators(instances, none, _Tables.Identifiers(), _Tables.Identificators);
  objects::BuildTAsHashWithListOfPLMIdentificators(instances, _Tables.Statuses(), none, _Tables.Identificators);
  EXPECT_EQ(_Tables.Told(), "");
  EXPECT_EQ(_Tables.Identificators.Size(), 0);
  EXPECT_EQ(objects::SetRevisionStatusToTA_InHash(_Tables.Identificators, infos, none, _Tables.Identifiers()), E_FAIL);
  EXPECT_EQ(objects::SetRevisionStatusToTA_InHash(_Tables.Identificators, infos, _Tables.Statuses(), none), E_FAIL);
}

// ---- Bringing the answers back ----

KORAdpVersioningInfo NewsOf(const TimeAnalysis_var& analysis, bool is_last) {
  return {IdentificatorFor(KORIPLMComponent_var(analysis)), is_last};
}

KORListValKORAdpVersioningInfo InfosOf(std::initializer_list<KORAdpVersioningInfo> values) {
  KORListValKORAdpVersioningInfo infos;
  for (const KORAdpVersioningInfo& info : values) infos.Append(info);
  return infos;
}

TEST_F(BatchTablesTest, ReusersOfOlderOnesAreMarkedWithoutAnAnswer) {
  const auto older = NewRevision("Older", Revision::Older);
  const auto reusing = NewRevision("Reusing", Revision::Last, {older});
  const auto unknown = NewRevision("Unknown", Revision::Last, {older});
  _Tables.EnterStatus(reusing, VEXSTTProvider::TARevLatest);
  _Tables.EnterStatus(older, VEXSTTProvider::TARevNotLatest);
  _Tables.EnterStatus(unknown, VEXSTTProvider::TARevUnknown);
  EXPECT_EQ(_Tables.Set({}), S_OK);
  EXPECT_EQ(_Tables.Told(), "Reusing ReusedNotLatest, Older NotLatest, Unknown Unknown");
}

TEST_F(BatchTablesTest, OnlyOlderOnesMarkTheirReusers) {
  const auto missing = NewRevision("Missing", Revision::Older);
  const auto unknown = NewRevision("Unknown", Revision::Older);
  const auto marked = NewRevision("Marked", Revision::Last);
  const auto top = NewRevision("Top", Revision::Last, {missing, unknown, marked});
  _Tables.EnterStatus(marked, VEXSTTProvider::TARevReusedNotLatest);
  _Tables.EnterStatus(unknown, VEXSTTProvider::TARevUnknown);
  _Tables.EnterStatus(top, VEXSTTProvider::TARevLatest);
  EXPECT_EQ(_Tables.Set({}), S_OK);
  EXPECT_EQ(_Tables.Told(), "Marked ReusedNotLatest, Unknown Unknown, Top Latest");
}

TEST_F(BatchTablesTest, ResultIsThatOfTheLastElement) {
  const auto first = NewRevision("First", Revision::Last), second = NewRevision("Second", Revision::Last);
  _Tables.Build(InstancesUnder(NewOperation("Cover", {PLMIRepReference_var(first), PLMIRepReference_var(second)})));
  const auto infos = InfosOf({NewsOf(first, true), NewsOf(second, false)});
  _Session.InjectFault("GetElement", objectstest::FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once));
  EXPECT_EQ(_Tables.Set(infos), S_OK);
  EXPECT_EQ(_Tables.Told(), "First Unknown, Second NotLatest");
  _Session.InjectFault("GetElement", objectstest::FaultOf(KORFault::Kind::StatusAlone));
  EXPECT_EQ(_Tables.Set(infos), objectstest::InjectedStatus);
  EXPECT_EQ(_Tables.Told(), "First Latest, Second NotLatest");
}

TEST_F(BatchTablesTest, IdentificatorWithoutAnalysisIsPassedOver) {
  const auto analysis = NewRevision("Last", Revision::Last);
  const auto other = NewRevision("Other", Revision::Last);
  _Tables.EnterStatus(analysis, VEXSTTProvider::TARevUnknown);
  _Tables.EnterIdentificator(IdentificatorFor(KORIPLMComponent_var(other)), other);  // which has no cell
  EXPECT_EQ(_Tables.Set(InfosOf({NewsOf(other, false), NewsOf(analysis, false)})), S_OK);
  EXPECT_EQ(_Tables.Told(), "Last Unknown");
}

// ---- Releasing the identificators ----

TEST_F(ObjectsTest, IdentificatorsAreReleasedAndTheListEmptied) {
  const auto identificator = IdentificatorFor(KORIPLMComponent_var(NewRevision("Last", Revision::Last)));
  KORListPtrKORIAdpPLMIdentificator list;
  for (int count = 0; count < 2; ++count) {
    identificator->AddRef();
    list.Append(identificator.Get());
  }
  objects::ReleaseIdentificators(list);
  EXPECT_EQ(list.Size(), 0);
  EXPECT_EQ(identificator->AddRef(), 3u);  // of the analysis, of the test, and this one
  identificator->Release();
}

TEST(RevisionBatchDeathTest, NullIdentificatorEndsTheProcess) {
  KORListPtrKORIAdpPLMIdentificator list;
  list.Append(nullptr);
  EXPECT_EXIT(objects::ReleaseIdentificators(list), testing::KilledBySignal(SIGABRT),
              "^AssertionFailed:pIdentifier "
              "VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices\\.m/src/VEXSTTProvider 1181\n");
}

}  // namespace
