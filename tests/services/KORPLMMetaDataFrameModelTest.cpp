// The attributes of a representation while they are edited.
#include "platform/services/KORPLMMetaDataFrameModel.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "tests/services/FaultKinds.h"

namespace {

KORICkeParm_var TextParameter(const char* name, const char* value) {
  return KORCkeGlobalFunctions::GetVolatileFactory()->CreateTextParm(name, value);
}

using NameLister = long (KORPLMMetaDataFrameModel::*)(KORListValKORUnicodeString&) const;

// The names that one of the two operations lists, with a blank behind each.
std::string Listed(const KORPLMMetaDataFrameModel& model, NameLister lister) {
  KORListValKORUnicodeString names;
  names.Append("before");
  EXPECT_EQ((model.*lister)(names), S_OK);
  std::string listed;
  for (const KORUnicodeString& name : names) listed.append(name.Bytes()).append(" ");
  return listed;
}

std::string AttributesOf(const KORPLMMetaDataFrameModel& model) {
  return Listed(model, &KORPLMMetaDataFrameModel::GetListOfAttributes);
}

std::string ModifiedOf(const KORPLMMetaDataFrameModel& model) {
  return Listed(model, &KORPLMMetaDataFrameModel::GetListOfModifiedAttributes);
}

KORICkeParm_var Get(const KORPLMMetaDataFrameModel& model, const char* name, long expected = S_OK) {
  KORICkeParm_var parameter = TextParameter("before", "");
  EXPECT_EQ(model.GetAttributeParm(name, parameter), expected);
  return parameter;
}

class MetaDataFrameModelTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
  KORPLMMetaDataFrameModel _Model;
};

TEST_F(MetaDataFrameModelTest, NewOneHasNoAttributes) {
  EXPECT_EQ(AttributesOf(_Model), "");
  EXPECT_EQ(ModifiedOf(_Model), "");
}

TEST_F(MetaDataFrameModelTest, ListsAttributesInTheOrderOfTheirAdding) {
  for (const char* name : {"V_nature", "V_Name", "Colour"}) _Model.AddAttribute(TextParameter(name, ""));
  EXPECT_EQ(AttributesOf(_Model), "V_nature V_Name Colour ");
  EXPECT_EQ(ModifiedOf(_Model), "");
}

TEST_F(MetaDataFrameModelTest, ListsModifiedAttributesInTheOrderOfTheirFirstChange) {
  for (const char* name : {"A", "B", "C"}) _Model.AddAttribute(TextParameter(name, ""));
  for (const char* name : {"C", "A", "C", "Unknown"}) _Model.MarkModified(name);
  EXPECT_EQ(ModifiedOf(_Model), "C A Unknown ");
  EXPECT_EQ(AttributesOf(_Model), "A B C ");
}

TEST_F(MetaDataFrameModelTest, GivesTheParameterItself) {
  const KORICkeParm_var parameter = TextParameter("V_Name", "grip");
  _Model.AddAttribute(parameter);
  EXPECT_TRUE(Get(_Model, "V_Name") == parameter);
  EXPECT_EQ(Get(_Model, "V_Name")->ValuateString("place"), S_OK);
  EXPECT_EQ(Get(_Model, "V_Name")->Value()->AsString(), "place");
}

TEST_F(MetaDataFrameModelTest, UnknownNamesGiveANullHandle) {
  _Model.AddAttribute(TextParameter("V_Name", "grip"));
  _Model.MarkModified("Unknown");
  for (const char* name : {"", "v_name", "Unknown"}) EXPECT_TRUE(Get(_Model, name, E_FAIL).IsNull()) << name;
}

TEST_F(MetaDataFrameModelTest, AnAttributeOfTheSameNameTakesThePlaceUnchanged) {
  for (const char* name : {"A", "B", "C"}) {
    _Model.AddAttribute(TextParameter(name, "old"));
    _Model.MarkModified(name);
  }
  const KORICkeParm_var parameter = TextParameter("B", "new");
  _Model.AddAttribute(parameter);
  EXPECT_EQ(AttributesOf(_Model), "A B C ");
  EXPECT_EQ(ModifiedOf(_Model), "A C ");
  EXPECT_TRUE(Get(_Model, "B") == parameter);
}

TEST_F(MetaDataFrameModelTest, NullAttributeRaisesTheNullHandleError) {
  EXPECT_THROW(_Model.AddAttribute(NULL_var), KORError);
  EXPECT_EQ(AttributesOf(_Model), "");
}

TEST_F(MetaDataFrameModelTest, EnvironmentIsThatOfTheSession) {
  PLMPSISessionHelpers* helpers = nullptr;
  ASSERT_EQ(PLMPSISessionHelpers::GetSessionHelpers(helpers), S_OK);
  KORIAdpEnvironment* of_session = nullptr;
  ASSERT_EQ(PLMPSISessionHelpers_var::Adopt(helpers)->GetCurrentEnvironment(of_session), S_OK);
  const auto expected = KORIAdpEnvironment_var::Adopt(of_session);
  KORIAdpEnvironment* environment = nullptr;
  ASSERT_EQ(_Model.GetLocalEnvironment(environment), S_OK);
  EXPECT_TRUE(KORIAdpEnvironment_var::Adopt(environment) == expected);
}

// Where the session doesn't give its environment, the model has none to give.

struct SessionFault {
  const char* Operation;
  KORFault Fault;
  long Status;
};

TEST_F(MetaDataFrameModelTest, FaultsOfTheSessionLeaveNoEnvironment) {
  using Kind = KORFault::Kind;
  for (const SessionFault& row :
       {SessionFault{"GetSessionHelpers", {E_INVALIDARG, Kind::StatusAndNull}, E_INVALIDARG},
        SessionFault{"GetSessionHelpers", {E_INVALIDARG, Kind::StatusAlone}, E_INVALIDARG},
        SessionFault{"GetSessionHelpers", {E_INVALIDARG, Kind::NullAlone}, E_FAIL},
        SessionFault{"GetCurrentEnvironment", {E_INVALIDARG, Kind::StatusAndNull}, E_INVALIDARG},
        SessionFault{"GetCurrentEnvironment", {E_INVALIDARG, Kind::StatusAlone}, E_INVALIDARG},
        SessionFault{"GetCurrentEnvironment", {E_INVALIDARG, Kind::NullAlone}, S_OK}}) {
    KORSession::Current().ClearFaults();
    KORSession::Current().InjectFault(row.Operation, row.Fault);
    bool given = true;
    EXPECT_EQ(servicestest::HandOut<KORIAdpEnvironment>(
                  given, [this](KORIAdpEnvironment*& environment) { return _Model.GetLocalEnvironment(environment); }),
              row.Status)
        << row.Operation;
    EXPECT_FALSE(given) << row.Operation;
  }
}

TEST(MetaDataFrameModelLifeTest, KeepsItsParametersAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto model = KORHandle<KORPLMMetaDataFrameModel>::Adopt(new KORPLMMetaDataFrameModel);
  model->AddAttribute(TextParameter("A", ""));
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  KORICkeParm_var parameter = Get(*model, "A");
  model = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  parameter = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
