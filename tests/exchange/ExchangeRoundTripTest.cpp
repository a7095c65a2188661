// Random analyses read out, turned into the form that is written in, and written into a new analysis.
//
// What the exchange holds comes back bit for bit, types included:
//   - attributes of the exchange under their own type; those that go by several names, if all of them hold one value
//   - keys of lines of the exchange under their own type; reused analyses that the session finds by their identifier
//   - texts without ":"; booleans 0 and 1; the rows' own numbers under "RowNum"; rows that hold anything
// What it does not hold goes: formula parameters, names that the exchange doesn't have, what stands behind a ":", and
// lines behind one of which nothing is written.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "VEXTADataIO.h"
#include "tests/exchange/ExchangeWorld.h"
#include "tests/exchange/RandomContent.h"
#include "tests/exchange/TraceLines.h"
#include "tests/oracle/ExchangeOracle.h"
#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using exchangetest::DescribeWithTypes;
using exchangetest::RandomContent;
using exchangetest::RandomContentOptions;
using exchangetest::TraceLines;
using support::TimeAnalysis_var;

// A cell of a list that was read out: "LineData", row, column, key, type, value.
struct Cell {
  std::string row;
  std::string key;
  std::string type;
  std::string value;  // what stands behind the fifth ":", further ones included
};

struct Items {
  std::vector<std::string> attributes;
  std::vector<Cell> cells;
};

std::string TakeField(std::string& text) {
  const std::string field = text.substr(0, text.find(':'));
  text.erase(0, field.size() + 1);
  return field;
}

Items Sort(const KORListValKORUnicodeString& read_out) {
  Items items;
  for (const KORUnicodeString& item : read_out) {
    std::string left = support::Text(item);
    if (!left.starts_with("LineData:")) {
      items.attributes.push_back(left);
      continue;
    }
    Cell cell;
    TakeField(left);
    cell.row = TakeField(left);
    TakeField(left);
    cell.key = TakeField(left);
    cell.type = TakeField(left);
    cell.value = left;
    items.cells.push_back(cell);
  }
  return items;
}

// The keys of the cells, each once, in the order in which they first come.
std::vector<std::string> ColumnsOf(const std::vector<Cell>& cells) {
  std::vector<std::string> columns;
  for (const Cell& cell : cells) {
    if (std::find(columns.begin(), columns.end(), cell.key) == columns.end()) columns.push_back(cell.key);
  }
  return columns;
}

// A list in the form that is written in: attributes, a header item for each column, the cells.
KORListValKORUnicodeString InReadingForm(const Items& items, const std::vector<std::string>& columns) {
  std::vector<std::string> list = items.attributes;
  for (std::size_t index = 0; index < columns.size(); ++index) {
    list.push_back("LineData:et_linedata:0:" + std::to_string(index) + ":8:" + columns[index]);
  }
  for (const Cell& cell : items.cells) {
    const auto column = std::find(columns.begin(), columns.end(), cell.key) - columns.begin();
    list.push_back("LineData:et_linedata:" + cell.row + ":" + std::to_string(column) + ":" + cell.type + ":" +
                   cell.value);
  }
  return support::ListOf(list);
}

Items ReadOut(const TimeAnalysis_var& analysis) {
  KORListValKORUnicodeString items;
  EXPECT_EQ(VEXTADataIO::GetAnalysisData("", items, analysis.Get()), S_OK);
  return Sort(items);
}

// A new analysis of the same identifier, filled from the list.
TimeAnalysis_var WriteIn(KORListValKORUnicodeString list, long expected_status) {
  TimeAnalysis_var analysis = support::MakeAnalysis("Target");
  EXPECT_EQ(VEXTADataIO::SetAnalysisData("", list, analysis.Get()), list.Size() == 0 ? E_FAIL : expected_status);
  return analysis;
}

TimeAnalysis_var ThereAndBack(const TimeAnalysis_var& analysis) {
  const Items items = ReadOut(analysis);
  return WriteIn(InReadingForm(items, ColumnsOf(items.cells)), S_OK);
}

// Analyses of a session that lines reuse, and a trace that stays off standard error.
class ExchangeRoundTripTest : public testing::Test {
 protected:
  ExchangeRoundTripTest() {
    for (const char* identifier : {"Grasp", "Pick", "Länge", "A|B"}) {
      _Reusable.emplace_back(KORModel::Current().CreateTimeAnalysis(identifier));
    }
  }

  // An analysis that holds nothing but what the exchange holds.
  TimeAnalysis_var DrawPlain(unsigned seed, int present_in) {
    const RandomContentOptions options{.present_in = present_in,
                                       .wrong_types = false,
                                       .other_names = false,
                                       .separators = false,
                                       .odd_booleans = false,
                                       .one_value = true,
                                       .numbered_rows = true,
                                       .parameters = false};
    return Draw(seed, options);
  }

  TimeAnalysis_var Draw(unsigned seed, const RandomContentOptions& options) {
    TimeAnalysis_var analysis = support::MakeAnalysis("Target");
    RandomContent content(seed, options);
    content.SetAttributes(*analysis);
    content.SetLines(*analysis, _Reusable);
    return analysis;
  }

  KORFreshSession _Session;
  TraceLines _Trace;
  std::vector<KORBaseUnknown_var> _Reusable;
};

TEST_F(ExchangeRoundTripTest, WhatTheExchangeHoldsComesBack) {
  int with_lines = 0;
  for (unsigned seed = 31000; seed < 32500; ++seed) {
    const TimeAnalysis_var analysis = DrawPlain(seed, seed % 2 == 0 ? 12 : 3);
    const std::string expected = DescribeWithTypes(*analysis);
    const TimeAnalysis_var back = ThereAndBack(analysis);
    ASSERT_EQ(DescribeWithTypes(*back), expected) << "seed " << seed;
    ASSERT_EQ(DescribeWithTypes(*analysis), expected) << "seed " << seed;
    for (int row = 1; row <= 5; ++row) {
      ASSERT_EQ(support::ReadLine<KORBaseUnknown_var>(*back, row, "TimeAnalysis"),
                support::ReadLine<KORBaseUnknown_var>(*analysis, row, "TimeAnalysis"))
          << "seed " << seed << " row " << row;
    }
    with_lines += support::TextOfLine(*back, 1, "Description") ? 1 : 0;
  }
  EXPECT_GT(with_lines, 200);
}

TEST_F(ExchangeRoundTripTest, OrderOfColumnsAndOfCellsInARowDoesNotMatter) {
  for (unsigned seed = 33000; seed < 33500; ++seed) {
    const TimeAnalysis_var analysis = DrawPlain(seed, 3);
    Items items = ReadOut(analysis);
    std::vector<std::string> columns = ColumnsOf(items.cells);
    std::mt19937 generator(seed);
    std::shuffle(columns.begin(), columns.end(), generator);
    std::shuffle(items.cells.begin(), items.cells.end(), generator);
    std::stable_sort(items.cells.begin(), items.cells.end(),
                     [](const Cell& left, const Cell& right) { return left.row < right.row; });
    ASSERT_EQ(DescribeWithTypes(*WriteIn(InReadingForm(items, columns), S_OK)), DescribeWithTypes(*analysis))
        << "seed " << seed;
  }
}

// Header items of unknown keys, of none, and of a key that has its column already.
TEST_F(ExchangeRoundTripTest, ColumnsThatNoCellUsesDoNotMatter) {
  for (unsigned seed = 34000; seed < 34200; ++seed) {
    const TimeAnalysis_var analysis = DrawPlain(seed, 6);
    const Items items = ReadOut(analysis);
    if (items.cells.empty()) continue;
    std::vector<std::string> columns{"unknown"};
    for (const std::string& column : ColumnsOf(items.cells)) {
      columns.push_back(column);
      columns.emplace_back();
      columns.push_back(column);
    }
    ASSERT_EQ(DescribeWithTypes(*WriteIn(InReadingForm(items, columns), S_OK)), DescribeWithTypes(*analysis))
        << "seed " << seed;
  }
}

// What has been through the exchange once has nothing left to lose.
TEST_F(ExchangeRoundTripTest, ASecondTimeChangesNothing) {
  _Reusable.emplace_back(NULL_var);
  _Reusable.emplace_back(support::MakeAnalysis("Foreign"));
  _Reusable.emplace_back(KORModel::Current().CreateTimeAnalysis("Cut:here"));
  _Reusable.emplace_back(KORModel::Current().CreateTimeAnalysis("Cut"));
  _Reusable.emplace_back(KORModel::Current().CreateTimeAnalysis("Pick"));
  int changed = 0;
  for (unsigned seed = 35000; seed < 36000; ++seed) {
    const TimeAnalysis_var analysis = Draw(seed, {.present_in = seed % 2 == 0 ? 12 : 3});
    Items items = ReadOut(analysis);
    KORListValKORUnicodeString list = InReadingForm(items, ColumnsOf(items.cells));
    const TimeAnalysis_var once = support::MakeAnalysis("Target");
    (void)VEXTADataIO::SetAnalysisData("", list, once.Get());
    const std::string expected = DescribeWithTypes(*once);
    ASSERT_EQ(DescribeWithTypes(*ThereAndBack(once)), expected) << "seed " << seed;
    changed += expected == DescribeWithTypes(*analysis) ? 0 : 1;
  }
  EXPECT_GT(changed, 800);
}

// A stream is a list joined by "|".
TEST_F(ExchangeRoundTripTest, AStreamHoldsAListWithoutBars) {
  for (unsigned seed = 37000; seed < 37300; ++seed) {
    const Items items = ReadOut(DrawPlain(seed, 8));
    std::string stream;
    KORListValKORUnicodeString list;
    for (const KORUnicodeString& item : InReadingForm(items, ColumnsOf(items.cells))) {
      if (item.SearchSubString("|") != -1) continue;
      list.Append(item);
      stream.append(stream.empty() ? "" : "|").append(item.Bytes());
    }
    ASSERT_EQ(support::Texts(VEXTADataIO::ExplodeString("|", KORUnicodeString(stream))), support::Texts(list))
        << "seed " << seed;
  }
}

// Of several names of one attribute, the last one that is listed gives its value to all.
TEST_F(ExchangeRoundTripTest, SeveralNamesOfOneAttributeComeBackAlike) {
  const TimeAnalysis_var analysis = support::MakeAnalysis("Target");
  VEXITimeAnalysisRepReference& attributes = *analysis;
  (void)attributes.SetValue("V_description", KORUnicodeString("first"));
  (void)attributes.SetValue("AnalysisDescription", KORUnicodeString("last"));
  const TimeAnalysis_var back = ThereAndBack(analysis);
  for (const char* name : {"V_description", "V_LongDescription", "AnalysisDescription"}) {
    EXPECT_EQ(support::Read<KORUnicodeString>(static_cast<VEXITimeAnalysisRepReference&>(*back), name), "last") << name;
  }
}

// A row without a key of the exchange gets no cell; the rows behind it are then beyond the end.
TEST_F(ExchangeRoundTripTest, LinesBehindOneThatIsNotWrittenAreLost) {
  const TimeAnalysis_var analysis = support::MakeAnalysis(
      "Target", {support::Line("A1"), support::Line().Set("FrequencyString", "2"), support::Line("A3")});
  const Items items = ReadOut(analysis);
  const TimeAnalysis_var back = WriteIn(InReadingForm(items, ColumnsOf(items.cells)), E_INVALIDARG);
  int count = 0;
  (void)back->GetLineCount(count);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(support::TextOfLine(*back, 1, "Code"), "A1");
}

}  // namespace
