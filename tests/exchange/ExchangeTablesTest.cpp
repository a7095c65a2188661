// What the attributes of an analysis and the values of its lines are called in the exchange.
#include "exchange/ExchangeTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/ItemText.h"
#include "tests/model/KeyTable.h"
#include "tests/support/ServiceTest.h"

namespace {

using exchange::AttributeRow;
using exchange::AttributeTable;
using exchange::LineRow;
using exchange::LineTable;
using exchange::ValueType;
using testing::ElementsAre;
using testing::Pair;

std::vector<std::string> NamesOf(const AttributeRow& row) {
  return support::Texts(exchange::Explode("|", support::Unicode(row.Names)));
}

template <class Table>
std::map<ValueType, int> CountTypes(const Table& table) {
  std::map<ValueType, int> counts;
  for (const auto& row : table) ++counts[row.Type];
  return counts;
}

// Shape

TEST(AttributeTableTest, HasItsRows) {
  EXPECT_EQ(AttributeTable.size(), 87u);
  EXPECT_THAT(CountTypes(AttributeTable), ElementsAre(Pair(ValueType::Integer, 7), Pair(ValueType::Real, 41),
                                                      Pair(ValueType::Text, 38), Pair(ValueType::Boolean, 1)));
}

TEST(AttributeTableTest, HasEveryKeyAndEveryNameOnce) {
  std::set<std::string> keys, names;
  std::size_t name_count = 0;
  for (const AttributeRow& row : AttributeTable) {
    keys.emplace(row.Key);
    for (const std::string& name : NamesOf(row)) {
      names.insert(name);
      ++name_count;
    }
  }
  EXPECT_EQ(keys.size(), AttributeTable.size());
  EXPECT_EQ(names.size(), name_count);
}

TEST(AttributeTableTest, NamesSeveralAttributesInFourRows) {
  std::map<std::string, std::vector<std::string>> rows;
  for (const AttributeRow& row : AttributeTable) {
    if (NamesOf(row).size() > 1) rows[std::string(row.Key)] = NamesOf(row);
  }
  EXPECT_THAT(rows, ElementsAre(Pair("analysisdescription",
                                     ElementsAre("V_description", "V_LongDescription", "AnalysisDescription")),
                                Pair("analysistype", ElementsAre("V_AnalysisType", "AnalysisType")),
                                Pair("subsystem", ElementsAre("V_Subsystem", "Subsystem")),
                                Pair("timetype", ElementsAre("V_TimeType", "TimeType"))));
}

TEST(LineTableTest, HasItsRows) {
  EXPECT_EQ(LineTable.size(), 33u);
  EXPECT_THAT(CountTypes(LineTable),
              ElementsAre(Pair(ValueType::Integer, 3), Pair(ValueType::Real, 16), Pair(ValueType::Text, 12),
                          Pair(ValueType::Boolean, 1), Pair(ValueType::Analysis, 1)));
}

TEST(LineTableTest, HasEveryKeyAndEveryLineKeyOnce) {
  std::set<std::string_view> keys, line_keys;
  for (const LineRow& row : LineTable) {
    keys.insert(row.Key);
    line_keys.insert(row.LineKey);
  }
  EXPECT_EQ(keys.size(), LineTable.size());
  EXPECT_EQ(line_keys.size(), LineTable.size());
}

TEST(LineTableTest, CountsItsColumnsFrom0To34WithoutTwo) {
  std::vector<int> columns, expected;
  for (const LineRow& row : LineTable) columns.push_back(row.Column);
  for (int column = 0; column <= 34; ++column) {
    if (column != 26 && column != 27) expected.push_back(column);
  }
  EXPECT_EQ(columns, expected);
}

TEST(ExchangeTablesTest, SevenKeysStandInBothTables) {
  std::set<std::string_view> common;
  for (const AttributeRow& row : AttributeTable) {
    if (exchange::FindLineValueByKey(row.Key) != nullptr) common.insert(row.Key);
  }
  EXPECT_THAT(common, testing::UnorderedElementsAre("analysisdescription", "code", "timetype", "analysistype", "state",
                                                    "bitmask", "valueadded"));
}

// Types: those of the keys of the model

ValueType TypeOf(const modeltest::Value& value) {
  constexpr std::array<ValueType, 5> types{ValueType::Text, ValueType::Real, ValueType::Integer, ValueType::Boolean,
                                           ValueType::Analysis};
  return types.at(value.index());
}

TEST(ExchangeTablesTest, GiveEveryKeyOfALineItsTypeInTheModel) {
  std::vector<std::string> without_row;
  for (const modeltest::KeyRow& key : modeltest::LineKeys) {
    const LineRow* const row = exchange::FindLineValueByLineKey(key.Key);
    if (row == nullptr) {
      without_row.emplace_back(key.Key);
    } else {
      EXPECT_EQ(row->Type, TypeOf(key.Held)) << key.Key;
    }
  }
  EXPECT_THAT(without_row, ElementsAre("FrequencyString", "FormulaParameter", "FormulaPicture"));
}

TEST(ExchangeTablesTest, GiveTheAttributesTheirTypeInTheModel) {
  std::vector<std::string> without_row;
  for (const modeltest::KeyRow& attribute : modeltest::AttributeKeys) {
    const AttributeRow* const row = exchange::FindAttributeByName(attribute.Key);
    if (row == nullptr) {
      without_row.emplace_back(attribute.Key);
    } else {
      EXPECT_EQ(row->Type, TypeOf(attribute.Held)) << attribute.Key;
    }
  }
  EXPECT_THAT(without_row, ElementsAre("PLM_ExternalID", "V_HumanTime", "V_MachineTime", "V_WaitingTime", "V_SetupTime",
                                       "V_TotalTime"));
}

// Search

TEST(ExchangeTablesTest, FindEveryAttributeByItsKeyAndByEachOfItsNames) {
  for (const AttributeRow& row : AttributeTable) {
    EXPECT_EQ(exchange::FindAttributeByKey(row.Key), &row) << row.Key;
    for (const std::string& name : NamesOf(row)) EXPECT_EQ(exchange::FindAttributeByName(name), &row) << name;
  }
}

TEST(ExchangeTablesTest, FindEveryValueOfALineByBothOfItsKeys) {
  for (const LineRow& row : LineTable) {
    EXPECT_EQ(exchange::FindLineValueByKey(row.Key), &row) << row.Key;
    EXPECT_EQ(exchange::FindLineValueByLineKey(row.LineKey), &row) << row.LineKey;
  }
}

struct AttributeCase {
  const char* name;
  const char* attribute;
  const char* key;
  ValueType type;
};

class AttributeNameTest : public testing::TestWithParam<AttributeCase> {};

TEST_P(AttributeNameTest, LeadsToItsKey) {
  const AttributeRow* const row = exchange::FindAttributeByName(GetParam().attribute);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->Key, GetParam().key);
  EXPECT_EQ(row->Type, GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    Attributes, AttributeNameTest,
    testing::Values(
        AttributeCase{"DescriptionByItsFirstName", "V_description", "analysisdescription", ValueType::Text},
        AttributeCase{"DescriptionByItsSecondName", "V_LongDescription", "analysisdescription", ValueType::Text},
        AttributeCase{"DescriptionByItsThirdName", "AnalysisDescription", "analysisdescription", ValueType::Text},
        AttributeCase{"SecondDescription", "AnalysisDescription2", "analysisdescription2", ValueType::Text},
        AttributeCase{"Name", "V_Name", "name", ValueType::Text},
        AttributeCase{"SystemByItsOlderName", "Subsystem", "subsystem", ValueType::Text},
        AttributeCase{"StateIsAnInteger", "State", "state", ValueType::Integer},
        AttributeCase{"VersionIsAnInteger", "Version", "version", ValueType::Integer},
        AttributeCase{"TheOneBoolean", "IsDirty", "isdirty", ValueType::Boolean},
        AttributeCase{"KeyWithAPoint", "EffectivityBegin", "effectivity.begin", ValueType::Real},
        AttributeCase{"KeyThatIsItsName", "awllg", "awllg", ValueType::Text},
        AttributeCase{"UnitAmongQuantities", "TECalcUnit", "tecalcunit", ValueType::Text},
        AttributeCase{"Lines", "AnalysisLinesHTML", "analysislines", ValueType::Text},
        AttributeCase{"LastRow", "V_ValueAdded", "valueadded", ValueType::Text}),
    support::RowName());

struct LineCase {
  const char* name;
  const char* line_key;
  const char* key;
  int column;
  ValueType type;
};

class LineKeyTest : public testing::TestWithParam<LineCase> {};

TEST_P(LineKeyTest, LeadsToItsColumn) {
  const LineRow* const row = exchange::FindLineValueByLineKey(GetParam().line_key);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->Key, GetParam().key);
  EXPECT_EQ(row->Column, GetParam().column);
  EXPECT_EQ(row->Type, GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    LineKeys, LineKeyTest,
    testing::Values(LineCase{"FirstColumn", "IsStandardTextFlag", "standardtextflag", 0, ValueType::Boolean},
                    LineCase{"RowNumber", "RowNum", "rowno", 2, ValueType::Integer},
                    LineCase{"TimeTypeStandsInColumn5", "TimeType", "timetype", 5, ValueType::Text},
                    LineCase{"FrequencyIsCalledFactor", "Factor", "factor", 9, ValueType::Real},
                    LineCase{"ReuseIsTheLastAheadOfTheGap", "TimeAnalysis", "subanalysis", 25, ValueType::Analysis},
                    LineCase{"FirstBehindTheGap", "ValueAdded", "valueadded", 28, ValueType::Text},
                    LineCase{"LastColumn", "ParamFactorString", "text1", 34, ValueType::Text}),
    support::RowName());

TEST(ExchangeTablesTest, FindNothingButWholeNames) {
  for (const char* const name : {"", "v_name", "V_NAME", "V_Nam", "V_Name ", "name", "V_TimeType|TimeType", "|"}) {
    EXPECT_EQ(exchange::FindAttributeByName(name), nullptr) << name;
  }
  for (const char* const key : {"", "Name", "nam", "name ", "V_Name", "rowno"}) {
    EXPECT_EQ(exchange::FindAttributeByKey(key), nullptr) << key;
  }
  for (const char* const key : {"", "Code", "cod", "code ", "TimeType", "name"}) {
    EXPECT_EQ(exchange::FindLineValueByKey(key), nullptr) << key;
  }
  for (const char* const key : {"", "code", "CODE", "Cod", "Code ", "V_Name", "FrequencyString"}) {
    EXPECT_EQ(exchange::FindLineValueByLineKey(key), nullptr) << key;
  }
}

}  // namespace
