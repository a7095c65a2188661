// Messages about analyses in text files. The words for a cause are written here and nowhere else.
//
// Each names the file and, where there is one, the line; then what is wrong, and what to do about it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Messages.h"

namespace tool {

/// A line of a file; line 0 is the file as a whole.
struct FilePlace {
  std::string Path;
  std::size_t Line = 0;
};

/// A failure that knows its line; the place stands in its words as well.
class PlacedFailure : public Failure {
 public:
  PlacedFailure(const FilePlace& place, const Failure& failure);
  std::size_t GetLine() const { return _Line; }

 private:
  std::size_t _Line;
};

/// The same failure with the place ahead of its words.
PlacedFailure At(const FilePlace& place, const Failure& failure);

// Arguments.
Failure DashIsNoFile(const std::string& command);
Failure TwoForms(const std::string& command);
PlacedFailure NoSuchFileOrFolder(const std::string& path);
PlacedFailure OutsideModelFolder(const std::string& path, const std::string& model);
PlacedFailure FolderNotReadable(const std::string& path, const std::string& cause);
PlacedFailure FolderWithoutAnalyses(const std::string& path);
PlacedFailure AnalysisNotReadable(const std::string& path, const std::string& cause);
PlacedFailure AnalysisOutsideFolder(const std::string& path, const std::string& folder);

// Form of a file.
PlacedFailure NoHeader(const std::string& path);
PlacedFailure NulInRecord(const FilePlace& place);
PlacedFailure RecordTooLong(const FilePlace& place, std::size_t bound);
PlacedFailure OpenQuote(const FilePlace& place);
PlacedFailure TextBehindQuote(const FilePlace& place);
PlacedFailure EmptyProperty(const FilePlace& place, std::string_view name);
PlacedFailure PropertyTwice(const FilePlace& place, std::string_view name);
PlacedFailure UnknownColumns(const FilePlace& place, const std::vector<std::string>& names);
PlacedFailure ColumnTwice(const FilePlace& place, std::string_view name);
PlacedFailure NoTimeGivingColumn(const FilePlace& place);
PlacedFailure FormulaColumnMissing(const FilePlace& place, std::string_view name);
PlacedFailure CellWithoutHeading(const FilePlace& place);
PlacedFailure TooManyCells(const FilePlace& place, std::size_t cells, std::size_t columns);

// Rows.
PlacedFailure FrequencyNoNumber(const FilePlace& place, std::string_view text);
PlacedFailure TimeNoNumber(const FilePlace& place, std::string_view column, std::string_view text);
PlacedFailure TwoTimes(const FilePlace& place);
PlacedFailure UnknownTimeType(const FilePlace& place, std::string_view text);
PlacedFailure UnknownSystemInFile(const FilePlace& place, std::string_view name);
PlacedFailure NoSystem(const FilePlace& place, std::string_view code);
PlacedFailure RowWithoutTime(const FilePlace& place);
PlacedFailure CodeBesideReuse(const FilePlace& place, std::string_view code);
PlacedFailure TimeBesideReuse(const FilePlace& place);
PlacedFailure RecordedWithoutReuse(const FilePlace& place);
PlacedFailure RecordedOutOfDate(const FilePlace& place, std::string_view name, std::string_view recorded,
                                const std::string& present);
PlacedFailure TimeNotFinite(const FilePlace& place);

// Reuse.
PlacedFailure ReuseNameNotPlain(const FilePlace& place, std::string_view name);
PlacedFailure ReusedFileMissing(const FilePlace& place, std::string_view name,
                                const std::vector<std::string>& searched);
PlacedFailure ReuseCircle(const FilePlace& place, const std::vector<std::string>& names);
PlacedFailure IdentifierShared(const FilePlace& place, std::string_view identifier, const std::string& other_path);
PlacedFailure IdentifierWithBar(const FilePlace& place, std::string_view identifier);
PlacedFailure ReusedAnalysisIncomplete(const FilePlace& place, std::string_view name);
PlacedFailure TooManyCarriedParameters(const FilePlace& place, std::string_view rows, std::size_t bound);
PlacedFailure CarriedTimeDiffers(const FilePlace& place, std::string_view name, const std::string& here,
                                 const std::string& there);

// Formulas.
PlacedFailure FormulaIncomplete(const FilePlace& place, std::string_view missing);
PlacedFailure FormulaNotReadable(const FilePlace& place, const std::string& cause);
PlacedFailure FormulaRunFails(const FilePlace& place, const std::string& cause);
PlacedFailure FormulaResultNotUsable(const FilePlace& place, std::string_view output, const std::string& value);
PlacedFailure ValuesNotReadable(const FilePlace& place, std::string_view text);
PlacedFailure ValueTwice(const FilePlace& place, std::string_view name);
PlacedFailure ValueMissing(const FilePlace& place, std::string_view name, std::string_view type);
PlacedFailure ValueWithoutInput(const FilePlace& place, std::string_view name, const std::vector<std::string>& names);
PlacedFailure ValueOfOtherType(const FilePlace& place, std::string_view name, std::string_view value,
                               std::string_view type);

}  // namespace tool
