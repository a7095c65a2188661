// Faults in the operations on knowledge types, on attributes and on what is edited.
#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "platform/services/KORCkeObjectAttrReadServices.h"
#include "platform/services/KORCkePLMCoreServices.h"
#include "platform/services/KORCkePLMNavPublicServices.h"
#include "platform/services/KORPLMMetaDataFrameModel.h"
#include "tests/services/FaultKinds.h"

namespace servicestest {
namespace {

constexpr const char* AnalysisType = "VEXTimeAnalysisRepReference";

KORIType_var Type() {
  return KORKnowledgeTypes::Current().Find(AnalysisType);
}

KORHandle<KORCkeProxy> Proxy() {
  auto proxy = KORHandle<KORCkeProxy>::Adopt(new KORCkeProxy(AnalysisType));
  proxy->GetAttributes().Set("V_Name", KORUnicodeString("name"));
  return proxy;
}

// A model with one attribute, which was changed.
KORHandle<KORPLMMetaDataFrameModel> EditedModel() {
  auto model = KORHandle<KORPLMMetaDataFrameModel>::Adopt(new KORPLMMetaDataFrameModel);
  model->AddAttribute(KORCkeGlobalFunctions::GetVolatileFactory()->CreateTextParm("attribute", "value"));
  model->MarkModified("attribute");
  return model;
}

// Lists names into a list that isn't empty before.
long ListNames(bool& done, long (KORPLMMetaDataFrameModel::*lister)(KORListValKORUnicodeString&) const) {
  const auto model = EditedModel();
  KORListValKORUnicodeString names;
  names.Append("before");
  return Run(
      done, [&] { return (*model.*lister)(names); },
      [&] {
        EXPECT_EQ(names.Locate("before"), 0);
        return names.Size() != 0;
      });
}

const OperationRow Operations[] = {
    {"RetrieveKnowledgeType",
     [](bool& done) {
       KORIType_var type = Type();
       return Run(
           done, [&] { return KORCkePLMNavPublicServices::RetrieveKnowledgeType(AnalysisType, type); },
           [&] { return !type.IsNull(); });
     }},
    {"ListAttributesFromType",
     [](bool& done) {
       KORListValKORAttributeInfos infos;
       infos.Append(KORAttributeInfos("before", true));
       return Run(
           done, [&] { return KORCkePLMNavPublicServices::ListAttributesFromType(0, Type(), nullptr, infos, 0); },
           [&] { return infos.Size() != 0; });
     }},
    {"GetReservedAttributeNameFromObject",
     [](bool& done) {
       done = false;
       done = !KORCkePLMNavPublicServices::GetReservedAttributeNameFromObject(NewAnalysis()).IsEmpty();
       return S_OK;
     },
     false},
    {"GetReservedByAttributeNameFromObject",
     [](bool& done) {
       done = false;
       done = !KORCkePLMNavPublicServices::GetReservedByAttributeNameFromObject(NewAnalysis()).IsEmpty();
       return S_OK;
     },
     false},
    {"GetValueAsString",
     [](bool& done) {
       KORUnicodeString text("before");
       return Run(
           done, [&] { return KORCkeObjectAttrReadServices::GetValueAsString(NewAnalysis(), "PLM_ExternalID", text); },
           [&] { return text != "before"; });
     }},
    {"RetrieveTypeFromProxy",
     [](bool& done) {
       KORIType_var type = Type();
       return Run(
           done, [&] { return KORCkePLMCoreServices::RetrieveTypeFromProxy(Proxy(), type); },
           [&] { return !type.IsNull(); });
     }},
    {"FillAttributesFromProxyOrBusinessLogicOnObject",
     [](bool& done) {
       const auto analysis = NewAnalysis();
       return Run(
           done,
           [&] {
             return KORCkePLMCoreServices::FillAttributesFromProxyOrBusinessLogicOnObject(analysis, Type(), nullptr,
                                                                                          Proxy(), nullptr, 1);
           },
           [&] { return analysis->GetAttributes().Look("V_Name").has_value(); });
     }},
    {"GetListOfAttributes", [](bool& done) { return ListNames(done, &KORPLMMetaDataFrameModel::GetListOfAttributes); }},
    {"GetListOfModifiedAttributes",
     [](bool& done) { return ListNames(done, &KORPLMMetaDataFrameModel::GetListOfModifiedAttributes); }},
    {"GetAttributeParm",
     [](bool& done) {
       const auto model = EditedModel();
       KORICkeParm_var parameter = KORCkeGlobalFunctions::GetVolatileFactory()->CreateTextParm("before", "");
       return Run(
           done, [&] { return model->GetAttributeParm("attribute", parameter); },
           [&] {
             EXPECT_TRUE(parameter.IsNull() || parameter->RoleName() == "attribute");
             return !parameter.IsNull();
           });
     }},
};

class KnowledgeFaultsTest : public FaultKindsTest {};

TEST_P(KnowledgeFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfKnowledge, KnowledgeFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
