// What the platform knows of the module's classes: their descriptions, the interfaces that they add to components, and
// how these are answered for.
#include "presentation/Registration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "VEXSTMJSONServices.h"
#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORTrace.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORINavigateObject.h"
#include "platform/services/KORIPLMRepUIManagement.h"
#include "platform/system/KORInstantiateComponent.h"
#include "platform/system/KORSession.h"
#include "presentation/CreationFunctions.h"
#include "presentation/VEXESTMTimeAnalysisNavigModify.h"
#include "presentation/VEXESTMTimeAnalysisNavigObjectModify.h"
#include "presentation/VEXESTMTimeAnalysisNavigate.h"
#include "presentation/VEXESTMTimeAnalysisRepUIManagement.h"
#include "presentation/VEXETimeAnalysisSessionServicesMgr.h"
#include "presentation/VEXSTMTimeAnalysisIcon.h"
#include "tests/presentation/PresentationTest.h"

namespace {

using presentation::RetrieveMetaObject;
using presentationtest::Attach;
using presentationtest::InstanceComponent;
using presentationtest::InstanceNodeComponent;
using presentationtest::NewDrawing;
using presentationtest::NewOperation;
using presentationtest::NewStranger;
using presentationtest::ReferenceComponent;
using presentationtest::ReferenceNodeComponent;

template <class Interface>
bool IsOffered(const KORBaseUnknown_var& object) {
  return !KORHandle<Interface>(object).IsNull();
}

// ---- Descriptions ----

struct DescriptionRow {
  const char* Class;
  int Kind;
  const char* Base;
  std::vector<std::string> Extends;
  const KORMetaClass* (*OfTheClass)();
};

class DescriptionTest : public testing::TestWithParam<DescriptionRow> {};

TEST_P(DescriptionTest, IsKnownByName) {
  const DescriptionRow& row = GetParam();
  const KORMetaClass* const description = fct_FindMetaObject(row.Class);
  ASSERT_NE(description, nullptr);
  EXPECT_STREQ(description->Name, row.Class);
  EXPECT_EQ(static_cast<int>(description->Kind), row.Kind);
  ASSERT_NE(description->Base, nullptr);
  EXPECT_STREQ(description->Base->Name, row.Base);
  EXPECT_STREQ(description->FWname, "VEXTimeAnalysisModeler");
  std::vector<std::string> extends;
  for (const char* const component : description->Extends) {
    if (component != nullptr) extends.emplace_back(component);
  }
  EXPECT_EQ(extends, row.Extends);
}

TEST_P(DescriptionTest, IsTheOneOfTheClass) {
  EXPECT_EQ(GetParam().OfTheClass(), fct_FindMetaObject(GetParam().Class));
  EXPECT_EQ(RetrieveMetaObject(GetParam().Class), fct_FindMetaObject(GetParam().Class));
}

INSTANTIATE_TEST_SUITE_P(
    Classes, DescriptionTest,
    testing::Values(
        DescriptionRow{"VEXESTMTimeAnalysisNavigModify",
                       2,
                       "KORBaseUnknown",
                       {ReferenceNodeComponent, InstanceNodeComponent},
                       &VEXESTMTimeAnalysisNavigModify::MetaObject},
        DescriptionRow{"VEXESTMTimeAnalysisNavigObjectModify",
                       4,
                       "KORINavigateObjectModify",
                       {ReferenceComponent, InstanceComponent},
                       &VEXESTMTimeAnalysisNavigObjectModify::MetaObject},
        DescriptionRow{"VEXESTMTimeAnalysisNavigate",
                       4,
                       "KORINavigateObject",
                       {ReferenceComponent, InstanceComponent},
                       &VEXESTMTimeAnalysisNavigate::MetaObject},
        DescriptionRow{"VEXESTMTimeAnalysisRepUIManagement",
                       4,
                       "KORIPLMRepUIManagement",
                       {ReferenceComponent, InstanceComponent},
                       &VEXESTMTimeAnalysisRepUIManagement::MetaObject},
        DescriptionRow{"VEXSTMTimeAnalysisIcon",
                       2,
                       "KORIIcon",
                       {ReferenceComponent, InstanceComponent},
                       &VEXSTMTimeAnalysisIcon::MetaObject},
        DescriptionRow{"VEXETimeAnalysisSessionServicesMgr",
                       1,
                       "VEXITimeAnalysisSessionServicesMgr",
                       {},
                       &VEXETimeAnalysisSessionServicesMgr::MetaObject},
        DescriptionRow{"VEXSTMJSONServices", 1, "KORBaseUnknown", {}, &VEXSTMJSONServices::MetaObject},
        DescriptionRow{
            "VEXSTMTimeAnalysisDlgServices", 1, "KORBaseUnknown", {}, &VEXSTMTimeAnalysisDlgServices::MetaObject}),
    [](const auto& row) { return std::string(row.param.Class); });

TEST(RegistrationTest, KnowsNoOtherClass) {
  EXPECT_EQ(RetrieveMetaObject("VEXSTMPicturesServices"), nullptr);
  EXPECT_EQ(RetrieveMetaObject(""), nullptr);
}

TEST(RegistrationTest, DescribesTheInterfaceOfTheSessionServicesManager) {
  const KORMetaClass* const description = VEXITimeAnalysisSessionServicesMgr::MetaObject();
  EXPECT_STREQ(description->Name, "VEXITimeAnalysisSessionServicesMgr");
  EXPECT_EQ(description->Base, KORBaseUnknown::MetaObject());
  EXPECT_STREQ(description->FWname, "VEXTimeAnalysisModeler");
  EXPECT_EQ(KORFillDictionary::FindInDictionary(VEXITimeAnalysisSessionServicesMgr::ClassId(), CLSID_KORMetaClass),
            description);
}

// ---- Interfaces ----

struct InterfaceRow {
  const char* Name;
  bool (*IsOfferedBy)(const KORBaseUnknown_var& object);
  std::vector<std::string_view> Components;
};

class InterfaceTest : public testing::TestWithParam<InterfaceRow> {};

TEST_P(InterfaceTest, IsOfferedByTheComponentsOfItsClassAlone) {
  for (const char* const component :
       {ReferenceComponent, InstanceComponent, ReferenceNodeComponent, InstanceNodeComponent, "KORNull", "AnyOther"}) {
    const auto& components = GetParam().Components;
    const bool expected = std::find(components.begin(), components.end(), component) != components.end();
    EXPECT_EQ(GetParam().IsOfferedBy(NewStranger(component)), expected) << component;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Dictionary, InterfaceTest,
    testing::Values(
        InterfaceRow{"KORINavigElement", &IsOffered<KORINavigElement>, {ReferenceNodeComponent, InstanceNodeComponent}},
        InterfaceRow{"KORINavigModify", &IsOffered<KORINavigModify>, {ReferenceNodeComponent, InstanceNodeComponent}},
        InterfaceRow{
            "KORINavigNodeCtrl", &IsOffered<KORINavigNodeCtrl>, {ReferenceNodeComponent, InstanceNodeComponent}},
        InterfaceRow{
            "KORINavigateObjectModify", &IsOffered<KORINavigateObjectModify>, {ReferenceComponent, InstanceComponent}},
        InterfaceRow{"KORINavigateObject", &IsOffered<KORINavigateObject>, {ReferenceComponent, InstanceComponent}},
        InterfaceRow{
            "KORIPLMRepUIManagement", &IsOffered<KORIPLMRepUIManagement>, {ReferenceComponent, InstanceComponent}},
        InterfaceRow{"KORIIcon", &IsOffered<KORIIcon>, {ReferenceComponent, InstanceComponent}},
        InterfaceRow{"VEXITimeAnalysisSessionServicesMgr", &IsOffered<VEXITimeAnalysisSessionServicesMgr>, {}}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST(RegistrationTest, OffersNothingToInstancesOfOtherRepresentations) {
  const KORFreshSession session;
  const auto of_drawing = Attach(NewOperation("Cover"), NewDrawing("Sketch"));
  EXPECT_FALSE(IsOffered<KORIIcon>(of_drawing));
  EXPECT_FALSE(IsOffered<KORINavigateObject>(of_drawing));
}

// ---- How they are answered for ----

template <class Interface>
Interface* Create(KORCreationFunction create, const KORBaseUnknown_var& object) {
  return static_cast<Interface*>(create(*object));
}

// The class of the extension that answers, by way of two creations for one object.
template <class Interface>
std::string WhoAnswers(KORCreationFunction create, const char* component) {
  const KORBaseUnknown_var object = NewStranger(component);
  const auto first = KORHandle<Interface>::Adopt(Create<Interface>(create, object));
  const auto second = KORHandle<Interface>::Adopt(Create<Interface>(create, object));
  EXPECT_TRUE(first == object && second == object) << "an extension is the extended object";
  return std::string(first->IsA()) + (first.Get() == second.Get() ? ", one for the object" : ", one for each cast");
}

TEST(CreationFunctionsTest, ClassAnswersItself) {
  EXPECT_EQ(
      WhoAnswers<KORINavigateObjectModify>(
          &presentation::CreateBOAKORINavigateObjectModifyVEXESTMTimeAnalysisNavigObjectModify, ReferenceComponent),
      "VEXESTMTimeAnalysisNavigObjectModify, one for each cast");
  EXPECT_EQ(WhoAnswers<KORINavigateObject>(&presentation::CreateBOAKORINavigateObjectVEXESTMTimeAnalysisNavigate,
                                           ReferenceComponent),
            "VEXESTMTimeAnalysisNavigate, one for each cast");
  EXPECT_EQ(WhoAnswers<KORIPLMRepUIManagement>(
                &presentation::CreateBOAKORIPLMRepUIManagementVEXESTMTimeAnalysisRepUIManagement, ReferenceComponent),
            "VEXESTMTimeAnalysisRepUIManagement, one for each cast");
  EXPECT_EQ(WhoAnswers<KORIIcon>(&presentation::CreateBOAKORIIconVEXSTMTimeAnalysisIcon, ReferenceComponent),
            "VEXSTMTimeAnalysisIcon, one for the object");
}

TEST(CreationFunctionsTest, ForwarderAnswersUnderTheNameOfItsInterface) {
  EXPECT_EQ(WhoAnswers<KORINavigElement>(&presentation::CreateTIEKORINavigElementVEXESTMTimeAnalysisNavigModify,
                                         ReferenceNodeComponent),
            "KORINavigElement, one for each cast");
  EXPECT_EQ(WhoAnswers<KORINavigModify>(&presentation::CreateTIEKORINavigModifyVEXESTMTimeAnalysisNavigModify,
                                        ReferenceNodeComponent),
            "KORINavigModify, one for each cast");
  EXPECT_EQ(WhoAnswers<KORINavigNodeCtrl>(&presentation::CreateTIEKORINavigNodeCtrlVEXESTMTimeAnalysisNavigModify,
                                          ReferenceNodeComponent),
            "KORINavigNodeCtrl, one for each cast");
}

template <class Interface>
void ExpectDescriptionOfForwarder() {
  const KORHandle<Interface> forwarder = NewStranger(InstanceNodeComponent);
  ASSERT_FALSE(forwarder.IsNull());
  const KORMetaClass* const description = forwarder->GetMetaObject();
  EXPECT_NE(description, Interface::MetaObject());
  EXPECT_STREQ(description->Name, Interface::ClassName());
  EXPECT_STREQ(description->Base->Name, Interface::ClassName());
  EXPECT_EQ(description->Base->Identifier, Interface::ClassId());
  EXPECT_EQ(description->Implementation, VEXESTMTimeAnalysisNavigModify::MetaObject());
  EXPECT_STREQ(description->FWname, "VEXTimeAnalysisModeler");
}

TEST(CreationFunctionsTest, ForwarderHasADescriptionOfItsOwn) {
  ExpectDescriptionOfForwarder<KORINavigElement>();
  ExpectDescriptionOfForwarder<KORINavigModify>();
  ExpectDescriptionOfForwarder<KORINavigNodeCtrl>();
}

TEST(CreationFunctionsTest, ForwardersOfOneObjectShareOneExtension) {
  for (const char* const component : {ReferenceNodeComponent, InstanceNodeComponent}) {
    const KORBaseUnknown_var node = NewStranger(component);
    const KORBaseUnknown_var other = NewStranger(component);
    const auto instance = KORHandle<KORNavigInstance>::Adopt(new KORNavigInstance(NULL_var));
    KORINavigNodeCtrl_var(node)->PutAssociatedInstance(instance.Get());
    KORINavigModify_var(node)->Select(1);
    KORINavigElement_var(node)->SetMarked(1);
    EXPECT_EQ(KORINavigElement_var(node)->GetAssociatedInstance(), instance.Get());
    EXPECT_EQ(KORINavigElement_var(other)->GetAssociatedInstance(), nullptr);
    EXPECT_EQ(KORINavigElement_var(node)->GetMarked(), 1);
    EXPECT_EQ(KORINavigElement_var(other)->GetMarked(), 0);
    KORINavigElement_var(node)->Remove();
    EXPECT_EQ(KORINavigModify_var(node)->IsSelected(), 0) << "one state behind all three";
  }
}

TEST(CreationFunctionsTest, ExtensionWithStateIsMadeOnceAndGoneWithItsObject) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    const KORBaseUnknown_var object = NewStranger(InstanceComponent);
    const KORBaseUnknown_var node = NewStranger(InstanceNodeComponent);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
    const KORIIcon_var icon = object;
    EXPECT_EQ(KORIIcon_var(object).Get(), icon.Get());
    (void)KORINavigElement_var(node);
    (void)KORINavigModify_var(node);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 4) << "two objects with one extension each";
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(CreationFunctionsTest, SessionServicesManagerAnswersForItself) {
  const auto create = &presentation::CreateBOAVEXITimeAnalysisSessionServicesMgrVEXETimeAnalysisSessionServicesMgr;
  const auto manager = KORBaseUnknown_var::Adopt(new VEXETimeAnalysisSessionServicesMgr);
  const auto found =
      VEXITimeAnalysisSessionServicesMgr_var::Adopt(Create<VEXITimeAnalysisSessionServicesMgr>(create, manager));
  EXPECT_EQ(found.Get(), VEXITimeAnalysisSessionServicesMgr_var(manager).Get());
  EXPECT_EQ(Create<VEXITimeAnalysisSessionServicesMgr>(create, NewStranger("AnyOther")), nullptr);
}

TEST(CreationFunctionsTest, SessionServicesManagerIsMadeByItsName) {
  void* out = nullptr;
  ASSERT_EQ(KORInstantiateComponent("VEXETimeAnalysisSessionServicesMgr", VEXITimeAnalysisSessionServicesMgr::ClassId(),
                                    &out),
            S_OK);
  const auto manager =
      VEXITimeAnalysisSessionServicesMgr_var::Adopt(static_cast<VEXITimeAnalysisSessionServicesMgr*>(out));
  EXPECT_STREQ(manager->IsA(), "VEXETimeAnalysisSessionServicesMgr");
  EXPECT_STREQ(manager->GetComponentName(), "VEXETimeAnalysisSessionServicesMgr");
}

// ---- At load ----

// What an initialiser of the program sees.
struct Seen {
  bool Class = fct_FindMetaObject("VEXSTMJSONServices") != nullptr;
  bool Icon = !KORIIcon_var(NewStranger(ReferenceComponent)).IsNull();
  bool NodeElement = !KORINavigElement_var(NewStranger(InstanceNodeComponent)).IsNull();
  bool Component = KORFillDictionary::FindFunctionCreation("VEXETimeAnalysisSessionServicesMgr") != nullptr;
  bool Trace = KORTrace::Find("KORVEXTimeAnalysisModelerServicesTrace") != nullptr;
};

// In the order of the initialisers: with the priority next to the module's own, with none, and in main.
[[gnu::init_priority(102)]] const Seen seen_early;
const Seen seen_at_load;

TEST(RegistrationTest, IsDoneAheadOfTheInitialisersOfTheProgram) {
  for (const Seen& seen : {seen_early, seen_at_load, Seen()}) {
    EXPECT_TRUE(seen.Class);
    EXPECT_TRUE(seen.Icon);
    EXPECT_TRUE(seen.NodeElement);
    EXPECT_TRUE(seen.Component);
    EXPECT_TRUE(seen.Trace);
  }
}

TEST(RegistrationTest, MakesTheTraceOfTheModule) {
  const KORTrace* const trace = KORTrace::Find("KORVEXTimeAnalysisModelerServicesTrace");
  ASSERT_NE(trace, nullptr);
  EXPECT_EQ(trace->GetName(), "KORVEXTimeAnalysisModelerServicesTrace");
  EXPECT_EQ(trace->GetDescription(), "Traces for module VEXTimeAnalysisModelerServices");
  EXPECT_EQ(trace->GetMode(), 1);
  EXPECT_EQ(trace->GetDestination(), "STDERR");
  EXPECT_EQ(trace->GetSize(), 1024);
}

}  // namespace
