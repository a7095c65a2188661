// Time analyses: attributes, rows, and what a record and a row have to do with each other.
#include "platform/model/VEXTimeAnalysisRepReference.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/base/KORNumberText.h"
#include "tests/model/KeyTable.h"
#include "tests/model/ModelTest.h"

namespace {

using modeltest::Analysis_var;
using modeltest::AppendLine;
using modeltest::CodeOf;
using modeltest::CodesOf;
using modeltest::KeyRow;
using modeltest::ListOf;
using modeltest::NamesOn;
using modeltest::NewAnalysis;
using modeltest::NewParameter;
using modeltest::Parameter;
using modeltest::ParametersOf;
using modeltest::RowCountOf;
using modeltest::Unicode;
using modeltest::Value;

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

// Interfaces

TEST(AnalysisInterfacesTest, AllAreOneObject) {
  const Analysis_var analysis = NewAnalysis("TA");
  const KORBaseUnknown_var object = analysis;
  const VEXITimeAnalysisLines_var lines = object;
  const VEXITimeAnalysisRepReference_var attributes = lines;
  const VEXITimeAnalysisProperties_var properties = attributes;
  const VEXITimeAnalysisRevisionCache_var revision = properties;
  const KORIPLMComponent_var component = revision;
  const KORIInstance_var instance = component;
  const PLMIRepReference_var reference = instance;
  const KORIPLMNavRepReference_var navigation = reference;
  const std::vector<KORBaseUnknown*> identities{object->GetImpl(0),     lines->GetImpl(0),     attributes->GetImpl(0),
                                                properties->GetImpl(0), revision->GetImpl(0),  component->GetImpl(0),
                                                instance->GetImpl(0),   reference->GetImpl(0), navigation->GetImpl(0)};
  EXPECT_THAT(identities, testing::Each(analysis->GetImpl(0)));
  EXPECT_TRUE(navigation == lines);
}

TEST(AnalysisInterfacesTest, LineRecordIsNone) {
  VEXTimeAnalysisLineData line;
  EXPECT_TRUE(VEXITimeAnalysisLines_var(&line).IsNull());
}

TEST(AnalysisInterfacesTest, KnowsItsComponent) {
  EXPECT_STREQ(NewAnalysis("TA")->GetComponentName(), "PCCMemVEXTimeAnalysisRepReference");
}

// Attributes

class AttributeKeyTest : public testing::TestWithParam<KeyRow> {};

TEST_P(AttributeKeyTest, IsWrittenAndReadBack) {
  const Analysis_var analysis = NewAnalysis("TA");
  const VEXITimeAnalysisRepReference_var attributes = analysis;
  if (const auto* const text = std::get_if<KORUnicodeString>(&GetParam().Held)) {
    const VEXITimeAnalysisProperties_var properties = analysis;
    EXPECT_EQ(properties->SetValue(GetParam().Key, *text), S_OK);
    KORUnicodeString read;
    EXPECT_EQ(attributes->GetValue(GetParam().Key, read), S_OK);
    EXPECT_EQ(read, *text);
    EXPECT_EQ(attributes->SetValue(GetParam().Key, *text + "2"), S_OK);
    EXPECT_EQ(properties->GetValue(GetParam().Key, read), S_OK);
    EXPECT_EQ(read, *text + "2");
  } else {
    double read = 77.0;
    EXPECT_EQ(attributes->SetValue(GetParam().Key, std::get<double>(GetParam().Held)), S_OK);
    EXPECT_EQ(attributes->GetValue(GetParam().Key, read), S_OK);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(std::get<double>(GetParam().Held)));
  }
}

INSTANTIATE_TEST_SUITE_P(Keys, AttributeKeyTest, testing::ValuesIn(modeltest::AttributeKeys),
                         [](const auto& row) { return std::string(row.param.Key); });

using AttributeValue = std::variant<unsigned char, double, int, KORUnicodeString>;

const AttributeValue AttributeTypes[] = {static_cast<unsigned char>(1), 2.5, 7, Unicode("text")};
const AttributeValue AttributeDefaults[] = {static_cast<unsigned char>(9), 1.0, 3, Unicode("default")};

TEST(AnalysisAttributesTest, TypedReadKeepsTheDefaultUnlessTheTypeIsTheSame) {
  for (const AttributeValue& written : AttributeTypes) {
    const Analysis_var analysis = NewAnalysis("TA");
    for (const char* key : {"V_Index", "V_TotalTime"}) {
      std::visit([&](const auto& held) { EXPECT_EQ(analysis->SetValue(key, held), S_OK); }, written);
      for (const AttributeValue& held_before : AttributeDefaults) {
        const bool same_type = held_before.index() == written.index();
        AttributeValue read = held_before;
        const long status = std::visit([&](auto& held) { return analysis->GetValue(key, held); }, read);
        EXPECT_EQ(status, same_type ? S_OK : E_FAIL);
        EXPECT_TRUE(read == (same_type ? written : held_before));
      }
    }
  }
}

TEST(AnalysisAttributesTest, UnsetAttributeKeepsTheDefault) {
  const Analysis_var analysis = NewAnalysis("TA");
  for (const AttributeValue& held_before : AttributeDefaults) {
    AttributeValue read = held_before;
    EXPECT_EQ(std::visit([&](auto& held) { return analysis->GetValue("V_Name", held); }, read), E_FAIL);
    EXPECT_TRUE(read == held_before);
  }
}

TEST(AnalysisAttributesTest, AllValuesStandInTheFixedOrderAsText) {
  const Analysis_var analysis = NewAnalysis("TA-1");
  analysis->SetValue("zeta", 1);
  analysis->SetValue("V_TotalTime", 0.1);
  analysis->SetValue("Alpha", static_cast<unsigned char>(1));
  analysis->SetValue("V_Name", Unicode("name"));
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  names.Append("left over");
  EXPECT_EQ(analysis->GetAllValues(names, values), S_OK);
  EXPECT_THAT(std::vector(names.begin(), names.end()),
              testing::ElementsAre("PLM_ExternalID", "V_Name", "V_TotalTime", "Alpha", "zeta"));
  EXPECT_THAT(std::vector(values.begin(), values.end()), testing::ElementsAre("TA-1", "name", "0.1", "1", "1"));
}

TEST(AnalysisAttributesTest, NewAnalysisWithoutIdentifierHasNoAttributes) {
  const auto analysis = Analysis_var::Adopt(new VEXTimeAnalysisRepReference);
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  EXPECT_EQ(analysis->GetAllValues(names, values), S_OK);
  EXPECT_EQ(names.Size(), 0);
  EXPECT_EQ(values.Size(), 0);
}

TEST(AnalysisRevisionTest, RemembersTheStatus) {
  const VEXITimeAnalysisRevisionCache_var cache = NewAnalysis("TA");
  int status = 9;
  EXPECT_EQ(cache->GetRevisionStatus(status), S_OK);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(cache->SetRevisionStatus(3), S_OK);
  EXPECT_EQ(cache->GetRevisionStatus(status), S_OK);
  EXPECT_EQ(status, 3);
}

// Rows

class RowKeyTest : public testing::TestWithParam<KeyRow> {};

TEST_P(RowKeyTest, IsStoredAndReadBack) {
  const Analysis_var analysis = NewAnalysis("TA");
  VEXTimeAnalysisLineData written;
  std::visit([&](const auto& held) { written.SetValue(GetParam().Key, held); }, GetParam().Held);
  ASSERT_EQ(analysis->SetLine(1, written), S_OK);
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(analysis->GetLine(1, line), S_OK);
  std::visit(
      [&](const auto& held) {
        std::decay_t<decltype(held)> read{};
        EXPECT_EQ(line.GetValue(GetParam().Key, read), S_OK);
        EXPECT_TRUE(read == held);
      },
      GetParam().Held);
}

INSTANTIATE_TEST_SUITE_P(Keys, RowKeyTest, testing::ValuesIn(modeltest::LineKeys),
                         [](const auto& row) { return std::string(row.param.Key); });

TEST(AnalysisRowsTest, ReusedAnalysisIsStoredAndReadBack) {
  const Analysis_var analysis = NewAnalysis("TA");
  const Analysis_var reused = NewAnalysis("Block");
  VEXTimeAnalysisLineData line;
  line.SetValue("TimeAnalysis", KORBaseUnknown_var(reused));
  ASSERT_EQ(analysis->SetLine(1, line), S_OK);
  VEXTimeAnalysisLineData read;
  ASSERT_EQ(analysis->GetLine(1, read), S_OK);
  KORBaseUnknown_var object;
  EXPECT_EQ(read.GetValue("TimeAnalysis", object), S_OK);
  EXPECT_TRUE(object == reused);
}

class OutsideRowTest : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    AppendLine(*_Analysis, "A");
    AppendLine(*_Analysis, "B");
  }
  const Analysis_var _Analysis = NewAnalysis("TA");
};

TEST_P(OutsideRowTest, GetLineLeavesTheRecordEmpty) {
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", Unicode("old"));
  line.SetValue("Key", 1);
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("old")}));
  EXPECT_EQ(_Analysis->GetLine(GetParam(), line), E_INVALIDARG);
  EXPECT_EQ(CodeOf(line), "default");
  int value = 7;
  EXPECT_EQ(line.GetValue("Key", value), E_FAIL);
  KORRawCollPV list;
  EXPECT_EQ(line.GetValue(KORFormulaParameterKey, list), E_FAIL);
}

TEST_P(OutsideRowTest, GetLineAttributesLeavesTheListsEmpty) {
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  names.Append("old");
  values.Append("old");
  EXPECT_EQ(_Analysis->GetLineAttributes(GetParam(), names, values), E_INVALIDARG);
  EXPECT_EQ(names.Size(), 0);
  EXPECT_EQ(values.Size(), 0);
}

TEST_P(OutsideRowTest, SetLineChangesNothing) {
  if (GetParam() == 3) return;  // the row just past the last one is appended
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", Unicode("C"));
  EXPECT_EQ(_Analysis->SetLine(GetParam(), line), E_INVALIDARG);
  EXPECT_EQ(CodesOf(*_Analysis), "A B ");
}

INSTANTIATE_TEST_SUITE_P(Rows, OutsideRowTest, testing::Values(0, -1, 3, 4, Most, Least), [](const auto& row) {
  return row.param < 0 ? "Minus" + std::to_string(-(row.param + 1)) + "Less1" : std::to_string(row.param);
});

TEST(AnalysisRowsTest, SetLineAppendsJustPastTheLastAndReplacesInside) {
  const Analysis_var analysis = NewAnalysis("TA");
  for (const char* code : {"A", "B", "C"}) AppendLine(*analysis, code);
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", Unicode("X"));
  EXPECT_EQ(analysis->SetLine(2, line), S_OK);
  EXPECT_EQ(CodesOf(*analysis), "A X C ");
}

TEST(AnalysisRowsTest, EmptyRecordIsARowWithoutKeys) {
  const Analysis_var analysis = NewAnalysis("TA");
  VEXTimeAnalysisLineData line;
  EXPECT_EQ(analysis->SetLine(1, line), S_OK);
  EXPECT_EQ(RowCountOf(*analysis), 1);
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  EXPECT_EQ(analysis->GetLineAttributes(1, names, values), S_OK);
  EXPECT_EQ(names.Size(), 0);
  EXPECT_EQ(values.Size(), 0);
  KORRawCollPV list;
  EXPECT_EQ(analysis->GetLine(1, line), S_OK);
  EXPECT_EQ(line.GetValue(KORFormulaParameterKey, list), E_FAIL);
}

TEST(AnalysisRowsTest, RemoveAllLinesEmptiesTheTable) {
  const Analysis_var analysis = NewAnalysis("TA");
  EXPECT_EQ(analysis->RemoveAllLines(), S_OK);
  for (const char* code : {"A", "B"}) AppendLine(*analysis, code);
  VEXTimeAnalysisLineData kept;
  ASSERT_EQ(analysis->GetLine(2, kept), S_OK);
  EXPECT_EQ(analysis->RemoveAllLines(), S_OK);
  EXPECT_EQ(RowCountOf(*analysis), 0);
  EXPECT_EQ(CodeOf(kept), "B");
  EXPECT_EQ(analysis->SetLine(1, kept), S_OK);
  EXPECT_EQ(CodesOf(*analysis), "B ");
}

TEST(AnalysisRowsTest, AttributesOfARowStandInTheFixedOrderAsText) {
  const Analysis_var analysis = NewAnalysis("TA");
  const Analysis_var reused = NewAnalysis("Block");
  VEXTimeAnalysisLineData line;
  line.SetValue("zeta", -1);
  line.SetValue("TimeAnalysis", KORBaseUnknown_var(reused));
  line.SetValue("Factor", 1.0 / 3.0);
  line.SetValue("IsStandardTextFlag", static_cast<unsigned char>(1));
  line.SetValue("Alpha", Unicode("text"));
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a")}));
  line.SetValue("Code", Unicode(""));
  ASSERT_EQ(analysis->SetLine(1, line), S_OK);
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  EXPECT_EQ(analysis->GetLineAttributes(1, names, values), S_OK);
  EXPECT_THAT(std::vector(names.begin(), names.end()),
              testing::ElementsAre("IsStandardTextFlag", "Code", "Factor", "TimeAnalysis", "Alpha", "zeta"));
  EXPECT_THAT(std::vector(values.begin(), values.end()),
              testing::ElementsAre("1", "", "0.3333333333333333", "Block", "text", "-1"));
}

// Several rows at once

struct SpanRow {
  const char* Name;
  int First, Count;
  long Status;
  const char* Codes;
};

void PrintTo(const SpanRow& row, std::ostream* out) {
  *out << row.Name;
}

class GetLinesTest : public testing::TestWithParam<SpanRow> {};

TEST_P(GetLinesTest, AppendsTheRowsThatAreThere) {
  const Analysis_var analysis = NewAnalysis("TA");
  for (const char* code : {"A", "B", "C"}) AppendLine(*analysis, code);
  KORRawCollPV lines;
  lines.Append(nullptr);
  EXPECT_EQ(analysis->GetLines(GetParam().First, GetParam().Count, lines), GetParam().Status);
  EXPECT_EQ(lines[1], nullptr);
  std::string codes;
  for (int position = 2; position <= lines.Size(); ++position) {
    auto* const line = static_cast<VEXTimeAnalysisLineData*>(lines[position]);
    codes += std::string(CodeOf(*line).Bytes()) + ' ';
    EXPECT_EQ(line->Release(), 0u);
  }
  EXPECT_EQ(codes, GetParam().Codes);
}

INSTANTIATE_TEST_SUITE_P(Spans, GetLinesTest,
                         testing::Values(SpanRow{"All", 1, 3, S_OK, "A B C "}, SpanRow{"Middle", 2, 1, S_OK, "B "},
                                         SpanRow{"Tail", 2, 2, S_OK, "B C "}, SpanRow{"None", 1, 0, S_OK, ""},
                                         SpanRow{"NoneOutside", 9, 0, S_OK, ""},
                                         SpanRow{"BeyondTheLast", 3, 2, E_INVALIDARG, "C "},
                                         SpanRow{"FromZero", 0, 3, E_INVALIDARG, "A B "},
                                         SpanRow{"Behind", 4, 1, E_INVALIDARG, ""},
                                         SpanRow{"NegativeCount", 2, -1, E_INVALIDARG, ""},
                                         SpanRow{"FromTheLeast", Least, 3, E_INVALIDARG, ""},
                                         SpanRow{"FromTheLeastToTheMost", Least, Most, E_INVALIDARG, ""},
                                         SpanRow{"MostOfThem", 1, Most, E_INVALIDARG, "A B C "},
                                         SpanRow{"MostFromTheMost", Most, Most, E_INVALIDARG, ""},
                                         SpanRow{"LeastCount", 1, Least, E_INVALIDARG, ""}),
                         modeltest::NameOfRow());

TEST(GetLinesLifeTest, RecordsMayOutliveTheirAnalysis) {
  Analysis_var analysis = NewAnalysis("TA");
  AppendLine(*analysis, "A");
  KORRawCollPV lines;
  ASSERT_EQ(analysis->GetLines(1, 1, lines), S_OK);
  analysis = nullptr;
  auto* const line = static_cast<VEXTimeAnalysisLineData*>(lines[1]);
  EXPECT_EQ(CodeOf(*line), "A");
  EXPECT_EQ(line->Release(), 0u);
}

// Records and rows

TEST(RecordAndRowTest, ChangeOfTheRecordLeavesTheRow) {
  const Analysis_var analysis = NewAnalysis("TA");
  AppendLine(*analysis, "A");
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(analysis->GetLine(1, line), S_OK);
  line.SetValue("Code", Unicode("B"));
  line.SetValue("Key", 1);
  EXPECT_EQ(CodesOf(*analysis), "A ");
  ASSERT_EQ(analysis->SetLine(1, line), S_OK);
  line.SetValue("Code", Unicode("C"));
  EXPECT_EQ(CodesOf(*analysis), "B ");
}

TEST(RecordAndRowTest, ChangeOfTheRowLeavesTheRecord) {
  const Analysis_var analysis = NewAnalysis("TA");
  AppendLine(*analysis, "A");
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(analysis->GetLine(1, line), S_OK);
  VEXTimeAnalysisLineData other;
  ASSERT_EQ(analysis->GetLine(1, other), S_OK);
  other.SetValue("Code", Unicode("B"));
  ASSERT_EQ(analysis->SetLine(1, other), S_OK);
  EXPECT_EQ(CodeOf(line), "A");
}

TEST(RecordAndRowTest, OneRecordFillsManyRows) {
  const Analysis_var analysis = NewAnalysis("TA");
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= 3; ++row) {
    line.SetValue("Code", KORUnicodeString::FromInteger(row));
    ASSERT_EQ(analysis->SetLine(row, line), S_OK);
  }
  EXPECT_EQ(CodesOf(*analysis), "1 2 3 ");
}

class RowParametersTest : public testing::Test {
 protected:
  // A row with two parameters and a null entry between them.
  void SetUp() override {
    VEXTimeAnalysisLineData line;
    line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a"), nullptr, NewParameter("b")}));
    ASSERT_EQ(_Analysis->SetLine(1, line), S_OK);
    ASSERT_EQ(NamesOn(line), "a null b ");
  }

  std::string NamesOnRow() const {
    VEXTimeAnalysisLineData line;
    EXPECT_EQ(_Analysis->GetLine(1, line), S_OK);
    return NamesOn(line);
  }

  const Analysis_var _Analysis = NewAnalysis("TA");
};

TEST_F(RowParametersTest, GetLineCopiesThem) {
  VEXTimeAnalysisLineData first;
  VEXTimeAnalysisLineData second;
  ASSERT_EQ(_Analysis->GetLine(1, first), S_OK);
  ASSERT_EQ(_Analysis->GetLine(1, second), S_OK);
  EXPECT_NE(ParametersOf(first)[1], ParametersOf(second)[1]);
  static_cast<Parameter*>(ParametersOf(first)[1])->_ParameterName = "changed";
  EXPECT_EQ(NamesOn(first), "changed null b ");
  EXPECT_EQ(NamesOn(second), "a null b ");
  EXPECT_EQ(NamesOnRow(), "a null b ");
}

TEST_F(RowParametersTest, SetLineCopiesThem) {
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(_Analysis->GetLine(1, line), S_OK);
  auto* const parameter = static_cast<Parameter*>(ParametersOf(line)[3]);
  parameter->_ParameterName = "changed";
  ASSERT_EQ(_Analysis->SetLine(1, line), S_OK);
  parameter->_ParameterName = "changed again";
  EXPECT_EQ(NamesOnRow(), "a null changed ");
}

TEST_F(RowParametersTest, EveryFieldIsKept) {
  auto* const parameter = NewParameter("n");
  parameter->_ParameterKind = 4;
  parameter->_ValueText = "2.5";
  parameter->_Signature = "n : #In Real";
  parameter->_Body = "n*2";
  parameter->_ValueType = "Real";
  parameter->_OwnerPLMId = "TA-9";
  parameter->_OwnerRow = "no number";
  VEXTimeAnalysisLineData line;
  line.SetValue(KORFormulaParameterKey, ListOf({parameter}));
  ASSERT_EQ(_Analysis->SetLine(1, line), S_OK);
  VEXTimeAnalysisLineData read;
  ASSERT_EQ(_Analysis->GetLine(1, read), S_OK);
  const auto& copy = *static_cast<const Parameter*>(ParametersOf(read)[1]);
  EXPECT_EQ(copy._ParameterKind, 4);
  EXPECT_EQ(copy._ValueText, "2.5");
  EXPECT_EQ(copy._ParameterName, "n");
  EXPECT_EQ(copy._Signature, "n : #In Real");
  EXPECT_EQ(copy._Body, "n*2");
  EXPECT_EQ(copy._ValueType, "Real");
  EXPECT_EQ(copy._OwnerPLMId, "TA-9");
  EXPECT_EQ(copy._OwnerRow, "no number");
}

TEST_F(RowParametersTest, ClearedRecordLeavesTheRow) {
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(_Analysis->GetLine(1, line), S_OK);
  line.ClearFormulaAndParamters();
  EXPECT_EQ(NamesOnRow(), "a null b ");
  ASSERT_EQ(_Analysis->SetLine(1, line), S_OK);
  EXPECT_EQ(NamesOnRow(), "");
}

TEST_F(RowParametersTest, RecordFilledAnewWithoutClearing) {
  VEXTimeAnalysisLineData line;
  for (int round = 0; round < 3; ++round) ASSERT_EQ(_Analysis->GetLine(1, line), S_OK);
  EXPECT_EQ(NamesOn(line), "a null b ");
  EXPECT_EQ(_Analysis->GetLine(2, line), E_INVALIDARG);
  EXPECT_EQ(NamesOn(line), "");
}

TEST_F(RowParametersTest, RecordsOfAListAreFreedByHand) {
  KORRawCollPV lines;
  ASSERT_EQ(_Analysis->GetLines(1, 1, lines), S_OK);
  auto* const line = static_cast<VEXTimeAnalysisLineData*>(lines[1]);
  const KORRawCollPV parameters = ParametersOf(*line);
  for (int position = parameters.Size(); position >= 1; --position) {
    delete static_cast<Parameter*>(parameters[position]);
  }
  EXPECT_EQ(line->Release(), 0u);
  EXPECT_EQ(NamesOnRow(), "a null b ");
}

TEST_F(RowParametersTest, ParametersOfOneRowMoveToARecordOfAnother) {
  VEXTimeAnalysisLineData target;
  {
    VEXTimeAnalysisLineData source;
    ASSERT_EQ(_Analysis->GetLine(1, source), S_OK);
    target.SetValue(KORFormulaParameterKey, ParametersOf(source));
  }
  ASSERT_EQ(_Analysis->SetLine(2, target), S_OK);
  target.ClearFormulaAndParamters();
  ASSERT_EQ(_Analysis->GetLine(2, target), S_OK);
  EXPECT_EQ(NamesOn(target), "a null b ");
}

}  // namespace
