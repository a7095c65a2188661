// Whether the user may change objects.
#include "platform/services/KORPLMEditabilityServices.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

template <class Value>
KORList<Value> ListOf(std::initializer_list<Value> values) {
  KORList<Value> list;
  for (const Value& value : values) list.Append(value);
  return list;
}

class KORPLMEditabilityServicesTest : public testing::Test {
 protected:
  KORPLMEditabilityServicesTest() {
    _Locked->SetEditable(false);
    _AlsoLocked->SetEditable(false);
  }

  // Asks for the objects and checks what comes out.
  static void Expect(std::initializer_list<KORBaseUnknown_var> objects, long status,
                     std::initializer_list<KORBoolean> editable, std::initializer_list<KORUnicodeString> errors) {
    KORListValKORBoolean editable_found;
    KORListValKORUnicodeString errors_found;
    EXPECT_EQ(KORPLMEditabilityServices::GetEditabilityStatus(ListOf(objects), editable_found, &errors_found), status);
    EXPECT_EQ(editable_found, ListOf(editable));
    EXPECT_EQ(errors_found, ListOf(errors));
  }

  KORFreshSession _Session;
  KORModel& _Model = KORModel::Current();
  const KORHandle<KOROperationReference> _Editable = _Model.CreateOperation("OP1");
  const KORHandle<KOROperationReference> _Locked = _Model.CreateOperation("OP2");
  const KORHandle<KOROperationReference> _AlsoLocked = _Model.CreateOperation("OP3");
};

TEST_F(KORPLMEditabilityServicesTest, OperationMayBeChangedUnlessItIsSaidNotTo) {
  Expect({_Editable}, S_OK, {1}, {});
  Expect({_Locked}, E_FAIL, {0}, {"OP2"});
}

TEST_F(KORPLMEditabilityServicesTest, WhatIsSaidLastCounts) {
  _Locked->SetEditable(true);
  _Editable->SetEditable(false);
  Expect({_Locked}, S_OK, {1}, {});
  Expect({_Editable}, E_FAIL, {0}, {"OP1"});
}

TEST_F(KORPLMEditabilityServicesTest, ObjectsOfOtherKindsMayAlwaysBeChanged) {
  const KORHandle<KOROperationOccurrence> occurrence = _Model.CreateOccurrence(KORIPLMNavReference_var(_Locked));
  KORIPLMNavInstance* out = nullptr;
  ASSERT_EQ(occurrence->GetRelatedInstance(out), S_OK);
  const auto instance = KORIPLMNavInstance_var::Adopt(out);
  for (const KORBaseUnknown_var& object : {KORBaseUnknown_var(_Model.CreateTimeAnalysis("TA")),
                                           KORBaseUnknown_var(_Model.CreateOtherRepReference("Shape")),
                                           KORBaseUnknown_var(occurrence), KORBaseUnknown_var(instance), NewObject()}) {
    Expect({object}, S_OK, {1}, {});
  }
}

TEST_F(KORPLMEditabilityServicesTest, OperationIsKnownByWhicheverInterface) {
  Expect({KORBaseUnknown_var(KORIPLMNavReference_var(_Locked))}, E_FAIL, {0}, {"OP2"});
  Expect({KORBaseUnknown_var(PLMIRepInstances_var(_Locked))}, E_FAIL, {0}, {"OP2"});
}

TEST_F(KORPLMEditabilityServicesTest, NullHandlesSayNothingAgainstTheOthers) {
  Expect({NULL_var}, S_OK, {0}, {});
  Expect({NULL_var, _Editable, NULL_var}, S_OK, {0, 1, 0}, {});
  Expect({NULL_var, _Locked}, E_FAIL, {0, 0}, {"OP2"});
}

TEST_F(KORPLMEditabilityServicesTest, OneThatMayNotBeChangedFailsTheWholeQuestion) {
  const KORBaseUnknown_var analysis(_Model.CreateTimeAnalysis("TA"));
  Expect({_Editable, _Locked, analysis}, E_FAIL, {1, 0, 1}, {"OP2"});
  Expect({_AlsoLocked, _Editable, _Locked}, E_FAIL, {0, 1, 0}, {"OP3", "OP2"});
}

TEST_F(KORPLMEditabilityServicesTest, NothingMayBeChangedOrNot) {
  Expect({}, S_OK, {}, {});
}

TEST_F(KORPLMEditabilityServicesTest, IdentifierIsTheOneOfNow) {
  _Locked->GetAttributes().Set("PLM_ExternalID", KORUnicodeString("renamed"));
  Expect({_Locked}, E_FAIL, {0}, {"renamed"});
  const auto nameless = KORHandle<KOROperationReference>::Adopt(new KOROperationReference);
  nameless->SetEditable(false);
  Expect({nameless}, E_FAIL, {0}, {""});
}

TEST_F(KORPLMEditabilityServicesTest, ListsAreAppendedTo) {
  KORListValKORBoolean editable = ListOf<KORBoolean>({7});
  KORListValKORUnicodeString errors = ListOf<KORUnicodeString>({"before"});
  const auto objects = ListOf<KORBaseUnknown_var>({_Editable, _Locked});
  EXPECT_EQ(KORPLMEditabilityServices::GetEditabilityStatus(objects, editable, &errors), E_FAIL);
  EXPECT_EQ(editable, ListOf<KORBoolean>({7, 1, 0}));
  EXPECT_EQ(errors, ListOf<KORUnicodeString>({"before", "OP2"}));
}

TEST_F(KORPLMEditabilityServicesTest, ErrorsNeedNotBeAskedFor) {
  KORListValKORBoolean editable;
  const auto objects = ListOf<KORBaseUnknown_var>({_Locked, _Editable});
  EXPECT_EQ(KORPLMEditabilityServices::GetEditabilityStatus(objects, editable, nullptr), E_FAIL);
  EXPECT_EQ(editable, ListOf<KORBoolean>({0, 1}));
}

TEST_F(KORPLMEditabilityServicesTest, ObjectsAreNotKept) {
  Expect({KORBaseUnknown_var(_Editable), KORBaseUnknown_var(_Locked)}, E_FAIL, {1, 0}, {"OP2"});
  EXPECT_EQ(CountReferences(*_Locked), 2u) << "those of the model and of this test";
}

TEST_F(KORPLMEditabilityServicesTest, FailureLeavesTheLists) {
  _Session.InjectFault("GetEditabilityStatus", E_INVALIDARG);
  Expect({_Editable, _Locked}, E_INVALIDARG, {}, {});
}

}  // namespace
}  // namespace servicestest
