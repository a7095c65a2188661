// The colour filter of the tree in the current window.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "VEXSTTProvider.h"
#include "platform/services/KORFrmLayout.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultTest;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::StatusName;
using support::RowName;

void OpenWindow(const KORFrmWindow::Filter& filter) {
  KORFrmLayout::SetCurrentWindow(KORHandle<KORFrmWindow>::Adopt(new KORFrmWindow(filter)));
}

KORFrmWindow::Filter FilterWithOpenness(const char* openness) {
  KORFrmWindow::Filter filter;
  filter.Active = 1;
  filter.Name = "Maturity";
  filter.Values.Append("RELEASED");
  filter.Values.Append("DRAFT");
  filter.Openness = openness;
  return filter;
}

std::string State() {
  unsigned char active = 7;
  KORUnicodeString name("untouched");
  const long status = VEXSTTProvider::GetBIInfo(active, name);
  return StatusName(status) + " " + std::to_string(active) + " " + std::string(name.Bytes());
}

std::string Colour(const char* filter, const char* attribute, const char* text) {
  int first = -1, second = -2, third = -3, fourth = -4, fifth = -5;
  const long status = VEXSTTProvider::GetColorForBIFilter(filter, attribute, text, first, second, third, fourth, fifth);
  std::string outcome = StatusName(status);
  for (const int index : {first, second, third, fourth, fifth}) outcome += " " + std::to_string(index);
  return outcome;
}
std::string Colour() {
  return Colour("filter", "attribute", "text");
}

constexpr const char* Untouched = " -1 -2 -3 -4 -5";

void SetColour(const char* openness, const KORPLMCompQuadrantsOpennessManager::Indices& indices) {
  KORPLMCompQuadrantsOpennessManager::GetManager()->SetIndices({openness, "filter", "attribute", "text"}, indices);
}

class ColourFilterTest : public ObjectsTest {};

TEST_F(ColourFilterTest, TellsTheStateOfTheWindow) {
  OpenWindow(FilterWithOpenness("Q"));
  EXPECT_EQ(State(), "S_OK 1 Maturity");
  OpenWindow({});
  EXPECT_EQ(State(), "S_OK 0 ");
}

TEST_F(ColourFilterTest, TellsTheFiveIntegersOfAValueUnderTheOpennessInForce) {
  SetColour("Q", {1, 2, 3, 4, 5});
  SetColour("P", {6, 7, 8, 9, 10});
  OpenWindow(FilterWithOpenness("Q"));
  EXPECT_EQ(Colour(), "S_OK 1 2 3 4 5");
  OpenWindow(FilterWithOpenness("P"));
  EXPECT_EQ(Colour(), "S_OK 6 7 8 9 10");
}

TEST_F(ColourFilterTest, AValueThatIsNotKnownHasTheStatusOfTheLookUp) {
  SetColour("Q", {1, 2, 3, 4, 5});
  OpenWindow(FilterWithOpenness("Q"));
  EXPECT_EQ(Colour("text", "attribute", "filter"), std::string("E_FAIL") + Untouched);
}

TEST_F(ColourFilterTest, WithoutAnOpennessInForceNothingIsLookedUp) {
  SetColour("", {1, 2, 3, 4, 5});
  OpenWindow(FilterWithOpenness(""));
  EXPECT_EQ(Colour(), std::string("S_OK") + Untouched);
}

// Windows without a colour filter.
struct WindowRow {
  std::string name;
  std::function<void()> open;
};
class NoColourFilterTest : public ObjectsRowTest<WindowRow> {};

TEST_P(NoColourFilterTest, Fails) {
  GetParam().open();
  EXPECT_EQ(State(), "E_FAIL 7 untouched");
  EXPECT_EQ(Colour(), std::string("E_FAIL") + Untouched);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, NoColourFilterTest,
    testing::Values(WindowRow{"NoLayout", [] {}},
                    WindowRow{"NoWindow", [] { KORFrmLayout::SetCurrentWindow(NULL_var); }},
                    WindowRow{"NoFilter", [] { KORFrmLayout::SetCurrentWindow(calculationtest::MakeBareObject()); }}),
    RowName());

class GetBIInfoFaultTest : public FaultTest {};

TEST_P(GetBIInfoFaultTest, ShowsAsFarAsItIsTested) {
  OpenWindow(FilterWithOpenness("Q"));
  ExpectOutcome(State, "S_OK 1 Maturity");
}

INSTANTIATE_TEST_SUITE_P(Calls, GetBIInfoFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetCurrentLayout", "E_FAIL 7 untouched", "S_OK 1 Maturity", "E_FAIL 7 untouched"},
                             {"GetCurrentWindow", "E_FAIL 7 untouched", "S_OK 1 Maturity", "E_FAIL 7 untouched"},
                             {"GetBIFilterInfo", "fault 7 untouched", "fault 1 Maturity", "S_OK 7 untouched"},
                         })),
                         FaultCaseName());

class GetColorForBIFilterFaultTest : public FaultTest {};

TEST_P(GetColorForBIFilterFaultTest, ShowsAsFarAsItIsTested) {
  SetColour("Q", {1, 2, 3, 4, 5});
  OpenWindow(FilterWithOpenness("Q"));
  ExpectOutcome([] { return Colour(); }, "S_OK 1 2 3 4 5");
}

INSTANTIATE_TEST_SUITE_P(
    Calls, GetColorForBIFilterFaultTest,
    testing::ValuesIn(AllFaults({
        {"GetManager", "E_FAIL -1 -2 -3 -4 -5", "S_OK 1 2 3 4 5", "E_FAIL -1 -2 -3 -4 -5"},
        {"GetCurrentLayout", "E_FAIL -1 -2 -3 -4 -5", "S_OK 1 2 3 4 5", "E_FAIL -1 -2 -3 -4 -5"},
        {"GetCurrentWindow", "E_FAIL -1 -2 -3 -4 -5", "S_OK 1 2 3 4 5", "E_FAIL -1 -2 -3 -4 -5"},
        {"GetQuadrantOpennessID", "fault -1 -2 -3 -4 -5", "fault -1 -2 -3 -4 -5", "S_OK -1 -2 -3 -4 -5"},
        {"GetMaterialIndexFromIDForGivenQOpenness", "fault -1 -2 -3 -4 -5", "fault 1 2 3 4 5", "S_OK -1 -2 -3 -4 -5"},
    })),
    FaultCaseName());

}  // namespace
