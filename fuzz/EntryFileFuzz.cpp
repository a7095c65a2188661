// Entry files: whatever a file holds, it is read or refused, and a lookup finds what the walk over every entry finds.
// Input: the content of the file.
#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "fuzz/FuzzSupport.h"
#include "tests/oracle/CodePatternOracle.h"
#include "tests/oracle/CodeTimeOracle.h"
#include "tests/support/TemporaryFolder.h"

namespace {

// Bounds of the comparison, since the plain walk compiles every pattern for every code, and recurses.
constexpr int MostEntries = 24;
constexpr std::size_t LongestText = 400;

std::string Text(const KORUnicodeString& text) {
  return std::string(text.Bytes());
}

bool IsPlain(const KORUnicodeString& text) {
  return text.Bytes().size() <= LongestText &&
         std::ranges::all_of(text.Bytes(), [](char byte) { return byte > 0 && byte < 127; });
}

/// The table as the plain walk takes it; empty if it is beyond the bounds.
std::vector<oracle::Entry> PlainTable(const VEXSTMTimeAnalysisDlgServices& services) {
  std::vector<oracle::Entry> entries;
  if (services.GetDCEntriesCount() > MostEntries) return entries;
  for (int index = 0; index < services.GetDCEntriesCount(); ++index) {
    const VEXSTMDataCardEntriesScan& entry = *services.GetDCEntry(index);
    const bool plain = std::ranges::all_of(
        std::initializer_list<KORUnicodeString>{entry._Code, entry._Time, entry._Pattern, entry._OptionTime}, IsPlain);
    if (!plain) return {};
    entries.push_back({Text(entry._CodeID), Text(entry._Code), Text(entry._Text), Text(entry._Frequency),
                       Text(entry._Time), Text(entry._Par1Start), Text(entry._Par1End), Text(entry._Pattern),
                       Text(entry._TimeType), Text(entry._OptionParID), Text(entry._OptionTime), Text(entry._OptionID),
                       Text(entry._LocalText), Text(entry._ValueAdded)});
  }
  return entries;
}

/// Codes worth typing: those of the entries, with and without a number, and the literals of their patterns.
std::vector<std::string> CodesToType(const std::vector<oracle::Entry>& entries) {
  std::vector<std::string> codes{"M1A", "A5", "+"};
  for (const oracle::Entry& entry : entries) {
    codes.insert(codes.end(), {entry.code, entry.code + "5", entry.code + "2.5"});
    std::string joined;
    for (std::string_view rest = entry.pattern; !rest.empty();) {
      const std::string_view outside = fuzz::TakeText(rest, '"');
      if (outside.find_first_of("%$") != std::string_view::npos) joined += '7';
      joined += fuzz::TakeText(rest, '"');
    }
    codes.push_back(joined);
  }
  return codes;
}

void CompareLookup(VEXSTMTimeAnalysisDlgServices services, const std::string& system,
                   const std::vector<oracle::Entry>& entries, const std::string& typed) {
  const oracle::PatternCheck check = [&system](const std::string& code, const std::string& pattern, int& count,
                                               std::vector<double>& values, std::vector<int>& flags) {
    return oracle::CheckPattern(system, code, pattern, count, values, flags);
  };
  oracle::Lookup expected;
  expected.code = typed;
  oracle::GetTimeToCode(expected, system, entries, true, check, [&services](const std::string& formula) {
    int status = 0;
    return services.GetTimeFromFormula(KORUnicodeString(std::string_view(formula)), status);
  });
  KORUnicodeString code{std::string_view(typed)};
  KORUnicodeString time;
  KORUnicodeString description;
  KORUnicodeString time_type;
  KORUnicodeString frequency;
  services.GetTimeToCode(code, time, description, time_type, frequency);
  fuzz::RequireSame(expected.code_index, services.GetCodeIndex(), "index for <" + typed + ">");
  if (typed.empty()) return;
  fuzz::RequireSame(expected.code, Text(code), "code");
  fuzz::RequireSame(expected.time, Text(time), "time of <" + typed + ">");
  fuzz::RequireSame(expected.description, Text(description), "description of <" + typed + ">");
  fuzz::RequireSame(expected.code_id, Text(services.GetTACodeID()), "identifier of <" + typed + ">");
  long expected_options = 0;
  long options = 0;
  oracle::GetOptionID(typed, expected_options, entries, true, check);
  services.GetOptionID(KORUnicodeString(std::string_view(typed)), options);
  fuzz::RequireSame(expected_options, options, "options of <" + typed + ">");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const support::TemporaryFolder folder;
  const std::string path = folder.Write("entries.xml", std::string(fuzz::BytesOf(data, size)));
  const std::string system = size % 3 == 0 ? "SAM" : "STD";
  VEXSTMTimeAnalysisDlgServices services;
  KORUnicodeString unused;
  services.GetDCEXMLFilePath(KORUnicodeString(std::string_view(system)), unused);
  if (services.ReadDCEntriesFromFile(KORUnicodeString(std::string_view(path))) != S_OK) {
    KORListValKORUnicodeString messages;
    fuzz::RequireSame(long{S_OK}, services.GetXMLSyntaxErrorList(messages), "a message for a refused file");
    return 0;
  }
  const std::vector<oracle::Entry> entries = PlainTable(services);
  if (static_cast<int>(entries.size()) != services.GetDCEntriesCount()) return 0;
  for (const std::string& code : CodesToType(entries)) CompareLookup(services, system, entries, code);
  return 0;
}
