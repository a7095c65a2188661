// The record of a line: values of every key and type, formula parameters and who frees them, copies.
//
// That nothing is freed twice and nothing is left behind is for the sanitizers to see.
#include "platform/model/VEXTimeAnalysisLineData.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <variant>

#include "tests/model/KeyTable.h"
#include "tests/model/ModelTest.h"

namespace {

using modeltest::CodeOf;
using modeltest::KeyRow;
using modeltest::ListOf;
using modeltest::NamesOn;
using modeltest::NewParameter;
using modeltest::Parameter;
using modeltest::ParametersOf;
using modeltest::Unicode;
using modeltest::Value;

// Values

long Set(VEXTimeAnalysisLineData& line, const KORString& key, const Value& value) {
  return std::visit([&](const auto& held) { return line.SetValue(key, held); }, value);
}

// Reads the key into a holder of the type that `value` has.
long Get(const VEXTimeAnalysisLineData& line, const KORString& key, Value& value) {
  return std::visit([&](auto& held) { return line.GetValue(key, held); }, value);
}

class LineKeyTest : public testing::TestWithParam<KeyRow> {};

TEST_P(LineKeyTest, IsWrittenAndReadBack) {
  const auto& [key, written] = GetParam();
  VEXTimeAnalysisLineData line;
  EXPECT_EQ(Set(line, key, written), S_OK);
  Value read = std::visit([](const auto& held) { return Value(std::decay_t<decltype(held)>()); }, written);
  EXPECT_EQ(Get(line, key, read), S_OK);
  EXPECT_TRUE(read == written);
}

INSTANTIATE_TEST_SUITE_P(Keys, LineKeyTest, testing::ValuesIn(modeltest::LineKeys),
                         [](const auto& row) { return std::string(row.param.Key); });

// A value of each type, and another one of the same type.
struct TypeRow {
  const char* Name;
  Value Held;
  Value Default;
};

void PrintTo(const TypeRow& row, std::ostream* out) {
  *out << row.Name;
}

// What the tables below point at; it stays to the end of the process, as the tables do.
KORBaseUnknown_var ObjectOfTable() {
  static auto* const object = new KORBaseUnknown;
  return KORBaseUnknown_var(object);
}

Parameter* ParameterOfTable() {
  static auto* const parameter = new Parameter;
  return parameter;
}

const TypeRow Types[] = {
    {"Text", Unicode("text"), Unicode("default")},
    {"Real", 2.5, 1.0},
    {"Integer", 7, 3},
    {"Boolean", static_cast<unsigned char>(1), static_cast<unsigned char>(9)},
    {"Object", KORBaseUnknown_var(), ObjectOfTable()},
    {"List", KORRawCollPV(), ListOf({ParameterOfTable()})},
};

using TypePair = std::tuple<TypeRow, TypeRow>;

class TypedReadTest : public testing::TestWithParam<TypePair> {
 protected:
  static const char* KeyFor(const Value& value) {
    return std::holds_alternative<KORRawCollPV>(value) ? KORFormulaParameterKey : "Key";
  }
};

TEST_P(TypedReadTest, KeepsTheDefaultUnlessTheTypeIsTheSame) {
  const auto& [written, wanted] = GetParam();
  const char* const key = KeyFor(written.Held);
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(Set(line, key, written.Held), S_OK);
  const bool same_type = written.Held.index() == wanted.Held.index();
  Value value = wanted.Default;
  EXPECT_EQ(Get(line, key, value), same_type ? S_OK : E_FAIL);
  EXPECT_TRUE(value == (same_type ? written.Held : wanted.Default));
}

TEST_P(TypedReadTest, ReplacesAValueOfAnotherType) {
  const auto& [first, second] = GetParam();
  if (KeyFor(first.Held) != KeyFor(second.Held)) {
    VEXTimeAnalysisLineData line;
    EXPECT_EQ(Set(line, KeyFor(second.Held), first.Held), E_INVALIDARG);
    Value value = first.Default;
    EXPECT_EQ(Get(line, KeyFor(second.Held), value), E_FAIL);
    EXPECT_TRUE(value == first.Default);
    return;
  }
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(Set(line, KeyFor(first.Held), first.Held), S_OK);
  ASSERT_EQ(Set(line, KeyFor(second.Held), second.Held), S_OK);
  Value value = second.Default;
  EXPECT_EQ(Get(line, KeyFor(second.Held), value), S_OK);
  EXPECT_TRUE(value == second.Held);
}

INSTANTIATE_TEST_SUITE_P(Types, TypedReadTest, testing::Combine(testing::ValuesIn(Types), testing::ValuesIn(Types)),
                         [](const auto& pair) {
                           return std::string(std::get<0>(pair.param).Name) + "And" + std::get<1>(pair.param).Name;
                         });

class UnsetKeyTest : public testing::TestWithParam<TypeRow> {};

TEST_P(UnsetKeyTest, KeepsTheDefault) {
  VEXTimeAnalysisLineData line;
  for (const char* key : {"Factor", "Key", "", KORFormulaParameterKey}) {
    Value value = GetParam().Default;
    EXPECT_EQ(Get(line, key, value), E_FAIL) << key;
    EXPECT_TRUE(value == GetParam().Default) << key;
  }
}

INSTANTIATE_TEST_SUITE_P(Types, UnsetKeyTest, testing::ValuesIn(Types), modeltest::NameOfRow());

// Formula parameters

TEST(LineParametersTest, GetValueHandsOutThePointersOfTheRecord) {
  VEXTimeAnalysisLineData line;
  Parameter* const first = NewParameter("a");
  Parameter* const second = NewParameter("b");
  const KORRawCollPV list = ListOf({first, second});
  EXPECT_EQ(line.SetValue(KORFormulaParameterKey, list), S_OK);
  EXPECT_TRUE(ParametersOf(line) == list);
}

TEST(LineParametersTest, ListThatIsHandedOutIsTheCallers) {
  VEXTimeAnalysisLineData line;
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a")}));
  KORRawCollPV list = ParametersOf(line);
  list.RemoveAll();
  EXPECT_EQ(NamesOn(line), "a ");
}

TEST(LineParametersTest, NullEntriesAreKept) {
  VEXTimeAnalysisLineData line;
  line.SetValue(KORFormulaParameterKey, ListOf({nullptr, NewParameter("a"), nullptr}));
  EXPECT_EQ(NamesOn(line), "null a null ");
  const VEXTimeAnalysisLineData copy = line;
  EXPECT_EQ(NamesOn(copy), "null a null ");
}

TEST(LineParametersTest, ClearEmptiesTheListAndNothingElse) {
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", Unicode("A"));
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a"), nullptr}));
  EXPECT_EQ(line.ClearFormulaAndParamters(), S_OK);
  KORRawCollPV list = ListOf({nullptr});
  EXPECT_EQ(line.GetValue(KORFormulaParameterKey, list), S_OK);
  EXPECT_EQ(list.Size(), 0);
  EXPECT_EQ(line.ClearFormulaAndParamters(), S_OK);
  EXPECT_EQ(CodeOf(line), "A");
}

TEST(LineParametersTest, ClearOfAnEmptyRecordGivesAnEmptyList) {
  VEXTimeAnalysisLineData line;
  EXPECT_EQ(line.ClearFormulaAndParamters(), S_OK);
  KORRawCollPV list = ListOf({nullptr});
  EXPECT_EQ(line.GetValue(KORFormulaParameterKey, list), S_OK);
  EXPECT_EQ(list.Size(), 0);
}

TEST(LineParametersTest, DeletedByHandBeforeTheRecord) {
  VEXTimeAnalysisLineData line;
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a"), nullptr, NewParameter("b")}));
  const KORRawCollPV list = ParametersOf(line);
  for (int position = list.Size(); position >= 1; --position) delete static_cast<Parameter*>(list[position]);
  line.ClearFormulaAndParamters();
  EXPECT_EQ(NamesOn(line), "");
}

TEST(LineParametersTest, DroppedWithoutClearing) {
  auto* const line = new VEXTimeAnalysisLineData;
  line->SetValue(KORFormulaParameterKey, ListOf({NewParameter("a")}));
  EXPECT_EQ(line->Release(), 0u);
}

TEST(LineParametersTest, PutIntoASecondRecordTheyOutliveTheFirst) {
  VEXTimeAnalysisLineData second;
  {
    VEXTimeAnalysisLineData first;
    first.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a"), NewParameter("b")}));
    second.SetValue(KORFormulaParameterKey, ParametersOf(first));
    EXPECT_EQ(NamesOn(first), "a b ");
    first.ClearFormulaAndParamters();
    EXPECT_EQ(NamesOn(first), "");
  }
  EXPECT_EQ(NamesOn(second), "a b ");
}

TEST(LineParametersTest, SameListSetAgain) {
  VEXTimeAnalysisLineData line;
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a"), NewParameter("b")}));
  line.SetValue(KORFormulaParameterKey, ParametersOf(line));
  EXPECT_EQ(NamesOn(line), "a b ");
}

TEST(LineParametersTest, ReplacedParametersStayUntilTheRecordFreesThem) {
  VEXTimeAnalysisLineData line;
  Parameter* const dropped = NewParameter("a");
  Parameter* const kept = NewParameter("b");
  line.SetValue(KORFormulaParameterKey, ListOf({dropped, kept}));
  line.SetValue(KORFormulaParameterKey, ListOf({kept, NewParameter("c")}));
  EXPECT_EQ(NamesOn(line), "b c ");
  EXPECT_EQ(dropped->_ParameterName, "a");
}

TEST(LineParametersTest, OnePointerMayStandTwice) {
  VEXTimeAnalysisLineData line;
  Parameter* const parameter = NewParameter("a");
  line.SetValue(KORFormulaParameterKey, ListOf({parameter, parameter}));
  EXPECT_EQ(NamesOn(line), "a a ");
  const VEXTimeAnalysisLineData copy = line;
  EXPECT_EQ(NamesOn(copy), "a a ");
  EXPECT_NE(ParametersOf(copy)[1], ParametersOf(copy)[2]);
}

// Copies

TEST(LineCopyTest, HasValuesAndParametersOfItsOwn) {
  auto original = std::make_unique<VEXTimeAnalysisLineData>();
  original->SetValue("Code", Unicode("A"));
  original->SetValue(KORFormulaParameterKey, ListOf({NewParameter("a")}));
  VEXTimeAnalysisLineData copy = *original;
  EXPECT_NE(ParametersOf(copy)[1], ParametersOf(*original)[1]);
  original->SetValue("Code", Unicode("B"));
  static_cast<Parameter*>(ParametersOf(*original)[1])->_ParameterName = "changed";
  original.reset();
  EXPECT_EQ(CodeOf(copy), "A");
  EXPECT_EQ(NamesOn(copy), "a ");
}

TEST(LineCopyTest, AssignmentReplacesEverything) {
  VEXTimeAnalysisLineData source;
  source.SetValue("Code", Unicode("A"));
  VEXTimeAnalysisLineData target;
  target.SetValue("Description", Unicode("old"));
  target.SetValue(KORFormulaParameterKey, ListOf({NewParameter("old")}));
  target = source;
  EXPECT_EQ(CodeOf(target), "A");
  KORUnicodeString description("default");
  EXPECT_EQ(target.GetValue("Description", description), E_FAIL);
  KORRawCollPV list = ListOf({nullptr});
  EXPECT_EQ(target.GetValue(KORFormulaParameterKey, list), E_FAIL);
  EXPECT_EQ(list.Size(), 1);
}

TEST(LineCopyTest, SelfAssignmentChangesNothing) {
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", Unicode("A"));
  line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("a")}));
  const KORRawCollPV before = ParametersOf(line);
  const VEXTimeAnalysisLineData& same = line;
  line = same;
  EXPECT_EQ(CodeOf(line), "A");
  EXPECT_TRUE(ParametersOf(line) == before);
}

TEST(LineCopyTest, CopyIsAnObjectOfItsOwn) {
  auto* const original = new VEXTimeAnalysisLineData;
  original->AddRef();
  auto* const copy = new VEXTimeAnalysisLineData(*original);
  EXPECT_EQ(copy->Release(), 0u);
  EXPECT_EQ(original->Release(), 1u);
  EXPECT_EQ(original->Release(), 0u);
}

}  // namespace
