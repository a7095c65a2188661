// The table of kept components.
#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "platform/base/KORError.h"
#include "platform/base/KORFillDictionary.h"
#include "platform/model/KORPLMSpace.h"
#include "platform/system/KORInstantiateComponent.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using calculationtest::MakeBareObject;
using objectstest::AllFaults;
using objectstest::FaultCaseName;
using objectstest::FaultKinds;
using objectstest::FaultOf;
using objectstest::FaultTest;
using objectstest::ListOf;
using objectstest::Marker;
using objectstest::NameOf;
using objectstest::NamesOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::ObjectsTest;
using objectstest::ReferencesOf;
using objectstest::StatusName;

using Manager_var = VEXITimeAnalysisSessionServicesMgr_var;

// A table of its own, which ends with the test.
Manager_var NewManager() {
  void* made = nullptr;
  EXPECT_EQ(KORInstantiateComponent("VEXETimeAnalysisSessionServicesMgr", VEXITimeAnalysisSessionServicesMgr::ClassId(),
                                    &made),
            S_OK);
  return Manager_var::Adopt(static_cast<VEXITimeAnalysisSessionServicesMgr*>(made));
}

template <class Object>
long Keep(const Manager_var& manager, const char* key, const KORHandle<Object>& component) {
  return manager->KeepComponent(key, component.Get());
}

bool IsKept(const Manager_var& manager, const char* key) {
  unsigned char kept = 7;
  EXPECT_EQ(manager->IsComponentKept(key, kept), S_OK);
  EXPECT_TRUE(kept == 0 || kept == 1);
  return kept == 1;
}

// The status and the name of the component.
std::string Get(const Manager_var& manager, const char* key) {
  int anything = 0;
  auto* component = reinterpret_cast<KORBaseUnknown*>(&anything);
  const long status = manager->GetKeptComponent(key, component);
  return StatusName(status) + " " + NameOf(KORBaseUnknown_var::Adopt(component));
}

// The status and the names in the list, which held a marker before.
std::string GetAll(const Manager_var& manager) {
  KORListValKORBaseUnknown_var components = ListOf({Marker()});
  const long status = manager->GetAllKeptComponents(components);
  return StatusName(status) + " " + NamesOf(components);
}

class SessionServicesMgrTest : public ObjectsTest {
 protected:
  const Manager_var _Manager = NewManager();
};

TEST_F(SessionServicesMgrTest, TellsItsClass) {
  constexpr KORUuid Identifier{
      {0xCB, 0x23, 0x09, 0x9A, 0x60, 0x91, 0x46, 0xA8, 0x88, 0x23, 0x00, 0x5B, 0x60, 0x65, 0x5E, 0xCA}};
  EXPECT_EQ(VEXITimeAnalysisSessionServicesMgr::ClassId(), Identifier);
  EXPECT_STREQ(VEXITimeAnalysisSessionServicesMgr::ClassName(), "VEXITimeAnalysisSessionServicesMgr");
  EXPECT_EQ(VEXITimeAnalysisSessionServicesMgr::MetaObject()->Base, KORBaseUnknown::MetaObject());
  EXPECT_STREQ(_Manager->IsA(), "VEXETimeAnalysisSessionServicesMgr");
  EXPECT_EQ(_Manager->IsAKindOf("VEXITimeAnalysisSessionServicesMgr"), 1);
}

TEST_F(SessionServicesMgrTest, EveryTableIsAnOwnOne) {
  const auto analysis = NewAnalysis("A");
  EXPECT_EQ(Keep(_Manager, "key", analysis), S_OK);
  EXPECT_FALSE(IsKept(NewManager(), "key"));
}

// ---- Keeping and getting ----

TEST_F(SessionServicesMgrTest, GivesWhatItKeeps) {
  const auto analysis = NewAnalysis("A");
  EXPECT_FALSE(IsKept(_Manager, "key"));
  EXPECT_EQ(Keep(_Manager, "key", analysis), S_OK);
  EXPECT_TRUE(IsKept(_Manager, "key"));
  EXPECT_EQ(Get(_Manager, "key"), "S_OK A");
}

TEST_F(SessionServicesMgrTest, TheComponentComesWithAReference) {
  const auto analysis = NewAnalysis("A");
  EXPECT_EQ(Keep(_Manager, "key", analysis), S_OK);
  const unsigned long references = ReferencesOf(*analysis);
  KORBaseUnknown* component = nullptr;
  ASSERT_EQ(_Manager->GetKeptComponent("key", component), S_OK);
  EXPECT_EQ(component, analysis->GetImpl(0));
  EXPECT_EQ(ReferencesOf(*analysis), references + 1);
  component->Release();
}

TEST_F(SessionServicesMgrTest, TakesAnyInterfaceOfAComponent) {
  const VEXITimeAnalysisLines_var lines = NewAnalysis("A");
  EXPECT_EQ(Keep(_Manager, "key", lines), S_OK);
  EXPECT_EQ(Get(_Manager, "key"), "S_OK A");
}

TEST_F(SessionServicesMgrTest, TheFirstComponentUnderAKeyStays) {
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("B")), S_OK);
  EXPECT_EQ(Get(_Manager, "key"), "S_OK A");
}

TEST_F(SessionServicesMgrTest, AKnownKeyTakesWhateverIsNoComponent) {
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(Keep(_Manager, "key", MakeBareObject()), S_OK);
  EXPECT_EQ(Get(_Manager, "key"), "S_OK A");
}

TEST_F(SessionServicesMgrTest, OneComponentMayStandUnderSeveralKeys) {
  const auto analysis = NewAnalysis("A");
  EXPECT_EQ(Keep(_Manager, "one", analysis), S_OK);
  EXPECT_EQ(Keep(_Manager, "two", analysis), S_OK);
  EXPECT_EQ(_Manager->ForgetComponent("one"), S_OK);
  EXPECT_EQ(Get(_Manager, "two"), "S_OK A");
}

TEST_F(SessionServicesMgrTest, KeysAreComparedExactly) {
  EXPECT_EQ(Keep(_Manager, "Schlüssel", NewAnalysis("A")), S_OK);
  EXPECT_EQ(Keep(_Manager, "", NewAnalysis("B")), S_OK);
  EXPECT_FALSE(IsKept(_Manager, "SCHLÜSSEL"));
  EXPECT_FALSE(IsKept(_Manager, "Schlüssel "));
  EXPECT_EQ(Get(_Manager, "Schlüssel"), "S_OK A");
  EXPECT_EQ(Get(_Manager, ""), "S_OK B");
}

TEST_F(SessionServicesMgrTest, KeepsMoreThanItStartsWith) {
  for (int number = 1; number <= 100; ++number) {
    EXPECT_EQ(Keep(_Manager, std::to_string(number).c_str(), NewAnalysis(std::to_string(number))), S_OK);
  }
  for (int number = 1; number <= 100; ++number) {
    EXPECT_EQ(Get(_Manager, std::to_string(number).c_str()), "S_OK " + std::to_string(number));
  }
}

TEST_F(SessionServicesMgrTest, RefusesNullAndWhatIsNoComponent) {
  EXPECT_EQ(_Manager->KeepComponent("key", nullptr), E_INVALIDARG);
  EXPECT_EQ(Keep(_Manager, "key", MakeBareObject()), S_FALSE);
  EXPECT_FALSE(IsKept(_Manager, "key"));
}

TEST_F(SessionServicesMgrTest, NullIsRefusedUnderAKnownKeyToo) {
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(_Manager->KeepComponent("key", nullptr), E_INVALIDARG);
}

// A component that has no identificator.
class Unidentified final : public KORImplements<KORIPLMComponent> {
 public:
  long GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) override {
    identificator = nullptr;
    return S_OK;
  }
};

TEST_F(SessionServicesMgrTest, AComponentWithoutIdentificatorCannotBeKept) {
  EXPECT_EQ(Keep(_Manager, "key", KORHandle<Unidentified>::Adopt(new Unidentified)), S_FALSE);
  EXPECT_FALSE(IsKept(_Manager, "key"));
}

TEST_F(SessionServicesMgrTest, AnUnknownKeyGivesNothing) {
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(Get(_Manager, "unknown"), "S_FALSE null");
}

// ---- Components that are gone ----

TEST_F(SessionServicesMgrTest, DoesNotKeepComponentsAlive) {
  auto analysis = support::MakeAnalysis("A");
  EXPECT_EQ(Keep(_Manager, "key", analysis), S_OK);
  EXPECT_EQ(ReferencesOf(*analysis), 1u);
  EXPECT_EQ(Get(_Manager, "key"), "S_OK A");
  analysis = nullptr;
  EXPECT_TRUE(IsKept(_Manager, "key")) << "nobody checks whether it lives";
  EXPECT_EQ(Get(_Manager, "key"), "E_FAIL null");
}

// ---- Forgetting ----

TEST_F(SessionServicesMgrTest, AForgottenKeyCanBeUsedAgain) {
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(_Manager->ForgetComponent("key"), S_OK);
  EXPECT_FALSE(IsKept(_Manager, "key"));
  EXPECT_EQ(Get(_Manager, "key"), "S_FALSE null");
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("B")), S_OK);
  EXPECT_EQ(Get(_Manager, "key"), "S_OK B");
}

TEST_F(SessionServicesMgrTest, AnUnknownKeyIsForgottenAlready) {
  EXPECT_EQ(_Manager->ForgetComponent("unknown"), S_OK);
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(_Manager->ForgetComponent("unknown"), S_OK);
  EXPECT_TRUE(IsKept(_Manager, "key"));
}

TEST_F(SessionServicesMgrTest, ForgettingReleasesTheIdentificator) {
  const auto analysis = NewAnalysis("A");
  KORIAdpPLMIdentificator* handed_out = nullptr;
  ASSERT_EQ(analysis->GetPLMIdentificator(handed_out), S_OK);
  const auto identificator = KORIAdpPLMIdentificator_var::Adopt(handed_out);
  const unsigned long references = ReferencesOf(*identificator);
  EXPECT_EQ(Keep(_Manager, "key", analysis), S_OK);
  EXPECT_EQ(ReferencesOf(*identificator), references + 1);
  EXPECT_EQ(Keep(_Manager, "key", analysis), S_OK);
  EXPECT_EQ(ReferencesOf(*identificator), references + 1) << "no second one for a key that is known";
  EXPECT_EQ(_Manager->ForgetComponent("key"), S_OK);
  EXPECT_EQ(ReferencesOf(*identificator), references);
}

TEST_F(SessionServicesMgrTest, TheEndOfTheTableReleasesTheIdentificators) {
  const auto analysis = NewAnalysis("A");
  KORIAdpPLMIdentificator* handed_out = nullptr;
  ASSERT_EQ(analysis->GetPLMIdentificator(handed_out), S_OK);
  const auto identificator = KORIAdpPLMIdentificator_var::Adopt(handed_out);
  const unsigned long references = ReferencesOf(*identificator);
  {
    const Manager_var manager = NewManager();
    EXPECT_EQ(Keep(manager, "one", analysis), S_OK);
    EXPECT_EQ(Keep(manager, "two", analysis), S_OK);
    EXPECT_EQ(ReferencesOf(*identificator), references + 2);
  }
  EXPECT_EQ(ReferencesOf(*identificator), references);
}

// ---- All of them ----

TEST_F(SessionServicesMgrTest, AppendsAllInTheOrderInWhichTheyWereKept) {
  EXPECT_EQ(Keep(_Manager, "b", NewAnalysis("B")), S_OK);
  EXPECT_EQ(Keep(_Manager, "a", NewAnalysis("A")), S_OK);
  EXPECT_EQ(Keep(_Manager, "c", NewDrawing("C")), S_OK);
  EXPECT_EQ(GetAll(_Manager), "S_OK untouched B A C");
}

TEST_F(SessionServicesMgrTest, AnEmptyTableIsAFailure) {
  EXPECT_EQ(GetAll(_Manager), "E_FAIL untouched");
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  EXPECT_EQ(_Manager->ForgetComponent("key"), S_OK);
  EXPECT_EQ(GetAll(_Manager), "E_FAIL untouched");
}

TEST_F(SessionServicesMgrTest, WhatIsGoneAddsNothingAndTheLastOneTellsTheStatus) {
  EXPECT_EQ(Keep(_Manager, "gone", support::MakeAnalysis("gone")), S_OK);
  EXPECT_EQ(Keep(_Manager, "lives", NewAnalysis("A")), S_OK);
  EXPECT_EQ(GetAll(_Manager), "S_OK untouched A");
  EXPECT_EQ(Keep(_Manager, "gone, too", support::MakeAnalysis("gone")), S_OK);
  EXPECT_EQ(GetAll(_Manager), "E_FAIL untouched A");
}

TEST_F(SessionServicesMgrTest, AFaultAtOneComponentLeavesTheOthers) {
  EXPECT_EQ(Keep(_Manager, "a", NewAnalysis("A")), S_OK);
  EXPECT_EQ(Keep(_Manager, "b", NewAnalysis("B")), S_OK);
  _Session.InjectFault("ResolveComponent", FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once));
  EXPECT_EQ(GetAll(_Manager), "S_OK untouched B");
}

// Lets the space be gone as soon as it is resolved itself.
class LastResolved final : public KORPLMObject {
 public:
  LastResolved(const KORUnicodeString& identifier, KORFault::Kind kind) : KORPLMObject(identifier), _Kind(kind) {}

 protected:
  void* FindInterface(const KORUuid& interface_id) override {
    if (interface_id == KORBaseUnknown::ClassId()) {
      KORSession::Current().InjectFault("GetResolutionSpace", FaultOf(_Kind, KORFault::Life::Once));
    }
    return KORPLMObject::FindInterface(interface_id);
  }

 private:
  KORFault::Kind _Kind;
};

TEST_F(SessionServicesMgrTest, WithoutASpaceItEndsWithWhatWasAppendedByThen) {
  for (const KORFault::Kind kind : FaultKinds) {
    const Manager_var manager = NewManager();
    const auto last = KORHandle<LastResolved>::Adopt(new LastResolved("last", kind));
    EXPECT_EQ(Keep(manager, "a", NewAnalysis("A")), S_OK);
    EXPECT_EQ(Keep(manager, "b", last), S_OK);
    EXPECT_EQ(Keep(manager, "c", NewAnalysis("C")), S_OK);
    EXPECT_EQ(GetAll(manager),
              (kind == KORFault::Kind::NullAlone ? "S_OK" : "fault") + std::string(" untouched A last"));
  }
}

// ---- Faults ----

TEST_F(SessionServicesMgrTest, AnErrorRaisedInTheSpaceIsTheCallersAndIsForgotten) {
  EXPECT_EQ(Keep(_Manager, "key", NewAnalysis("A")), S_OK);
  KORFault fault = FaultOf(KORFault::Kind::Raised);
  fault.Error = std::make_exception_ptr(KORError(E_FAIL, "broken"));
  _Session.InjectFault("ResolveComponent", fault);
  EXPECT_THROW((void)Get(_Manager, "key"), KORError);
  EXPECT_THROW((void)GetAll(_Manager), KORError);
  _Session.InjectFault("GetPLMIdentificator", fault);
  EXPECT_THROW((void)Keep(_Manager, "other", NewAnalysis("B")), KORError);
  _Session.ClearFaults();
  EXPECT_EQ(Get(_Manager, "key"), "S_OK A");
  EXPECT_FALSE(IsKept(_Manager, "other"));
}

class KeepComponentFaultTest : public FaultTest {};

TEST_P(KeepComponentFaultTest, KeepsNothing) {
  const auto analysis = NewAnalysis("A");
  const auto keep = [&] {
    const Manager_var manager = NewManager();
    const long status = Keep(manager, "key", analysis);
    return StatusName(status) + (IsKept(manager, "key") ? " kept" : " not kept");
  };
  ExpectOutcome(keep, "S_OK kept");
}

INSTANTIATE_TEST_SUITE_P(Calls, KeepComponentFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetPLMIdentificator", "S_FALSE not kept", "S_FALSE not kept", "S_FALSE not kept"},
                         })),
                         FaultCaseName());

class GetKeptComponentFaultTest : public FaultTest {};

TEST_P(GetKeptComponentFaultTest, GivesNull) {
  const Manager_var manager = NewManager();
  EXPECT_EQ(Keep(manager, "key", NewAnalysis("A")), S_OK);
  ExpectOutcome([&] { return Get(manager, "key"); }, "S_OK A");
}

INSTANTIATE_TEST_SUITE_P(Calls, GetKeptComponentFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetResolutionSpace", "E_FAIL null", "E_FAIL null", "E_FAIL null"},
                             {"ResolveComponent", "fault null", "fault null", "S_OK null"},
                         })),
                         FaultCaseName());

class GetAllKeptComponentsFaultTest : public FaultTest {};

TEST_P(GetAllKeptComponentsFaultTest, AppendsWhatIsGiven) {
  const Manager_var manager = NewManager();
  EXPECT_EQ(Keep(manager, "key", NewAnalysis("A")), S_OK);
  ExpectOutcome([&] { return GetAll(manager); }, "S_OK untouched A");
}

INSTANTIATE_TEST_SUITE_P(Calls, GetAllKeptComponentsFaultTest,
                         testing::ValuesIn(AllFaults({
                             {"GetResolutionSpace", "fault untouched", "fault untouched", "S_OK untouched"},
                             {"ResolveComponent", "fault untouched", "fault untouched A", "S_OK untouched"},
                         })),
                         FaultCaseName());

}  // namespace
