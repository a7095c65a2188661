// Messages about analyses in text files.
#include "tools/analysis/AnalysisMessages.h"

#include <algorithm>

#include "tools/analysis/AnalysisFile.h"

namespace tool {

namespace {

constexpr std::size_t MostNames = 8;  // that a message lists

std::string Quoted(std::string_view text) {
  return "\"" + Excerpt(text) + "\"";
}

std::string LineText(std::size_t line) {
  return line == 0 ? std::string() : ", line " + std::to_string(line);
}

PlacedFailure Finding(const FilePlace& place, const std::string& text) {
  return At(place, {ExitStatus::Finding, text});
}

PlacedFailure Unusable(const FilePlace& place, const std::string& text) {
  return At(place, {ExitStatus::Unusable, text});
}

// The names, or the first and the last of many.
std::string Listed(const std::vector<std::string>& names, const std::string& separator) {
  std::string list;
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (!list.empty()) list += separator;
    if (names.size() > MostNames && index == MostNames / 2) {
      const std::size_t left_out = names.size() - MostNames;
      list += "... (" + std::to_string(left_out) + " more)" + separator;
      index += left_out;
    }
    list += Quoted(names[index]);
  }
  return list;
}

std::string ListOfColumns() {
  std::string list;
  for (const std::string_view name : ColumnNames) list += (list.empty() ? "" : ", ") + std::string(name);
  return list;
}

}  // namespace

PlacedFailure::PlacedFailure(const FilePlace& place, const Failure& failure)
    : Failure(failure.GetStatus(), place.Path + LineText(place.Line) + ": " + failure.what()), _Line(place.Line) {
}

PlacedFailure At(const FilePlace& place, const Failure& failure) {
  return {place, failure};
}

Failure DashIsNoFile(const std::string& command) {
  return WrongUsage("analyses are not read from standard input; name their files or their folder", command);
}

Failure TwoForms(const std::string& command) {
  return WrongUsage("--json and --csv do not go together; leave out one of them", command);
}

PlacedFailure NoSuchFileOrFolder(const std::string& path) {
  return Unusable({path}, "neither a file nor a folder; name the file of an analysis, or a folder of such files");
}

PlacedFailure OutsideModelFolder(const std::string& path, const std::string& model) {
  return Unusable({path}, "does not lie in the folder of the model, " + model + "; name the right one with --model");
}

PlacedFailure FolderNotReadable(const std::string& path, const std::string& cause) {
  return Unusable({path}, "the folder cannot be read: " + cause);
}

PlacedFailure FolderWithoutAnalyses(const std::string& path) {
  return Unusable({path}, "the folder holds no analysis, that is no file whose name ends in \".csv\"");
}

PlacedFailure AnalysisNotReadable(const std::string& path, const std::string& cause) {
  return Unusable({path}, "cannot be read: " + cause);
}

PlacedFailure AnalysisOutsideFolder(const std::string& path, const std::string& folder) {
  return Unusable({path}, "a link that leads out of the folder " + folder + "; put the file itself there");
}

PlacedFailure NoHeader(const std::string& path) {
  return Unusable({path}, "no header row; begin with one that names the columns, as \"code,frequency,description\"");
}

PlacedFailure NulInRecord(const FilePlace& place) {
  return Unusable(place,
                  "holds a NUL byte, which no text does (is the file UTF-16, or no text at all?); save it as CSV in "
                  "UTF-8. This line and those behind it are not read");
}

PlacedFailure RecordTooLong(const FilePlace& place, std::size_t bound) {
  return Unusable(place, "longer than " + std::to_string(bound) +
                             " bytes; give one row a line. This line and those behind it are not read");
}

PlacedFailure OpenQuote(const FilePlace& place) {
  return Unusable(place,
                  "a cell begins with a quote that is not closed; close it, and write a quote inside a quoted cell "
                  "twice. This line and those behind it are not read");
}

PlacedFailure TextBehindQuote(const FilePlace& place) {
  return Finding(place,
                 "text stands behind the closing quote of a cell; write a quote inside a quoted cell twice, or put the "
                 "whole cell into quotes");
}

PlacedFailure EmptyProperty(const FilePlace& place, std::string_view name) {
  return Finding(place, "the property " + Quoted(name) + " is empty; give it a value or take the line out");
}

PlacedFailure PropertyTwice(const FilePlace& place, std::string_view name) {
  return Finding(place, "the property " + Quoted(name) + " stands twice; take one out. The first one counts");
}

PlacedFailure UnknownColumns(const FilePlace& place, const std::vector<std::string>& names) {
  return Finding(place, (names.size() == 1 ? "unknown column " : "unknown columns ") + Listed(names, ", ") +
                            ", not read; the columns are " + ListOfColumns());
}

PlacedFailure ColumnTwice(const FilePlace& place, std::string_view name) {
  return Finding(place, "the column " + Quoted(name) + " stands twice; take one out. The first one is read");
}

PlacedFailure NoTimeGivingColumn(const FilePlace& place) {
  return Unusable(place,
                  "no column tells the time of a row; name a column code, time, seconds, reuse or signature in the "
                  "header row, which is the first one that is no comment");
}

PlacedFailure FormulaColumnMissing(const FilePlace& place, std::string_view name) {
  return Finding(place, "the column " + Quoted(name) + " is missing; a formula takes both, signature and body");
}

PlacedFailure CellWithoutHeading(const FilePlace& place) {
  return Finding(place,
                 "a cell stands in a column whose heading is empty; name the column in the header row, or empty the "
                 "cell. This row has no time");
}

PlacedFailure TooManyCells(const FilePlace& place, std::size_t cells, std::size_t columns) {
  return Finding(place, std::to_string(cells) + " cells for " + std::to_string(columns) +
                            " columns; put cells that hold a separator into quotes, and write decimals with a point. "
                            "This row has no time");
}

PlacedFailure FrequencyNoNumber(const FilePlace& place, std::string_view text) {
  return Finding(place, "the frequency " + Quoted(text) +
                            " is no number from 0 on; write it with digits and a decimal point, as 1.5, or leave it "
                            "empty for 1");
}

PlacedFailure TimeNoNumber(const FilePlace& place, std::string_view column, std::string_view text) {
  return Finding(place, Quoted(text) + " in the column " + Quoted(column) +
                            " is no number from 0 on; write it with digits and a decimal point, as 12.5");
}

PlacedFailure TwoTimes(const FilePlace& place) {
  return Finding(place, "a time in TMU (column \"time\") and one in seconds; leave one empty");
}

PlacedFailure UnknownTimeType(const FilePlace& place, std::string_view text) {
  return Finding(place, "the time type " + Quoted(text) +
                            " is unknown; take one of TTB (or human), TTU (machine), TW (waiting), TRG (setup), T**");
}

PlacedFailure UnknownSystemInFile(const FilePlace& place, std::string_view name) {
  return Finding(place, UnknownSystem(name).what());
}

PlacedFailure NoSystem(const FilePlace& place, std::string_view code) {
  return Finding(place, "no motion-time system to look the code " + Quoted(code) +
                            " up in; write \"# system: MTM1\" (or another one) ahead of the header row, fill a column "
                            "system, or name it with --system");
}

PlacedFailure RowWithoutTime(const FilePlace& place) {
  return Finding(place,
                 "nothing tells the time of this row; give a code, a time, a reused analysis or a formula. (A row with "
                 "nothing but a description is a text.)");
}

PlacedFailure CodeBesideReuse(const FilePlace& place, std::string_view code) {
  return Finding(place, "the code " + Quoted(code) +
                            " beside a reused analysis; leave one empty (only \"*\", for a row outside all totals, "
                            "stands beside one)");
}

PlacedFailure TimeBesideReuse(const FilePlace& place) {
  return Finding(place, "a time beside a reused analysis, whose time counts; leave one empty");
}

PlacedFailure RecordedWithoutReuse(const FilePlace& place) {
  return Finding(place,
                 "a recorded time on a row that reuses no analysis; name the analysis, or enter the time in the column "
                 "\"time\" or \"seconds\"");
}

PlacedFailure RecordedOutOfDate(const FilePlace& place, std::string_view name, std::string_view recorded,
                                const std::string& present) {
  return Finding(place, "the recorded time " + Quoted(recorded) + " of the reused analysis " + Quoted(name) +
                            " is out of date, it takes " + present +
                            " s now; \"timeanalysis impact FOLDER --template ID\" tells what a change of it touches, "
                            "and takes it over with --apply");
}

PlacedFailure TimeNotFinite(const FilePlace& place) {
  return Finding(place, "time by frequency is no finite number; correct one of them");
}

PlacedFailure ReuseNameNotPlain(const FilePlace& place, std::string_view name) {
  return Finding(place, "the reused analysis " + Quoted(name) +
                            " is no plain path; name a file in the folder or below it, as parts/screw, with \"/\" "
                            "between folders and without \"..\", \".\" or a \"/\" at an end");
}

PlacedFailure ReusedFileMissing(const FilePlace& place, std::string_view name,
                                const std::vector<std::string>& searched) {
  return Finding(place, "the reused analysis " + Quoted(name) +
                            " is not there, or cannot be read; searched: " + Listed(searched, ", ") +
                            ". Folders further up are searched if calc is given them, or by --model");
}

PlacedFailure ReuseCircle(const FilePlace& place, const std::vector<std::string>& names) {
  return Finding(place, "a circle of reuse: " + Listed(names, " -> ") +
                            "; an analysis cannot be part of itself. This row has no time");
}

PlacedFailure IdentifierShared(const FilePlace& place, std::string_view identifier, const std::string& other_path) {
  return Finding(place, "the identifier " + Quoted(identifier) + " is that of " + other_path +
                            " as well; give each analysis its own");
}

PlacedFailure IdentifierWithBar(const FilePlace& place, std::string_view identifier) {
  return Finding(place, "the identifier " + Quoted(identifier) +
                            " holds a \"|\", which none may; rename the file or write \"# identifier: ...\". It is "
                            "read as \"_\"");
}

PlacedFailure ReusedAnalysisIncomplete(const FilePlace& place, std::string_view name) {
  return Finding(place, "the reused analysis " + Quoted(name) +
                            " is incomplete, so the time of this row is wrong; correct what is told of that file");
}

PlacedFailure TooManyCarriedParameters(const FilePlace& place, std::string_view rows, std::size_t bound) {
  return Finding(place, "more than " + std::to_string(bound) + " formula parameters are carried up to " +
                            std::string(rows) + "; reuse fewer analyses with formulas. This row has no time");
}

PlacedFailure CarriedTimeDiffers(const FilePlace& place, std::string_view name, const std::string& here,
                                 const std::string& there) {
  return Finding(place, "the formulas carried up from " + Quoted(name) + " give " + here +
                            " s, while its own total is " + there +
                            " s. Carried formulas count once, with the frequency that they give themselves; rows with "
                            "the code * count, and so do plain rows, but only in analyses that have a formula of their "
                            "own. Enter the total by hand (column \"seconds\"), or reuse here the analyses with "
                            "formulas themselves, each once");
}

PlacedFailure FormulaIncomplete(const FilePlace& place, std::string_view missing) {
  return Finding(place, "the formula has no " + std::string(missing) + "; a formula takes both, signature and body");
}

PlacedFailure FormulaNotReadable(const FilePlace& place, const std::string& cause) {
  return Finding(place, "the formula cannot be read: " + cause);
}

PlacedFailure FormulaRunFails(const FilePlace& place, const std::string& cause) {
  return Finding(place, "the formula fails: " + cause + ". Correct its body or its values");
}

PlacedFailure FormulaResultNotUsable(const FilePlace& place, std::string_view output, const std::string& value) {
  return Finding(place, "the formula gives " + Quoted(output) + " the value " + value +
                            ", which is no finite number from 0 on; correct its body or its values");
}

PlacedFailure ValuesNotReadable(const FilePlace& place, std::string_view text) {
  return Finding(place, "the value " + Quoted(text) + " cannot be read; write \"name=value; name=value\"");
}

PlacedFailure ValueTwice(const FilePlace& place, std::string_view name) {
  return Finding(place, "the value of " + Quoted(name) + " stands twice; take one out. The first one counts");
}

PlacedFailure ValueMissing(const FilePlace& place, std::string_view name, std::string_view type) {
  return Finding(place, "the formula's input " + Quoted(name) + " (" + std::string(type) +
                            ") has no value; add it to the column values as \"" + Excerpt(name) + "=...\"");
}

PlacedFailure ValueWithoutInput(const FilePlace& place, std::string_view name, const std::vector<std::string>& names) {
  return Finding(place, "no formula of this row has an argument " + Quoted(name) + "; " +
                            (names.empty() ? "it has none at all" : "it has " + Listed(names, ", ")));
}

PlacedFailure ValueOfOtherType(const FilePlace& place, std::string_view name, std::string_view value,
                               std::string_view type) {
  return Finding(place,
                 "the value " + Quoted(value) + " of " + Quoted(name) + " is not of the type " + std::string(type) +
                     (type == "Integer" ? "; write a whole number in 32 bits" : "; write a number with a point") +
                     ", and \";\" between values");
}

}  // namespace tool
