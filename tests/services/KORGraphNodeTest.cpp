// Nodes of the tree that remember what they were told to show.
#include "platform/services/KORGraphNode.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

using Mask = KORGraphNode::Mask;
using Masks = std::vector<Mask>;

TEST(KORGraphNodeTest, NewOneShowsNothing) {
  const Node_var node = NewNode("Analysis_node");
  EXPECT_STREQ(node->GetComponentName(), "Analysis_node");
  EXPECT_TRUE(node->GetIcon().IsEmpty());
  EXPECT_EQ(node->GetMasks(), Masks());
  EXPECT_TRUE(node->GetText().IsEmpty());
  EXPECT_EQ(node->GetCalls(), Calls());
  EXPECT_EQ(node->GetParentCount(), 0);
}

// Parents

TEST(KORGraphNodeTest, ParentsCountFromOneInTheOrderInWhichTheyWereAdded) {
  const Node_var first = NewNode();
  const Node_var second = NewNode();
  const Node_var node = NewNode();
  node->AddParent(first);
  node->AddParent(second);
  node->AddParent(first);
  ASSERT_EQ(node->GetParentCount(), 3);
  EXPECT_EQ(node->GetParentNode(1), first.Get());
  EXPECT_EQ(node->GetParentNode(2), second.Get());
  EXPECT_EQ(node->GetParentNode(3), first.Get());
}

TEST(KORGraphNodeTest, OutsideItsParentsThereIsNone) {
  const Node_var node = NewNode();
  for (const int position : {0, 1}) EXPECT_EQ(node->GetParentNode(position), nullptr) << position;
  node->AddParent(NewNode());
  for (const int position : {INT_MIN, -1, 0, 2, INT_MAX}) EXPECT_EQ(node->GetParentNode(position), nullptr) << position;
  EXPECT_NE(node->GetParentNode(1), nullptr);
}

TEST(KORGraphNodeTest, ParentComesWithoutAReference) {
  const Node_var parent = NewNode();
  const Node_var node = NewNode();
  node->AddParent(parent);
  EXPECT_EQ(CountReferences(*parent), 2u) << "that of the node";
  (void)node->GetParentNode(1);
  EXPECT_EQ(CountReferences(*parent), 2u);
}

TEST(KORGraphNodeTest, KeepsItsParentsAliveAndIsNotKeptByThem) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Node_var parent = NewNode();
  Node_var node = NewNode();
  node->AddParent(parent);
  const KORIGraphNode* const held = parent.Get();
  parent = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  EXPECT_EQ(node->GetParentNode(1), held);
  node = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORGraphNodeTest, ObjectIsTheNodeWithAReference) {
  const Node_var node = NewNode();
  KORBaseUnknown* const object = node->GetNodeObject();
  EXPECT_EQ(object, node->GetImpl(0));
  EXPECT_EQ(CountReferences(*node), 2u);
  EXPECT_EQ(object->Release(), 1u);
}

TEST(KORGraphNodeTest, IsReachedAsTheNodeThatTheTreeDraws) {
  const KORBaseUnknown_var node = NewNode();
  EXPECT_FALSE(KORIGraphNode_var(node).IsNull());
  EXPECT_TRUE(KORIGraphNode_var(NewObject()).IsNull());
}

// Icon, masks and text

TEST(KORGraphNodeTest, MasksLieOnEachOtherInTheirOrder) {
  const Node_var node = NewNode();
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  EXPECT_EQ(node->AddIconMask("I_First", 15, 8, 1), S_OK);
  EXPECT_EQ(node->AddIconMask("I_Second", 9, 12, 0), S_OK);
  EXPECT_EQ(node->AddIconMask("I_First", 15, 8, 1), S_OK);
  EXPECT_EQ(node->GetIcon(), "I_Icon");
  EXPECT_EQ(node->GetMasks(), (Masks{{"I_First", 15, 8, 1}, {"I_Second", 9, 12, 0}}))
      << "an equal one stays the only one";
}

TEST(KORGraphNodeTest, MasksDifferByEachOfTheirParts) {
  const Mask mask{"I_Mask", 15, 8, 1};
  EXPECT_EQ(mask, (Mask{"I_Mask", 15, 8, 1}));
  for (const Mask& other :
       {Mask{"I_Other", 15, 8, 1}, Mask{"I_Mask", 9, 8, 1}, Mask{"I_Mask", 15, 12, 1}, Mask{"I_Mask", 15, 8, 0}}) {
    EXPECT_FALSE(mask == other);
  }
}

TEST(KORGraphNodeTest, IconAnewTakesTheMasksAway) {
  const Node_var node = NewNode();
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  EXPECT_EQ(node->AddIconMask("I_Mask", 15, 8, 1), S_OK);
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  EXPECT_EQ(node->GetIcon(), "I_Icon");
  EXPECT_EQ(node->GetMasks(), Masks());
  EXPECT_EQ(node->AddIconMask("I_Mask", 9, 12, 1), S_OK);
  EXPECT_EQ(node->SetIcon("I_Other"), S_OK);
  EXPECT_EQ(node->GetIcon(), "I_Other");
  EXPECT_EQ(node->GetMasks(), Masks());
}

TEST(KORGraphNodeTest, RefreshLeavesWhatIsShown) {
  const Node_var node = NewNode();
  node->SetText("text");
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  EXPECT_EQ(node->AddIconMask("I_Mask", 15, 8, 1), S_OK);
  EXPECT_EQ(node->RefreshNodeImage(0), S_OK);
  EXPECT_EQ(node->RefreshNodeText(0), S_OK);
  EXPECT_EQ(node->GetText(), "text");
  EXPECT_EQ(node->GetIcon(), "I_Icon");
  EXPECT_EQ(node->GetMasks(), (Masks{{"I_Mask", 15, 8, 1}}));
}

TEST(KORGraphNodeTest, RemembersItsCallsInTheirOrder) {
  const Node_var node = NewNode();
  EXPECT_EQ(node->RefreshNodeText(0), S_OK);
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  EXPECT_EQ(node->AddIconMask("I_MaskLockByMeRef", 15, 8, 1), S_OK);
  EXPECT_EQ(node->AddIconMask("I_MaskNotLockByMeInst", -9, 12, 0), S_OK);
  EXPECT_EQ(node->RefreshNodeImage(7), S_OK);
  EXPECT_EQ(node->GetCalls(),
            (Calls{"RefreshNodeText(0)", "SetIcon(\"I_Icon\")", "AddIconMask(\"I_MaskLockByMeRef\", 15, 8, 1)",
                   "AddIconMask(\"I_MaskNotLockByMeInst\", -9, 12, 0)", "RefreshNodeImage(7)"}));
}

TEST(KORGraphNodeTest, QuestionsAreNoCallsToRemember) {
  const Node_var node = NewNode();
  node->AddParent(NewNode());
  (void)node->GetParentCount();
  (void)node->GetParentNode(1);
  node->GetNodeObject()->Release();
  (void)KORGraphNode::isPixmapNameValid("I_Mask");
  EXPECT_EQ(node->GetCalls(), Calls());
}

TEST(KORGraphNodeTest, ForgetsItsCallsAndNotWhatItShows) {
  const Node_var node = NewNode();
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  node->ForgetCalls();
  EXPECT_EQ(node->GetCalls(), Calls());
  EXPECT_EQ(node->GetIcon(), "I_Icon");
  EXPECT_EQ(node->RefreshNodeImage(0), S_OK);
  EXPECT_EQ(node->GetCalls(), (Calls{"RefreshNodeImage(0)"}));
}

// Names of images

class PixmapNameTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
};

TEST_F(PixmapNameTest, IsUsableAsItIs) {
  for (const char* const name : {"I_MaskLockByMeRef", "no such image", ""}) {
    EXPECT_EQ(KORGraphNode::isPixmapNameValid(name), name);
  }
}

TEST_F(PixmapNameTest, IsThatOfTheImageThatWasPutInItsPlaceLast) {
  KORGraphNode::ReplacePixmap("I_Mask", "I_First");
  EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_Mask"), "I_First");
  KORGraphNode::ReplacePixmap("I_Mask", "I_Second");
  EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_Mask"), "I_Second");
  EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_MASK"), "I_MASK");
}

TEST_F(PixmapNameTest, IsReplacedOnce) {
  KORGraphNode::ReplacePixmap("I_First", "I_Second");
  KORGraphNode::ReplacePixmap("I_Second", "I_First");
  EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_First"), "I_Second");
  EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_Second"), "I_First");
}

TEST_F(PixmapNameTest, IsReplacedInTheCurrentSessionAlone) {
  KORGraphNode::ReplacePixmap("I_Mask", "I_Outer");
  {
    const KORFreshSession inner;
    EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_Mask"), "I_Mask");
    KORGraphNode::ReplacePixmap("I_Mask", "I_Inner");
    EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_Mask"), "I_Inner");
  }
  EXPECT_EQ(KORGraphNode::isPixmapNameValid("I_Mask"), "I_Outer");
}

TEST_F(PixmapNameTest, NodesTakeTheNamesThatTheyAreGiven) {
  KORGraphNode::ReplacePixmap("I_Icon", "I_Other");
  const Node_var node = NewNode();
  EXPECT_EQ(node->SetIcon("I_Icon"), S_OK);
  EXPECT_EQ(node->AddIconMask("I_Icon", 15, 8, 1), S_OK);
  EXPECT_EQ(node->GetIcon(), "I_Icon");
  EXPECT_EQ(node->GetMasks(), (Masks{{"I_Icon", 15, 8, 1}}));
}

}  // namespace
}  // namespace servicestest
