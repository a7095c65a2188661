// Time analyses found from operations, from occurrences of operations and from representation instances.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "VEXSTTProvider.h"
#include "platform/base/KORError.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::MakeBareObject;
using objectstest::AllFaults;
using objectstest::Attach;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultTest;
using objectstest::InstancesUnder;
using objectstest::ListOf;
using objectstest::Marker;
using objectstest::NameOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOccurrence;
using objectstest::NewOperation;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::Occurrence_var;
using objectstest::ReferencesOf;
using objectstest::StatusName;
using support::RowName;

/// Makes the object that an operation is asked about.
using Maker = std::function<KORBaseUnknown_var()>;

struct FindRow {
  std::string name;
  Maker make;
  std::string outcome;
};

// An operation reference whose list holds whatever it is given.
class ListedOperation final : public KORImplements<KORIPLMNavReference, PLMIRepInstances> {
 public:
  explicit ListedOperation(KORListValKORBaseUnknown_var listed) : _Listed(std::move(listed)) {}

  long ListRepInstances(KORListValKORBaseUnknown_var& instances) override {
    instances = _Listed;
    return S_OK;
  }
  long AddRepInstance(KORIAdpEnvironment* /*environment*/, PLMIRepReference* /*reference*/,
                      PLMIRepInstance*& /*instance*/, int /*reserved*/) override {
    return E_FAIL;
  }
  long RemoveRepInstance(PLMIRepInstance* /*instance*/) override { return E_FAIL; }

 private:
  KORListValKORBaseUnknown_var _Listed;
};

KORHandle<ListedOperation> OperationThatLists(std::initializer_list<KORBaseUnknown_var> objects) {
  return KORHandle<ListedOperation>::Adopt(new ListedOperation(ListOf(objects)));
}

// ---- From an operation reference ----

std::string Check(const KORBaseUnknown_var& operation) {
  KORBaseUnknown_var analysis = Marker();
  const long status = VEXSTTProvider::CheckExsistingRepRef(operation, analysis);
  return StatusName(status) + " " + NameOf(analysis);
}

class CheckExsistingRepRefTest : public ObjectsRowTest<FindRow> {};

TEST_P(CheckExsistingRepRefTest, FindsTheFirstTimeAnalysis) {
  EXPECT_EQ(Check(GetParam().make()), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Operations, CheckExsistingRepRefTest,
    testing::Values(FindRow{"OneAnalysis", [] { return NewOperation("op", {NewAnalysis("A")}); }, "S_OK A"},
                    FindRow{"OtherKindFirst",
                            [] {
                              return NewOperation("op", {NewDrawing("D"), NewAnalysis("A")});
                            },
                            "S_OK A"},
                    FindRow{"TwoAnalyses",
                            [] {
                              return NewOperation("op", {NewAnalysis("A"), NewAnalysis("B")});
                            },
                            "S_OK A"},
                    FindRow{"OtherKindsAround",
                            [] {
                              return NewOperation("op", {NewDrawing("D"), NewDrawing("E"), NewAnalysis("B"),
                                                         NewDrawing("F"), NewAnalysis("A")});
                            },
                            "S_OK B"},
                    FindRow{"NoRepresentation", [] { return NewOperation("op"); }, "E_FAIL untouched"},
                    FindRow{"OtherKindsAlone",
                            [] {
                              return NewOperation("op", {NewDrawing("D"), NewDrawing("E")});
                            },
                            "E_FAIL untouched"},
                    FindRow{"Null", [] { return NULL_var; }, "E_FAIL untouched"},
                    FindRow{"AnOccurrence", [] { return NewOccurrence("op", {NewAnalysis("A")}); }, "E_FAIL untouched"},
                    FindRow{"AnAnalysis", [] { return NewAnalysis("A"); }, "E_FAIL untouched"},
                    FindRow{"NoInterfaceAtAll", [] { return MakeBareObject(); }, "E_FAIL untouched"}),
    RowName());

TEST_F(CheckExsistingRepRefTest, PassesOverEntriesThatAreNoRepresentationInstances) {
  const PLMIRepInstance_var instance = Attach(NewOperation("op"), NewAnalysis("A"));
  EXPECT_EQ(Check(OperationThatLists({NULL_var, MakeBareObject(), NewAnalysis("B"), instance})), "S_OK A");
  EXPECT_EQ(Check(OperationThatLists({NULL_var, MakeBareObject(), NewAnalysis("B")})), "E_FAIL untouched");
}

TEST_F(CheckExsistingRepRefTest, GivesTheImplementation) {
  const auto analysis = NewAnalysis("A");
  KORBaseUnknown_var found;
  ASSERT_EQ(VEXSTTProvider::CheckExsistingRepRef(NewOperation("op", {analysis}), found), S_OK);
  EXPECT_EQ(found.Get(), analysis->GetImpl(0));
}

TEST_F(CheckExsistingRepRefTest, TakesAnyInterfaceOfTheOperation) {
  const PLMIRepInstances_var instances = NewOperation("op", {NewAnalysis("A")});
  KORBaseUnknown_var found;
  EXPECT_EQ(VEXSTTProvider::CheckExsistingRepRef(instances, found), S_OK);
}

TEST_F(CheckExsistingRepRefTest, PassesOverAnInstanceThatGivesNoReference) {
  const auto operation = NewOperation("op", {NewAnalysis("A"), NewAnalysis("B")});
  for (const KORFault::Kind kind : {KORFault::Kind::StatusAndNull, KORFault::Kind::NullAlone}) {
    _Session.InjectFault("GetRepReference", FaultOf(kind, KORFault::Life::Once));
    EXPECT_EQ(Check(operation), "S_OK B");
  }
}

class CheckExsistingRepRefFaultTest : public FaultTest {};

TEST_P(CheckExsistingRepRefFaultTest, IsToldByTheObjectsAlone) {
  const auto operation = NewOperation("op", {NewAnalysis("A")});
  ExpectOutcome([&] { return Check(operation); }, "S_OK A");
}

INSTANTIATE_TEST_SUITE_P(Calls, CheckExsistingRepRefFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"ListRepInstances", "E_FAIL untouched", "S_OK A", "E_FAIL untouched"},
                             {"GetRepReference", "E_FAIL untouched", "S_OK A", "E_FAIL untouched"},
                         })),
                         FaultCaseName());

// ---- From an occurrence ----

std::string AnalysisOf(const KORBaseUnknown_var& occurrence) {
  return NameOf(VEXSTTProvider::GetTimeAnalysisFromOperation(occurrence));
}

// An occurrence whose instance has lost its reference.
Occurrence_var OccurrenceWithoutReference() {
  const auto instance = KORHandle<KOROperationInstance>::Adopt(new KOROperationInstance(NULL_var));
  return Occurrence_var::Adopt(new KOROperationOccurrence(instance));
}

Occurrence_var OccurrenceWithoutInstance() {
  return Occurrence_var::Adopt(new KOROperationOccurrence(NULL_var));
}

// An occurrence of something that is no operation.
Occurrence_var OccurrenceOfAPart() {
  class Part final : public KORImplements<KORIPLMNavReference> {};
  return NewOccurrence(KORIPLMNavReference_var(KORHandle<Part>::Adopt(new Part)));
}

class GetTimeAnalysisFromOperationTest : public ObjectsRowTest<FindRow> {};

TEST_P(GetTimeAnalysisFromOperationTest, FindsTheFirstTimeAnalysis) {
  EXPECT_EQ(AnalysisOf(GetParam().make()), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, GetTimeAnalysisFromOperationTest,
    testing::Values(FindRow{"OneAnalysis", [] { return NewOccurrence("op", {NewAnalysis("A")}); }, "A"},
                    FindRow{"OtherKindFirst",
                            [] {
                              return NewOccurrence("op", {NewDrawing("D"), NewAnalysis("A")});
                            },
                            "A"},
                    FindRow{"TwoAnalyses",
                            [] {
                              return NewOccurrence("op", {NewAnalysis("A"), NewAnalysis("B")});
                            },
                            "A"},
                    FindRow{"NoRepresentation", [] { return NewOccurrence("op", {}); }, "null"},
                    FindRow{"OtherKindAlone", [] { return NewOccurrence("op", {NewDrawing("D")}); }, "null"},
                    FindRow{"Null", [] { return NULL_var; }, "null"},
                    FindRow{"ABareReference", [] { return NewOperation("op", {NewAnalysis("A")}); }, "null"},
                    FindRow{"AnAnalysis", [] { return NewAnalysis("A"); }, "null"},
                    FindRow{"NoInterfaceAtAll", [] { return MakeBareObject(); }, "null"},
                    FindRow{"InstanceLost", [] { return OccurrenceWithoutInstance(); }, "null"},
                    FindRow{"ReferenceLost", [] { return OccurrenceWithoutReference(); }, "null"},
                    FindRow{"OfNoOperation", [] { return OccurrenceOfAPart(); }, "null"}),
    RowName());

class GetTimeAnalysisFromOperationFaultTest : public FaultTest {};

TEST_P(GetTimeAnalysisFromOperationFaultTest, IsToldByTheObjectsAlone) {
  const auto occurrence = NewOccurrence("op", {NewAnalysis("A")});
  ExpectOutcome([&] { return AnalysisOf(occurrence); }, "A");
}

INSTANTIATE_TEST_SUITE_P(Calls, GetTimeAnalysisFromOperationFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetRelatedInstance", "null", "A", "null"},
                             {"GetInstanceReference", "null", "A", "null"},
                             {"ListRepInstances", "null", "A", "null"},
                             {"GetRepReference", "null", "A", "null"},
                         })),
                         FaultCaseName());

// ---- From a representation instance ----

std::string AnalysisOfInstance(const KORBaseUnknown_var& instance) {
  KORBaseUnknown_var analysis = Marker();
  const int found = VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instance, analysis);
  const KORBaseUnknown_var marker = Marker();
  KORBaseUnknown* borrowed = marker.Get();
  const int found_too = VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instance, borrowed);
  const bool same = found == found_too && (found == 0 ? borrowed == marker.Get() : borrowed == analysis.Get());
  return std::to_string(found) + " " + (same ? NameOf(analysis) : "told differently by the two");
}

class GetTimeAnalysisReferenceFromInstanceTest : public ObjectsRowTest<FindRow> {};

TEST_P(GetTimeAnalysisReferenceFromInstanceTest, FindsItsTimeAnalysis) {
  EXPECT_EQ(AnalysisOfInstance(GetParam().make()), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, GetTimeAnalysisReferenceFromInstanceTest,
    testing::Values(FindRow{"OfAnAnalysis", [] { return Attach(NewOperation("op"), NewAnalysis("A")); }, "1 A"},
                    FindRow{"SecondUnderItsOperation",
                            [] {
                              return InstancesUnder(NewOperation("op", {NewAnalysis("A"), NewAnalysis("B")}))[2];
                            },
                            "1 B"},
                    FindRow{"OfAnotherKind", [] { return Attach(NewOperation("op"), NewDrawing("D")); }, "0 untouched"},
                    FindRow{"Null", [] { return NULL_var; }, "0 untouched"},
                    FindRow{"AnAnalysis", [] { return NewAnalysis("A"); }, "0 untouched"},
                    FindRow{"AnOccurrence", [] { return NewOccurrence("op", {NewAnalysis("A")}); }, "0 untouched"},
                    FindRow{"NoInterfaceAtAll", [] { return MakeBareObject(); }, "0 untouched"}),
    RowName());

TEST_F(GetTimeAnalysisReferenceFromInstanceTest, ThePointerIsTheImplementationAndIsBorrowed) {
  const auto analysis = NewAnalysis("A");
  const auto instance = Attach(NewOperation("op"), analysis);
  const unsigned long references = ReferencesOf(*analysis);
  KORBaseUnknown* borrowed = nullptr;
  EXPECT_EQ(VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instance, borrowed), 1);
  EXPECT_EQ(borrowed, analysis->GetImpl(0));
  EXPECT_EQ(ReferencesOf(*analysis), references);
}

TEST_F(GetTimeAnalysisReferenceFromInstanceTest, TheHandleKeepsTheAnalysisAlive) {
  KORBaseUnknown_var analysis;
  {
    const auto instance = KORHandle<KORRepInstance>::Adopt(new KORRepInstance(support::MakeAnalysis("A")));
    EXPECT_EQ(VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instance, analysis), 1);
  }
  EXPECT_EQ(NameOf(analysis), "A");
}

class GetTimeAnalysisReferenceFromInstanceFaultTest : public FaultTest {};

TEST_P(GetTimeAnalysisReferenceFromInstanceFaultTest, GivesNoAnalysis) {
  const auto instance = Attach(NewOperation("op"), NewAnalysis("A"));
  const auto find = [&] {
    KORBaseUnknown_var analysis = Marker();
    const int found = VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instance, analysis);
    return std::to_string(found) + " " + NameOf(analysis);
  };
  ExpectOutcome(find, "1 A");
}

INSTANTIATE_TEST_SUITE_P(Calls, GetTimeAnalysisReferenceFromInstanceFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetRepReference", "0 untouched", "0 untouched", "0 untouched"},
                         })),
                         FaultCaseName());

// ---- From many occurrences ----

// The status, and the names of the analyses of the instances in the list. What fails does so during the call alone.
std::string AnalysesUnder(const KORListValKORBaseUnknown_var& occurrences) {
  KORListValKORBaseUnknown_var instances = ListOf({Marker()});
  const long status = VEXSTTProvider::GetAllTARepInstancesFromOpeOcc(occurrences, instances);
  KORSession::Current().ClearFaults();
  std::string outcome = StatusName(status);
  for (const KORBaseUnknown_var& instance : instances) {
    KORBaseUnknown_var analysis;
    EXPECT_EQ(VEXSTTProvider::GetTimeAnalysisReferenceFromInstance(instance, analysis), 1);
    outcome += " " + NameOf(analysis);
  }
  return outcome;
}

class GetAllTARepInstancesFromOpeOccTest : public ObjectsTest {};

TEST_F(GetAllTARepInstancesFromOpeOccTest, ListsTheFirstOfEachOperation) {
  const KORListValKORBaseUnknown_var occurrences =
      ListOf({NewOccurrence("one", {NewDrawing("D"), NewAnalysis("B"), NewAnalysis("C")}),
              NewOccurrence("two", {NewAnalysis("A")})});
  EXPECT_EQ(AnalysesUnder(occurrences), "S_OK B A");
}

TEST_F(GetAllTARepInstancesFromOpeOccTest, GivesTheInstancesThemselves) {
  const auto operation = NewOperation("op", {NewAnalysis("A")});
  KORListValKORBaseUnknown_var instances;
  EXPECT_EQ(VEXSTTProvider::GetAllTARepInstancesFromOpeOcc(ListOf({NewOccurrence(operation)}), instances), S_OK);
  EXPECT_EQ(instances, InstancesUnder(operation));
}

TEST_F(GetAllTARepInstancesFromOpeOccTest, PassesOverOneOfThreeWithoutAnalysis) {
  EXPECT_EQ(AnalysesUnder(ListOf({NewOccurrence("one", {NewAnalysis("A")}), NewOccurrence("two", {NewDrawing("D")}),
                                  NewOccurrence("three", {NewAnalysis("C")})})),
            "S_OK A C");
}

TEST_F(GetAllTARepInstancesFromOpeOccTest, PassesOverWhatIsNoOccurrenceOrHasLostItsWay) {
  EXPECT_EQ(AnalysesUnder(
                ListOf({NULL_var, MakeBareObject(), NewOperation("op", {NewAnalysis("A")}), OccurrenceWithoutInstance(),
                        OccurrenceWithoutReference(), OccurrenceOfAPart(), NewOccurrence("last", {NewAnalysis("B")})})),
            "S_OK B");
}

TEST_F(GetAllTARepInstancesFromOpeOccTest, TwoOccurrencesOfOneOperationGiveItsInstanceTwice) {
  const auto operation = NewOperation("op", {NewAnalysis("A")});
  EXPECT_EQ(AnalysesUnder(ListOf({NewOccurrence(operation), NewOccurrence(operation)})), "S_OK A A");
}

TEST_F(GetAllTARepInstancesFromOpeOccTest, FailsWithAnEmptyListIfThereIsNone) {
  EXPECT_EQ(AnalysesUnder({}), "E_FAIL");
  EXPECT_EQ(AnalysesUnder(ListOf({NewOccurrence("op", {}), NULL_var})), "E_FAIL");
}

TEST_F(GetAllTARepInstancesFromOpeOccTest, AFaultAtOneOccurrenceLeavesTheOthers) {
  const KORListValKORBaseUnknown_var occurrences =
      ListOf({NewOccurrence("one", {NewAnalysis("A")}), NewOccurrence("two", {NewAnalysis("B")}),
              NewOccurrence("three", {NewAnalysis("C")})});
  for (const char* call : {"GetRelatedInstance", "GetInstanceReference", "ListRepInstances", "GetRepReference"}) {
    _Session.InjectFault(call, FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once));
    EXPECT_EQ(AnalysesUnder(occurrences), "S_OK B C") << call;
  }
}

class GetAllTARepInstancesFromOpeOccFaultTest : public FaultTest {};

TEST_P(GetAllTARepInstancesFromOpeOccFaultTest, PassesTheOccurrenceOver) {
  const KORListValKORBaseUnknown_var occurrences = ListOf({NewOccurrence("op", {NewAnalysis("A")})});
  ExpectOutcome([&] { return AnalysesUnder(occurrences); }, "S_OK A");
}

// The way to the operation is tested by statuses, too; the walk over its representations by the objects alone.
INSTANTIATE_TEST_SUITE_P(Calls, GetAllTARepInstancesFromOpeOccFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetRelatedInstance", "E_FAIL", "E_FAIL", "E_FAIL"},
                             {"GetInstanceReference", "E_FAIL", "E_FAIL", "E_FAIL"},
                             {"ListRepInstances", "E_FAIL", "S_OK A", "E_FAIL"},
                             {"GetRepReference", "E_FAIL", "S_OK A", "E_FAIL"},
                         })),
                         FaultCaseName());

}  // namespace
