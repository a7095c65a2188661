// Faults in the operations on the window, on its colour filter, and on components that are opened in it.
#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/services/KORFrmLayout.h"
#include "platform/services/KORPLMServices.h"
#include "tests/services/FaultKinds.h"

namespace servicestest {
namespace {

using Manager = KORPLMCompQuadrantsOpennessManager;

KORHandle<KORFrmWindow> Window() {
  KORFrmWindow::Filter filter{1, "filter", {}, "openness"};
  filter.Values.Append("value");
  return KORHandle<KORFrmWindow>::Adopt(new KORFrmWindow(filter));
}

const OperationRow Operations[] = {
    {"GetCurrentLayout",
     [](bool& done) {
       KORFrmLayout::SetCurrentWindow(Window());
       done = false;
       done = KORFrmLayout::GetCurrentLayout() != nullptr;
       return S_OK;
     },
     false},
    {"GetCurrentWindow",
     [](bool& done) {
       KORFrmLayout::SetCurrentWindow(Window());
       done = false;
       done = KORFrmLayout::GetCurrentLayout()->GetCurrentWindow() != nullptr;
       return S_OK;
     },
     false},
    {"GetBIFilterInfo",
     [](bool& done) {
       unsigned char active = 0;
       KORUnicodeString name;
       KORListValKORString values;
       return Run(
           done, [&] { return Window()->GetBIFilterInfo(active, name, &values); },
           [&] {
             EXPECT_EQ(name.IsEmpty(), active == 0);
             EXPECT_EQ(values.Size(), active);
             return active != 0;
           });
     }},
    {"GetQuadrantOpennessID",
     [](bool& done) {
       KORString identifier;
       return Run(
           done, [&] { return Window()->GetQuadrantOpennessID(identifier); }, [&] { return !identifier.IsEmpty(); });
     }},
    {"GetManager",
     [](bool& done) {
       done = false;
       done = Manager::GetManager() != nullptr;
       return S_OK;
     },
     false},
    {"GetMaterialIndexFromIDForGivenQOpenness",
     [](bool& done) {
       constexpr Manager::Indices Set{1, 2, 3, 4, 5};
       Manager::GetManager()->SetIndices({}, Set);
       Manager::Indices found{};
       return Run(
           done,
           [&] {
             return Manager::GetManager()->GetMaterialIndexFromIDForGivenQOpenness({}, {}, {}, {}, found[0], found[1],
                                                                                   found[2], found[3], found[4]);
           },
           [&] {
             EXPECT_TRUE(found == Set || found == Manager::Indices{});
             return found == Set;
           });
     }},
    {"OpenComponents",
     [](bool& done) {
       KORIPLMOpen* open = nullptr;
       (void)KORPLMServices::GetOpenServices(open);
       const auto held = KORIPLMOpen_var::Adopt(open);
       const KORIPLMComponent_var component = NewAnalysis();
       KORListPtrKORIPLMComponent components;
       components.Append(component.Get());
       KORListValKORBaseUnknown_var objects;
       objects.Append(NULL_var);
       return Run(
           done, [&] { return held->OpenComponents(components, {}, {}, {}, "", objects, 1, 0); },
           [&] {
             EXPECT_EQ(objects.Locate(NULL_var), 0);
             return objects.Size() != 0;
           });
     }},
};

class WindowFaultsTest : public FaultKindsTest {};

TEST_P(WindowFaultsTest, HoldForOneCallOrForAll) {
  CheckAllKinds();
}

INSTANTIATE_TEST_SUITE_P(OfTheWindow, WindowFaultsTest, testing::ValuesIn(Operations), NameOfOperation());

}  // namespace
}  // namespace servicestest
