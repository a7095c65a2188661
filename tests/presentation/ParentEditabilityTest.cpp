// The icon of an analysis tells whether the operation above it may be changed.
#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include "tests/presentation/PresentationTest.h"
#include "tests/support/ServiceTest.h"

namespace presentationtest {
namespace {

using support::RowName;

constexpr const char* Open = "I_VEXSTTStopWatch";
constexpr const char* Locked = "I_VEXSTTStopWatchLocked";

// ---- Parents ----

// A node whose object is another one than itself.
class StandIn final : public KORImplements<KORIGraphNode> {
 public:
  explicit StandIn(KORBaseUnknown_var object) : _Object(std::move(object)) {}

  int GetParentCount() override { return 0; }
  KORIGraphNode* GetParentNode(int /*position*/) override { return nullptr; }
  KORBaseUnknown* GetNodeObject() override {
    if (!_Object.IsNull()) _Object->AddRef();
    return _Object.Get();
  }
  long SetIcon(const KORUnicodeString& /*name*/) override { return S_OK; }
  long AddIconMask(const KORUnicodeString& /*name*/, int /*across*/, int /*down*/, int /*flag*/) override {
    return S_OK;
  }
  long RefreshNodeImage(int /*reserved*/) override { return S_OK; }
  long RefreshNodeText(int /*reserved*/) override { return S_OK; }

 private:
  KORBaseUnknown_var _Object;
};

KORIGraphNode_var StandInFor(const KORBaseUnknown_var& object) {
  return KORIGraphNode_var::Adopt(new StandIn(object));
}

// The node of an operation that may be changed or not.
Node_var OperationNode(bool editable) {
  return NewNode(NewOccurrence(editable));
}

// A plain node that stands for nothing.
Node_var EmptyNode() {
  return Node_var::Adopt(new KORGraphNode(KORPlainNode));
}

// A plain node whose instance has lost its object.
Node_var NodeOfNoObject() {
  const Node_var node = EmptyNode();
  KORINavigNodeCtrl_var(node)->PutAssociatedInstance(NewNavigInstance(NULL_var).Get());
  return node;
}

// The node of an operation that may not be changed, cut off from it.
Node_var NodeThatIsCutOff() {
  const Node_var node = OperationNode(false);
  KORINavigNodeCtrl_var(node)->Dereference();
  return node;
}

Node_var NodeOfOccurrence(const KORIPLMNavInstance_var& instance) {
  return NewNode(Occurrence_var::Adopt(new KOROperationOccurrence(instance)));
}

Node_var NodeOfInstanceWithoutReference() {
  using Instance_var = KORHandle<KOROperationInstance>;
  return NodeOfOccurrence(Instance_var::Adopt(new KOROperationInstance(NULL_var)));
}

// The node of something else, below an operation that may not be changed.
Node_var NodeBelowALockedOperation() {
  return NewNode(NewDrawing("Sketch"), {OperationNode(false)});
}

Node_var NodeOfTheOperationItself() {
  const Operation_var operation = NewOperation("Cover");
  operation->SetEditable(false);
  return NewNode(operation);
}

// ---- The icon ----

enum class Entry {
  Given,  // the platform is asked for an operation
  Null,   // for nothing
  None    // it isn't asked
};

struct ParentRow {
  const char* name;
  std::function<Parents()> make;
  const char* icon;
  Entry entry;
};

void PrintTo(const ParentRow& row, std::ostream* out) {
  *out << row.name;
}

class ParentEditabilityTest : public PresentationRowTest<ParentRow> {
 protected:
  void Draw() { Update(_Node, _Place.Instance); }

  Place _Place;
  const Parents _Parents = GetParam().make();
  const Node_var _Node = NewNode(_Place.Instance, _Parents);
};

TEST_P(ParentEditabilityTest, ChoosesTheIcon) {
  Draw();
  EXPECT_EQ(IconOf(_Node), GetParam().icon);
}

TEST_P(ParentEditabilityTest, ChoosesTheIconOfTheReferenceAlike) {
  const Node_var node = NewNode(_Place.Analysis, _Parents);
  Update(node, _Place.Analysis);
  EXPECT_EQ(IconOf(node), GetParam().icon);
}

TEST_P(ParentEditabilityTest, IsAskedForOnTheWholeWay) {
  EXPECT_EQ(Calls("GetEditabilityStatus", [this] { Draw(); }), GetParam().entry != Entry::None);
}

TEST_P(ParentEditabilityTest, ThatCannotBeToldIsLocked) {
  _Session.InjectFault("GetEditabilityStatus", E_FAIL);
  Draw();
  EXPECT_EQ(IconOf(_Node), Locked);
}

// With an entry of whatever kind; the platform then says neither 1 nor 0 of it.
TEST_P(ParentEditabilityTest, IsReadFromTheStatusAlone) {
  _Session.InjectFault("GetEditabilityStatus", FaultOf(KORFault::Kind::NullAlone));
  Draw();
  EXPECT_EQ(IconOf(_Node), GetParam().entry == Entry::None ? Locked : Open);
}

TEST_P(ParentEditabilityTest, TakesNoReferences) {
  const auto references = [this] {
    std::vector<unsigned long> counts{ReferencesOf(*_Node)};
    for (const KORIGraphNode_var& parent : _Parents) counts.push_back(ReferencesOf(*parent));
    return counts;
  };
  Draw();
  const long live = KORBaseUnknown::CountLiveObjects();
  const std::vector<unsigned long> before = references();
  Draw();
  EXPECT_EQ(references(), before);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
}

INSTANTIATE_TEST_SUITE_P(
    OperationAbove, ParentEditabilityTest,
    testing::Values(
        ParentRow{"Editable", [] { return Parents{OperationNode(true)}; }, Open, Entry::Given},
        ParentRow{"NotEditable", [] { return Parents{OperationNode(false)}; }, Locked, Entry::Given},
        ParentRow{"OfTheNodesObject", [] { return Parents{StandInFor(OperationNode(false))}; }, Locked, Entry::Given},
        ParentRow{"WithoutReference", [] { return Parents{NodeOfInstanceWithoutReference()}; }, Locked, Entry::None}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    LinkMissing, ParentEditabilityTest,
    testing::Values(
        ParentRow{"NoParent", [] { return Parents{}; }, Open, Entry::Null},
        ParentRow{"NodeWithoutObject", [] { return Parents{StandInFor(NULL_var)}; }, Open, Entry::Null},
        ParentRow{"NodeThatIsNoElement", [] { return Parents{Node_var::Adopt(new KORGraphNode(""))}; }, Open,
                  Entry::Null},
        ParentRow{"ObjectThatIsNoElement", [] { return Parents{StandInFor(NewOccurrence(false))}; }, Open, Entry::Null},
        ParentRow{"NodeThatStandsForNothing", [] { return Parents{EmptyNode()}; }, Open, Entry::Null},
        ParentRow{"NodeThatIsCutOff", [] { return Parents{NodeThatIsCutOff()}; }, Open, Entry::Null},
        ParentRow{"InstanceWithoutObject", [] { return Parents{NodeOfNoObject()}; }, Open, Entry::Null},
        ParentRow{"OccurrenceWithoutInstance", [] { return Parents{NodeOfOccurrence(NULL_var)}; }, Open, Entry::Null}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    NoOccurrence, ParentEditabilityTest,
    testing::Values(
        ParentRow{"TheOperationItself", [] { return Parents{NodeOfTheOperationItself()}; }, Open, Entry::Null},
        ParentRow{"Analysis", [] { return Parents{NewNode(NewAnalysis("Grip"))}; }, Open, Entry::Null},
        ParentRow{"InstanceOfAnAnalysis",
                  [] { return Parents{NewNode(Attach(NewOperation("Cover"), NewAnalysis("Grip")))}; }, Open,
                  Entry::Null},
        ParentRow{"BelowALockedOperation", [] { return Parents{NodeBelowALockedOperation()}; }, Open, Entry::Null}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    LastOfSeveral, ParentEditabilityTest,
    testing::Values(ParentRow{"LockedThenEditable",
                              [] {
                                return Parents{OperationNode(false), OperationNode(true)};
                              },
                              Open, Entry::Given},
                    ParentRow{"EditableThenLocked",
                              [] {
                                return Parents{OperationNode(true), OperationNode(false)};
                              },
                              Locked, Entry::Given},
                    ParentRow{"LockedInTheMiddle",
                              [] {
                                return Parents{OperationNode(true), OperationNode(false), OperationNode(true)};
                              },
                              Open, Entry::Given},
                    ParentRow{"LockedThenNothing",
                              [] {
                                return Parents{OperationNode(false), EmptyNode()};
                              },
                              Open, Entry::Null},
                    ParentRow{"EditableThenWithoutReference",
                              [] {
                                return Parents{OperationNode(true), NodeOfInstanceWithoutReference()};
                              },
                              Locked, Entry::None},
                    ParentRow{"WithoutReferenceThenEditable",
                              [] {
                                return Parents{NodeOfInstanceWithoutReference(), OperationNode(true)};
                              },
                              Open, Entry::Given}),
    RowName());

// ---- Changes ----

class EditabilityChangeTest : public PresentationTest {};

TEST_F(EditabilityChangeTest, ShowsWithTheNextUpdate) {
  const Place place;
  const Node_var node = NewNode(place.Instance, {NewNode(place.Occurrence)});
  for (const bool editable : {true, false, true}) {
    place.Operation->SetEditable(editable);
    Update(node, place.Instance);
    EXPECT_EQ(IconOf(node), editable ? Open : Locked);
  }
}

TEST_F(EditabilityChangeTest, OfTheAnalysisItselfDoesNotCount) {
  const Place place;
  place.Analysis->Reserve("bert");
  const Node_var node = NewNode(place.Instance, {NewNode(place.Occurrence)});
  Update(node, place.Instance);
  EXPECT_EQ(IconOf(node), Open);
}

}  // namespace
}  // namespace presentationtest
