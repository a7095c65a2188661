// A folder that files are written into, each whole or not at all, and none outside of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "tools/Messages.h"

namespace tool {

/// A file is called by the identifier of an analysis, which comes from data, and an extension: a path from the folder,
/// with "/" between its parts. It leads nowhere else: no part is empty, begins with "." (which ".." does, and what is
/// passed over where folders are read) or is longer than 255 bytes; there is no "\" and no control character in it; and
/// links that stand in the folder are not followed.
class OutputFolder {
 public:
  /// What becomes of a file that is already there. One that is replaced hands its permissions on.
  enum class Present { Kept, Replaced };

  /// path       the folder; it is made, with those above it, when the first file is written
  /// extension  of all files, with its point
  OutputFolder(std::string path, std::string extension, Present present)
      : _Path(std::move(path)), _Extension(std::move(extension)), _Present(present) {}

  /// The path of a file; empty for an identifier that gives none.
  std::string PathOf(const std::string& identifier) const;

  /// True if the file of an identifier is there with that very content; a link in its place is not followed.
  bool Holds(const std::string& identifier, std::string_view content) const;

  /// What forbids to write the file of an identifier; nothing if nothing does. Writes nothing.
  std::optional<Failure> Check(const std::string& identifier) const;

  /// Writes a file in a file of its own beside it, which then takes its place; folders on the way are made. Raises the
  /// cause where that cannot be done, with the place left as it was.
  void Write(const std::string& identifier, std::string_view content) const;

 private:
  std::string _Path;
  std::string _Extension;
  Present _Present;
};

}  // namespace tool
