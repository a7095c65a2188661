// The icons of nodes that stand for objects.
#include "platform/services/KORSextantInTreeEnabler.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

class NodeIconDisplayTest : public testing::Test {
 protected:
  NodeIconDisplayTest() {
    EXPECT_EQ(_Node->SetIcon("I_Before"), S_OK);
    EXPECT_EQ(_Node->AddIconMask("I_Mask", 15, 8, 1), S_OK);
    _Node->ForgetCalls();
  }

  void ExpectUntouched() const {
    EXPECT_EQ(_Node->GetIcon(), "I_Before");
    EXPECT_EQ(_Node->GetMasks().size(), 1u);
    EXPECT_EQ(_Node->GetCalls(), Calls());
  }

  KORFreshSession _Session;
  const Node_var _Node = NewNode();
  const KORBaseUnknown_var _Object = NewObject();
};

TEST_F(NodeIconDisplayTest, SetsTheIconInPlaceOfTheOneBeforeAndItsMasks) {
  EXPECT_EQ(KORSextantInTreeEnabler::NodeIconDisplay(_Object, _Node.Get(), "I_Icon"), S_OK);
  EXPECT_EQ(_Node->GetIcon(), "I_Icon");
  EXPECT_TRUE(_Node->GetMasks().empty());
  EXPECT_EQ(_Node->GetCalls(), (Calls{"SetIcon(\"I_Icon\")"}));
}

TEST_F(NodeIconDisplayTest, LeavesReferencesAsTheyWere) {
  EXPECT_EQ(KORSextantInTreeEnabler::NodeIconDisplay(_Object, _Node.Get(), "I_Icon"), S_OK);
  EXPECT_EQ(CountReferences(*_Object), 1u);
  EXPECT_EQ(CountReferences(*_Node), 1u);
}

TEST_F(NodeIconDisplayTest, NullIsRefused) {
  EXPECT_EQ(KORSextantInTreeEnabler::NodeIconDisplay(NULL_var, _Node.Get(), "I_Icon"), E_INVALIDARG);
  EXPECT_EQ(KORSextantInTreeEnabler::NodeIconDisplay(_Object, nullptr, "I_Icon"), E_INVALIDARG);
  EXPECT_EQ(KORSextantInTreeEnabler::NodeIconDisplay(NULL_var, nullptr, "I_Icon"), E_INVALIDARG);
  ExpectUntouched();
}

TEST_F(NodeIconDisplayTest, TellsOfANodeThatDoesNotTakeTheIcon) {
  _Session.InjectFault("SetIcon", E_FAIL);
  EXPECT_EQ(KORSextantInTreeEnabler::NodeIconDisplay(_Object, _Node.Get(), "I_Icon"), E_FAIL);
  ExpectUntouched();
}

}  // namespace
}  // namespace servicestest
