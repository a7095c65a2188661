// The time of a typed code: looks it up in the table of entries and evaluates the formula that the entries give.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "VEXSTMDataCardScans.h"
#include "datacard/EntryTable.h"

namespace codenorm {

/// Number of pattern positions that a time formula can refer to, from 0.
inline constexpr std::size_t ReferenceCount = 2000;

/// The numbers that a code carries, by pattern position; a position without a flag holds none.
struct CodeNumbers {
  std::span<const double> Values;
  std::span<const int> Flags;

  bool IsSet(int position) const {
    return position >= 0 && position < std::ssize(Flags) && Flags[static_cast<std::size_t>(position)] != 0;
  }
};

/// What a lookup found.
struct CodeTime {
  std::optional<std::size_t> Entry;  // position in the table of the last entry that matched
  std::string Time;                  // printed
};

/// Looks up a code that is not empty and in upper case. `table` may be null: nothing is found then.
CodeTime LookUpCode(std::string_view code, const datacard::EntryTable* table, std::string_view system);

/// The option bits that a code in upper case selects.
long OptionsOfCode(std::string_view code, const datacard::EntryTable* table, std::string_view system);

/// Replaces each "$n$" of a formula by the value at position n if its flag is set, else by nothing.
std::string Substitute(std::string_view formula, const CodeNumbers& numbers);

}  // namespace codenorm
