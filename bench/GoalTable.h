// Runs benchmarks and closes with a table of goals: each a figure measured beside that of its peer in the same run.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace bench {

/// What a run measured: for "NAME" the median processor time of one iteration in nanoseconds, for "NAME:COUNTER" the
/// median of a counter.
class Measurements {
 public:
  void Record(const std::string& name, double figure) { _Figures[name] = figure; }
  bool Holds(const std::string& name) const { return _Figures.contains(name); }
  double operator[](const std::string& name) const { return _Figures.at(name); }

 private:
  std::map<std::string, double> _Figures;
};

/// One ratio and the bound that it is meant to keep.
struct Goal {
  enum class Bound { AtMost, AtLeast };

  std::string Text;
  std::string Numerator;    // names of measurements
  std::string Denominator;  // empty: the numerator is the ratio itself
  Bound Kind = Bound::AtMost;
  double Limit = 1.0;
  double Scale = 1.0;  // the quotient is multiplied by it, as where the two sides do different amounts of work
};

/// The main program of a benchmark. Each benchmark runs several times, interleaved with the others, so that what else
/// the machine does falls on all alike; the medians count. A goal that is missed is reported and does not fail the
/// program. Returns the exit status: 0, or 1 for an unknown argument or a benchmark that failed.
int RunWithGoals(int count, char** arguments, const std::vector<Goal>& goals);

/// Ends the program with a message: sides that do not give the same results must not be compared.
[[noreturn]] void RefuseToCompare(const std::string& cause);

}  // namespace bench
