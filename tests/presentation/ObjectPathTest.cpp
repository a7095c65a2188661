// What is selected with the node of an analysis, and how the user interface deals with analyses.
#include <functional>
#include <ostream>
#include <string>

#include "platform/services/KORIPLMRepUIManagement.h"
#include "tests/presentation/PresentationTest.h"
#include "tests/support/ServiceTest.h"

namespace presentationtest {
namespace {

using support::RowName;

using Path_var = KORHandle<KORPathElement>;

struct ObjectRow {
  const char* name;
  std::function<KORBaseUnknown_var()> make;
};

void PrintTo(const ObjectRow& row, std::ostream* out) {
  *out << row.name;
}

class ObjectPathTest : public PresentationRowTest<ObjectRow> {
 protected:
  Path_var PathOf(unsigned char& is_path) {
    return Path_var::Adopt(KORINavigateObjectModify_var(_Object)->GetObjectPath(is_path));
  }

  const KORBaseUnknown_var _Object = GetParam().make();
};

TEST_P(ObjectPathTest, StartsAtTheObjectItself) {
  unsigned char is_path = 0;
  const Path_var path = PathOf(is_path);
  ASSERT_FALSE(path.IsNull());
  EXPECT_EQ(path->GetStart().Get(), _Object->GetImpl(0));
  EXPECT_EQ(is_path, 1);
}

TEST_P(ObjectPathTest, SaysSoWhateverStoodThere) {
  for (const int before : {0, 1, 7, 255}) {
    auto is_path = static_cast<unsigned char>(before);
    (void)PathOf(is_path);
    EXPECT_EQ(is_path, 1);
  }
}

TEST_P(ObjectPathTest, IsNewAndTheCallers) {
  unsigned char is_path = 0;
  const unsigned long references = ReferencesOf(*_Object);
  {
    const Path_var first = PathOf(is_path);
    const Path_var second = PathOf(is_path);
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ(ReferencesOf(*first), 1U);
    EXPECT_EQ(ReferencesOf(*_Object), references + 2);
  }
  EXPECT_EQ(ReferencesOf(*_Object), references);
}

TEST_P(ObjectPathTest, IsNullWithoutMemory) {
  _Session.InjectFault("KORPathElement", FaultOf(KORFault::Kind::StatusAndNull));
  const unsigned long references = ReferencesOf(*_Object);
  const long live = KORBaseUnknown::CountLiveObjects();
  unsigned char is_path = 0;
  EXPECT_TRUE(PathOf(is_path).IsNull());
  EXPECT_EQ(is_path, 1);
  EXPECT_EQ(ReferencesOf(*_Object), references);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
}

TEST_P(ObjectPathTest, UiModeIsThatOfItsOwnClasses) {
  for (const int before : {0, 1, -1, 99}) {
    int mode = before;
    EXPECT_EQ(KORIPLMRepUIManagement_var(_Object)->GetRepUIMode(mode), S_OK);
    EXPECT_EQ(mode, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Objects, ObjectPathTest,
    testing::Values(ObjectRow{"Analysis", [] { return NewAnalysis("Fasten"); }},
                    ObjectRow{"Instance", [] { return Attach(NewOperation("Cover"), NewAnalysis("Fasten")); }},
                    ObjectRow{"InstanceOfAnotherRepresentation", [] { return NewNamedInstance(NewDrawing("Sketch")); }},
                    ObjectRow{"InstanceOfNothing", [] { return NewNamedInstance(NULL_var); }},
                    ObjectRow{"ObjectThatIsNeither", [] { return NewStranger(ReferenceComponent); }}),
    RowName());

class PathLifeTest : public PresentationTest {};

TEST_F(PathLifeTest, KeepsTheObjectAlive) {
  auto analysis = TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference("Fasten"));
  unsigned char is_path = 0;
  const auto path = Path_var::Adopt(KORINavigateObjectModify_var(analysis)->GetObjectPath(is_path));
  analysis = nullptr;
  EXPECT_EQ(objectstest::NameOf(path->GetStart()), "Fasten");
}

}  // namespace
}  // namespace presentationtest
