// The loading of a representation in authoring mode.
#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORError.h"
#include "platform/model/KORFeatureContainer.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::MakeBareObject;
using calculationtest::MakeShell;
using objectstest::FaultOf;
using objectstest::InjectedStatus;
using objectstest::NewAnalysis;
using objectstest::NewOperation;
using objectstest::StatusName;
using support::TimeAnalysis_var;

std::string Load(const KORBaseUnknown_var& object) {
  return StatusName(VEXSTMTimeAnalysisDlgServices::LoadRepRef(object.Get()));
}

TimeAnalysis_var NewAnalysisWithContainer(std::string_view identifier) {
  auto analysis = NewAnalysis(identifier);
  analysis->GetContent().Container =
      KORHandle<KORFeatureContainer>::Adopt(new KORFeatureContainer("VEXTimeAnalysisModel", "VEXTimeAnalysisCont"));
  return analysis;
}

std::string ModeOf(const TimeAnalysis_var& analysis) {
  return std::string(analysis->GetContent().LoadingMode.Bytes());
}

class AuthoringLoadTest : public objectstest::ObjectsTest {};

TEST_F(AuthoringLoadTest, BringsTheAnalysisIntoAuthoringMode) {
  const auto pick = NewAnalysisWithContainer("Pick");
  const auto other = NewAnalysisWithContainer("Other");
  EXPECT_EQ(Load(pick), "S_OK");
  EXPECT_EQ(ModeOf(pick), "Authoring_Mode");
  EXPECT_EQ(ModeOf(other), "");
}

TEST_F(AuthoringLoadTest, CanBeDoneAgain) {
  const auto pick = NewAnalysisWithContainer("Pick");
  pick->GetContent().LoadingMode = "Another_Mode";
  EXPECT_EQ(Load(pick), "S_OK");
  EXPECT_EQ(Load(pick), "S_OK");
  EXPECT_EQ(ModeOf(pick), "Authoring_Mode");
}

TEST_F(AuthoringLoadTest, TheContainerIsReleasedAtOnce) {
  const auto pick = NewAnalysisWithContainer("Pick");
  const auto& container = pick->GetContent().Container;
  const unsigned long before = container->AddRef();
  EXPECT_EQ(Load(pick), "S_OK");
  EXPECT_EQ(container->Release(), before - 1);
}

TEST_F(AuthoringLoadTest, WithoutAContainerTheModeIsReachedAndTheContainerMissed) {
  const auto pick = NewAnalysis("Pick");
  EXPECT_EQ(Load(pick), "E_FAIL");
  EXPECT_EQ(ModeOf(pick), "Authoring_Mode");
}

TEST_F(AuthoringLoadTest, NothingIsLoadedForNoObject) {
  EXPECT_EQ(Load(nullptr), "S_OK");
}

TEST_F(AuthoringLoadTest, TheEngineIsAskedForAlsoForNoObject) {
  _Session.InjectFault("CreateSwitchEngine", InjectedStatus);
  EXPECT_EQ(Load(nullptr), "fault");
}

TEST_F(AuthoringLoadTest, ARepresentationOfAnotherKindIsSwitchedAsWell) {
  const auto drawing = KORModel::Current().CreateOtherRepReference("Sketch");
  EXPECT_EQ(Load(drawing), "E_FAIL");  // it holds no container
  EXPECT_EQ(drawing->GetContent().LoadingMode, KORUnicodeString("Authoring_Mode"));
}

TEST_F(AuthoringLoadTest, WhatIsNoRepresentationCannotBeSwitched) {
  EXPECT_EQ(Load(NewOperation("Fasten")), "E_FAIL");
  EXPECT_EQ(Load(MakeBareObject()), "E_FAIL");
  EXPECT_EQ(Load(MakeShell(NewAnalysisWithContainer("Pick"))), "E_FAIL");
}

TEST_F(AuthoringLoadTest, WhatIsNoComponentIsNotAskedForAContainer) {
  _Session.InjectFault("ExecuteSwitch", FaultOf(KORFault::Kind::NullAlone));
  _Session.InjectFault("KORPLMApplicativeContainerServices::Retrieve", InjectedStatus);
  EXPECT_EQ(Load(MakeBareObject()), "S_OK");
  EXPECT_EQ(Load(NewAnalysis("Pick")), "fault");
}

class AuthoringLoadFaultTest : public objectstest::FaultTest {};

TEST_P(AuthoringLoadFaultTest, GivesItsOutcome) {
  const auto pick = NewAnalysisWithContainer("Pick");
  const auto load = [&] {
    pick->GetContent().LoadingMode = "none";
    const std::string status = Load(pick);
    return status + ", " + ModeOf(pick);
  };
  ExpectOutcome(load, "S_OK, Authoring_Mode");
}

// The engine, the preparation, the switch and the container tell by their status. The others don't: without an object
// or a rule it is the preparation that fails.
INSTANTIATE_TEST_SUITE_P(Calls, AuthoringLoadFaultTest,
                         testing::ValuesIn(objectstest::AllFaults({
                             {"CreateSwitchEngine", "fault, none", "fault, none", "S_OK, none"},
                             {"AddSwitchComponent", "E_FAIL, none", "S_OK, Authoring_Mode", "E_FAIL, none"},
                             {"AddALoadingModeRule", "E_FAIL, none", "S_OK, Authoring_Mode", "E_FAIL, none"},
                             {"SetLoadingRules", "E_FAIL, none", "S_OK, Authoring_Mode", "E_FAIL, none"},
                             {"PrepareSwitch", "fault, none", "fault, none", "E_FAIL, none"},
                             {"ExecuteSwitch", "fault, none", "fault, Authoring_Mode", "S_OK, none"},
                             {"KORPLMApplicativeContainerServices::Retrieve", "fault, Authoring_Mode",
                              "fault, Authoring_Mode", "S_OK, Authoring_Mode"},
                         })),
                         objectstest::FaultCaseName());

TEST_F(AuthoringLoadTest, ErrorsOfThePlatformPassThrough) {
  const auto pick = NewAnalysisWithContainer("Pick");
  for (const char* call : {"CreateSwitchEngine", "AddSwitchComponent", "AddALoadingModeRule", "SetLoadingRules",
                           "PrepareSwitch", "ExecuteSwitch", "KORPLMApplicativeContainerServices::Retrieve"}) {
    const KORFault fault{S_OK, KORFault::Kind::Raised, KORFault::Life::Once,
                         std::make_exception_ptr(KORError(E_FAIL, "raised"))};
    _Session.InjectFault(call, fault);
    EXPECT_THROW((void)Load(pick), KORError) << call;
    EXPECT_EQ(Load(pick), "S_OK") << call;
  }
}

struct StopRow {
  const char* name;
  const char* failing;
  const char* next;
};
class AuthoringLoadStopTest : public objectstest::ObjectsRowTest<StopRow> {};

// A fault for one call that is still there afterwards tells that the call was not made.
TEST_P(AuthoringLoadStopTest, NoFurtherStepIsTaken) {
  const auto pick = NewAnalysisWithContainer("Pick");
  _Session.InjectFault(GetParam().failing, FaultOf(KORFault::Kind::StatusAlone, KORFault::Life::Once));
  _Session.InjectFault(GetParam().next, FaultOf(KORFault::Kind::StatusAlone, KORFault::Life::Once));
  EXPECT_EQ(Load(pick), "fault");
  EXPECT_FALSE(_Session.TakeFault(GetParam().failing).has_value());
  EXPECT_TRUE(_Session.TakeFault(GetParam().next).has_value());
}

INSTANTIATE_TEST_SUITE_P(Steps, AuthoringLoadStopTest,
                         testing::Values(StopRow{"BehindTheEngine", "CreateSwitchEngine", "AddSwitchComponent"},
                                         StopRow{"BehindThePreparation", "PrepareSwitch", "ExecuteSwitch"},
                                         StopRow{"BehindTheSwitch", "ExecuteSwitch",
                                                 "KORPLMApplicativeContainerServices::Retrieve"}),
                         support::RowName());

}  // namespace
