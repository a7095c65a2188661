// An order in which each analysis stands behind those that it reuses.
#include "tools/analysis/ReuseOrder.h"

#include <utility>

namespace tool {

namespace {

enum class Visit : unsigned char { NotYet, OnThePath, Done };

// An analysis on the way down, and its next row.
struct Step {
  std::size_t Member;
  std::size_t Row;
};

class ReuseWalk {
 public:
  ReuseWalk(const std::vector<std::vector<std::size_t>>& reused, std::size_t nothing,
            const std::function<void(const ReuseCircleFound&)>& on_circle)
      : _Reused(reused), _Nothing(nothing), _OnCircle(on_circle), _Visits(reused.size(), Visit::NotYet) {}

  void WalkFrom(std::size_t start) {
    if (_Visits[start] != Visit::NotYet) return;
    Enter(start);
    while (!_Path.empty()) {
      Step& step = _Path.back();
      const std::vector<std::size_t>& rows = _Reused[step.Member];
      if (step.Row == rows.size()) {
        _Visits[step.Member] = Visit::Done;
        _Order.push_back(step.Member);
        _Path.pop_back();
        continue;
      }
      const std::size_t row = step.Row++;
      const std::size_t reused = rows[row];
      if (reused == _Nothing) continue;
      if (_Visits[reused] == Visit::OnThePath) NoteCircle(step.Member, row, reused);
      if (_Visits[reused] == Visit::NotYet) Enter(reused);
    }
  }

  std::vector<std::size_t> Take() { return std::move(_Order); }

 private:
  void Enter(std::size_t member) {
    _Visits[member] = Visit::OnThePath;
    _Path.push_back({member, 0});
  }

  void NoteCircle(std::size_t member, std::size_t row, std::size_t reused) const {
    ReuseCircleFound circle{member, row, {}};
    std::size_t place = _Path.size();
    while (_Path[place - 1].Member != reused) --place;
    for (; place <= _Path.size(); ++place) circle.Path.push_back(_Path[place - 1].Member);
    circle.Path.push_back(reused);
    _OnCircle(circle);
  }

  const std::vector<std::vector<std::size_t>>& _Reused;
  std::size_t _Nothing;
  const std::function<void(const ReuseCircleFound&)>& _OnCircle;
  std::vector<Visit> _Visits;
  std::vector<Step> _Path;
  std::vector<std::size_t> _Order;
};

}  // namespace

std::vector<std::size_t> OrderByReuse(const std::vector<std::vector<std::size_t>>& reused, std::size_t nothing,
                                      const std::function<void(const ReuseCircleFound&)>& on_circle) {
  ReuseWalk walk(reused, nothing, on_circle);
  for (std::size_t member = 0; member < reused.size(); ++member) walk.WalkFrom(member);
  return walk.Take();
}

}  // namespace tool
