// The evaluation of formulas, against a bare recursive descent and against a general parser of expressions.
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "BareFormula.h"
#include "GoalTable.h"
#include "formula/FormulaEvaluator.h"

namespace bench {
namespace {

constexpr std::size_t FormulaCount = 1000;
constexpr std::size_t UsedFunctions = 20;

/// Draws formulas such as catalogues hold: arithmetic on numbers with a call in most of them.
class FormulaDraw {
 public:
  std::string Draw() {
    std::string text = Term(1);
    while (text.size() < 20) text += (Below(2) == 0 ? "+" : "-") + Term(1);
    return text;
  }

 private:
  struct Signature {
    const char* Name;
    std::vector<int> Bounds;  // of the arguments
  };

  int Below(int bound) { return static_cast<int>(_Random() % static_cast<unsigned>(bound)); }

  std::string Number() {
    std::string text = std::to_string(Below(90) + 1);
    if (Below(2) == 0) text += "." + std::to_string(Below(100));
    return text;
  }

  std::string Term(int depth) {
    std::string text = Factor(depth);
    for (int more = Below(3); more > 1; --more) text += (Below(3) == 0 ? "/" : "*") + Factor(depth);
    return text;
  }

  std::string Factor(int depth) {
    const int kind = depth > 0 ? Below(5) : 0;
    if (kind < 2) return Number();
    if (kind == 2) return "(" + Term(depth - 1) + "+" + Term(depth - 1) + ")";
    return kind == 3 ? Call() : Arithmetic(depth);
  }

  std::string Arithmetic(int depth) {
    static const std::array names{"sin", "cos", "exp", "sqrt", "abs"};
    return std::string(names[static_cast<std::size_t>(Below(5))]) + "(" + Term(depth - 1) + ")";
  }

  std::string Call() {
    static const std::vector<Signature> signatures{
        {"MTM1REACH", {2, 80, 4, 2, 2}}, {"MTM1MOVE", {2, 80, 3, 2, 2}}, {"MTM1DYNAMICFACTOR", {20, 2}},
        {"MTM1STATICCONSTANT", {20, 2}}, {"MTM1TURN", {180, 3, 2}},      {"MTM1SIDESTEP", {60, 2, 2}},
        {"MTM1LEGMOTION", {60, 2}},      {"MOST", {900000, 900000}},     {"pow", {9, 3}}};
    const Signature& signature = signatures[static_cast<std::size_t>(Below(static_cast<int>(signatures.size())))];
    std::string text = signature.Name;
    for (std::size_t n = 0; n < signature.Bounds.size(); ++n) {
      text += (n == 0 ? "(" : ",") + std::to_string(Below(signature.Bounds[n]));
    }
    return text + ")";
  }

  std::mt19937 _Random{20260};
};

/// The functions of the table as callbacks, one for each slot.
template <std::size_t slot>
double CallSlot(const double* values, int count) {
  FormulaArguments arguments{};
  std::copy_n(values, std::min<std::size_t>(static_cast<std::size_t>(count), arguments.size()), arguments.begin());
  return FormulaFunctions()[slot].Function(arguments);
}

std::string Narrow(const wchar_t* text) {
  const std::wstring wide(text);
  std::string narrow;
  for (const wchar_t character : wide) narrow += static_cast<char>(character);
  return narrow;
}

template <std::size_t... slots>
void DefineFunctions(mu::Parser& parser, std::index_sequence<slots...> /*all*/) {
  (parser.DefineFun(Narrow(FormulaFunctions()[slots].Name), CallSlot<slots>), ...);
}

mu::Parser MakeParser() {
  mu::Parser parser;
  parser.ClearFun();
  DefineFunctions(parser, std::make_index_sequence<UsedFunctions>());
  return parser;
}

struct Formulas {
  std::vector<std::wstring> Wide;
  std::vector<std::string> Bytes;
};

/// Draws the formulas and makes sure that the three sides agree on each.
Formulas MakeFormulas() {
  Formulas formulas;
  FormulaDraw draw;
  mu::Parser parser = MakeParser();
  std::size_t characters = 0;
  while (formulas.Wide.size() < FormulaCount) {
    const std::string bytes = draw.Draw();
    const std::wstring wide(bytes.begin(), bytes.end());
    int status = 0;
    const double value = EvaluateFormula(wide.c_str(), status);
    if (status != 0 || !std::isfinite(value)) continue;  // a division by zero, or an overflow
    bool good = false;
    parser.SetExpr(bytes);
    const double tolerance = 1e-12 * std::max(1.0, std::fabs(value));
    if (EvaluateBareFormula(wide.c_str(), good) != value || !good) RefuseToCompare("bare descent on " + bytes);
    if (!(std::fabs(parser.Eval() - value) <= tolerance)) RefuseToCompare("muParser on " + bytes);
    characters += bytes.size();
    formulas.Wide.push_back(wide);
    formulas.Bytes.push_back(bytes);
  }
  std::printf("%zu formulas of %.1f characters on average, such as %s\n", FormulaCount,
              static_cast<double>(characters) / static_cast<double>(FormulaCount), formulas.Bytes.front().c_str());
  return formulas;
}

void CountFormulas(benchmark::State& state) {
  state.counters["per_formula"] = benchmark::Counter(
      static_cast<double>(FormulaCount), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void EvaluateAll(benchmark::State& state, const Formulas& formulas) {
  for (auto _ : state) {
    for (const std::wstring& formula : formulas.Wide) {
      int status = 0;
      benchmark::DoNotOptimize(EvaluateFormula(formula.c_str(), status));
    }
  }
  CountFormulas(state);
}

void EvaluateAllBare(benchmark::State& state, const Formulas& formulas) {
  for (auto _ : state) {
    for (const std::wstring& formula : formulas.Wide) {
      bool good = false;
      benchmark::DoNotOptimize(EvaluateBareFormula(formula.c_str(), good));
    }
  }
  CountFormulas(state);
}

void EvaluateAllByMuParser(benchmark::State& state, const Formulas& formulas, bool optimized) {
  mu::Parser parser = MakeParser();
  parser.EnableOptimizer(optimized);
  for (auto _ : state) {
    for (const std::string& formula : formulas.Bytes) {
      parser.SetExpr(formula);
      benchmark::DoNotOptimize(parser.Eval());
    }
  }
  CountFormulas(state);
}

/// "abs(abs(...1...))", filled up to `length` characters.
std::wstring NestedCalls(std::size_t length) {
  const std::size_t depth = (length - 1) / 5;
  std::wstring text;
  for (std::size_t n = 0; n < depth; ++n) text += L"abs(";
  text.append(length - 5 * depth, L'1');
  return text.append(depth, L')');
}

void EvaluateNested(benchmark::State& state) {
  const std::wstring formula = NestedCalls(static_cast<std::size_t>(state.range(0)));
  int status = -9;
  EvaluateFormula(formula.c_str(), status);
  if (status != 0) state.SkipWithError("the nested calls fail");
  for (auto _ : state) benchmark::DoNotOptimize(EvaluateFormula(formula.c_str(), status));
}

std::vector<Goal> Goals() {
  return {
      {"evaluation / bare recursive descent", "evaluation", "bare_descent", Goal::Bound::AtMost, 1.5},
      {"muParser, parser reused / evaluation", "muparser", "evaluation", Goal::Bound::AtLeast, 50.0},
      {"muParser without optimizer, parser reused / evaluation", "muparser_plain", "evaluation", Goal::Bound::AtLeast,
       50.0},
      {"255 characters of nested calls, in microseconds", "nested_calls/255", "", Goal::Bound::AtMost, 100.0, 1e-3},
      // A cost that grows with the square would give 256; the bound leaves room for memory beyond the caches.
      {"a character of 1,048,576 nested ones / of 4,096", "nested_calls/1048576", "nested_calls/4096",
       Goal::Bound::AtMost, 4.0, 4096.0 / 1048576.0},
  };
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  const bench::Formulas formulas = bench::MakeFormulas();
  benchmark::RegisterBenchmark("evaluation", bench::EvaluateAll, formulas);
  benchmark::RegisterBenchmark("bare_descent", bench::EvaluateAllBare, formulas);
  benchmark::RegisterBenchmark("muparser", bench::EvaluateAllByMuParser, formulas, true);
  benchmark::RegisterBenchmark("muparser_plain", bench::EvaluateAllByMuParser, formulas, false);
  benchmark::RegisterBenchmark("nested_calls", bench::EvaluateNested)
      ->Arg(255)
      ->RangeMultiplier(16)
      ->Range(4096, 1 << 20);
  return bench::RunWithGoals(count, arguments, bench::Goals());
}
