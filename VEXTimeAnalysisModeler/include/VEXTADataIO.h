// Time analyses as lists of text items: reading one out, writing one in.
//
//   stream    = item { "|" item }                 one text; nothing escapes a separator
//   item      = field { ":" field }               told apart by its first field; any other item is passed over
//   attribute = "AttributeData" ":" key ":" type ":" value
//   cell      = "LineData" ":" table ":" row ":" column ":" type ":" value            what SetAnalysisData reads
//             | "LineData" ":" row ":" column ":" key ":" type ":" value              what GetAnalysisData writes
//
// The two forms of a cell differ, and stay so: a list from GetAnalysisData is not one for SetAnalysisData. In the form
// that is read, row 0 is the header row: the n-th header item that arrives names column n - 1 by the key in its value,
// and the cells behind it (row 1 and above) give their column by that number.
//
// A type is 3 (integer), 5 (real), 8 (text), 11 (boolean) or 13 (another analysis, by its "PLM_ExternalID"). The types
// of the keys are fixed; what an item says is not looked at. Numbers are read and written with "." as decimal
// character in every locale. Times on lines are seconds, and -0.036 stands for no value; attributes are as the analysis
// holds them.
//
// A value that is read ends at its first ":". In a stream it cannot hold a "|" either.
//
// Letters: texts are UTF-8. A byte string that is not valid UTF-8 as a whole, as streams of old systems are, is read as
// Windows-1252 when a KORUnicodeString is made of it, so that every letter of it is kept.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUnicodeString.h"

/// Exchange of time analyses as text. All operations are static; an object of the class holds nothing.
///
/// Threads: an operation runs on the thread of its caller, which is that of the analysis. Distinct analyses may be
/// exchanged on distinct threads at once.
class VEXTIMEANALYSISMODELER_API VEXTADataIO : public KORBaseUnknown {
 public:
  VEXTADataIO() = default;
  VEXTADataIO(const VEXTADataIO&) = default;
  VEXTADataIO& operator=(const VEXTADataIO&) = delete;
  ~VEXTADataIO() override = default;

  /// Cuts a text at every occurrence of a separator. A separator at the end of the text gives a last empty field; a
  /// text without separator is one field; an empty text gives no field.
  ///
  /// separator  one character. Of a longer one the whole is looked for, and what is cut away is as many characters as
  ///            stand ahead of it and one more. An empty one is nowhere.
  ///
  /// Example: ExplodeString(":", "a:b:") gives "a", "b" and an empty text.
  static KORListValKORUnicodeString ExplodeString(const KORUnicodeString& separator, KORUnicodeString text);

  /// Writes an analysis into a list of items: its attributes, in the order of
  /// VEXITimeAnalysisRepReference::GetAllValues, then its lines, cell by cell, in the order of
  /// VEXITimeAnalysisLines::GetLineAttributes. The analysis stays as it is.
  ///
  /// identifier  "PLM_ExternalID" by which the time analyses of the session are searched if none is given
  /// items       [out] one item for each attribute and each cell; what was in the list before goes, unless the
  ///             attributes of the analysis cannot be had: then the cells are appended to it
  /// analysis    the analysis; null: it is looked for
  ///
  /// S_OK, also if attributes or keys of lines have no place in the exchange: each is left out with a line in the
  /// trace. E_FAIL, with `items` left as it was, if no analysis is found. An object that is no time analysis ends the
  /// process.
  ///
  /// A value is written as it stands, ":" included. A line that reuses an analysis gives the identifier of that one
  /// under "subanalysis".
  static long GetAnalysisData(const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                              KORBaseUnknown* analysis);

  /// Fills an analysis from a list of items. The attributes that have an item are set. If the list has an item of the
  /// line table, all lines of the analysis go before the first cell is written, and nothing brings them back. No time
  /// is calculated again and nothing is saved.
  ///
  /// identifier  "PLM_ExternalID" by which the time analyses of the session are searched if none is given
  /// items       in order: header items ahead of the cells that use them, rows rising from 1. Never changed.
  /// analysis    the analysis; null: it is looked for
  ///
  /// Returns the status of the last item that has one; earlier failures do not show in it, and none ends the walk:
  ///   S_OK            the attribute was set, or the line was stored
  ///   E_INVALIDARG    the item is passed over: its key is none of the exchange (told in the trace), its column has no
  ///                   header item, or it has fewer fields than its form; also what a line table gives for a row below
  ///                   0 or beyond the one just past its last
  /// E_FAIL if no item had a status, for an empty list, with nothing changed, and if no analysis is found.
  /// E_NOINTERFACE at the first cell for an object without a line table; what was set before stays. An object that is
  /// no time analysis ends the process.
  ///
  /// A number that cannot be read is 0. A "subanalysis" that is not found leaves the cell as it is, without a word;
  /// each of them costs a search of all analyses of the session. Apart from that the time is proportional to the cells.
  static long SetAnalysisData(const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                              KORBaseUnknown* analysis);

  /// Turns legacy analyses into present ones: for each operation the stream of its old analysis is read
  /// (VEXSTTApplicativeContainerServices::RetrieveDBDIStream), a new analysis takes the place of the old one, and the
  /// stream is written into it. Line feeds, and then "|", at the end of a stream are left out.
  ///
  /// occurrences  occurrences of operations; any other object is passed over
  ///
  /// An operation without an analysis, without a stream, or for which no new analysis can be made, stays as it was, and
  /// the next one is taken. Once the new analysis is in its place nothing is rolled back. An old analysis without
  /// VEXITimeAnalysisProperties ends the whole; in a session that is captured or replayed it raises the null-handle
  /// error. Nothing is calculated and nothing is saved.
  ///
  /// Returns the status of the last step taken for the last operation: E_FAIL if there was none, and for an empty list.
  static long MigrateAllQ4TimeAnalysesToR9(KORListValKORBaseUnknown_var& occurrences);
};
