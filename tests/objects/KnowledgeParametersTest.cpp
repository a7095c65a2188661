// The attributes that a command shows of a representation that is being edited.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "VEXSTTProvider.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/services/KORIType.h"
#include "platform/services/KORPLMMetaDataFrameModel.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultKinds;
using objectstest::FaultOf;
using objectstest::FaultTest;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::StatusName;
using support::RowName;

using Names = std::vector<const char*>;

KORICkeParm_var Parameter(const char* name) {
  return KORCkeGlobalFunctions::GetVolatileFactory()->CreateTextParm(name, "value");
}

std::string NamesIn(const KORListValKORICkeParm_var& parameters) {
  std::string names;
  for (const KORICkeParm_var& parameter : parameters) {
    names.append(names.empty() ? "" : " ").append(parameter->RoleName().Bytes());
  }
  return names;
}

// The status and the names in the two lists, as "S_OK V_Name | V_nature".
std::string Sort(const KORBaseUnknown* model) {
  KORListValKORICkeParm_var writable, not_writable;
  const long status = VEXSTTProvider::GetCkeParameters(model, writable, not_writable);
  return StatusName(status) + " " + NamesIn(writable) + " | " + NamesIn(not_writable);
}

// What is edited: its attributes, and which of them were changed.
KORHandle<KORPLMMetaDataFrameModel> NewModel(const Names& attributes, const Names& modified = {}) {
  auto model = KORHandle<KORPLMMetaDataFrameModel>::Adopt(new KORPLMMetaDataFrameModel);
  for (const char* const name : attributes) model->AddAttribute(Parameter(name));
  for (const char* const name : modified) model->MarkModified(name);
  return model;
}

struct SortRow {
  std::string name;
  Names attributes;
  Names modified;
  std::string outcome;
};
class GetCkeParametersTest : public ObjectsRowTest<SortRow> {
 protected:
  // A type whose attributes are called by what they are.
  GetCkeParametersTest() {
    KORListValKORAttributeInfos infos;
    for (const char* const name : {"W1", "W2", "V_nature", "V_Direction", "twice"})
      infos.Append(KORAttributeInfos(name, true));
    for (const char* const name : {"R1", "R2", "twice"}) infos.Append(KORAttributeInfos(name, false));
    KORKnowledgeTypes::Current().Define("VEXTimeAnalysisRepReference", infos);
  }
};

TEST_P(GetCkeParametersTest, SortsByWhatTheTypeTells) {
  EXPECT_EQ(Sort(NewModel(GetParam().attributes, GetParam().modified).Get()), GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Attributes, GetCkeParametersTest,
    testing::Values(SortRow{"None", {}, {}, "S_OK  | "},
                    SortRow{"UnchangedOnesAreNotShown", {"W1", "R1"}, {}, "S_OK  | "},
                    SortRow{"ChangedOnesInTheOrderOfTheirChange",
                            {"W1", "W2", "R1", "R2"},
                            {"R2", "W2", "R1", "W1"},
                            "S_OK W2 W1 | R2 R1"},
                    SortRow{"UnknownToTheType", {"W1", "unknown"}, {"unknown", "W1"}, "S_OK W1 | "},
                    SortRow{"LettersOfAnotherCase", {"w1"}, {"w1"}, "S_OK  | "},
                    SortRow{"FirstDescriptionDecides", {"twice"}, {"twice"}, "S_OK twice | "},
                    SortRow{"UnchangedNatureIsShown", {"V_nature", "W1"}, {}, "S_OK  | V_nature"},
                    SortRow{"WithoutNatureNoneIsShown", {"V_Category"}, {}, "S_OK  | V_Category"},
                    SortRow{"TheFourInTheirOrder",
                            {"V_nature", "V_discipline", "V_Category", "V_Direction"},
                            {},
                            "S_OK  | V_Direction V_Category V_discipline V_nature"},
                    SortRow{"TheFourBehindTheChangedOnes",
                            {"V_nature", "V_Direction", "W1", "R1"},
                            {"R1", "W1"},
                            "S_OK W1 | R1 V_Direction V_nature"},
                    SortRow{"AChangedOneOfTheFourKeepsItsPlace",
                            {"V_Direction", "V_nature", "R1"},
                            {"V_nature", "R1"},
                            "S_OK  | V_nature R1 V_Direction"},
                    SortRow{"ChangedWithoutBeingAnAttribute", {"W1"}, {"V_nature", "W2", "W1"}, "S_OK W1 | "}),
    RowName());

TEST_F(GetCkeParametersTest, AppendsToTheLists) {
  KORListValKORICkeParm_var writable, not_writable;
  writable.Append(Parameter("first"));
  not_writable.Append(Parameter("second"));
  const auto model = NewModel({"W1", "V_nature"}, {"W1"});
  EXPECT_EQ(VEXSTTProvider::GetCkeParameters(model.Get(), writable, not_writable), S_OK);
  EXPECT_EQ(NamesIn(writable), "first W1");
  EXPECT_EQ(NamesIn(not_writable), "second V_nature");
}

TEST_F(GetCkeParametersTest, GivesTheParametersOfTheModelItself) {
  const auto model = NewModel({"W1"}, {"W1"});
  KORListValKORICkeParm_var writable, not_writable;
  ASSERT_EQ(VEXSTTProvider::GetCkeParameters(model.Get(), writable, not_writable), S_OK);
  ASSERT_EQ(writable.Size(), 1);
  KORICkeParm_var of_model;
  ASSERT_EQ(model->GetAttributeParm("W1", of_model), S_OK);
  EXPECT_EQ(writable[1], of_model);
}

TEST_F(GetCkeParametersTest, FailsForNullAlone) {
  EXPECT_EQ(Sort(nullptr), "E_FAIL  | ");
  EXPECT_EQ(Sort(calculationtest::MakeBareObject().Get()), "S_OK  | ") << "has no attributes";
}

TEST_F(GetCkeParametersTest, WithoutATypeOnlyTheFourAreShown) {
  KORKnowledgeTypes::Current().Forget("VEXTimeAnalysisRepReference");
  EXPECT_EQ(Sort(NewModel({"W1", "V_nature"}, {"W1"}).Get()), "S_OK  | V_nature");
}

TEST_F(ObjectsTest, TheTypeOfASessionTellsTextsFromTotals) {
  const auto model = NewModel({"V_Name", "V_TotalTime", "V_nature"}, {"V_Name", "V_TotalTime"});
  EXPECT_EQ(Sort(model.Get()), "S_OK V_Name | V_TotalTime V_nature");
}

TEST_F(GetCkeParametersTest, AnAttributeWithoutItsParameterIsPassedOver) {
  const auto model = NewModel({"W1", "W2", "V_nature"}, {"W1", "W2"});
  for (const KORFault::Kind kind : FaultKinds) {
    _Session.InjectFault("GetAttributeParm", FaultOf(kind, KORFault::Life::Once));
    EXPECT_EQ(Sort(model.Get()), "S_OK W2 | V_nature");
    _Session.InjectFault("GetAttributeParm", FaultOf(kind));
    EXPECT_EQ(Sort(model.Get()), "S_OK  | ");
    _Session.ClearFaults();
  }
}

class GetCkeParametersFaultTest : public FaultTest {};

TEST_P(GetCkeParametersFaultTest, IsNoFailure) {
  const auto model = NewModel({"V_Name", "V_nature", "V_Category"}, {"V_Name", "V_Category"});
  ExpectOutcome([&] { return Sort(model.Get()); }, "S_OK V_Name | V_Category V_nature");
}

constexpr const char* AsWithoutFault = "S_OK V_Name | V_Category V_nature";

INSTANTIATE_TEST_SUITE_P(
    Calls, GetCkeParametersFaultTest,
    testing::ValuesIn(AllFaults({
        {"RetrieveKnowledgeType", "S_OK  | V_Category V_nature", AsWithoutFault, "S_OK  | V_Category V_nature"},
        {"GetLocalEnvironment", AsWithoutFault, AsWithoutFault, AsWithoutFault},
        {"ListAttributesFromType", "S_OK  | V_Category V_nature", AsWithoutFault, "S_OK  | V_Category V_nature"},
        {"GetListOfModifiedAttributes", "S_OK  | V_Category V_nature", AsWithoutFault, "S_OK  | V_Category V_nature"},
        {"GetListOfAttributes", "S_OK V_Name | V_Category", AsWithoutFault, "S_OK V_Name | V_Category"},
    })),
    FaultCaseName());

}  // namespace
