// How far a long run has come, for a person at a terminal.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "tools/Surroundings.h"

namespace tool {

/// One line on standard error that is written over and over, and gone at the end. It shows where standard error is a
/// terminal, from the second second of its life on, at most ten times a second.
///
///   computing analyses  [###########-----------------------------]  28 %
class ProgressBar {
 public:
  /// is_wanted  false for a run that shows none whatever its standard error is. The surroundings have to outlive it.
  ProgressBar(const Surroundings& surroundings, bool is_wanted);
  ~ProgressBar() { Hide(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// Tells what is being done, in ASCII letters, and how much of it is done.
  void Show(std::string_view work, std::size_t done, std::size_t count);
  /// Takes the line away, so that something else can be written; the next Show writes it again.
  void Hide();

 private:
  using Time = std::chrono::steady_clock::time_point;

  const Surroundings& _Surroundings;
  bool _IsWanted;
  Time _Next;               // when it shows at the soonest
  std::size_t _Length = 0;  // of the line that stands there; 0 for none
};

}  // namespace tool
