// What the node of an analysis is called, and that nothing stands below it.
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "tests/presentation/PresentationTest.h"
#include "tests/support/ServiceTest.h"

namespace presentationtest {
namespace {

using support::RowName;

TimeAnalysis_var NewNamedAnalysis(const char* alias) {
  TimeAnalysis_var analysis = NewAnalysis("Fasten");
  analysis->GetContent().Alias = alias;
  return analysis;
}

KORBaseUnknown_var InstanceOf(const PLMIRepReference_var& reference) {
  return Attach(NewOperation("Cover"), reference);
}

PLMIRepReference_var NewNamedDrawing() {
  PLMIRepReference_var drawing = NewDrawing("Sketch");
  dynamic_cast<KORRepReference&>(*drawing).GetContent().Alias = "Sketch of the cover";
  return drawing;
}

struct NameRow {
  const char* name;
  std::function<KORBaseUnknown_var()> make;
  std::string names;
};

void PrintTo(const NameRow& row, std::ostream* out) {
  *out << row.name;
}

class NodeNamesTest : public PresentationRowTest<NameRow> {};

TEST_P(NodeNamesTest, AreTheNameOfTheReference) {
  EXPECT_EQ(NodeNamesOf(GetParam().make()), GetParam().names);
}

TEST_P(NodeNamesTest, AreTheSameASecondTime) {
  const KORBaseUnknown_var object = GetParam().make();
  (void)NodeNamesOf(object);
  EXPECT_EQ(NodeNamesOf(object), GetParam().names);
}

TEST_P(NodeNamesTest, TakeNoReferences) {
  const KORBaseUnknown_var object = GetParam().make();
  const unsigned long references = ReferencesOf(*object);
  const long live = KORBaseUnknown::CountLiveObjects();
  (void)NodeNamesOf(object);
  EXPECT_EQ(ReferencesOf(*object), references);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
}

TEST_P(NodeNamesTest, HaveNoChildrenBelow) {
  const KORBaseUnknown_var object = GetParam().make();
  EXPECT_EQ(KORINavigateObject_var(object)->GetChildObjects(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, NodeNamesTest,
    testing::Values(
        NameRow{"Analysis", [] { return NewNamedAnalysis("Fasten the cover"); }, "[Fasten the cover]"},
        NameRow{"AnalysisWithoutName", [] { return NewAnalysis("Fasten"); }, "[]"},
        NameRow{"NameOfManyLetters", [] { return NewNamedAnalysis("Größe \"1\"\n2"); }, "[Größe \"1\"\n2]"},
        NameRow{"Instance", [] { return InstanceOf(NewNamedAnalysis("Fasten the cover")); }, "[Fasten the cover]"},
        NameRow{"InstanceOfAnAnalysisWithoutName", [] { return InstanceOf(NewAnalysis("Fasten")); }, "[]"},
        NameRow{"InstanceOfAnotherRepresentation", [] { return NewNamedInstance(NewNamedDrawing()); },
                "[Sketch of the cover]"},
        NameRow{"InstanceWithANameOfItsOwn", [] { return NewNamedInstance(NewNamedAnalysis("Fasten the cover")); },
                "[Fasten the cover]"},
        NameRow{"InstanceThatIsAReferenceItself",
                [] { return NewReferenceAndInstance(NewNamedAnalysis("Fasten the cover")); }, "[Instance]"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    WithoutNames, NodeNamesTest,
    testing::Values(NameRow{"ReferenceWithoutAlias", [] { return NewNamelessReference(ReferenceComponent); }, "null"},
                    NameRow{"NamedInstanceOfAReferenceWithoutAlias",
                            [] { return NewNamedInstance(NewNamelessReference(ReferenceComponent)); }, "null"},
                    NameRow{"InstanceOfNothing", [] { return NewNamedInstance(NULL_var); }, "null"},
                    NameRow{"ObjectThatIsNeither", [] { return NewStranger(ReferenceComponent); }, "null"},
                    NameRow{"ObjectThatIsNeitherAmongInstances", [] { return NewStranger(InstanceComponent); },
                            "null"}),
    RowName());

class NodeNamesListTest : public PresentationTest {};

TEST_F(NodeNamesListTest, HasOneEntry) {
  const TimeAnalysis_var analysis = NewNamedAnalysis("Fasten the cover");
  const std::unique_ptr<const KORListValKORUnicodeString> names(KORINavigateObject_var(analysis)->GetNodeNames());
  ASSERT_NE(names, nullptr);
  ASSERT_EQ(names->Size(), 1);
  EXPECT_EQ((*names)[1], "Fasten the cover");
}

TEST_F(NodeNamesListTest, IsNewForEachCaller) {
  const TimeAnalysis_var analysis = NewNamedAnalysis("Fasten the cover");
  const KORINavigateObject_var names_of_analysis(analysis);
  const std::unique_ptr<KORListValKORUnicodeString> first(names_of_analysis->GetNodeNames());
  const std::unique_ptr<KORListValKORUnicodeString> second(names_of_analysis->GetNodeNames());
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  first->RemoveAll();
  ASSERT_EQ(second->Size(), 1);
  EXPECT_EQ((*second)[1], "Fasten the cover");
}

TEST_F(NodeNamesListTest, FollowsANewName) {
  const TimeAnalysis_var analysis = NewNamedAnalysis("Fasten");
  const KORBaseUnknown_var instance = InstanceOf(analysis);
  EXPECT_EQ(NodeNamesOf(instance), "[Fasten]");
  analysis->GetContent().Alias = "Loosen";
  EXPECT_EQ(NodeNamesOf(instance), "[Loosen]");
  EXPECT_EQ(NodeNamesOf(analysis), "[Loosen]");
}

TEST_F(NodeNamesListTest, LivesLongerThanTheAnalysis) {
  auto analysis = TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference("Fasten"));
  analysis->GetContent().Alias = "Fasten the cover";
  const std::unique_ptr<const KORListValKORUnicodeString> names(KORINavigateObject_var(analysis)->GetNodeNames());
  analysis = nullptr;
  ASSERT_EQ(names->Size(), 1);
  EXPECT_EQ((*names)[1], "Fasten the cover");
}

}  // namespace
}  // namespace presentationtest
