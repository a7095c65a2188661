// How far a long run has come.
#include "tools/impact/ProgressBar.h"

#include <algorithm>
#include <ostream>
#include <string>

namespace tool {

namespace {

using namespace std::chrono_literals;

constexpr auto QuietTime = 1s;
constexpr auto Pause = 100ms;
constexpr std::size_t Cells = 40;

}  // namespace

ProgressBar::ProgressBar(const Surroundings& surroundings, bool is_wanted)
    : _Surroundings(surroundings), _IsWanted(is_wanted && surroundings.ErrIsTerminal) {
  if (_IsWanted) _Next = _Surroundings.Now() + QuietTime;
}

void ProgressBar::Show(std::string_view work, std::size_t done, std::size_t count) {
  if (!_IsWanted || count == 0) return;
  const Time now = _Surroundings.Now();
  if (now < _Next) return;
  _Next = now + Pause;
  done = std::min(done, count);
  const std::size_t filled = Cells * done / count;
  const std::string line = std::string(work) + "  [" + std::string(filled, '#') + std::string(Cells - filled, '-') +
                           "]  " + std::to_string(100 * done / count) + " %";
  const std::string rest(_Length > line.size() ? _Length - line.size() : 0, ' ');
  _Surroundings.Err << '\r' << line << rest << std::flush;
  _Length = line.size() + rest.size();
}

void ProgressBar::Hide() {
  if (_Length == 0) return;
  _Surroundings.Err << '\r' << std::string(_Length, ' ') << '\r' << std::flush;
  _Length = 0;
}

}  // namespace tool
