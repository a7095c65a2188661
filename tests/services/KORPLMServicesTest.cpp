// Components are opened in the session: to themselves, to nothing, or to several objects.
#include "platform/services/KORPLMServices.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

KORIPLMOpen_var OpenService() {
  KORIPLMOpen* open = nullptr;
  EXPECT_EQ(KORPLMServices::GetOpenServices(open), S_OK);
  return KORIPLMOpen_var::Adopt(open);
}

long Open(const KORIPLMOpen_var& service, const KORListPtrKORIPLMComponent& components,
          KORListValKORBaseUnknown_var& objects) {
  return service->OpenComponents(components, {}, KORJXMNavOpenParameters(), {}, "", objects, 1, 0);
}

KORListValKORBaseUnknown_var ListOf(std::initializer_list<KORBaseUnknown_var> objects) {
  KORListValKORBaseUnknown_var list;
  for (const KORBaseUnknown_var& object : objects) list.Append(object);
  return list;
}

KORListPtrKORIPLMComponent ComponentsOf(std::initializer_list<KORIPLMComponent_var> components) {
  KORListPtrKORIPLMComponent list;
  for (const KORIPLMComponent_var& component : components) list.Append(component.Get());
  return list;
}

class OpenComponentsTest : public testing::Test {
 protected:
  // What the components open to, with a list that wasn't empty before.
  KORListValKORBaseUnknown_var Opened(const KORListPtrKORIPLMComponent& components, long expected = S_OK) {
    KORListValKORBaseUnknown_var objects = ListOf({_Third});
    EXPECT_EQ(Open(OpenService(), components, objects), expected);
    return objects;
  }

  const KORFreshSession _Session;
  const KORBaseUnknown_var _First = KORModel::Current().CreateTimeAnalysis("TA1");
  const KORBaseUnknown_var _Second = KORModel::Current().CreateOtherRepReference("Shape");
  const KORBaseUnknown_var _Third = KORModel::Current().CreateOperation("OP");
};

TEST_F(OpenComponentsTest, EachComponentOpensToItselfInTheirOrder) {
  EXPECT_EQ(Opened(ComponentsOf({_Second, _First, _Second})), ListOf({_Second, _First, _Second}));
}

TEST_F(OpenComponentsTest, NothingOpensToNothing) {
  EXPECT_EQ(Opened({}), ListOf({}));
}

TEST_F(OpenComponentsTest, AComponentMayOpenToNoneOrToSeveralOthers) {
  KOROpenedComponents::Current().SetOpened(_First, {});
  KOROpenedComponents::Current().SetOpened(_Second, ListOf({_Third, _Second, _First}));
  EXPECT_EQ(Opened(ComponentsOf({_First})), ListOf({}));
  EXPECT_EQ(Opened(ComponentsOf({_Second})), ListOf({_Third, _Second, _First}));
  EXPECT_EQ(Opened(ComponentsOf({_Third, _First, _Second})), ListOf({_Third, _Third, _Second, _First}));
}

TEST_F(OpenComponentsTest, TheLastWordCounts) {
  KOROpenedComponents::Current().SetOpened(_First, ListOf({_Second}));
  KOROpenedComponents::Current().SetOpened(_First, ListOf({_Third}));
  EXPECT_EQ(Opened(ComponentsOf({_First})), ListOf({_Third}));
}

TEST_F(OpenComponentsTest, ANullComponentIsRefusedWithAnEmptyList) {
  KORListPtrKORIPLMComponent components = ComponentsOf({_First});
  components.Append(nullptr);
  EXPECT_EQ(Opened(components, E_INVALIDARG), ListOf({}));
}

TEST_F(OpenComponentsTest, SessionsDoNotShareWhatOpensToWhat) {
  KOROpenedComponents::Current().SetOpened(_First, {});
  const KORFreshSession other;
  EXPECT_EQ(Opened(ComponentsOf({_First})), ListOf({_First}));
}

TEST_F(OpenComponentsTest, TheServiceServesTheSessionThatIsThenTheCurrentOne) {
  const KORIPLMOpen_var service = OpenService();
  KOROpenedComponents::Current().SetOpened(_First, {});
  KORListValKORBaseUnknown_var objects;
  EXPECT_EQ(Open(service, ComponentsOf({_First}), objects), S_OK);
  EXPECT_EQ(objects.Size(), 0);
}

TEST_F(OpenComponentsTest, OpenedObjectsAreHeldByTheList) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    KORIPLMComponent_var component =
        KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TA"));
    const KORListValKORBaseUnknown_var objects = Opened(ComponentsOf({component}));
    component = nullptr;
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(OpenServicesTest, SessionKeepsWhatOpensToWhatUntilItsEnd) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    const KORFreshSession session;
    const KORIPLMComponent_var component =
        KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TA"));
    KOROpenedComponents::Current().SetOpened(component, ListOf({component}));  // itself, in a circle
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
