// The behaviour of nodes, and the ways to it from the interfaces of a node, operation by operation.
#include "platform/services/KORNodeExtension.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <utility>

#include "platform/base/KORFillDictionary.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORNodeForwarders.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

using Instance_var = KORHandle<KORNavigInstance>;

Instance_var NewInstance(const KORBaseUnknown_var& object = NewObject()) {
  return Instance_var::Adopt(new KORNavigInstance(object));
}

// What a node stands for

TEST(KORNavigInstanceTest, GivesItsObjectAndKeepsItAlive) {
  KORBaseUnknown_var object = NewObject("Object");
  const Instance_var instance = NewInstance(object);
  EXPECT_TRUE(instance->GetReference() == object);
  object = nullptr;
  EXPECT_STREQ(instance->GetReference()->GetComponentName(), "Object");
}

TEST(KORNavigInstanceTest, MayHaveLostItsObject) {
  EXPECT_TRUE(NewInstance(NULL_var)->GetReference().IsNull());
}

// Plain nodes

class PlainNodeTest : public testing::Test {
 protected:
  const Node_var _Node = NewNode(KORPlainNode);
  const KORINavigElement_var _Element = _Node;
  const KORINavigModify_var _Modify = _Node;
  const KORINavigNodeCtrl_var _NodeCtrl = _Node;
};

TEST_F(PlainNodeTest, OffersTheThreeInterfacesOfNodes) {
  ASSERT_FALSE(_Element.IsNull());
  ASSERT_FALSE(_Modify.IsNull());
  ASSERT_FALSE(_NodeCtrl.IsNull());
  EXPECT_TRUE(_Element == _Node);
  EXPECT_TRUE(KORINavigElement_var(_Modify) == _NodeCtrl);
}

TEST_F(PlainNodeTest, StartsAlone) {
  EXPECT_EQ(_Element->GetAssociatedInstance(), nullptr);
  EXPECT_EQ(_Element->GetFatherContainer(), nullptr);
  EXPECT_EQ(_Element->GetController(), nullptr);
  EXPECT_EQ(_Element->GetMarked(), 0);
  EXPECT_EQ(_Modify->IsSelected(), 0);
}

TEST_F(PlainNodeTest, LeavesItToTheTreeWhatIsExpanded) {
  EXPECT_EQ(_NodeCtrl->GetExpansionMode(), 0);
}

TEST_F(PlainNodeTest, IsMarkedAndNotMarkedAgain) {
  for (const int marked : {1, 0, 1}) {
    _Element->SetMarked(marked);
    EXPECT_EQ(_Element->GetMarked(), marked);
    EXPECT_EQ(_Modify->IsSelected(), 0) << "a mark is no selection";
  }
}

TEST_F(PlainNodeTest, IsSelectedAndNotSelectedAgain) {
  for (const int selected : {1, 0, 1}) {
    _Modify->Select(selected);
    EXPECT_EQ(_Modify->IsSelected(), selected);
    EXPECT_EQ(_Element->GetMarked(), 0) << "a selection is no mark";
  }
}

TEST_F(PlainNodeTest, StandsForTheInstanceThatWasPutLast) {
  for (const Instance_var& instance : {NewInstance(), NewInstance(), Instance_var()}) {
    _NodeCtrl->PutAssociatedInstance(instance.Get());
    EXPECT_EQ(_Element->GetAssociatedInstance(), instance.Get());
  }
}

TEST_F(PlainNodeTest, KeepsItsInstanceAlive) {
  Instance_var instance = NewInstance();
  _NodeCtrl->PutAssociatedInstance(instance.Get());
  EXPECT_EQ(CountReferences(*instance), 2u);
  (void)_Element->GetAssociatedInstance();
  EXPECT_EQ(CountReferences(*instance), 2u) << "it is given without a reference";
  const long before = KORBaseUnknown::CountLiveObjects();
  instance = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
  _NodeCtrl->PutAssociatedInstance(nullptr);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before - 2) << "the instance and its object";
}

TEST_F(PlainNodeTest, MayPutItsOwnInstanceAgain) {
  _NodeCtrl->PutAssociatedInstance(NewInstance().Get());
  KORNavigInstance* const instance = _Element->GetAssociatedInstance();
  _NodeCtrl->PutAssociatedInstance(instance);
  ASSERT_EQ(_Element->GetAssociatedInstance(), instance);
  EXPECT_FALSE(instance->GetReference().IsNull());
}

TEST_F(PlainNodeTest, IsCutOffFromItsInstanceUntilItIsJoinedAgain) {
  const Instance_var first = NewInstance();
  const Instance_var second = NewInstance();
  _NodeCtrl->PutAssociatedInstance(first.Get());
  _NodeCtrl->Dereference();
  EXPECT_EQ(_Element->GetAssociatedInstance(), nullptr);
  _NodeCtrl->Dereference();
  _NodeCtrl->Undereference();
  EXPECT_EQ(_Element->GetAssociatedInstance(), first.Get());
  _NodeCtrl->Dereference();
  _NodeCtrl->PutAssociatedInstance(second.Get());
  EXPECT_EQ(_Element->GetAssociatedInstance(), nullptr);
  _NodeCtrl->Undereference();
  EXPECT_EQ(_Element->GetAssociatedInstance(), second.Get());
}

TEST_F(PlainNodeTest, StandsForNothingOnceItIsRemoved) {
  const Instance_var instance = NewInstance();
  _NodeCtrl->PutAssociatedInstance(instance.Get());
  _Element->SetMarked(1);
  _Modify->Select(1);
  _Element->Remove();
  EXPECT_EQ(_Element->GetAssociatedInstance(), nullptr);
  EXPECT_EQ(CountReferences(*instance), 1u);
  EXPECT_EQ(_Element->GetMarked(), 0);
  EXPECT_EQ(_Modify->IsSelected(), 0);
  _NodeCtrl->Undereference();
  EXPECT_EQ(_Element->GetAssociatedInstance(), nullptr) << "nothing is left to be joined with";
}

TEST_F(PlainNodeTest, IsNotCutOffFromWhatItStandsForAfterItsRemoval) {
  const Instance_var instance = NewInstance();
  _NodeCtrl->PutAssociatedInstance(instance.Get());
  _NodeCtrl->Dereference();
  _Element->Remove();
  _NodeCtrl->PutAssociatedInstance(instance.Get());
  EXPECT_EQ(_Element->GetAssociatedInstance(), instance.Get());
}

TEST_F(PlainNodeTest, GoesWithItsExtensionAndItsInstance) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Node_var node = NewNode(KORPlainNode);
  KORINavigNodeCtrl_var(node)->PutAssociatedInstance(NewInstance().Get());
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 4) << "node, extension, instance and object";
  node = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

// An operation of a plain node that does nothing.
struct QuietRow {
  const char* Name;
  void (*Call)(const KORBaseUnknown_var& node);
};

class QuietOperationTest : public testing::TestWithParam<QuietRow> {};

TEST_P(QuietOperationTest, LeavesAPlainNodeAsItIs) {
  const Node_var node = NewNode(KORPlainNode);
  const Instance_var instance = NewInstance();
  KORINavigNodeCtrl_var(node)->PutAssociatedInstance(instance.Get());
  const KORINavigElement_var element = node;
  const KORINavigModify_var modify = node;
  element->SetMarked(1);
  modify->Select(1);

  GetParam().Call(node);

  EXPECT_EQ(node->GetCalls(), Calls());
  EXPECT_TRUE(node->GetText().IsEmpty());
  EXPECT_EQ(element->GetAssociatedInstance(), instance.Get());
  EXPECT_EQ(CountReferences(*instance), 2u);
  EXPECT_EQ(element->GetMarked(), 1);
  EXPECT_EQ(modify->IsSelected(), 1);
}

const QuietRow QuietOperations[] = {
    {"ProcessAfterSelect", [](const KORBaseUnknown_var& node) { KORINavigElement_var(node)->ProcessAfterSelect(); }},
    {"ProcessAfterExtSelect",
     [](const KORBaseUnknown_var& node) { KORINavigElement_var(node)->ProcessAfterExtSelect(); }},
    {"ProcessAfterAction", [](const KORBaseUnknown_var& node) { KORINavigElement_var(node)->ProcessAfterAction(); }},
    {"ProcessAfterExpand", [](const KORBaseUnknown_var& node) { KORINavigElement_var(node)->ProcessAfterExpand(); }},
    {"ProcessAfterMethod",
     [](const KORBaseUnknown_var& node) { KORINavigElement_var(node)->ProcessAfterMethod("Rename"); }},
    {"Update", [](const KORBaseUnknown_var& node) { KORINavigElement_var(node)->Update(); }},
    {"UpdateNodeDisplay",
     [](const KORBaseUnknown_var& node) {
       KORINavigModify_var(node)->UpdateNodeDisplay(NewInstance().Get());
       KORINavigModify_var(node)->UpdateNodeDisplay(nullptr);
     }},
    {"ModifyShortHelp",
     [](const KORBaseUnknown_var& node) {
       KORUnicodeString help("help");
       KORINavigModify_var(node)->ModifyShortHelp(help);
       EXPECT_EQ(help, "help");
     }},
};

INSTANTIATE_TEST_SUITE_P(Operations, QuietOperationTest, testing::ValuesIn(QuietOperations),
                         [](const auto& row) { return std::string(row.param.Name); });

// Extensions of nodes

/// What a recording extension was called with, and what it gives.
struct Record {
  static constexpr int Marked = 11;
  static constexpr int Selected = 12;
  static constexpr int ExpansionMode = 13;

  Calls Seen;
  const KORNavigInstance* SeenInstance = nullptr;
  KORBaseUnknown FatherContainer;
  KORBaseUnknown Controller;
  KORNavigInstance AssociatedInstance{NULL_var};
};

class IRecorder : public KORInterface<IRecorder> {
 public:
  static constexpr const char* InterfaceName = "KORNodeExtensionTest.IRecorder";
  virtual Record& GetRecord() = 0;
};
using IRecorder_var = KORHandle<IRecorder>;

/// Records which of its operations was called, by the name under which it stands here.
class RecordingExtension final : public KORNodeExtension, public KORImplements<IRecorder> {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"KORNodeExtensionTest.RecordingExtension",
                                          KORUuid::OfName("KORNodeExtensionTest.RecordingExtension"),
                                          KORNodeExtension::MetaObject(), ENUMTypeOfClass::DataExtension};
    return &description;
  }
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }

  Record& GetRecord() override { return _Record; }

  void Update() override { See("Update()"); }
  void ProcessAfterSelect() override { See("ProcessAfterSelect()"); }
  void ProcessAfterExtSelect() override { See("ProcessAfterExtSelect()"); }
  void ProcessAfterAction() override { See("ProcessAfterAction()"); }
  void ProcessAfterExpand() override { See("ProcessAfterExpand()"); }
  void ProcessAfterMethod(const KORUnicodeString& method) override {
    See("ProcessAfterMethod(" + std::string(method.Bytes()) + ")");
  }
  KORNavigInstance* GetAssociatedInstance() override {
    See("GetAssociatedInstance()");
    return &_Record.AssociatedInstance;
  }
  void SetMarked(int marked) override { See("SetMarked(" + std::to_string(marked) + ")"); }
  int GetMarked() override {
    See("GetMarked()");
    return Record::Marked;
  }
  void Dereference() override { See("Dereference()"); }
  void Undereference() override { See("Undereference()"); }
  void PutAssociatedInstance(KORNavigInstance* instance) override {
    See("PutAssociatedInstance(instance)");
    _Record.SeenInstance = instance;
  }
  int GetExpansionMode() override {
    See("GetExpansionMode()");
    return Record::ExpansionMode;
  }
  void UpdateNodeDisplay(KORNavigInstance* instance) override {
    See("UpdateNodeDisplay(instance)");
    _Record.SeenInstance = instance;
  }
  void ModifyShortHelp(KORUnicodeString& text) override {
    See("ModifyShortHelp(" + std::string(text.Bytes()) + ")");
    text = "changed help";
  }
  void Select(int selected) override { See("Select(" + std::to_string(selected) + ")"); }
  int IsSelected() override {
    See("IsSelected()");
    return Record::Selected;
  }
  void Remove() override { See("Remove()"); }
  KORBaseUnknown* GetFatherContainer() override {
    See("GetFatherContainer()");
    return &_Record.FatherContainer;
  }
  KORBaseUnknown* GetController() override {
    See("GetController()");
    return &_Record.Controller;
  }

 private:
  void See(std::string call) { _Record.Seen.push_back(std::move(call)); }

  Record _Record;
};

constexpr const char* RecordingNode = "KORNodeExtensionTestRecording_node";
const KORExtensionRegistration Element(RecordingNode, KORINavigElement::ClassId(),
                                       &Tie_Construct<TIEKORINavigElement<RecordingExtension>>);
const KORExtensionRegistration Modify(RecordingNode, KORINavigModify::ClassId(),
                                      &Tie_Construct<TIEKORINavigModify<RecordingExtension>>);
const KORExtensionRegistration NodeCtrl(RecordingNode, KORINavigNodeCtrl::ClassId(),
                                        &Tie_Construct<TIEKORINavigNodeCtrl<RecordingExtension>>);
const KORExtensionRegistration Recorder(RecordingNode, IRecorder::ClassId(),
                                        &KORFillDictionary::ToCreateBOA<IRecorder, RecordingExtension>);

/// An operation of a node's interface.
template <class Interface>
struct ForwardRow {
  const char* Recorded;                                // the one call that it becomes
  bool (*Call)(Interface& forwarder, Record& record);  // true if what comes out is what the extension gave
};

// Names a row by the operation.
struct NameOfOperation {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    const std::string recorded = row.param.Recorded;
    return recorded.substr(0, recorded.find('('));
  }
};

template <class Interface>
class ForwarderTest : public testing::TestWithParam<ForwardRow<Interface>> {
 protected:
  // Calls the operation, and looks for what reached the one extension of the node.
  static void CheckForwarding() {
    const ForwardRow<Interface>& row = testing::TestWithParam<ForwardRow<Interface>>::GetParam();
    const Node_var node = NewNode(RecordingNode);
    const Node_var other = NewNode(RecordingNode);
    const IRecorder_var recorder = node;
    Record& record = recorder->GetRecord();
    const KORHandle<Interface> forwarder = node;
    EXPECT_TRUE(row.Call(*forwarder, record));
    EXPECT_EQ(record.Seen, Calls{row.Recorded});
    EXPECT_TRUE(row.Call(*KORHandle<Interface>(node), record)) << "by another forwarder of the node";
    EXPECT_EQ(record.Seen, (Calls{row.Recorded, row.Recorded}));
    EXPECT_EQ(IRecorder_var(other)->GetRecord().Seen, Calls());
  }
};

class NavigElementForwarderTest : public ForwarderTest<KORINavigElement> {};
class NavigModifyForwarderTest : public ForwarderTest<KORINavigModify> {};
class NavigNodeCtrlForwarderTest : public ForwarderTest<KORINavigNodeCtrl> {};

TEST_P(NavigElementForwarderTest, ReachesTheOperationOfItsNameAndNoOther) {
  CheckForwarding();
}
TEST_P(NavigModifyForwarderTest, ReachesTheOperationOfItsNameAndNoOther) {
  CheckForwarding();
}
TEST_P(NavigNodeCtrlForwarderTest, ReachesTheOperationOfItsNameAndNoOther) {
  CheckForwarding();
}

// Calls an operation that gives nothing.
template <class Interface, class... Parameters, class... Arguments>
bool Do(Interface& forwarder, void (Interface::*operation)(Parameters...), Arguments&&... arguments) {
  (forwarder.*operation)(std::forward<Arguments>(arguments)...);
  return true;
}

const ForwardRow<KORINavigElement> NavigElementOperations[] = {
    {"ProcessAfterSelect()",
     [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::ProcessAfterSelect); }},
    {"ProcessAfterExtSelect()",
     [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::ProcessAfterExtSelect); }},
    {"ProcessAfterAction()",
     [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::ProcessAfterAction); }},
    {"ProcessAfterExpand()",
     [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::ProcessAfterExpand); }},
    {"ProcessAfterMethod(Rename)",
     [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::ProcessAfterMethod, "Rename"); }},
    {"GetFatherContainer()",
     [](KORINavigElement& node, Record& record) { return node.GetFatherContainer() == &record.FatherContainer; }},
    {"Update()", [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::Update); }},
    {"GetController()",
     [](KORINavigElement& node, Record& record) { return node.GetController() == &record.Controller; }},
    {"GetAssociatedInstance()",
     [](KORINavigElement& node, Record& record) { return node.GetAssociatedInstance() == &record.AssociatedInstance; }},
    {"Remove()", [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::Remove); }},
    {"SetMarked(5)", [](KORINavigElement& node, Record&) { return Do(node, &KORINavigElement::SetMarked, 5); }},
    {"GetMarked()", [](KORINavigElement& node, Record&) { return node.GetMarked() == Record::Marked; }},
};
static_assert(std::size(NavigElementOperations) == 12);

const ForwardRow<KORINavigModify> NavigModifyOperations[] = {
    {"UpdateNodeDisplay(instance)",
     [](KORINavigModify& node, Record& record) {
       KORNavigInstance given(NULL_var);
       node.UpdateNodeDisplay(&given);
       return record.SeenInstance == &given;
     }},
    {"ModifyShortHelp(help)",
     [](KORINavigModify& node, Record&) {
       KORUnicodeString help("help");
       node.ModifyShortHelp(help);
       return help == "changed help";
     }},
    {"Select(5)", [](KORINavigModify& node, Record&) { return Do(node, &KORINavigModify::Select, 5); }},
    {"IsSelected()", [](KORINavigModify& node, Record&) { return node.IsSelected() == Record::Selected; }},
};
static_assert(std::size(NavigModifyOperations) == 4);

const ForwardRow<KORINavigNodeCtrl> NavigNodeCtrlOperations[] = {
    {"Dereference()", [](KORINavigNodeCtrl& node, Record&) { return Do(node, &KORINavigNodeCtrl::Dereference); }},
    {"Undereference()", [](KORINavigNodeCtrl& node, Record&) { return Do(node, &KORINavigNodeCtrl::Undereference); }},
    {"PutAssociatedInstance(instance)",
     [](KORINavigNodeCtrl& node, Record& record) {
       KORNavigInstance given(NULL_var);
       node.PutAssociatedInstance(&given);
       return record.SeenInstance == &given;
     }},
    {"GetExpansionMode()",
     [](KORINavigNodeCtrl& node, Record&) { return node.GetExpansionMode() == Record::ExpansionMode; }},
};
static_assert(std::size(NavigNodeCtrlOperations) == 4);

INSTANTIATE_TEST_SUITE_P(Operations, NavigElementForwarderTest, testing::ValuesIn(NavigElementOperations),
                         NameOfOperation());
INSTANTIATE_TEST_SUITE_P(Operations, NavigModifyForwarderTest, testing::ValuesIn(NavigModifyOperations),
                         NameOfOperation());
INSTANTIATE_TEST_SUITE_P(Operations, NavigNodeCtrlForwarderTest, testing::ValuesIn(NavigNodeCtrlOperations),
                         NameOfOperation());

/// Remembers for which instance it was to show the node.
class DisplayingExtension final : public KORNodeExtension, public KORImplements<IRecorder> {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"KORNodeExtensionTest.DisplayingExtension",
                                          KORUuid::OfName("KORNodeExtensionTest.DisplayingExtension"),
                                          KORNodeExtension::MetaObject(), ENUMTypeOfClass::DataExtension};
    return &description;
  }
  Record& GetRecord() override { return _Record; }
  void UpdateNodeDisplay(KORNavigInstance* instance) override {
    _Record.Seen.emplace_back("UpdateNodeDisplay");
    _Record.SeenInstance = instance;
  }

 private:
  Record _Record;
};

TEST(KORNodeExtensionTest, UpdateHasTheNodeShownForItsInstance) {
  constexpr const char* Component = "KORNodeExtensionTestDisplaying_node";
  const KORExtensionRegistration element(Component, KORINavigElement::ClassId(),
                                         &Tie_Construct<TIEKORINavigElement<DisplayingExtension>>);
  const KORExtensionRegistration node_ctrl(Component, KORINavigNodeCtrl::ClassId(),
                                           &Tie_Construct<TIEKORINavigNodeCtrl<DisplayingExtension>>);
  const KORExtensionRegistration recorder(Component, IRecorder::ClassId(),
                                          &KORFillDictionary::ToCreateBOA<IRecorder, DisplayingExtension>);
  const Node_var node = NewNode(Component);
  const Instance_var instance = NewInstance();
  const IRecorder_var recorded = node;
  const Record& record = recorded->GetRecord();
  KORINavigNodeCtrl_var(node)->PutAssociatedInstance(instance.Get());
  KORINavigElement_var(node)->Update();
  EXPECT_EQ(record.Seen, Calls{"UpdateNodeDisplay"});
  EXPECT_EQ(record.SeenInstance, instance.Get());
  KORINavigNodeCtrl_var(node)->Dereference();
  KORINavigElement_var(node)->Update();
  EXPECT_EQ(record.Seen, (Calls{"UpdateNodeDisplay", "UpdateNodeDisplay"}));
  EXPECT_EQ(record.SeenInstance, nullptr) << "a node that is cut off is shown for nothing";
}

TEST(KORNodeExtensionTest, IsDescribedAsAnExtensionWithState) {
  EXPECT_STREQ(KORNodeExtension::ClassName(), "KORNodeExtension");
  EXPECT_EQ(KORNodeExtension::ClassId(), KORNodeExtension::MetaObject()->Identifier);
  EXPECT_EQ(KORNodeExtension::MetaObject()->Kind, ENUMTypeOfClass::DataExtension);
  EXPECT_EQ(KORNodeExtension::MetaObject()->Base, KORBaseUnknown::MetaObject());
  EXPECT_EQ(KORNodeExtension().GetMetaObject(), KORNodeExtension::MetaObject());
  const KORINavigElement_var element = NewNode(KORPlainNode);
  EXPECT_EQ(element->GetMetaObject()->Implementation, KORNodeExtension::MetaObject());
}

}  // namespace
}  // namespace servicestest
