// What all objects of the product structure share: identificator, attributes, reservation.
#include "platform/model/KORPLMObject.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/model/KOROperation.h"
#include "platform/model/KORRepReference.h"
#include "platform/system/KORSession.h"
#include "tests/model/ModelTest.h"

namespace {

using PLMObject_var = KORHandle<KORPLMObject>;
using modeltest::Unicode;

struct ObjectRow {
  const char* Name;
  std::function<KORPLMObject*()> Make;
};

void PrintTo(const ObjectRow& row, std::ostream* out) {
  *out << row.Name;
}

class KORPLMObjectTest : public testing::TestWithParam<ObjectRow> {
 protected:
  KORUnicodeString TextOf(const char* name) const {
    const KORIInstance_var instance = KORBaseUnknown_var(_Object);
    const auto value = KORIValue_var::Adopt(instance->GetAttribute(name));
    KORUnicodeString text;
    if (value.IsNull()) return "no attribute";
    EXPECT_EQ(value->GetText(text), S_OK);
    return text;
  }

  const KORFreshSession _Session;
  const PLMObject_var _Object = PLMObject_var::Adopt(GetParam().Make());
};

TEST_P(KORPLMObjectTest, AttributesAreReadAsText) {
  _Object->GetAttributes().Set("flag", static_cast<unsigned char>(1));
  _Object->GetAttributes().Set("other flag", static_cast<unsigned char>(0));
  _Object->GetAttributes().Set("real", 0.1);
  _Object->GetAttributes().Set("integer", -3);
  _Object->GetAttributes().Set("text", Unicode("text"));
  EXPECT_EQ(TextOf("flag"), "TRUE");
  EXPECT_EQ(TextOf("other flag"), "FALSE");
  EXPECT_EQ(TextOf("real"), "0.1");
  EXPECT_EQ(TextOf("integer"), "-3");
  EXPECT_EQ(TextOf("text"), "text");
  EXPECT_EQ(TextOf("nothing"), "no attribute");
  EXPECT_EQ(TextOf(""), "no attribute");
}

TEST_P(KORPLMObjectTest, ValueOutlivesAChange) {
  _Object->GetAttributes().Set("text", Unicode("before"));
  const auto value = KORIValue_var::Adopt(_Object->GetAttribute("text"));
  _Object->GetAttributes().Set("text", Unicode("after"));
  KORUnicodeString text;
  EXPECT_EQ(value->GetText(text), S_OK);
  EXPECT_EQ(text, "before");
}

TEST_P(KORPLMObjectTest, ReservationIsATextInCapitals) {
  EXPECT_EQ(TextOf("reserved"), "no attribute");
  _Object->Reserve("first user");
  _Object->Reserve("second user");
  EXPECT_EQ(TextOf("reserved"), "TRUE");
  EXPECT_EQ(TextOf("reservedby"), "second user");
  _Object->Unreserve();
  EXPECT_EQ(TextOf("reserved"), "FALSE");
  EXPECT_EQ(TextOf("reservedby"), "");
}

TEST_P(KORPLMObjectTest, HasOneIdentificator) {
  const KORIPLMComponent_var component = KORBaseUnknown_var(_Object);
  KORIAdpPLMIdentificator* first = nullptr;
  KORIAdpPLMIdentificator* second = nullptr;
  ASSERT_EQ(component->GetPLMIdentificator(first), S_OK);
  ASSERT_EQ(component->GetPLMIdentificator(second), S_OK);
  unsigned char same = 9;
  EXPECT_EQ(first->IsSameAs(second, same), S_OK);
  EXPECT_EQ(same, 1);
  first->Release();
  second->Release();
}

TEST_P(KORPLMObjectTest, IsMarkedForTheKnowledgeEngine) {
  const KORICkeObject_var marked = KORBaseUnknown_var(_Object);
  ASSERT_FALSE(marked.IsNull());
  EXPECT_EQ(marked->GetImpl(0), _Object->GetImpl(0));
}

TEST_P(KORPLMObjectTest, IdentificatorThatFailsIsNull) {
  KORSession::Current().InjectFault("GetPLMIdentificator", E_FAIL);
  int anything = 0;
  auto* identificator = reinterpret_cast<KORIAdpPLMIdentificator*>(&anything);
  EXPECT_EQ(_Object->GetPLMIdentificator(identificator), E_FAIL);
  EXPECT_EQ(identificator, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, KORPLMObjectTest,
    testing::Values(ObjectRow{"Analysis", [] { return new VEXTimeAnalysisRepReference; }},
                    ObjectRow{"OtherRepReference", [] { return new KORRepReference; }},
                    ObjectRow{"RepInstance", [] { return new KORRepInstance(NULL_var); }},
                    ObjectRow{"OperationReference", [] { return new KOROperationReference; }},
                    ObjectRow{"OperationInstance", [] { return new KOROperationInstance(NULL_var); }},
                    ObjectRow{"OperationOccurrence", [] { return new KOROperationOccurrence(NULL_var); }}),
    modeltest::NameOfRow());

TEST(KORPLMIdentificatorTest, TellsObjectsApart) {
  const modeltest::Analysis_var first = modeltest::NewAnalysis("TA");
  const modeltest::Analysis_var second = modeltest::NewAnalysis("TA");
  KORIAdpPLMIdentificator* of_first = nullptr;
  KORIAdpPLMIdentificator* of_second = nullptr;
  ASSERT_EQ(first->GetPLMIdentificator(of_first), S_OK);
  ASSERT_EQ(second->GetPLMIdentificator(of_second), S_OK);
  const auto held_first = KORIAdpPLMIdentificator_var::Adopt(of_first);
  const auto held_second = KORIAdpPLMIdentificator_var::Adopt(of_second);
  unsigned char same = 9;
  EXPECT_EQ(held_first->IsSameAs(of_second, same), S_OK);
  EXPECT_EQ(same, 0);
  same = 9;
  EXPECT_EQ(held_first->IsSameAs(nullptr, same), E_INVALIDARG);
  EXPECT_EQ(same, 0);
}

TEST(KORPLMIdentificatorTest, StaysTheSameAfterTheEndOfItsObject) {
  modeltest::Analysis_var analysis = modeltest::NewAnalysis("TA");
  KORIAdpPLMIdentificator* identificator = nullptr;
  ASSERT_EQ(analysis->GetPLMIdentificator(identificator), S_OK);
  const auto held = KORIAdpPLMIdentificator_var::Adopt(identificator);
  analysis = nullptr;
  unsigned char same = 0;
  EXPECT_EQ(held->IsSameAs(identificator, same), S_OK);
  EXPECT_EQ(same, 1);
}

}  // namespace
