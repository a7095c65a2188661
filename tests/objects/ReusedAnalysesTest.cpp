// The analyses that an analysis reuses in its own lines.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "VEXSTTProvider.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::MakeShellWithout;
using objectstest::InjectedStatus;
using objectstest::Line;
using objectstest::ListOf;
using objectstest::Marker;
using objectstest::NamesOf;
using objectstest::NewAnalysis;
using objectstest::ObjectsTest;
using objectstest::ReferencesOf;
using objectstest::TimeAnalysis_var;

// The names in the list, which held something else before.
std::string ReusedBy(const VEXITimeAnalysisRepReference_var& analysis) {
  KORListValKORBaseUnknown_var reused = ListOf({Marker()});
  EXPECT_EQ(VEXSTTProvider::GetAllInsertedTARepRef(analysis, reused), S_OK);
  return NamesOf(reused);
}

class GetAllInsertedTARepRefTest : public ObjectsTest {};

TEST_F(GetAllInsertedTARepRefTest, ListsWhatTheLinesReuseInTheirOrder) {
  const auto grasp = NewAnalysis("Grasp");
  const auto reach = NewAnalysis("Reach");
  EXPECT_EQ(ReusedBy(NewAnalysis("Pick", {Line("R10A"), Line("reach").Reuses(reach), Line("M10B"),
                                          Line("grasp").Reuses(grasp), Line("RL1")})),
            "Reach Grasp");
}

TEST_F(GetAllInsertedTARepRefTest, ListsAnAnalysisAsOftenAsItIsReused) {
  const auto grasp = NewAnalysis("Grasp");
  const auto reach = NewAnalysis("Reach");
  EXPECT_EQ(ReusedBy(NewAnalysis("Pick", {Line("1").Reuses(grasp), Line("2").Reuses(reach), Line("3").Reuses(grasp)})),
            "Grasp Reach Grasp");
}

TEST_F(GetAllInsertedTARepRefTest, IsNotRecursive) {
  const auto finger = NewAnalysis("Finger");
  const auto grasp = NewAnalysis("Grasp", {Line("finger").Reuses(finger)});
  EXPECT_EQ(ReusedBy(NewAnalysis("Pick", {Line("grasp").Reuses(grasp)})), "Grasp");
}

TEST_F(GetAllInsertedTARepRefTest, AnAnalysisMayReuseItself) {
  const auto pick = NewAnalysis("Pick");
  support::AppendLines(*pick, {Line("again").Reuses(pick)});
  EXPECT_EQ(ReusedBy(pick), "Pick");
}

TEST_F(GetAllInsertedTARepRefTest, PassesOverLinesThatReuseNothing) {
  EXPECT_EQ(ReusedBy(NewAnalysis("Empty")), "");
  EXPECT_EQ(ReusedBy(NewAnalysis("Plain", {Line("R10A"), Line("null").Reuses(NULL_var)})), "");
  EXPECT_EQ(ReusedBy(NewAnalysis("Named", {Line("text").Set("TimeAnalysis", "Grasp")})), "") << "a text is no object";
}

TEST_F(GetAllInsertedTARepRefTest, NullAndAnObjectWithoutLinesReuseNothing) {
  EXPECT_EQ(ReusedBy(NULL_var), "");
  const auto pick = NewAnalysis("Pick", {Line("grasp").Reuses(NewAnalysis("Grasp"))});
  EXPECT_EQ(ReusedBy(MakeShellWithout<VEXITimeAnalysisLines>(pick)), "");
}

TEST_F(GetAllInsertedTARepRefTest, KeepsWhatIsReusedAlive) {
  KORListValKORBaseUnknown_var reused;
  {
    const auto pick = support::MakeAnalysis("Pick", {Line("grasp").Reuses(support::MakeAnalysis("Grasp"))});
    EXPECT_EQ(VEXSTTProvider::GetAllInsertedTARepRef(pick, reused), S_OK);
  }
  EXPECT_EQ(NamesOf(reused), "Grasp");
}

TEST_F(GetAllInsertedTARepRefTest, LeavesTheLinesAndTheirParametersAsTheyAre) {
  const auto pick = NewAnalysis(
      "Pick", {Line("grasp").Reuses(NewAnalysis("Grasp")).Formula(support::TimeFormula("Pick", "1", "0.36"))});
  const std::string before = support::DescribeAnalysis(*pick);
  EXPECT_EQ(ReusedBy(pick), "Grasp");
  EXPECT_EQ(support::DescribeAnalysis(*pick), before);
}

// ---- Lines that cannot be had as they should ----

// Reads its lines with a failing status, with an absent record ahead of them, and no more of them than it is told to.
class OddLines final : public AnalysisShell {
 public:
  OddLines(TimeAnalysis_var inside, int longest) : AnalysisShell(std::move(inside)), _Longest(longest) {}

  long GetLineCount(int& count) override {
    (void)AnalysisShell::GetLineCount(count);
    return InjectedStatus;
  }
  long GetLines(int first, int count, KORRawCollPV& lines) override {
    lines.Append(nullptr);
    (void)AnalysisShell::GetLines(first, std::min(count, _Longest), lines);
    return InjectedStatus;
  }

 private:
  int _Longest;
};

TEST_F(GetAllInsertedTARepRefTest, TakesTheRecordsThatComeWhateverTheStatus) {
  const auto pick =
      NewAnalysis("Pick", {Line("grasp").Reuses(NewAnalysis("Grasp")), Line("reach").Reuses(NewAnalysis("Reach"))});
  EXPECT_EQ(ReusedBy(KORHandle<OddLines>::Adopt(new OddLines(pick, 2))), "Grasp Reach");
  EXPECT_EQ(ReusedBy(KORHandle<OddLines>::Adopt(new OddLines(pick, 1))), "Grasp");
  EXPECT_EQ(ReusedBy(KORHandle<OddLines>::Adopt(new OddLines(pick, 0))), "");
}

// Hands out records of which it keeps a reference itself.
class KeptRecords final : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;
  ~KeptRecords() override {
    for (void* const record : _Records) static_cast<VEXTimeAnalysisLineData*>(record)->Release();
  }

  long GetLines(int first, int count, KORRawCollPV& lines) override {
    const long status = AnalysisShell::GetLines(first, count, lines);
    for (void* const record : lines) {
      static_cast<VEXTimeAnalysisLineData*>(record)->AddRef();
      _Records.Append(record);
    }
    return status;
  }
  const KORRawCollPV& Records() const { return _Records; }

 private:
  KORRawCollPV _Records;
};

TEST_F(GetAllInsertedTARepRefTest, ReleasesEachRecordAndFreesItsParameters) {
  const auto pick = NewAnalysis(
      "Pick", {Line("grasp").Reuses(NewAnalysis("Grasp")).Formula(support::TimeFormula("Pick", "1", "0.36")),
               Line("plain").Formula(support::TimeFormula("Pick", "2", "0.72"))});
  const auto shell = KORHandle<KeptRecords>::Adopt(new KeptRecords(pick));
  EXPECT_EQ(ReusedBy(shell), "Grasp");
  ASSERT_EQ(shell->Records().Size(), 2);
  for (void* const record : shell->Records()) {
    const auto& line = *static_cast<const VEXTimeAnalysisLineData*>(record);
    KORRawCollPV parameters;
    (void)line.GetValue("FormulaParameter", parameters);
    EXPECT_EQ(parameters.Size(), 0);
    EXPECT_EQ(ReferencesOf(line), 1u);
  }
}

}  // namespace
