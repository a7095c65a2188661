// A catalogue made up for measuring.
#include "GeneratedCatalogue.h"

#include <array>
#include <random>

#include "GoalTable.h"
#include "tests/support/DataCardText.h"
#include "tests/support/TemporaryFolder.h"

namespace bench {
namespace {

/// A parameter, a number for it, and the expression for its numbers as they are typed.
struct Parameter {
  const char* Pattern;
  int Lowest;
  int Highest;
  const char* Expression;
};

constexpr std::array<Parameter, 5> Parameters{{
    {"%[1,9]", 1, 9, "([1-9])"},
    {"%[0,9]", 0, 9, "([0-9])"},
    {"%[1,99]", 1, 99, "([1-9][0-9]?)"},
    {"%[1,999]", 1, 999, "([1-9][0-9]{0,2})"},
    {"$[1,9]", 1, 8, "([1-8](?:\\.[0-9]{0,4}[1-9])?|9)"},
}};

class EntryDraw {
 public:
  GeneratedEntry Draw(std::size_t index) {
    GeneratedEntry entry;
    entry.CodeID = std::to_string(index + 1);
    entry.Code = Letters(index);
    entry.Text = "Element " + entry.Code + ", drawn for measuring";
    if (index % 2 == 0) {
      AddPattern(entry);
    } else {
      AddPlainCode(entry, index % 8 == 1);
    }
    return entry;
  }

 private:
  int Below(int bound) { return static_cast<int>(_Random() % static_cast<unsigned>(bound)); }

  /// A code of its own for each index: letters as a number to the base 25, with a closing "Z" that none of them has,
  /// so that no code is the beginning of another.
  static std::string Letters(std::size_t index) {
    std::string letters;
    for (std::size_t rest = index * 7 + 30; rest > 0; rest /= 25) letters += static_cast<char>('A' + rest % 25);
    return letters + "Z";
  }

  /// The code alone, or with a number of two digits at most behind it.
  static void AddPlainCode(GeneratedEntry& entry, bool with_number) {
    entry.Example = entry.Expression = entry.Code;
    entry.Time = "12.5";
    if (!with_number) return;
    entry.Par1Start = "0";
    entry.Par1End = "100";
    entry.Time = "2*$1$+3.5";
    entry.Example += "25";
    entry.Expression += "(?:[1-9][0-9]?)?";
  }

  /// The code, then one to three pieces: a parameter, or a group of alternatives.
  void AddPattern(GeneratedEntry& entry) {
    entry.Pattern = '"' + entry.Code + '"';
    entry.Example = entry.Expression = entry.Code;
    int tokens = 1;
    const int pieces = Below(3) + 1;
    for (int piece = 0; piece < pieces; ++piece) {
      if (piece % 2 == 0) {
        AddParameter(entry);
        tokens += 1;
      } else {
        AddAlternatives(entry);
        tokens += 8;
      }
    }
    entry.Time = pieces == 3 ? "MTM1REACH(0,$1$,1,0)+$" + std::to_string(tokens - 1) + "$" : "0.5*$1$+4.2";
  }

  void AddParameter(GeneratedEntry& entry) {
    const Parameter& parameter = Parameters[static_cast<std::size_t>(Below(static_cast<int>(Parameters.size())))];
    entry.Pattern += parameter.Pattern;
    entry.Expression += parameter.Expression;
    entry.Example += std::to_string(parameter.Lowest + Below(parameter.Highest - parameter.Lowest + 1));
  }

  void AddAlternatives(GeneratedEntry& entry) {
    constexpr std::array<const char*, 3> letters{"A", "BX", "C"};
    entry.Pattern += "(|\"A\"|\"BX\"|\"C\")";
    entry.Expression += "(?:A|BX|C)";
    entry.Example += letters[static_cast<std::size_t>(Below(3))];
  }

  std::mt19937 _Random{20261};
};

}  // namespace

std::vector<GeneratedEntry> GenerateEntries(std::size_t count) {
  EntryDraw draw;
  std::vector<GeneratedEntry> entries;
  for (std::size_t index = 0; index < count; ++index) entries.push_back(draw.Draw(index));
  return entries;
}

std::string EntryFileText(const std::vector<GeneratedEntry>& entries, bool filled) {
  const std::string filling = filled ? ", with a description as long as those of a full catalogue are" : "";
  std::string inner;
  for (const GeneratedEntry& entry : entries) {
    inner += support::EntryElement({{"CODE_ID", entry.CodeID},
                                    {"CODE", entry.Code},
                                    {"TEXT", entry.Text + filling},
                                    {"LOCALTEXT", entry.Text},
                                    {"VALUEADDED", "1"},
                                    {"FREQUENCY", "1"},
                                    {"TIME", entry.Time},
                                    {"PAR_1_START", entry.Par1Start},
                                    {"PAR_1_END", entry.Par1End},
                                    {"PATTERN", entry.Pattern},
                                    {"PATTERN1", ""},
                                    {"TIMETYPE", "F"}});
  }
  return support::DataCardFile(inner);
}

std::vector<oracle::Entry> PlainEntries(const std::vector<GeneratedEntry>& entries) {
  std::vector<oracle::Entry> plain;
  for (const GeneratedEntry& entry : entries) {
    oracle::Entry& target = plain.emplace_back();
    target.code_id = entry.CodeID;
    target.code = entry.Code;
    target.text = entry.Text;
    target.local_text = entry.Text;
    target.value_added = target.frequency = "1";
    target.time = entry.Time;
    target.par1_start = entry.Par1Start;
    target.par1_end = entry.Par1End;
    target.pattern = entry.Pattern;
    target.time_type = "F";
  }
  return plain;
}

VEXSTMTimeAnalysisDlgServices LoadEntries(const std::vector<GeneratedEntry>& entries) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("entries.xml", EntryFileText(entries, false));
  VEXSTMTimeAnalysisDlgServices services;
  KORUnicodeString unused;
  services.GetDCEXMLFilePath("STD", unused);
  if (services.ReadDCEntriesFromFile(KORUnicodeString(path)) != S_OK) RefuseToCompare("the catalogue is not read");
  return services;
}

}  // namespace bench
