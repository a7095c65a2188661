// The container that a component holds is given by its type.
#include "platform/services/KORPLMApplicativeContainerServices.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using Container_var = KORHandle<KORFeatureContainer>;

class ContainerServicesTest : public testing::Test {
 protected:
  // An analysis of the current session with a container.
  static KORHandle<VEXTimeAnalysisRepReference> AnalysisWithContainer() {
    const auto analysis = KORModel::Current().CreateTimeAnalysis("TA");
    analysis->GetContent().Container = Container_var::Adopt(new KORFeatureContainer("Model", "Name"));
    return analysis;
  }

  static KORIContainer_var Retrieve(const KORIPLMComponent_var& component, const char* type, long expected = S_OK) {
    int anything = 0;
    void* out = &anything;
    EXPECT_EQ(KORPLMApplicativeContainerServices::Retrieve(&out, component.Get(), KORIContainer::ClassId(), type),
              expected);
    return KORIContainer_var::Adopt(static_cast<KORIContainer*>(out));
  }

  const KORFreshSession _Session;
};

TEST_F(ContainerServicesTest, GivesTheContainerOfTheRepresentation) {
  const auto analysis = AnalysisWithContainer();
  const KORIContainer_var container = Retrieve(analysis, "KORFeatCont");
  ASSERT_FALSE(container.IsNull());
  EXPECT_TRUE(container == analysis->GetContent().Container);
}

TEST_F(ContainerServicesTest, RepresentationsOfAnyKindMayHoldOne) {
  const auto shape = KORModel::Current().CreateOtherRepReference("Shape");
  Retrieve(shape, "KORFeatCont", E_FAIL);
  shape->GetContent().Container = Container_var::Adopt(new KORFeatureContainer("Model", "Name"));
  EXPECT_TRUE(Retrieve(shape, "KORFeatCont") == shape->GetContent().Container);
}

TEST_F(ContainerServicesTest, FailsWhereThereIsNoneOfThatType) {
  EXPECT_TRUE(Retrieve(KORModel::Current().CreateTimeAnalysis("TA"), "KORFeatCont", E_FAIL).IsNull());
  EXPECT_TRUE(Retrieve(KORModel::Current().CreateOperation("OP"), "KORFeatCont", E_FAIL).IsNull());
  for (const char* type : {"", "KORData", "korfeatcont", "KORFeatCont "}) {
    EXPECT_TRUE(Retrieve(AnalysisWithContainer(), type, E_FAIL).IsNull()) << type;
  }
}

TEST_F(ContainerServicesTest, RefusesNullArguments) {
  const KORIPLMComponent_var component = AnalysisWithContainer();
  EXPECT_TRUE(Retrieve(NULL_var, "KORFeatCont", E_INVALIDARG).IsNull());
  EXPECT_TRUE(Retrieve(component, nullptr, E_INVALIDARG).IsNull());
  EXPECT_EQ(
      KORPLMApplicativeContainerServices::Retrieve(nullptr, component.Get(), KORIContainer::ClassId(), "KORFeatCont"),
      E_INVALIDARG);
}

TEST_F(ContainerServicesTest, GivesNoInterfaceThatTheContainerDoesNotOffer) {
  const KORIPLMComponent_var component = AnalysisWithContainer();
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(
      KORPLMApplicativeContainerServices::Retrieve(&out, component.Get(), KORISpecObject::ClassId(), "KORFeatCont"),
      E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST_F(ContainerServicesTest, WhatIsGivenOutlivesTheRepresentation) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto analysis = KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TA"));
  analysis->GetContent().Container = Container_var::Adopt(new KORFeatureContainer("Model", "Name"));
  KORIContainer_var container = Retrieve(analysis, "KORFeatCont");
  analysis = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  container = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
