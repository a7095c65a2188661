// Faults in the operations on containers, features and legacy streams.
#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/model/KORFeatureContainer.h"
#include "platform/services/KOROsmSUHandler.h"
#include "platform/services/VEXTimeAnalysisModelerDeclarations.h"
#include "tests/services/FaultKinds.h"

namespace servicestest {
namespace {

KORHandle<KORFeature> Feature() {
  auto feature = KORHandle<KORFeature>::Adopt(new KORFeature("feature"));
  feature->AddAttributeName("attribute");
  return feature;
}

KORHandle<KORFeatureContainer> Container() {
  return KORHandle<KORFeatureContainer>::Adopt(new KORFeatureContainer("model", "name"));
}

// Whether the container has members, to whom the references that came with them go back.
bool HasMembers(const KORHandle<KORFeatureContainer>& container) {
  const auto listed = container->ListMembers(KORISpecObject::ClassName());
  if (listed == nullptr) return false;
  for (int position = 0; position < listed->Size(); ++position) (*listed)[position]->Release();
  return listed->Size() > 0;
}

const OperationRow Operations[] = {
    {"ListMembers",
     [](bool& done) {
       const auto container = Container();
       container->AddMember(Feature());
       done = false;
       done = HasMembers(container);
       return S_OK;
     },
     false},
    {"GetFeatureName",
     [](bool& done) {
       done = false;
       done = !Feature()->GetFeatureName().IsEmpty();
       return S_OK;
     },
     false},
    {"ListAttributeNames",
     [](bool& done) {
       done = false;
       done = Feature()->ListAttributeNames() != nullptr;
       return S_OK;
     },
     false},
    {"Instanciate",
     [](bool& done) {
       const auto container = Container();
       const KOROsmSUHandler handler("feature", "", VEXTimeAnalysisModelerDeclarations::StorageName);
       KORISpecObject_var feature;
       return Run(
           done, [&] { return handler.Instanciate(feature, container, ""); },
           [&] {
             EXPECT_EQ(HasMembers(container), !feature.IsNull());
             return !feature.IsNull();
           });
     }},
    {"GetStreamFilePath",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       analysis->GetContent().LegacyStreamPath = "/data/TA.txt";
       KORUnicodeString path("before");
       return Run(
           done, [&] { return analysis->GetStreamFilePath(path); },
           [&] {
             EXPECT_FALSE(path == "before");
             return !path.IsEmpty();
           });
     }},
};

class ContainerFaultsTest : public FaultKindsTest {};

TEST_P(ContainerFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfContainers, ContainerFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
