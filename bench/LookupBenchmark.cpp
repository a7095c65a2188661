// The time of a typed code: a large catalogue against a small one, against the plain walk over every entry, and
// against a set of regular expressions that only tells which entries accept the code.
#include <benchmark/benchmark.h>
#include <re2/set.h>

#include <memory>
#include <string>
#include <vector>

#include "GeneratedCatalogue.h"
#include "GoalTable.h"
#include "tests/oracle/CodePatternOracle.h"

namespace bench {
namespace {

constexpr std::size_t SmallCount = 100;
constexpr std::size_t LargeCount = 10000;

struct Found {
  std::string Time;
  std::string CodeID;
};

Found LookUp(VEXSTMTimeAnalysisDlgServices& services, const std::string& typed) {
  KORUnicodeString code{std::string_view(typed)};
  KORUnicodeString time;
  KORUnicodeString description;
  KORUnicodeString time_type;
  KORUnicodeString frequency;
  services.GetTimeToCode(code, time, description, time_type, frequency);
  return {std::string(time.Bytes()), std::string(services.GetTACodeID().Bytes())};
}

/// The plain walk: each pattern compiled and matched anew.
Found WalkAll(VEXSTMTimeAnalysisDlgServices& services, const std::vector<oracle::Entry>& entries,
              const std::string& typed) {
  oracle::Lookup lookup;
  lookup.code = typed;
  const auto check = [](const std::string& code, const std::string& pattern, int& count, std::vector<double>& values,
                        std::vector<int>& flags) {
    return oracle::CheckPattern("STD", code, pattern, count, values, flags);
  };
  const auto time_of_formula = [&services](const std::string& formula) {
    int status = 0;
    return services.GetTimeFromFormula(KORUnicodeString(std::string_view(formula)), status);
  };
  oracle::GetTimeToCode(lookup, "STD", entries, true, check, time_of_formula);
  return {lookup.time, lookup.code_id};
}

std::unique_ptr<RE2::Set> CompileSet(const std::vector<GeneratedEntry>& entries) {
  RE2::Options options;
  options.set_encoding(RE2::Options::EncodingLatin1);
  options.set_never_capture(true);
  options.set_max_mem(std::int64_t{1} << 30);
  auto set = std::make_unique<RE2::Set>(options, RE2::ANCHOR_BOTH);
  for (const GeneratedEntry& entry : entries) {
    if (set->Add(entry.Expression, nullptr) < 0) RefuseToCompare("an expression is refused: " + entry.Expression);
  }
  if (!set->Compile()) RefuseToCompare("the set of expressions does not compile");
  return set;
}

/// Both catalogues, and the codes typed: one for each entry of the small one, so that both have the same ones to find.
struct Catalogues {
  std::vector<GeneratedEntry> Entries = GenerateEntries(LargeCount);
  std::vector<GeneratedEntry> SmallEntries = GenerateEntries(SmallCount);
  std::vector<oracle::Entry> Plain = PlainEntries(Entries);
  VEXSTMTimeAnalysisDlgServices Small = LoadEntries(SmallEntries);
  VEXSTMTimeAnalysisDlgServices Large = LoadEntries(Entries);
  std::unique_ptr<RE2::Set> Set = CompileSet(Entries);
};

/// Every side must find the entry that the example was drawn from, and the same time.
void CompareSides(Catalogues& catalogues) {
  for (std::size_t index = 0; index < SmallCount; ++index) {
    const GeneratedEntry& entry = catalogues.SmallEntries[index];
    const Found small = LookUp(catalogues.Small, entry.Example);
    const Found large = LookUp(catalogues.Large, entry.Example);
    const Found walked = WalkAll(catalogues.Large, catalogues.Plain, entry.Example);
    std::vector<int> matches;
    const bool matched = catalogues.Set->Match(entry.Example, &matches);
    if (large.CodeID != entry.CodeID || small.CodeID != entry.CodeID || large.Time != small.Time || large.Time == "0") {
      RefuseToCompare("lookup of " + entry.Example + " finds " + large.CodeID + ", time " + large.Time);
    }
    if (walked.CodeID != large.CodeID || walked.Time != large.Time) RefuseToCompare("walk of " + entry.Example);
    if (!matched || matches != std::vector<int>{static_cast<int>(index)}) RefuseToCompare("set on " + entry.Example);
  }
}

/// Blanks behind a code, which do not count: so many that the answer is not remembered and each lookup is a first one.
constexpr std::size_t ForgottenBlanks = 64;

void Lookup(benchmark::State& state, VEXSTMTimeAnalysisDlgServices& services,
            const std::vector<GeneratedEntry>& examples, std::size_t blanks) {
  std::vector<std::string> codes;
  for (const GeneratedEntry& entry : examples) codes.push_back(entry.Example + std::string(blanks, ' '));
  KORUnicodeString time;
  KORUnicodeString description;
  KORUnicodeString time_type;
  KORUnicodeString frequency;
  std::size_t next = 0;
  for (auto _ : state) {
    KORUnicodeString code{std::string_view(codes[next])};
    services.GetTimeToCode(code, time, description, time_type, frequency);
    benchmark::DoNotOptimize(time);
    next = next + 1 == examples.size() ? 0 : next + 1;
  }
}

void Walk(benchmark::State& state, Catalogues& catalogues) {
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(WalkAll(catalogues.Large, catalogues.Plain, catalogues.SmallEntries[next].Example));
    next = (next + 1) % SmallCount;
  }
}

void MatchSet(benchmark::State& state, const RE2::Set& set, const std::vector<GeneratedEntry>& examples) {
  std::vector<int> matches;
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(set.Match(examples[next].Example, &matches));
    next = next + 1 == examples.size() ? 0 : next + 1;
  }
}

std::vector<Goal> Goals() {
  return {
      {"first lookup in 10,000 entries / in 100 entries, same codes", "first_10000", "first_100", Goal::Bound::AtMost,
       2.0},
      {"lookup again in 10,000 entries / in 100 entries, same codes", "again_10000", "again_100", Goal::Bound::AtMost,
       2.0},
      {"plain walk over 10,000 entries / first lookup", "plain_walk_10000", "first_10000", Goal::Bound::AtLeast, 50.0},
      {"first lookup / RE2::Set over 10,000 entries, 100 codes in turn", "first_10000", "re2_set_10000",
       Goal::Bound::AtMost, 1.0},
      {"first lookup / RE2::Set over 10,000 entries, 10,000 codes in turn", "first_10000_all", "re2_set_10000_all",
       Goal::Bound::AtMost, 1.0},
      {"lookup again / RE2::Set over 10,000 entries, 100 codes in turn", "again_10000", "re2_set_10000",
       Goal::Bound::AtMost, 1.0},
      {"lookup again / RE2::Set over 10,000 entries, 10,000 codes in turn", "again_10000_all", "re2_set_10000_all",
       Goal::Bound::AtMost, 1.0},
  };
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  bench::Catalogues catalogues;
  bench::CompareSides(catalogues);
  const auto look_up = [](auto& services, const auto& examples, std::size_t blanks) {
    return
        [&services, &examples, blanks](benchmark::State& state) { bench::Lookup(state, services, examples, blanks); };
  };
  for (const std::size_t blanks : {bench::ForgottenBlanks, std::size_t{0}}) {
    const std::string prefix = blanks > 0 ? "first" : "again";
    const auto add = [&](const char* suffix, auto& services, const auto& examples) {
      benchmark::RegisterBenchmark((prefix + suffix).c_str(), look_up(services, examples, blanks));
    };
    add("_100", catalogues.Small, catalogues.SmallEntries);
    add("_10000", catalogues.Large, catalogues.SmallEntries);
    add("_10000_all", catalogues.Large, catalogues.Entries);
  }
  benchmark::RegisterBenchmark("plain_walk_10000",
                               [&catalogues](benchmark::State& state) { bench::Walk(state, catalogues); });
  const auto match_set = [&set = *catalogues.Set](const auto& examples) {
    return [&set, &examples](benchmark::State& state) { bench::MatchSet(state, set, examples); };
  };
  benchmark::RegisterBenchmark("re2_set_10000", match_set(catalogues.SmallEntries));
  benchmark::RegisterBenchmark("re2_set_10000_all", match_set(catalogues.Entries));
  return bench::RunWithGoals(count, arguments, bench::Goals());
}
