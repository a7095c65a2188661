// What the node of an analysis shows: its icon and the masks for who has reserved the analysis and its instance.
#include <ostream>
#include <string>

#include "platform/services/KORAdpVersioning.h"
#include "tests/presentation/PresentationTest.h"
#include "tests/support/ServiceTest.h"

namespace presentationtest {
namespace {

using support::RowName;

// ---- Reservations ----

// Users for whom something is reserved; null: for nobody. "anna" is logged in.
struct ReservationRow {
  const char* name;
  const char* of_reference;
  const char* of_instance;
  std::string masks;
};

void PrintTo(const ReservationRow& row, std::ostream* out) {
  *out << row.name;
}

void ReserveFor(KORPLMObject& object, const char* user) {
  if (user != nullptr) object.Reserve(user);
}

class ReservationDisplayTest : public PresentationRowTest<ReservationRow> {
 protected:
  ReservationDisplayTest() {
    ReserveFor(*_Place.Analysis, GetParam().of_reference);
    ReserveFor(RecordOf(_Place.Instance), GetParam().of_instance);
  }

  Place _Place;
};

TEST_P(ReservationDisplayTest, MasksTheNodeOfAnInstance) {
  EXPECT_EQ(CallsOfUpdate(NewNode(_Place.Instance), _Place.Instance),
            Join({OpenIcon, GetParam().masks.c_str(), ImageRefresh, TextRefresh}));
}

TEST_P(ReservationDisplayTest, LeavesTheNodeOfTheReferenceWithoutMasks) {
  EXPECT_EQ(CallsOfUpdate(NewNode(_Place.Analysis), _Place.Analysis), Join({OpenIcon, ImageRefresh, TextRefresh}));
}

TEST_P(ReservationDisplayTest, IsForgottenOnceItIsTakenAway) {
  const Node_var node = NewNode(_Place.Instance);
  Update(node, _Place.Instance);
  _Place.Analysis->Unreserve();
  RecordOf(_Place.Instance).Unreserve();
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), Join({OpenIcon, ImageRefresh, TextRefresh}));
  EXPECT_TRUE(node->GetMasks().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Users, ReservationDisplayTest,
    testing::Values(
        ReservationRow{"Nobody", nullptr, nullptr, ""},
        ReservationRow{"ReferenceByMe", "anna", nullptr, MyReferenceMask},
        ReservationRow{"ReferenceByOthers", "bert", nullptr, OthersReferenceMask},
        ReservationRow{"InstanceByMe", nullptr, "anna", MyInstanceMask},
        ReservationRow{"InstanceByOthers", nullptr, "bert", OthersInstanceMask},
        ReservationRow{"BothByMe", "anna", "anna", Join({MyReferenceMask, MyInstanceMask})},
        ReservationRow{"BothByOthers", "bert", "bert", Join({OthersReferenceMask, OthersInstanceMask})},
        ReservationRow{"ReferenceByMeInstanceByOthers", "anna", "bert", Join({MyReferenceMask, OthersInstanceMask})},
        ReservationRow{"ReferenceByOthersInstanceByMe", "bert", "anna", Join({OthersReferenceMask, MyInstanceMask})}),
    RowName());

class NodeDisplayTest : public PresentationTest {
 protected:
  // The masks alone that a node for the place's instance gets.
  std::string MasksOfInstance() const {
    const Node_var node = NewNode(_Place.Instance);
    Update(node, _Place.Instance);
    std::string masks;
    for (const KORGraphNode::Mask& mask : node->GetMasks()) masks += "[" + std::string(mask.Name.Bytes()) + "]";
    return masks;
  }

  Place _Place;
};

TEST_F(NodeDisplayTest, WithNobodyLoggedInEveryReservationIsOfOthers) {
  _Place.Analysis->Reserve("anna");
  RecordOf(_Place.Instance).Reserve("bert");
  _Session.SetCurrentUserId("");
  EXPECT_EQ(MasksOfInstance(), "[I_MaskNotLockByMeRef][I_MaskNotLockByMeInst]");
}

TEST_F(NodeDisplayTest, FollowsTheUserWhoIsLoggedIn) {
  _Place.Analysis->Reserve("anna");
  EXPECT_EQ(MasksOfInstance(), "[I_MaskLockByMeRef]");
  _Session.SetCurrentUserId("bert");
  EXPECT_EQ(MasksOfInstance(), "[I_MaskNotLockByMeRef]");
}

TEST_F(NodeDisplayTest, ReservationThatCannotBeReadShowsNoMask) {
  for (KORPLMObject* const object : {&RecordOf(_Place.Analysis), &RecordOf(_Place.Instance)}) {
    object->Reserve("anna");
    object->GetAttributes().Set(KORReservedAttribute, KORUnicodeString("true"));
  }
  EXPECT_EQ(MasksOfInstance(), "");
}

TEST_F(NodeDisplayTest, InstanceOfAnotherRepresentationShowsItsOwnReservationAlone) {
  const PLMIRepReference_var drawing = NewDrawing("Sketch");
  const PLMIRepInstance_var instance = Attach(_Place.Operation, drawing);
  RecordOf(drawing).Reserve("anna");
  RecordOf(instance).Reserve("anna");
  const auto node = Node_var::Adopt(new KORGraphNode(InstanceNodeComponent));
  EXPECT_EQ(CallsOfUpdate(node, instance), Join({OpenIcon, MyInstanceMask, ImageRefresh, TextRefresh}));
}

TEST_F(NodeDisplayTest, RevisionsShowNowhere) {
  const Node_var node = NewNode(_Place.Instance);
  _Place.Analysis->GetContent().IsLastMajorRevision = false;
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), Join({OpenIcon, ImageRefresh, TextRefresh}));
  EXPECT_EQ(KORVersioningDatabase::Current().GetQueryCount(), 0);
  int remembered = -1;
  EXPECT_EQ(_Place.Analysis->GetRevisionStatus(remembered), S_OK);
  EXPECT_EQ(remembered, 0);
}

// ---- Names of images ----

struct PixmapRow {
  const char* name;
  const char* image;
  bool is_of_reference;
  const char* user;
  const char* mask;  // with another image in place
};

void PrintTo(const PixmapRow& row, std::ostream* out) {
  *out << row.name;
}

class MaskImageTest : public PresentationRowTest<PixmapRow> {};

TEST_P(MaskImageTest, IsTheOneThatCanBeUsed) {
  const Place place;
  KORPLMObject& reserved = GetParam().is_of_reference ? *place.Analysis : RecordOf(place.Instance);
  reserved.Reserve(GetParam().user);
  KORGraphNode::ReplacePixmap(GetParam().image, "I_Plain");
  EXPECT_EQ(CallsOfUpdate(NewNode(place.Instance), place.Instance),
            Join({OpenIcon, GetParam().mask, ImageRefresh, TextRefresh}));
}

INSTANTIATE_TEST_SUITE_P(
    Masks, MaskImageTest,
    testing::Values(
        PixmapRow{"ReferenceByMe", "I_MaskLockByMeRef", true, "anna", "AddIconMask(\"I_Plain\", 15, 8, 1)"},
        PixmapRow{"ReferenceByOthers", "I_MaskNotLockByMeRef", true, "bert", "AddIconMask(\"I_Plain\", 15, 8, 1)"},
        PixmapRow{"InstanceByMe", "I_MaskLockByMeInst", false, "anna", "AddIconMask(\"I_Plain\", 9, 12, 1)"},
        PixmapRow{"InstanceByOthers", "I_MaskNotLockByMeInst", false, "bert", "AddIconMask(\"I_Plain\", 9, 12, 1)"}),
    RowName());

TEST_F(NodeDisplayTest, IconKeepsItsName) {
  KORGraphNode::ReplacePixmap("I_VEXSTTStopWatch", "I_Plain");
  const Node_var node = NewNode(_Place.Instance);
  Update(node, _Place.Instance);
  EXPECT_EQ(IconOf(node), "I_VEXSTTStopWatch");
}

// ---- What the node stands for ----

TEST_F(NodeDisplayTest, WithoutInstanceNothingIsDrawn) {
  _Place.Analysis->Reserve("anna");
  for (const KORBaseUnknown_var& object : {KORBaseUnknown_var(_Place.Instance), KORBaseUnknown_var(_Place.Analysis)}) {
    const Node_var node = NewNode(object, {NewNode(_Place.Occurrence)});
    EXPECT_EQ(CallsWhile(node, [&] { KORINavigModify_var(node)->UpdateNodeDisplay(nullptr); }), "");
    EXPECT_EQ(IconOf(node), "");
    EXPECT_TRUE(node->GetMasks().empty());
  }
}

TEST_F(NodeDisplayTest, WithoutInstanceTheParentIsAskedForAllTheSame) {
  const Node_var node = NewNode(_Place.Instance, {NewNode(_Place.Occurrence)});
  const auto update = [&node] { KORINavigModify_var(node)->UpdateNodeDisplay(nullptr); };
  EXPECT_TRUE(Calls("GetEditabilityStatus", update));
  EXPECT_TRUE(Calls("GetInstanceReference", update));
  EXPECT_FALSE(Calls("GetCurrentUserId", update));
  EXPECT_FALSE(Calls("GetRepReference", update));
}

TEST_F(NodeDisplayTest, WithoutInstanceWhatWasDrawnStays) {
  _Place.Analysis->Reserve("anna");
  const Node_var node = NewNode(_Place.Instance);
  Update(node, _Place.Instance);
  const auto masks = node->GetMasks();
  KORINavigModify_var(node)->UpdateNodeDisplay(nullptr);
  EXPECT_EQ(IconOf(node), "I_VEXSTTStopWatch");
  EXPECT_EQ(node->GetMasks(), masks);
}

TEST_F(NodeDisplayTest, InstanceWithoutObjectIsRefreshedAlone) {
  _Place.Analysis->Reserve("anna");
  RecordOf(_Place.Instance).Reserve("bert");
  const Node_var node = NewNode(_Place.Instance);
  EXPECT_EQ(CallsOfUpdate(node, NULL_var), Join({ImageRefresh, TextRefresh}));
  EXPECT_EQ(IconOf(node), "");
  const auto update = [&node] { Update(node, NULL_var); };
  EXPECT_TRUE(Calls("GetEditabilityStatus", update));
  EXPECT_TRUE(Calls("GetCurrentUserId", update));
  EXPECT_FALSE(Calls("NodeIconDisplay", update));
  EXPECT_FALSE(Calls("GetReservedAttributeNameFromObject", update));
}

TEST_F(NodeDisplayTest, ObjectOfAnotherKindShowsTheIconAlone) {
  const Node_var node = NewNode(_Place.Instance);
  for (const KORBaseUnknown_var& object :
       {KORBaseUnknown_var(_Place.Occurrence), KORBaseUnknown_var(_Place.Operation), NewStranger("")}) {
    EXPECT_EQ(CallsOfUpdate(node, object), Join({OpenIcon, ImageRefresh, TextRefresh}));
  }
}

TEST_F(NodeDisplayTest, ShowsTheInstanceThatItIsGivenNotTheOneThatItKeeps) {
  const PLMIRepInstance_var other = Attach(_Place.Operation, NewAnalysis("Loosen"));
  RecordOf(other).Reserve("anna");
  const Node_var node = NewNode(_Place.Instance);
  EXPECT_EQ(CallsOfUpdate(node, other), Join({OpenIcon, MyInstanceMask, ImageRefresh, TextRefresh}));
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), Join({OpenIcon, ImageRefresh, TextRefresh}));
}

TEST_F(NodeDisplayTest, UpdateShowsTheInstanceThatTheNodeKeeps) {
  _Place.Analysis->Reserve("anna");
  RecordOf(_Place.Instance).Reserve("bert");
  const Node_var node = NewNode(_Place.Instance);
  const KORINavigElement_var element(node);
  EXPECT_EQ(CallsWhile(node, [&] { element->Update(); }),
            Join({OpenIcon, MyReferenceMask, OthersInstanceMask, ImageRefresh, TextRefresh}));
  element->Remove();
  EXPECT_EQ(CallsWhile(node, [&] { element->Update(); }), "");
}

TEST_F(NodeDisplayTest, TreeShowsNameIconAndMasks) {
  _Place.Operation->SetEditable(false);
  _Place.Analysis->GetContent().Alias = "Fasten the cover";
  _Place.Analysis->Reserve("bert");
  KORNavigTree tree;
  const Node_var operation = tree.AddNode(_Place.Occurrence);
  const Node_var node = tree.AddNode(_Place.Instance, {operation});
  tree.Refresh();
  EXPECT_EQ(node->GetText(), "Fasten the cover");
  EXPECT_EQ(IconOf(node), "I_VEXSTTStopWatchLocked");
  EXPECT_EQ(node->GetMasks(), (std::vector<KORGraphNode::Mask>{{"I_MaskNotLockByMeRef", 15, 8, 1}}));
}

// ---- The extension of a node ----

TEST_F(NodeDisplayTest, ObjectThatIsNoNodeIsLeftAlone) {
  for (const char* const component : {ReferenceNodeComponent, InstanceNodeComponent}) {
    const KORBaseUnknown_var no_node = NewStranger(component);
    const KORINavigModify_var display = no_node;
    ASSERT_FALSE(display.IsNull());
    const NavigInstance_var instance = NewNavigInstance(_Place.Instance);
    const auto update = [&] { display->UpdateNodeDisplay(instance.Get()); };
    for (const char* const call : {"GetParentCount", "GetEditabilityStatus", "KORNavigInstance::GetReference",
                                   "NodeIconDisplay", "GetCurrentUserId", "GetRepReference"}) {
      EXPECT_FALSE(Calls(call, update)) << call;
    }
  }
}

TEST_F(NodeDisplayTest, NodeHasOneExtensionForAllItsInterfaces) {
  for (const char* const component : {ReferenceNodeComponent, InstanceNodeComponent}) {
    const auto node = Node_var::Adopt(new KORGraphNode(component));
    const NavigInstance_var instance = NewNavigInstance(_Place.Instance);
    const long before = KORBaseUnknown::CountLiveObjects();
    KORINavigNodeCtrl_var(node)->PutAssociatedInstance(instance.Get());
    const long with_extension = KORBaseUnknown::CountLiveObjects();
    EXPECT_EQ(with_extension, before + 1);
    EXPECT_EQ(KORINavigElement_var(node)->GetAssociatedInstance(), instance.Get());
    KORINavigModify_var(node)->Select(1);
    EXPECT_EQ(KORINavigModify_var(node)->IsSelected(), 1);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), with_extension);
  }
}

TEST_F(NodeDisplayTest, NodesHaveExtensionsOfTheirOwn) {
  const Node_var node = NewNode(_Place.Instance);
  const Node_var other = NewNode(_Place.Instance);
  KORINavigModify_var(node)->Select(1);
  KORINavigElement_var(node)->SetMarked(1);
  EXPECT_EQ(KORINavigModify_var(other)->IsSelected(), 0);
  EXPECT_EQ(KORINavigElement_var(other)->GetMarked(), 0);
}

// What a node tells in all operations but those that draw it.
std::string BehaviourOf(const Node_var& node) {
  const KORINavigElement_var element(node);
  const KORINavigModify_var display(node);
  const KORINavigNodeCtrl_var control(node);
  element->ProcessAfterSelect();
  element->ProcessAfterExtSelect();
  element->ProcessAfterAction();
  element->ProcessAfterExpand();
  element->ProcessAfterMethod("Open");
  KORUnicodeString help("Help");
  display->ModifyShortHelp(help);
  const std::string first = std::to_string(display->IsSelected()) + std::to_string(element->GetMarked());
  display->Select(1);
  element->SetMarked(1);
  const std::string second = std::to_string(display->IsSelected()) + std::to_string(element->GetMarked());
  control->Dereference();
  const bool is_cut_off = element->GetAssociatedInstance() == nullptr;
  control->Undereference();
  const bool is_joined = element->GetAssociatedInstance() != nullptr;
  element->Remove();
  const bool is_removed = element->GetAssociatedInstance() == nullptr;
  return std::string(help.Bytes()) + " " + first + " " + second + " " + std::to_string(control->GetExpansionMode()) +
         (is_cut_off ? " cut off" : "") + (is_joined ? " joined" : "") + (is_removed ? " removed" : "") +
         (element->GetFatherContainer() == nullptr ? " no father" : "") +
         (element->GetController() == nullptr ? " no controller" : "");
}

TEST_F(NodeDisplayTest, BehavesAsAPlainNodeInAllElse) {
  const std::string plain = "Help 00 11 0 cut off joined removed no father no controller";
  const Node_var node = NewNode(_Place.Instance);
  EXPECT_EQ(CallsWhile(node, [&] { EXPECT_EQ(BehaviourOf(node), plain); }), "");
  EXPECT_EQ(BehaviourOf(NewNode(_Place.Analysis)), plain);
  EXPECT_EQ(BehaviourOf(NewNode(_Place.Occurrence)), plain);
}

// ---- References ----

TEST_F(NodeDisplayTest, TakesNoReferences) {
  _Place.Analysis->Reserve("anna");
  RecordOf(_Place.Instance).Reserve("bert");
  const Node_var parent = NewNode(_Place.Occurrence);
  const Node_var node = NewNode(_Place.Instance, {parent});
  const NavigInstance_var instance = NewNavigInstance(_Place.Instance);
  const auto references = [&] {
    return std::vector<unsigned long>{ReferencesOf(*node),
                                      ReferencesOf(*parent),
                                      ReferencesOf(*instance),
                                      ReferencesOf(*_Place.Instance),
                                      ReferencesOf(*_Place.Analysis),
                                      ReferencesOf(*_Place.Operation),
                                      ReferencesOf(*_Place.Occurrence)};
  };
  const std::vector<unsigned long> before = references();
  const long live = KORBaseUnknown::CountLiveObjects();
  for (KORNavigInstance* const shown : {instance.Get(), instance.Get(), static_cast<KORNavigInstance*>(nullptr)}) {
    KORINavigModify_var(node)->UpdateNodeDisplay(shown);
    EXPECT_EQ(references(), before);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
  }
}

}  // namespace
}  // namespace presentationtest
