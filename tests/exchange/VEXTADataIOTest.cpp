// The exported exchange of analyses: the class, the analysis that it works on, and both directions together.
#include "VEXTADataIO.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "exchange/DefaultStream.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/exchange/ExchangeTest.h"
#include "tests/exchange/TraceLines.h"

namespace {

using exchangetest::LinesOf;
using exchangetest::NewAnalysis;
using exchangetest::TextList;
using exchangetest::TraceLines;
using support::Line;
using support::ListOf;
using support::Texts;
using support::TimeAnalysis_var;
using testing::ElementsAre;
using testing::IsEmpty;

// The class

static_assert(std::is_base_of_v<KORBaseUnknown, VEXTADataIO>);
static_assert(std::is_default_constructible_v<VEXTADataIO> && std::is_copy_constructible_v<VEXTADataIO>);
static_assert(sizeof(VEXTADataIO) == sizeof(KORBaseUnknown), "an object of the class holds nothing");

TEST(VEXTADataIOTest, IsAnObjectWithACountOfItsOwn) {
  const auto exchange = KORHandle<VEXTADataIO>::Adopt(new VEXTADataIO);
  const KORHandle<VEXTADataIO> again = exchange;
  const auto copy = KORHandle<VEXTADataIO>::Adopt(new VEXTADataIO(*exchange));
  EXPECT_EQ(exchange, again);
  EXPECT_FALSE(exchange == copy);
  EXPECT_EQ(copy->AddRef(), 2u);
  EXPECT_EQ(copy->Release(), 1u);
}

// Cutting

TEST(VEXTADataIOTest, ExplodesTexts) {
  EXPECT_THAT(Texts(VEXTADataIO::ExplodeString(":", "a:b:")), ElementsAre("a", "b", ""));
  EXPECT_THAT(Texts(VEXTADataIO::ExplodeString(":", "a")), ElementsAre("a"));
  EXPECT_THAT(Texts(VEXTADataIO::ExplodeString(":", "")), IsEmpty());
  EXPECT_THAT(Texts(VEXTADataIO::ExplodeString(":", ":")), ElementsAre("", ""));
  EXPECT_THAT(Texts(VEXTADataIO::ExplodeString("::", "a::b")), ElementsAre("a", ":b"));
}

TEST(VEXTADataIOTest, LeavesTheTextOfTheCallerAlone) {
  const KORUnicodeString separator = "|";
  const KORUnicodeString text = "a|b";
  (void)VEXTADataIO::ExplodeString(separator, text);
  EXPECT_EQ(text, "a|b");
  EXPECT_EQ(separator, "|");
}

// The analysis to work on

class AnalysisOfTheExchangeTest : public testing::Test {
 protected:
  TimeAnalysis_var Create(const char* identifier, const char* name) {
    TimeAnalysis_var analysis = KORModel::Current().CreateTimeAnalysis(identifier);
    (void)static_cast<VEXITimeAnalysisRepReference&>(*analysis).SetValue("V_Name", KORUnicodeString(name));
    return analysis;
  }

  static std::string NameOf(const TimeAnalysis_var& analysis) {
    return support::Text(
        support::Read<KORUnicodeString>(static_cast<VEXITimeAnalysisRepReference&>(*analysis), "V_Name")
            .value_or(KORUnicodeString("none")));
  }

  KORFreshSession Session;
  TraceLines Trace;
  KORListValKORUnicodeString Items = ListOf({"AttributeData:name:8:new"});
};

TEST_F(AnalysisOfTheExchangeTest, IsTheOneOfTheIdentifierIfNoneIsGiven) {
  const TimeAnalysis_var first = Create("TA-1", "first"), second = Create("TA-2", "second");
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-2", Items, nullptr), S_OK);
  EXPECT_EQ(NameOf(first), "first");
  EXPECT_EQ(NameOf(second), "new");
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("TA-1", Items, nullptr), S_OK);
  EXPECT_THAT(Texts(Items), ElementsAre("AttributeData:name:8:first"));
}

TEST_F(AnalysisOfTheExchangeTest, IsTheFirstOneMadeOfThatIdentifier) {
  const TimeAnalysis_var first = Create("TA-1", "first"), second = Create("TA-1", "second");
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-1", Items, nullptr), S_OK);
  EXPECT_EQ(NameOf(first), "new");
  EXPECT_EQ(NameOf(second), "second");
}

TEST_F(AnalysisOfTheExchangeTest, IsTheOneThatIsGivenWhateverTheIdentifier) {
  const TimeAnalysis_var given = Create("TA-1", "given"), other = Create("TA-2", "other");
  for (const char* const identifier : {"TA-2", "nowhere", ""}) {
    EXPECT_EQ(VEXTADataIO::GetAnalysisData(identifier, Items, given->GetImpl(0)), S_OK);
    EXPECT_THAT(Texts(Items), ElementsAre("AttributeData:name:8:given"));
    Items = ListOf({"AttributeData:name:8:given"});
    EXPECT_EQ(VEXTADataIO::SetAnalysisData(identifier, Items, given->GetImpl(0)), S_OK);
    EXPECT_EQ(NameOf(other), "other");
  }
}

TEST_F(AnalysisOfTheExchangeTest, IsNotLookedForIfOneIsGiven) {
  const TimeAnalysis_var given = Create("TA-1", "given");
  Session.InjectFault("GetElementByIdentificationSet", E_FAIL);
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-1", Items, given->GetImpl(0)), S_OK);
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("TA-1", Items, given->GetImpl(0)), S_OK);
}

TEST_F(AnalysisOfTheExchangeTest, MayBeGivenByAnyOfItsInterfaces) {
  const TimeAnalysis_var given = Create("TA-1", "given");
  VEXITimeAnalysisLines& lines = *given;
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", Items, &lines), S_OK);
  EXPECT_EQ(NameOf(given), "new");
  VEXITimeAnalysisRevisionCache& revision = *given;
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("", Items, &revision), S_OK);
  EXPECT_THAT(Texts(Items), ElementsAre("AttributeData:name:8:new"));
}

TEST_F(AnalysisOfTheExchangeTest, FailsIfThereIsNone) {
  const TimeAnalysis_var other = Create("TA-1", "other");
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("TA-2", Items, nullptr), E_FAIL);
  EXPECT_THAT(Texts(Items), ElementsAre("AttributeData:name:8:new"));
  EXPECT_THAT(Trace.Take(), ElementsAre("Failed to get object <TA-2> from session/database into session."));
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-2", Items, nullptr), E_FAIL);
  EXPECT_THAT(Texts(Items), ElementsAre("AttributeData:name:8:new"));
  EXPECT_THAT(Trace.Take(), ElementsAre("Failed to get object <TA-2> from session/database into session."));
  EXPECT_EQ(NameOf(other), "other");
}

TEST_F(AnalysisOfTheExchangeTest, IsTracedWithItsWholeIdentifier) {
  KORListValKORUnicodeString none;
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", none, nullptr), E_FAIL);
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("Pr\xFC"
                                         "fen <1>",
                                         none, nullptr),
            E_FAIL);
  EXPECT_THAT(Trace.Take(), ElementsAre("Failed to get object <> from session/database into session.",
                                        "Failed to get object <Prüfen <1>> from session/database into session."));
}

TEST_F(AnalysisOfTheExchangeTest, FailsIfTheSearchFails) {
  const TimeAnalysis_var analysis = Create("TA-1", "first");
  for (const char* const operation : {"GetElementByIdentificationSet", "AddAttribute"}) {
    Session.InjectFault(operation, E_NOINTERFACE);
    EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-1", Items, nullptr), E_FAIL) << operation;
    EXPECT_EQ(VEXTADataIO::GetAnalysisData("TA-1", Items, nullptr), E_FAIL) << operation;
    Session.ClearFaults();
  }
  EXPECT_EQ(NameOf(analysis), "first");
  EXPECT_EQ(Trace.Take().size(), 4u);
}

TEST_F(AnalysisOfTheExchangeTest, IsOneOfTheCurrentSession) {
  const TimeAnalysis_var analysis = Create("TA-1", "first");
  const KORFreshSession other;
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-1", Items, nullptr), E_FAIL);
}

TEST_F(AnalysisOfTheExchangeTest, KeepsTheReferencesThatItHad) {
  const TimeAnalysis_var analysis = Create("TA-1", "first");
  const unsigned long before = analysis->AddRef();
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-1", Items, nullptr), S_OK);
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("TA-1", Items, nullptr), S_OK);
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", Items, analysis->GetImpl(0)), S_OK);
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("", Items, analysis->GetImpl(0)), S_OK);
  EXPECT_EQ(analysis->Release() + 1, before);
}

TEST_F(AnalysisOfTheExchangeTest, FailsForAnEmptyListWithNothingChanged) {
  const TimeAnalysis_var analysis = Create("TA-1", "first");
  support::AppendLines(*analysis, {Line("OLD")});
  KORListValKORUnicodeString none;
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("TA-1", none, nullptr), E_FAIL);
  EXPECT_EQ(NameOf(analysis), "first");
  EXPECT_THAT(LinesOf(*analysis), ElementsAre("1 Code='OLD'"));
  EXPECT_THAT(Trace.Take(), IsEmpty());
}

// Both directions

TEST(VEXTADataIOTest, DoesNotReadCellsInTheFormThatItWrites) {
  const TimeAnalysis_var analysis =
      NewAnalysis({Line("G1A").Set("IsStandardTextFlag", static_cast<unsigned char>(1)).Set("TimeType", "TTB")});
  KORListValKORUnicodeString items;
  ASSERT_EQ(VEXTADataIO::GetAnalysisData("", items, analysis->GetImpl(0)), S_OK);
  ASSERT_THAT(Texts(items), ElementsAre("LineData:1:0:standardtextflag:11:1", "LineData:1:4:code:8:G1A",
                                        "LineData:1:5:timetype:8:TTB"));
  // Where the row is looked for stands the column: column 0 makes a header of the key "1", which is none.
  TraceLines trace;
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0)), E_INVALIDARG);
  EXPECT_THAT(LinesOf(*analysis), IsEmpty());
  EXPECT_THAT(trace.Take(), ElementsAre("Failed to map line attribute <1>", "Failed to map line attribute <1>"));
}

TEST(VEXTADataIOTest, WritesInWhatItReadOutOfTheAttributes) {
  const TimeAnalysis_var analysis = NewAnalysis(), again = NewAnalysis();
  KORListValKORUnicodeString items =
      ListOf({"AttributeData:analysisdescription:8:X", "AttributeData:state:3:7", "AttributeData:dbl_twpart:5:0.1"});
  ASSERT_EQ(VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0)), S_OK);
  ASSERT_EQ(VEXTADataIO::GetAnalysisData("", items, analysis->GetImpl(0)), S_OK);
  ASSERT_EQ(VEXTADataIO::SetAnalysisData("", items, again->GetImpl(0)), S_OK);
  EXPECT_EQ(exchangetest::AttributesOf(*again), exchangetest::AttributesOf(*analysis));
}

TEST(VEXTADataIOTest, ExchangesDistinctAnalysesOnDistinctThreads) {
  TraceLines trace;
  const auto exchange = [](TextList& read) {
    const TimeAnalysis_var analysis = NewAnalysis();
    for (int round = 0; round < 20; ++round) {
      KORListValKORUnicodeString items = VEXTADataIO::ExplodeString("|", exchange::DefaultStream());
      items.Append("AttributeData:unknown:8:");
      (void)VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0));
      (void)VEXTADataIO::GetAnalysisData("", items, analysis->GetImpl(0));
      read = Texts(items);
    }
  };
  std::vector<TextList> read(4);
  std::vector<std::thread> threads;
  for (TextList& one : read) threads.emplace_back(exchange, std::ref(one));
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(read.front().size(), 26u + 140u);
  for (const TextList& one : read) EXPECT_EQ(one, read.front());
  EXPECT_EQ(trace.Take(), TextList(80, "Failed to map attribute <unknown>"));
}

}  // namespace
