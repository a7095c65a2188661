// Time analyses made, put under operations and taken away from there.
#include <gtest/gtest.h>

#include <string>

#include "VEXSTTProvider.h"
#include "platform/base/KORError.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/services/KORCkePLMCoreServices.h"
#include "platform/services/KORIType.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::MakeBareObject;
using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultTest;
using objectstest::InjectedStatus;
using objectstest::InstancesUnder;
using objectstest::Line;
using objectstest::Marker;
using objectstest::NameOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOccurrence;
using objectstest::NewOperation;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::Operation_var;
using objectstest::ReferencesOf;
using objectstest::StatusName;

// ---- Making ----

KORICkeParm_var TextParameter(const char* name, const char* value) {
  return KORCkeGlobalFunctions::GetVolatileFactory()->CreateTextParm(name, value);
}

KORListValKORICkeParm_var Parameters(std::initializer_list<KORICkeParm_var> parameters) {
  KORListValKORICkeParm_var list;
  for (const KORICkeParm_var& parameter : parameters) list.Append(parameter);
  return list;
}

KORHandle<KORCkeProxy> NewProxy(const char* type = "VEXTimeAnalysisRepReference") {
  return KORHandle<KORCkeProxy>::Adopt(new KORCkeProxy(type));
}

std::string TextAttribute(const KORBaseUnknown_var& object, const char* name) {
  KORUnicodeString text("not set");
  (void)VEXITimeAnalysisProperties_var(object)->GetValue(name, text);
  return std::string(text.Bytes());
}

// Makes an analysis called "New", with values of a proxy if one is given. What fails does so during the call alone.
std::string Make(const KORIInstance_var& proxy = NULL_var) {
  KORBaseUnknown_var representation = Marker();
  const KORListValKORICkeParm_var attributes = Parameters({TextParameter("PLM_ExternalID", "New")});
  const long status = VEXSTTProvider::CreateNewFactoryRepRef(representation, {}, attributes, proxy);
  KORSession::Current().ClearFaults();
  const std::string outcome = StatusName(status) + " " + NameOf(representation);
  return proxy.IsNull() ? outcome : outcome + " of " + TextAttribute(representation, "V_Name");
}

class CreateNewFactoryRepRefTest : public ObjectsTest {};

TEST_F(CreateNewFactoryRepRefTest, MakesATimeAnalysisThatIsAttachedToNothing) {
  KORBaseUnknown_var representation;
  EXPECT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(representation, {}, {}, NULL_var), S_OK);
  EXPECT_FALSE(VEXITimeAnalysisRepReference_var(representation).IsNull());
  EXPECT_FALSE(VEXITimeAnalysisLines_var(representation).IsNull());
  EXPECT_EQ(representation.Get(), representation->GetImpl(0));
  ASSERT_EQ(KORModel::Current().GetTimeAnalyses().size(), 1u);
  EXPECT_EQ(representation, KORModel::Current().GetTimeAnalyses().front());
}

TEST_F(CreateNewFactoryRepRefTest, MakesANewOneEachTime) {
  KORBaseUnknown_var first, second;
  EXPECT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(first, {}, {}, NULL_var), S_OK);
  EXPECT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(second, {}, {}, NULL_var), S_OK);
  EXPECT_FALSE(first == second);
}

TEST_F(CreateNewFactoryRepRefTest, SetsTheCreationAttributes) {
  const auto attributes = Parameters({TextParameter("V_Name", "Fasten"), TextParameter("V_Subsystem", "MOST")});
  KORBaseUnknown_var representation;
  EXPECT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(representation, {}, attributes, NULL_var), S_OK);
  EXPECT_EQ(TextAttribute(representation, "V_Name"), "Fasten");
  EXPECT_EQ(TextAttribute(representation, "V_Subsystem"), "MOST");
}

TEST_F(CreateNewFactoryRepRefTest, NeverUsesTheWritableAttributes) {
  const auto attributes = Parameters({TextParameter("V_Name", "Fasten"), TextParameter("V_Subsystem", "MOST")});
  KORBaseUnknown_var representation;
  EXPECT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(representation, attributes, {}, NULL_var), S_OK);
  EXPECT_EQ(TextAttribute(representation, "V_Name"), "not set");
  EXPECT_EQ(TextAttribute(representation, "V_Subsystem"), "not set");
}

TEST_F(CreateNewFactoryRepRefTest, CopiesTheValuesOfAProxy) {
  const auto proxy = NewProxy();
  proxy->GetAttributes().Set("V_Name", KORUnicodeString("Fasten"));
  EXPECT_EQ(Make(proxy), "S_OK New of Fasten");
}

TEST_F(CreateNewFactoryRepRefTest, TheValuesOfAProxyReplaceTheCreationAttributes) {
  const auto proxy = NewProxy();
  proxy->GetAttributes().Set("V_Name", KORUnicodeString("of the proxy"));
  KORBaseUnknown_var representation;
  EXPECT_EQ(
      VEXSTTProvider::CreateNewFactoryRepRef(representation, {}, Parameters({TextParameter("V_Name", "given")}), proxy),
      S_OK);
  EXPECT_EQ(TextAttribute(representation, "V_Name"), "of the proxy");
}

// Has attributes, and is nothing that the knowledge engine reads.
class PlainInstance final : public KORImplements<KORIInstance> {
 public:
  KORIValue* GetAttribute(const KORUnicodeString& /*name*/) override { return nullptr; }
};

TEST_F(CreateNewFactoryRepRefTest, AProxyThatCannotBeCopiedLeavesTheNewAnalysisAndTellsOfTheFailure) {
  EXPECT_EQ(Make(KORHandle<PlainInstance>::Adopt(new PlainInstance)), "E_INVALIDARG New of not set") << "no proxy";
  EXPECT_EQ(Make(NewAnalysis("A")), "E_INVALIDARG New of not set") << "no proxy";
  EXPECT_EQ(Make(NewProxy("a type that is not known")), "E_INVALIDARG New of not set");
}

TEST_F(CreateNewFactoryRepRefTest, FetchesItsOwnFactory) {
  PLMIRepresentationReferenceFactory* factory = nullptr;
  ASSERT_EQ(VEXSTTProvider::GetRepRefFactory(factory), S_OK);
  factory->Release();
  _Session.InjectFault("GetRepresentationReferenceFactory", InjectedStatus);
  EXPECT_EQ(Make(), "fault untouched");
  const VEXSTTProvider releases_the_kept_factory;
}

TEST_F(CreateNewFactoryRepRefTest, WithoutAKnowledgeTypeThereIsNothingToMake) {
  KORKnowledgeTypes::Current().Forget("VEXTimeAnalysisRepReference");
  EXPECT_EQ(Make(), "E_FAIL untouched");
  EXPECT_TRUE(KORModel::Current().GetTimeAnalyses().empty());
}

TEST_F(CreateNewFactoryRepRefTest, WithoutAnEnvironmentTheStatusIsThatOfTheKnowledgeType) {
  for (const char* call : {"GetSessionHelpers", "GetCurrentEnvironment"}) {
    _Session.InjectFault(call, E_NOINTERFACE);
    _Session.InjectFault("RetrieveKnowledgeType", FaultOf(KORFault::Kind::StatusAlone));
    EXPECT_EQ(Make(), "fault untouched") << call;
  }
  EXPECT_TRUE(KORModel::Current().GetTimeAnalyses().empty());
}

class CreateNewFactoryRepRefFaultTest : public FaultTest {};

TEST_P(CreateNewFactoryRepRefFaultTest, ShowsAsFarAsItIsTested) {
  ExpectOutcome([] { return Make(); }, "S_OK New");
}

INSTANTIATE_TEST_SUITE_P(Calls, CreateNewFactoryRepRefFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetRepresentationReferenceFactory", "fault untouched", "fault untouched",
                              "S_OK untouched"},
                             {"RetrieveKnowledgeType", "fault untouched", "S_OK New", "S_OK untouched"},
                             {"GetSessionHelpers", "S_OK untouched", "S_OK New", "S_OK untouched"},
                             {"GetCurrentEnvironment", "S_OK untouched", "S_OK New", "S_OK untouched"},
                             {"CreateRepReference", "fault untouched", "fault untouched", "S_OK untouched"},
                         })),
                         FaultCaseName());

class ProxyFaultTest : public FaultTest {};

TEST_P(ProxyFaultTest, LeavesTheNewAnalysis) {
  const auto proxy = NewProxy();
  proxy->GetAttributes().Set("V_Name", KORUnicodeString("Fasten"));
  ExpectOutcome([&] { return Make(proxy); }, "S_OK New of Fasten");
}

INSTANTIATE_TEST_SUITE_P(Calls, ProxyFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"RetrieveTypeFromProxy", "E_INVALIDARG New of not set", "S_OK New of Fasten",
                              "E_INVALIDARG New of not set"},
                             {"FillAttributesFromProxyOrBusinessLogicOnObject", "fault New of not set",
                              "fault New of Fasten", "S_OK New of not set"},
                         })),
                         FaultCaseName());

// ---- Putting under an operation ----

// The names of the analyses and drawings under an operation. No fault is to hold by now.
std::string RepresentationsUnder(const Operation_var& operation) {
  std::string names;
  for (const KORBaseUnknown_var& entry : InstancesUnder(operation)) {
    PLMIRepReference* reference = nullptr;
    EXPECT_EQ(PLMIRepInstance_var(entry)->GetRepReference(reference), S_OK);
    names += " " + NameOf(PLMIRepReference_var::Adopt(reference));
  }
  return names;
}

std::string Instanciate(const Operation_var& operation, const KORBaseUnknown_var& representation) {
  const long status = VEXSTTProvider::InstanciateNewRepRef(operation, representation);
  KORSession::Current().ClearFaults();
  return StatusName(status) + RepresentationsUnder(operation);
}

class InstanciateNewRepRefTest : public ObjectsTest {};

TEST_F(InstanciateNewRepRefTest, AddsAnInstanceBehindTheOthers) {
  const auto operation = NewOperation("op", {NewDrawing("D")});
  const auto analysis = NewAnalysis("A");
  EXPECT_EQ(Instanciate(operation, analysis), "S_OK D A");
  EXPECT_EQ(Instanciate(operation, NewDrawing("E")), "S_OK D A E");
  EXPECT_EQ(Instanciate(operation, analysis), "S_OK D A E A");
}

TEST_F(InstanciateNewRepRefTest, WhatIsAddedIsTheOperationsAlone) {
  const auto operation = NewOperation("op");
  EXPECT_EQ(VEXSTTProvider::InstanciateNewRepRef(operation, NewAnalysis("A")), S_OK);
  const KORListValKORBaseUnknown_var instances = InstancesUnder(operation);
  EXPECT_EQ(ReferencesOf(*instances[1]), 2u) << "of the operation and of the list";
}

TEST_F(InstanciateNewRepRefTest, FailsWithoutAnOperation) {
  const auto analysis = NewAnalysis("A");
  EXPECT_EQ(VEXSTTProvider::InstanciateNewRepRef(NULL_var, analysis), E_FAIL);
  EXPECT_EQ(VEXSTTProvider::InstanciateNewRepRef(MakeBareObject(), analysis), E_FAIL);
  EXPECT_EQ(VEXSTTProvider::InstanciateNewRepRef(NewOccurrence("op", {}), analysis), E_FAIL);
}

TEST_F(InstanciateNewRepRefTest, WhatIsNoRepresentationIsRefusedByTheOperation) {
  const auto operation = NewOperation("op");
  EXPECT_EQ(Instanciate(operation, NULL_var), "E_INVALIDARG");
  EXPECT_EQ(Instanciate(operation, MakeBareObject()), "E_INVALIDARG");
}

class InstanciateNewRepRefFaultTest : public FaultTest {};

TEST_P(InstanciateNewRepRefFaultTest, ShowsAsFarAsItIsTested) {
  ExpectOutcome([] { return Instanciate(NewOperation("op"), NewAnalysis("A")); }, "S_OK A");
}

INSTANTIATE_TEST_SUITE_P(Calls, InstanciateNewRepRefFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetSessionHelpers", "E_FAIL", "S_OK A", "E_FAIL"},
                             {"GetCurrentEnvironment", "E_FAIL", "S_OK A", "E_FAIL"},
                             {"AddRepInstance", "fault", "fault A", "S_OK"},
                         })),
                         FaultCaseName());

// ---- Taking away ----

std::string Remove(const Operation_var& operation) {
  const long status = VEXSTTProvider::RemoveRepRef(operation);
  KORSession::Current().ClearFaults();
  return StatusName(status) + RepresentationsUnder(operation);
}

class RemoveRepRefTest : public ObjectsTest {};

TEST_F(RemoveRepRefTest, TakesTheOneAnalysisAwayOnce) {
  const auto operation = NewOperation("op", {NewAnalysis("A")});
  EXPECT_EQ(Remove(operation), "S_OK");
  EXPECT_EQ(Remove(operation), "E_FAIL");
}

TEST_F(RemoveRepRefTest, TakesTheFirstOfTwoAnalysesAndNoOtherKind) {
  const auto operation = NewOperation("op", {NewDrawing("D"), NewAnalysis("A"), NewDrawing("E"), NewAnalysis("B")});
  EXPECT_EQ(Remove(operation), "S_OK D E B");
  EXPECT_EQ(Remove(operation), "S_OK D E");
  EXPECT_EQ(Remove(operation), "E_FAIL D E");
}

TEST_F(RemoveRepRefTest, LeavesTheAnalysisAndItsOtherPlaces) {
  const auto analysis = NewAnalysis("A", {Line("M10B")});
  const auto operation = NewOperation("op", {analysis});
  const auto other = NewOperation("other", {analysis});
  EXPECT_EQ(Remove(operation), "S_OK");
  EXPECT_EQ(RepresentationsUnder(other), " A");
  EXPECT_EQ(support::TextOfLine(*analysis, 1, "Code"), "M10B");
}

TEST_F(RemoveRepRefTest, FailsForNullAndWithoutAnAnalysis) {
  EXPECT_EQ(VEXSTTProvider::RemoveRepRef(NULL_var), E_FAIL);
  EXPECT_EQ(Remove(NewOperation("op")), "E_FAIL");
  EXPECT_EQ(Remove(NewOperation("op", {NewDrawing("D")})), "E_FAIL D");
}

TEST_F(RemoveRepRefTest, AnObjectThatIsNoOperationRaisesTheNullHandleError) {
  EXPECT_THROW(VEXSTTProvider::RemoveRepRef(MakeBareObject()), KORError);
  EXPECT_THROW(VEXSTTProvider::RemoveRepRef(NewAnalysis("A")), KORError);
  EXPECT_THROW(VEXSTTProvider::RemoveRepRef(NewOccurrence("op", {NewAnalysis("A")})), KORError);
}

class RemoveRepRefFaultTest : public FaultTest {};

TEST_P(RemoveRepRefFaultTest, OfTheRemovalItselfIsNotTold) {
  ExpectOutcome([] { return Remove(NewOperation("op", {NewAnalysis("A")})); }, "S_OK");
}

INSTANTIATE_TEST_SUITE_P(Calls, RemoveRepRefFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"ListRepInstances", "E_FAIL A", "S_OK", "E_FAIL A"},
                             {"GetRepReference", "E_FAIL A", "S_OK", "E_FAIL A"},
                             {"RemoveRepInstance", "S_OK A", "S_OK", "S_OK A"},
                         })),
                         FaultCaseName());

// ---- From making to taking away ----

TEST_F(ObjectsTest, AnAnalysisIsMadeAttachedFoundAndDetached) {
  const auto operation = NewOperation("op", {NewDrawing("D")});
  KORBaseUnknown_var made;
  ASSERT_EQ(VEXSTTProvider::CreateNewFactoryRepRef(made, {}, {}, NULL_var), S_OK);
  ASSERT_EQ(VEXSTTProvider::InstanciateNewRepRef(operation, made), S_OK);
  EXPECT_EQ(VEXSTTProvider::GetTimeAnalysisFromOperation(NewOccurrence(operation)), made);
  ASSERT_EQ(VEXSTTProvider::RemoveRepRef(operation), S_OK);
  EXPECT_TRUE(VEXSTTProvider::GetTimeAnalysisFromOperation(NewOccurrence(operation)).IsNull());
  EXPECT_EQ(VEXSTTProvider::InstanciateNewRepRef(operation, made), S_OK);
}

// An error that is raised in the platform goes through to the caller, and nothing is left behind.
struct RaisedRow {
  const char* name;  // of the call
};
class RaisedErrorTest : public ObjectsRowTest<RaisedRow> {};

TEST_P(RaisedErrorTest, GoesThroughToTheCaller) {
  const auto operation = NewOperation("op", {NewAnalysis("A")});
  KORFault fault = FaultOf(KORFault::Kind::Raised);
  fault.Error = std::make_exception_ptr(KORError(E_FAIL, "broken"));
  _Session.InjectFault(GetParam().name, fault);
  const auto replace = [&] {
    KORBaseUnknown_var made;
    (void)VEXSTTProvider::CreateNewFactoryRepRef(made, {}, {}, NewProxy());
    (void)VEXSTTProvider::RemoveRepRef(operation);
    (void)VEXSTTProvider::InstanciateNewRepRef(operation, made);
  };
  EXPECT_THROW(replace(), KORError);
}

INSTANTIATE_TEST_SUITE_P(Calls, RaisedErrorTest,
                         testing::Values(RaisedRow{"GetRepresentationReferenceFactory"},
                                         RaisedRow{"RetrieveKnowledgeType"}, RaisedRow{"GetSessionHelpers"},
                                         RaisedRow{"GetCurrentEnvironment"}, RaisedRow{"CreateRepReference"},
                                         RaisedRow{"RetrieveTypeFromProxy"},
                                         RaisedRow{"FillAttributesFromProxyOrBusinessLogicOnObject"},
                                         RaisedRow{"ListRepInstances"}, RaisedRow{"GetRepReference"},
                                         RaisedRow{"RemoveRepInstance"}, RaisedRow{"AddRepInstance"}),
                         support::RowName());

}  // namespace
