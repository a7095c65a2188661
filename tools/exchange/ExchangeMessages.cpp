// Messages about analyses that come in and go out.
#include "tools/exchange/ExchangeMessages.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tool {

namespace {

constexpr std::size_t MostListed = 12;          // names or rows in a message
constexpr std::size_t MostLossesTold = 10'000;  // of one analysis

Failure Finding(const std::string& text) {
  return {ExitStatus::Finding, text};
}
Failure Unusable(const std::string& text) {
  return {ExitStatus::Unusable, text};
}
Failure Note(const std::string& text) {
  return {ExitStatus::Done, text};
}

std::string Quoted(std::string_view text) {
  return "\"" + Excerpt(text) + "\"";
}

Failure Item(const ItemPlace& place, const std::string& text) {
  return Finding(place.Path + ", item " + std::to_string(place.Item) + ": " + text);
}

// The line of the file that a row stands on, or the row where there is no such file.
std::string RowText(const ExchangedAnalysis& analysis, int row) {
  const auto index = static_cast<std::size_t>(row) - 1;
  if (index < analysis.FileLines.size()) return std::to_string(analysis.FileLines[index]);
  return std::to_string(row);
}

std::string_view RowWord(const ExchangedAnalysis& analysis) {
  return analysis.FileLines.empty() ? "row" : "line";
}

// The first of many texts, with "and" and the number of the others behind them.
std::string Listed(const std::vector<std::string>& texts) {
  std::string list;
  for (std::size_t index = 0; index < std::min(texts.size(), MostListed); ++index) {
    list += (index == 0 ? "" : ", ") + Excerpt(texts[index]);
  }
  if (texts.size() > MostListed) list += " and " + std::to_string(texts.size() - MostListed) + " more";
  return list;
}

std::string Listed(const std::set<std::string>& texts) {
  return Listed(std::vector<std::string>(texts.begin(), texts.end()));
}

std::string Listed(const ExchangedAnalysis& analysis, const std::set<int>& rows) {
  std::vector<std::string> texts;
  for (const int row : rows) texts.push_back(RowText(analysis, row));
  return std::string(RowWord(analysis)) + (rows.size() == 1 ? " " : "s ") + Listed(texts);
}

std::string ChangedText(const Loss& loss, std::string_view form) {
  if (loss.Detail.empty()) {
    return loss.Value.empty() ? "does not come back from " + std::string(form)
                              : "comes back from " + std::string(form) +
                                    " as nothing; write it without blanks at its "
                                    "ends, and without what the form cannot hold";
  }
  return "comes back from " + std::string(form) + " as " + Quoted(loss.Detail) + "; correct it, or take that";
}

std::string CauseText(const Loss& loss, std::string_view form) {
  switch (loss.Cause) {
    case LossCause::NoName:
      return "has no name in the exchange; the form csv or json may hold it";
    case LossCause::Formula:
      return "the parameters of a formula have no place in the exchange; the form csv holds them";
    case LossCause::Separator:
      return "holds a " + loss.Detail + ", which ends a value in " + std::string(form) + "; write it without";
    case LossCause::OtherType:
      return "is no value of the type that the exchange has for it, " + loss.Detail + "; set it as one";
    case LossCause::OtherNameCarried:
      return "has the same name in the exchange as " + Excerpt(loss.Detail) +
             ", which has another value; give both one value";
    case LossCause::SecondsDiffer:
      return "does not follow from what the exchange carries; compute the analysis anew";
    case LossCause::RowNumber:
      return "rows are numbered on reading, this one as " + Excerpt(loss.Detail) + "; number them so";
    case LossCause::LineMissing:
      return "the line says nothing that " + std::string(form) +
             " has a place for, and does not come back; give it a "
             "description";
    case LossCause::Changed:
      break;
  }
  return ChangedText(loss, form);
}

std::string ListOfPlaces(const std::vector<SearchedPlace>& places) {
  std::string list;
  for (const SearchedPlace& place : places) list += "\n  " + place.Path + "  (" + place.Origin + ")";
  return list.empty() ? "\n  nowhere: no folder is named" : list;
}

}  // namespace

Failure AsNote(const Failure& failure) {
  return Note(failure.what());
}

Failure SeveralWithoutFolder(std::string_view form, std::size_t count) {
  return Unusable(std::to_string(count) + " analyses do not go to one output as " + std::string(form) +
                  ": each is a file of its own, which tells its identifier by its name; name a folder with --into");
}

Failure IdentifierOfSeveral(std::size_t count) {
  return Unusable("--identifier names one analysis, and there are " + std::to_string(count) +
                  " streams; leave it out, and name the files as their analyses");
}

Failure ForceWithoutFolder(const std::string& command) {
  return WrongUsage("--force replaces files in the folder of --into, which is not named; leave it out", command);
}

Failure InputTwice(const std::string& command) {
  return WrongUsage("\"-\" stands twice; standard input is read once, as one stream", command);
}

Failure DashIsNoStream(const std::string& command) {
  return WrongUsage("streams to migrate are not read from standard input; name their files or their folder", command);
}

Failure NoSuchStreamOrFolder(const std::string& path) {
  return Unusable(path + ": neither a file nor a folder; name the file of a stream, or a folder of such files");
}

Failure StreamFolderEmpty(const std::string& path) {
  return Unusable(path + ": the folder holds no stream, that is no file whose name ends in \".stream\"");
}

Failure StreamNotReadable(const std::string& path, const std::string& cause) {
  return Unusable(path + ": cannot be read: " + cause);
}

Failure StreamTooLong(const std::string& path, std::size_t bound) {
  return Unusable(path + ": longer than " + std::to_string(bound) + " bytes; is it a stream?");
}

Failure StreamOutsideFolder(const std::string& path, const std::string& folder) {
  return Unusable(path + ": a link that leads out of the folder " + folder + "; put the file itself there");
}

Failure StreamEmpty(const std::string& path) {
  return Unusable(path + ": empty; a stream is a text of items with \"|\" between them");
}

Failure StreamWithNul(const std::string& path) {
  return Unusable(path +
                  ": holds a NUL byte, which no text does (is the file UTF-16, or no text at all?); save it as "
                  "UTF-8 or Windows-1252");
}

Failure StreamWithTooManyItems(const std::string& path, std::size_t count, std::size_t bound) {
  return Unusable(path + ": " + std::to_string(count) + " items, and " + std::to_string(bound) +
                  " are read at most; is it a stream?");
}

Failure StreamWithUnknownKeys(const std::string& path, std::size_t bound) {
  return Unusable(path + ": more than " + std::to_string(bound) +
                  " keys that the exchange does not know; is it a stream?");
}

Failure StreamHoldsNothing(const std::string& path) {
  return Unusable(path +
                  ": no item of it is an attribute (\"AttributeData:...\") or a cell of a line "
                  "(\"LineData:...\"); is it a stream?");
}

Failure StreamIdentifierNotUsable(const std::string& path, std::string_view identifier) {
  return Unusable(path + ": the identifier " + Quoted(identifier) +
                  " is empty or holds a \"|\", which none may; rename the file or name another one with --identifier");
}

Failure StreamIdentifierShared(const std::string& path, std::string_view identifier, const std::string& other_path) {
  return Unusable(path + ": the identifier " + Quoted(identifier) + " is that of " + other_path +
                  " as well; rename one of them");
}

Failure ItemTooShort(const ItemPlace& place, std::string_view kind, std::size_t fields, std::size_t needed) {
  return Item(place, std::to_string(fields) + " fields for an item " + Quoted(kind) + ", which has " +
                         std::to_string(needed) + "; it is passed over. Complete it");
}

Failure ItemOfNoKind(const ItemPlace& place, std::string_view item) {
  return Item(place, Quoted(item) +
                         " is neither an attribute nor a cell of a line; it is passed over. A \"|\" in a "
                         "value ends it: write the value without");
}

Failure AttributeUnknown(const ItemPlace& place, std::string_view key) {
  return Item(place, "the exchange knows no attribute " + Quoted(key) + "; it is passed over. Correct the key");
}

Failure AttributeTwice(const ItemPlace& place, std::string_view key) {
  return Item(place, "the attribute " + Quoted(key) + " stands twice, and the last one counts; take one out");
}

Failure ColumnUnknown(const ItemPlace& place, std::string_view key) {
  return Item(place, "the exchange knows no column " + Quoted(key) + "; its cells are passed over. Correct the key");
}

Failure ColumnTwiceInStream(const ItemPlace& place, std::string_view key) {
  return Item(place, "the column " + Quoted(key) + " stands twice, and the last cell of a row counts; take one out");
}

Failure ColumnNoNumber(const ItemPlace& place, std::string_view text) {
  return Item(place, "the column " + Quoted(text) +
                         " is no number; the cell is passed over. (A list of export --format list has another form, "
                         "which is not read: export a stream.)");
}

Failure ColumnWithoutHeading(const ItemPlace& place, std::string_view text, std::size_t count) {
  return Item(place, "no item of row 0 ahead of this one names the column " + Excerpt(text) + " (" +
                         std::to_string(count) + (count == 1 ? " is" : " are") +
                         " named, from 0); the cell is passed over. Put the items of row 0 ahead");
}

Failure RowNoNumber(const ItemPlace& place, std::string_view text) {
  return Item(place, "the row " + Quoted(text) + " is no number; the cell is passed over. Rows count from 1");
}

Failure RowBelowOne(const ItemPlace& place, std::string_view text) {
  return Item(place, "the row " + Excerpt(text) + " is none; the cell is passed over. Rows count from 1");
}

Failure RowBehindGap(const ItemPlace& place, std::string_view text, int expected) {
  return Item(place, "row " + Excerpt(text) + " where row " + std::to_string(expected) +
                         " is the next one; the cell is passed over. Rows rise one by one");
}

Failure ValueWithColon(const ItemPlace& place, std::string_view key, std::string_view value, std::string_view kept) {
  return Item(place, "the value " + Quoted(value) + " of " + Quoted(key) + " ends at its \":\" and arrives as " +
                         Quoted(kept) + "; write it without");
}

Failure ValueNoNumber(const ItemPlace& place, std::string_view key, std::string_view value, ExchangeType type,
                      const std::string& read_as) {
  const bool is_whole = type != ExchangeType::Real;
  return Item(place, "the value " + Quoted(value) + " of " + Quoted(key) + " is no " +
                         (is_whole ? "whole number in 32 bits" : "number with a point") + " and is read as " + read_as +
                         "; correct it");
}

Failure MoreFaultyItems(const std::string& path, std::size_t count) {
  return Finding(path + ": " + std::to_string(count) + " more items have faults");
}

Failure ReferenceUnresolved(const std::string& path, int row, std::string_view identifier) {
  return Finding(path + ", row " + std::to_string(row) + ": the reused analysis " + Quoted(identifier) +
                 " is not among the streams; its identifier is kept. Name its stream as well, or the folder of both");
}

Failure StreamMarkRead(const std::string& path) {
  return Finding(path +
                 ", item 1: the byte order mark ahead of it makes the migration pass the item over; take the mark out");
}

Failure StreamReturnRead(const std::string& path) {
  return Finding(path +
                 ": the carriage return at its end goes into the last value; let it end in a line feed alone, or in "
                 "\"|\"");
}

Failure StreamNotMigrated(const std::string& path, long status) {
  std::array<char, 16> code{};
  (void)std::snprintf(code.data(), code.size(), "0x%08X", static_cast<unsigned>(status));
  return Unusable(path + ": the migration left it out with status " + code.data() +
                  "; see that the file can still be read under a name that is UTF-8, and run it again");
}

Failure StreamWithLosses(const std::string& path, std::size_t count) {
  const bool is_one = count == 1;
  return Finding(path + ": " + std::to_string(count) + (is_one ? " value does" : " values do") +
                 " not come over whole, as told on standard error; correct " + (is_one ? "it" : "them") +
                 ", or let the rest be migrated with --lossy");
}

Failure ValueLost(const ExchangedAnalysis& analysis, const Loss& loss, std::string_view form) {
  const std::string row =
      loss.Row == 0 ? "" : ", " + std::string(RowWord(analysis)) + " " + RowText(analysis, loss.Row);
  const std::string value = loss.Value.empty() ? "" : " " + Quoted(loss.Value);
  const std::string what = loss.Cause == LossCause::LineMissing
                               ? ""
                               : (loss.Row == 0 ? "attribute " : "key ") + Excerpt(loss.Name) + value + ": ";
  return Finding(analysis.Source + row + ": " + what + CauseText(loss, form));
}

Failure MoreValuesLost(const ExchangedAnalysis& analysis, std::size_t count) {
  return Finding(analysis.Source + ": " + std::to_string(count) + " more values do not come back");
}

std::vector<Failure> ValuesLost(const ExchangedAnalysis& analysis, const std::vector<Loss>& losses,
                                std::string_view form) {
  std::vector<Failure> told;
  for (std::size_t index = 0; index < std::min(losses.size(), MostLossesTold); ++index) {
    told.push_back(ValueLost(analysis, losses[index], form));
  }
  if (losses.size() > MostLossesTold) told.push_back(MoreValuesLost(analysis, losses.size() - MostLossesTold));
  return told;
}

Failure LeftOutOfForm(const ExchangedAnalysis& analysis, const std::set<std::string>& attributes,
                      const std::set<std::string>& keys, std::string_view form) {
  std::string names;
  if (!attributes.empty()) names += " the attributes " + Listed(attributes);
  if (!keys.empty()) names += (names.empty() ? "" : " and") + std::string(" the line keys ") + Listed(keys);
  return Note(analysis.Source + ": left out, as " + std::string(form) + " has no place for them:" + names);
}

Failure RowsLeftOutOfForm(const ExchangedAnalysis& analysis, std::string_view what, const std::set<int>& rows,
                          std::string_view form) {
  return Note(analysis.Source + ": left out, as " + std::string(form) + " has no place for them: " + std::string(what) +
              " (" + Listed(analysis, rows) + ")");
}

Failure ComputedByCalc(const ExchangedAnalysis& analysis, const std::set<std::string>& attributes,
                       const std::set<int>& rows) {
  std::string what;
  if (!rows.empty()) what += " times (" + Listed(analysis, rows) + ")";
  if (!attributes.empty()) what += (what.empty() ? "" : " and") + std::string(" the totals ") + Listed(attributes);
  return Note(analysis.Source + ": calc computes from the file, to other values than they have here:" + what);
}

Failure ReuseShadowed(const ExchangedAnalysis& analysis, std::string_view reused, std::string_view found) {
  return Finding(analysis.Source + ": the reused analysis " + Quoted(reused) + " is looked for from the folder of " +
                 Quoted(analysis.Identifier) + " upward, where " + Quoted(found) +
                 " is found ahead of it; give one of them another identifier");
}

Failure NothingWritten() {
  return Finding("nothing was written; correct what is told above, or let the rest be written with --lossy");
}

Failure IdentifierNoFileName(std::string_view identifier) {
  return Unusable(
      "the identifier " + Quoted(identifier) +
      " is no name for a file: in one the parts between \"/\" are not empty, begin with no \".\", hold no \"\\\" and "
      "no "
      "control character, are no links, and have at most 255 bytes with the extension; give the analysis another "
      "identifier. It was not written");
}

Failure FileNameTwice(std::string_view identifier) {
  return Unusable("two analyses with the identifier " + Quoted(identifier) +
                  " would be one file; give each its own. Nothing was written");
}

Failure FileIsThere(const std::string& path) {
  return Unusable(path + ": is there already; name another folder, or replace it with --force. It was left as it is");
}

Failure FileNotWritable(const std::string& path, const std::string& cause) {
  return Unusable(path + ": cannot be written: " + cause + ". What stood there was left as it is");
}

Failure NoJsonTemplate(const std::string& name, const std::vector<SearchedPlace>& places) {
  return Unusable("no JSON template " + name + "; searched:" + ListOfPlaces(places) +
                  "\nname the folder that holds JSONTemplates with --catalogue");
}

Failure JsonTemplateNotUsable(const std::string& path, const std::string& what) {
  return Unusable("the JSON template " + path + " does not hold " + what +
                  ", or is no JSON, above 16 MiB, or nested deeper than 1,000 levels; correct it");
}

Failure JsonNotWritable(const std::string& path, const std::string& folder) {
  return Unusable(path + ": its JSON cannot be written in the temporary folder " + folder +
                  "; is the disk full? TMPDIR names another place");
}

}  // namespace tool
