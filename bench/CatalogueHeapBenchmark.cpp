// What the reading of a large entry file takes from the heap. Every allocation of this program is counted, those of
// the libraries that it uses too.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "GeneratedCatalogue.h"
#include "GoalTable.h"
#include "datacard/EntryReader.h"
#include "datacard/EntryTable.h"
#include "tests/support/TemporaryFolder.h"

namespace {

std::atomic<std::ptrdiff_t> held{0};
std::atomic<std::ptrdiff_t> most_held{0};

void* Counted(void* block) {
  if (block == nullptr) return block;
  const auto size = static_cast<std::ptrdiff_t>(malloc_usable_size(block));
  const std::ptrdiff_t now = held.fetch_add(size) + size;
  if (now > most_held.load()) most_held.store(now);  // one thread allocates here
  return block;
}

void Uncount(void* block) {
  if (block != nullptr) held.fetch_sub(static_cast<std::ptrdiff_t>(malloc_usable_size(block)));
}

}  // namespace

// The allocator of the C library behind functions that count; its operators new and delete come here too.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) {
  return Counted(__libc_malloc(size));
}
void* calloc(std::size_t count, std::size_t size) {
  return Counted(__libc_calloc(count, size));
}
void* realloc(void* block, std::size_t size) {
  Uncount(block);
  void* changed = __libc_realloc(block, size);
  Counted(changed == nullptr && size > 0 ? block : changed);  // a block that cannot grow stays
  return changed;
}
void* memalign(std::size_t alignment, std::size_t size) {
  return Counted(__libc_memalign(alignment, size));
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return Counted(__libc_memalign(alignment, size));
}
int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  *block = Counted(__libc_memalign(alignment, size));
  return *block == nullptr ? ENOMEM : 0;
}
void free(void* block) {
  Uncount(block);
  __libc_free(block);
}
}

namespace bench {
namespace {

constexpr std::size_t EntryCount = 20000;

/// Bytes held more than at the start, now and at most.
class HeapSpan {
 public:
  HeapSpan() : _Start(held.load()) { most_held.store(_Start); }
  double Held() const { return static_cast<double>(held.load() - _Start); }
  double MostHeld() const { return static_cast<double>(most_held.load() - _Start); }

 private:
  std::ptrdiff_t _Start;
};

struct File {
  std::string Path;
  double Size;
  std::string Code;
};

void Read(benchmark::State& state, const File& file) {
  for (auto _ : state) {
    const HeapSpan span;
    VEXSTMTimeAnalysisDlgServices services;
    KORUnicodeString code{std::string_view(file.Code)};
    KORUnicodeString time;
    KORUnicodeString unused;
    if (services.ReadDCEntriesFromFile(KORUnicodeString(std::string_view(file.Path))) != S_OK) {
      state.SkipWithError("the file is not read");
    }
    services.GetTimeToCode(code, time, unused, unused, unused);
    state.counters["peak_per_file"] = span.MostHeld() / file.Size;
    state.counters["held_per_file"] = span.Held() / file.Size;
  }
}

void BuildTable(benchmark::State& state, const File& file) {
  VEXSTMTimeAnalysisDlgServices services;
  KORIDOMNodeList_var elements;
  const KORIDOMElement_var root =
      services.GetRootElement(services.GetDOMDocument(KORUnicodeString(std::string_view(file.Path))));
  if (root.IsNull() || root.GetElementsByTagName("DATACARDENTRY", elements) != S_OK) {
    state.SkipWithError("the file is not read");
  }
  for (auto _ : state) {
    const HeapSpan span;
    const auto table = std::make_unique<datacard::EntryTable>(datacard::ReadEntries(elements));
    const double records = span.Held();
    benchmark::DoNotOptimize(table->Index());
    state.counters["records_per_file"] = records / file.Size;
    state.counters["index_per_file"] = (span.Held() - records) / file.Size;
  }
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
  const std::vector<bench::GeneratedEntry> entries = bench::GenerateEntries(bench::EntryCount);
  const std::string text = bench::EntryFileText(entries, true);
  const support::TemporaryFolder folder;
  const bench::File file{folder.Write("entries.xml", text), static_cast<double>(text.size()), entries[0].Example};
  benchmark::RegisterBenchmark("read_and_answer", bench::Read, file)->Iterations(1);
  benchmark::RegisterBenchmark("table", bench::BuildTable, file)->Iterations(1);
  using Bound = bench::Goal::Bound;
  return bench::RunWithGoals(count, arguments,
                             {{"heap at its peak / file", "read_and_answer:peak_per_file", "", Bound::AtMost, 12.0},
                              {"entry table alone / file", "table:records_per_file", "", Bound::AtMost, 4.0}});
}
