// The revision status of the analyses of many operations: what the one operation takes beyond the one query that it
// makes, by the number of operations and of lines.
//
// The query is timed by itself, for the same analyses, right behind each run; what the operation takes beyond it is the
// difference of the two.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <ctime>
#include <vector>

#include "GoalTable.h"
#include "VEXSTTProvider.h"
#include "platform/model/KORModel.h"
#include "platform/services/KORAdpVersioning.h"
#include "platform/system/KORSession.h"

namespace bench {
namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

// Processor time of this thread in seconds, on which what else the machine does tells least.
double ProcessorSeconds() {
  timespec now{};
  (void)clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// How many analyses are reused by the others.
constexpr int ReusedCount = 100;

struct Size {
  int Occurrences;
  int Lines;  // on each analysis; the first of them reuses an analysis, the others are plain
};

// Fills in the identificators of analyses.
KORListPtrKORIAdpPLMIdentificator IdentificatorsOf(const std::vector<Analysis_var>& analyses,
                                                   std::vector<KORIAdpPLMIdentificator_var>& held) {
  KORListPtrKORIAdpPLMIdentificator identificators;
  for (const Analysis_var& analysis : analyses) {
    KORIAdpPLMIdentificator* identificator = nullptr;
    (void)analysis->GetPLMIdentificator(identificator);
    identificators.Append(identificator);
    held.push_back(KORIAdpPLMIdentificator_var::Adopt(identificator));
  }
  return identificators;
}

// Operations with an analysis each, every third of them an older revision, as are half of those that are reused.
class Scene {
 public:
  explicit Scene(Size size) : _Size(size) {
    for (int number = 0; number < ReusedCount; ++number) _Reused.push_back(NewAnalysis(number % 2 == 0));
    for (int number = 0; number < size.Occurrences; ++number) AddOperation(number);
  }

  /// Makes the identificators, which the first query does otherwise.
  void Warm() { (void)QuerySeconds(); }

  double BatchSeconds() {
    KORListValKORBaseUnknown_var instances;
    KORRawCollint statuses;
    const double start = ProcessorSeconds();
    const long result = VEXSTTProvider::GetAllTARepInstancesFromOpeOccWithRevStatus(_Occurrences, instances, statuses);
    const double taken = ProcessorSeconds() - start;
    Check(result, statuses);
    return taken;
  }

  double QuerySeconds() {
    std::vector<KORIAdpPLMIdentificator_var> held;
    const KORListPtrKORIAdpPLMIdentificator identificators =
        IdentificatorsOf(KORModel::Current().GetTimeAnalyses(), held);
    KORListValKORAdpVersioningInfo infos;
    const double start = ProcessorSeconds();
    (void)KORAdpProtectedVersioningServices::GetVersioningInfo(identificators, 1, 1, infos, nullptr);
    const double taken = ProcessorSeconds() - start;
    if (infos.Size() != identificators.Size()) RefuseToCompare("the database does not know all analyses");
    return taken;
  }

 private:
  static Analysis_var NewAnalysis(bool is_last) {
    Analysis_var analysis = KORModel::Current().CreateTimeAnalysis("TA");
    analysis->GetContent().IsLastMajorRevision = is_last;
    return analysis;
  }

  void AddOperation(int number) {
    const Analysis_var analysis = NewAnalysis(number % 3 != 0);
    for (int row = 1; row <= _Size.Lines; ++row) {
      VEXTimeAnalysisLineData line;
      (void)line.SetValue("Code", KORUnicodeString("G1A"));
      if (row == 1) {
        const auto index = static_cast<std::size_t>(number % ReusedCount);
        (void)line.SetValue("TimeAnalysis", KORBaseUnknown_var(_Reused[index]));
      }
      (void)analysis->SetLine(row, line);
    }
    const auto operation = KORModel::Current().CreateOperation("Operation");
    PLMIRepInstance* instance = nullptr;
    (void)operation->AddRepInstance(nullptr, PLMIRepReference_var(analysis).Get(), instance, 0);
    instance->Release();
    _Occurrences.Append(KORModel::Current().CreateOccurrence(operation));
  }

  // Of the analyses that are last revisions, those at odd positions reuse an older one if they have lines.
  void Check(long result, const KORRawCollint& statuses) const {
    if (result != S_OK || statuses.Size() != _Size.Occurrences) RefuseToCompare("the statuses are not worked out");
    for (int number = 0; number < _Size.Occurrences; ++number) {
      const int reusing =
          _Size.Lines > 0 && number % 2 != 0 ? VEXSTTProvider::TARevReusedNotLatest : VEXSTTProvider::TARevLatest;
      const int expected = number % 3 != 0 ? reusing : VEXSTTProvider::TARevNotLatest;
      if (statuses[number + 1] != expected) RefuseToCompare("a status is wrong");
    }
  }

  Size _Size;
  std::vector<Analysis_var> _Reused;
  KORListValKORBaseUnknown_var _Occurrences;
};

// Milliseconds of the operation, of the query in it, and of what is left, as means over the runs.
class Times {
 public:
  void Add(Scene& scene) {
    _Batch += scene.BatchSeconds();
    _Query += scene.QuerySeconds();
    ++_Runs;
  }

  void Tell(benchmark::State& state) const {
    const double milliseconds = 1e3 / _Runs;
    state.counters["batch_ms"] = _Batch * milliseconds;
    state.counters["query_ms"] = _Query * milliseconds;
    state.counters["beyond_ms"] = (_Batch - _Query) * milliseconds;
  }

 private:
  double _Batch = 0.0;
  double _Query = 0.0;
  int _Runs = 0;
};

// Asked again and again, as a screen does that is drawn anew.
void AskAgain(benchmark::State& state, Size size) {
  const KORFreshSession session;
  Scene scene(size);
  scene.Warm();
  Times times;
  for (auto _ : state) times.Add(scene);
  times.Tell(state);
}

// Asked for the first time: the analyses have no identificators yet.
void AskFirst(benchmark::State& state, Size size) {
  Times times;
  for (auto _ : state) {
    const KORFreshSession session;
    Scene scene(size);
    times.Add(scene);
  }
  times.Tell(state);
}

void Register() {
  benchmark::RegisterBenchmark("again/1000", AskAgain, Size{1'000, 1});
  benchmark::RegisterBenchmark("again/10000", AskAgain, Size{10'000, 1});
  benchmark::RegisterBenchmark("no_lines/10000", AskAgain, Size{10'000, 0});
  benchmark::RegisterBenchmark("30_lines/10000", AskAgain, Size{10'000, 30});
  benchmark::RegisterBenchmark("first/10000", AskFirst, Size{10'000, 1});
}

const std::vector<Goal> Goals{
    {"10,000 operations, analyses without lines: ms beyond the query", "no_lines/10000:beyond_ms", "",
     Goal::Bound::AtMost, 5.0},
    {"10,000 operations, one line each that reuses: ms beyond the query", "again/10000:beyond_ms", "",
     Goal::Bound::AtMost, 5.0},
    {"10,000 operations, asked for the first time: ms beyond the query", "first/10000:beyond_ms", "",
     Goal::Bound::AtMost, 5.0},
    {"10,000 operations, 30 lines each: ms beyond the query", "30_lines/10000:beyond_ms", "", Goal::Bound::AtMost, 5.0},
    {"an operation of 10,000 / of 1,000", "again/10000:beyond_ms", "again/1000:beyond_ms", Goal::Bound::AtMost, 1.5,
     0.1},
};

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  bench::Register();
  return bench::RunWithGoals(count, arguments, bench::Goals);
}
