// Nodes of analyses stand aside while a session is captured or replayed, unless a variable asks for them.
#include <ostream>
#include <string>

#include "platform/services/KORIIcon.h"
#include "platform/services/KORIPLMRepUIManagement.h"
#include "platform/system/KORRecord.h"
#include "tests/presentation/PresentationTest.h"
#include "tests/support/ServiceTest.h"

namespace presentationtest {
namespace {

using support::RowName;

using Mode = KORRecord::Mode;

constexpr const char* AskForVariable = "IsEnvVariableSet";

struct GateRow {
  const char* name;
  Mode mode;
  const char* value;  // of the variable; null: it isn't set
  bool is_open;
};

void PrintTo(const GateRow& row, std::ostream* out) {
  *out << row.name;
}

class DisplayGateTest : public PresentationRowTest<GateRow> {
 protected:
  DisplayGateTest() {
    _Place.Analysis->GetContent().Alias = "Fasten the cover";
    _Place.Analysis->Reserve("anna");
    if (GetParam().value != nullptr) _Session.SetEnvironment(DisplayVariable, GetParam().value);
    KORRecord::GetMain()->SetMode(GetParam().mode);
  }

  Place _Place;
};

TEST_P(DisplayGateTest, OfTheNodeOfAnInstance) {
  const std::string drawn = Join({OpenIcon, MyReferenceMask, ImageRefresh, TextRefresh});
  EXPECT_EQ(CallsOfUpdate(NewNode(_Place.Instance), _Place.Instance), GetParam().is_open ? drawn : "");
}

TEST_P(DisplayGateTest, OfTheNodeOfAReference) {
  const std::string drawn = Join({OpenIcon, ImageRefresh, TextRefresh});
  EXPECT_EQ(CallsOfUpdate(NewNode(_Place.Analysis), _Place.Analysis), GetParam().is_open ? drawn : "");
}

TEST_P(DisplayGateTest, OfTheNames) {
  const std::string names = GetParam().is_open ? "[Fasten the cover]" : "null";
  EXPECT_EQ(NodeNamesOf(_Place.Instance), names);
  EXPECT_EQ(NodeNamesOf(_Place.Analysis), names);
}

TEST_P(DisplayGateTest, OfAWholeTree) {
  KORNavigTree tree;
  const Node_var node = tree.AddNode(_Place.Instance, {tree.AddNode(_Place.Occurrence)});
  tree.Refresh();
  EXPECT_EQ(node->GetText(), GetParam().is_open ? "Fasten the cover" : "");
  EXPECT_EQ(IconOf(node), GetParam().is_open ? "I_VEXSTTStopWatch" : "");
}

TEST_P(DisplayGateTest, ComesBeforeEverythingElse) {
  const Node_var node = NewNode(_Place.Instance, {NewNode(_Place.Occurrence)});
  const auto update = [&] { Update(node, _Place.Instance); };
  const auto update_without_instance = [&] { KORINavigModify_var(node)->UpdateNodeDisplay(nullptr); };
  for (const char* const call : {"GetParentCount", "GetEditabilityStatus"}) {
    EXPECT_EQ(Calls(call, update), GetParam().is_open) << call;
    EXPECT_EQ(Calls(call, update_without_instance), GetParam().is_open) << call;
  }
  EXPECT_EQ(Calls("GetCurrentUserId", update), GetParam().is_open);
  const auto name = [&] { (void)NodeNamesOf(_Place.Instance); };
  EXPECT_EQ(Calls("GetRepReference", name), GetParam().is_open);
  EXPECT_EQ(Calls("GetAlias", name), GetParam().is_open);
}

TEST_P(DisplayGateTest, LooksAtTheVariableDuringCaptureAndReplayAlone) {
  const bool is_recorded = GetParam().mode != Mode::Rest;
  const Node_var node = NewNode(_Place.Instance);
  EXPECT_EQ(Calls(AskForVariable, [&] { Update(node, _Place.Instance); }), is_recorded);
  EXPECT_EQ(Calls(AskForVariable, [&] { (void)NodeNamesOf(_Place.Instance); }), is_recorded);
}

TEST_P(DisplayGateTest, IsClosedDuringCaptureAndReplayIfTheVariableCannotBeSeen) {
  _Session.InjectFault(AskForVariable, FaultOf(KORFault::Kind::StatusAndNull));
  const bool is_open = GetParam().mode == Mode::Rest;
  const Node_var node = NewNode(_Place.Analysis);
  EXPECT_EQ(CallsOfUpdate(node, _Place.Analysis), is_open ? Join({OpenIcon, ImageRefresh, TextRefresh}) : "");
  EXPECT_EQ(NodeNamesOf(_Place.Analysis), is_open ? "[Fasten the cover]" : "null");
}

TEST_P(DisplayGateTest, StandsBeforeNothingElseThatANodeDoes) {
  const auto ask = [this] {
    unsigned char is_path = 0;
    const auto path =
        KORHandle<KORPathElement>::Adopt(KORINavigateObjectModify_var(_Place.Instance)->GetObjectPath(is_path));
    EXPECT_EQ(path->GetStart(), _Place.Instance);
    EXPECT_EQ(KORINavigateObject_var(_Place.Instance)->GetChildObjects(), nullptr);
    int mode = 0;
    EXPECT_EQ(KORIPLMRepUIManagement_var(_Place.Instance)->GetRepUIMode(mode), S_OK);
    EXPECT_EQ(mode, 1);
    EXPECT_EQ(KORIIcon_var(_Place.Analysis)->SetIconName("I_Own"), S_OK);
    KORUnicodeString icon;
    EXPECT_EQ(KORIIcon_var(_Place.Instance)->GetIconName(icon), S_OK);
    EXPECT_EQ(icon, "I_Own");
  };
  EXPECT_FALSE(Calls(AskForVariable, ask));
}

INSTANTIATE_TEST_SUITE_P(Session, DisplayGateTest,
                         testing::Values(GateRow{"AtRest", Mode::Rest, nullptr, true},
                                         GateRow{"AtRestVariableSet", Mode::Rest, "1", true},
                                         GateRow{"AtRestVariableEmpty", Mode::Rest, "", true},
                                         GateRow{"Captured", Mode::Capture, nullptr, false},
                                         GateRow{"CapturedVariableSet", Mode::Capture, "1", true},
                                         GateRow{"CapturedVariableZero", Mode::Capture, "0", true},
                                         GateRow{"CapturedVariableEmpty", Mode::Capture, "", true},
                                         GateRow{"Replayed", Mode::Replay, nullptr, false},
                                         GateRow{"ReplayedVariableSet", Mode::Replay, "1", true},
                                         GateRow{"ReplayedVariableZero", Mode::Replay, "0", true},
                                         GateRow{"ReplayedVariableEmpty", Mode::Replay, "", true}),
                         RowName());

class GateChangeTest : public PresentationTest {
 protected:
  Place _Place;
};

TEST_F(GateChangeTest, CountsFromTheNextCallOn) {
  const Node_var node = NewNode(_Place.Instance);
  const std::string drawn = Join({OpenIcon, ImageRefresh, TextRefresh});
  KORRecord& recorder = *KORRecord::GetMain();
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), drawn);
  recorder.SetMode(Mode::Replay);
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), "");
  _Session.SetEnvironment(DisplayVariable, "1");
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), drawn);
  _Session.UnsetEnvironment(DisplayVariable);
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), "");
  recorder.SetMode(Mode::Rest);
  EXPECT_EQ(CallsOfUpdate(node, _Place.Instance), drawn);
}

TEST_F(GateChangeTest, LeavesWhatWasDrawnBefore) {
  _Place.Analysis->Reserve("anna");
  const Node_var node = NewNode(_Place.Instance, {NewNode(_Place.Occurrence)});
  Update(node, _Place.Instance);
  const auto masks = node->GetMasks();
  KORRecord::GetMain()->SetMode(Mode::Capture);
  _Place.Analysis->Unreserve();
  _Place.Operation->SetEditable(false);
  Update(node, _Place.Instance);
  EXPECT_EQ(IconOf(node), "I_VEXSTTStopWatch");
  EXPECT_EQ(node->GetMasks(), masks);
}

TEST_F(GateChangeTest, IsOpenedByNoOtherVariable) {
  KORRecord::GetMain()->SetMode(Mode::Replay);
  for (const char* const other : {"VEXSTM_TVSONLY_DISPLAY_TA_NODES", "VEXSTM_TVSONLY_DISPLAY_TA",
                                  "vexstm_tvsonly_display_ta_node", "QRN_TVS_IN"}) {
    _Session.SetEnvironment(other, "1");
  }
  EXPECT_EQ(NodeNamesOf(_Place.Instance), "null");
}

TEST_F(GateChangeTest, IsOfTheCurrentSession) {
  KORRecord::GetMain()->SetMode(Mode::Capture);
  EXPECT_EQ(NodeNamesOf(_Place.Instance), "null");
  const KORFreshSession other;
  EXPECT_EQ(NodeNamesOf(_Place.Instance), "[]");
}

}  // namespace
}  // namespace presentationtest
