// The factory makes time analyses in the model of the current session, with the attributes that it is given.
#include "platform/services/PLMIRepresentationReferenceFactory.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/base/KORStatus.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using Factory_var = PLMIRepresentationReferenceFactory_var;

Factory_var GetFactory(const KORUnicodeString& type = "TimeAnalysis", long expected = S_OK) {
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(GetRepresentationReferenceFactory(type, &out, PLMIRepresentationReferenceFactory::ClassId()), expected);
  return Factory_var::Adopt(static_cast<PLMIRepresentationReferenceFactory*>(out));
}

KORIAdpEnvironment_var CurrentEnvironment() {
  PLMPSISessionHelpers* helpers = nullptr;
  EXPECT_EQ(PLMPSISessionHelpers::GetSessionHelpers(helpers), S_OK);
  KORIAdpEnvironment* environment = nullptr;
  EXPECT_EQ(PLMPSISessionHelpers_var::Adopt(helpers)->GetCurrentEnvironment(environment), S_OK);
  return KORIAdpEnvironment_var::Adopt(environment);
}

KORIType_var AnalysisType() {
  return KORKnowledgeTypes::Current().Find("VEXTimeAnalysisRepReference");
}

KORBaseUnknown_var Create(const Factory_var& factory, const KORListValKORICkeParm_var& attributes = {}) {
  KORBaseUnknown* object = nullptr;
  EXPECT_EQ(factory->CreateRepReference(CurrentEnvironment().Get(), AnalysisType(), attributes, "KORData", object, 0),
            S_OK);
  return KORBaseUnknown_var::Adopt(object);
}

class RepresentationFactoryTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
};

TEST_F(RepresentationFactoryTest, IsGivenForTimeAnalysesOnly) {
  EXPECT_FALSE(GetFactory().IsNull());
  for (const char* type : {"", "timeanalysis", "TimeAnalysis ", "VEXTimeAnalysisRepReference"}) {
    EXPECT_TRUE(GetFactory(type, E_FAIL).IsNull()) << type;
  }
}

TEST_F(RepresentationFactoryTest, IsGivenByItsOwnInterfaceOnly) {
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(GetRepresentationReferenceFactory("TimeAnalysis", &out, KORIType::ClassId()), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(GetRepresentationReferenceFactory("TimeAnalysis", nullptr, PLMIRepresentationReferenceFactory::ClassId()),
            E_INVALIDARG);
}

TEST_F(RepresentationFactoryTest, MakesATimeAnalysisThatTheModelKeeps) {
  const KORBaseUnknown_var object = Create(GetFactory());
  const VEXITimeAnalysisRepReference_var analysis = object;
  ASSERT_FALSE(analysis.IsNull());
  ASSERT_EQ(KORModel::Current().GetTimeAnalyses().size(), 1u);
  EXPECT_TRUE(KORModel::Current().GetTimeAnalyses()[0] == object);
  KORUnicodeString identifier("before");
  EXPECT_EQ(analysis->GetValue("PLM_ExternalID", identifier), S_OK);
  EXPECT_EQ(identifier, "");
}

TEST_F(RepresentationFactoryTest, SetsEachAttributeByTheKindOfItsValue) {
  const KORICkeParmFactory_var parameters = KORCkeGlobalFunctions::GetVolatileFactory();
  KORListValKORICkeParm_var attributes;
  attributes.Append(parameters->CreateTextParm("PLM_ExternalID", "TA-1"));
  attributes.Append(NULL_var);
  attributes.Append(parameters->CreateInteger("count", std::numeric_limits<int>::min()));
  attributes.Append(parameters->CreateReal("V_TotalTime", 0.1));
  attributes.Append(parameters->CreateTextParm("V_Name", ""));
  const VEXITimeAnalysisRepReference_var analysis = Create(GetFactory(), attributes);

  KORUnicodeString text("before");
  EXPECT_EQ(analysis->GetValue("PLM_ExternalID", text), S_OK);
  EXPECT_EQ(text, "TA-1");
  EXPECT_EQ(analysis->GetValue("V_Name", text), S_OK);
  EXPECT_EQ(text, "");
  int count = 0;
  EXPECT_EQ(analysis->GetValue("count", count), S_OK);
  EXPECT_EQ(count, std::numeric_limits<int>::min());
  double time = 0.0;
  EXPECT_EQ(analysis->GetValue("V_TotalTime", time), S_OK);
  EXPECT_EQ(time, 0.1);
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  EXPECT_EQ(analysis->GetAllValues(names, values), S_OK);
  EXPECT_EQ(names.Size(), 4);
}

TEST_F(RepresentationFactoryTest, OfOneNameTheLastAttributeCounts) {
  const KORICkeParmFactory_var parameters = KORCkeGlobalFunctions::GetVolatileFactory();
  KORListValKORICkeParm_var attributes;
  attributes.Append(parameters->CreateTextParm("V_Name", "first"));
  attributes.Append(parameters->CreateReal("V_Name", 2.5));
  const VEXITimeAnalysisRepReference_var analysis = Create(GetFactory(), attributes);
  KORUnicodeString text("before");
  EXPECT_EQ(analysis->GetValue("V_Name", text), E_FAIL);
  double real = 0.0;
  EXPECT_EQ(analysis->GetValue("V_Name", real), S_OK);
  EXPECT_EQ(real, 2.5);
}

TEST_F(RepresentationFactoryTest, ParametersStayTheCallers) {
  const KORICkeParm_var name = KORCkeGlobalFunctions::GetVolatileFactory()->CreateTextParm("V_Name", "grip");
  KORListValKORICkeParm_var attributes;
  attributes.Append(name);
  const VEXITimeAnalysisRepReference_var analysis = Create(GetFactory(), attributes);
  EXPECT_EQ(name->ValuateString("place"), S_OK);
  KORUnicodeString text;
  EXPECT_EQ(analysis->GetValue("V_Name", text), S_OK);
  EXPECT_EQ(text, "grip");
}

TEST_F(RepresentationFactoryTest, RefusesWhatItCannotMake) {
  const Factory_var factory = GetFactory();
  const KORIAdpEnvironment_var environment = CurrentEnvironment();
  KORKnowledgeTypes::Current().Define("Shape", {});
  const KORIType_var shape = KORKnowledgeTypes::Current().Find("Shape");
  struct Row {
    KORIAdpEnvironment* Environment;
    KORIType_var Type;
    long Status;
  };
  for (const Row& row : {Row{nullptr, AnalysisType(), E_INVALIDARG}, Row{environment.Get(), NULL_var, E_INVALIDARG},
                         Row{nullptr, NULL_var, E_INVALIDARG}, Row{nullptr, shape, E_INVALIDARG},
                         Row{environment.Get(), shape, E_FAIL}}) {
    auto* object = environment->GetImpl(0);
    EXPECT_EQ(factory->CreateRepReference(row.Environment, row.Type, {}, "KORData", object, 0), row.Status);
    EXPECT_EQ(object, nullptr);
  }
  EXPECT_TRUE(KORModel::Current().GetTimeAnalyses().empty());
}

TEST_F(RepresentationFactoryTest, LeavesNothingInTheModelWhereItFails) {
  const Factory_var factory = GetFactory();
  KORSession::Current().InjectFault("CreateRepReference", KORFault{E_FAIL, KORFault::Kind::NullAlone});
  EXPECT_TRUE(Create(factory).IsNull());
  EXPECT_TRUE(KORModel::Current().GetTimeAnalyses().empty());
}

TEST_F(RepresentationFactoryTest, ServesTheSessionThatIsThenTheCurrentOne) {
  const Factory_var factory = GetFactory();
  {
    const KORFreshSession other;
    Create(factory);
    EXPECT_EQ(KORModel::Current().GetTimeAnalyses().size(), 1u);
  }
  EXPECT_TRUE(KORModel::Current().GetTimeAnalyses().empty());
  Create(factory);
  EXPECT_EQ(KORModel::Current().GetTimeAnalyses().size(), 1u);
}

TEST(RepresentationFactoryLifeTest, FactoryOutlivesTheSessionThatItCameFrom) {
  Factory_var factory;
  {
    const KORFreshSession session;
    factory = GetFactory();
  }
  const KORFreshSession session;
  EXPECT_FALSE(Create(factory).IsNull());
}

TEST(RepresentationFactoryLifeTest, NewObjectIsHeldByTheCallerAndTheModel) {
  const long before = KORBaseUnknown::CountLiveObjects();
  KORBaseUnknown_var object;
  {
    const KORFreshSession session;
    object = Create(GetFactory());
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  object = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
