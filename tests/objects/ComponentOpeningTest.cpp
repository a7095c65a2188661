// Time analyses opened from components.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "VEXSTTProvider.h"
#include "platform/services/KORPLMServices.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::MakeBareObject;
using calculationtest::MakeShell;
using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultTest;
using objectstest::ListOf;
using objectstest::NameOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::ObjectsRowTest;
using objectstest::StatusName;
using support::RowName;

std::string Open(const KORIPLMComponent_var& component) {
  VEXITimeAnalysisRepReference_var analysis = support::MakeAnalysis("untouched");
  const long status = VEXSTTProvider::GetTARepRefFromPLMComponent(component.Get(), analysis);
  return StatusName(status) + " " + NameOf(analysis);
}

struct OpenRow {
  std::string name;
  std::function<KORListValKORBaseUnknown_var()> opened;
  std::string outcome;
};
class OpenTest : public ObjectsRowTest<OpenRow> {};

TEST_P(OpenTest, GivesTheOneAnalysisOpened) {
  const KORIPLMComponent_var component = NewDrawing("D");
  KOROpenedComponents::Current().SetOpened(component, GetParam().opened());
  EXPECT_EQ(Open(component), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    WhatIsOpened, OpenTest,
    testing::Values(OpenRow{"AnAnalysis", [] { return ListOf({NewAnalysis("A")}); }, "S_OK A"},
                    OpenRow{"Nothing", [] { return ListOf({}); }, "S_OK untouched"},
                    OpenRow{"TwoAnalyses",
                            [] {
                              return ListOf({NewAnalysis("A"), NewAnalysis("B")});
                            },
                            "S_OK untouched"},
                    OpenRow{"OneAnalysisTwice",
                            [] {
                              const auto analysis = NewAnalysis("A");
                              return ListOf({analysis, analysis});
                            },
                            "S_OK untouched"},
                    OpenRow{"AnalysisAndAnother",
                            [] {
                              return ListOf({NewAnalysis("A"), NewDrawing("E")});
                            },
                            "S_OK untouched"},
                    OpenRow{"ComponentOfAnotherKind", [] { return ListOf({NewDrawing("E")}); }, "S_OK null"},
                    OpenRow{"NoComponent", [] { return ListOf({MakeBareObject()}); }, "E_NOINTERFACE null"},
                    OpenRow{"AnalysisThatIsNoComponent", [] { return ListOf({MakeShell(NewAnalysis("A"))}); },
                            "E_NOINTERFACE null"}),
    RowName());

TEST_F(OpenTest, AnAnalysisOpensToItself) {
  EXPECT_EQ(Open(NewAnalysis("A")), "S_OK A");
}

TEST_F(OpenTest, FailsForNull) {
  EXPECT_EQ(Open(NULL_var), "E_FAIL untouched");
}

class OpenFaultTest : public FaultTest {};

TEST_P(OpenFaultTest, LeavesTheHandleAsItWas) {
  const KORIPLMComponent_var component = NewAnalysis("A");
  ExpectOutcome([&] { return Open(component); }, "S_OK A");
}

INSTANTIATE_TEST_SUITE_P(Calls, OpenFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetOpenServices", "fault untouched", "fault untouched", "S_OK untouched"},
                             {"OpenComponents", "fault untouched", "fault untouched", "S_OK untouched"},
                         })),
                         FaultCaseName());

TEST_F(OpenTest, ASuccessOfTheOpeningThatIsNotSOkIsHandedOnWithoutAnObject) {
  for (const char* call : {"GetOpenServices", "OpenComponents"}) {
    KORFault fault = FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once);
    fault.Status = S_FALSE;
    _Session.InjectFault(call, fault);
    EXPECT_EQ(Open(NewAnalysis("A")), "S_FALSE untouched") << call;
  }
}

}  // namespace
