// Containers of features: what they know, which members they list, and how long everything lives.
#include "platform/model/KORFeatureContainer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/base/KORExtension.h"
#include "platform/base/KORFillDictionary.h"
#include "platform/system/KORSession.h"

namespace {

using Container_var = KORHandle<KORFeatureContainer>;
using Feature_var = KORHandle<KORFeature>;

Container_var NewContainer() {
  return Container_var::Adopt(new KORFeatureContainer("VEXTimeAnalysisModel", "VEXTimeAnalysisCont"));
}

Feature_var NewFeature(const char* name) {
  return Feature_var::Adopt(new KORFeature(name));
}

// A member that says that it is a feature and offers no interface of one.
class Impostor final : public KORBaseUnknown {
 public:
  int IsAKindOf(const char* name) const override {
    return std::string(name) == KORISpecObject::ClassName() ? 1 : KORBaseUnknown::IsAKindOf(name);
  }
};

// A member that is made a feature by an extension.
class Extended final : public KORBaseUnknown {
 public:
  const char* GetComponentName() const override { return "ExtendedMember"; }
};

class FeatureExtension final : public KORExtension, public KORImplements<KORISpecObject> {
 public:
  KORUnicodeString GetFeatureName() override { return "extended"; }

  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"FeatureExtension", KORUuid::OfName("FeatureExtension"),
                                          KORBaseUnknown::MetaObject(), ENUMTypeOfClass::CodeExtension};
    return &description;
  }
};

// The members of that class, taken over from the sequence.
std::vector<KORBaseUnknown_var> MembersOf(const Container_var& container, const char* class_name) {
  std::vector<KORBaseUnknown_var> members;
  const auto listed = container->ListMembers(class_name);
  if (listed == nullptr) return members;
  for (int position = 0; position < listed->Size(); ++position) {
    members.push_back(KORBaseUnknown_var::Adopt((*listed)[position]));
  }
  return members;
}

// The names of the features among the members, with a blank behind each; "-" for what is no feature.
std::string NamesOf(const Container_var& container, const char* class_name) {
  std::string names;
  for (const KORBaseUnknown_var& member : MembersOf(container, class_name)) {
    const KORISpecObject_var feature = member;
    names.append(feature.IsNull() ? "-" : feature->GetFeatureName().ConvertToChar()).append(" ");
  }
  return names;
}

TEST(KORFeatureTest, KnowsItsName) {
  EXPECT_EQ(NewFeature("Settings")->GetFeatureName(), "Settings");
  EXPECT_EQ(NewFeature("")->GetFeatureName(), "");
}

TEST(KORFeatureTest, ListsItsAttributesInTheOrderOfTheirAdding) {
  const Feature_var feature = NewFeature("Settings");
  EXPECT_EQ(feature->ListAttributeNames()->Size(), 0);
  feature->AddAttributeName("Width");
  feature->AddAttributeName("Angle");
  const auto names = feature->ListAttributeNames();
  ASSERT_EQ(names->Size(), 2);
  EXPECT_EQ((*names)[1], "Width");
  EXPECT_EQ((*names)[2], "Angle");
}

TEST(KORFeatureTest, ListOfAttributesIsTheCallers) {
  const Feature_var feature = NewFeature("Settings");
  feature->AddAttributeName("Width");
  feature->ListAttributeNames()->RemoveAll();
  EXPECT_EQ(feature->ListAttributeNames()->Size(), 1);
}

TEST(KORFeatureTest, OffersItsTwoInterfaces) {
  const KORBaseUnknown_var feature = NewFeature("Settings");
  EXPECT_FALSE(KORISpecObject_var(feature).IsNull());
  EXPECT_FALSE(KORISpecAttrAccess_var(feature).IsNull());
  EXPECT_TRUE(KORISpecObject_var(feature) == KORISpecAttrAccess_var(feature));
  EXPECT_TRUE(KORIContainer_var(feature).IsNull());
}

TEST(KORFeatureContainerTest, KnowsItsModelTypeAndName) {
  const Container_var container = NewContainer();
  EXPECT_EQ(container->GetModel(), "VEXTimeAnalysisModel");
  EXPECT_STREQ(container->GetType(), "KORFeatCont");
  EXPECT_EQ(container->GetName(), "VEXTimeAnalysisCont");
}

TEST(KORFeatureContainerTest, NewOneIsEmpty) {
  const auto listed = NewContainer()->ListMembers(KORISpecObject::ClassName());
  ASSERT_NE(listed, nullptr);
  EXPECT_EQ(listed->Size(), 0);
}

TEST(KORFeatureContainerTest, ListsMembersInTheirOrderWithNamesThatMayRepeat) {
  const Container_var container = NewContainer();
  const Feature_var first = NewFeature("B");
  container->AddMember(first);
  container->AddMember(NewFeature("A"));
  container->AddMember(NewFeature("B"));
  container->AddMember(NewFeature(""));
  EXPECT_EQ(NamesOf(container, KORISpecObject::ClassName()), "B A B  ");
  EXPECT_TRUE(MembersOf(container, KORISpecObject::ClassName())[0] == first);
}

struct ClassRow {
  const char* Name;
  const char* ClassName;
  const char* Members;
};

class MembersOfClassTest : public testing::TestWithParam<ClassRow> {};

TEST_P(MembersOfClassTest, AreListed) {
  const KORExtensionRegistration extension("ExtendedMember", KORISpecObject::ClassId(),
                                           &KORFillDictionary::ToCreateBOA<KORISpecObject, FeatureExtension>);
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    const Container_var container = NewContainer();
    container->AddMember(NewFeature("feature"));
    container->AddMember(KORBaseUnknown_var::Adopt(new KORBaseUnknown));
    container->AddMember(KORBaseUnknown_var::Adopt(new Impostor));
    container->AddMember(KORBaseUnknown_var::Adopt(new Extended));
    EXPECT_EQ(NamesOf(container, GetParam().ClassName), GetParam().Members);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

INSTANTIATE_TEST_SUITE_P(Classes, MembersOfClassTest,
                         testing::Values(ClassRow{"Features", "KORISpecObject", "feature - extended "},
                                         ClassRow{"WithAttributes", "KORISpecAttrAccess", "feature "},
                                         ClassRow{"AllObjects", "KORBaseUnknown", "feature - - extended "},
                                         ClassRow{"OtherCase", "korispecobject", ""},
                                         ClassRow{"UnknownClass", "KORIContainer", ""}, ClassRow{"EmptyName", "", ""},
                                         ClassRow{"Null", nullptr, ""}),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST(KORFeatureContainerTest, EachListedMemberComesWithAReference) {
  const Container_var container = NewContainer();
  Feature_var feature = NewFeature("A");
  container->AddMember(feature);
  const unsigned long held = feature->AddRef() - 1;
  feature->Release();
  {
    const auto members = MembersOf(container, KORISpecObject::ClassName());
    EXPECT_EQ(feature->AddRef(), held + 2);
    feature->Release();
  }
  EXPECT_EQ(feature->AddRef(), held + 1);
  feature->Release();
}

TEST(KORFeatureContainerTest, KeepsItsMembersAliveAndListedOnesOutliveIt) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Container_var container = NewContainer();
  container->AddMember(NewFeature("A"));
  container->AddMember(NewFeature("B"));
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 3);
  std::vector<KORBaseUnknown_var> members = MembersOf(container, KORISpecObject::ClassName());
  container = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  EXPECT_EQ(KORISpecObject_var(members[1])->GetFeatureName(), "B");
  members.clear();
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORFeatureContainerTest, AFaultThatLeavesNothingGivesNoSequence) {
  const KORFreshSession session;
  KORSession::Current().InjectFault("ListMembers", E_FAIL);
  EXPECT_EQ(NewContainer()->ListMembers(KORISpecObject::ClassName()), nullptr);
}

}  // namespace
