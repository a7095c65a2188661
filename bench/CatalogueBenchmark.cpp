// The reading of a large entry file up to the first answer, against libxml2 reading the same elements.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

#include "GeneratedCatalogue.h"
#include "GoalTable.h"
#include "PlainXmlReader.h"
#include "tests/support/TemporaryFolder.h"

namespace bench {
namespace {

constexpr std::size_t EntryCount = 20000;

/// Reads the file and answers for one code, which makes the index and compiles all patterns.
std::string ReadAndAnswer(const std::string& path, const std::string& typed) {
  VEXSTMTimeAnalysisDlgServices services;
  if (services.ReadDCEntriesFromFile(KORUnicodeString(std::string_view(path))) != S_OK) RefuseToCompare("not read");
  KORUnicodeString code{std::string_view(typed)};
  KORUnicodeString time;
  KORUnicodeString unused;
  services.GetTimeToCode(code, time, unused, unused, unused);
  return std::string(services.GetTACodeID().Bytes());
}

/// The table read by the services and the records read by the peer must hold the same texts.
void CompareSides(const std::string& path) {
  VEXSTMTimeAnalysisDlgServices services;
  (void)services.ReadDCEntriesFromFile(KORUnicodeString(std::string_view(path)));
  const std::vector<PlainRecord> records = ReadPlainRecords(path);
  if (static_cast<std::size_t>(services.GetDCEntriesCount()) != records.size()) RefuseToCompare("number of entries");
  for (std::size_t index = 0; index < records.size(); ++index) {
    const VEXSTMDataCardEntriesScan& entry = *services.GetDCEntry(static_cast<int>(index));
    const PlainRecord& record = records[index];
    const bool same = entry._CodeID.Bytes() == record[0] && entry._Code.Bytes() == record[1] &&
                      entry._Text.Bytes() == record[2] && entry._LocalText.Bytes() == record[3] &&
                      entry._Time.Bytes() == record[6] && entry._Par1End.Bytes() == record[8] &&
                      entry._Pattern.Bytes() == record[9] && entry._TimeType.Bytes() == record[11];
    if (!same) RefuseToCompare("entry " + record[0]);
  }
}

void Read(benchmark::State& state, const std::string& path, const std::string& code) {
  for (auto _ : state) benchmark::DoNotOptimize(ReadAndAnswer(path, code));
}

void ReadWithoutAnswer(benchmark::State& state, const std::string& path) {
  for (auto _ : state) {
    VEXSTMTimeAnalysisDlgServices services;
    benchmark::DoNotOptimize(services.ReadDCEntriesFromFile(KORUnicodeString(std::string_view(path))));
  }
}

void ReadByLibxml(benchmark::State& state, const std::string& path) {
  for (auto _ : state) benchmark::DoNotOptimize(ReadPlainRecords(path));
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  const std::vector<bench::GeneratedEntry> entries = bench::GenerateEntries(bench::EntryCount);
  const std::string text = bench::EntryFileText(entries, true);
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("entries.xml", text);
  bench::CompareSides(path);
  if (bench::ReadAndAnswer(path, entries[0].Example) != entries[0].CodeID) bench::RefuseToCompare("first answer");
  std::printf("%zu entries, %.2f million bytes\n", entries.size(), static_cast<double>(text.size()) * 1e-6);
  benchmark::RegisterBenchmark("read_and_answer", bench::Read, path, entries[0].Example);
  benchmark::RegisterBenchmark("read_alone", bench::ReadWithoutAnswer, path);
  benchmark::RegisterBenchmark("libxml2", bench::ReadByLibxml, path);
  using Bound = bench::Goal::Bound;
  return bench::RunWithGoals(count, arguments,
                             {{"file to entry table, index, patterns and first answer / libxml2", "read_and_answer",
                               "libxml2", Bound::AtMost, 1.2},
                              {"file to entry table alone / libxml2", "read_alone", "libxml2", Bound::AtMost, 1.2}});
}
