// The end of a table whose values are lists of objects.
#include <gtest/gtest.h>

#include <deque>
#include <vector>

#include "VEXSTTApplicativeContainerServices.h"
#include "objects/ReuseIndex.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using objectstest::NewAnalysis;
using support::TimeAnalysis_var;
using Services = VEXSTTApplicativeContainerServices;

unsigned long ReferencesTo(const TimeAnalysis_var& analysis) {
  (void)analysis->AddRef();
  return analysis->Release();
}

class ReuseIndexTest : public objectstest::ObjectsTest {
 protected:
  // Ends the table.
  void Clean() {
    EXPECT_EQ(Services::CleanHashObjectWithListValues(_Table), S_OK);
    EXPECT_EQ(_Table, nullptr);
  }

  // A list with a reference for each entry that is not null. It stays the test's.
  KORRawCollPV* NewList(const std::vector<KORBaseUnknown_var>& objects) {
    KORRawCollPV& list = _Lists.emplace_back();
    for (const KORBaseUnknown_var& object : objects) {
      if (!object.IsNull()) (void)object->AddRef();
      list.Append(object.Get());
    }
    return &list;
  }

  KORHashObject* _Table = new KORHashObject(200);
  std::deque<KORRawCollPV> _Lists;
};

TEST_F(ReuseIndexTest, ObjectsThatHaveNoLinesAreNotEntered) {
  const auto grip = NewAnalysis("Grip");
  const auto pick = NewAnalysis("Pick", {support::Line("Grip").Reuses(grip)});
  const KORBaseUnknown_var without_lines = calculationtest::MakeShellWithout<VEXITimeAnalysisLines>(pick);
  const KORBaseUnknown_var without_attributes = calculationtest::MakeShellWithout<VEXITimeAnalysisRepReference>(pick);
  objects::ReuseIndex index;
  EXPECT_EQ(
      index.Enter(objectstest::ListOf({NULL_var, calculationtest::MakeBareObject(), without_lines, without_attributes}),
                  E_NOINTERFACE),
      E_NOINTERFACE)
      << "the status that came in, as nothing is entered";
  EXPECT_EQ(index.Table().Get(grip->GetImpl(0)), nullptr);
  EXPECT_EQ(index.Enter(objectstest::ListOf({pick, calculationtest::MakeShell(pick)}), E_FAIL), S_OK);
  const auto* const reused_in = static_cast<const KORRawCollPV*>(index.Table().Get(grip->GetImpl(0)));
  ASSERT_NE(reused_in, nullptr);
  EXPECT_EQ(reused_in->Size(), 2);
  EXPECT_EQ((*reused_in)[1], pick->GetImpl(0));
  Clean();
}

TEST_F(ReuseIndexTest, ATableWithoutEntriesIsFreed) {
  Clean();
}

TEST_F(ReuseIndexTest, NoTableIsRefused) {
  Clean();
  EXPECT_EQ(Services::CleanHashObjectWithListValues(_Table), E_INVALIDARG);
  EXPECT_EQ(_Table, nullptr);
}

TEST_F(ReuseIndexTest, EachEntryOfEachListIsReleased) {
  const auto grip = NewAnalysis("Grip");
  const auto pick = NewAnalysis("Pick");
  const auto place = NewAnalysis("Place");
  const unsigned long of_grip = ReferencesTo(grip), of_pick = ReferencesTo(pick), of_place = ReferencesTo(place);
  _Table->Put(grip.Get(), NewList({pick, pick, place}));
  _Table->Put(pick.Get(), NewList({place}));
  EXPECT_EQ(ReferencesTo(pick), of_pick + 2);
  Clean();
  EXPECT_EQ(ReferencesTo(grip), of_grip);
  EXPECT_EQ(ReferencesTo(pick), of_pick);
  EXPECT_EQ(ReferencesTo(place), of_place);
}

TEST_F(ReuseIndexTest, NullsAndEmptyListsAreLeftOut) {
  const auto grip = NewAnalysis("Grip");
  const auto pick = NewAnalysis("Pick");
  const unsigned long of_pick = ReferencesTo(pick);
  _Table->Put(grip.Get(), NewList({nullptr, pick, nullptr}));
  _Table->Put(pick.Get(), NewList({}));
  _Table->Put(nullptr, NewList({pick}));
  _Table->Put(&_Table, nullptr);
  Clean();
  EXPECT_EQ(ReferencesTo(pick), of_pick);
}

TEST_F(ReuseIndexTest, TheListsStay) {
  const auto pick = NewAnalysis("Pick");
  KORRawCollPV* const list = NewList({pick, nullptr});
  _Table->Put(pick.Get(), list);
  Clean();
  ASSERT_EQ(list->Size(), 2);
  EXPECT_EQ((*list)[1], KORBaseUnknown_var(pick).Get());
  EXPECT_EQ((*list)[2], nullptr);
}

TEST_F(ReuseIndexTest, AWalkUnderWayDoesNotHideEntries) {
  const auto grip = NewAnalysis("Grip");
  const auto pick = NewAnalysis("Pick");
  const unsigned long of_pick = ReferencesTo(pick);
  _Table->Put(grip.Get(), NewList({pick}));
  _Table->Begin();
  void* key = nullptr;
  void* value = nullptr;
  EXPECT_EQ(_Table->Next(key, value), 1);
  EXPECT_EQ(_Table->Next(key, value), 0);
  Clean();
  EXPECT_EQ(ReferencesTo(pick), of_pick);
}

TEST_F(ReuseIndexTest, ObjectsThatOnlyTheTableHoldsEnd) {
  const long before = KORBaseUnknown::CountLiveObjects();
  KORRawCollPV* const list = NewList({});
  for (int number = 0; number < 3; ++number) list->Append(new KORBaseUnknown);
  _Table->Put(list, list);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 3);
  Clean();
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
