// Knowledge types: what a session knows of the kinds of its objects.
#include "platform/services/KORIType.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/model/KORKnownKeys.h"
#include "platform/system/KORSession.h"

namespace {

constexpr const char* AnalysisType = "VEXTimeAnalysisRepReference";

// The names of the attributes that are writable, or of those that are not, with a blank behind each.
std::string NamesIn(const KORIType_var& type, unsigned char writable) {
  std::string names;
  for (const KORAttributeInfos& attribute : type->Attributes()) {
    if (attribute.IsWritable() == writable) names.append(attribute.Name().Bytes()).append(" ");
  }
  return names;
}

TEST(KORAttributeInfosTest, TellsNameAndWritability) {
  const KORAttributeInfos writable("V_Name", true);
  EXPECT_EQ(writable.Name(), "V_Name");
  EXPECT_EQ(writable.IsWritable(), 1);
  EXPECT_EQ(KORAttributeInfos("V_Name", false).IsWritable(), 0);
  EXPECT_EQ(writable, KORAttributeInfos("V_Name", true));
  EXPECT_NE(writable, KORAttributeInfos("V_Name", false));
  EXPECT_NE(writable, KORAttributeInfos("V_name", true));
}

class KORKnowledgeTypesTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
  KORKnowledgeTypes& _Types = KORKnowledgeTypes::Current();
};

TEST_F(KORKnowledgeTypesTest, SessionStartsWithTheTypeOfATimeAnalysis) {
  const KORIType_var type = _Types.Find(AnalysisType);
  ASSERT_FALSE(type.IsNull());
  EXPECT_EQ(type->Name(), AnalysisType);
  EXPECT_EQ(NamesIn(type, 1),
            "V_Name V_description V_Subsystem Subsystem V_Direction V_Category V_discipline V_nature ");
  EXPECT_EQ(NamesIn(type, 0),
            "PLM_ExternalID TTBCalculated TTUCalculated TWCalculated TRGCalculated TotalCalculated V_HumanTime "
            "V_MachineTime V_WaitingTime V_SetupTime V_TotalTime ");
}

TEST_F(KORKnowledgeTypesTest, AnAnalysisHasEveryAttributeThatTheSystemNames) {
  const KORIType_var type = _Types.Find(AnalysisType);
  const auto* const first = std::find(KORKnownKeys.begin(), KORKnownKeys.end(), "PLM_ExternalID");
  ASSERT_LE(std::distance(first, KORKnownKeys.end()), type->Attributes().Size());
  int position = 0;
  std::for_each(first, KORKnownKeys.end(),
                [&](std::string_view key) { EXPECT_EQ(type->Attributes()[++position].Name().Bytes(), key); });
}

TEST_F(KORKnowledgeTypesTest, OnlyNamesThatAreDefinedAreFound) {
  EXPECT_TRUE(_Types.Find("").IsNull());
  EXPECT_TRUE(_Types.Find("vextimeanalysisrepreference").IsNull());
  EXPECT_TRUE(_Types.Find("TimeAnalysis").IsNull());
}

TEST_F(KORKnowledgeTypesTest, DefinedTypeIsFoundUntilItIsForgotten) {
  KORListValKORAttributeInfos attributes;
  attributes.Append(KORAttributeInfos("Length", true));
  _Types.Define("Shape", attributes);
  ASSERT_FALSE(_Types.Find("Shape").IsNull());
  EXPECT_EQ(_Types.Find("Shape")->Attributes(), attributes);
  EXPECT_FALSE(_Types.Find(AnalysisType).IsNull());
  _Types.Forget("Shape");
  EXPECT_TRUE(_Types.Find("Shape").IsNull());
  _Types.Forget("Shape");  // one that is not there is not missed
  _Types.Forget(AnalysisType);
  EXPECT_TRUE(_Types.Find(AnalysisType).IsNull());
}

TEST_F(KORKnowledgeTypesTest, WhoHoldsATypeKeepsItsAttributes) {
  const KORIType_var held = _Types.Find(AnalysisType);
  _Types.Define(AnalysisType, {});
  EXPECT_EQ(_Types.Find(AnalysisType)->Attributes().Size(), 0);
  EXPECT_GT(held->Attributes().Size(), 0);
  _Types.Forget(AnalysisType);
  EXPECT_EQ(held->Name(), AnalysisType);
}

TEST_F(KORKnowledgeTypesTest, SessionsDoNotShareTypes) {
  _Types.Define("Shape", {});
  {
    const KORFreshSession other;
    EXPECT_TRUE(KORKnowledgeTypes::Current().Find("Shape").IsNull());
    KORKnowledgeTypes::Current().Forget(AnalysisType);
  }
  EXPECT_EQ(&KORKnowledgeTypes::Current(), &_Types);
  EXPECT_FALSE(_Types.Find(AnalysisType).IsNull());
}

}  // namespace
