// The plain walk over every entry of a data card for the time and the options of a code. It is the yardstick for the
// lookup.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ModaptsNormOracle.h"

namespace oracle {

/// One entry of a data card, as texts.
struct Entry {
  std::string code_id;
  std::string code;
  std::string text;
  std::string frequency;
  std::string time;
  std::string par1_start;
  std::string par1_end;
  std::string pattern;
  std::string time_type;
  std::string option_par_id;
  std::string option_time;
  std::string option_id;
  std::string local_text;
  std::string value_added;
};

/// What a lookup reads and writes. code comes back in upper case. After a code that matches nothing only code, time
/// and code_id differ; after an empty code only code_index, which is -1 then.
struct Lookup {
  std::string code;
  std::string time;
  std::string description;
  std::string time_type;
  std::string frequency;
  std::string local_description;
  std::string value_added;
  std::string code_id;
  int code_index = -1;
};

/// Matches a code against a pattern: code, pattern, count, values, flags. On a match it sizes values and flags to the
/// count; otherwise it leaves them.
using PatternCheck =
    std::function<bool(const std::string&, const std::string&, int&, std::vector<double>&, std::vector<int>&)>;

/// Replaces the references $n$ of a formula by the values of the parameters that took part.
std::string SubstParameterCode(const std::string& formula, const std::vector<double>& values,
                               const std::vector<int>& flags);

/// Looks a code up in the entries of a system. loaded false: there is no entry file.
void GetTimeToCode(Lookup& lookup, const std::string& system, const std::vector<Entry>& entries, bool loaded,
                   const PatternCheck& check_pattern, const TimeFromFormula& time_from_formula);

/// Adds the option identifiers of all entries that a code selects, by bitwise or.
void GetOptionID(std::string code, long& identifier, const std::vector<Entry>& entries, bool loaded,
                 const PatternCheck& check_pattern);

}  // namespace oracle
