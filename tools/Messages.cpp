// Exit statuses and messages.
#include "tools/Messages.h"

#include <algorithm>

#include "platform/base/KORUnicodeString.h"
#include "tools/Systems.h"

namespace tool {

namespace {

constexpr int LongestExcerpt = 60;
constexpr int CaretWindow = 100;  // characters of a formula shown around the caret

Failure Finding(const std::string& text) {
  return {ExitStatus::Finding, text};
}
Failure Unusable(const std::string& text) {
  return {ExitStatus::Unusable, text};
}

std::string Quoted(std::string_view text) {
  return "\"" + Excerpt(text) + "\"";
}

// Where a text came from: nothing for an argument, the line for a line of the input.
std::string At(std::size_t line) {
  return line == 0 ? std::string() : "standard input, line " + std::to_string(line) + ": ";
}

template <class Texts>
std::string Joined(const Texts& texts) {
  std::string joined;
  for (const auto& text : texts) {
    if (!joined.empty()) joined += ", ";
    joined += text;
  }
  return joined;
}

std::string ListOfPlaces(const std::vector<SearchedPlace>& places) {
  std::string list;
  for (const SearchedPlace& place : places) list += "\n  " + place.Path + "  (" + place.Origin + ")";
  return list.empty() ? "\n  nowhere: no folder is named" : list;
}

// Character (from 0) of the formula as typed that stands at a place (from 1) of the text evaluated, from which the
// word "floor" is taken out in the system "MTM2".
int CharacterAtPlace(const KORUnicodeString& formula, int place, std::string_view system) {
  static const KORUnicodeString floor("floor");
  int character = place - 1;
  if (system != "MTM2") return character;
  for (int word = formula.SearchSubString(floor); word >= 0 && word <= character;) {
    character += floor.GetLengthInChar();
    word = formula.SearchSubString(floor, word + floor.GetLengthInChar());
  }
  return character;
}

// The formula, or the part of it around the place, over a line with a caret.
std::string WithCaret(const KORUnicodeString& formula, int character) {
  const int start = character > CaretWindow / 2 ? character - CaretWindow / 2 : 0;
  const std::string ahead = start > 0 ? "..." : "";
  const KORUnicodeString shown = formula.SubString(start, CaretWindow);
  const bool cut = formula.GetLengthInChar() > start + CaretWindow;
  const auto caret = ahead.size() + static_cast<std::size_t>(character - start);
  return "\n  " + ahead + Printable(shown.Bytes()) + (cut ? "..." : "") + "\n  " + std::string(caret, ' ') + "^";
}

std::string FormulaCause(int status) {
  if (status == -1) return "division by zero";
  if (status == -2) {
    return "a character that begins no token, or a name that is unknown, lacks its \"(\" or has an argument that fails";
  }
  return "syntax error at character " + std::to_string(status);
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string printable(text);
  std::replace_if(
      printable.begin(), printable.end(), [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }, ' ');
  return printable;
}

std::string Excerpt(std::string_view text) {
  const KORUnicodeString whole(text);
  const KORUnicodeString head = whole.SubString(0, LongestExcerpt);
  return Printable(head.Bytes()) + (head.Bytes().size() < whole.Bytes().size() ? "..." : "");
}

Failure WrongUsage(const std::string& cause, const std::string& command) {
  return Unusable(cause + "; see \"" + command + " --help\"");
}

Failure UnknownCommand(std::string_view name, const std::string& names, const std::string& command) {
  const std::string fault = name.empty() ? "a command is missing" : Quoted(name) + " is no command";
  return WrongUsage(fault + "; take one of " + names, command);
}

Failure UnknownOption(const std::string& name, const std::string& command) {
  return WrongUsage(Quoted(name) + " is no option of \"" + command + "\" (texts that begin so stand behind a bare --)",
                    command);
}

Failure OptionAheadOfCommand(const std::string& name, const std::string& command) {
  return WrongUsage("the option " + name + " stands ahead of the command; write it behind, as \"" + command +
                        " COMMAND ... " + name + "\"",
                    command);
}

Failure EmptyValue(const std::string& name, const std::string& command) {
  return WrongUsage(name + " is empty; give it a value" + (name == "SYSTEM" ? "" : " or leave it out"), command);
}

Failure UnknownSystem(std::string_view name) {
  return Unusable(Quoted(name) + " is no motion-time system; take one of " + Joined(SystemNames) +
                  ", written exactly so");
}

Failure DashNotAlone(const std::string& command) {
  return WrongUsage(
      "\"-\", which reads standard input, does not go together with other texts; leave out one or the other", command);
}

Failure TwoCatalogueFolders(const std::string& argument, const std::string& option) {
  return Unusable("two catalogue folders are named, " + argument + " and " + option + " (--catalogue); leave one out");
}

Failure FolderWithColon(const std::string& folder) {
  return Unusable("the catalogue folder " + folder +
                  " has a \":\" in its name, which separates folders in a search path; name it through a link without");
}

Failure NoNormFormat(const std::string& system) {
  return Unusable("the system \"" + system + "\" has no norm format; MOST, MiniMOST, MaxiMOST and MODAPTS have one");
}

Failure NoWayToNorm(const std::string& system) {
  return Unusable("codes of the system \"" + system + "\" are not turned into norm format; only --to code is offered");
}

Failure FrequencyFails(std::string_view frequency, int status) {
  return Unusable("the frequency " + Quoted(frequency) + " cannot be evaluated: " + FormulaCause(status) +
                  "; give a number or a formula to --frequency");
}

Failure InputNotReadable(const std::string& cause) {
  return Unusable("standard input cannot be read: " + cause + "; give it a text file or a pipe");
}

Failure NulInLine(std::size_t line) {
  return Unusable(At(line) +
                  "holds a NUL byte, which no text does (is the file UTF-16?); give it as UTF-8. "
                  "This line and those behind it are not read");
}

Failure LineTooLong(std::size_t line, std::size_t bound) {
  return Unusable(At(line) + "longer than " + std::to_string(bound) +
                  " bytes; give one text a line. This line and those behind it are not read");
}

Failure PatternLineWithoutFields(std::size_t line) {
  return Unusable(At(line) +
                  "not three fields; give system, pattern and code with a tab between them. "
                  "This line and those behind it are not read");
}

Failure UnknownSystemInLine(std::size_t line, std::string_view name) {
  return Unusable(At(line) + UnknownSystem(name).what() + ". This line and those behind it are not read");
}

Failure OutputNotWritable() {
  return Unusable("the answers cannot be written to standard output; is the disk full, or the reader gone?");
}

Failure OutOfMemory() {
  return Unusable("out of memory; give smaller texts or files");
}

Failure SettingsNotReadable(const std::string& path) {
  return Unusable("the settings file " + path + " cannot be read; check that it is there, is a file and may be read");
}

Failure SettingsLineNotReadable(const std::string& path, int line) {
  return Unusable("the settings file " + path + ", line " + std::to_string(line) +
                  ": neither \"name = value\" nor a comment that begins with \"#\"; correct the line");
}

Failure ConversionNotUsable(std::string_view value) {
  return Finding("the setting mintotmuconversion is " + Quoted(value) +
                 ", which is no number above 0; give the TMU per minute, 1666.67 for the standard, or take it out. "
                 "Seconds and minutes are not to be relied on");
}

Failure NoEntryFile(const std::string& system, const std::vector<SearchedPlace>& places) {
  return Unusable("no catalogue file of the system \"" + system + "\"; searched:" + ListOfPlaces(places) +
                  "\nname the folder that holds DataCardEntry with --catalogue");
}

Failure EntryFileNotReadable(const std::string& system, const std::string& path, const std::string& cause) {
  return Unusable("the catalogue file of the system \"" + system + "\" cannot be read: " + path +
                  (cause.empty() ? std::string(": it has no root element") : "\n  " + cause) +
                  "\ncorrect the file; \"timeanalysis catalogue check\" looks through all of them");
}

Failure CardFileNotReadable(const std::string& cause) {
  return Unusable("a data card group file cannot be read: " + cause + "; correct the file");
}

Failure CardFileLacksFields(std::string_view name) {
  return Finding("the data card group file " + std::string(name) +
                 " lacks DATACARDGROUP, SUBSYSTEM or NAME; \"timeanalysis catalogue check\" tells which");
}

Failure NoCatalogue(const std::vector<SearchedPlace>& places) {
  return Unusable("no catalogue: none of these folders holds a catalogue file:" + ListOfPlaces(places) +
                  "\nname the folder that holds DataCardEntry and DataCard");
}

Failure FormulaFails(std::string_view formula, int status, std::string_view system, std::size_t line) {
  const std::string head = At(line) + Quoted(formula) + ": ";
  if (status < 0) {
    return Finding(head + FormulaCause(status) + "; \"timeanalysis eval --help\" tells what a formula may hold");
  }
  const KORUnicodeString text(formula);
  const int character = CharacterAtPlace(text, status, system);
  const bool moved = character + 1 != status;
  return Finding(head + FormulaCause(character + 1) +
                 (moved ? " (" + std::to_string(status) + " without the floor words)" : "") +
                 WithCaret(text, character));
}

Failure CodeFormulaFails(std::string_view code, const std::string& entry, std::string_view formula, int status,
                         std::size_t line) {
  return Finding(At(line) + "the code " + Quoted(code) + " has no time: the formula " + Quoted(formula) + " of " +
                 entry + " cannot be evaluated: " + FormulaCause(status) +
                 "; the 0 stands for none. Correct the code or the entry");
}

Failure CodeTimeNotFinite(std::string_view code, const std::string& entry, std::string_view time, std::size_t line) {
  return Finding(At(line) + "the code " + Quoted(code) + " has no time: the formula of " + entry + " gives " +
                 std::string(time) + ", which is no finite number. Correct the code or the entry");
}

Failure CodeNotFound(const std::string& system, std::string_view code, const std::string& path,
                     const std::vector<std::string>& nearest, std::size_t line) {
  const std::string head = At(line) + "the code " + Quoted(code) + " is not in " + system + " (" + path + "); ";
  if (nearest.empty()) return Finding(head + "no code comes near it");
  return Finding(head + "nearest: " + Joined(nearest));
}

Failure NormNotReadable(std::string_view text, std::size_t line) {
  return Finding(
      At(line) + Quoted(text) +
      " is no MODAPTS sequence: only letters, digits, blanks, brackets and, in a multiplier, \"*\" and \"/\" "
      "have a place in one");
}

Failure CodeNotInLookupForm(std::string_view code, const std::string& lookup_form, std::size_t line) {
  return Finding(At(line) + "the code " + Quoted(code) + " is compared as it stands; a lookup would take " +
                 Quoted(lookup_form) + ", in upper case and without blanks");
}

}  // namespace tool
