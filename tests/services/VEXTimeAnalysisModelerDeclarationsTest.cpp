// The names that the modeler declares are there before any static object asks for them.
#include "platform/services/VEXTimeAnalysisModelerDeclarations.h"

#include <gtest/gtest.h>

namespace {

const KORUnicodeString StorageNameAtStart = VEXTimeAnalysisModelerDeclarations::StorageName;

TEST(VEXTimeAnalysisModelerDeclarationsTest, StorageNameIsThereForStaticObjects) {
  EXPECT_EQ(StorageNameAtStart, "VEXTimeAnalysisModelerFeatures");
  EXPECT_EQ(VEXTimeAnalysisModelerDeclarations::StorageName, StorageNameAtStart);
}

}  // namespace
