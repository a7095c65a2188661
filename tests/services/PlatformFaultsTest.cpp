// Faults of every kind, put into the operations of the platform: what each gives and leaves, for one call and for all.
#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <string>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/model/KORIContainer.h"
#include "platform/model/KORModel.h"
#include "platform/model/KORPLMSpace.h"
#include "platform/services/KORAdpProtectedSaver.h"
#include "platform/services/KORAdpVersioning.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/services/KOROmbSwitchSessionService.h"
#include "platform/services/KORPLMApplicativeContainerServices.h"
#include "platform/services/KORPLMMetaDataFrameModel.h"
#include "platform/services/KORPLMServices.h"
#include "platform/services/PLMIRepresentationReferenceFactory.h"
#include "platform/services/PLMPSISessionHelpers.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"
#include "platform/system/KORJXMNavGenericServices.h"
#include "platform/system/KORSession.h"
#include "platform/system/KORSettingRepository.h"
#include "platform/system/KORSystem.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Kind = KORFault::Kind;
using Life = KORFault::Life;
using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

constexpr long Status = -77;  // which nothing but a fault gives

/// An error of the tests' own.
struct FaultRaised {};

/// Runs an operation and notes what it left, also where it raises.
template <class Operation, class Check>
long Run(bool& done, const Operation& operation, const Check& check) {
  try {
    const long status = operation();
    done = check();
    return status;
  } catch (const FaultRaised&) {
    done = check();
    throw;
  }
}

/// The same for an operation that hands out an object: it is done if the pointer is not null.
template <class Interface, class Operation>
long HandOut(bool& done, const Operation& operation) {
  int anything = 0;
  auto* const before = reinterpret_cast<Interface*>(&anything);
  Interface* out = before;
  return Run(
      done, [&] { return operation(out); },
      [&] {
        EXPECT_NE(out, before) << "the pointer was left as it was";
        if (out != nullptr && out != before) out->Release();
        return out != nullptr;
      });
}

/// The same for one that hands out an interface by its identifier.
template <class Interface, class Operation>
long HandOutAnonymous(bool& done, const Operation& operation) {
  return HandOut<Interface>(done, [&](Interface*& out) {
    void* found = out;
    const auto take = [&] { out = static_cast<Interface*>(found); };
    try {
      const long status = operation(&found);
      take();
      return status;
    } catch (const FaultRaised&) {
      take();
      throw;
    }
  });
}

// What the operations work on.

class Component final : public KORImplements<KORICkeObject> {};
[[maybe_unused]] const bool is_registered = KORFillDictionary::RegisterFunctionCreation(
    "PlatformFaultsTestComponent", []() -> KORBaseUnknown* { return new Component; });

Analysis_var Analysis() {
  return KORModel::Current().CreateTimeAnalysis("TA");
}

KORIAdpPLMIdentificator_var IdentificatorOf(const Analysis_var& analysis) {
  KORIAdpPLMIdentificator* identificator = nullptr;
  EXPECT_EQ(analysis->GetPLMIdentificator(identificator), S_OK);
  return KORIAdpPLMIdentificator_var::Adopt(identificator);
}

KORAdpVersioningInfo Information() {
  return {IdentificatorOf(Analysis()), true};
}

KORHandle<KOROperationReference> Operation() {
  return KORModel::Current().CreateOperation("OP");
}

PLMIRepInstance_var InstanceUnder(const KORHandle<KOROperationReference>& operation) {
  PLMIRepInstance* instance = nullptr;
  EXPECT_EQ(operation->AddRepInstance(nullptr, PLMIRepReference_var(Analysis()).Get(), instance, 0), S_OK);
  return PLMIRepInstance_var::Adopt(instance);
}

KORIOmiSwitchEngine_var Engine() {
  KORIOmiSwitchEngine* engine = nullptr;
  EXPECT_EQ(KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(engine), S_OK);
  return KORIOmiSwitchEngine_var::Adopt(engine);
}

/// An engine that can prepare the switch of an analysis.
KORIOmiSwitchEngine_var EngineFor(const Analysis_var& analysis) {
  const KORIOmiSwitchEngine_var engine = Engine();
  KOROmbLoadingModeRuleSet rules;
  EXPECT_EQ(rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode")), S_OK);
  EXPECT_EQ(engine->AddSwitchComponent(analysis.Get()), S_OK);
  EXPECT_EQ(engine->SetLoadingRules(rules), S_OK);
  return engine;
}

bool CanPrepare(const KORIOmiSwitchEngine_var& engine) {
  KORListPtrKOROmiSwitchOperation operations;
  return engine->PrepareSwitch(operations) == S_OK;
}

VEXSTTAdpIdentificationSet SetOfAnalysis() {
  (void)Analysis();
  VEXSTTAdpIdentificationSet set;
  EXPECT_EQ(set.AddAttribute("PLM_ExternalID", "TA"), S_OK);
  return set;
}

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

Analysis_var AnalysisWithContainer() {
  const Analysis_var analysis = Analysis();
  void* container = nullptr;
  EXPECT_EQ(analysis->CreateApplicativeContainer(&container, "model", KORIContainer::ClassId(), "KORFeatCont", "name"),
            S_OK);
  static_cast<KORIContainer*>(container)->Release();
  return analysis;
}

using Key = std::unique_ptr<KOROmbLoadableDataUniqueKey>;

Key StreamKey() {
  KOROmbLoadableDataUniqueKey* key = nullptr;
  EXPECT_EQ(KOROmbLoadableDataUniqueKey::Create(key, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED", "grip", 0),
            S_OK);
  return Key(key);
}

Analysis_var AnalysisWithStream() {
  Analysis_var analysis = Analysis();
  analysis->GetContent().Streams.Put({"png", "grip"}, "bytes");
  return analysis;
}

// Puts a fault into one operation and looks at two calls.
struct Row {
  const char* Name;          // of the operation
  long (*Call)(bool& done);  // calls it; `done` tells whether it did its work
  bool GivesStatus = true;   // or else its result alone
};

KORFault FaultOf(Kind what, Life life) {
  KORFault fault{Status, what, life};
  if (what == Kind::Raised) fault.Error = std::make_exception_ptr(FaultRaised());
  return fault;
}

void ExpectFault(const Row& operation, Kind what) {
  bool done = what != Kind::StatusAlone;
  if (what == Kind::Raised) {
    EXPECT_THROW((void)operation.Call(done), FaultRaised);
  } else {
    const long expected = what == Kind::NullAlone || !operation.GivesStatus ? S_OK : Status;
    EXPECT_EQ(operation.Call(done), expected);
  }
  EXPECT_EQ(done, what == Kind::StatusAlone);
}

void ExpectWork(const Row& operation) {
  bool done = false;
  EXPECT_EQ(operation.Call(done), S_OK);
  EXPECT_TRUE(done);
}

class PlatformFaultTest : public testing::TestWithParam<Row> {
 protected:
  void SetUp() override { _Session.SetCurrentUserId("user"); }

  KORFreshSession _Session;
};

TEST_P(PlatformFaultTest, HoldsForOneCallOrForAll) {
  ExpectWork(GetParam());
  for (const Kind what : {Kind::StatusAndNull, Kind::StatusAlone, Kind::NullAlone, Kind::Raised}) {
    for (const Life life : {Life::Once, Life::Always}) {
      SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(what) << ", life " << static_cast<int>(life));
      _Session.InjectFault(GetParam().Name, FaultOf(what, life));
      ExpectFault(GetParam(), what);
      if (life == Life::Always) ExpectFault(GetParam(), what);
      if (life == Life::Always) _Session.ClearFaults();
      ExpectWork(GetParam());
    }
  }
}

const auto name_of_row = [](const testing::TestParamInfo<Row>& row) {
  std::string name = row.param.Name;
  std::erase(name, ':');
  return name;
};

INSTANTIATE_TEST_SUITE_P(
    OfTheStructure, PlatformFaultTest,
    testing::Values(
        Row{"GetRelatedInstance",
            [](bool& done) {
              const auto occurrence = KORModel::Current().CreateOccurrence(KORIPLMNavReference_var(Operation()));
              return HandOut<KORIPLMNavInstance>(done, [&](auto*& out) { return occurrence->GetRelatedInstance(out); });
            }},
        Row{"GetInstanceReference",
            [](bool& done) {
              KOROperationInstance instance{KORIPLMNavReference_var(Operation())};
              return HandOut<KORIPLMNavReference>(done, [&](auto*& out) { return instance.GetInstanceReference(out); });
            }},
        Row{"GetRepReference",
            [](bool& done) {
              const PLMIRepInstance_var instance = InstanceUnder(Operation());
              return HandOut<PLMIRepReference>(done, [&](auto*& out) { return instance->GetRepReference(out); });
            }},
        Row{"ListRepInstances",
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
        Row{"AddRepInstance",
            [](bool& done) {
              const auto operation = Operation();
              const PLMIRepReference_var reference(Analysis());
              return HandOut<PLMIRepInstance>(
                  done, [&](auto*& out) { return operation->AddRepInstance(nullptr, reference.Get(), out, 0); });
            }},
        Row{"RemoveRepInstance",
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
        Row{"GetPLMIdentificator",
            [](bool& done) {
              const auto analysis = Analysis();
              return HandOut<KORIAdpPLMIdentificator>(done,
                                                      [&](auto*& out) { return analysis->GetPLMIdentificator(out); });
            }},
        Row{"IsSameAs",
            [](bool& done) {
              const auto identificator = IdentificatorOf(Analysis());
              unsigned char same = 9;
              return Run(
                  done, [&] { return identificator->IsSameAs(identificator.Get(), same); }, [&] { return same != 0; });
            }},
        Row{"GetResolutionSpace",
            [](bool& done) {
              return HandOut<KORIPLMSpace>(done, [&](auto*& out) {
                return KORPLMSpaceServices::GetResolutionSpace(out, 0, KORPLMSpaceServices::Kor3DSpace);
              });
            }},
        Row{"ResolveComponent",
            [](bool& done) {
              KORIPLMSpace* space = nullptr;
              (void)KORPLMSpaceServices::GetResolutionSpace(space, 0, KORPLMSpaceServices::Kor3DSpace);
              const auto held = KORIPLMSpace_var::Adopt(space);
              const auto identificator = IdentificatorOf(Analysis());
              return HandOutAnonymous<KORIPLMComponent>(done, [&](void** out) {
                return held->ResolveComponent(identificator.Get(), KORIPLMComponent::ClassId(), out);
              });
            }},
        Row{"GetAttribute",
            [](bool& done) {
              const auto analysis = Analysis();
              return HandOut<KORIValue>(done, [&](auto*& out) {
                out = nullptr;
                out = analysis->GetAttribute("PLM_ExternalID");
                return S_OK;
              });
            },
            false},
        Row{"KORIValue::GetText",
            [](bool& done) {
              const auto value = KORIValue_var::Adopt(Analysis()->GetAttribute("PLM_ExternalID"));
              KORUnicodeString text("before");
              return Run(
                  done, [&] { return value->GetText(text); }, [&] { return text != "before"; });
            }},
        Row{"CreateApplicativeContainer",
            [](bool& done) {
              const auto analysis = Analysis();
              return HandOutAnonymous<KORIContainer>(done, [&](void** out) {
                return analysis->CreateApplicativeContainer(out, "model", KORIContainer::ClassId(), "KORFeatCont",
                                                            "name");
              });
            }},
        Row{"RetrieveApplicativeContainer",
            [](bool& done) {
              const auto analysis = AnalysisWithContainer();
              return HandOutAnonymous<KORIContainer>(done, [&](void** out) {
                return analysis->RetrieveApplicativeContainer("name", KORIContainer::ClassId(), out);
              });
            }},
        Row{"KORPLMApplicativeContainerServices::Retrieve",
            [](bool& done) {
              const auto analysis = AnalysisWithContainer();
              return HandOutAnonymous<KORIContainer>(done, [&](void** out) {
                return KORPLMApplicativeContainerServices::Retrieve(out, analysis.Get(), KORIContainer::ClassId(),
                                                                    "KORFeatCont");
              });
            }}),
    name_of_row);

INSTANTIATE_TEST_SUITE_P(
    OfTheSession, PlatformFaultTest,
    testing::Values(
        Row{"GetSessionHelpers",
            [](bool& done) {
              return HandOut<PLMPSISessionHelpers>(
                  done, [](auto*& out) { return PLMPSISessionHelpers::GetSessionHelpers(out); });
            }},
        Row{"GetCurrentEnvironment",
            [](bool& done) {
              const auto helpers = Helpers();
              return HandOut<KORIAdpEnvironment>(done, [&](auto*& out) { return helpers->GetCurrentEnvironment(out); });
            }},
        Row{"GetLocalEnvironment",
            [](bool& done) {
              const KORPLMMetaDataFrameModel model;
              return HandOut<KORIAdpEnvironment>(done, [&](auto*& out) { return model.GetLocalEnvironment(out); });
            }},
        Row{"KORInstantiateComponent",
            [](bool& done) {
              return HandOutAnonymous<KORICkeObject>(done, [](void** out) {
                return KORInstantiateComponent("PlatformFaultsTestComponent", KORICkeObject::ClassId(), out);
              });
            }},
        Row{"GetOpenServices",
            [](bool& done) {
              return HandOut<KORIPLMOpen>(done, [](auto*& out) { return KORPLMServices::GetOpenServices(out); });
            }},
        Row{"GetRepresentationReferenceFactory",
            [](bool& done) {
              return HandOutAnonymous<PLMIRepresentationReferenceFactory>(done, [](void** out) {
                return GetRepresentationReferenceFactory("TimeAnalysis", out,
                                                         PLMIRepresentationReferenceFactory::ClassId());
              });
            }},
        Row{"CreateRepReference",
            [](bool& done) {
              const auto factory = Factory();
              const auto environment = Environment();
              const KORIType_var type = KORKnowledgeTypes::Current().Find("VEXTimeAnalysisRepReference");
              return HandOut<KORBaseUnknown>(done, [&](auto*& out) {
                return factory->CreateRepReference(environment.Get(), type, {}, "KORData", out, 0);
              });
            }},
        Row{"GetCurrentUserId",
            [](bool& done) {
              KORUnicodeString user("before");
              return Run(
                  done, [&] { return KORJXMNavGenericServices::GetCurrentUserId(user); },
                  [&] { return user != "before"; });
            }},
        Row{"KORGetEnv",
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
        Row{"IsEnvVariableSet",
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
        Row{"GetRepository",
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
        Row{"ReadSetting",
            [](bool& done) {
              KORSettingRepository repository;
              repository.WriteSetting("count", "5");
              double number = 1.0;
              return Run(
                  done, [&] { return repository.ReadSetting("count", number); }, [&] { return number > 1.0; });
            }},
        Row{"GetVolatileFactory",
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
        Row{"CreateTextParm",
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
            false}),
    name_of_row);

INSTANTIATE_TEST_SUITE_P(
    OfTheDatabase, PlatformFaultTest,
    testing::Values(
        Row{"CreateErrorMonitor",
            [](bool& done) {
              return HandOut<KORIAdpErrorMonitor>(
                  done, [](auto*& out) { return KORAdpErrorMonitorFactory::CreateErrorMonitor(KORUuid(), out); });
            }},
        Row{"GetElement",
            [](bool& done) {
              const KORAdpVersioningInfo information = Information();
              return HandOut<KORIAdpPLMIdentificator>(done, [&](auto*& out) { return information.GetElement(out); });
            }},
        Row{"GetMajorVersioningInformation",
            [](bool& done) {
              const KORAdpVersioningInfo information = Information();
              KORAdpMajorInformation major;
              return Run(
                  done, [&] { return information.GetMajorVersioningInformation(major); },
                  [&] {
                    unsigned char is_last = 9;
                    EXPECT_EQ(major.IsLastMajor(is_last), S_OK);
                    return is_last == 1;
                  });
            }},
        Row{"IsLastMajor",
            [](bool& done) {
              const KORAdpMajorInformation information(true);
              unsigned char is_last = 9;
              return Run(
                  done, [&] { return information.IsLastMajor(is_last); }, [&] { return is_last != 0; });
            }},
        Row{"GetVersioningInfo",
            [](bool& done) {
              const auto identificator = IdentificatorOf(Analysis());
              KORListPtrKORIAdpPLMIdentificator asked;
              asked.Append(identificator.Get());
              KORListValKORAdpVersioningInfo infos;
              return Run(
                  done,
                  [&] { return KORAdpProtectedVersioningServices::GetVersioningInfo(asked, 1, 1, infos, nullptr); },
                  [&] { return infos.Size() == 1; });
            }},
        Row{"Save",
            [](bool& done) {
              const auto analysis = Analysis();
              analysis->GetContent().IsInDatabase = false;
              KORListPtrKORIPLMComponent components;
              components.Append(analysis.Get());
              return Run(
                  done, [&] { return KORAdpProtectedSaver(components, nullptr).Save(); },
                  [&] { return analysis->GetContent().IsInDatabase; });
            }},
        Row{"AddAttribute",
            [](bool& done) {
              VEXSTTAdpIdentificationSet set;
              return Run(
                  done, [&] { return set.AddAttribute("name", "value"); },
                  [&] { return set.GetAttributes().size() == 1; });
            }},
        Row{"GetElementByIdentificationSet",
            [](bool& done) {
              const auto set = SetOfAnalysis();
              return HandOut<KORBaseUnknown>(done, [&](auto*& out) {
                return VEXSTTAnalysesQueryServices::GetElementByIdentificationSet(set, out);
              });
            }},
        Row{"GetElementsFromAttributes",
            [](bool& done) {
              const auto set = SetOfAnalysis();
              KORListValKORBaseUnknown_var elements;
              elements.Append(NULL_var);
              KOROmbLifeCycleRootsBag bag;
              return Run(
                  done, [&] { return VEXSTTAnalysesQueryServices::GetElementsFromAttributes(set, elements, bag); },
                  [&] {
                    EXPECT_EQ(bag.Size(), elements.Size());
                    return elements.Size() != 0;
                  });
            }},
        Row{"GetAllTimeAnalysis",
            [](bool& done) {
              (void)Analysis();
              KORListValKORBaseUnknown_var analyses;
              analyses.Append(NULL_var);
              KOROmbLifeCycleRootsBag bag;
              return Run(
                  done, [&] { return VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(analyses, bag); },
                  [&] {
                    EXPECT_EQ(bag.Size(), analyses.Size());
                    return analyses.Size() != 0;
                  });
            }}),
    name_of_row);

INSTANTIATE_TEST_SUITE_P(
    OfLoadingAndStreams, PlatformFaultTest,
    testing::Values(
        Row{"CreateSwitchEngine",
            [](bool& done) {
              return HandOut<KORIOmiSwitchEngine>(
                  done, [](auto*& out) { return KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(out); });
            }},
        Row{"AddALoadingModeRule",
            [](bool& done) {
              KOROmbLoadingModeRuleSet rules;
              return Run(
                  done, [&] { return rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode")); },
                  [&] { return rules.GetRules().size() == 1; });
            }},
        Row{"AddSwitchComponent",
            [](bool& done) {
              const auto analysis = Analysis();
              const auto engine = Engine();
              KOROmbLoadingModeRuleSet rules;
              (void)rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode"));
              (void)engine->SetLoadingRules(rules);
              return Run(
                  done, [&] { return engine->AddSwitchComponent(analysis.Get()); }, [&] { return CanPrepare(engine); });
            }},
        Row{"SetLoadingRules",
            [](bool& done) {
              const auto analysis = Analysis();
              const auto engine = Engine();
              KOROmbLoadingModeRuleSet rules;
              (void)rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode"));
              (void)engine->AddSwitchComponent(analysis.Get());
              return Run(
                  done, [&] { return engine->SetLoadingRules(rules); }, [&] { return CanPrepare(engine); });
            }},
        Row{"PrepareSwitch",
            [](bool& done) {
              const auto engine = EngineFor(Analysis());
              KORListPtrKOROmiSwitchOperation operations;
              return Run(
                  done, [&] { return engine->PrepareSwitch(operations); }, [&] { return operations.Size() == 1; });
            }},
        Row{"ExecuteSwitch",
            [](bool& done) {
              const auto analysis = Analysis();
              const auto engine = EngineFor(analysis);
              EXPECT_TRUE(CanPrepare(engine));
              KORListPtrKOROmiSwitchOperation operations;
              return Run(
                  done, [&] { return engine->ExecuteSwitch(operations); },
                  [&] { return analysis->GetContent().LoadingMode == "Authoring_Mode"; });
            }},
        Row{"FromNativeFilePathToUrl",
            [](bool& done) {
              KORVVSUrl url;
              return Run(
                  done, [&] { return KORVVSUrlUtils::FromNativeFilePathToUrl("grip.png", url); },
                  [&] { return !url.GetNativeFilePath().empty(); });
            }},
        Row{"KOROmbLoadableDataUniqueKey::Create",
            [](bool& done) {
              int anything = 0;
              auto* key = reinterpret_cast<KOROmbLoadableDataUniqueKey*>(&anything);
              return Run(
                  done,
                  [&] {
                    return KOROmbLoadableDataUniqueKey::Create(key, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED",
                                                               "grip", 0);
                  },
                  [&] { return Key(key) != nullptr; });
            }},
        Row{"AddExtendedSDForRepRef",
            [](bool& done) {
              const support::TemporaryFolder folder;
              KORVVSUrl url;
              (void)KORVVSUrlUtils::FromNativeFilePathToUrl(
                  KORUnicodeString(std::string_view(folder.Write("source", "bytes"))), url);
              const auto analysis = Analysis();
              return Run(
                  done,
                  [&] { return KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(analysis, "png", "grip", url, 0); },
                  [&] { return !analysis->GetContent().Streams.IsEmpty(); });
            }},
        Row{"GetExtendedContent",
            [](bool& done) {
              const auto analysis = AnalysisWithStream();
              return HandOut<KORIOmbNonZENTAStreamDescriptor>(done, [&](auto*& out) {
                return KOROmbRepRefLoadingServices::GetExtendedContent(analysis, StreamKey().get(), out);
              });
            }},
        Row{"DeleteSD",
            [](bool& done) {
              const auto analysis = AnalysisWithStream();
              return Run(
                  done, [&] { return KOROmbComponentStreamsManager(analysis).DeleteSD(StreamKey().get()); },
                  [&] { return analysis->GetContent().Streams.IsEmpty(); });
            }},
        Row{"GetSDFamily",
            [](bool& done) {
              const auto analysis = AnalysisWithStream();
              KORListValKORBaseUnknown_var streams;
              return Run(
                  done,
                  [&] {
                    streams = KOROmbNonZENTAStreamsManager(analysis).GetSDFamily(0);
                    return S_OK;
                  },
                  [&] { return streams.Size() == 1; });
            },
            false},
        Row{"GetStreamFormat",
            [](bool& done) {
              const auto analysis = AnalysisWithStream();
              const KORIOmbStreamDescriptor_var stream = KOROmbNonZENTAStreamsManager(analysis).GetSDFamily(0)[1];
              KORUnicodeString format("before");
              return Run(
                  done, [&] { return stream->GetStreamFormat(format); }, [&] { return format != "before"; });
            }},
        Row{"CopyStreamToFile",
            [](bool& done) {
              const support::TemporaryFolder folder;
              const auto analysis = AnalysisWithStream();
              const KORIOmbNonZENTAStreamDescriptor_var stream =
                  KOROmbNonZENTAStreamsManager(analysis).GetSDFamily(0)[1];
              return Run(
                  done,
                  [&] { return stream->CopyStreamToFile(KORUnicodeString(std::string_view(folder.Path("copy"))), 1); },
                  [&] { return folder.Names().size() == 1; });
            }}),
    name_of_row);

}  // namespace
