// Runs benchmarks and closes with a table of goals.
#include "GoalTable.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace bench {
namespace {

/// Prints as the console does, and keeps the medians.
class MedianReporter : public benchmark::ConsoleReporter {
 public:
  MedianReporter() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      _Failed = _Failed || run.error_occurred;
      if (!run.error_occurred && run.aggregate_name == "median") Take(run);
    }
    ConsoleReporter::ReportRuns(runs);
  }

  const Measurements& Medians() const { return _Medians; }
  bool Failed() const { return _Failed; }

 private:
  void Take(const Run& run) {
    const std::string name = run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
    _Medians.Record(name, run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9);
    for (const auto& [counter, figure] : run.counters) _Medians.Record(name + ":" + counter, figure.value);
  }

  Measurements _Medians;
  bool _Failed = false;
};

void PrintGoal(const Goal& goal, const Measurements& medians) {
  const bool measured = medians.Holds(goal.Numerator) && (goal.Denominator.empty() || medians.Holds(goal.Denominator));
  const char* bound = goal.Kind == Goal::Bound::AtMost ? "at most" : "at least";
  std::printf("%-72s  %8s %7.2f", goal.Text.c_str(), bound, goal.Limit);
  if (!measured) {
    std::printf("  %10s  not measured\n", "-");
    return;
  }
  const double base = goal.Denominator.empty() ? 1.0 : medians[goal.Denominator];
  const double ratio = goal.Scale * medians[goal.Numerator] / base;
  const bool met = goal.Kind == Goal::Bound::AtMost ? ratio <= goal.Limit : ratio >= goal.Limit;
  std::printf("  %10.2f  %s\n", ratio, met ? "met" : "MISSED");
}

}  // namespace

int RunWithGoals(int count, char** arguments, const std::vector<Goal>& goals) {
  // Defaults ahead of the caller's own arguments, of which the last one counts.
  std::vector<std::string> texts{arguments[0], "--benchmark_repetitions=9", "--benchmark_report_aggregates_only=true",
                                 "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.1"};
  texts.insert(texts.end(), arguments + 1, arguments + count);
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  int argument_count = static_cast<int>(texts.size());
  benchmark::Initialize(&argument_count, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(argument_count, pointers.data())) return 1;

  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::cout << std::flush;
  std::printf("\n%-72s  %16s  %10s\n", "goal", "bound", "measured");
  for (const Goal& goal : goals) PrintGoal(goal, reporter.Medians());
  std::fflush(stdout);
  return reporter.Failed() ? 1 : 0;
}

void RefuseToCompare(const std::string& cause) {
  std::cerr << "The sides differ: " << cause << '\n';
  std::exit(1);
}

}  // namespace bench
