// Operations: the way from an occurrence to the representations, and the list of representation instances.
#include "platform/model/KOROperation.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/model/KORModel.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/system/KORSession.h"
#include "tests/model/ModelTest.h"

namespace {

class KOROperationTest : public testing::Test {
 protected:
  PLMIRepInstance_var Add(const PLMIRepReference_var& reference) {
    PLMIRepInstance* instance = nullptr;
    EXPECT_EQ(_Operation->AddRepInstance(nullptr, reference.Get(), instance, 0), S_OK);
    return PLMIRepInstance_var::Adopt(instance);
  }

  static PLMIRepReference_var ReferenceOf(const PLMIRepInstance_var& instance) {
    PLMIRepReference* reference = nullptr;
    EXPECT_EQ(instance->GetRepReference(reference), S_OK);
    return PLMIRepReference_var::Adopt(reference);
  }

  KORListValKORBaseUnknown_var List() {
    KORListValKORBaseUnknown_var instances;
    EXPECT_EQ(_Operation->ListRepInstances(instances), S_OK);
    return instances;
  }

  // The identifiers of the references of all instances, with a blank behind each.
  std::string Listed() {
    std::string identifiers;
    for (const KORBaseUnknown_var& instance : List()) {
      const KORIInstance_var reference = ReferenceOf(instance);
      const auto value = KORIValue_var::Adopt(reference->GetAttribute("PLM_ExternalID"));
      KORUnicodeString identifier;
      EXPECT_EQ(value->GetText(identifier), S_OK);
      identifiers += std::string(identifier.Bytes()) + ' ';
    }
    return identifiers;
  }

  const KORFreshSession _Session;
  KORModel& _Model = KORModel::Current();
  const KORHandle<KOROperationReference> _Operation = _Model.CreateOperation("OP");
};

TEST_F(KOROperationTest, InstanceOfAnAnalysisIsAComponentAndOneOfAnotherRepresentationIsNone) {
  EXPECT_STREQ(Add(PLMIRepReference_var(_Model.CreateTimeAnalysis("TA")))->GetImpl(0)->GetComponentName(),
               "PCCMemVEXTimeAnalysisRepInstance");
  EXPECT_STREQ(Add(PLMIRepReference_var(_Model.CreateOtherRepReference("Shape")))->GetImpl(0)->GetComponentName(), "");
}

TEST_F(KOROperationTest, WayFromTheOccurrenceToTheAnalysis) {
  const auto analysis = _Model.CreateTimeAnalysis("TA");
  Add(PLMIRepReference_var(analysis));
  const KORIPLMNavOccurrence_var occurrence = _Model.CreateOccurrence(KORIPLMNavReference_var(_Operation));

  KORIPLMNavInstance* instance = nullptr;
  ASSERT_EQ(occurrence->GetRelatedInstance(instance), S_OK);
  const auto held_instance = KORIPLMNavInstance_var::Adopt(instance);
  KORIPLMNavReference* reference = nullptr;
  ASSERT_EQ(held_instance->GetInstanceReference(reference), S_OK);
  const PLMIRepInstances_var operation = KORIPLMNavReference_var::Adopt(reference);
  EXPECT_TRUE(operation == _Operation);

  KORListValKORBaseUnknown_var instances;
  ASSERT_EQ(operation->ListRepInstances(instances), S_OK);
  ASSERT_EQ(instances.Size(), 1);
  EXPECT_TRUE(VEXITimeAnalysisRepReference_var(ReferenceOf(instances[1])) == analysis);
}

TEST_F(KOROperationTest, InstancesStandInTheOrderOfTheirAdding) {
  Add(PLMIRepReference_var(_Model.CreateOtherRepReference("Shape")));
  const auto analysis = _Model.CreateTimeAnalysis("TA1");
  Add(PLMIRepReference_var(analysis));
  Add(PLMIRepReference_var(_Model.CreateTimeAnalysis("TA2")));
  Add(PLMIRepReference_var(analysis));
  EXPECT_EQ(Listed(), "Shape TA1 TA2 TA1 ");
  EXPECT_FALSE(List()[2] == List()[4]);
}

TEST_F(KOROperationTest, ListIsFilledAnew) {
  Add(PLMIRepReference_var(_Model.CreateTimeAnalysis("TA")));
  KORListValKORBaseUnknown_var instances = List();
  ASSERT_EQ(_Operation->ListRepInstances(instances), S_OK);
  EXPECT_EQ(instances.Size(), 1);
}

TEST_F(KOROperationTest, RemovedInstanceGoesAndItsReferenceStays) {
  const auto analysis = _Model.CreateTimeAnalysis("TA1");
  const PLMIRepInstance_var first = Add(PLMIRepReference_var(analysis));
  Add(PLMIRepReference_var(_Model.CreateTimeAnalysis("TA2")));
  EXPECT_EQ(_Operation->RemoveRepInstance(first.Get()), S_OK);
  EXPECT_EQ(Listed(), "TA2 ");
  EXPECT_EQ(_Operation->RemoveRepInstance(first.Get()), E_FAIL);
  EXPECT_EQ(Listed(), "TA2 ");
  EXPECT_TRUE(ReferenceOf(first) == analysis);
}

TEST_F(KOROperationTest, InstanceOfAnotherOperationIsNotRemoved) {
  const PLMIRepInstance_var instance = Add(PLMIRepReference_var(_Model.CreateTimeAnalysis("TA")));
  EXPECT_EQ(_Model.CreateOperation("OP2")->RemoveRepInstance(instance.Get()), E_FAIL);
  EXPECT_EQ(Listed(), "TA ");
}

TEST_F(KOROperationTest, NullArgumentsAreRefused) {
  int anything = 0;
  auto* instance = reinterpret_cast<PLMIRepInstance*>(&anything);
  EXPECT_EQ(_Operation->AddRepInstance(nullptr, nullptr, instance, 0), E_INVALIDARG);
  EXPECT_EQ(instance, nullptr);
  EXPECT_EQ(_Operation->RemoveRepInstance(nullptr), E_INVALIDARG);
  EXPECT_EQ(List().Size(), 0);
}

TEST_F(KOROperationTest, IsEditableUntilToldOtherwise) {
  EXPECT_TRUE(_Operation->IsEditable());
  _Operation->SetEditable(false);
  EXPECT_FALSE(_Operation->IsEditable());
  EXPECT_TRUE(_Model.CreateOperation("OP2")->IsEditable());
}

TEST_F(KOROperationTest, OnlyAnAnalysisIsATimeAnalysis) {
  const KORBaseUnknown_var other = _Model.CreateOtherRepReference("Shape");
  EXPECT_FALSE(PLMIRepReference_var(other).IsNull());
  EXPECT_FALSE(KORIPLMNavRepReference_var(other).IsNull());
  EXPECT_TRUE(VEXITimeAnalysisRepReference_var(other).IsNull());
  EXPECT_TRUE(PLMIRepReference_var(_Operation).IsNull());
  EXPECT_TRUE(PLMIRepInstances_var(other).IsNull());
}

TEST_F(KOROperationTest, RecordsKeepAliveWhatStandsBelow) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto operation = KORHandle<KOROperationReference>::Adopt(new KOROperationReference);
  const auto analysis = modeltest::NewAnalysis("TA");
  PLMIRepInstance* instance = nullptr;
  ASSERT_EQ(operation->AddRepInstance(nullptr, PLMIRepReference_var(analysis).Get(), instance, 0), S_OK);
  instance->Release();
  auto occurrence = KORBaseUnknown_var::Adopt(new KOROperationOccurrence(KORIPLMNavInstance_var(
      KORHandle<KOROperationInstance>::Adopt(new KOROperationInstance(KORIPLMNavReference_var(operation))))));
  operation = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 5);
  occurrence = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
}

// Out pointers that don't come are null, whatever they were before.

struct FailureRow {
  const char* Name;
  const char* Fault;  // null: the record has lost what it stands for
  std::function<long(void*& out)> Call;
};

void PrintTo(const FailureRow& row, std::ostream* out) {
  *out << row.Name;
}

template <class Interface, class Call>
long CallWithOut(void*& out, const Call& call) {
  auto* pointer = static_cast<Interface*>(out);
  const long status = call(pointer);
  out = pointer;
  return status;
}

long InstanceOf(const KORIPLMNavInstance_var& held, void*& out) {
  KOROperationOccurrence occurrence(held);
  return CallWithOut<KORIPLMNavInstance>(
      out, [&](KORIPLMNavInstance*& instance) { return occurrence.GetRelatedInstance(instance); });
}

long ReferenceOf(const KORIPLMNavReference_var& held, void*& out) {
  KOROperationInstance instance(held);
  return CallWithOut<KORIPLMNavReference>(
      out, [&](KORIPLMNavReference*& reference) { return instance.GetInstanceReference(reference); });
}

KORIPLMNavReference_var AnOperation() {
  return KORIPLMNavReference_var(KORHandle<KOROperationReference>::Adopt(new KOROperationReference));
}

class OutPointerTest : public testing::TestWithParam<FailureRow> {};

TEST_P(OutPointerTest, IsNullOnFailure) {
  const KORFreshSession session;
  if (GetParam().Fault != nullptr) KORSession::Current().InjectFault(GetParam().Fault, E_INVALIDARG);
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(GetParam().Call(out), GetParam().Fault == nullptr ? E_FAIL : E_INVALIDARG);
  EXPECT_EQ(out, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Operations, OutPointerTest,
    testing::Values(FailureRow{"LostInstance", nullptr, [](void*& out) { return InstanceOf(NULL_var, out); }},
                    FailureRow{"LostReference", nullptr, [](void*& out) { return ReferenceOf(NULL_var, out); }},
                    FailureRow{"FailingInstance", "GetRelatedInstance",
                               [](void*& out) {
                                 return InstanceOf(KORIPLMNavInstance_var(KORHandle<KOROperationInstance>::Adopt(
                                                       new KOROperationInstance(AnOperation()))),
                                                   out);
                               }},
                    FailureRow{"FailingReference", "GetInstanceReference",
                               [](void*& out) { return ReferenceOf(AnOperation(), out); }},
                    FailureRow{"FailingRepReference", "GetRepReference",
                               [](void*& out) {
                                 KORRepInstance instance{PLMIRepReference_var(modeltest::NewAnalysis("TA"))};
                                 return CallWithOut<PLMIRepReference>(out, [&](PLMIRepReference*& reference) {
                                   return instance.GetRepReference(reference);
                                 });
                               }},
                    FailureRow{"FailingAdding", "AddRepInstance",
                               [](void*& out) {
                                 KOROperationReference operation;
                                 const PLMIRepReference_var reference(modeltest::NewAnalysis("TA"));
                                 return CallWithOut<PLMIRepInstance>(out, [&](PLMIRepInstance*& instance) {
                                   return operation.AddRepInstance(nullptr, reference.Get(), instance, 0);
                                 });
                               }}),
    modeltest::NameOfRow());

TEST_F(KOROperationTest, FailingListIsEmptyAndFailingRemovalChangesNothing) {
  const PLMIRepInstance_var instance = Add(PLMIRepReference_var(_Model.CreateTimeAnalysis("TA")));
  KORListValKORBaseUnknown_var instances = List();
  KORSession::Current().InjectFault("ListRepInstances", E_FAIL);
  KORSession::Current().InjectFault("RemoveRepInstance", E_FAIL);
  EXPECT_EQ(_Operation->ListRepInstances(instances), E_FAIL);
  EXPECT_EQ(instances.Size(), 0);
  EXPECT_EQ(_Operation->RemoveRepInstance(instance.Get()), E_FAIL);
  KORSession::Current().ClearFaults();
  EXPECT_EQ(Listed(), "TA ");
}

}  // namespace
