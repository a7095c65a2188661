// The service class as a platform object: its description, its identifier, and the life of an object.
#include <gtest/gtest.h>

#include "tests/support/ServiceTest.h"

namespace {

using Services = VEXSTMTimeAnalysisDlgServices;

class ServiceObjectTest : public support::ServiceTest {};

TEST_F(ServiceObjectTest, ClassDescribesItself) {
  EXPECT_STREQ(Services::ClassName(), "VEXSTMTimeAnalysisDlgServices");
  const KORMetaClass* description = Services::MetaObject();
  ASSERT_NE(description, nullptr);
  EXPECT_EQ(description, Services::MetaObject()) << "one description for all objects";
  EXPECT_STREQ(description->Name, "VEXSTMTimeAnalysisDlgServices");
  EXPECT_EQ(description->Base, KORBaseUnknown::MetaObject());
  EXPECT_EQ(description->Identifier, Services::ClassId());
  EXPECT_FALSE(Services::ClassId() == KORBaseUnknown::ClassId());
  EXPECT_FALSE(Services::ClassId() == KORUuid());
}

TEST_F(ServiceObjectTest, ObjectTellsItsClassThroughTheBase) {
  const Services services;
  const KORBaseUnknown& object = services;
  EXPECT_STREQ(object.IsA(), "VEXSTMTimeAnalysisDlgServices");
  EXPECT_EQ(object.GetMetaObject(), Services::MetaObject());
  EXPECT_EQ(object.IsAKindOf("VEXSTMTimeAnalysisDlgServices"), 1);
  EXPECT_EQ(object.IsAKindOf("KORBaseUnknown"), 1);
  EXPECT_EQ(object.IsAKindOf("KORError"), 0);
  EXPECT_EQ(object.IsAKindOf("vexstmtimeanalysisdlgservices"), 0);
  EXPECT_EQ(object.IsAKindOf(""), 0);
  EXPECT_EQ(object.IsAKindOf(nullptr), 0);
}

TEST_F(ServiceObjectTest, CreateItselfGivesOneReference) {
  Services* services = Services::CreateItself();
  ASSERT_NE(services, nullptr);
  EXPECT_STREQ(services->IsA(), "VEXSTMTimeAnalysisDlgServices");
  EXPECT_EQ(services->GetCodeIndex(), -1);
  EXPECT_EQ(services->GetDCEntriesCount(), 0);
  EXPECT_EQ(services->AddRef(), 2u);
  EXPECT_EQ(services->Release(), 1u);
  EXPECT_EQ(services->Release(), 0u);
}

TEST_F(ServiceObjectTest, EachObjectIsItsOwn) {
  const auto first = KORHandle<Services>::Adopt(Services::CreateItself());
  const auto second = KORHandle<Services>::Adopt(Services::CreateItself());
  EXPECT_FALSE(first == second);
  support::Select(*first.Get(), "SAM");
  EXPECT_EQ(support::Text(first->GetSubsystem()), "SAM");
  EXPECT_EQ(support::Text(second->GetSubsystem()), "");
}

TEST_F(ServiceObjectTest, CopyHasACountOfItsOwn) {
  Services* original = Services::CreateItself();
  original->AddRef();
  auto* copy = new Services(*original);
  EXPECT_EQ(copy->Release(), 0u);
  EXPECT_EQ(original->Release(), 1u);
  EXPECT_EQ(original->Release(), 0u);
}

}  // namespace
