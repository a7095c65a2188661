// Components stored in one go.
#include "platform/services/KORAdpProtectedSaver.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using Components = std::vector<KORIPLMComponent*>;

class KORAdpProtectedSaverTest : public testing::Test {
 protected:
  KORAdpProtectedSaverTest() {
    KORSaveObserver::Current().Set([this](const KORListPtrKORIPLMComponent& components) {
      _Seen.emplace_back(components.begin(), components.end());
      _WasStoredWhenSeen = _First->GetContent().IsInDatabase;
    });
    for (const auto& analysis : {_First, _Second}) analysis->GetContent().IsInDatabase = false;
  }

  static long Save(std::initializer_list<KORIPLMComponent*> components, KORIAdpErrorMonitor* monitor = nullptr) {
    KORListPtrKORIPLMComponent list;
    for (KORIPLMComponent* const component : components) list.Append(component);
    return KORAdpProtectedSaver(list, monitor).Save();
  }

  bool IsStored() const { return _First->GetContent().IsInDatabase || _Second->GetContent().IsInDatabase; }

  const KORFreshSession _Session;
  const KORHandle<VEXTimeAnalysisRepReference> _First = KORModel::Current().CreateTimeAnalysis("first");
  const KORHandle<VEXTimeAnalysisRepReference> _Second = KORModel::Current().CreateTimeAnalysis("second");
  std::vector<Components> _Seen;  // one entry for each Save
  bool _WasStoredWhenSeen = false;
};

TEST_F(KORAdpProtectedSaverTest, StoredComponentsAreKnownToTheDatabase) {
  EXPECT_EQ(Save({_Second.Get()}), S_OK);
  EXPECT_TRUE(_Second->GetContent().IsInDatabase);
  EXPECT_FALSE(_First->GetContent().IsInDatabase);
}

TEST_F(KORAdpProtectedSaverTest, ObserverSeesOneSaveInItsOrderWithDuplicates) {
  EXPECT_EQ(Save({_Second.Get(), _First.Get(), _Second.Get()}), S_OK);
  EXPECT_EQ(_Seen, (std::vector<Components>{{_Second.Get(), _First.Get(), _Second.Get()}}));
  EXPECT_FALSE(_WasStoredWhenSeen);
  EXPECT_TRUE(_First->GetContent().IsInDatabase);
}

TEST_F(KORAdpProtectedSaverTest, AnEmptyListIsASaveToo) {
  EXPECT_EQ(Save({}), S_OK);
  EXPECT_EQ(_Seen, (std::vector<Components>{{}}));
}

TEST_F(KORAdpProtectedSaverTest, ComponentsThatAreNoRepresentationsAreTaken) {
  const auto operation = KORModel::Current().CreateOperation("OP");
  EXPECT_EQ(Save({operation.Get(), _First.Get()}), S_OK);
  EXPECT_TRUE(_First->GetContent().IsInDatabase);
}

TEST_F(KORAdpProtectedSaverTest, WithANullComponentNothingIsStored) {
  EXPECT_EQ(Save({_First.Get(), nullptr, _Second.Get()}), E_INVALIDARG);
  EXPECT_FALSE(IsStored());
}

TEST_F(KORAdpProtectedSaverTest, AFailedSaveIsSeenAndStoresNothing) {
  KORSession::Current().InjectFault("Save", E_NOINTERFACE);
  EXPECT_EQ(Save({_First.Get(), _Second.Get()}), E_NOINTERFACE);
  EXPECT_EQ(_Seen, (std::vector<Components>{{_First.Get(), _Second.Get()}}));
  EXPECT_FALSE(IsStored());
}

TEST_F(KORAdpProtectedSaverTest, NobodyNeedObserve) {
  KORSaveObserver::Current().Set(nullptr);
  EXPECT_EQ(Save({_First.Get()}), S_OK);
  EXPECT_TRUE(_First->GetContent().IsInDatabase);
  EXPECT_TRUE(_Seen.empty());
}

TEST_F(KORAdpProtectedSaverTest, ObserverSeesItsSessionAlone) {
  const KORFreshSession other;
  EXPECT_EQ(Save({}), S_OK);
  EXPECT_TRUE(_Seen.empty());
}

TEST_F(KORAdpProtectedSaverTest, TheMonitorIsHeldAsLongAsTheSaver) {
  KORIAdpErrorMonitor* monitor = nullptr;
  ASSERT_EQ(KORAdpErrorMonitorFactory::CreateErrorMonitor(KORUuid(), monitor), S_OK);
  {
    KORAdpProtectedSaver saver({}, monitor);
    monitor->AddRef();
    EXPECT_EQ(monitor->Release(), 2u);
    EXPECT_EQ(saver.Save(), S_OK);
  }
  EXPECT_EQ(monitor->Release(), 0u);
}

}  // namespace
