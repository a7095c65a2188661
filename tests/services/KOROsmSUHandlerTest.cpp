// Features are made in containers of the model, from what the modeler declares.
#include "platform/services/KOROsmSUHandler.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/base/KORStatus.h"
#include "platform/model/KORFeatureContainer.h"
#include "platform/services/VEXTimeAnalysisModelerDeclarations.h"

namespace {

using Container_var = KORHandle<KORFeatureContainer>;

Container_var NewContainer() {
  return Container_var::Adopt(new KORFeatureContainer("Model", "Name"));
}

KOROsmSUHandler HandlerOf(const KORUnicodeString& name) {
  return {name, "", VEXTimeAnalysisModelerDeclarations::StorageName};
}

// The names of the members, with a blank behind each.
std::string NamesIn(const Container_var& container) {
  std::string names;
  const auto listed = container->ListMembers(KORISpecObject::ClassName());
  for (int position = 0; position < listed->Size(); ++position) {
    const auto member = KORBaseUnknown_var::Adopt((*listed)[position]);
    names.append(KORISpecObject_var(member)->GetFeatureName().Bytes()).append(" ");
  }
  return names;
}

// A container that is not of the model.
class ForeignContainer final : public KORImplements<KORIContainer> {
 public:
  std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> ListMembers(const char* /*class_name*/) override {
    return std::make_unique<_SEQUENCE_KORBaseUnknown_ptr>();
  }
};

TEST(KOROsmSUHandlerTest, FeatureBearsTheNameOfTheHandlerAndStandsLast) {
  const Container_var container = NewContainer();
  KORISpecObject_var first;
  KORISpecObject_var second;
  EXPECT_EQ(HandlerOf("Settings").Instanciate(first, container, ""), S_OK);
  EXPECT_EQ(HandlerOf("Gr\xC3\xB6\xC3\x9F\x65 1").Instanciate(second, container, ""), S_OK);
  EXPECT_EQ(first->GetFeatureName(), "Settings");
  EXPECT_EQ(NamesIn(container), "Settings Gr\xC3\xB6\xC3\x9F\x65 1 ");
  EXPECT_FALSE(KORISpecAttrAccess_var(first).IsNull());
}

TEST(KOROsmSUHandlerTest, EachCallMakesAnother) {
  const Container_var container = NewContainer();
  const KOROsmSUHandler handler = HandlerOf("A");
  KORISpecObject_var first;
  KORISpecObject_var second;
  EXPECT_EQ(handler.Instanciate(first, container, ""), S_OK);
  EXPECT_EQ(handler.Instanciate(second, container, ""), S_OK);
  EXPECT_FALSE(first == second);
  EXPECT_EQ(NamesIn(container), "A A ");
}

TEST(KOROsmSUHandlerTest, ContainerAndCallerBothHoldTheFeature) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Container_var container = NewContainer();
  KORISpecObject_var feature;
  EXPECT_EQ(HandlerOf("A").Instanciate(feature, container, ""), S_OK);
  container = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  EXPECT_EQ(feature->GetFeatureName(), "A");
  feature = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

struct RefusalRow {
  const char* Name;
  KOROsmSUHandler Handler;
  enum { OfModel, Foreign, Null } Container;
  long Status;
};

void PrintTo(const RefusalRow& row, std::ostream* out) {
  *out << row.Name;
}

class RefusedFeatureTest : public testing::TestWithParam<RefusalRow> {};

TEST_P(RefusedFeatureTest, LeavesContainerAndHandleAsTheyWere) {
  const Container_var of_model = NewContainer();
  KORIContainer_var container;
  if (GetParam().Container == RefusalRow::OfModel) container = of_model;
  if (GetParam().Container == RefusalRow::Foreign) container = KORIContainer_var::Adopt(new ForeignContainer);
  const KORISpecObject_var held = KORHandle<KORFeature>::Adopt(new KORFeature("held"));
  KORISpecObject_var feature = held;
  EXPECT_EQ(GetParam().Handler.Instanciate(feature, container, ""), GetParam().Status);
  EXPECT_TRUE(feature == held);
  EXPECT_EQ(NamesIn(of_model), "");
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, RefusedFeatureTest,
    testing::Values(RefusalRow{"NullContainer", HandlerOf("A"), RefusalRow::Null, E_INVALIDARG},
                    RefusalRow{"ForeignContainer", HandlerOf("A"), RefusalRow::Foreign, E_INVALIDARG},
                    RefusalRow{"EmptyName", HandlerOf(""), RefusalRow::OfModel, E_FAIL},
                    RefusalRow{"OtherStorage", {"A", "", "Elsewhere"}, RefusalRow::OfModel, E_FAIL},
                    RefusalRow{"NoStorage", {"A", "", ""}, RefusalRow::OfModel, E_FAIL},
                    RefusalRow{"EmptyNameAndNullContainer", HandlerOf(""), RefusalRow::Null, E_INVALIDARG}),
    [](const auto& row) { return std::string(row.param.Name); });

}  // namespace
