// How the user interface deals with representations.
#include "platform/services/KORIPLMRepUIManagement.h"

#include <gtest/gtest.h>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

KORMetaClass DescribeExtension(const char* name) {
  return {name, KORUuid::OfName(name), KORIPLMRepUIManagement::MetaObject(), ENUMTypeOfClass::CodeExtension};
}

/// An extension as modules derive it, with nothing of its own.
class Unchanged final : public KORPLMRepUIManagementAdapter {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description = DescribeExtension("KORIPLMRepUIManagementTest.Unchanged");
    return &description;
  }
};

/// One with a mode of its own.
class ByOwnClasses final : public KORPLMRepUIManagementAdapter {
 public:
  long GetRepUIMode(int& mode) override {
    mode = 1;
    return S_OK;
  }
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description = DescribeExtension("KORIPLMRepUIManagementTest.ByOwnClasses");
    return &description;
  }
};

const KORExtensionRegistration RegistrationOfUnchanged(
    "KORIPLMRepUIManagementTestUnchanged", KORIPLMRepUIManagement::ClassId(),
    &KORFillDictionary::ToCreateBOA<KORIPLMRepUIManagement, Unchanged>);
const KORExtensionRegistration RegistrationOfByOwnClasses(
    "KORIPLMRepUIManagementTestByOwnClasses", KORIPLMRepUIManagement::ClassId(),
    &KORFillDictionary::ToCreateBOA<KORIPLMRepUIManagement, ByOwnClasses>);

TEST(KORPLMRepUIManagementAdapterTest, TreeDealsWithARepresentationAsWithEveryOne) {
  for (int mode : {-1, 0, 1}) {
    EXPECT_EQ(KORIPLMRepUIManagement_var(NewObject("KORIPLMRepUIManagementTestUnchanged"))->GetRepUIMode(mode), S_OK);
    EXPECT_EQ(mode, 0);
  }
}

TEST(KORPLMRepUIManagementAdapterTest, ExtensionsHaveTheirOwnMode) {
  const KORIPLMRepUIManagement_var management = NewObject("KORIPLMRepUIManagementTestByOwnClasses");
  int mode = 0;
  EXPECT_EQ(management->GetRepUIMode(mode), S_OK);
  EXPECT_EQ(mode, 1);
}

TEST(KORPLMRepUIManagementAdapterTest, FailureLeavesTheMode) {
  KORFreshSession session;
  session.InjectFault("KORPLMRepUIManagementAdapter::GetRepUIMode", E_FAIL);
  int mode = 7;
  EXPECT_EQ(KORIPLMRepUIManagement_var(NewObject("KORIPLMRepUIManagementTestUnchanged"))->GetRepUIMode(mode), E_FAIL);
  EXPECT_EQ(mode, 7);
}

}  // namespace
}  // namespace servicestest
