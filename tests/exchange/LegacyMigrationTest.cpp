// Legacy analyses become present ones: each step, what skips an operation, and faults of the platform.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "VEXTADataIO.h"
#include "exchange/DefaultStream.h"
#include "exchange/LegacyMigration.h"
#include "platform/base/KORError.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/LegacyWorld.h"
#include "tests/exchange/TraceLines.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using exchangetest::AttributesOf;
using exchangetest::LegacyAnalyses;
using exchangetest::LineCount;
using exchangetest::LinesOf;
using exchangetest::Record;
using objectstest::InstancesUnder;
using objectstest::NewOccurrence;
using objectstest::NewOperation;
using objectstest::Occurrence_var;
using objectstest::Operation_var;
using support::Text;
using support::TimeAnalysis_var;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* NamedNew = "AttributeData:name:8:new";

long Migrate(KORListValKORBaseUnknown_var occurrences) {
  return VEXTADataIO::MigrateAllQ4TimeAnalysesToR9(occurrences);
}
long Migrate(std::initializer_list<KORBaseUnknown_var> occurrences) {
  return Migrate(objectstest::ListOf(occurrences));
}

// An operation under which a legacy analysis stands.
struct LegacyOperation {
  TimeAnalysis_var Old;
  Operation_var Operation;
  Occurrence_var Occurrence;
};

// The analyses under an operation, in their order.
std::vector<TimeAnalysis_var> Under(const Operation_var& operation) {
  std::vector<TimeAnalysis_var> analyses;
  for (const KORBaseUnknown_var& instance : InstancesUnder(operation)) {
    PLMIRepReference* reference = nullptr;
    EXPECT_EQ(PLMIRepInstance_var(instance)->GetRepReference(reference), S_OK);
    const KORBaseUnknown_var held = PLMIRepReference_var::Adopt(reference);
    analyses.emplace_back(dynamic_cast<VEXTimeAnalysisRepReference*>(held.Get()));
  }
  return analyses;
}

std::string NameAttributeOf(const TimeAnalysis_var& analysis) {
  return Text(support::Read<KORUnicodeString>(*analysis, "V_Name").value_or("no name"));
}

// What stands under an operation: "old", a name for each new analysis.
std::string Shown(const LegacyOperation& made) {
  std::string shown;
  for (const TimeAnalysis_var& analysis : Under(made.Operation)) {
    shown += (shown.empty() ? "" : " ") + (analysis == made.Old ? "old" : NameAttributeOf(analysis));
  }
  return shown.empty() ? "nothing" : shown;
}

LegacyOperation UnderNewOperation(const TimeAnalysis_var& analysis) {
  const Operation_var operation = NewOperation("OP", {analysis});
  return {analysis, operation, NewOccurrence(operation)};
}

class LegacyMigrationTest : public objectstest::ObjectsTest {
 protected:
  LegacyOperation Add(const std::string& identifier, const std::optional<std::string>& stream) {
    return UnderNewOperation(_Analyses.Make(identifier, stream));
  }

  LegacyAnalyses _Analyses;
  exchangetest::TraceLines _Trace;
};

// Entries that lead nowhere

TEST_F(LegacyMigrationTest, FailsForAnEmptyList) {
  EXPECT_EQ(Migrate({}), E_FAIL);
}

TEST_F(LegacyMigrationTest, PassesOverWhatIsNoOccurrence) {
  const LegacyOperation made = Add("TA", NamedNew);
  KORIPLMNavInstance* instance = nullptr;
  ASSERT_EQ(made.Occurrence->GetRelatedInstance(instance), S_OK);
  const auto held = KORIPLMNavInstance_var::Adopt(instance);
  EXPECT_EQ(Migrate({made.Old, made.Operation, held, calculationtest::MakeBareObject(), NULL_var}), E_FAIL);
  EXPECT_EQ(Shown(made), "old");
}

TEST_F(LegacyMigrationTest, KeepsTheStatusOverWhatIsNoOccurrence) {
  const LegacyOperation made = Add("TA", NamedNew);
  EXPECT_EQ(Migrate({made.Occurrence, made.Operation, NULL_var}), S_OK);
  EXPECT_EQ(Shown(made), "new");
}

TEST_F(LegacyMigrationTest, FailsForAnOccurrenceWithoutOperation) {
  const auto without_instance = Occurrence_var::Adopt(new KOROperationOccurrence(nullptr));
  EXPECT_EQ(Migrate({without_instance}), E_FAIL);
  const auto without_reference = KORHandle<KOROperationInstance>::Adopt(new KOROperationInstance(nullptr));
  const auto occurrence = Occurrence_var::Adopt(new KOROperationOccurrence(without_reference));
  EXPECT_EQ(Migrate({occurrence}), E_FAIL);
}

TEST_F(LegacyMigrationTest, FailsForAnOperationWithoutAnalysis) {
  EXPECT_EQ(Migrate({NewOccurrence("OP", {})}), E_FAIL);
  EXPECT_EQ(Migrate({NewOccurrence("OP", {objectstest::NewDrawing("drawing")})}), E_FAIL);
}

// Streams that are none

TEST_F(LegacyMigrationTest, LeavesAnAnalysisWithoutStreamAsItWas) {
  const LegacyOperation none = Add("none", std::nullopt), missing = Add("missing", std::nullopt);
  const LegacyOperation empty = Add("empty", ""), nul = Add("nul", std::string("\0Save", 5));
  missing.Old->GetContent().LegacyStreamPath = support::Unicode(_Analyses.Folder().Path("missing"));
  EXPECT_EQ(Migrate({none.Occurrence}), E_FAIL);
  EXPECT_EQ(Migrate({missing.Occurrence}), E_INVALIDARG);
  EXPECT_EQ(Migrate({empty.Occurrence}), S_OK);
  EXPECT_EQ(Migrate({nul.Occurrence}), S_OK);
  for (const LegacyOperation* made : {&none, &missing, &empty, &nul}) EXPECT_EQ(Shown(*made), "old");
}

TEST_F(LegacyMigrationTest, StartsEachOperationWithoutStream) {
  const LegacyOperation first = Add("first", std::nullopt), second = Add("second", std::nullopt);
  exchangetest::SetSystem(*first.Old, "STD");
  exchangetest::SetSystem(*second.Old, "UAS");
  Record(KORRecord::Mode::Replay);
  EXPECT_EQ(Migrate({first.Occurrence, second.Occurrence}), S_OK);
  EXPECT_EQ(Shown(first), "New STM - STD");
  EXPECT_EQ(Shown(second), "old") << "the stream of the first one is not its";
}

// The new analysis

TEST_F(LegacyMigrationTest, FillsANewAnalysisInThePlaceOfTheOldOne) {
  const LegacyOperation made = Add("TA", Text(exchange::DefaultStream()));
  (void)made.Old->SetValue("Note", KORUnicodeString("of the old one"));
  const std::string old_before = support::DescribeAnalysis(*made.Old);
  EXPECT_EQ(Migrate({made.Occurrence}), S_OK);
  const std::vector<TimeAnalysis_var> under = Under(made.Operation);
  ASSERT_EQ(under.size(), 1u);
  ASSERT_FALSE(under[0].IsNull() || under[0] == made.Old);
  EXPECT_EQ(LineCount(*under[0]), 10);
  EXPECT_EQ(support::TextOfLine(*under[0], 7, "Description"), "Application of force, large");
  EXPECT_EQ(support::RealOf(*under[0], "TotalCalculated"), 8.352000036) << "as it came";
  EXPECT_EQ(NameAttributeOf(under[0]), "New STM - STD");
  EXPECT_EQ(support::Read<KORUnicodeString>(*under[0], "V_Subsystem"), KORUnicodeString("STD"));
  EXPECT_EQ(support::DescribeAnalysis(*made.Old), old_before);
  EXPECT_THAT(_Trace.Take(), IsEmpty());
}

TEST_F(LegacyMigrationTest, LeavesOtherRepresentationsUnderTheOperation) {
  const TimeAnalysis_var old = _Analyses.Make("TA", NamedNew), second = _Analyses.Make("second", NamedNew);
  const Operation_var operation = NewOperation("OP", {objectstest::NewDrawing("drawing"), old, second});
  EXPECT_EQ(Migrate({NewOccurrence(operation)}), S_OK);
  const std::vector<TimeAnalysis_var> under = Under(operation);
  ASSERT_EQ(under.size(), 3u);
  EXPECT_TRUE(under[0].IsNull()) << "no analysis";
  EXPECT_TRUE(under[1] == second);
  EXPECT_EQ(NameAttributeOf(under[2]), "new");
}

// The first attributes are handed over where they have no effect.
TEST_F(LegacyMigrationTest, GivesTheNewAnalysisWhatItsStreamHoldsAndNothingElse) {
  const LegacyOperation made = Add("TA", NamedNew);
  exchangetest::SetSystem(*made.Old, "STD");
  EXPECT_EQ(Migrate({made.Occurrence}), S_OK);
  const TimeAnalysis_var analysis = Under(made.Operation).at(0);
  EXPECT_THAT(AttributesOf(*analysis), ElementsAre("V_Name='new'"));
  EXPECT_EQ(objectstest::NameOf(analysis), "") << "no identifier";
}

TEST_F(LegacyMigrationTest, MakesFourTextParametersInTheirOrder) {
  std::vector<std::string> shown;
  for (const KORICkeParm_var& parameter :
       exchange::FirstAttributes(KORCkeGlobalFunctions::GetVolatileFactory(), "TA-1", "STD")) {
    shown.push_back(Text(parameter->RoleName()) + "=" + Text(parameter->Value()->AsString()));
  }
  EXPECT_THAT(shown, ElementsAre("PLM_ExternalID=TA-1", "V_Subsystem=STD", "V_description=TA-1", "V_Name=TA-1"));
}

TEST_F(LegacyMigrationTest, MakesNoParametersWithoutAFactory) {
  EXPECT_EQ(exchange::FirstAttributes(nullptr, "TA-1", "STD").Size(), 0);
}

// The end of a stream

struct EndRow {
  const char* name;
  std::string end;
  const char* value;  // of the last item
};

class StreamEndTest : public LegacyMigrationTest, public testing::WithParamInterface<EndRow> {};

TEST_P(StreamEndTest, IsCutOff) {
  const LegacyOperation made = Add("TA", "Save|x|STD|" + std::string(NamedNew) + GetParam().end);
  EXPECT_EQ(Migrate({made.Occurrence}), S_OK);
  EXPECT_EQ(Shown(made), GetParam().value);
}

// An item behind the last value is none that is read, and leaves the status.
INSTANTIATE_TEST_SUITE_P(Rows, StreamEndTest,
                         testing::Values(EndRow{"None", "", "new"}, EndRow{"LineFeed", "\n", "new"},
                                         EndRow{"SeparatorAndLineFeed", "|\n", "new"},
                                         EndRow{"SeveralOfEach", "|||\n\n\n", "new"},
                                         EndRow{"LineFeedAheadOfTheSeparatorsStays", "\n|", "new\n"},
                                         EndRow{"SeparatorAheadOfThemIsAnItem", "|\n|\n", "new"},
                                         EndRow{"CarriageReturnStays", "\r\n", "new\r"},
                                         EndRow{"BlankStays", " \n", "new "}),
                         support::RowName());

TEST_F(LegacyMigrationTest, ReplacesByAnEmptyAnalysisWhereNoItemIsRead) {
  for (const std::string stream : {"Save|x|STD", "Save|x|STD|\n", "\n", "|", "||\n", "Dear Sirs,\nno stream"}) {
    const LegacyOperation made = Add("TA", stream);
    EXPECT_EQ(Migrate({made.Occurrence}), E_FAIL) << stream;
    ASSERT_EQ(Shown(made), "no name") << stream;
    EXPECT_EQ(LineCount(*Under(made.Operation)[0]), 0);
  }
}

TEST_F(LegacyMigrationTest, TracesItemsThatCannotBeMappedAndGoesOn) {
  const LegacyOperation made =
      Add("TA",
          "AttributeData:weight:8:3|AttributeData:name:8:new|LineData:t:0:0:8:colour|LineData:t:0:1:8:code|"
          "LineData:t:1:0:8:red|LineData:t:1:1:8:A|AttributeData:height:8:3");
  EXPECT_EQ(Migrate({made.Occurrence}), E_INVALIDARG) << "that of the last item";
  EXPECT_EQ(Shown(made), "new");
  EXPECT_THAT(LinesOf(*Under(made.Operation)[0]), ElementsAre("1 RowNum=1", "1 Code='A'"));
  EXPECT_THAT(_Trace.Take(), ElementsAre("Failed to map attribute <weight>", "Failed to map line attribute <colour>",
                                         "Failed to map attribute <height>"));
}

TEST_F(LegacyMigrationTest, FindsReusedAnalysesInTheSession) {
  const TimeAnalysis_var reused = objectstest::NewAnalysis("Grasp");
  const LegacyOperation made = Add("TA", "LineData:t:0:0:8:subanalysis|LineData:t:1:0:13:Grasp");
  EXPECT_EQ(Migrate({made.Occurrence}), S_OK);
  const auto found = support::ReadLine<KORBaseUnknown_var>(*Under(made.Operation)[0], 1, "TimeAnalysis");
  ASSERT_TRUE(found.has_value());
  EXPECT_TRUE(*found == reused);
}

// Several operations

TEST_F(LegacyMigrationTest, GoesOnPastWhatIsSkipped) {
  const LegacyOperation first = Add("first", NamedNew), skipped = Add("skipped", std::nullopt),
                        last = Add("last", "AttributeData:name:8:last");
  EXPECT_EQ(Migrate({first.Occurrence, skipped.Occurrence, NewOccurrence("OP", {}), last.Occurrence}), S_OK);
  EXPECT_EQ(Shown(first), "new");
  EXPECT_EQ(Shown(skipped), "old");
  EXPECT_EQ(Shown(last), "last");
  EXPECT_EQ(Migrate({Add("again", NamedNew).Occurrence, skipped.Occurrence}), E_FAIL) << "that of the last one";
}

TEST_F(LegacyMigrationTest, FindsTheNewAnalysisWhereAnOperationStandsTwice) {
  const LegacyOperation made = Add("TA", NamedNew);
  EXPECT_EQ(Migrate({made.Occurrence, made.Occurrence}), E_FAIL) << "the new analysis has no stream";
  EXPECT_EQ(Shown(made), "new");
}

TEST_F(LegacyMigrationTest, MigratesANewAnalysisAgainThatHasAStream) {
  const LegacyOperation made = Add("TA", std::nullopt);
  exchangetest::SetSystem(*made.Old, "STD");
  Record(KORRecord::Mode::Capture);
  EXPECT_EQ(Migrate({made.Occurrence}), S_OK);
  const TimeAnalysis_var migrated = Under(made.Operation).at(0);
  EXPECT_EQ(Migrate({made.Occurrence}), S_OK);
  const std::vector<TimeAnalysis_var> under = Under(made.Operation);
  ASSERT_EQ(under.size(), 1u);
  EXPECT_FALSE(under[0] == migrated);
  EXPECT_EQ(LineCount(*under[0]), 10);
}

// An old analysis without properties

// A legacy analysis that passes all on, and can lose interfaces.
class LegacyShell
    : public KORDerives<calculationtest::AnalysisShell, PLMIRepReference, PLMIRepReferenceNonZENTADataAccess> {
 public:
  using KORDerives::KORDerives;
  long GetStreamFilePath(KORUnicodeString& path) override { return Inside().GetStreamFilePath(path); }
};

class WithoutPropertiesTest : public LegacyMigrationTest {
 protected:
  WithoutPropertiesTest() {
    const auto shell = KORHandle<LegacyShell>::Adopt(new LegacyShell(_Analyses.Make("shell", NamedNew)));
    shell->Hide<VEXITimeAnalysisProperties>();
    _Operation = NewOperation("OP", {PLMIRepReference_var(shell)});
  }

  Operation_var _Operation;
};

TEST_F(WithoutPropertiesTest, EndTheWholeWithTheStatusOfTheStream) {
  const LegacyOperation ahead = Add("ahead", "Save"), behind = Add("behind", NamedNew);
  EXPECT_EQ(Migrate({ahead.Occurrence, NewOccurrence(_Operation), behind.Occurrence}), S_OK);
  EXPECT_EQ(Shown(ahead), "no name");
  EXPECT_EQ(Shown(behind), "old");
  ASSERT_EQ(Under(_Operation).size(), 1u);
  EXPECT_TRUE(Under(_Operation)[0].IsNull()) << "the shell is still there";
}

TEST_F(WithoutPropertiesTest, AreNotMissedWithoutStream) {
  const LegacyOperation behind = Add("behind", NamedNew);
  _Session.InjectFault("KORFSize", E_FAIL);
  EXPECT_EQ(Migrate({NewOccurrence(_Operation)}), E_FAIL);
  _Session.ClearFaults();
  EXPECT_EQ(Migrate({NewOccurrence("OP", {}), behind.Occurrence}), S_OK);
  EXPECT_EQ(Shown(behind), "new");
}

TEST_F(WithoutPropertiesTest, RaiseTheNullHandleErrorInARecordedSession) {
  const LegacyOperation behind = Add("behind", NamedNew);
  Record(KORRecord::Mode::Replay);
  EXPECT_THROW(Migrate({NewOccurrence(_Operation), behind.Occurrence}), KORError);
  EXPECT_EQ(Shown(behind), "old");
}

// Faults of the platform

// An outcome is the status, and what stands under the operation then. The operations are made ahead of the fault.
class LegacyFaultTest : public objectstest::FaultTest {
 protected:
  LegacyAnalyses _Analyses;
  const LegacyOperation _First = UnderNewOperation(_Analyses.Make("first", NamedNew));
  const LegacyOperation _Second = UnderNewOperation(_Analyses.Make("second", NamedNew));
};

TEST_P(LegacyFaultTest, GivesItsOutcome) {
  const LegacyOperation* next = &_First;
  const auto migrate_next = [&] {
    const LegacyOperation& made = *std::exchange(next, &_Second);
    const long status = Migrate({made.Occurrence});
    if (GetParam().life == KORFault::Life::Always) _Session.ClearFaults();
    return objectstest::StatusName(status) + ", " + Shown(made);
  };
  ExpectOutcome(migrate_next, "S_OK, new");
}

TEST_P(LegacyFaultTest, StopsNoOtherOperation) {
  _Session.InjectFault(GetParam().row.call, objectstest::FaultOf(GetParam().kind, KORFault::Life::Once));
  EXPECT_EQ(Migrate({_First.Occurrence, _Second.Occurrence}), S_OK);
  EXPECT_EQ(Shown(_Second), "new");
}

INSTANTIATE_TEST_SUITE_P(Rows, LegacyFaultTest,
                         testing::ValuesIn(objectstest::AllFaults({
                             {"GetRelatedInstance", "E_FAIL, old", "S_OK, new", "E_FAIL, old"},
                             {"GetInstanceReference", "fault, old", "S_OK, new", "S_OK, old"},
                             {"ListRepInstances", "E_FAIL, old", "S_OK, new", "E_FAIL, old"},
                             {"GetRepReference", "E_FAIL, old", "S_OK, new", "E_FAIL, old"},
                             {"GetStreamFilePath", "fault, old", "S_OK, new", "E_INVALIDARG, old"},
                             {"KORFOpen", "E_INVALIDARG, old", "S_OK, new", "E_INVALIDARG, old"},
                             {"KORFSize", "fault, old", "S_OK, new", "S_OK, old"},
                             {"KORFRead", "fault, old", "fault, old", "S_OK, old"},
                             {"KORFClose", "S_OK, new", "S_OK, new", "S_OK, new"},
                             {"GetRepresentationReferenceFactory", "fault, old", "fault, old", "S_OK, old"},
                             {"RetrieveKnowledgeType", "fault, old", "S_OK, new", "S_OK, old"},
                             {"GetSessionHelpers", "S_OK, old", "S_OK, new", "S_OK, old"},
                             {"GetCurrentEnvironment", "S_OK, old", "S_OK, new", "S_OK, old"},
                             // The attributes are made for nothing: none of them reaches the new analysis.
                             {"GetVolatileFactory", "S_OK, new", "S_OK, new", "S_OK, new"},
                             {"CreateTextParm", "S_OK, new", "S_OK, new", "S_OK, new"},
                             {"CreateRepReference", "fault, old", "fault, old", "S_OK, old"},
                             // Neither taking the old one away nor putting the new one in its place is looked at.
                             {"RemoveRepInstance", "S_OK, old new", "S_OK, new", "S_OK, old new"},
                             {"AddRepInstance", "S_OK, nothing", "S_OK, new", "S_OK, nothing"},
                         })),
                         objectstest::FaultCaseName());

}  // namespace
