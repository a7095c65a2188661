// What the yardstick of the exchange gives for cases whose outcome is known.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "ExchangeOracle.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::TimeAnalysis_var;
using Texts = std::vector<std::string>;

TEST(ExchangeOracleTest, CutsAtEverySeparator) {
  EXPECT_EQ(oracle::ExplodeString(":", "a:b:"), (Texts{"a", "b", ""}));
  EXPECT_EQ(oracle::ExplodeString(":", "a"), (Texts{"a"}));
  EXPECT_EQ(oracle::ExplodeString(":", ""), Texts{});
  EXPECT_EQ(oracle::ExplodeString(":", ":"), (Texts{"", ""}));
  EXPECT_EQ(oracle::ExplodeString("ß", "日ßäß😀"), (Texts{"日", "ä", "😀"}));
  // Only one character of a longer separator goes.
  EXPECT_EQ(oracle::ExplodeString("::", "a::b"), (Texts{"a", ":b"}));
  EXPECT_EQ(oracle::ExplodeString("", "a"), (Texts{"a"}));
}

TEST(ExchangeOracleTest, TablesHaveTheirSizeAndEveryKeyOnce) {
  std::set<std::string> keys;
  std::set<std::string> names;
  std::size_t parts = 0;
  for (const oracle::ExchangeAttribute& row : oracle::ExchangeAttributes()) {
    keys.insert(row.key);
    for (const std::string& name : oracle::ExplodeString("|", row.names)) {
      names.insert(name);
      ++parts;
    }
  }
  EXPECT_EQ(oracle::ExchangeAttributes().size(), 87U);
  EXPECT_EQ(keys.size(), 87U);
  EXPECT_EQ(parts, 92U);
  EXPECT_EQ(names.size(), parts);

  std::set<std::string> line_keys;
  std::set<std::string> values;
  std::set<int> columns;
  for (const oracle::ExchangeLineKey& row : oracle::ExchangeLineKeys()) {
    line_keys.insert(row.key);
    values.insert(row.line_key);
    columns.insert(row.column);
  }
  EXPECT_EQ(line_keys.size(), 33U);
  EXPECT_EQ(values.size(), 33U);
  EXPECT_EQ(columns.size(), 33U);
  EXPECT_EQ(*columns.rbegin(), 34);
  EXPECT_EQ(columns.count(26) + columns.count(27), 0U);
}

TEST(ExchangeOracleTest, DefaultStreamHasItsLengthAndItsItems) {
  const std::string stream = oracle::ExchangeDefaultStream();
  EXPECT_EQ(stream.size(), 5859U);
  const Texts items = oracle::ExplodeString("|", stream);
  EXPECT_EQ(items.size(), 178U);
  const auto begin_with = [&](const char* head) {
    return std::count_if(items.begin(), items.end(), [&](const std::string& item) { return item.starts_with(head); });
  };
  EXPECT_EQ(begin_with("AttributeData"), 21);
  EXPECT_EQ(begin_with("LineData"), 154);
  EXPECT_EQ(items.back(), "LineData:et_linedata:10:13:8:");
  EXPECT_EQ(oracle::ExplodeString(":", items.back()).size(), 6U);
}

TEST(ExchangeOracleTest, DefaultStreamMakesTenLines) {
  const TimeAnalysis_var analysis = support::MakeAnalysis("A", {support::Line("old")});
  const KORListValKORUnicodeString items = support::ListOf(oracle::ExplodeString("|", oracle::ExchangeDefaultStream()));
  const oracle::ExchangeOutcome outcome = oracle::SetAnalysisData("", items, analysis.Get());
  EXPECT_EQ(outcome.status, S_OK);
  EXPECT_EQ(outcome.trace, Texts{});
  int count = 0;
  (void)analysis->GetLineCount(count);
  EXPECT_EQ(count, 10);
  EXPECT_EQ(support::ReadLine<unsigned char>(*analysis, 10, "IsStandardTextFlag"), 1);
  EXPECT_EQ(support::TextOfLine(*analysis, 7, "Description"), "Application of force, large");
  EXPECT_EQ(support::TextOfLine(*analysis, 7, "AnalysisType"), " ");
  EXPECT_EQ(support::RealOfLine(*analysis, 8, "TTUTime"), 0.600000012);
  EXPECT_EQ(support::ReadLine<int>(*analysis, 9, "RowNum"), 9);
}

struct WriteRow {
  const char* name;
  Texts items;
  long status;
  Texts trace;
};

class ExchangeOracleWriteTest : public testing::TestWithParam<WriteRow> {};

TEST_P(ExchangeOracleWriteTest, GivesStatusAndTrace) {
  const TimeAnalysis_var analysis = support::MakeAnalysis("A");
  const oracle::ExchangeOutcome outcome =
      oracle::SetAnalysisData("", support::ListOf(GetParam().items), analysis.Get());
  EXPECT_EQ(outcome.status, GetParam().status);
  EXPECT_EQ(outcome.trace, GetParam().trace);
  EXPECT_EQ(outcome.fatal_error, "");
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ExchangeOracleWriteTest,
    testing::Values(WriteRow{"Nothing", {}, E_FAIL, {}}, WriteRow{"NothingThatIsRead", {"Save", "", "STD"}, E_FAIL, {}},
                    WriteRow{"HeaderAlone", {"LineData:et_linedata:0:0:8:code"}, E_FAIL, {}},
                    WriteRow{
                        "UnknownAttribute", {"AttributeData:x:8:v"}, E_INVALIDARG, {"Failed to map attribute <x>"}},
                    WriteRow{"KnownBehindUnknown",
                             {"AttributeData:x:8:v", "AttributeData:name:8:v"},
                             S_OK,
                             {"Failed to map attribute <x>"}},
                    WriteRow{"HeaderAtTheEnd", {"AttributeData:name:8:v", "LineData:et_linedata:0:0:8:code"}, S_OK, {}},
                    WriteRow{"CellWithoutHeader", {"LineData:et_linedata:1:0:8:A1"}, E_INVALIDARG, {}},
                    WriteRow{"UnknownColumn",
                             {"LineData:et_linedata:0:0:8:x", "LineData:et_linedata:1:0:8:A1"},
                             E_INVALIDARG,
                             {"Failed to map line attribute <x>"}},
                    WriteRow{"BeyondTheEnd", {"LineData:t:0:0:8:code", "LineData:t:2:0:8:A1"}, E_INVALIDARG, {}},
                    WriteRow{"TooFewFields", {"AttributeData:name:8:v", "LineData:t:0"}, E_INVALIDARG, {}},
                    WriteRow{"Appended", {"LineData:t:0:9:8:code", "LineData:t:1:0:8:A1"}, S_OK, {}}),
    support::RowName());

TEST(ExchangeOracleTest, ReadsOutWhatItKnows) {
  KORFreshSession session;
  const TimeAnalysis_var grasp = support::MakeAnalysis("Grasp");
  const TimeAnalysis_var analysis =
      support::MakeAnalysis("A", {support::Line().Set("TimeType", "TTB").Set("FormulaPicture", "p").Reuses(grasp)});
  VEXITimeAnalysisRepReference& attributes = *analysis;
  (void)attributes.SetValue("V_description", KORUnicodeString("12:30"));
  (void)attributes.SetValue("TotalPart", 0.1);
  (void)attributes.SetValue("IsDirty", static_cast<unsigned char>(1));
  KORListValKORUnicodeString items = support::ListOf({"before"});
  const oracle::ExchangeOutcome outcome = oracle::GetAnalysisData("", items, analysis.Get());
  EXPECT_EQ(outcome.status, S_OK);
  EXPECT_EQ(outcome.trace,
            (Texts{"Failed to map attribute <PLM_ExternalID>", "Failed to map line attribute <FormulaPicture>"}));
  EXPECT_EQ(support::Texts(items), (Texts{"AttributeData:analysisdescription:8:12:30", "AttributeData:isdirty:11:1",
                                          "AttributeData:dbl_totalpart:5:0.1", "LineData:1:5:timetype:8:TTB",
                                          "LineData:1:25:subanalysis:13:Grasp"}));
}

TEST(ExchangeOracleTest, TellsOfAnObjectThatIsNotFound) {
  KORFreshSession session;
  KORListValKORUnicodeString items = support::ListOf({"before"});
  for (const oracle::ExchangeOutcome& outcome :
       {oracle::GetAnalysisData("none", items, nullptr), oracle::SetAnalysisData("none", items, nullptr)}) {
    EXPECT_EQ(outcome.status, E_FAIL);
    EXPECT_EQ(outcome.trace, (Texts{"Failed to get object <none> from session/database into session."}));
  }
  EXPECT_EQ(support::Texts(items), (Texts{"before"}));
}

}  // namespace
