// The climb from a changed analysis where something is wrong: calls of the platform that fail, analyses that lack an
// interface, memory that runs out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <new>
#include <string>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ImpactTest.h"
#include "tests/support/ServiceTest.h"

namespace {

// While it is set, an allocation that may fail without an error does.
thread_local bool plain_allocations_fail = false;

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  if (plain_allocations_fail) return nullptr;
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace {

using calculationtest::AnalysisShell_var;
using calculationtest::MakeBareObject;
using calculationtest::MakeShell;
using calculationtest::MakeShellWithout;
using objectstest::ClimbFrom;
using objectstest::ClimbResult;
using objectstest::FaultCaseName;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewTemplate;
using objectstest::Propagate;
using objectstest::ReuseIndex;
using objectstest::ReusingLine;
using objectstest::SaveLog;
using support::Line;
using support::RealOf;
using support::RealOfLine;
using support::TimeAnalysis_var;
using testing::DoubleEq;
using testing::Optional;
using Names = std::vector<std::string>;
using Saves = std::vector<Names>;
using Services = VEXSTTApplicativeContainerServices;

// ---- Calls of the platform that fail ----

class ImpactFaultTest : public objectstest::FaultTest {
 protected:
  // Propagates a change of 10 TMU from the template: the outcome, what was saved, what stands in the line above, and
  // how many analyses were listed.
  std::string PropagateOnce() {
    (void)_Pick->RemoveAllLines();
    support::AppendLines(*_Pick, {ReusingLine("Grip", _Grip)});
    _Log.Clear();
    KOROmbLifeCycleRootsBag bag;
    KORListValKORBaseUnknown_var unused, all_analyses;
    std::string outcome = objectstest::OutcomeOf(
        [&] { return Services::UpdateModificationsTOAllImpactedTimeAnalysis(_Grip, bag, unused, all_analyses); });
    for (const Names& save : _Log.Saves()) outcome += ", saved " + (save.empty() ? "nothing" : save.front());
    const bool is_written = RealOfLine(*_Pick, 1, "TTBTime").value_or(0.0) > 0.0;
    return outcome + (is_written ? ", written, " : ", ") + std::to_string(all_analyses.Size()) + " listed";
  }

  TimeAnalysis_var _Grip = NewTemplate("Grip", 10.0);
  TimeAnalysis_var _Pick = NewAnalysis("Pick");
  SaveLog _Log;
};

TEST_P(ImpactFaultTest, GivesItsOutcome) {
  ExpectOutcome([this] { return PropagateOnce(); }, "S_OK, saved Pick, written, 2 listed");
}

// The status of the list is overridden by that of the reuses; that of the saving is not looked at.
INSTANTIATE_TEST_SUITE_P(Calls, ImpactFaultTest,
                         testing::ValuesIn(objectstest::AllFaults({
                             {"GetAllTimeAnalysis", "S_OK, 0 listed", "S_OK, saved Pick, written, 2 listed",
                              "S_OK, 0 listed"},
                             {"Save", "S_OK, saved Pick, written, 2 listed", "S_OK, saved Pick, written, 2 listed",
                              "S_OK, saved Pick, written, 2 listed"},
                         })),
                         FaultCaseName());

class ImpactFailureTest : public objectstest::ObjectsTest {
 protected:
  SaveLog _Log;
};

TEST_F(ImpactFailureTest, ErrorsOfThePlatformPassThrough) {
  const auto grip = NewTemplate("Grip", 10.0);
  NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  for (const char* call : {"GetAllTimeAnalysis", "Save"}) {
    const KORFault fault{S_OK, KORFault::Kind::Raised, KORFault::Life::Once,
                         std::make_exception_ptr(KORError(E_FAIL, "raised"))};
    _Session.InjectFault(call, fault);
    EXPECT_EQ(Propagate(grip), "raised") << call;
    EXPECT_EQ(Propagate(grip), "S_OK") << call;
  }
}

TEST_F(ImpactFailureTest, AFailedListIsNotToldIfNothingReusesTheAnalysis) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto walk = NewTemplate("Walk", 10.0);
  NewAnalysis("Pick", {ReusingLine("Walk", walk)});
  _Session.InjectFault("GetAllTimeAnalysis", objectstest::FaultOf(KORFault::Kind::StatusAlone));
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_EQ(_Log.Saves(), Saves{});
}

TEST_F(ImpactFailureTest, AFailedSavingLeavesTheDatabaseAsItWas) {
  const auto grip = NewTemplate("Grip", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  pick->GetContent().IsInDatabase = false;
  _Session.InjectFault("Save", objectstest::InjectedStatus);
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_FALSE(pick->GetContent().IsInDatabase);
  EXPECT_THAT(RealOf(*pick, "TotalCalculated"), Optional(DoubleEq(10.0)));
}

// ---- Analyses that lack an interface ----

struct ChangedRow {
  const char* name;
  KORBaseUnknown_var (*make)();
};
class ChangedObjectTest : public ImpactFailureTest, public testing::WithParamInterface<ChangedRow> {};

TEST_P(ChangedObjectTest, RaisesTheErrorAtTheFirstLineThatReusesIt) {
  const KORBaseUnknown_var changed = GetParam().make();
  const auto walk = NewTemplate("Walk", 10.0);
  const auto pick = NewAnalysis("Pick", {ReusingLine("Walk", walk), ReusingLine("Grip", changed)});
  NewAnalysis("Place", {ReusingLine("Pick", pick)});
  const std::string before = support::DescribeAnalysis(*pick);
  KORHashObject* nobody = nullptr;
  const ClimbResult result = ClimbFrom(changed, pick, nobody);
  EXPECT_EQ(result.outcome, "raised");
  EXPECT_EQ(result.components, Names{});
  EXPECT_EQ(Propagate(changed), "raised");
  EXPECT_EQ(_Log.Saves(), Saves{});
  EXPECT_EQ(support::DescribeAnalysis(*pick), before);
}

TEST_P(ChangedObjectTest, IsNotAskedForAnythingWhereNoLineReusesIt) {
  const KORBaseUnknown_var changed = GetParam().make();
  const auto pick = NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36)});
  KORHashObject* nobody = nullptr;
  EXPECT_EQ(ClimbFrom(changed, pick, nobody).outcome, "S_OK");
  EXPECT_EQ(Propagate(changed), "S_OK");
  EXPECT_EQ(_Log.Saves(), Saves{});
}

INSTANTIATE_TEST_SUITE_P(
    Objects, ChangedObjectTest,
    testing::Values(ChangedRow{"WithoutLines",
                               []() -> KORBaseUnknown_var {
                                 return MakeShellWithout<VEXITimeAnalysisLines>(NewTemplate("Grip", 10.0));
                               }},
                    ChangedRow{"WithoutAttributes",
                               []() -> KORBaseUnknown_var {
                                 return MakeShellWithout<VEXITimeAnalysisRepReference>(NewTemplate("Grip", 10.0));
                               }},
                    ChangedRow{"Drawing", []() -> KORBaseUnknown_var { return NewDrawing("Grip"); }},
                    ChangedRow{"ObjectOfNobody", []() -> KORBaseUnknown_var { return MakeBareObject(); }}),
    support::RowName());

TEST_F(ImpactFailureTest, AChangedAnalysisNeedsNoProperties) {
  const auto grip = MakeShellWithout<VEXITimeAnalysisProperties>(NewTemplate("Grip", 10.0));
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  EXPECT_THAT(RealOfLine(*pick, 1, "TTBTime"), Optional(DoubleEq(0.36)));
}

// An analysis "Pick" that reuses "Grip", behind a shell, and "Place" above it.
class ImpactedShellTest : public ImpactFailureTest {
 protected:
  ImpactedShellTest() { _Index.Add(_Grip, _Shell).Add(_Shell, _Place); }

  ClimbResult Climb() { return ClimbFrom(_Grip, _Shell, _Index.Table()); }

  TimeAnalysis_var _Grip = NewTemplate("Grip", 10.0);
  TimeAnalysis_var _Pick = NewTemplate("Pick", 50.0, 0.0, {ReusingLine("Grip", _Grip)});
  AnalysisShell_var _Shell = MakeShell(_Pick);
  TimeAnalysis_var _Place = NewAnalysis("Place", {ReusingLine("Pick", _Shell)});
  ReuseIndex _Index;
};

TEST_F(ImpactedShellTest, WithoutAComponentItIsRewrittenAndNotSaved) {
  const ClimbResult result = Climb();
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_EQ(result.components, Names{"Place"});
  EXPECT_THAT(RealOfLine(*_Pick, 1, "TTBTime"), Optional(DoubleEq(0.36)));
  EXPECT_THAT(RealOfLine(*_Place, 1, "TTBTime"), Optional(DoubleEq(0.36)));
}

TEST_F(ImpactedShellTest, WithoutLinesOnlyTheClimbGoesOn) {
  _Shell->Hide<VEXITimeAnalysisLines>();
  (void)_Place->RemoveAllLines();
  support::AppendLines(*_Place, {Line("M10B").Timed("TTB", 0.36)});
  const auto store = NewAnalysis("Store", {ReusingLine("Place", _Place)});
  _Index.Add(_Place, store);
  const ClimbResult result = Climb();
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_EQ(result.components, Names{"Store"});
  EXPECT_THAT(RealOfLine(*_Pick, 1, "TTBTime"), Optional(DoubleEq(0.0)));
}

TEST_F(ImpactedShellTest, WithoutAttributesItIsRewrittenAndNotCalculated) {
  _Shell->Hide<VEXITimeAnalysisRepReference>();
  (void)_Place->RemoveAllLines();
  const ClimbResult result = Climb();
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_THAT(RealOfLine(*_Pick, 1, "TTBTime"), Optional(DoubleEq(0.36)));
  EXPECT_THAT(RealOf(*_Pick, "TotalCalculated"), Optional(DoubleEq(50.0)));
}

TEST_F(ImpactedShellTest, WithoutPropertiesTheErrorIsRaised) {
  _Shell->Hide<VEXITimeAnalysisProperties>();
  const ClimbResult result = Climb();
  EXPECT_EQ(result.outcome, "raised");
  EXPECT_EQ(result.components, Names{});
  EXPECT_THAT(RealOfLine(*_Pick, 1, "TTBTime"), Optional(DoubleEq(0.0)));
}

TEST_F(ImpactedShellTest, AnErrorFurtherUpKeepsTheComponentsSoFar) {
  const auto store = MakeShellWithout<VEXITimeAnalysisProperties>(NewAnalysis("Store", {ReusingLine("Place", _Place)}));
  _Index.Add(_Place, store);
  const ClimbResult result = Climb();
  EXPECT_EQ(result.outcome, "raised");
  EXPECT_EQ(result.components, Names{"Place"});
}

TEST_F(ImpactFailureTest, ObjectsOfNobodyAreClimbedThrough) {
  const auto grip = NewTemplate("Grip", 10.0);
  const KORBaseUnknown_var bare = MakeBareObject();
  const auto pick = NewAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36)});
  ReuseIndex index;
  index.Add(bare, pick);
  const ClimbResult result = ClimbFrom(grip, bare, index.Table());
  EXPECT_EQ(result.outcome, "S_OK");
  EXPECT_EQ(result.components, Names{});
}

// ---- Memory that runs out ----

TEST(ImpactDeathTest, AListOfReusesThatCannotBeHadEndsTheProcess) {
  EXPECT_DEATH(
      {
        const KORFreshSession session;
        const auto grip = NewTemplate("Grip", 10.0);
        NewAnalysis("Pick", {ReusingLine("Grip", grip)});
        plain_allocations_fail = true;
        (void)Propagate(grip);
      },
      "AssertionFailed:liReusedIn VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices.m/src/"
      "VEXSTTApplicativeContainerServices(\\.cpp)? 492");
}

}  // namespace
