// Trees of nodes: which nodes objects get, and what the nodes show.
#include "platform/services/KORNavigTree.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORINavigateObject.h"
#include "platform/services/KORNodeExtension.h"
#include "platform/services/KORNodeForwarders.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

constexpr const char* ShownComponent = "KORNavigTreeTestShown";
constexpr const char* ShownNode = "KORNavigTreeTestShown_node";
constexpr const char* UnknownComponent = "KORNavigTreeTestUnknown";

/// An object that is shown under names; nothing for one whose node is not to be shown.
class Shown final : public KORImplements<KORINavigateObject> {
 public:
  using Names = std::optional<std::vector<const char*>>;

  explicit Shown(Names names, const char* component = ShownComponent)
      : _Names(std::move(names)), _Component(component) {}

  const char* GetComponentName() const override { return _Component; }
  KORListValKORUnicodeString* GetNodeNames() override {
    if (!_Names) return nullptr;
    auto* const names = new KORListValKORUnicodeString;
    for (const char* const name : *_Names) names->Append(name);
    return names;
  }
  KORListValKORBaseUnknown_var* GetChildObjects() override { return nullptr; }

  void SetNames(const Names& names) { _Names = names; }

 private:
  Names _Names;
  const char* _Component;
};
using Shown_var = KORHandle<Shown>;

Shown_var NewShown(const Shown::Names& names = {{"name"}}, const char* component = ShownComponent) {
  return Shown_var::Adopt(new Shown(names, component));
}

/// Gives the node an icon named after its text, and notes for which text it did so.
class IconByName final : public KORNodeExtension {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"KORNavigTreeTest.IconByName", KORUuid::OfName("KORNavigTreeTest.IconByName"),
                                          KORNodeExtension::MetaObject(), ENUMTypeOfClass::DataExtension};
    return &description;
  }
  void UpdateNodeDisplay(KORNavigInstance* instance) override {
    if (instance == nullptr) return;
    auto& node = dynamic_cast<KORGraphNode&>(*GetExtended());
    EXPECT_EQ(node.SetIcon("I_" + node.GetText()), S_OK);
    Order += std::string(node.GetText().Bytes()) + ' ';
  }
  static inline std::string Order;  // the texts of the nodes, with a blank behind each
};

const KORExtensionRegistration Element(ShownNode, KORINavigElement::ClassId(),
                                       &Tie_Construct<TIEKORINavigElement<IconByName>>);
const KORExtensionRegistration NodeCtrl(ShownNode, KORINavigNodeCtrl::ClassId(),
                                        &Tie_Construct<TIEKORINavigNodeCtrl<IconByName>>);

KORNavigInstance* InstanceOf(const Node_var& node) {
  return KORINavigElement_var(node)->GetAssociatedInstance();
}

class KORNavigTreeTest : public testing::Test {
 protected:
  KORNavigTreeTest() { IconByName::Order.clear(); }

  KORFreshSession _Session;
  KORNavigTree _Tree;
};

// Which nodes there are

TEST_F(KORNavigTreeTest, NodeBelongsToTheNodeComponentOfItsObject) {
  EXPECT_STREQ(_Tree.AddNode(NewShown())->GetComponentName(), ShownNode);
  EXPECT_STREQ(_Tree.AddNode(NewObject(UnknownComponent))->GetComponentName(), "KORNavigTreeTestUnknown_node");
}

TEST_F(KORNavigTreeTest, ObjectWithoutAComponentGetsAPlainNode) {
  EXPECT_STREQ(_Tree.AddNode(NewObject())->GetComponentName(), KORPlainNode);
}

TEST_F(KORNavigTreeTest, NodeStandsForItsObject) {
  for (const KORBaseUnknown_var& object : {KORBaseUnknown_var(NewShown()), NewObject()}) {
    const Node_var node = _Tree.AddNode(object);
    ASSERT_NE(InstanceOf(node), nullptr);
    EXPECT_TRUE(InstanceOf(node)->GetReference() == object);
    EXPECT_EQ(CountReferences(*InstanceOf(node)), 1u) << "that of the node";
  }
}

TEST_F(KORNavigTreeTest, NodesOfOneObjectAreNodesOfTheirOwn) {
  const KORBaseUnknown_var object(NewShown());
  const Node_var first = _Tree.AddNode(object);
  const Node_var second = _Tree.AddNode(object);
  EXPECT_FALSE(first == second);
  EXPECT_NE(InstanceOf(first), InstanceOf(second));
  EXPECT_TRUE(InstanceOf(first)->GetReference() == InstanceOf(second)->GetReference());
}

TEST_F(KORNavigTreeTest, NodeStandsBelowItsParentsInTheirOrder) {
  const Node_var first = _Tree.AddNode(NewObject());
  const Node_var second = _Tree.AddNode(NewObject());
  const Node_var node = _Tree.AddNode(NewObject(), {second, first});
  ASSERT_EQ(node->GetParentCount(), 2);
  EXPECT_EQ(node->GetParentNode(1), second.Get());
  EXPECT_EQ(node->GetParentNode(2), first.Get());
  EXPECT_EQ(first->GetParentCount(), 0);
}

// Life

TEST(KORNavigTreeLifeTest, NodesOutliveTheirTreeAndKeepTheirParentsAndObjects) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Node_var node;
  {
    KORNavigTree tree;
    const Node_var parent = tree.AddNode(NewObject("KORNavigTreeTestParent"));
    node = tree.AddNode(NewShown(), {parent});
    (void)tree.AddNode(NewShown(), {node});
    tree.Refresh();
  }
  ASSERT_EQ(node->GetParentCount(), 1);
  EXPECT_STREQ(KORBaseUnknown_var::Adopt(node->GetParentNode(1)->GetNodeObject())->GetComponentName(),
               "KORNavigTreeTestParent_node");
  EXPECT_FALSE(InstanceOf(node)->GetReference().IsNull());
  node = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORNavigTreeLifeTest, TreeKeepsItsNodesAndTheirObjects) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    KORNavigTree tree;
    (void)tree.AddNode(NewShown());
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 4) << "object, instance, node and extension";
    (void)tree.AddNode(NewObject());
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 8);
    tree.Refresh();
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 8);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORNavigTreeLifeTest, NodeWithoutAnExtensionKeepsNoObject) {
  KORNavigTree tree;
  const KORBaseUnknown_var object = NewObject(UnknownComponent);
  (void)tree.AddNode(object);
  EXPECT_EQ(CountReferences(*object), 1u);
}

// What the nodes show

TEST_F(KORNavigTreeTest, NothingIsShownUntilTheTreeIsRefreshed) {
  const Node_var node = _Tree.AddNode(NewShown({{"weld"}}));
  EXPECT_TRUE(node->GetText().IsEmpty());
  EXPECT_EQ(node->GetCalls(), Calls());
  _Tree.Refresh();
  EXPECT_EQ(node->GetText(), "weld");
  EXPECT_EQ(node->GetIcon(), "I_weld");
}

TEST_F(KORNavigTreeTest, NodesAreRefreshedInTheOrderInWhichTheyWereAdded) {
  const Node_var parent = _Tree.AddNode(NewShown({{"first"}}));
  (void)_Tree.AddNode(NewShown({{"second"}}), {parent});
  (void)_Tree.AddNode(NewShown({{"third"}}));
  _Tree.Refresh();
  EXPECT_EQ(IconByName::Order, "first second third ");
  _Tree.Refresh();
  EXPECT_EQ(IconByName::Order, "first second third first second third ");
}

struct TextRow {
  const char* Name;
  Shown::Names Names;
  const char* Text;
};

class NodeTextTest : public testing::TestWithParam<TextRow> {};

TEST_P(NodeTextTest, IsTheFirstNameOfTheObject) {
  for (const char* const component : {ShownComponent, ""}) {
    const KORFreshSession session;
    KORNavigTree tree;
    const Shown_var object = NewShown({{"before"}}, component);
    const Node_var node = tree.AddNode(object);
    tree.Refresh();
    EXPECT_EQ(node->GetText(), "before");
    object->SetNames(GetParam().Names);
    EXPECT_EQ(node->GetText(), "before");
    tree.Refresh();
    EXPECT_EQ(node->GetText(), GetParam().Text);
  }
}

INSTANTIATE_TEST_SUITE_P(Names, NodeTextTest,
                         testing::Values(TextRow{"One", {{"weld"}}, "weld"},
                                         TextRow{"OneOfSeveral", {{"weld", "glue"}}, "weld"},
                                         TextRow{"EmptyName", {{"", "glue"}}, ""},
                                         TextRow{"EmptyList", Shown::Names::value_type{}, ""},
                                         TextRow{"NoListLeavesTheText", std::nullopt, "before"}),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST_F(KORNavigTreeTest, ObjectsWithoutNamesAreShownWithoutText) {
  const Node_var node = _Tree.AddNode(NewObject(ShownComponent));
  _Tree.Refresh();
  EXPECT_TRUE(node->GetText().IsEmpty());
  EXPECT_EQ(node->GetIcon(), "I_");
}

TEST_F(KORNavigTreeTest, PlainNodeShowsItsTextAndNothingElse) {
  const Node_var node = _Tree.AddNode(NewShown({{"weld"}}, ""));
  _Tree.Refresh();
  EXPECT_EQ(node->GetText(), "weld");
  EXPECT_EQ(node->GetCalls(), Calls());
}

TEST_F(KORNavigTreeTest, NodeWithoutAnExtensionShowsNothing) {
  const Node_var node = _Tree.AddNode(NewShown({{"weld"}}, UnknownComponent));
  _Tree.Refresh();
  EXPECT_TRUE(node->GetText().IsEmpty());
  EXPECT_EQ(node->GetCalls(), Calls());
}

TEST_F(KORNavigTreeTest, NodeThatStandsForNothingAnyMoreLosesItsText) {
  const Node_var removed = _Tree.AddNode(NewShown({{"weld"}}));
  const Node_var cut_off = _Tree.AddNode(NewShown({{"glue"}}));
  const Node_var lost = _Tree.AddNode(NewShown({{"drill"}}));
  _Tree.Refresh();
  KORINavigElement_var(removed)->Remove();
  KORINavigNodeCtrl_var(cut_off)->Dereference();
  KORINavigNodeCtrl_var(lost)->PutAssociatedInstance(
      KORHandle<KORNavigInstance>::Adopt(new KORNavigInstance(NULL_var)).Get());
  _Tree.Refresh();
  for (const Node_var& node : {removed, cut_off, lost}) EXPECT_TRUE(node->GetText().IsEmpty());
  KORINavigNodeCtrl_var(cut_off)->Undereference();
  _Tree.Refresh();
  EXPECT_EQ(cut_off->GetText(), "glue");
}

}  // namespace
}  // namespace servicestest
