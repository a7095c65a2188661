// The table of the codes of a motion-time system.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "VEXSTMDataCardScans.h"
#include "datacard/CodeIndex.h"

namespace datacard {

/// The records of an entry file, in document order, and the index over them. Service objects share it, on several
/// threads too.
class EntryTable {
 public:
  explicit EntryTable(std::vector<VEXSTMDataCardEntriesScan> records) : _Records(std::move(records)) {}

  const std::vector<VEXSTMDataCardEntriesScan>& Records() const { return _Records; }

  /// A number that no other table of the process has, also none that is gone.
  std::uint64_t Number() const { return _Number; }

  /// The index, made by the first caller that needs it.
  const CodeIndex& Index() const {
    std::call_once(_IndexMade, [this] { _Index = std::make_unique<CodeIndex>(_Records); });
    return *_Index;
  }

 private:
  static std::uint64_t NextNumber() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
  }

  std::vector<VEXSTMDataCardEntriesScan> _Records;
  std::uint64_t _Number = NextNumber();
  mutable std::once_flag _IndexMade;
  mutable std::unique_ptr<const CodeIndex> _Index;
};

}  // namespace datacard
