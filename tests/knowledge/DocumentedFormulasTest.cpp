// The examples of docs/formulas-on-lines.md: each gives what the page says.
//
// An example is a block of code called "formula", with lines that begin with "signature", "body", "values" and "gives";
// a line that begins with blanks goes on with the one above it.
#include <fstream>
#include <map>
#include <sstream>

#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

using Example = std::map<std::string, std::string>;  // texts by the word that a line begins with

constexpr std::size_t TextColumn = 11;

std::vector<Example> ReadExamples() {
  std::ifstream page(TEST_SOURCE_DIR "/../docs/formulas-on-lines.md");
  std::vector<Example> examples;
  bool inside = false;
  std::string word;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      inside = line == "```formula";
      if (inside) examples.emplace_back();
    } else if (inside) {
      const bool goes_on = line.starts_with(' ');
      if (!goes_on) word = line.substr(0, line.find(' '));
      examples.back()[word] += (goes_on ? "\n" : "") + line.substr(std::min(TextColumn, line.size()));
    }
  }
  return examples;
}

// "a = 1, b = 2" as a table.
std::map<std::string, std::string> ReadValues(const std::string& text) {
  std::map<std::string, std::string> values;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find(", ", begin), text.size());
    const std::string pair = text.substr(begin, end - begin);
    const std::size_t sign = pair.find(" = ");
    values[pair.substr(0, sign)] = pair.substr(sign + 3);
    begin = end + 2;
  }
  return values;
}

std::string StartOf(const KORICkeArg_var& argument) {
  if (argument->GetTypeName() == KORUnicodeString("String")) return "";
  return argument->GetName() == KORUnicodeString("Frequency") ? "-1" : "0";
}

KORICkeParm_var ParameterOf(const KORICkeArg_var& argument, const std::string& value) {
  const std::string type = Text(argument->GetTypeName());
  if (type == "String") return Parameter(argument->GetName(), T(value.c_str()));
  return Parameter(argument->GetName(), {type, std::stod(value), ""});
}

// "Time = 1.5, Frequency = 2", or "invalid: " or "fails: " and why.
std::string ResultOf(const Example& example) {
  const KORICkeExpression_var expression = Expression(example.at("signature"), example.at("body"));
  if (expression->IsValid() != KORCke::True) return "invalid: " + Text(expression->GetProblem());
  const KORICkeEvaluator_var evaluator = expression;
  auto values = ReadValues(example.at("values"));
  std::vector<KORICkeParm_var> outputs;
  for (const KORICkeArg_var& argument : expression->GetSignature()->GetArguments()) {
    const auto [value, is_start] = values.try_emplace(Text(argument->GetName()), StartOf(argument));
    EXPECT_TRUE(!is_start || argument->GetMode() == KORCke::OutputMode) << "no value for " << value->first;
    const KORICkeParm_var parameter = ParameterOf(argument, value->second);
    evaluator->AddValue(parameter);
    if (argument->GetMode() == KORCke::OutputMode) outputs.push_back(parameter);
  }
  if (evaluator->Run(nullptr) != S_OK) return "fails: " + Text(evaluator->GetProblem());
  std::string results;
  for (const KORICkeParm_var& output : outputs) {
    results += (results.empty() ? "" : ", ") + Text(output->RoleName()) + " = " + Text(output->Value()->AsString());
  }
  return results;
}

TEST(DocumentedFormulasTest, GiveWhatThePageSays) {
  const std::vector<Example> examples = ReadExamples();
  EXPECT_GE(examples.size(), 14u);
  for (const Example& example : examples) {
    ASSERT_EQ(example.size(), 4u);
    EXPECT_EQ(ResultOf(example), example.at("gives")) << example.at("signature") << '\n' << example.at("body");
  }
}

TEST(DocumentedFormulasTest, PageTellsTheUnitOfEachMagnitude) {
  std::stringstream page;
  page << std::ifstream(TEST_SOURCE_DIR "/../docs/formulas-on-lines.md").rdbuf();
  for (const char* const name : {"Time", "Length", "Mass", "Angle"}) {
    const std::string text = page.str();
    const std::size_t row = text.find("\n| `" + std::string(name) + "` | ");
    ASSERT_NE(row, std::string::npos) << name;
    const std::string unit = std::string("(") + KORParmDictionary::FindMagnitude(name)->Unit + ')';
    EXPECT_NE(text.substr(row + 1, text.find('\n', row + 1) - row).find(unit), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace knowledgetest
