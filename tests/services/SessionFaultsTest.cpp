// Faults in what a session gives: services, factories, components, users, settings.
#include <gtest/gtest.h>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/services/KORPLMMetaDataFrameModel.h"
#include "platform/services/KORPLMServices.h"
#include "platform/services/PLMIRepresentationReferenceFactory.h"
#include "platform/services/PLMPSISessionHelpers.h"
#include "platform/system/KORInstantiateComponent.h"
#include "platform/system/KORJXMNavGenericServices.h"
#include "platform/system/KORSession.h"
#include "platform/system/KORSettingRepository.h"
#include "platform/system/KORSystem.h"
#include "tests/services/FaultKinds.h"

namespace servicestest {
namespace {

class Component final : public KORImplements<KORICkeObject> {};

[[maybe_unused]] const bool is_registered = KORFillDictionary::RegisterFunctionCreation(
    "SessionFaultsTestComponent", []() -> KORBaseUnknown* { return new Component; });

PLMPSISessionHelpers_var Helpers() {
  PLMPSISessionHelpers* helpers = nullptr;
  EXPECT_EQ(PLMPSISessionHelpers::GetSessionHelpers(helpers), S_OK);
  return PLMPSISessionHelpers_var::Adopt(helpers);
}

KORIAdpEnvironment_var Environment() {
  KORIAdpEnvironment* environment = nullptr;
  EXPECT_EQ(Helpers()->GetCurrentEnvironment(environment), S_OK);
  return KORIAdpEnvironment_var::Adopt(environment);
}

PLMIRepresentationReferenceFactory_var Factory() {
  void* factory = nullptr;
  EXPECT_EQ(GetRepresentationReferenceFactory("TimeAnalysis", &factory, PLMIRepresentationReferenceFactory::ClassId()),
            S_OK);
  return PLMIRepresentationReferenceFactory_var::Adopt(static_cast<PLMIRepresentationReferenceFactory*>(factory));
}

const OperationRow Operations[] = {
    {"GetSessionHelpers",
     [](bool& done) {
       return HandOut<PLMPSISessionHelpers>(done,
                                            [](auto*& out) { return PLMPSISessionHelpers::GetSessionHelpers(out); });
     }},
    {"GetCurrentEnvironment",
     [](bool& done) {
       const auto helpers = Helpers();
       return HandOut<KORIAdpEnvironment>(done, [&](auto*& out) { return helpers->GetCurrentEnvironment(out); });
     }},
    {"GetLocalEnvironment",
     [](bool& done) {
       const KORPLMMetaDataFrameModel model;
       return HandOut<KORIAdpEnvironment>(done, [&](auto*& out) { return model.GetLocalEnvironment(out); });
     }},
    {"KORInstantiateComponent",
     [](bool& done) {
       return HandOutAnonymous<KORICkeObject>(done, [](void** out) {
         return KORInstantiateComponent("SessionFaultsTestComponent", KORICkeObject::ClassId(), out);
       });
     }},
    {"GetOpenServices",
     [](bool& done) {
       return HandOut<KORIPLMOpen>(done, [](auto*& out) { return KORPLMServices::GetOpenServices(out); });
     }},
    {"GetRepresentationReferenceFactory",
     [](bool& done) {
       return HandOutAnonymous<PLMIRepresentationReferenceFactory>(done, [](void** out) {
         return GetRepresentationReferenceFactory("TimeAnalysis", out, PLMIRepresentationReferenceFactory::ClassId());
       });
     }},
    {"CreateRepReference",
     [](bool& done) {
       const auto factory = Factory();
       const auto environment = Environment();
       const KORIType_var type = KORKnowledgeTypes::Current().Find("VEXTimeAnalysisRepReference");
       return HandOut<KORBaseUnknown>(done, [&](auto*& out) {
         return factory->CreateRepReference(environment.Get(), type, {}, "KORData", out, 0);
       });
     }},
    {"GetCurrentUserId",
     [](bool& done) {
       KORUnicodeString user("before");
       return Run(
           done, [&] { return KORJXMNavGenericServices::GetCurrentUserId(user); }, [&] { return user != "before"; });
     }},
    {"KORGetEnv",
     [](bool& done) {
       KORSession::Current().SetEnvironment("KORTemp", "folder");
       KORUnicodeString value;
       return Run(
           done,
           [&] {
             value = KORGetEnv("KORTemp");
             return S_OK;
           },
           [&] { return value == "folder"; });
     },
     false},
    {"IsEnvVariableSet",
     [](bool& done) {
       KORSession::Current().SetEnvironment("KORTemp", "folder");
       int is_set = 0;
       return Run(
           done,
           [&] {
             is_set = VEXSTMMiscUtils::IsEnvVariableSet("KORTemp", 1);
             return S_OK;
           },
           [&] { return is_set == 1; });
     },
     false},
    {"GetRepository",
     [](bool& done) {
       KORSession::Current().AddRepository("settings");
       const KORSettingRepository* repository = nullptr;
       return Run(
           done,
           [&] {
             repository = KORSettingRepository::GetRepository("settings");
             return S_OK;
           },
           [&] { return repository != nullptr; });
     },
     false},
    {"ReadSetting",
     [](bool& done) {
       KORSettingRepository repository;
       repository.WriteSetting("count", "5");
       double number = 1.0;
       return Run(
           done, [&] { return repository.ReadSetting("count", number); }, [&] { return number > 1.0; });
     }},
    {"GetVolatileFactory",
     [](bool& done) {
       KORICkeParmFactory_var factory;
       return Run(
           done,
           [&] {
             factory = KORCkeGlobalFunctions::GetVolatileFactory();
             return S_OK;
           },
           [&] { return !factory.IsNull(); });
     },
     false},
    {"CreateTextParm",
     [](bool& done) {
       const KORICkeParmFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
       KORICkeParm_var parameter;
       return Run(
           done,
           [&] {
             parameter = factory->CreateTextParm("name", "value");
             return S_OK;
           },
           [&] { return !parameter.IsNull(); });
     },
     false},
};

class SessionFaultsTest : public FaultKindsTest {};

TEST_P(SessionFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfTheSession, SessionFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
