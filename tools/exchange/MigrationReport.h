// What became of the streams of a migration, stream by stream.
#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string>

#include "tools/exchange/UnmappedNames.h"

namespace tool {

enum class MigrationResult {
  Migrated,   // its file was written
  Unchanged,  // its file was there, with the same content
  Skipped
};

struct MigratedStream {
  std::string Stream;  // as messages call it
  MigrationResult Result = MigrationResult::Skipped;
  std::string File;  // empty if skipped
  int LineCount = 0;
  UnmappedNames Unmapped;
  std::string Cause;  // of a skipped one
};

class MigrationReport {
 public:
  /// is_json  one JSON object a line, instead of text for people
  MigrationReport(std::ostream& output, bool is_json) : _Output(output), _IsJson(is_json) {}

  void Add(const MigratedStream& stream);
  /// Tells the numbers of all, in a report for people.
  void Finish();

 private:
  void AddText(const MigratedStream& stream);
  void AddJson(const MigratedStream& stream);

  std::ostream& _Output;
  bool _IsJson;
  std::array<std::size_t, 3> _Counts{};  // by result
};

}  // namespace tool
