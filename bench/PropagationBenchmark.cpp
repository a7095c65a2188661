// A change carried to all analyses above it, by the number of analyses and by the shape of what they reuse, and the
// table of who reuses what.
#include <benchmark/benchmark.h>

#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "GoalTable.h"
#include "VEXSTTApplicativeContainerServices.h"
#include "objects/ReuseIndex.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace bench {
namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

constexpr int LinesOfAnalysis = 30;
constexpr double SecondsOfLine = 0.72;  // 20 TMU

void AppendLine(VEXTimeAnalysisRepReference& analysis, int row, const KORBaseUnknown_var& reused) {
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", KORUnicodeString("R10A"));
  line.SetValue("TimeType", KORUnicodeString("TTB"));
  line.SetValue("Factor", 1.0);
  line.SetValue("TTBTime", SecondsOfLine);
  line.SetValue("TotalTime", SecondsOfLine);
  if (!reused.IsNull()) line.SetValue("TimeAnalysis", reused);
  (void)analysis.SetLine(row, line);
}

// A session with analyses that reuse each other, all above the first one.
class World {
 public:
  /// The analyses that the one of that index, from 1, reuses: indices below it. Index 0 is the changed analysis.
  using Shape = std::vector<int> (*)(int index);

  World(int analyses, Shape shape) {
    const KORSession::Scope inside(_Session);
    for (int index = 0; index <= analyses; ++index) Add(index, index == 0 ? std::vector<int>() : shape(index));
  }

  KORSession& Session() { return _Session; }
  const std::vector<Analysis_var>& Analyses() const { return _Analyses; }
  int LineCount() const { return (static_cast<int>(_Analyses.size()) - 1) * LinesOfAnalysis; }

 private:
  void Add(int index, const std::vector<int>& reused) {
    const std::string identifier = "TA " + std::to_string(index);
    const Analysis_var analysis =
        KORModel::Current().CreateTimeAnalysis(KORUnicodeString(std::string_view(identifier)));
    (void)analysis->SetValue("TotalCalculated", 100.0);
    for (std::size_t row = 1; row <= LinesOfAnalysis; ++row) {
      const KORBaseUnknown_var of_row =
          row <= reused.size() ? KORBaseUnknown_var(_Analyses[static_cast<std::size_t>(reused[row - 1])]) : NULL_var;
      AppendLine(*analysis, static_cast<int>(row), of_row);
    }
    _Analyses.push_back(analysis);
  }

  KORSession _Session;
  std::vector<Analysis_var> _Analyses;
};

// Ten analyses reuse each one.
std::vector<int> Tree(int index) {
  return {(index - 1) / 10};
}

// Levels of two, each of which reuses both of the level below; the lowest two reuse the changed one.
std::vector<int> Ladder(int index) {
  const int level = (index - 1) / 2;
  return level == 0 ? std::vector<int>{0} : std::vector<int>{2 * level - 1, 2 * level};
}

// Made once for each shape and size.
World& WorldOf(World::Shape shape, int analyses) {
  static std::map<std::pair<World::Shape, int>, std::unique_ptr<World>> worlds;
  std::unique_ptr<World>& world = worlds[{shape, analyses}];
  if (world == nullptr) world = std::make_unique<World>(analyses, shape);
  return *world;
}

void CountLines(benchmark::State& state, int lines) {
  state.counters["lines_per_second"] = benchmark::Counter(lines, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["line"] =
      benchmark::Counter(lines, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void CheckTotal(VEXTimeAnalysisRepReference& analysis) {
  double total = 0.0;
  (void)analysis.GetValue("TotalCalculated", total);
  if (std::isnan(total) || total <= 100.0) RefuseToCompare("the change did not reach the last analysis");
}

void Propagate(benchmark::State& state, World::Shape shape, int analyses) {
  World& world = WorldOf(shape, analyses);
  const KORSession::Scope inside(world.Session());
  for (auto _ : state) {
    KOROmbLifeCycleRootsBag bag;
    KORListValKORBaseUnknown_var unused, all;
    const long status = VEXSTTApplicativeContainerServices::UpdateModificationsTOAllImpactedTimeAnalysis(
        KORBaseUnknown_var(world.Analyses().front()), bag, unused, all);
    if (status != S_OK) RefuseToCompare("the propagation fails");
  }
  CheckTotal(*world.Analyses().back());
  CountLines(state, world.LineCount());
}

void EnterIndex(benchmark::State& state, World::Shape shape, int analyses) {
  World& world = WorldOf(shape, analyses);
  KORListValKORBaseUnknown_var all;
  for (const Analysis_var& analysis : world.Analyses()) all.Append(analysis);
  for (auto _ : state) {
    objects::ReuseIndex index;
    if (index.Enter(all, S_OK) != S_OK) RefuseToCompare("the table is not made");
  }
  CountLines(state, world.LineCount());
}

void Register() {
  benchmark::RegisterBenchmark("tree/1000", Propagate, Tree, 1'000);
  benchmark::RegisterBenchmark("tree/10000", Propagate, Tree, 10'000);
  benchmark::RegisterBenchmark("ladder/1000", Propagate, Ladder, 1'000);
  benchmark::RegisterBenchmark("ladder/10000", Propagate, Ladder, 10'000);
  benchmark::RegisterBenchmark("index/10000", EnterIndex, Tree, 10'000);
}

const std::vector<Goal> Goals{
    {"lines above a template in a tree, thousands a second", "tree/10000:lines_per_second", "", Goal::Bound::AtLeast,
     300.0, 1e-3},
    {"lines above a template on a ladder, thousands a second", "ladder/10000:lines_per_second", "",
     Goal::Bound::AtLeast, 300.0, 1e-3},
    {"a line of 10,000 analyses in a tree / of 1,000", "tree/10000:line", "tree/1000:line", Goal::Bound::AtMost, 1.5},
    {"a line of 10,000 analyses on a ladder / of 1,000", "ladder/10000:line", "ladder/1000:line", Goal::Bound::AtMost,
     1.5},
    {"lines entered into the table of reuses, millions a second", "index/10000:lines_per_second", "",
     Goal::Bound::AtLeast, 2.0, 1e-6},
};

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  bench::Register();
  return bench::RunWithGoals(count, arguments, bench::Goals);
}
