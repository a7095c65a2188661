// A small engine behind the plain calculation of formulas, for tests that need no real one. It knows a corner of the
// language that both engines understand:
//
//   signature  = [argument {"," argument}]
//   argument   = ["out"] name ":" type
//   type       = "Integer" | "Real" | "String" | "Time" | "Length" | "Mass" | "Angle" | "Number"
//   body       = [statement {";" statement}]
//   statement  = name "=" sum
//   sum        = product {"+" product}
//   product    = factor {"*" factor}
//   factor     = ["-"] number | text in double quotes | name | "nil"
//
// Names of arguments stand for their values, every other name for nothing. A run fails where nothing or a text is
// counted with, and where a value is missing.
#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "tests/oracle/CalculationOracle.h"

namespace support {

class ToyEngine : public oracle::Engine {
 public:
  std::optional<std::vector<oracle::FormulaArgument>> SignatureOf(const std::string& signature,
                                                                  const std::string& /*body*/) override {
    std::vector<oracle::FormulaArgument> arguments;
    Reader reader{signature};
    if (reader.AtEnd()) return arguments;
    do {
      oracle::FormulaArgument argument;
      argument.name = reader.Name();
      if (argument.name == "out") {
        argument.mode = 2;
        argument.name = reader.Name();
      }
      if (argument.name.empty() || !reader.Skip(':') || !IsType(reader.Name())) return std::nullopt;
      arguments.push_back(argument);
    } while (reader.Skip(','));
    if (!reader.AtEnd()) return std::nullopt;
    return arguments;
  }

  bool IsValid(const std::string& /*signature*/, const std::string& body) override {
    Variables none;
    return RunBody(body, none).read;
  }

  std::optional<std::vector<oracle::FormulaValue>> Run(const std::string& signature, const std::string& body,
                                                       const std::vector<oracle::FormulaValue>& values) override {
    ++_Runs;
    const auto arguments = SignatureOf(signature, body);
    if (!arguments || values.size() < arguments->size()) return std::nullopt;
    Variables variables;
    for (std::size_t i = 0; i < values.size(); ++i) variables[(*arguments)[i].name] = ContentOf(values[i]);
    if (!RunBody(body, variables).done) return std::nullopt;
    std::vector<oracle::FormulaValue> results = values;
    for (std::size_t i = 0; i < results.size(); ++i) Assign(results[i], variables[(*arguments)[i].name]);
    return results;
  }

  bool OffersEvaluator(const std::string& /*signature*/, const std::string& /*body*/) override {
    return _OffersEvaluator;
  }

  /// How many runs were asked for.
  int Runs() const { return _Runs; }

  /// From now on no expression can be run.
  void WithholdEvaluators() { _OffersEvaluator = false; }

 private:
  using Content = std::variant<std::monostate, double, std::string>;  // a monostate is nothing
  using Variables = std::map<std::string, Content>;

  // Takes a text apart from the left; blanks between the pieces don't matter.
  struct Reader {
    const std::string& text;
    std::size_t at = 0;

    bool AtEnd() {
      while (at < text.size() && text[at] == ' ') ++at;
      return at == text.size();
    }
    bool Skip(char character) {
      if (AtEnd() || text[at] != character) return false;
      ++at;
      return true;
    }
    bool AtNumber() { return !AtEnd() && (IsDigit(text[at]) || text[at] == '.'); }
    std::string Name() {
      std::string name;
      if (AtEnd() || IsDigit(text[at])) return name;
      while (at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_')) {
        name += text[at++];
      }
      return name;
    }
    double Number() {
      char* end = nullptr;
      const double number = std::strtod(text.c_str() + at, &end);
      at = static_cast<std::size_t>(end - text.c_str());
      return number;
    }
    static bool IsDigit(char character) { return character >= '0' && character <= '9'; }
  };

  // read: the body can be read to its end. done: nothing went wrong on the way either.
  struct Progress {
    bool read = true;
    bool done = true;
  };

  static bool IsType(std::string_view name) {
    constexpr std::array<std::string_view, 8> types = {"Integer", "Real", "String", "Time",
                                                       "Length",  "Mass", "Angle",  "Number"};
    return std::find(types.begin(), types.end(), name) != types.end();
  }

  static Content ContentOf(const oracle::FormulaValue& value) {
    if (const int* number = std::get_if<int>(&value.value)) return static_cast<double>(*number);
    if (const double* number = std::get_if<double>(&value.value)) return *number;
    return std::get<std::string>(value.value);
  }

  static void Assign(oracle::FormulaValue& value, const Content& content) {
    if (const double* number = std::get_if<double>(&content)) value.value = *number;
    if (const std::string* text = std::get_if<std::string>(&content)) value.value = *text;
  }

  static Progress RunBody(const std::string& body, Variables& variables) {
    Progress progress;
    Reader reader{body};
    while (progress.read && !reader.AtEnd()) {
      const std::string name = reader.Name();
      progress.read = !name.empty() && reader.Skip('=');
      if (!progress.read) break;
      const Content content = Sum(reader, variables, progress);
      if (progress.done) variables[name] = content;
      if (!reader.Skip(';') && !reader.AtEnd()) progress.read = false;
    }
    return progress;
  }

  static Content Sum(Reader& reader, const Variables& variables, Progress& progress) {
    Content sum = Product(reader, variables, progress);
    while (progress.read && reader.Skip('+')) {
      const Content summand = Product(reader, variables, progress);
      sum = Count(sum, summand, progress, [](double a, double b) { return a + b; });
    }
    return sum;
  }

  static Content Product(Reader& reader, const Variables& variables, Progress& progress) {
    Content product = Factor(reader, variables, progress);
    while (progress.read && reader.Skip('*')) {
      const Content factor = Factor(reader, variables, progress);
      product = Count(product, factor, progress, [](double a, double b) { return a * b; });
    }
    return product;
  }

  static Content Factor(Reader& reader, const Variables& variables, Progress& progress) {
    const double sign = reader.Skip('-') ? -1.0 : 1.0;
    if (reader.AtNumber()) return sign * reader.Number();
    if (reader.Skip('"')) {
      const std::size_t end = reader.text.find('"', reader.at);
      progress.read = end != std::string::npos;
      if (!progress.read) return {};
      const std::string text = reader.text.substr(reader.at, end - reader.at);
      reader.at = end + 1;
      return text;
    }
    const std::string name = reader.Name();
    progress.read = !name.empty() && sign > 0.0;
    const auto found = variables.find(name);
    return found == variables.end() ? Content() : found->second;
  }

  template <typename Operation>
  static Content Count(const Content& left, const Content& right, Progress& progress, Operation operation) {
    const double* a = std::get_if<double>(&left);
    const double* b = std::get_if<double>(&right);
    if (a != nullptr && b != nullptr) return operation(*a, *b);
    progress.done = false;
    return {};
  }

  bool _OffersEvaluator = true;
  int _Runs = 0;
};

}  // namespace support
