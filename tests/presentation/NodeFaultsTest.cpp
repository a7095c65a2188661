// Nodes of analyses while operations of the platform fail: what still shows, that all of it shows again afterwards, and
// that no reference is kept.
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "platform/base/KORError.h"
#include "platform/services/KORIIcon.h"
#include "platform/system/KORRecord.h"
#include "tests/objects/RevisionTest.h"
#include "tests/presentation/PresentationTest.h"

namespace presentationtest {
namespace {

using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultRow;
using objectstest::FaultsFor;
using objectstest::FaultTest;

constexpr auto Once = KORFault::Life::Once;
constexpr auto Always = KORFault::Life::Always;

// An analysis that is reserved for "anna", who is logged in, at a place that is reserved for "bert", and its node below
// that of the operation.
struct DrawnPlace : Place {
  DrawnPlace() {
    Analysis->GetContent().Alias = "Fasten the cover";
    Analysis->Reserve("anna");
    RecordOf(Instance).Reserve("bert");
  }

  std::string Draw() const {
    return CallsWhile(Node, [this] { KORINavigModify_var(Node)->UpdateNodeDisplay(Shown.Get()); });
  }

  std::vector<unsigned long> References() const {
    return {ReferencesOf(*Operation), ReferencesOf(*Occurrence), ReferencesOf(*Analysis), ReferencesOf(*Instance),
            ReferencesOf(*Parent),    ReferencesOf(*Node),       ReferencesOf(*Shown)};
  }

  Node_var Parent = NewNode(Occurrence);
  Node_var Node = NewNode(Instance, {Parent});
  NavigInstance_var Shown = NewNavigInstance(Instance);
};

class NodeFaultTest : public FaultTest {
 protected:
  NodeFaultTest() { PrepareSession(_Session); }

  // The outcome of an operation with the row's fault and without, and that neither leaves anything behind.
  template <class Operation>
  void ExpectCleanOutcome(const Operation& operation, const std::string& outcome_without) {
    const std::vector<unsigned long> references = _Place.References();
    const long live = KORBaseUnknown::CountLiveObjects();
    ExpectOutcome(operation, outcome_without);
    EXPECT_EQ(_Place.References(), references);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
  }

  const DrawnPlace _Place;
};

// ---- Drawing ----

std::string Drawn(const char* icon, const char* mask = "", const char* second_mask = "") {
  return Join({icon, mask, second_mask, ImageRefresh, TextRefresh});
}

const std::string Whole = Drawn(OpenIcon, MyReferenceMask, OthersInstanceMask);
const std::string WholeLocked = Drawn(LockedIcon, MyReferenceMask, OthersInstanceMask);
const std::string WithoutIcon = Drawn("", MyReferenceMask, OthersInstanceMask);
const std::string WithoutReferenceMask = Drawn(OpenIcon, OthersInstanceMask);
const std::string WithoutMasks = Drawn(OpenIcon);
const std::string WithoutUser = Drawn(OpenIcon, OthersReferenceMask, OthersInstanceMask);
const std::string RefreshAlone = Join({ImageRefresh, TextRefresh});
constexpr const char* MaskOfNoNameOnReference = "AddIconMask(\"\", 15, 8, 1)";
constexpr const char* MaskOfNoNameOnInstance = "AddIconMask(\"\", 9, 12, 1)";

class DrawingFaultTest : public NodeFaultTest {};

TEST_P(DrawingFaultTest, BelowAnEditableOperation) {
  ExpectCleanOutcome([this] { return _Place.Draw(); }, Whole);
}

const std::vector<FaultRow> DrawingFaults{
    // What leads to the operation above and isn't there stands for no operation; one without reference is locked.
    {"GetParentCount", Whole, Whole, Whole},
    {"GetRelatedInstance", Whole, Whole, Whole},
    {"GetInstanceReference", WholeLocked, Whole, WholeLocked},
    {"GetEditabilityStatus", WholeLocked, WholeLocked, Whole},
    {"NodeIconDisplay", WithoutIcon, Whole, WithoutIcon},
    {"SetIcon", WithoutIcon, Whole, WithoutIcon},
    {"GetRepReference", WithoutReferenceMask, WithoutReferenceMask, WithoutReferenceMask},
    {"RefreshNodeImage", Join({OpenIcon, MyReferenceMask, OthersInstanceMask, TextRefresh}), Whole,
     Join({OpenIcon, MyReferenceMask, OthersInstanceMask, TextRefresh})},
    {"RefreshNodeText", Join({OpenIcon, MyReferenceMask, OthersInstanceMask, ImageRefresh}), Whole,
     Join({OpenIcon, MyReferenceMask, OthersInstanceMask, ImageRefresh})},
    {"IsEnvVariableSet", Whole, Whole, Whole},  // isn't asked
};

// The first call is the one for the parent, for the user of all, or for the reference.
const std::vector<FaultRow> FirstDrawingFaults{
    {"KORNavigInstance::GetReference", Whole, Whole, Whole},
    {"GetCurrentUserId", Whole, Whole, Whole},  // is asked for again with each reservation
    {"GetReservedAttributeNameFromObject", WithoutReferenceMask, Whole, WithoutReferenceMask},
    {"GetReservedByAttributeNameFromObject", WithoutReferenceMask, Whole, WithoutReferenceMask},
    {"GetValueAsString", WithoutReferenceMask, WithoutReferenceMask, WithoutUser},  // whom it is reserved for
    {"isPixmapNameValid", Drawn(OpenIcon, MaskOfNoNameOnReference, OthersInstanceMask), Whole,
     Drawn(OpenIcon, MaskOfNoNameOnReference, OthersInstanceMask)},
    {"AddIconMask", WithoutReferenceMask, Whole, WithoutReferenceMask},
};

const std::vector<FaultRow> LastingDrawingFaults{
    {"KORNavigInstance::GetReference", RefreshAlone, Whole, RefreshAlone},
    {"GetCurrentUserId", WithoutUser, Whole, WithoutUser},
    {"GetReservedAttributeNameFromObject", WithoutMasks, Whole, WithoutMasks},
    {"GetReservedByAttributeNameFromObject", WithoutMasks, Whole, WithoutMasks},
    {"GetValueAsString", WithoutMasks, WithoutMasks, WithoutMasks},
    {"isPixmapNameValid", Drawn(OpenIcon, MaskOfNoNameOnReference, MaskOfNoNameOnInstance), Whole,
     Drawn(OpenIcon, MaskOfNoNameOnReference, MaskOfNoNameOnInstance)},
    {"AddIconMask", WithoutMasks, Whole, WithoutMasks},
};

INSTANTIATE_TEST_SUITE_P(Calls, DrawingFaultTest, testing::ValuesIn(AllFaults(DrawingFaults)), FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstCall, DrawingFaultTest, testing::ValuesIn(FaultsFor(Once, FirstDrawingFaults)),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(AllCalls, DrawingFaultTest, testing::ValuesIn(FaultsFor(Always, LastingDrawingFaults)),
                         FaultCaseName());

// ---- The way to the operation above ----

class WayToOperationFaultTest : public NodeFaultTest {};

TEST_P(WayToOperationFaultTest, BelowALockedOperation) {
  _Place.Operation->SetEditable(false);
  ExpectCleanOutcome([this] { return _Place.Draw(); }, WholeLocked);
}

// Without its last link the way leads to no operation, which counts as editable as long as the platform says so.
const std::vector<FaultRow> WayFaults{
    {"GetParentCount", Whole, WholeLocked, Whole},
    {"GetParentNode", Whole, WholeLocked, Whole},
    {"GetNodeObject", Whole, WholeLocked, Whole},
    {"GetAssociatedInstance", Whole, WholeLocked, Whole},
    {"GetRelatedInstance", Whole, WholeLocked, Whole},
    {"GetInstanceReference", WholeLocked, WholeLocked, WholeLocked},
    {"GetEditabilityStatus", WholeLocked, WholeLocked, Whole},
};
const std::vector<FaultRow> FirstWayFaults{{"KORNavigInstance::GetReference", Whole, WholeLocked, Whole}};
const std::vector<FaultRow> LastingWayFaults{
    {"KORNavigInstance::GetReference", RefreshAlone, WholeLocked, RefreshAlone}};

INSTANTIATE_TEST_SUITE_P(Calls, WayToOperationFaultTest, testing::ValuesIn(AllFaults(WayFaults)), FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstCall, WayToOperationFaultTest, testing::ValuesIn(FaultsFor(Once, FirstWayFaults)),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(AllCalls, WayToOperationFaultTest, testing::ValuesIn(FaultsFor(Always, LastingWayFaults)),
                         FaultCaseName());

// ---- Capture and replay ----

class GateFaultTest : public NodeFaultTest {
 protected:
  GateFaultTest() {
    _Session.SetEnvironment(DisplayVariable, "1");
    KORRecord::GetMain()->SetMode(KORRecord::Mode::Replay);
  }
};

class DrawingGateFaultTest : public GateFaultTest {};

TEST_P(DrawingGateFaultTest, DuringReplay) {
  ExpectCleanOutcome([this] { return _Place.Draw(); }, Whole);
}

INSTANTIATE_TEST_SUITE_P(Calls, DrawingGateFaultTest,
                         testing::ValuesIn(AllFaults({{"IsEnvVariableSet", "", Whole, ""}})), FaultCaseName());

class NamesGateFaultTest : public GateFaultTest {};

TEST_P(NamesGateFaultTest, DuringReplay) {
  ExpectCleanOutcome([this] { return NodeNamesOf(_Place.Instance); }, "[Fasten the cover]");
}

INSTANTIATE_TEST_SUITE_P(Calls, NamesGateFaultTest,
                         testing::ValuesIn(AllFaults({{"IsEnvVariableSet", "null", "[Fasten the cover]", "null"}})),
                         FaultCaseName());

// ---- Names ----

class InstanceNameFaultTest : public NodeFaultTest {};

TEST_P(InstanceNameFaultTest, OfTheInstance) {
  ExpectCleanOutcome([this] { return NodeNamesOf(_Place.Instance); }, "[Fasten the cover]");
}

INSTANTIATE_TEST_SUITE_P(Calls, InstanceNameFaultTest,
                         testing::ValuesIn(AllFaults({{"GetRepReference", "null", "[Fasten the cover]", "null"},
                                                      {"GetAlias", "[]", "[Fasten the cover]", "[]"}})),
                         FaultCaseName());

class ReferenceNameFaultTest : public NodeFaultTest {};

TEST_P(ReferenceNameFaultTest, OfTheReference) {
  ExpectCleanOutcome([this] { return NodeNamesOf(_Place.Analysis); }, "[Fasten the cover]");
}

INSTANTIATE_TEST_SUITE_P(Calls, ReferenceNameFaultTest,
                         testing::ValuesIn(AllFaults({{"GetAlias", "[]", "[Fasten the cover]", "[]"}})),
                         FaultCaseName());

// ---- Icons ----

class IconFaultTest : public NodeFaultTest {
 protected:
  IconFaultTest() {
    (void)KORIIcon_var(_Place.Analysis)->SetIconName("I_Own");
    (void)KORIIcon_var(_Place.Instance);  // makes the extension, which stays
  }

  // Status and name, as "S_OK [I_Own]".
  static std::string IconNameOf(const KORIIcon_var& icon) {
    KORUnicodeString name;
    const long status = icon->GetIconName(name);
    return StatusName(status) + " [" + std::string(name.Bytes()) + "]";
  }
};

const FaultRow IconOfBaseFault{"KORIconAdaptor::GetIconName", "fault []", "fault [I_Own]", "S_OK []"};

class ReferenceIconFaultTest : public IconFaultTest {};

TEST_P(ReferenceIconFaultTest, OfTheReference) {
  ExpectCleanOutcome([this] { return IconNameOf(_Place.Analysis); }, "S_OK [I_Own]");
}

INSTANTIATE_TEST_SUITE_P(Calls, ReferenceIconFaultTest, testing::ValuesIn(AllFaults({IconOfBaseFault})),
                         FaultCaseName());

class InstanceIconFaultTest : public IconFaultTest {};

TEST_P(InstanceIconFaultTest, OfTheInstance) {
  ExpectCleanOutcome([this] { return IconNameOf(_Place.Instance); }, "S_OK [I_Own]");
}

// A reference that is handed out is asked for its icon, whatever the status says.
INSTANTIATE_TEST_SUITE_P(Calls, InstanceIconFaultTest,
                         testing::ValuesIn(AllFaults({IconOfBaseFault,
                                                      {"GetRepReference", "fault []", "S_OK [I_Own]", "S_OK []"}})),
                         FaultCaseName());

// ---- Paths ----

class PathFaultTest : public NodeFaultTest {};

TEST_P(PathFaultTest, OfTheInstance) {
  const auto select = [this] {
    unsigned char is_path = 0;
    const auto path =
        KORHandle<KORPathElement>::Adopt(KORINavigateObjectModify_var(_Place.Instance)->GetObjectPath(is_path));
    return std::to_string(is_path) + (path.IsNull() ? " null" : " path");
  };
  ExpectCleanOutcome(select, "1 path");
}

INSTANTIATE_TEST_SUITE_P(Calls, PathFaultTest,
                         testing::ValuesIn(AllFaults({{"KORPathElement", "1 null", "1 path", "1 null"}})),
                         FaultCaseName());

// ---- Errors that are raised ----

class RaisedErrorTest : public PresentationTest {
 protected:
  // An error that is raised in a call comes through, and nothing is left behind.
  void ExpectThrough(const char* call, const std::function<void()>& act) {
    const std::vector<unsigned long> references = _Place.References();
    const long live = KORBaseUnknown::CountLiveObjects();
    KORFault fault = FaultOf(KORFault::Kind::Raised, Once);
    fault.Error = std::make_exception_ptr(KORError(E_FAIL, "raised"));
    _Session.InjectFault(call, fault);
    EXPECT_THROW(act(), KORError) << call;
    EXPECT_EQ(_Place.References(), references) << call;
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live) << call;
  }

  const DrawnPlace _Place;
};

TEST_F(RaisedErrorTest, WhileTheNodeIsDrawnKeepsNoReferences) {
  for (const char* const call :
       {"GetParentCount", "GetParentNode", "GetNodeObject", "GetAssociatedInstance", "KORNavigInstance::GetReference",
        "GetRelatedInstance", "GetInstanceReference", "GetEditabilityStatus", "NodeIconDisplay", "GetCurrentUserId",
        "GetRepReference", "GetValueAsString", "isPixmapNameValid", "AddIconMask", "RefreshNodeImage",
        "RefreshNodeText"}) {
    ExpectThrough(call, [this] { (void)_Place.Draw(); });
  }
  EXPECT_EQ(_Place.Draw(), Whole);
}

TEST_F(RaisedErrorTest, WhileTheNodeIsNamedKeepsNoReferences) {
  for (const char* const call : {"GetRepReference", "GetAlias"}) {
    ExpectThrough(call, [this] { (void)NodeNamesOf(_Place.Instance); });
  }
  EXPECT_EQ(NodeNamesOf(_Place.Instance), "[Fasten the cover]");
}

TEST_F(RaisedErrorTest, WhileTheIconIsAskedForKeepsNoReferences) {
  (void)KORIIcon_var(_Place.Analysis);
  const KORIIcon_var icon(_Place.Instance);
  for (const char* const call : {"GetRepReference", "KORIconAdaptor::GetIconName"}) {
    KORUnicodeString name;
    ExpectThrough(call, [&] { (void)icon->GetIconName(name); });
  }
}

}  // namespace
}  // namespace presentationtest
