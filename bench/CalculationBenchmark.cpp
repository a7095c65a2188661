// The calculation of whole analyses: plain lines by the size of the analysis, and formula lines whose formula is met
// for the first time and again.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "GoalTable.h"
#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace bench {
namespace {

using Analysis = KORHandle<VEXTimeAnalysisRepReference>;

Analysis NewAnalysis() {
  return Analysis::Adopt(new VEXTimeAnalysisRepReference("Bench"));
}

VEXTimeAnalysisLineData LineOf(const std::string& code) {
  VEXTimeAnalysisLineData line;
  (void)line.SetValue("Description", KORUnicodeString("Get a part from the box beside the bench"));
  (void)line.SetValue("Code", KORUnicodeString(std::string_view(code)));
  (void)line.SetValue("TimeType", KORUnicodeString("TTB"));
  (void)line.SetValue("Factor", 2.0);
  (void)line.SetValue("TTBTime", 0.36);
  (void)line.SetValue("TotalTime", 0.72);
  return line;
}

Analysis PlainAnalysis(int count) {
  Analysis analysis = NewAnalysis();
  for (int row = 1; row <= count; ++row) {
    VEXTimeAnalysisLineData line = LineOf("GB" + std::to_string(row));
    (void)analysis->SetLine(row, line);
  }
  return analysis;
}

void Calculate(const Analysis& analysis, double expected_tmu) {
  VEXSTMTimeAnalysisDlgServices services;
  if (services.CalculateAnalyzedTimeBG(analysis) != S_OK) RefuseToCompare("the calculation failed");
  double total = 0.0;
  (void)analysis->GetValue("TotalCalculated", total);
  if (std::abs(total - expected_tmu) > 1e-9 * expected_tmu) RefuseToCompare("the total is another");
}

void PlainLines(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const Analysis analysis = PlainAnalysis(count);
  for (auto _ : state) Calculate(analysis, 20.0 * count);
  state.counters["line"] =
      benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(PlainLines)->Name("plain")->Arg(10)->Arg(1'000)->Arg(1'000'000);

// A formula as a planner writes one, with a constant of its own: time by distance and number of pieces.
struct LineFormula {
  std::string Signature =
      "distance : Length, pieces : Integer, out Time : Time, out Frequency : Real, out Description : String";
  std::string Body;
};

LineFormula ShortFormula(int constant) {
  LineFormula formula;
  formula.Body =
      "local reach = 0.12 + 0.36 * distance\n"
      "if pieces > 4 then reach = reach * 1.15 end\n"
      "Time = reach * pieces + " +
      std::to_string(constant) + "\nFrequency = 2";
  return formula;
}

// The same result by classes of distance and number, a table such as a data card has.
LineFormula LongFormula(int constant) {
  LineFormula formula = ShortFormula(constant);
  std::string classes;
  for (int step = 9; step >= 1; --step) {
    classes += "if distance > 0." + std::to_string(step) + "5 and pieces > " + std::to_string(4 * step) +
               " then reach = reach * 1.0" + std::to_string(step) + " + 0.00" + std::to_string(step) + " end\n";
  }
  formula.Body.insert(formula.Body.find("if pieces"), classes);
  return formula;
}

void AddFormula(const LineFormula& formula, VEXTimeAnalysisLineData& line) {
  struct Value {
    const char* Name;
    const char* Type;
    const char* Text;
  };
  KORRawCollPV parameters;
  for (const Value& value :
       {Value{"distance", "Length", "0.4"}, Value{"pieces", "Integer", "3"}, Value{"Time", "Time", "0"},
        Value{"Frequency", "Real", "1"}, Value{"Description", "String", ""}}) {
    auto parameter = std::make_unique<VEXTimeAnalysisFormulaParameter>();
    parameter->_ParameterName = value.Name;
    parameter->_ValueType = value.Type;
    parameter->_ValueText = value.Text;
    parameter->_Signature = KORUnicodeString(std::string_view(formula.Signature));
    parameter->_Body = KORUnicodeString(std::string_view(formula.Body));
    parameter->_OwnerPLMId = "Bench";
    parameter->_OwnerRow = "1";
    parameters.Append(parameter.release());
  }
  (void)line.SetValue(KORFormulaParameterKey, parameters);
}

constexpr int FormulaLineCount = 500;
constexpr double FormulaLineTmu = 2 * (0.12 + 0.36 * 0.4) * 3 / 0.036;  // without its constant

// An analysis whose lines have the formulas of the constants first, first + step, ...
Analysis FormulaAnalysis(LineFormula (*formula_of)(int), int first, int step) {
  Analysis analysis = NewAnalysis();
  for (int row = 1; row <= FormulaLineCount; ++row) {
    VEXTimeAnalysisLineData line = LineOf("F");
    AddFormula(formula_of(first + (row - 1) * step), line);
    (void)analysis->SetLine(row, line);
  }
  return analysis;
}

void CountLines(benchmark::State& state) {
  state.counters["line"] =
      benchmark::Counter(FormulaLineCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void KnownFormula(benchmark::State& state, LineFormula (*formula_of)(int)) {
  const Analysis analysis = FormulaAnalysis(formula_of, 0, 0);
  for (auto _ : state) Calculate(analysis, FormulaLineCount * FormulaLineTmu);
  CountLines(state);
}

void NewFormula(benchmark::State& state, LineFormula (*formula_of)(int)) {
  static int next = 1;  // no constant is used twice
  for (auto _ : state) {
    state.PauseTiming();
    const Analysis analysis = FormulaAnalysis(formula_of, next, 1);
    const double constants = FormulaLineCount * (next + (FormulaLineCount - 1) / 2.0);
    next += FormulaLineCount;
    state.ResumeTiming();
    Calculate(analysis, FormulaLineCount * FormulaLineTmu + constants * 2 / 0.036);
  }
  CountLines(state);
}
BENCHMARK_CAPTURE(KnownFormula, short, ShortFormula)->Name("short/again");
BENCHMARK_CAPTURE(NewFormula, short, ShortFormula)->Name("short/first");
BENCHMARK_CAPTURE(KnownFormula, long, LongFormula)->Name("long/again");
BENCHMARK_CAPTURE(NewFormula, long, LongFormula)->Name("long/first");

const std::vector<Goal> Goals{
    {"a plain line, in nanoseconds (1 million lines a second)", "plain/1000:line", "", Goal::Bound::AtMost, 1000.0,
     1e9},
    {"a plain line of 1,000,000 / of 10", "plain/1000000:line", "plain/10:line", Goal::Bound::AtMost, 1.5},
    {"a line with a formula of 4 statements, again / for the first time", "short/again:line", "short/first:line",
     Goal::Bound::AtMost, 0.1},
    {"a line with a formula of 13 statements, again / for the first time", "long/again:line", "long/first:line",
     Goal::Bound::AtMost, 0.1},
    {"a formula line again, in nanoseconds (100,000 lines a second)", "short/again:line", "", Goal::Bound::AtMost,
     10'000.0, 1e9},
};

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  return bench::RunWithGoals(count, arguments, bench::Goals);
}
