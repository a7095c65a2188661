// The answers of one run: where they go, the messages beside them, and the exit status that comes of it.
#pragma once

#include <algorithm>
#include <functional>
#include <iosfwd>
#include <string_view>
#include <utility>

#include "tools/CommandLine.h"
#include "tools/Messages.h"
#include "tools/Surroundings.h"

namespace tool {

class Answers {
 public:
  explicit Answers(const Surroundings& surroundings) : _Out(surroundings.Out), _Err(surroundings.Err) {}

  std::ostream& Out() { return _Out; }

  /// Writes a message behind the answers given so far; the run goes on.
  void Tell(const Failure& failure);

  /// Calls `prepare` ahead of each message from now on; null: nothing is called.
  void PrepareToTell(std::function<void()> prepare) { _Prepare = std::move(prepare); }

  /// Counts a status that its answer alone tells of.
  void Note(ExitStatus status) { _Gravest = std::max(_Gravest, status); }

  ExitStatus Gravest() const { return _Gravest; }

 private:
  std::ostream& _Out;
  std::ostream& _Err;
  std::function<void()> _Prepare;
  ExitStatus _Gravest = ExitStatus::Done;
};

/// Calls `work` with each text of the command, or each line of standard input; its number is 0 for an argument.
void ForEachText(const CommandLine& line, const Surroundings& surroundings,
                 const std::function<void(std::string_view text, std::size_t number)>& work);

}  // namespace tool
