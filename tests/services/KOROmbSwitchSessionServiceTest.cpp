// Objects brought into the authoring mode.
#include "platform/services/KOROmbSwitchSessionService.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

class KOROmbSwitchSessionServiceTest : public testing::Test {
 protected:
  static KORIOmiSwitchEngine_var NewEngine() {
    KORIOmiSwitchEngine* engine = nullptr;
    EXPECT_EQ(KOROmbSwitchSessionService(nullptr).CreateSwitchEngine(engine), S_OK);
    return KORIOmiSwitchEngine_var::Adopt(engine);
  }

  void SetModes(std::initializer_list<const char*> modes) const {
    KOROmbLoadingModeRuleSet rules;
    for (const char* const mode : modes) {
      EXPECT_EQ(rules.AddALoadingModeRule(KOROmbDefaultLoadingModeRule(mode)), S_OK);
    }
    EXPECT_EQ(_Engine->SetLoadingRules(rules), S_OK);
  }

  void AddAnalysis() const { EXPECT_EQ(_Engine->AddSwitchComponent(_Analysis.Get()), S_OK); }

  const KORUnicodeString& Mode() const { return _Analysis->GetContent().LoadingMode; }

  const KORFreshSession _Session;
  const KORHandle<VEXTimeAnalysisRepReference> _Analysis = KORModel::Current().CreateTimeAnalysis("TA");
  const KORIOmiSwitchEngine_var _Engine = NewEngine();
  KORListPtrKOROmiSwitchOperation _Operations;
};

TEST_F(KOROmbSwitchSessionServiceTest, BringsAnAnalysisIntoTheAuthoringMode) {
  AddAnalysis();
  SetModes({"Authoring_Mode"});
  ASSERT_EQ(_Engine->PrepareSwitch(_Operations), S_OK);
  ASSERT_EQ(_Operations.Size(), 1);
  EXPECT_TRUE(_Operations[1]->GetObject() == _Analysis);
  EXPECT_EQ(_Operations[1]->GetMode(), "Authoring_Mode");
  EXPECT_EQ(Mode(), "");

  KORListPtrKOROmiSwitchOperation done;
  ASSERT_EQ(_Engine->ExecuteSwitch(done), S_OK);
  EXPECT_EQ(done, _Operations);
  EXPECT_EQ(Mode(), "Authoring_Mode");
}

TEST_F(KOROmbSwitchSessionServiceTest, SwitchesSeveralObjectsInTheirOrder) {
  const auto other = KORModel::Current().CreateOtherRepReference("shape");
  AddAnalysis();
  EXPECT_EQ(_Engine->AddSwitchComponent(other.Get()), S_OK);
  SetModes({"Authoring_Mode"});
  ASSERT_EQ(_Engine->PrepareSwitch(_Operations), S_OK);
  ASSERT_EQ(_Engine->ExecuteSwitch(_Operations), S_OK);
  ASSERT_EQ(_Operations.Size(), 4);
  EXPECT_TRUE(_Operations[2]->GetObject() == other);
  EXPECT_EQ(_Operations.Locate(_Operations[2], 3), 4);
  EXPECT_EQ(other->GetContent().LoadingMode, "Authoring_Mode");
}

TEST_F(KOROmbSwitchSessionServiceTest, TheLastRuleHolds) {
  AddAnalysis();
  SetModes({"Visualization_Mode", "Authoring_Mode"});
  EXPECT_EQ(_Engine->PrepareSwitch(_Operations), S_OK);
  SetModes({"Authoring_Mode", "Visualization_Mode"});
  EXPECT_EQ(_Engine->PrepareSwitch(_Operations), E_FAIL);
}

TEST_F(KOROmbSwitchSessionServiceTest, NothingIsPreparedWithoutAnObject) {
  SetModes({"Authoring_Mode"});
  EXPECT_EQ(_Engine->PrepareSwitch(_Operations), E_FAIL);
  EXPECT_EQ(_Operations.Size(), 0);
}

TEST_F(KOROmbSwitchSessionServiceTest, NothingIsPreparedWithoutARule) {
  AddAnalysis();
  EXPECT_EQ(_Engine->PrepareSwitch(_Operations), E_FAIL);
  SetModes({});
  EXPECT_EQ(_Engine->PrepareSwitch(_Operations), E_FAIL);
  EXPECT_EQ(_Operations.Size(), 0);
}

TEST_F(KOROmbSwitchSessionServiceTest, OtherModesAreRefused) {
  AddAnalysis();
  for (const char* const mode : {"", "authoring_mode", "Authoring_Mode "}) {
    SetModes({mode});
    EXPECT_EQ(_Engine->PrepareSwitch(_Operations), E_FAIL) << mode;
  }
  EXPECT_EQ(_Operations.Size(), 0);
}

TEST_F(KOROmbSwitchSessionServiceTest, NothingIsDoneUnprepared) {
  AddAnalysis();
  SetModes({"Authoring_Mode"});
  EXPECT_EQ(_Engine->ExecuteSwitch(_Operations), E_FAIL);
  EXPECT_EQ(_Operations.Size(), 0);
  EXPECT_EQ(Mode(), "");
}

TEST_F(KOROmbSwitchSessionServiceTest, AnObjectWithoutLoadingModeStopsTheSwitch) {
  const auto operation = KORModel::Current().CreateOperation("OP");
  AddAnalysis();
  EXPECT_EQ(_Engine->AddSwitchComponent(operation.Get()), S_OK);
  SetModes({"Authoring_Mode"});
  ASSERT_EQ(_Engine->PrepareSwitch(_Operations), S_OK);
  KORListPtrKOROmiSwitchOperation done;
  EXPECT_EQ(_Engine->ExecuteSwitch(done), E_FAIL);
  EXPECT_EQ(done.Size(), 0);
  EXPECT_EQ(Mode(), "");
}

TEST_F(KOROmbSwitchSessionServiceTest, EntriesLiveAsLongAsTheEngine) {
  AddAnalysis();
  SetModes({"Authoring_Mode"});
  ASSERT_EQ(_Engine->PrepareSwitch(_Operations), S_OK);
  ASSERT_EQ(_Engine->PrepareSwitch(_Operations), S_OK);
  ASSERT_EQ(_Operations.Size(), 2);
  EXPECT_EQ(_Operations[1]->GetMode(), "Authoring_Mode");
  KORListPtrKOROmiSwitchOperation done;
  ASSERT_EQ(_Engine->ExecuteSwitch(done), S_OK);
  ASSERT_EQ(done.Size(), 1);
  EXPECT_EQ(done[1], _Operations[2]);
}

TEST_F(KOROmbSwitchSessionServiceTest, NullIsRefused) {
  EXPECT_EQ(_Engine->AddSwitchComponent(nullptr), E_INVALIDARG);
}

TEST_F(KOROmbSwitchSessionServiceTest, EveryEngineIsNew) {
  EXPECT_FALSE(NewEngine() == _Engine);
}

}  // namespace
