// The icons of objects.
#include "platform/services/KORIIcon.h"

#include <gtest/gtest.h>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

/// An extension as modules derive it, with state and nothing of its own.
class Icon final : public KORIconAdaptor {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"KORIIconTest.Icon", KORUuid::OfName("KORIIconTest.Icon"),
                                          KORIIcon::MetaObject(), ENUMTypeOfClass::DataExtension};
    return &description;
  }
};

const KORExtensionRegistration Registration("KORIIconTestObject", KORIIcon::ClassId(),
                                            &KORFillDictionary::ToCreateBOA<KORIIcon, Icon>);

KORUnicodeString NameOf(const KORBaseUnknown_var& object) {
  KORUnicodeString name("before");
  EXPECT_EQ(KORIIcon_var(object)->GetIconName(name), S_OK);
  return name;
}

TEST(KORIconAdaptorTest, ObjectStartsWithoutAnIcon) {
  EXPECT_TRUE(NameOf(NewObject("KORIIconTestObject")).IsEmpty());
}

TEST(KORIconAdaptorTest, IconIsTheOneThatWasSetLast) {
  const KORBaseUnknown_var object = NewObject("KORIIconTestObject");
  for (const char* const name : {"I_First", "I_Second", ""}) {
    EXPECT_EQ(KORIIcon_var(object)->SetIconName(name), S_OK);
    EXPECT_EQ(NameOf(object), name);
  }
}

TEST(KORIconAdaptorTest, EachObjectHasItsOwn) {
  const KORBaseUnknown_var first = NewObject("KORIIconTestObject");
  const KORBaseUnknown_var second = NewObject("KORIIconTestObject");
  EXPECT_EQ(KORIIcon_var(first)->SetIconName("I_First"), S_OK);
  EXPECT_TRUE(NameOf(second).IsEmpty());
  EXPECT_EQ(KORIIcon_var(second)->SetIconName("I_Second"), S_OK);
  EXPECT_EQ(NameOf(first), "I_First");
}

TEST(KORIconAdaptorTest, BelongsToTheObjectThatItExtends) {
  const KORBaseUnknown_var object = NewObject("KORIIconTestObject");
  EXPECT_TRUE(KORIIcon_var(object) == object);
  EXPECT_TRUE(KORIIcon_var(NewObject("KORIIconTestOther")).IsNull());
}

TEST(KORIconAdaptorTest, FailingOperationsLeaveTheNames) {
  KORFreshSession session;
  const KORIIcon_var icon = NewObject("KORIIconTestObject");
  EXPECT_EQ(icon->SetIconName("I_First"), S_OK);
  session.InjectFault("KORIconAdaptor::SetIconName", E_FAIL);
  EXPECT_EQ(icon->SetIconName("I_Second"), E_FAIL);
  session.InjectFault("KORIconAdaptor::GetIconName", E_FAIL);
  KORUnicodeString name("before");
  EXPECT_EQ(icon->GetIconName(name), E_FAIL);
  EXPECT_EQ(name, "before");
  session.ClearFaults();
  EXPECT_EQ(icon->GetIconName(name), S_OK);
  EXPECT_EQ(name, "I_First");
}

}  // namespace
}  // namespace servicestest
