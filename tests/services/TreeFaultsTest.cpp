// Faults in the operations of the tree and of its nodes, and in what objects tell of how they are shown.
#include <gtest/gtest.h>

#include <new>

#include "platform/base/KORStatus.h"
#include "platform/model/KORIAlias.h"
#include "platform/services/KORGraphNode.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORIPLMRepUIManagement.h"
#include "platform/services/KORNavigInstance.h"
#include "platform/services/KORNodeExtension.h"
#include "platform/services/KORPLMEditabilityServices.h"
#include "platform/services/KORPathElement.h"
#include "platform/services/KORSextantInTreeEnabler.h"
#include "tests/services/FaultKinds.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

Node_var NodeBelowAnother() {
  const Node_var node = NewNode();
  node->AddParent(NewNode());
  return node;
}

const OperationRow OperationsOfNodes[] = {
    {"GetParentCount",
     [](bool& done) {
       const Node_var node = NodeBelowAnother();
       done = false;
       done = node->GetParentCount() == 1;
       return S_OK;
     },
     false},
    {"GetParentNode",
     [](bool& done) {
       const Node_var node = NodeBelowAnother();
       done = false;
       done = node->GetParentNode(1) != nullptr;
       return S_OK;
     },
     false},
    {"GetNodeObject",
     [](bool& done) {
       const Node_var node = NewNode();
       return HandOut<KORBaseUnknown>(done, [&](KORBaseUnknown*& out) {
         out = nullptr;
         out = node->GetNodeObject();
         return S_OK;
       });
     },
     false},
    {"SetIcon",
     [](bool& done) {
       const Node_var node = NewNode();
       EXPECT_EQ(node->AddIconMask("I_Mask", 15, 8, 1), S_OK);
       node->ForgetCalls();
       return Run(
           done, [&] { return node->SetIcon("I_Icon"); },
           [&] {
             const bool is_set = node->GetIcon() == "I_Icon";
             EXPECT_EQ(node->GetMasks().empty(), is_set);
             EXPECT_EQ(node->GetCalls().size(), is_set ? 1u : 0u);
             return is_set;
           });
     }},
    {"AddIconMask",
     [](bool& done) {
       const Node_var node = NewNode();
       return Run(
           done, [&] { return node->AddIconMask("I_Mask", 15, 8, 1); },
           [&] {
             EXPECT_EQ(node->GetCalls().size(), node->GetMasks().size());
             return !node->GetMasks().empty();
           });
     }},
    {"RefreshNodeImage",
     [](bool& done) {
       const Node_var node = NewNode();
       return Run(
           done, [&] { return node->RefreshNodeImage(0); }, [&] { return !node->GetCalls().empty(); });
     }},
    {"RefreshNodeText",
     [](bool& done) {
       const Node_var node = NewNode();
       return Run(
           done, [&] { return node->RefreshNodeText(0); }, [&] { return !node->GetCalls().empty(); });
     }},
    {"isPixmapNameValid",
     [](bool& done) {
       done = false;
       done = KORGraphNode::isPixmapNameValid("I_Mask") == "I_Mask";
       return S_OK;
     },
     false},
    {"NodeIconDisplay",
     [](bool& done) {
       const Node_var node = NewNode();
       return Run(
           done, [&] { return KORSextantInTreeEnabler::NodeIconDisplay(NewObject(), node.Get(), "I_Icon"); },
           [&] { return node->GetIcon() == "I_Icon"; });
     }},
    {"GetAssociatedInstance",
     [](bool& done) {
       const Node_var node = NewNode(KORPlainNode);
       const auto instance = KORHandle<KORNavigInstance>::Adopt(new KORNavigInstance(NewObject()));
       KORINavigNodeCtrl_var(node)->PutAssociatedInstance(instance.Get());
       done = false;
       done = KORINavigElement_var(node)->GetAssociatedInstance() == instance.Get();
       return S_OK;
     },
     false},
};

const OperationRow OperationsOnObjects[] = {
    {"KORNavigInstance::GetReference",
     [](bool& done) {
       const auto instance = KORHandle<KORNavigInstance>::Adopt(new KORNavigInstance(NewObject()));
       done = false;
       done = !instance->GetReference().IsNull();
       return S_OK;
     },
     false},
    {"GetEditabilityStatus",
     [](bool& done) {
       KORListValKORBaseUnknown_var objects;
       objects.Append(NewObject());
       KORListValKORBoolean editable;
       return Run(
           done, [&] { return KORPLMEditabilityServices::GetEditabilityStatus(objects, editable, nullptr); },
           [&] { return editable.Size() == 1; });
     }},
    {"GetAlias",
     [](bool& done) {
       const Analysis_var analysis = NewAnalysis();
       analysis->GetContent().Alias = "alias";
       done = false;
       done = KORIAlias_var(analysis)->GetAlias() == "alias";
       return S_OK;
     },
     false},
    {"KORIconAdaptor::GetIconName",
     [](bool& done) {
       KORIconAdaptor icon;
       EXPECT_EQ(icon.SetIconName("I_Icon"), S_OK);
       KORUnicodeString name("before");
       return Run(
           done, [&] { return icon.GetIconName(name); },
           [&] {
             EXPECT_TRUE(name == "before" || name == "I_Icon");
             return name != "before";
           });
     }},
    {"KORIconAdaptor::SetIconName",
     [](bool& done) {
       KORIconAdaptor icon;
       return Run(
           done, [&] { return icon.SetIconName("I_Icon"); },
           [&] {
             KORUnicodeString name;
             EXPECT_EQ(icon.GetIconName(name), S_OK);
             return name == "I_Icon";
           });
     }},
    {"KORPLMRepUIManagementAdapter::GetRepUIMode",
     [](bool& done) {
       KORPLMRepUIManagementAdapter management;
       int mode = 7;
       return Run(
           done, [&] { return management.GetRepUIMode(mode); },
           [&] {
             EXPECT_TRUE(mode == 7 || mode == 0);
             return mode != 7;
           });
     }},
    {"KORPathElement",
     [](bool& done) {
       const KORBaseUnknown_var object = NewObject();
       const auto path = KORHandle<KORPathElement>::Adopt(new (std::nothrow) KORPathElement(object.Get()));
       done = !path.IsNull();
       EXPECT_EQ(CountReferences(*object), done ? 2u : 1u);
       return S_OK;
     },
     false, false},
};

class TreeFaultsTest : public FaultKindsTest {};

TEST_P(TreeFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfNodes, TreeFaultsTest, testing::ValuesIn(OperationsOfNodes), NameOfOperation());
INSTANTIATE_TEST_SUITE_P(OnObjects, TreeFaultsTest, testing::ValuesIn(OperationsOnObjects), NameOfOperation());

}  // namespace
}  // namespace servicestest
