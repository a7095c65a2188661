// Attributes of objects as texts.
#include "platform/services/KORCkeObjectAttrReadServices.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/base/KORStatus.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORModel.h"
#include "platform/model/KORPLMObject.h"
#include "platform/system/KORSession.h"

namespace {

long Read(const KORICkeObject_var& object, std::string_view name, KORUnicodeString& text) {
  return KORCkeObjectAttrReadServices::GetValueAsString(object, KORUnicodeString(name), text);
}

struct ValueRow {
  const char* Name;
  void (*Set)(KORKeyedValues& attributes);
  const char* Text;
};

class AttributeTextTest : public testing::TestWithParam<ValueRow> {};

TEST_P(AttributeTextTest, IsRead) {
  const auto object = KORHandle<KORPLMObject>::Adopt(new KORPLMObject);
  GetParam().Set(object->GetAttributes());
  KORUnicodeString text("before");
  EXPECT_EQ(Read(object, "key", text), S_OK);
  EXPECT_EQ(text, GetParam().Text);
}

constexpr unsigned char True = 1;
constexpr unsigned char False = 0;

INSTANTIATE_TEST_SUITE_P(
    Values, AttributeTextTest,
    testing::Values(ValueRow{"SetBoolean", [](KORKeyedValues& values) { values.Set("key", True); }, "TRUE"},
                    ValueRow{"ClearBoolean", [](KORKeyedValues& values) { values.Set("key", False); }, "FALSE"},
                    ValueRow{"Text", [](KORKeyedValues& values) { values.Set("key", KORUnicodeString("true")); },
                             "true"},
                    ValueRow{"EmptyText", [](KORKeyedValues& values) { values.Set("key", KORUnicodeString()); }, ""},
                    ValueRow{"Integer", [](KORKeyedValues& values) { values.Set("key", -7); }, "-7"},
                    ValueRow{"Real", [](KORKeyedValues& values) { values.Set("key", 0.1); }, "0.1"}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST(KORCkeObjectAttrReadServicesTest, ReservationIsToldInCapitals) {
  const auto analysis = KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TA"));
  KORUnicodeString text("before");
  EXPECT_EQ(Read(analysis, KORReservedAttribute, text), E_FAIL);
  analysis->Reserve("anna");
  EXPECT_EQ(Read(analysis, KORReservedAttribute, text), S_OK);
  EXPECT_EQ(text, "TRUE");
  EXPECT_EQ(Read(analysis, KORReservedByAttribute, text), S_OK);
  EXPECT_EQ(text, "anna");
  analysis->Unreserve();
  EXPECT_EQ(Read(analysis, KORReservedAttribute, text), S_OK);
  EXPECT_EQ(text, "FALSE");
}

TEST(KORCkeObjectAttrReadServicesTest, ObjectsOfEveryLevelAreRead) {
  const KORFreshSession session;
  KORModel& model = KORModel::Current();
  for (const KORBaseUnknown_var& object :
       {KORBaseUnknown_var(model.CreateTimeAnalysis("X")), KORBaseUnknown_var(model.CreateOtherRepReference("X")),
        KORBaseUnknown_var(model.CreateOperation("X"))}) {
    KORUnicodeString text;
    EXPECT_EQ(Read(object, "PLM_ExternalID", text), S_OK);
    EXPECT_EQ(text, "X");
  }
}

// An object with attributes that it doesn't tell.
class Silent final : public KORImplements<KORICkeObject> {};

TEST(KORCkeObjectAttrReadServicesTest, FailureLeavesTheText) {
  const KORICkeObject_var analysis =
      KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TA"));
  KORUnicodeString text("before");
  EXPECT_EQ(Read(NULL_var, "PLM_ExternalID", text), E_INVALIDARG);
  EXPECT_EQ(Read(KORICkeObject_var::Adopt(new Silent), "PLM_ExternalID", text), E_NOINTERFACE);
  EXPECT_EQ(Read(analysis, "plm_externalid", text), E_FAIL);
  EXPECT_EQ(Read(analysis, "", text), E_FAIL);
  EXPECT_EQ(text, "before");
}

// An object whose values can't be told.
class Broken final : public KORImplements<KORICkeObject, KORIInstance> {
 public:
  KORIValue* GetAttribute(const KORUnicodeString& /*name*/) override { return new BrokenValue; }

 private:
  class BrokenValue final : public KORImplements<KORIValue> {
   public:
    long GetText(KORUnicodeString& /*text*/) override { return E_NOINTERFACE; }
  };
};

TEST(KORCkeObjectAttrReadServicesTest, StatusOfTheValueComesBack) {
  KORUnicodeString text("before");
  EXPECT_EQ(Read(KORICkeObject_var(KORHandle<Broken>::Adopt(new Broken)), "key", text), E_NOINTERFACE);
  EXPECT_EQ(text, "before");
}

}  // namespace
