// Faults in the switch of the loading mode and in streams.
#include <gtest/gtest.h>

#include <memory>

#include "platform/base/KORStatus.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/services/KOROmbSwitchSessionService.h"
#include "tests/services/FaultKinds.h"
#include "tests/support/TemporaryFolder.h"

namespace servicestest {
namespace {

using Key = std::unique_ptr<KOROmbLoadableDataUniqueKey>;

KORIOmiSwitchEngine_var Engine() {
  KORIOmiSwitchEngine* engine = nullptr;
  EXPECT_EQ(KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(engine), S_OK);
  return KORIOmiSwitchEngine_var::Adopt(engine);
}

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

Key StreamKey() {
  KOROmbLoadableDataUniqueKey* key = nullptr;
  EXPECT_EQ(KOROmbLoadableDataUniqueKey::Create(key, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED", "grip", 0),
            S_OK);
  return Key(key);
}

Analysis_var AnalysisWithStream() {
  Analysis_var analysis = NewAnalysis();
  analysis->GetContent().Streams.Put({"png", "grip"}, "bytes");
  return analysis;
}

const OperationRow Operations[] = {
    {"CreateSwitchEngine",
     [](bool& done) {
       return HandOut<KORIOmiSwitchEngine>(
           done, [](auto*& out) { return KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(out); });
     }},
    {"AddALoadingModeRule",
     [](bool& done) {
       KOROmbLoadingModeRuleSet rules;
       return Run(
           done, [&] { return rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode")); },
           [&] { return rules.GetRules().size() == 1; });
     }},
    {"AddSwitchComponent",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       const auto engine = Engine();
       KOROmbLoadingModeRuleSet rules;
       (void)rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode"));
       (void)engine->SetLoadingRules(rules);
       return Run(
           done, [&] { return engine->AddSwitchComponent(analysis.Get()); }, [&] { return CanPrepare(engine); });
     }},
    {"SetLoadingRules",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       const auto engine = Engine();
       KOROmbLoadingModeRuleSet rules;
       (void)rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule("Authoring_Mode"));
       (void)engine->AddSwitchComponent(analysis.Get());
       return Run(
           done, [&] { return engine->SetLoadingRules(rules); }, [&] { return CanPrepare(engine); });
     }},
    {"PrepareSwitch",
     [](bool& done) {
       const auto engine = EngineFor(NewAnalysis());
       KORListPtrKOROmiSwitchOperation operations;
       return Run(
           done, [&] { return engine->PrepareSwitch(operations); }, [&] { return operations.Size() == 1; });
     }},
    {"ExecuteSwitch",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       const auto engine = EngineFor(analysis);
       EXPECT_TRUE(CanPrepare(engine));
       KORListPtrKOROmiSwitchOperation operations;
       return Run(
           done, [&] { return engine->ExecuteSwitch(operations); },
           [&] { return analysis->GetContent().LoadingMode == "Authoring_Mode"; });
     }},
    {"FromNativeFilePathToUrl",
     [](bool& done) {
       KORVVSUrl url;
       return Run(
           done, [&] { return KORVVSUrlUtils::FromNativeFilePathToUrl("grip.png", url); },
           [&] { return !url.GetNativeFilePath().empty(); });
     }},
    {"KOROmbLoadableDataUniqueKey::Create",
     [](bool& done) {
       int anything = 0;
       auto* key = reinterpret_cast<KOROmbLoadableDataUniqueKey*>(&anything);
       return Run(
           done,
           [&] {
             return KOROmbLoadableDataUniqueKey::Create(key, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED", "grip",
                                                        0);
           },
           [&] { return Key(key) != nullptr; });
     }},
    OperationRow{"AddExtendedSDForRepRef",
                 [](bool& done) {
                   const support::TemporaryFolder folder;
                   KORVVSUrl url;
                   (void)KORVVSUrlUtils::FromNativeFilePathToUrl(
                       KORUnicodeString(std::string_view(folder.Write("source", "bytes"))), url);
                   const auto analysis = NewAnalysis();
                   return Run(
                       done,
                       [&] {
                         return KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(analysis, "png", "grip", url, 0);
                       },
                       [&] { return !analysis->GetContent().Streams.IsEmpty(); });
                 }},
    {"GetExtendedContent",
     [](bool& done) {
       const auto analysis = AnalysisWithStream();
       return HandOut<KORIOmbNonZENTAStreamDescriptor>(done, [&](auto*& out) {
         return KOROmbRepRefLoadingServices::GetExtendedContent(analysis, StreamKey().get(), out);
       });
     }},
    {"DeleteSD",
     [](bool& done) {
       const auto analysis = AnalysisWithStream();
       return Run(
           done, [&] { return KOROmbComponentStreamsManager(analysis).DeleteSD(StreamKey().get()); },
           [&] { return analysis->GetContent().Streams.IsEmpty(); });
     }},
    {"GetSDFamily",
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
    {"GetStreamFormat",
     [](bool& done) {
       const auto analysis = AnalysisWithStream();
       const KORIOmbStreamDescriptor_var stream = KOROmbNonZENTAStreamsManager(analysis).GetSDFamily(0)[1];
       KORUnicodeString format("before");
       return Run(
           done, [&] { return stream->GetStreamFormat(format); }, [&] { return format != "before"; });
     }},
    OperationRow{
        "CopyStreamToFile",
        [](bool& done) {
          const support::TemporaryFolder folder;
          const auto analysis = AnalysisWithStream();
          const KORIOmbNonZENTAStreamDescriptor_var stream = KOROmbNonZENTAStreamsManager(analysis).GetSDFamily(0)[1];
          return Run(
              done,
              [&] { return stream->CopyStreamToFile(KORUnicodeString(std::string_view(folder.Path("copy"))), 1); },
              [&] { return folder.Names().size() == 1; });
        }},
};

class LoadingFaultsTest : public FaultKindsTest {};

TEST_P(LoadingFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfLoadingAndStreams, LoadingFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
