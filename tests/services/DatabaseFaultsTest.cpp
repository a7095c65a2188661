// Faults in versioning, saving and queries.
#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/services/KORAdpProtectedSaver.h"
#include "platform/services/KORAdpVersioning.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"
#include "tests/services/FaultKinds.h"

namespace servicestest {
namespace {

KORIAdpPLMIdentificator_var IdentificatorOf(const Analysis_var& analysis) {
  KORIAdpPLMIdentificator* identificator = nullptr;
  EXPECT_EQ(analysis->GetPLMIdentificator(identificator), S_OK);
  return KORIAdpPLMIdentificator_var::Adopt(identificator);
}

KORAdpVersioningInfo Information() {
  return {IdentificatorOf(NewAnalysis()), true};
}

VEXSTTAdpIdentificationSet SetOfAnalysis() {
  (void)NewAnalysis();
  VEXSTTAdpIdentificationSet set;
  EXPECT_EQ(set.AddAttribute("PLM_ExternalID", "TA"), S_OK);
  return set;
}

const OperationRow Operations[] = {
    {"CreateErrorMonitor",
     [](bool& done) {
       return HandOut<KORIAdpErrorMonitor>(
           done, [](auto*& out) { return KORAdpErrorMonitorFactory::CreateErrorMonitor(KORUuid(), out); });
     }},
    {"GetElement",
     [](bool& done) {
       const KORAdpVersioningInfo information = Information();
       return HandOut<KORIAdpPLMIdentificator>(done, [&](auto*& out) { return information.GetElement(out); });
     }},
    {"GetMajorVersioningInformation",
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
    {"IsLastMajor",
     [](bool& done) {
       const KORAdpMajorInformation information(true);
       unsigned char is_last = 9;
       return Run(
           done, [&] { return information.IsLastMajor(is_last); }, [&] { return is_last != 0; });
     }},
    {"GetVersioningInfo",
     [](bool& done) {
       const auto identificator = IdentificatorOf(NewAnalysis());
       KORListPtrKORIAdpPLMIdentificator asked;
       asked.Append(identificator.Get());
       KORListValKORAdpVersioningInfo infos;
       return Run(
           done, [&] { return KORAdpProtectedVersioningServices::GetVersioningInfo(asked, 1, 1, infos, nullptr); },
           [&] { return infos.Size() == 1; });
     }},
    {"Save",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       analysis->GetContent().IsInDatabase = false;
       KORListPtrKORIPLMComponent components;
       components.Append(analysis.Get());
       return Run(
           done, [&] { return KORAdpProtectedSaver(components, nullptr).Save(); },
           [&] { return analysis->GetContent().IsInDatabase; });
     }},
    {"AddAttribute",
     [](bool& done) {
       VEXSTTAdpIdentificationSet set;
       return Run(
           done, [&] { return set.AddAttribute("name", "value"); }, [&] { return set.GetAttributes().size() == 1; });
     }},
    {"GetElementByIdentificationSet",
     [](bool& done) {
       const auto set = SetOfAnalysis();
       return HandOut<KORBaseUnknown>(
           done, [&](auto*& out) { return VEXSTTAnalysesQueryServices::GetElementByIdentificationSet(set, out); });
     }},
    {"GetElementsFromAttributes",
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
    {"GetAllTimeAnalysis",
     [](bool& done) {
       (void)NewAnalysis();
       KORListValKORBaseUnknown_var analyses;
       analyses.Append(NULL_var);
       KOROmbLifeCycleRootsBag bag;
       return Run(
           done, [&] { return VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(analyses, bag); },
           [&] {
             EXPECT_EQ(bag.Size(), analyses.Size());
             return analyses.Size() != 0;
           });
     }},
};

class DatabaseFaultsTest : public FaultKindsTest {};

TEST_P(DatabaseFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfTheDatabase, DatabaseFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
