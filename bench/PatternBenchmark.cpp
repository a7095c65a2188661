// The match of a code against a pattern given as text each time, against PCRE2 with expressions compiled beforehand.
#define PCRE2_CODE_UNIT_WIDTH 8
#include <benchmark/benchmark.h>
#include <pcre2.h>

#include <memory>
#include <string>
#include <vector>

#include "GeneratedCatalogue.h"
#include "GoalTable.h"

namespace bench {
namespace {

/// An expression compiled for the machine, with room for its match.
class JitExpression {
 public:
  explicit JitExpression(const std::string& expression) {
    int error = 0;
    PCRE2_SIZE offset = 0;
    _Code.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression.data()), expression.size(),
                              PCRE2_ANCHORED | PCRE2_ENDANCHORED, &error, &offset, nullptr));
    if (_Code == nullptr || pcre2_jit_compile(_Code.get(), PCRE2_JIT_COMPLETE) != 0) {
      RefuseToCompare("no machine code for " + expression);
    }
    _Match.reset(pcre2_match_data_create_from_pattern(_Code.get(), nullptr));
  }

  bool Matches(const std::string& code) const {
    return pcre2_jit_match(_Code.get(), reinterpret_cast<PCRE2_SPTR>(code.data()), code.size(), 0, 0, _Match.get(),
                           nullptr) > 0;
  }

 private:
  struct Free {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
    void operator()(pcre2_match_data* match) const { pcre2_match_data_free(match); }
  };
  std::unique_ptr<pcre2_code, Free> _Code;
  std::unique_ptr<pcre2_match_data, Free> _Match;
};

/// One pattern and one code, in the types of either side.
struct Pair {
  KORUnicodeString Code;
  KORUnicodeString Pattern;
  std::string Bytes;
  JitExpression Expression;
};

std::vector<Pair> MatchingPairs(std::size_t count) {
  std::vector<Pair> pairs;
  for (const GeneratedEntry& entry : GenerateEntries(2 * count)) {
    if (entry.Pattern.empty()) continue;
    pairs.push_back({KORUnicodeString(std::string_view(entry.Example)),
                     KORUnicodeString(std::string_view(entry.Pattern)), entry.Example,
                     JitExpression(entry.Expression)});
  }
  return pairs;
}

/// All patterns against the code of one of them.
std::vector<Pair> PairsWithOneCode(std::size_t count) {
  std::vector<Pair> pairs = MatchingPairs(count);
  const std::string code = pairs[count / 2].Bytes;
  for (Pair& pair : pairs) {
    pair.Bytes = code;
    pair.Code = KORUnicodeString(std::string_view(code));
  }
  return pairs;
}

/// A pattern of a motion with alternatives, an option and two numbers.
std::vector<Pair> OneLongPair() {
  std::vector<Pair> pairs;
  pairs.push_back({"AR30B2.5M", R"p((|"m"|"A"|"")"R"%[1,80](|"A"|"B"|"C"|"D"|"E")$[1,9](|"M"|"N"|""))p", "AR30B2.5M",
                   JitExpression("(?:m|A)?R([1-9]|[1-7][0-9]|80)[A-E]([1-8](?:\\.[0-9]{0,4}[1-9])?|9)[MN]?")});
  return pairs;
}

struct Room {
  int Count = 0;
  double Values[64] = {};
  int Flags[64] = {};
};

bool Check(VEXSTMTimeAnalysisDlgServices& services, const Pair& pair, Room& room) {
  return services.CheckDataCardCodePattern(pair.Code, pair.Pattern, room.Count, room.Values, room.Flags) == 1;
}

void CompareSides(const std::vector<Pair>& pairs) {
  VEXSTMTimeAnalysisDlgServices services;
  Room room;
  std::size_t matches = 0;
  for (const Pair& pair : pairs) {
    const bool matched = Check(services, pair, room);
    matches += matched ? 1 : 0;
    if (matched != pair.Expression.Matches(pair.Bytes)) {
      RefuseToCompare(pair.Bytes + " against " + pair.Pattern.ConvertToChar());
    }
  }
  if (matches == 0) RefuseToCompare("nothing matches");
}

void CheckInTurn(benchmark::State& state, const std::vector<Pair>& pairs) {
  VEXSTMTimeAnalysisDlgServices services;
  Room room;
  for (const Pair& pair : pairs) Check(services, pair, room);  // the first call compiles
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Check(services, pairs[next], room));
    next = next + 1 == pairs.size() ? 0 : next + 1;
  }
}

void MatchInTurn(benchmark::State& state, const std::vector<Pair>& pairs) {
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(pairs[next].Expression.Matches(pairs[next].Bytes));
    next = next + 1 == pairs.size() ? 0 : next + 1;
  }
}

struct Series {
  const char* Name;
  const char* Text;
  std::vector<Pair> Pairs;
};

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  std::vector<bench::Series> all;
  all.push_back({"one_pattern", "one pattern, its code", bench::MatchingPairs(1)});
  all.push_back({"one_long_pattern", "one pattern of 31 tokens, its code", bench::OneLongPair()});
  all.push_back({"matching_100", "100 patterns in turn, each with its code", bench::MatchingPairs(100)});
  all.push_back({"matching_5000", "5,000 patterns in turn, each with its code", bench::MatchingPairs(5000)});
  all.push_back({"one_code_5000", "5,000 patterns in turn, all with one code", bench::PairsWithOneCode(5000)});
  std::vector<bench::Goal> goals;
  for (const bench::Series& series : all) {
    bench::CompareSides(series.Pairs);
    const std::string ours = std::string("check_") + series.Name;
    const std::string peer = std::string("pcre2_jit_") + series.Name;
    benchmark::RegisterBenchmark(ours.c_str(),
                                 [&series](benchmark::State& state) { bench::CheckInTurn(state, series.Pairs); });
    benchmark::RegisterBenchmark(peer.c_str(),
                                 [&series](benchmark::State& state) { bench::MatchInTurn(state, series.Pairs); });
    goals.push_back({std::string("check / PCRE2 JIT: ") + series.Text, ours, peer, bench::Goal::Bound::AtMost, 1.0});
  }
  return bench::RunWithGoals(count, arguments, goals);
}
