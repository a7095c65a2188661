// Faults in the operations on the product structure.
#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/model/KORIContainer.h"
#include "platform/model/KORModel.h"
#include "platform/model/KORPLMSpace.h"
#include "platform/services/KORPLMApplicativeContainerServices.h"
#include "tests/services/FaultKinds.h"

namespace servicestest {
namespace {

KORIAdpPLMIdentificator_var IdentificatorOf(const Analysis_var& analysis) {
  KORIAdpPLMIdentificator* identificator = nullptr;
  EXPECT_EQ(analysis->GetPLMIdentificator(identificator), S_OK);
  return KORIAdpPLMIdentificator_var::Adopt(identificator);
}

KORHandle<KOROperationReference> Operation() {
  return KORModel::Current().CreateOperation("OP");
}

PLMIRepInstance_var InstanceUnder(const KORHandle<KOROperationReference>& operation) {
  PLMIRepInstance* instance = nullptr;
  EXPECT_EQ(operation->AddRepInstance(nullptr, PLMIRepReference_var(NewAnalysis()).Get(), instance, 0), S_OK);
  return PLMIRepInstance_var::Adopt(instance);
}

Analysis_var AnalysisWithContainer() {
  const Analysis_var analysis = NewAnalysis();
  void* container = nullptr;
  EXPECT_EQ(analysis->CreateApplicativeContainer(&container, "model", KORIContainer::ClassId(), "KORFeatCont", "name"),
            S_OK);
  static_cast<KORIContainer*>(container)->Release();
  return analysis;
}

const OperationRow Operations[] = {
    {"GetRelatedInstance",
     [](bool& done) {
       const auto occurrence = KORModel::Current().CreateOccurrence(KORIPLMNavReference_var(Operation()));
       return HandOut<KORIPLMNavInstance>(done, [&](auto*& out) { return occurrence->GetRelatedInstance(out); });
     }},
    {"GetInstanceReference",
     [](bool& done) {
       KOROperationInstance instance{KORIPLMNavReference_var(Operation())};
       return HandOut<KORIPLMNavReference>(done, [&](auto*& out) { return instance.GetInstanceReference(out); });
     }},
    {"GetRepReference",
     [](bool& done) {
       const PLMIRepInstance_var instance = InstanceUnder(Operation());
       return HandOut<PLMIRepReference>(done, [&](auto*& out) { return instance->GetRepReference(out); });
     }},
    {"ListRepInstances",
     [](bool& done) {
       const auto operation = Operation();
       KORListValKORBaseUnknown_var instances;
       instances.Append(InstanceUnder(operation));
       instances.Append(NULL_var);
       return Run(
           done, [&] { return operation->ListRepInstances(instances); },
           [&] {
             EXPECT_LE(instances.Size(), 1);
             return instances.Size() == 1;
           });
     }},
    {"AddRepInstance",
     [](bool& done) {
       const auto operation = Operation();
       const PLMIRepReference_var reference(NewAnalysis());
       return HandOut<PLMIRepInstance>(
           done, [&](auto*& out) { return operation->AddRepInstance(nullptr, reference.Get(), out, 0); });
     }},
    {"RemoveRepInstance",
     [](bool& done) {
       const auto operation = Operation();
       const PLMIRepInstance_var instance = InstanceUnder(operation);
       return Run(
           done, [&] { return operation->RemoveRepInstance(instance.Get()); },
           [&] {
             KORListValKORBaseUnknown_var left;
             EXPECT_EQ(operation->ListRepInstances(left), S_OK);
             return left.Size() == 0;
           });
     }},
    {"GetPLMIdentificator",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       return HandOut<KORIAdpPLMIdentificator>(done, [&](auto*& out) { return analysis->GetPLMIdentificator(out); });
     }},
    {"IsSameAs",
     [](bool& done) {
       const auto identificator = IdentificatorOf(NewAnalysis());
       unsigned char same = 9;
       return Run(
           done, [&] { return identificator->IsSameAs(identificator.Get(), same); }, [&] { return same != 0; });
     }},
    {"GetResolutionSpace",
     [](bool& done) {
       return HandOut<KORIPLMSpace>(done, [&](auto*& out) {
         return KORPLMSpaceServices::GetResolutionSpace(out, 0, KORPLMSpaceServices::Kor3DSpace);
       });
     }},
    {"ResolveComponent",
     [](bool& done) {
       KORIPLMSpace* space = nullptr;
       (void)KORPLMSpaceServices::GetResolutionSpace(space, 0, KORPLMSpaceServices::Kor3DSpace);
       const auto held = KORIPLMSpace_var::Adopt(space);
       const auto identificator = IdentificatorOf(NewAnalysis());
       return HandOutAnonymous<KORIPLMComponent>(done, [&](void** out) {
         return held->ResolveComponent(identificator.Get(), KORIPLMComponent::ClassId(), out);
       });
     }},
    {"GetAttribute",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       return HandOut<KORIValue>(done, [&](auto*& out) {
         out = nullptr;
         out = analysis->GetAttribute("PLM_ExternalID");
         return S_OK;
       });
     },
     false},
    {"KORIValue::GetText",
     [](bool& done) {
       const auto value = KORIValue_var::Adopt(NewAnalysis()->GetAttribute("PLM_ExternalID"));
       KORUnicodeString text("before");
       return Run(
           done, [&] { return value->GetText(text); }, [&] { return text != "before"; });
     }},
    {"CreateApplicativeContainer",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       return HandOutAnonymous<KORIContainer>(done, [&](void** out) {
         return analysis->CreateApplicativeContainer(out, "model", KORIContainer::ClassId(), "KORFeatCont", "name");
       });
     }},
    {"RetrieveApplicativeContainer",
     [](bool& done) {
       const auto analysis = AnalysisWithContainer();
       return HandOutAnonymous<KORIContainer>(done, [&](void** out) {
         return analysis->RetrieveApplicativeContainer("name", KORIContainer::ClassId(), out);
       });
     }},
    {"KORPLMApplicativeContainerServices::Retrieve",
     [](bool& done) {
       const auto analysis = AnalysisWithContainer();
       return HandOutAnonymous<KORIContainer>(done, [&](void** out) {
         return KORPLMApplicativeContainerServices::Retrieve(out, analysis.Get(), KORIContainer::ClassId(),
                                                             "KORFeatCont");
       });
     }},
};

class StructureFaultsTest : public FaultKindsTest {};

TEST_P(StructureFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfTheStructure, StructureFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
