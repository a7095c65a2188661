// A folder that files are written into, each whole or not at all, and none outside of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/Messages.h"

namespace tool {

/// Names come from data: a name is a path from the folder, with "/" between its parts. It leads nowhere else: not by
/// "..", "." or empty parts, not by "\" or control characters, not by a part above 255 bytes, and not by links that
/// stand in the folder.
class OutputFolder {
 public:
  /// What becomes of a file that is already there.
  enum class Present { Kept, Replaced };

  /// path  the folder; it is made, with those above it, when the first file is written
  OutputFolder(std::string path, Present present) : _Path(std::move(path)), _Present(present) {}

  /// What forbids to write a file of that name; nothing if nothing does. Writes nothing.
  std::optional<Failure> Check(const std::string& name) const;

  /// Writes a file in a file of its own beside it, which then takes its place; folders on the way are made. Raises the
  /// cause where that cannot be done, with the place left as it was.
  void Write(const std::string& name, std::string_view content) const;

 private:
  std::string _Path;
  Present _Present;
};

}  // namespace tool
