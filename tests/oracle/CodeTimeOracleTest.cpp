// Tests of the yardstick for the code lookup: which entry gives the time, which formula reaches the evaluator, and what
// a lookup leaves alone.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "CodePatternOracle.h"
#include "CodeTimeOracle.h"
#include "FormulaOracle.h"

namespace oracle {
namespace {

double Power(const Arguments& a) {
  return std::pow(a[0], a[1]);
}

constexpr Function Functions[] = {{L"pow", Power}};

double TimeOf(const std::string& formula) {
  return EvaluateFormula(std::wstring(formula.begin(), formula.end()), Functions, 100000).Value;
}

template <typename Row>
std::string NameOf(const testing::TestParamInfo<Row>& row) {
  return row.param.name;
}

PatternCheck CheckIn(const std::string& system) {
  return [system](const std::string& code, const std::string& pattern, int& count, std::vector<double>& values,
                  std::vector<int>& flags) { return CheckPattern(system, code, pattern, count, values, flags); };
}

Entry NumberEntry(const char* code, const char* start, const char* end, const char* time) {
  Entry entry;
  entry.code = code;
  entry.par1_start = start;
  entry.par1_end = end;
  entry.time = time;
  return entry;
}

Entry PatternEntry(const char* pattern, const char* par_id, const char* time, const char* option_time = "") {
  Entry entry;
  // A code that no typed code begins with, so that the entry matches by its pattern only.
  entry.code = "#";
  entry.pattern = pattern;
  entry.option_par_id = par_id;
  entry.time = time;
  entry.option_time = option_time;
  return entry;
}

struct CodeTimeCase {
  const char* name;
  const char* system;
  const char* code;
  std::vector<Entry> entries;
  const char* evaluated;  // the formula that reaches the evaluator; "-" if none does
  const char* time;
  int code_index;
};
void PrintTo(const CodeTimeCase& row, std::ostream* out) {
  *out << row.name << ": " << row.code;
}

class CodeTimeOracleTest : public testing::TestWithParam<CodeTimeCase> {};

TEST_P(CodeTimeOracleTest, GivesTheTime) {
  const CodeTimeCase& row = GetParam();
  Lookup lookup;
  lookup.code = row.code;
  lookup.code_index = -9;
  std::string evaluated = "-";
  GetTimeToCode(lookup, row.system, row.entries, true, CheckIn(row.system), [&](const std::string& formula) {
    evaluated = formula;
    return formula.empty() ? 0.0 : TimeOf(formula);
  });
  EXPECT_EQ(evaluated, row.evaluated);
  EXPECT_EQ(lookup.time, row.time);
  EXPECT_EQ(lookup.code_index, row.code_index);
}

Entry WithCodeID(Entry entry, const char* code_id) {
  entry.code_id = code_id;
  return entry;
}

INSTANTIATE_TEST_SUITE_P(
    ByCodeAndNumber, CodeTimeOracleTest,
    testing::Values(
        CodeTimeCase{"ShortMoveGetsAOne", "STD", "m 5 a", {NumberEntry("M5A1", "", "", "3")}, "3", "3", 0},
        CodeTimeCase{"LongMoveGetsNone", "STD", "M100A", {NumberEntry("M100A1", "", "", "3")}, "", "0", -9},
        CodeTimeCase{"CharactersCountNotBytes", "STD", "MÄÖA", {NumberEntry("MÄÖA1", "", "", "3")}, "3", "3", 0},
        CodeTimeCase{"FiveCharactersGetNone", "STD", "MÄÖÜA", {NumberEntry("MÄÖÜA1", "", "", "3")}, "", "0", -9},
        CodeTimeCase{"NumberInside", "STD", "X5", {NumberEntry("X", "1", "10", "2*$1$")}, "2*5", "10", 0},
        CodeTimeCase{"NumberAsTyped", "STD", "X5.50", {NumberEntry("X", "1", "10", "2*$1$")}, "2*5.50", "11", 0},
        CodeTimeCase{"LowerBound", "STD", "X1", {NumberEntry("X", "1", "10", "2*$1$")}, "", "0", -9},
        CodeTimeCase{"UpperBound", "STD", "X10", {NumberEntry("X", "1", "10", "2*$1$")}, "", "0", -9},
        CodeTimeCase{"Zero", "STD", "X0", {NumberEntry("X", "-1", "10", "2*$1$")}, "", "0", -9},
        CodeTimeCase{"SingleValue", "STD", "X7", {NumberEntry("X", "7", "7", "4")}, "4", "4", 0},
        CodeTimeCase{
            "SingleValueKeepsItsReference", "STD", "X7", {NumberEntry("X", "7", "7", "4+$1$2")}, "4+2", "6", 0},
        CodeTimeCase{"LaterEntryWins",
                     "STD",
                     "X",
                     {NumberEntry("X", "", "", "3"), NumberEntry("Y", "", "", "4"), NumberEntry("X", "", "", "5")},
                     "5",
                     "5",
                     2},
        CodeTimeCase{"OneReferenceMarkStays", "STD", "X5", {NumberEntry("X", "1", "10", "2$1")}, "2", "2", 0}),
    NameOf<CodeTimeCase>);

INSTANTIATE_TEST_SUITE_P(
    Factors, CodeTimeOracleTest,
    testing::Values(
        CodeTimeCase{"WorkFactor", "RWF", "X", {NumberEntry("X", "", "", "3")}, "3", "5.0001", 0},
        CodeTimeCase{"Chain", "SAM", "X", {NumberEntry("X", "", "", "2")}, "2", "10", 0},
        CodeTimeCase{"Mods", "MODAPTS", "X", {WithCodeID(NumberEntry("X", "", "", "4"), "1")}, "4", "1.43333", 0},
        CodeTimeCase{"ModsOtherCodeID", "MODAPTS", "X", {WithCodeID(NumberEntry("X", "", "", "4"), "2")}, "4", "4", 0},
        CodeTimeCase{"LiteralZero", "SAM", "X", {NumberEntry("X", "", "", "0")}, "-", "0.0", 0},
        CodeTimeCase{"CallSeparators", "STD", "X", {NumberEntry("X", "", "", "pow(2,3)")}, "pow(2_3)", "8", 0},
        CodeTimeCase{"UnknownCallSeparators", "STD", "X", {NumberEntry("X", "", "", "ABC(1,2)")}, "ABC(1_2)", "0", 0},
        CodeTimeCase{"NoCallKeepsItsComma", "STD", "X", {NumberEntry("X", "", "", "(1,2)")}, "(1,2)", "0", 0},
        CodeTimeCase{"SequenceByCode", "MODAPTS", "m4g1", {NumberEntry("M4G1", "", "", "5")}, "5", "5", 0},
        CodeTimeCase{"SequenceNeverByNumber", "MODAPTS", "M4G1", {NumberEntry("M4G", "1", "1", "5")}, "", "0", -9},
        CodeTimeCase{"SequenceByNumberElsewhere", "STD", "M4G1", {NumberEntry("M4G", "1", "1", "5")}, "5", "5", 0}),
    NameOf<CodeTimeCase>);

INSTANTIATE_TEST_SUITE_P(
    ByPattern, CodeTimeOracleTest,
    testing::Values(
        CodeTimeCase{"ReferenceFilled", "STD", "GR5", {PatternEntry(R"~("GR"%)~", "0", "2*$1$+1")}, "2*5+1", "11", 0},
        CodeTimeCase{
            "ReferenceDisappears", "STD", "XZY", {PatternEntry(R"~("X""Z"%"Y")~", "0", "10+$2$")}, "10+", "0", 0},
        CodeTimeCase{
            "ReferenceBeyondTheScan", "STD", "X", {PatternEntry(R"~("X")~", "0", "10$7$$2000$$-1$")}, "10", "10", 0},
        CodeTimeCase{"ParameterDidNotTakePart", "STD", "XY", {PatternEntry(R"~("X"%"Y")~", "1", "3")}, "", "0", -9},
        CodeTimeCase{"ParameterBeyondTheScan", "STD", "X", {PatternEntry(R"~("X")~", "1", "3")}, "", "0", -9},
        CodeTimeCase{"OptionTimesAddUp",
                     "STD",
                     "XAB",
                     {PatternEntry(R"~("X""A""B")~", "1", "1", "+10"), PatternEntry(R"~("X""A""B")~", "2", "2", "+20"),
                      PatternEntry(R"~("X""A""B")~", "3", "9", "+99")},
                     "2+10+20",
                     "32",
                     1},
        CodeTimeCase{"OptionZeroStandsFirst",
                     "STD",
                     "XA",
                     {PatternEntry(R"~("X""A")~", "1", "1", "+10"), PatternEntry(R"~("X""A")~", "0", "2", "+20")},
                     "2+20",
                     "22",
                     1},
        CodeTimeCase{"OptionBeyondTheListIsNotStored",
                     "STD",
                     "XA",
                     {PatternEntry(R"~("XA")~", "0", "2", "+1"), PatternEntry(R"~("X"()"A")~", "3", "3", "+20")},
                     "3+1",
                     "4",
                     1}),
    NameOf<CodeTimeCase>);

Entry FilledEntry() {
  Entry entry = NumberEntry("M5A1", "", "", "3");
  entry.code_id = "1";
  entry.text = "Move";
  entry.frequency = "2";
  entry.time_type = "TTB";
  entry.local_text = "Bewegen";
  entry.value_added = "yes";
  return entry;
}

TEST(CodeTimeOracle, TakesOverAllTexts) {
  Lookup lookup;
  lookup.code = "m 5 a";
  GetTimeToCode(lookup, "STD", {FilledEntry()}, true, CheckIn("STD"), TimeOf);
  EXPECT_EQ(lookup.code, "M 5 A");
  EXPECT_EQ(lookup.description, "Move");
  EXPECT_EQ(lookup.frequency, "2");
  EXPECT_EQ(lookup.time_type, "TTB");
  EXPECT_EQ(lookup.local_description, "Bewegen");
  EXPECT_EQ(lookup.value_added, "yes");
  EXPECT_EQ(lookup.code_id, "1");
}

TEST(CodeTimeOracle, LeavesTheRestWhereNothingMatches) {
  for (const bool loaded : {true, false}) {
    Lookup lookup{loaded ? "q" : "m5a1", "t", "d", "y", "f", "l", "v", "i", 4};
    GetTimeToCode(lookup, "STD", {FilledEntry()}, loaded, CheckIn("STD"), TimeOf);
    EXPECT_EQ(lookup.time, "0");
    EXPECT_EQ(lookup.description, "d");
    EXPECT_EQ(lookup.local_description, "l");
    EXPECT_EQ(lookup.value_added, "v");
    EXPECT_EQ(lookup.code_id, "");
    EXPECT_EQ(lookup.code_index, 4);
  }
}

TEST(CodeTimeOracle, EmptyCodeOnlyResetsTheIndex) {
  Lookup lookup{"", "t", "d", "y", "f", "l", "v", "i", 4};
  GetTimeToCode(lookup, "STD", {FilledEntry()}, true, CheckIn("STD"), TimeOf);
  EXPECT_EQ(lookup.time, "t");
  EXPECT_EQ(lookup.code_id, "i");
  EXPECT_EQ(lookup.code_index, -1);
}

TEST(CodeTimeOracle, OptionIdentifiersAreUnited) {
  std::vector<Entry> entries{PatternEntry(R"~("M"%"A"%)~", "0", ""), PatternEntry(R"~("M"%"A"%)~", "1", ""),
                             PatternEntry(R"~("M"%"B"%)~", "0", ""), PatternEntry(R"~("M"%"A"%)~", "4", "")};
  entries[0].option_id = "4";
  entries[1].option_id = "8";
  entries[2].option_id = "16";
  entries[3].option_id = "32";
  long identifier = 1;
  GetOptionID("m 10000 a", identifier, entries, true, CheckIn("STD"));
  EXPECT_EQ(identifier, 1 | 4 | 8);
  identifier = 1;
  GetOptionID("m 10000 a", identifier, entries, false, CheckIn("STD"));
  GetOptionID("", identifier, entries, true, CheckIn("STD"));
  EXPECT_EQ(identifier, 1);
}

TEST(CodeTimeOracle, ReferencesOfAFormula) {
  const std::vector<double> values{0.0, 5.0, 2.5};
  const std::vector<int> flags{0, 1, 1};
  EXPECT_EQ(SubstParameterCode("", values, flags), "");
  EXPECT_EQ(SubstParameterCode("$1$*$2$", values, flags), "5*2.5");
  EXPECT_EQ(SubstParameterCode("1+$0$", values, flags), "1+");
  EXPECT_EQ(SubstParameterCode("$1.9 and more$+1", values, flags), "5+1");
  EXPECT_EQ(SubstParameterCode("1+$2", values, flags), "1+2.5");
  EXPECT_EQ(SubstParameterCode("1+$", values, flags), "1+");
}

}  // namespace
}  // namespace oracle
