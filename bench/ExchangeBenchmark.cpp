// The exchange of analyses as text: lines written in against the bare cutting of the same text, by the number of lines,
// and items read out.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "GoalTable.h"
#include "VEXTADataIO.h"
#include "exchange/DefaultStream.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace bench {
namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

constexpr int CellsOfALine = 14;

// Calls `take` with every part of a text between two separators.
template <class Take>
void Cut(std::string_view text, char separator, const Take& take) {
  for (;;) {
    const std::size_t end = text.find(separator);
    take(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 1);
  }
}

std::vector<std::string_view> Parts(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  Cut(text, separator, [&parts](std::string_view part) { parts.push_back(part); });
  return parts;
}

// The cells of one line of the default stream, as what stands ahead of the row and behind it.
struct LineCell {
  std::string_view Column;
  std::string_view Type;
  std::string_view Value;
};

// A stream with the columns and the ten lines of the default stream, which are repeated up to that number of lines.
std::string StreamOf(int lines) {
  const KORUnicodeString default_stream = exchange::DefaultStream();
  std::string stream = "Save|New STM - STD|STD";
  std::vector<std::vector<LineCell>> pattern(11);
  for (const std::string_view item : Parts(default_stream.Bytes(), '|')) {
    const std::vector<std::string_view> fields = Parts(item, ':');
    if (fields.front() != "LineData") continue;
    pattern.at(std::stoul(std::string(fields[2]))).push_back({fields[3], fields[4], fields[5]});
  }
  for (int row = 0; row <= lines; ++row) {
    const std::string number = std::to_string(row);
    for (const LineCell& cell : pattern[row == 0 ? 0u : static_cast<std::size_t>(row - 1) % 10 + 1]) {
      const std::string_view value = row > 0 && cell.Column == "1" ? std::string_view(number) : cell.Value;
      stream.append("|LineData:et_linedata:").append(number).append(":").append(cell.Column);
      stream.append(":").append(cell.Type).append(":").append(value);
    }
  }
  return stream;
}

// Made once for each size.
const std::string& Stream(int lines) {
  static std::map<int, std::string> streams;
  std::string& stream = streams[lines];
  if (stream.empty()) stream = StreamOf(lines);
  return stream;
}

KORListValKORUnicodeString ItemsOf(const std::string& stream) {
  return VEXTADataIO::ExplodeString("|", KORUnicodeString(std::string_view(stream)));
}

// Without an identifier, which has no place in the exchange and would be told in the trace each time.
Analysis_var NewAnalysis() {
  return Analysis_var::Adopt(new VEXTimeAnalysisRepReference);
}

void WriteIn(KORListValKORUnicodeString& items, const Analysis_var& analysis, int lines) {
  int count = 0;
  const long status = VEXTADataIO::SetAnalysisData("", items, analysis->GetImpl(0));
  if (status != S_OK || analysis->GetLineCount(count) != S_OK || count != lines) {
    RefuseToCompare("the lines are not written in");
  }
}

void CountCells(benchmark::State& state, int lines) {
  state.counters["cell"] = benchmark::Counter(
      lines * CellsOfALine, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Cuts a stream into its items and those into their fields, and looks at each field.
void CutStream(benchmark::State& state, int lines) {
  const std::string& stream = Stream(lines);
  for (auto _ : state) {
    Cut(stream, '|',
        [](std::string_view item) { Cut(item, ':', [](std::string_view field) { benchmark::DoNotOptimize(field); }); });
  }
  CountCells(state, lines);
}

// Writes a list of items into an analysis that holds the lines of the time before, which go first.
void WriteItems(benchmark::State& state, int lines) {
  KORListValKORUnicodeString items = ItemsOf(Stream(lines));
  const Analysis_var analysis = NewAnalysis();
  for (auto _ : state) WriteIn(items, analysis, lines);
  CountCells(state, lines);
}

// The whole road from a text: cuts it into items, and writes them in.
void WriteStream(benchmark::State& state, int lines) {
  const std::string& stream = Stream(lines);
  const Analysis_var analysis = NewAnalysis();
  for (auto _ : state) {
    KORListValKORUnicodeString items = ItemsOf(stream);
    WriteIn(items, analysis, lines);
  }
  CountCells(state, lines);
}

void ReadItems(benchmark::State& state, int lines) {
  KORListValKORUnicodeString items = ItemsOf(Stream(lines));
  const Analysis_var analysis = NewAnalysis();
  WriteIn(items, analysis, lines);
  for (auto _ : state) {
    (void)VEXTADataIO::GetAnalysisData("", items, analysis->GetImpl(0));
    if (items.Size() != lines * CellsOfALine) RefuseToCompare("the lines are not read out");
  }
  state.counters["items_per_second"] = benchmark::Counter(items.Size(), benchmark::Counter::kIsIterationInvariantRate);
}

void Register() {
  benchmark::RegisterBenchmark("cut/10000", CutStream, 10'000);
  benchmark::RegisterBenchmark("write_items/1000", WriteItems, 1'000);
  benchmark::RegisterBenchmark("write_items/10000", WriteItems, 10'000);
  benchmark::RegisterBenchmark("write_items/100000", WriteItems, 100'000);
  benchmark::RegisterBenchmark("write_stream/10000", WriteStream, 10'000);
  benchmark::RegisterBenchmark("read_items/1000", ReadItems, 1'000);
  benchmark::RegisterBenchmark("read_items/10000", ReadItems, 10'000);
}

const std::vector<Goal> Goals{
    {"10,000 lines written in from items / the text cut", "write_items/10000", "cut/10000", Goal::Bound::AtMost, 20.0},
    {"10,000 lines written in from the text / the text cut", "write_stream/10000", "cut/10000", Goal::Bound::AtMost,
     20.0},
    {"a cell of 100,000 lines written in / of 1,000", "write_items/100000:cell", "write_items/1000:cell",
     Goal::Bound::AtMost, 1.5},
    {"items read out, millions a second", "read_items/10000:items_per_second", "", Goal::Bound::AtLeast, 2.0, 1e-6},
};

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  bench::Register();
  return bench::RunWithGoals(count, arguments, bench::Goals);
}
