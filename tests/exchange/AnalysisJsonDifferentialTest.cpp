// Random analyses exported by random templates, beside the plain export.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/exchange/JsonExportTest.h"
#include "tests/exchange/RandomContent.h"
#include "tests/support/PlainJsonExport.h"

namespace {

using exchangetest::JsonExportTest;
using exchangetest::RandomContent;
using support::MakeAnalysis;

// Draws templates: right ones, with examples of any kind, odd ones, and texts that are no JSON.
class RandomTemplates {
 public:
  explicit RandomTemplates(unsigned seed) : _Random(seed) {}

  std::string Complete() {
    std::vector<std::string> members;
    if (!_Random.OneIn(8)) members.push_back(R"("TAATTRIBUTES":)" + (_Random.OneIn(8) ? Value(2) : Object(20)));
    if (!_Random.OneIn(8)) members.push_back(R"("TALINESDETAILS":)" + (_Random.OneIn(8) ? Value(2) : Array(4)));
    for (int others = _Random.Below(3); others > 0; --others) members.push_back(Member(2));
    std::shuffle(members.begin(), members.end(), _Random.Generator());
    std::string text;
    for (const std::string& member : members) text += (text.empty() ? "" : ", ") + member;
    return Spoilt("{" + text + "}");
  }

  std::string OfALine() { return Spoilt(Object(25)); }

 private:
  std::string Key() {
    static const std::vector<std::string> keys{"PLM_ExternalID",
                                               "V_Name",
                                               "Code",
                                               "TimeType",
                                               "State",
                                               "Bitmask",
                                               "TTBPart",
                                               "IsDirty",
                                               "TotalTime",
                                               "Factor",
                                               "RowNum",
                                               "TotalCalc",
                                               "RuleIn",
                                               "TWTime",
                                               "Maß",
                                               "",
                                               "TimeAnalysis",
                                               "TTBTime",
                                               "AddDescription",
                                               "IsStandardTextFlag",
                                               "FrequencyString",
                                               "V_TotalTime",
                                               "TAATTRIBUTES",
                                               "Description",
                                               "FormulaParameter"};
    return "\"" + _Random.AnyOf(keys) + "\"";
  }

  std::string Value(int depth) {
    static const std::vector<std::string> examples{"0",
                                                   "-1",
                                                   "0.0",
                                                   "1.5",
                                                   "1e3",
                                                   R"("")",
                                                   R"("text")",
                                                   "true",
                                                   "false",
                                                   "null",
                                                   "-0.0",
                                                   "9223372036854775808",
                                                   R"("\u00e4\n")"};
    if (depth > 0 && _Random.OneIn(8)) return Object(2);
    if (depth > 0 && _Random.OneIn(8)) return Array(depth - 1);
    return _Random.AnyOf(examples);
  }

  std::string Member(int depth) { return Key() + " : " + Value(depth); }

  std::string Object(int most) {
    std::string text;
    for (int left = _Random.Below(most + 1); left > 0; --left) text += (text.empty() ? "" : ",\n") + Member(1);
    return "{" + text + "}";
  }

  std::string Array(int most) {
    std::string text;
    for (int left = _Random.Below(most + 1); left > 0; --left) text += (text.empty() ? "" : ",") + Value(1);
    return "[" + text + "]";
  }

  // Once in a while something is taken away or put in.
  std::string Spoilt(std::string text) {
    if (!_Random.OneIn(6)) return text;
    const auto place = static_cast<std::size_t>(_Random.Below(static_cast<int>(text.size())));
    static const std::vector<std::string> bytes{"", "\xFC", "}", ",", "\"", "0", " "};
    return text.replace(place, 1, _Random.AnyOf(bytes));
  }

  support::RandomText _Random;
};

TEST_F(JsonExportTest, RandomAnalysesByRandomTemplatesAreThoseOfThePlainExport) {
  const std::vector<KORBaseUnknown_var> reusable{MakeAnalysis("R"), KORBaseUnknown_var()};
  int with_attributes = 0;
  for (unsigned seed = 1; seed <= 600; ++seed) {
    RandomTemplates templates(seed);
    const std::string complete = templates.Complete();
    const std::string line = templates.OfALine();
    WriteTemplates(complete, line);
    RandomContent content(seed, {.present_in = 2});
    const auto analysis = MakeAnalysis("A");
    content.SetAttributes(*analysis);
    content.SetLines(*analysis, reusable);
    const auto expected = support::PlainDocument(complete, line, *analysis);
    with_attributes += expected["TAATTRIBUTES"].empty() ? 0 : 1;
    ASSERT_EQ(Exported(analysis), expected.dump()) << "seed " << seed << "\n" << complete << "\n" << line;
  }
  EXPECT_GT(with_attributes, 300);
}

}  // namespace
