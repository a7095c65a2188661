// What the knowledge engine knows of types and reservations.
#include "platform/services/KORCkePLMNavPublicServices.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/model/KORPLMObject.h"
#include "platform/services/KORCkeObjectAttrReadServices.h"
#include "platform/system/KORSession.h"

namespace {

using Services = KORCkePLMNavPublicServices;

constexpr const char* AnalysisType = "VEXTimeAnalysisRepReference";

KORIType_var AnyType() {
  return KORKnowledgeTypes::Current().Find(AnalysisType);
}

class KnowledgeNavigationTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
};

TEST_F(KnowledgeNavigationTest, TypeIsFoundByItsName) {
  KORIType_var type;
  EXPECT_EQ(Services::RetrieveKnowledgeType(AnalysisType, type), S_OK);
  EXPECT_TRUE(type == AnyType());
}

TEST_F(KnowledgeNavigationTest, UnknownTypeGivesANullHandle) {
  for (const char* name : {"", "Shape", "vextimeanalysisrepreference"}) {
    KORIType_var type = AnyType();
    EXPECT_EQ(Services::RetrieveKnowledgeType(name, type), E_FAIL) << name;
    EXPECT_TRUE(type.IsNull()) << name;
  }
  KORKnowledgeTypes::Current().Forget(AnalysisType);
  KORIType_var type;
  EXPECT_EQ(Services::RetrieveKnowledgeType(AnalysisType, type), E_FAIL);
}

TEST_F(KnowledgeNavigationTest, ListsTheAttributesOfATypeAnew) {
  KORListValKORAttributeInfos expected;
  expected.Append(KORAttributeInfos("Length", true));
  expected.Append(KORAttributeInfos("Area", false));
  KORKnowledgeTypes::Current().Define("Shape", expected);
  KORListValKORAttributeInfos infos;
  infos.Append(KORAttributeInfos("before", true));
  EXPECT_EQ(Services::ListAttributesFromType(0, KORKnowledgeTypes::Current().Find("Shape"), nullptr, infos, 0), S_OK);
  EXPECT_EQ(infos, expected);
}

TEST_F(KnowledgeNavigationTest, NullTypeGivesAnEmptyList) {
  KORListValKORAttributeInfos infos;
  infos.Append(KORAttributeInfos("before", true));
  EXPECT_EQ(Services::ListAttributesFromType(0, NULL_var, nullptr, infos, 0), E_INVALIDARG);
  EXPECT_EQ(infos.Size(), 0);
}

TEST_F(KnowledgeNavigationTest, NamesOfTheReservationLeadToItsValues) {
  const auto analysis = KORModel::Current().CreateTimeAnalysis("TA");
  analysis->Reserve("anna");
  const KORICkeObject_var object = analysis;
  KORUnicodeString text;
  EXPECT_EQ(KORCkeObjectAttrReadServices::GetValueAsString(object, Services::GetReservedAttributeNameFromObject(object),
                                                           text),
            S_OK);
  EXPECT_EQ(text, "TRUE");
  EXPECT_EQ(KORCkeObjectAttrReadServices::GetValueAsString(
                object, Services::GetReservedByAttributeNameFromObject(object), text),
            S_OK);
  EXPECT_EQ(text, "anna");
}

TEST_F(KnowledgeNavigationTest, NothingHasNoReservation) {
  EXPECT_TRUE(Services::GetReservedAttributeNameFromObject(NULL_var).IsEmpty());
  EXPECT_TRUE(Services::GetReservedByAttributeNameFromObject(NULL_var).IsEmpty());
}

}  // namespace
