// Random tables and codes: the lookup against the plain walk over every entry, for time, texts, index and options.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/oracle/CodePatternOracle.h"
#include "tests/oracle/CodeTimeOracle.h"
#include "tests/support/DataCardText.h"
#include "tests/support/RandomPattern.h"
#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::RandomPattern;
using support::RandomText;
using support::Text;
using support::Unicode;
using namespace std::string_view_literals;

constexpr std::array CodePieces{"A"sv,  "A"sv,  "B"sv, "M"sv, "X"sv, "1"sv, "5"sv,
                                "AB"sv, "M5"sv, "-"sv, "+"sv, "."sv, "GR"sv};
constexpr std::array Times{"0"sv,          ""sv,     "3"sv,       "2*$1$"sv,     "10+$2$"sv, "$0$"sv,
                           "pow($1$,2)"sv, "4$9$"sv, "1+$abc$"sv, "$1$+$3$"sv,   "2*"sv,     "floor(7/2)"sv,
                           "$1999$+1"sv,   "5$1"sv,  "0$2$"sv,    "(1+$1$)*2"sv, "$-1$6"sv,  "$2000$6"sv};
constexpr std::array OptionTimes{""sv, "+1"sv, "+3"sv, "*2"sv, "+$1$"sv, "7"sv};
constexpr std::array Bounds{""sv, "0"sv, "1"sv, "5"sv, "7"sv, "10"sv, "-3"sv, "100"sv, "x"sv, "12.5"sv};
constexpr std::array Positions{""sv, "0"sv, "1"sv, "2"sv, "3"sv, "4"sv, "6"sv, "-1"sv, "2000"sv, "x"sv};
constexpr std::array Numbers{"1"sv,  "5"sv,  "7"sv,   "10"sv,  "12.5"sv, "0"sv,  "-2"sv,
                             "05"sv, "5X"sv, "1E1"sv, "INF"sv, "NAN"sv,  "+3"sv, ".5"sv};

// A table together with what is needed to draw codes near its entries.
struct RandomTable {
  std::vector<oracle::Entry> entries;
  std::vector<std::string> near_codes;
};

oracle::Entry DrawEntry(RandomText& random, int index) {
  const std::string mark = std::to_string(index);
  oracle::Entry entry;
  entry.code_id = std::to_string(random.Below(3));
  entry.code = random.Draw(CodePieces, 3);
  entry.text = "text " + mark;
  entry.local_text = "local " + mark;
  entry.value_added = "value " + mark;
  entry.frequency = "frequency " + mark;
  entry.time_type = "type " + mark;
  entry.time = random.AnyOf(Times);
  if (random.OneIn(2)) {
    entry.par1_start = random.AnyOf(Bounds);
    entry.par1_end = random.OneIn(4) ? entry.par1_start : std::string(random.AnyOf(Bounds));
  }
  if (random.OneIn(3)) {
    entry.option_par_id = random.AnyOf(Positions);
    entry.option_time = random.AnyOf(OptionTimes);
    entry.option_id = std::to_string(1 << random.Below(12));
  }
  return entry;
}

RandomTable DrawTable(RandomText& random, bool chain) {
  RandomTable table;
  const int size = random.OneIn(8) ? 150 : random.Below(25);
  for (int index = 0; index < size; ++index) {
    if (random.OneIn(25)) {
      table.entries.emplace_back();
      continue;
    }
    oracle::Entry entry = DrawEntry(random, index);
    if (!table.entries.empty() && random.OneIn(6)) entry.code = random.AnyOf(table.entries).code;
    if (random.OneIn(2)) {
      RandomPattern pattern(random.Generator(), chain);
      entry.pattern = pattern.Pattern();
      for (int code = 0; code < 4; ++code) table.near_codes.push_back(pattern.Code());
      // Several entries of one pattern add their options up.
      if (!table.entries.empty() && random.OneIn(4)) entry.pattern = random.AnyOf(table.entries).pattern;
    }
    table.near_codes.push_back(entry.code);
    table.near_codes.push_back(entry.code + std::string(random.AnyOf(Numbers)));
    table.entries.push_back(entry);
  }
  return table;
}

std::string DrawCode(RandomText& random, const RandomTable& table) {
  std::string code =
      table.near_codes.empty() || random.OneIn(8) ? random.Draw(CodePieces, 4) : random.AnyOf(table.near_codes);
  if (random.OneIn(6)) code += random.AnyOf(Numbers);
  if (random.OneIn(10)) code += random.AnyOf(std::array{"A"sv, "B"sv, "C"sv, "D"sv});
  if (random.OneIn(10)) code.insert(static_cast<std::size_t>(random.Below(static_cast<int>(code.size()) + 1)), " ");
  if (random.OneIn(5)) {
    for (char& character : code) {
      if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
    }
  }
  return code;
}

std::string OptionalElement(std::string_view name, const std::string& value) {
  return value.empty() ? std::string() : support::Element(name, value);
}

// An empty element would end the entry or, for an entry without identifier, nothing opens it.
std::string Written(const oracle::Entry& entry) {
  if (entry.code_id.empty()) return "<DATACARDENTRY/>\n";
  std::string text =
      support::Element("CODE_ID", entry.code_id) + OptionalElement("CODE", entry.code) +
      support::Elements({{"TEXT", entry.text},
                         {"LOCALTEXT", entry.local_text},
                         {"VALUEADDED", entry.value_added},
                         {"FREQUENCY", entry.frequency},
                         {"TIME", entry.time},
                         {"PAR_1_START", entry.par1_start},
                         {"PAR_1_END", entry.par1_end},
                         {"TIMETYPE", entry.time_type}}) +
      support::OptionElement(
          {{"PAR_ID", entry.option_par_id}, {"TIME", entry.option_time}, {"OPTION_ID", entry.option_id}});
  if (!entry.pattern.empty()) text += support::Elements({{"PATTERN", entry.pattern}, {"PATTERN1", ""}});
  return support::Container("DATACARDENTRY", text) + "\n";
}

struct SystemRow {
  const char* name;
  const char* system;
  unsigned seed;
};

class CodeTimeDifferentialTest : public support::ServiceRowTest<SystemRow> {
 protected:
  void LoadTable(const RandomTable& table);
  void CompareLookup(const std::string& code);
  void CompareOptions(const std::string& code);

  const oracle::PatternCheck _CheckPattern = [](const std::string& code, const std::string& pattern, int& count,
                                                std::vector<double>& values, std::vector<int>& flags) {
    return oracle::CheckPattern(GetParam().system, code, pattern, count, values, flags);
  };
  const oracle::TimeFromFormula _Evaluate = [this](const std::string& formula) {
    int status = 0;
    return _Evaluator.GetTimeFromFormula(Unicode(formula), status);
  };

  VEXSTMTimeAnalysisDlgServices _Evaluator;
  std::unique_ptr<VEXSTMTimeAnalysisDlgServices> _Services;
  std::vector<oracle::Entry> _Entries;
  oracle::Lookup _Expected;
  int _Found = 0;
};

void CodeTimeDifferentialTest::LoadTable(const RandomTable& table) {
  std::string text;
  for (const oracle::Entry& entry : table.entries) text += Written(entry);
  _Services = std::make_unique<VEXSTMTimeAnalysisDlgServices>();
  Load(*_Services, GetParam().system, support::DataCardFile(text));
  ASSERT_EQ(_Services->GetDCEntriesCount(), static_cast<int>(table.entries.size()));
  _Entries = table.entries;
  _Expected = oracle::Lookup();
}

void CodeTimeDifferentialTest::CompareLookup(const std::string& code) {
  _Expected.code = code;
  const int index_before = _Expected.code_index;
  _Expected.time = _Expected.description = _Expected.time_type = _Expected.frequency = "before";
  oracle::GetTimeToCode(_Expected, GetParam().system, _Entries, true, _CheckPattern, _Evaluate);

  KORUnicodeString typed = Unicode(code);
  KORUnicodeString time = "before", description = "before", time_type = "before", frequency = "before";
  _Services->GetTimeToCode(typed, time, description, time_type, frequency);
  ASSERT_EQ(_Services->GetCodeIndex(), _Expected.code_index) << "index before: " << index_before;
  ASSERT_EQ(Text(time), _Expected.time);
  ASSERT_EQ(Text(typed), _Expected.code);
  ASSERT_EQ(Text(description), _Expected.description);
  ASSERT_EQ(Text(time_type), _Expected.time_type);
  ASSERT_EQ(Text(frequency), _Expected.frequency);
  ASSERT_EQ(Text(_Services->GetTACodeID()), _Expected.code_id);
  ASSERT_EQ(Text(_Services->GetLocalDescription()), _Expected.local_description);
  ASSERT_EQ(Text(_Services->GetValueAdded()), _Expected.value_added);
  if (_Expected.description != "before") ++_Found;
}

void CodeTimeDifferentialTest::CompareOptions(const std::string& code) {
  long expected = 0x10000;
  oracle::GetOptionID(code, expected, _Entries, true, _CheckPattern);
  long option = 0x10000;
  _Services->GetOptionID(Unicode(code), option);
  ASSERT_EQ(option, expected);
}

TEST_P(CodeTimeDifferentialTest, AgreesWithTheWalkOverEveryEntry) {
  RandomText random(GetParam().seed);
  support::Select(_Evaluator, GetParam().system);
  for (int round = 0; round < 100; ++round) {
    const RandomTable table = DrawTable(random, std::string(GetParam().system) == "SAM");
    ASSERT_NO_FATAL_FAILURE(LoadTable(table));
    for (int lookup = 0; lookup < 120; ++lookup) {
      const std::string code = DrawCode(random, table);
      SCOPED_TRACE(testing::Message() << "table " << round << ", lookup " << lookup << ": code <" << code << ">");
      ASSERT_NO_FATAL_FAILURE(CompareLookup(code));
      ASSERT_NO_FATAL_FAILURE(CompareOptions(code));
    }
  }
  // The lookups are worth something only if many of them find an entry.
  EXPECT_GT(_Found, 2000);
}

INSTANTIATE_TEST_SUITE_P(Systems, CodeTimeDifferentialTest,
                         testing::Values(SystemRow{"Std", "STD", 71}, SystemRow{"Mtm2", "MTM2", 72},
                                         SystemRow{"Sam", "SAM", 73}, SystemRow{"Rwf", "RWF", 74},
                                         SystemRow{"Modapts", "MODAPTS", 75}, SystemRow{"Most", "MOST", 76}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
