// A line with 30 keys read into a record and stored again, against two copies of a hash map of the same content; and
// what a table of very many such lines takes from the heap.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "GoalTable.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace bench {
namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;
using MapValue = std::variant<std::string, double, int, unsigned char, KORBaseUnknown_var>;
using Map = std::unordered_map<std::string, MapValue>;

constexpr int HeapRows = 100000;
constexpr double BytesInAGigabyte = 1e9;

struct Entry {
  const char* Key;
  MapValue Value;
};

// A line as it stands in a stored analysis: 30 keys, 13 of them texts, of which four are longer than a few letters.
std::vector<Entry> EntriesOf(int row) {
  const std::string number = std::to_string(row);
  return {{"IsStandardTextFlag", static_cast<unsigned char>(0)},
          {"ActivitySectionName", std::string("Assembly section")},
          {"RowNum", row},
          {"Description", "Reach to the tool and grasp it, row " + number},
          {"Code", "R" + number + "A"},
          {"TimeType", std::string("TTB")},
          {"AnalysisType", std::string("MTM1")},
          {"LineType", std::string("Code")},
          {"Bitmask", 5},
          {"Factor", 2.0},
          {"FactorString", std::string("2")},
          {"FrequencyString", std::string("2")},
          {"ParamFactorString", std::string("")},
          {"State", 1},
          {"AddDescription", std::string("left hand waits")},
          {"ValueAdded", std::string("NVA")},
          {"RuleIn", std::string("")},
          {"RuleOut", std::string("distance is above 40 cm")},
          {"TotalTime", 0.5 * row},
          {"TotalCalc", 0.25},
          {"TTBTime", 0.25 * row},
          {"TTUTime", -0.036},
          {"TRGTime", -0.036},
          {"TWTime", -0.036},
          {"TTBCalc", 1.0},
          {"TTUCalc", 0.0},
          {"TRGCalc", 0.0},
          {"TWCalc", 0.0},
          {"TTBCalcAllowance", 1.1},
          {"TotalCalcAllowance", 1.1}};
}

void Set(VEXTimeAnalysisLineData& line, const char* key, const MapValue& value) {
  if (const auto* const text = std::get_if<std::string>(&value)) {
    line.SetValue(key, KORUnicodeString(text->c_str()));
  } else if (const auto* const real = std::get_if<double>(&value)) {
    line.SetValue(key, *real);
  } else if (const auto* const integer = std::get_if<int>(&value)) {
    line.SetValue(key, *integer);
  } else if (const auto* const truth = std::get_if<unsigned char>(&value)) {
    line.SetValue(key, *truth);
  }
}

void StoreRow(VEXTimeAnalysisRepReference& analysis, int row) {
  VEXTimeAnalysisLineData line;
  for (const Entry& entry : EntriesOf(row)) Set(line, entry.Key, entry.Value);
  if (analysis.SetLine(row, line) != S_OK) RefuseToCompare("row " + std::to_string(row) + " is not stored");
}

Map MapOf(int row) {
  Map map;
  for (const Entry& entry : EntriesOf(row)) map.emplace(entry.Key, entry.Value);
  return map;
}

Analysis_var AnalysisOf(int rows) {
  auto analysis = Analysis_var::Adopt(new VEXTimeAnalysisRepReference);
  for (int row = 1; row <= rows; ++row) StoreRow(*analysis, row);
  return analysis;
}

/// Both sides must hold the same keys with the same values.
void CompareSides() {
  const Analysis_var analysis = AnalysisOf(1);
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  (void)analysis->GetLineAttributes(1, names, values);
  Map map = MapOf(1);
  if (names.Size() != 30 || map.size() != 30) RefuseToCompare("number of keys");
  for (int position = 1; position <= names.Size(); ++position) {
    const auto found = map.find(std::string(names[position].Bytes()));
    if (found == map.end()) RefuseToCompare("key");
    if (const auto* const text = std::get_if<std::string>(&found->second); text != nullptr) {
      if (*text != values[position].Bytes()) RefuseToCompare(found->first);
    }
  }
}

// Time

constexpr int TimedRows = 100;

void GetAndSet(benchmark::State& state, bool change) {
  const Analysis_var analysis = AnalysisOf(TimedRows);
  int row = 0;
  for (auto _ : state) {
    row = row % TimedRows + 1;
    VEXTimeAnalysisLineData line;
    (void)analysis->GetLine(row, line);
    if (change) line.SetValue("Factor", static_cast<double>(row));
    (void)analysis->SetLine(row, line);
  }
}

/// Copies the map out of a table and back, as a line goes out of an analysis and back.
void CopyMap(benchmark::State& state, bool change) {
  std::vector<Map> rows;
  for (int row = 1; row <= TimedRows; ++row) rows.push_back(MapOf(row));
  std::size_t row = 0;
  for (auto _ : state) {
    row = (row + 1) % rows.size();
    Map line = rows[row];
    if (change) line["Factor"] = static_cast<double>(row);
    rows[row] = line;
    benchmark::DoNotOptimize(rows[row]);
  }
}

/// A single copy, the least that a reader of a map can pay.
void CopyMapOnce(benchmark::State& state) {
  const Map row = MapOf(1);
  for (auto _ : state) {
    Map line = row;
    benchmark::DoNotOptimize(line);
  }
}

// Memory

double HeapInUse() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

void HoldLines(benchmark::State& state, int rows) {
  for (auto _ : state) {
    const double before = HeapInUse();
    const Analysis_var analysis = AnalysisOf(rows);
    const double bytes = HeapInUse() - before;
    state.counters["bytes_per_line"] = bytes / rows;
    state.counters["gigabytes"] = bytes / BytesInAGigabyte;
  }
}

void HoldMaps(benchmark::State& state, int rows) {
  for (auto _ : state) {
    const double before = HeapInUse();
    std::vector<Map> maps;
    for (int row = 1; row <= rows; ++row) maps.push_back(MapOf(row));
    state.counters["bytes_per_line"] = (HeapInUse() - before) / rows;
  }
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  bench::CompareSides();
  benchmark::RegisterBenchmark("get_and_set", bench::GetAndSet, false);
  benchmark::RegisterBenchmark("get_change_and_set", bench::GetAndSet, true);
  benchmark::RegisterBenchmark("map_copied_out_and_back", bench::CopyMap, false);
  benchmark::RegisterBenchmark("map_changed_between", bench::CopyMap, true);
  benchmark::RegisterBenchmark("map_copied_once", bench::CopyMapOnce);
  benchmark::RegisterBenchmark("lines_held", bench::HoldLines, bench::HeapRows)->Iterations(1);
  benchmark::RegisterBenchmark("maps_held", bench::HoldMaps, bench::HeapRows)->Iterations(1);
  benchmark::RegisterBenchmark("million_lines_held", bench::HoldLines, 1000000)->Iterations(1);
  using Bound = bench::Goal::Bound;
  return bench::RunWithGoals(
      count, arguments,
      {{"GetLine and SetLine / one copy of the map", "get_and_set", "map_copied_once", Bound::AtMost, 3.0},
       {"GetLine, a change and SetLine / one copy of the map", "get_change_and_set", "map_copied_once", Bound::AtMost,
        3.0},
       {"GetLine and SetLine / the map copied out and back", "get_and_set", "map_copied_out_and_back", Bound::AtMost,
        1.0},
       {"GetLine, a change and SetLine / the map likewise", "get_change_and_set", "map_changed_between", Bound::AtMost,
        1.0},
       {"bytes of a line with 30 keys / bytes of the map", "lines_held:bytes_per_line", "maps_held:bytes_per_line",
        Bound::AtMost, 3.0},
       {"a million lines of 30 keys, GB", "million_lines_held:gigabytes", "", Bound::AtMost, 1.5}});
}
