// The window of a session, the colour filter in it, and the colours of filter values.
#include "platform/services/KORFrmLayout.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

namespace {

using Window_var = KORHandle<KORFrmWindow>;
using Manager = KORPLMCompQuadrantsOpennessManager;

KORFrmWindow::Filter AFilter() {
  KORFrmWindow::Filter filter{1, "Reservation", {}, "Q1"};
  filter.Values.Append("mine");
  filter.Values.Append("free");
  return filter;
}

Window_var NewWindow(const KORFrmWindow::Filter& filter = AFilter()) {
  return Window_var::Adopt(new KORFrmWindow(filter));
}

// The layout and its window

class LayoutTest : public testing::Test {
 protected:
  const KORFreshSession _Session;
};

TEST_F(LayoutTest, SessionStartsWithoutOne) {
  EXPECT_EQ(KORFrmLayout::GetCurrentLayout(), nullptr);
}

TEST_F(LayoutTest, SetWindowIsTheCurrentOne) {
  const Window_var window = NewWindow();
  KORFrmLayout::SetCurrentWindow(window);
  ASSERT_NE(KORFrmLayout::GetCurrentLayout(), nullptr);
  EXPECT_EQ(KORFrmLayout::GetCurrentLayout()->GetCurrentWindow(), window->GetImpl(0));
  const Window_var other = NewWindow();
  KORFrmLayout::SetCurrentWindow(other);
  EXPECT_EQ(KORFrmLayout::GetCurrentLayout()->GetCurrentWindow(), other->GetImpl(0));
}

TEST_F(LayoutTest, NullWindowLeavesALayoutWithoutOne) {
  KORFrmLayout::SetCurrentWindow(NewWindow());
  KORFrmLayout::SetCurrentWindow(NULL_var);
  ASSERT_NE(KORFrmLayout::GetCurrentLayout(), nullptr);
  EXPECT_EQ(KORFrmLayout::GetCurrentLayout()->GetCurrentWindow(), nullptr);
}

TEST_F(LayoutTest, SessionsHaveTheirOwn) {
  KORFrmLayout::SetCurrentWindow(NewWindow());
  {
    const KORFreshSession other;
    EXPECT_EQ(KORFrmLayout::GetCurrentLayout(), nullptr);
  }
  EXPECT_NE(KORFrmLayout::GetCurrentLayout(), nullptr);
}

TEST_F(LayoutTest, WindowIsHeldByTheLayoutAndNotByWhoAsksForIt) {
  const long before = KORBaseUnknown::CountLiveObjects();
  KORFrmLayout::SetCurrentWindow(NewWindow());
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  (void)KORFrmLayout::GetCurrentLayout()->GetCurrentWindow();
  KORFrmLayout::SetCurrentWindow(NULL_var);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

// The colour filter

TEST(KORFrmWindowTest, TellsTheStateOfItsFilter) {
  const KORIPLMSextantQuadrantsCustomizationMngt_var window = NewWindow();
  unsigned char active = 0;
  KORUnicodeString name;
  KORListValKORString values;
  values.Append("before");
  EXPECT_EQ(window->GetBIFilterInfo(active, name, &values), S_OK);
  EXPECT_EQ(active, 1);
  EXPECT_EQ(name, "Reservation");
  EXPECT_EQ(values, AFilter().Values);
  KORString openness;
  EXPECT_EQ(window->GetQuadrantOpennessID(openness), S_OK);
  EXPECT_EQ(openness, "Q1");
}

TEST(KORFrmWindowTest, FilterThatIsOffIsTold) {
  const KORIPLMSextantQuadrantsCustomizationMngt_var window = NewWindow({});
  unsigned char active = 1;
  KORUnicodeString name("before");
  KORListValKORString values = AFilter().Values;
  EXPECT_EQ(window->GetBIFilterInfo(active, name, &values), S_OK);
  EXPECT_EQ(active, 0);
  EXPECT_TRUE(name.IsEmpty());
  EXPECT_EQ(values.Size(), 0);
  KORString openness("before");
  EXPECT_EQ(window->GetQuadrantOpennessID(openness), S_OK);
  EXPECT_TRUE(openness.IsEmpty());
}

TEST(KORFrmWindowTest, NullListIsRefusedWithNothingFilled) {
  unsigned char active = 7;
  KORUnicodeString name("before");
  EXPECT_EQ(NewWindow()->GetBIFilterInfo(active, name, nullptr), E_INVALIDARG);
  EXPECT_EQ(active, 7);
  EXPECT_EQ(name, "before");
}

// The colours

class ColourTest : public testing::Test {
 protected:
  static constexpr Manager::Indices Before{-1, -2, -3, -4, -5};

  // The five integers of a value, started at Before.
  static Manager::Indices Get(const Manager::Value& value, long expected = S_OK) {
    Manager::Indices found = Before;
    EXPECT_EQ(Manager::GetManager()->GetMaterialIndexFromIDForGivenQOpenness(value.Openness, value.Filter,
                                                                             value.Attribute, value.Text, found[0],
                                                                             found[1], found[2], found[3], found[4]),
              expected);
    return found;
  }

  const KORFreshSession _Session;
};

TEST_F(ColourTest, AreThoseThatWereSet) {
  Manager::GetManager()->SetIndices({"Q1", "F", "reserved", "TRUE"}, {255, 128, 0, 50, 3});
  EXPECT_EQ(Get({"Q1", "F", "reserved", "TRUE"}), (Manager::Indices{255, 128, 0, 50, 3}));
  Manager::GetManager()->SetIndices({"Q1", "F", "reserved", "TRUE"}, {1, 2, 3, 4, 5});
  EXPECT_EQ(Get({"Q1", "F", "reserved", "TRUE"}), (Manager::Indices{1, 2, 3, 4, 5}));
}

TEST_F(ColourTest, EveryPartOfAValueCounts) {
  Manager::GetManager()->SetIndices({"Q1", "F", "reserved", "TRUE"}, {1, 2, 3, 4, 5});
  for (const Manager::Value& value :
       {Manager::Value{"Q2", "F", "reserved", "TRUE"}, Manager::Value{"Q1", "G", "reserved", "TRUE"},
        Manager::Value{"Q1", "F", "reservedby", "TRUE"}, Manager::Value{"Q1", "F", "reserved", "FALSE"},
        Manager::Value{}}) {
    EXPECT_EQ(Get(value, E_FAIL), Before);
  }
}

TEST_F(ColourTest, ManagerIsOneOfItsSession) {
  Manager* const manager = Manager::GetManager();
  ASSERT_NE(manager, nullptr);
  EXPECT_EQ(Manager::GetManager(), manager);
  manager->SetIndices({}, {1, 2, 3, 4, 5});
  const KORFreshSession other;
  EXPECT_NE(Manager::GetManager(), manager);
  EXPECT_EQ(Get({}, E_FAIL), Before);
}

}  // namespace
