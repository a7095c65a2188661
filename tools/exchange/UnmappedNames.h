// Names in streams that the exchange has no place for, as it tells them in its trace.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace tool {

struct UnmappedNames {
  std::set<std::string> Attributes;
  std::set<std::string> Columns;  // of the line table
};

/// While it lives, it takes what the exchange writes into its trace, which shows nowhere else meanwhile. One at a time
/// in a process.
class UnmappedListener {
 public:
  UnmappedListener();
  ~UnmappedListener();
  UnmappedListener(const UnmappedListener&) = delete;
  UnmappedListener& operator=(const UnmappedListener&) = delete;

  /// The names told since the start, or since they were last taken.
  UnmappedNames Take() { return std::exchange(_Names, {}); }

 private:
  void TakeLine(std::string_view line);

  UnmappedNames _Names;
};

}  // namespace tool
