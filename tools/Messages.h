// Exit statuses and messages. The words for a cause are written here and nowhere else.
//
// A message says what was wrong, where, and what to do about it.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Exit statuses of the program, in rising gravity: the gravest of a run counts.
enum class ExitStatus : int {
  Done = 0,
  Finding = 1,   // something was not found, or a finding was made
  Unusable = 2,  // wrong usage or unreadable input
  Stopped = 3    // the run ended while it changed files: some may be new, the others old
};

/// A message and the exit status that its cause leads to. Thrown where the run cannot go on.
class Failure : public std::runtime_error {
 public:
  Failure(ExitStatus status, const std::string& text) : std::runtime_error(text), _Status(status) {}
  ExitStatus GetStatus() const { return _Status; }

 private:
  ExitStatus _Status;
};

/// One place that was searched for a file, and where the place came from.
struct SearchedPlace {
  std::string Path;
  std::string Origin;
};

// Usage.
Failure WrongUsage(const std::string& cause, const std::string& command);
Failure UnknownCommand(std::string_view name, const std::string& names, const std::string& command);
Failure UnknownOption(const std::string& name, const std::string& command);
Failure OptionAheadOfCommand(const std::string& name, const std::string& command);
Failure EmptyValue(const std::string& name, const std::string& command);
Failure UnknownSystem(std::string_view name);
Failure DashNotAlone(const std::string& command);
Failure TwoCatalogueFolders(const std::string& argument, const std::string& option);
Failure FolderWithColon(const std::string& folder);
Failure NoNormFormat(const std::string& system);
Failure NoWayToNorm(const std::string& system);
Failure FrequencyFails(std::string_view frequency, int status);

// Input and output.
Failure InputNotReadable(const std::string& cause);
Failure NulInLine(std::size_t line);
Failure LineTooLong(std::size_t line, std::size_t bound);
Failure PatternLineWithoutFields(std::size_t line);
Failure UnknownSystemInLine(std::size_t line, std::string_view name);
Failure OutputNotWritable();
Failure OutOfMemory();

// Settings and catalogues.
Failure SettingsNotReadable(const std::string& path);
Failure SettingsLineNotReadable(const std::string& path, int line);
Failure ConversionNotUsable(std::string_view value);
Failure NoEntryFile(const std::string& system, const std::vector<SearchedPlace>& places);
Failure EntryFileNotReadable(const std::string& system, const std::string& path, const std::string& cause);
Failure CardFileNotReadable(const std::string& cause);
Failure CardFileLacksFields(std::string_view name);
Failure NoCatalogue(const std::vector<SearchedPlace>& places);

// Answers.
Failure FormulaFails(std::string_view formula, int status, std::string_view system, std::size_t line);
Failure CodeFormulaFails(std::string_view code, const std::string& entry, std::string_view formula, int status,
                         std::size_t line);
Failure CodeTimeNotFinite(std::string_view code, const std::string& entry, std::string_view time, std::size_t line);
Failure CodeNotFound(const std::string& system, std::string_view code, const std::string& path,
                     const std::vector<std::string>& nearest, std::size_t line);
Failure NormNotReadable(std::string_view text, std::size_t line);
Failure CodeNotInLookupForm(std::string_view code, const std::string& lookup_form, std::size_t line);

/// A text cut to what a message can hold, its control characters made visible as blanks.
std::string Excerpt(std::string_view text);
/// A whole text with its control characters made visible as blanks.
std::string Printable(std::string_view text);

}  // namespace tool
