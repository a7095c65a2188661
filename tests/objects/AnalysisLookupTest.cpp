// The lookup of a time analysis by its identifier.
#include <gtest/gtest.h>

#include <string>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::NameOf;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOperation;

KORBaseUnknown_var Find(const char* identifier) {
  return VEXSTMTimeAnalysisDlgServices::GetTAFromPLMExternalID(identifier);
}

class AnalysisLookupTest : public objectstest::ObjectsTest {};

TEST_F(AnalysisLookupTest, GivesTheAnalysisWithTheIdentifier) {
  NewAnalysis("Grip");
  const auto pick = NewAnalysis("Pick");
  EXPECT_TRUE(Find("Pick") == pick);
}

TEST_F(AnalysisLookupTest, OfTwoWithTheSameIdentifierTheFirstMadeIsGiven) {
  NewAnalysis("Grip");
  const auto first = NewAnalysis("Pick");
  const auto second = NewAnalysis("Pick");
  EXPECT_TRUE(Find("Pick") == first);
  EXPECT_FALSE(Find("Pick") == second);
}

TEST_F(AnalysisLookupTest, ThePresentIdentifierCounts) {
  const auto pick = NewAnalysis("Pick");
  (void)pick->SetValue("PLM_ExternalID", KORUnicodeString("Take"));
  EXPECT_TRUE(Find("Pick").IsNull());
  EXPECT_TRUE(Find("Take") == pick);
}

struct UnknownRow {
  const char* name;
  const char* identifier;
};
class UnknownIdentifierTest : public objectstest::ObjectsRowTest<UnknownRow> {};

TEST_P(UnknownIdentifierTest, GivesNothing) {
  NewAnalysis("Pick");
  NewDrawing("Sketch");
  NewOperation("Fasten");
  EXPECT_TRUE(Find(GetParam().identifier).IsNull());
}

INSTANTIATE_TEST_SUITE_P(Identifiers, UnknownIdentifierTest,
                         testing::Values(UnknownRow{"Nobodys", "Grip"}, UnknownRow{"Empty", ""},
                                         UnknownRow{"OtherCapitals", "pick"}, UnknownRow{"Beginning", "Pic"},
                                         UnknownRow{"BlankBehind", "Pick "}, UnknownRow{"Star", "*"},
                                         UnknownRow{"OfADrawing", "Sketch"}, UnknownRow{"OfAnOperation", "Fasten"}),
                         support::RowName());

TEST_F(AnalysisLookupTest, InAnEmptySessionNothingIsFound) {
  EXPECT_TRUE(Find("Pick").IsNull());
}

TEST_F(AnalysisLookupTest, TheHandleIsAllThatIsKept) {
  const auto pick = NewAnalysis("Pick");
  const unsigned long before = pick->AddRef();
  {
    const KORBaseUnknown_var found = Find("Pick");
    EXPECT_EQ(pick->AddRef(), before + 2);
  }
  EXPECT_EQ(pick->Release(), before);
  (void)pick->Release();
}

class AnalysisLookupFaultTest : public objectstest::FaultTest {};

TEST_P(AnalysisLookupFaultTest, GivesItsOutcome) {
  NewAnalysis("Pick");
  ExpectOutcome([] { return NameOf(Find("Pick")); }, "Pick");
}

// Statuses are not looked at: what counts is whether a list came back.
INSTANTIATE_TEST_SUITE_P(Calls, AnalysisLookupFaultTest,
                         testing::ValuesIn(objectstest::AllFaults({
                             {"AddAttribute", "null", "Pick", "null"},
                             {"GetElementsFromAttributes", "null", "Pick", "null"},
                         })),
                         objectstest::FaultCaseName());

}  // namespace
