// The codes of all systems that a run needs, each looked up once.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tools/Answers.h"
#include "tools/Catalogue.h"
#include "tools/Messages.h"

namespace tool {

/// What a row takes over from the catalogue.
struct CodeEntry {
  std::optional<double> Seconds;   // of one occurrence; none if the code is not found or has no time
  std::optional<Failure> Problem;  // why there are none; none itself if the catalogue was told of already
  std::string Description;
  std::string TimeType;
  std::string ValueAdded;
};

class CodeBook {
 public:
  /// Both have to outlive the book.
  CodeBook(const Catalogue& catalogue, Answers& answers);
  ~CodeBook();
  CodeBook(const CodeBook&) = delete;
  CodeBook& operator=(const CodeBook&) = delete;

  /// The entry of a code; it stays where it is as long as the book lives. A catalogue that cannot be read is told of
  /// when its first code is asked for, and answers none.
  const CodeEntry& Find(const std::string& system, std::string_view code);

 private:
  struct Volume;
  Volume& VolumeOf(const std::string& system);

  const Catalogue& _Catalogue;
  Answers& _Answers;
  std::map<std::string, std::unique_ptr<Volume>> _Volumes;  // by system
};

}  // namespace tool
