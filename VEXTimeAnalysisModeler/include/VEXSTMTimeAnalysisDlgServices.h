// The central service class: time formulas, time values, catalogues of codes, and the time of a code.
#pragma once

#include <memory>

#include "VEXSTMDataCardScans.h"
#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/document/KORXMLDocument.h"
#include "platform/document/KORXMLParser.h"

namespace datacard {
class EntryTable;
}  // namespace datacard

/// Services on time analyses for commands and dialogs.
///
/// A command makes one object for its own use. The object holds the name of the current motion-time system, the
/// parsed entry file of that system and the table of its codes, and at most one data card file; to go over to
/// another system, take a new object. Texts and lists that an operation fills are the caller's.
///
/// Threads: one object serves one thread at a time; distinct objects may be used on distinct threads at once.
/// Copies share the entry table and the parsed documents, which stay alive until the last of them is gone.
class VEXTIMEANALYSISMODELER_API VEXSTMTimeAnalysisDlgServices : public KORBaseUnknown {
 public:
  /// Reads the setting "mintotmuconversion" (TMU per minute) of the repository "VEXTimeAnalysisCommonOptions" in the
  /// current session; without it, and without the repository, the standard 0.036 seconds per TMU hold.
  VEXSTMTimeAnalysisDlgServices();
  VEXSTMTimeAnalysisDlgServices(const VEXSTMTimeAnalysisDlgServices&) = default;
  VEXSTMTimeAnalysisDlgServices& operator=(const VEXSTMTimeAnalysisDlgServices&) = default;
  ~VEXSTMTimeAnalysisDlgServices() override = default;

  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }
  const char* IsA() const override { return ClassName(); }
  int IsAKindOf(const char* name) const override { return GetMetaObject()->IsAKindOf(name) ? 1 : 0; }
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  /// A new object with one reference, which is the caller's.
  static VEXSTMTimeAnalysisDlgServices* CreateItself();

  // ---------------------------------------------------------------------------------------------- Time formulas

  /// Evaluates a time formula in the unit of the data card that it comes from.
  ///
  /// formula  text with "." as decimal character; taken by value, never changed for the caller. Any length is
  ///          evaluated, in time linear in it.
  /// status   [out] 0: evaluated. -1: division by zero outside any argument list. -2: a token can't be read or a
  ///          call failed. Above 0: position (from 1) just behind the last token read before a syntax error, counted
  ///          in the text after the floor words are taken out. Untouched if the formula is empty.
  /// Returns  the value; 0.0 on any status but 0.
  ///
  /// In the system "MTM2" a formula that holds "floor" anywhere is evaluated without that word, and the whole value
  /// is rounded down. In "MOST", "MiniMOST" and "MaxiMOST" the value of a formula that holds "MOST" is rounded down.
  ///
  /// Example: GetTimeFromFormula("2*(1+0.5)", status) gives 3.0 and status 0.
  double GetTimeFromFormula(KORUnicodeString formula, int& status);

  /// Replaces the decimal character of the user's locale by "." in a text. S_OK, also if there was none to replace;
  /// E_FAIL, with the text as it was, for an empty text, a locale whose decimal character is "." or cannot be had.
  static long GetStringWithDotDecimalChar(KORUnicodeString& text);
  /// Replaces "." by the decimal character of the user's locale in a text. S_OK; E_FAIL, with the text as it was, for
  /// a text without ".", a locale whose decimal character is "." or cannot be had.
  static long GetStringWithLocalDecimalChar(KORUnicodeString& text);

  // ------------------------------------------------------------------------------------------------ Time values

  /// Sets the TMU per minute of this object. 0 stands for the standard TMU; nothing is refused.
  void SetMinToTMUConversionValue(double value);

  /// Seconds to TMU, not rounded.
  double ConvertFromSecToTmu(double seconds) const;

  /// Rounds to `decimals` decimal places; a tie goes up, toward plus infinity: 0.125 to 2 places gives 0.13, and
  /// -0.125 gives -0.12. A value whose whole part is beyond 32 bits, or no number, has the whole part -2147483648
  /// taken off and put back, so that it is not rounded rightly.
  static double RoundOffTimeValue(double value, double decimals);

  /// TMU to a display unit, rounded to `decimals` places. Units: 0 seconds, 1 minutes, 2 hours, 3 days, 4 months of 30
  /// days, 5 years of 365 days, 6 TMU of the standard 0.036 seconds, 7 the fixed factor 0.2, 8 to 11 steps of 0.0001,
  /// 0.001, 0.01 and 0.1 minutes and 12 of 0.01 hours at the standard TMU, 13 thousands of seconds, 14 MODAPTS units of
  /// 0.129 seconds. Any other unit gives 0.0.
  double UnitConvertor(double tmu, int unit, int decimals) const;

  // ------------------------------------------------------------------------------------------------ Text helpers

  /// 1 if every character is a digit or the decimal character of the user's locale, else 0. The empty text passes;
  /// signs and exponents do not.
  static unsigned char IsStringValueAReal(const KORUnicodeString& text);
  /// 1 if every character is a digit, else 0. The empty text passes; signs do not.
  static unsigned char IsStringValueAnInteger(const KORUnicodeString& text);

  /// Cuts a text at each separator. The empty text gives no parameter; a separator at an end gives an empty one.
  /// Meant for separators of one character: of a longer one only the first character is taken out, and its tail
  /// stays at the head of the next parameter. An empty separator is found nowhere.
  static KORListValKORUnicodeString BreakStringToParams(const KORUnicodeString& separator, KORUnicodeString text);

  /// Reads a hexadecimal colour text, as "FF8000", into its channels, 0 to 255. The channels are written only if the
  /// text reads as a number above 0 in 32 signed bits, so that black leaves them as they are.
  static void ConvertColorHexToInt(KORUnicodeString color, int& red, int& green, int& blue);

  /// Sorts `count` integers in ascending order, in place. Null, or a count below 2, does nothing.
  static void SortIntArray(int* array, int count);

  // -------------------------------------------------------------------------------------------------- Catalogues

  /// Makes `system` the current system and finds the path of its data card entry file, in the folder
  /// "DataCardEntry" beside the folder that the setting "datacardpath" names, else below the folders of
  /// "KORStartupPath". A name that is no system has the file of "STD".
  ///
  /// path  [out] empty if there is no such file; untouched if there is no settings repository.
  ///
  /// While the recorder captures or replays and "SHOW_LOCALTEXT" is set, the folder is looked for in the recorded run
  /// ("RecDir" in "QRN_TVS_IN") instead of the setting.
  void GetDCEXMLFilePath(KORUnicodeString system, KORUnicodeString& path);

  /// Makes `system` the current system and lists its data card group files, in the order of their names.
  ///
  /// paths  [out] emptied, then the path of each file
  /// names  [out] not emptied: the display name of each file is appended
  /// Returns the status of the last step: S_OK after a listed file, otherwise that of the step that ended the last
  /// file, or of the listing of the folder if it holds no ".xml" file.
  ///
  /// The folder is that of the setting "datacardpath", else "DataCard" below the folders of "KORStartupPath"; while the
  /// recorder captures or replays and "VEX_TVS_TEST_TABLE_DC" is set, "DataCard" in the recorded run. Files that cannot
  /// be used are passed over; GetXMLSyntaxErrorList and GetDCsWithMissingFieldsList tell which and why.
  long GetDCGsList(KORUnicodeString system, KORListValKORUnicodeString& paths, KORListValKORUnicodeString& names);

  /// Hands over the names of the group files for the current system that lack a required element, and forgets them.
  /// S_OK; E_FAIL, with the argument untouched, if there are none.
  long GetDCsWithMissingFieldsList(KORListValKORUnicodeString& names);

  // -------------------------------------------------------------------------------------------------- XML access

  /// Parses a file; each call parses anew. Null on any failure; a failed parse leaves its message for
  /// GetXMLSyntaxErrorList, an input source that cannot be made leaves none.
  KORIDOMDocument_var GetDOMDocument(KORUnicodeString path);
  /// An input source for the parser; null for an empty path.
  KORISAXInputSource_var GetSaxInput(KORUnicodeString path);
  /// The root element; null if the document is null or has no root.
  KORIDOMElement_var GetRootElement(KORIDOMDocument_var document);

  /// Collects the texts of all elements called `tag` in the first data card of a file ("dc_" in the path) or in its
  /// first data card group ("dcg_" in the path), joined by ";". Elements without text keep their place.
  /// S_OK, also for an empty result; E_FAIL, with `result` untouched, if the file cannot be parsed, has no such card
  /// or group, or its path holds neither mark.
  long GetXMLNode(KORUnicodeString& result, KORUnicodeString tag, KORUnicodeString path);

  /// An element as text, closed by a line feed. The value is not escaped.
  /// Example: WriteChildNode("CODE", "X1") gives "<CODE>X1</CODE>\n".
  KORUnicodeString WriteChildNode(KORUnicodeString name, KORUnicodeString value);

  /// Hands over the messages of failed parses, in their order, and forgets them. S_OK; E_FAIL, with the argument
  /// untouched, if there are none.
  long GetXMLSyntaxErrorList(KORListValKORUnicodeString& messages);

  // ------------------------------------------------------------------------------------------- Codes of a system

  /// Reads a data card entry file into the entry table. S_OK on the first good read; E_FAIL if the file cannot be
  /// parsed or has no root, and on every later read, which looks at no file and changes nothing. Whether a table is
  /// loaded is told by GetDCEntriesCount.
  ///
  /// Entries without identifier or code keep their position as records with empty fields.
  long ReadDCEntriesFromFile(KORUnicodeString path);

  /// Number of records in the entry table, and the record at `index` (from 0); null outside the table. The record
  /// lives as long as an object that shares the table.
  int GetDCEntriesCount() const;
  const VEXSTMDataCardEntriesScan* GetDCEntry(int index) const;

  /// Name of the current system as it was given.
  const KORUnicodeString& GetSubsystem() const { return _Subsystem; }

  // -------------------------------------------------------------------------------------------------- Data cards

  /// Reads a data card file: number of cards and of entries. S_OK; E_FAIL, with both counts untouched, if the file
  /// cannot be parsed or has no root, and on every later call of the same object.
  long ReadDCFromFile(KORUnicodeString path, int& card_count, int& entry_count);

  /// Hands out the codes of all cards of the file read, one card behind the other in document order.
  ///
  /// scans         [out] a new array, which the caller releases with delete[]
  /// descriptions  [out] emptied, then the description of each card that has one
  /// entry_counts  [out] an array of the caller with one element per card: its number of entries
  /// S_OK; E_FAIL, with all arguments untouched, if no file has been read. Null entry_counts is not written.
  long ScanDCFromFile(VEXSTMDataCardScan*& scans, KORListValKORUnicodeString& descriptions, int* entry_counts);

  /// Copy the records that `sources` points at into the elements of `target`, by position; an element whose source is
  /// null or missing stays as it is. The records stay the caller's. The catalogue records are as many as the entry
  /// table holds.
  void CopyDataCardScans(VEXSTMDataCardScan* target, KORRawCollPV sources, int count) const;
  void CopyDataCardEntriesScans(VEXSTMDataCardEntriesScan* target, KORRawCollPV sources);
  void CopyDataCardCodeScans(VEXSTMDataCardCodeScan* target, KORRawCollPV sources, int count) const;

  // ----------------------------------------------------------------------------------------------- Code patterns

  /// Compiles a code pattern into a new array of tokens, closed by a token of type 7, which the caller releases with
  /// delete[]. Always S_OK. Blanks and line feeds between tokens are passed over.
  long CreateCodeScanPattern(KORUnicodeString pattern, VEXSTMDataCardCodeScan*& tokens) const;

  /// Matches the rest of a code against one level of a pattern: the whole pattern, or the inside of a group.
  ///
  /// code      the rest of the code, upper case, without blanks; null counts as empty
  /// tokens    first token of the level; its array ends with a token of type 7. Matched tokens are marked in place.
  /// consumed  [in, out] the number of bytes matched is added; of a level that fails, what it had matched before
  /// Returns   the token at which the level ended; null if it failed, and for null tokens.
  VEXSTMDataCardCodeScan* GetDataCardCodeScan(const char* code, VEXSTMDataCardCodeScan* tokens, int& consumed);

  /// Matches a whole code against a pattern.
  ///
  /// count   [out] number of tokens
  /// values  [out] one element per token: the number that a parameter read, 0.0 for other tokens
  /// flags   [out] one element per token: 1 if the token took part in the match, else 0
  /// Returns 1 if the whole code matches; 0, with the outputs untouched, if not. The arrays are the caller's and must
  /// hold as many elements as the pattern has tokens. Each thread remembers the patterns that it has compiled, up to a
  /// bound.
  unsigned char CheckDataCardCodePattern(const KORUnicodeString& code, const KORUnicodeString& pattern, int& count,
                                         double* values, int* flags);

  // -------------------------------------------------------------------------------------------------- Code norms

  /// MOST code form to norm format; tokens whose frequency is that of the line stand in brackets.
  /// A code that does not begin with "A" comes back unchanged. A token without "-" has an empty frequency.
  ///
  /// Example: "A1-1 B0-1 G1-1 A1-3 B0-3 P3-3 A0-1" with frequency "3" gives "A1B0G1(A1B0P3)A0".
  KORUnicodeString ConvertToMOSTNormFormatService(const KORUnicodeString& code, const KORUnicodeString& frequency);
  /// The same with one flag per parameter that tells whether it stands in a bracket; parameters behind the last flag
  /// are dropped.
  KORUnicodeString ConvertToMOSTNormFormatService(const KORUnicodeString& code, const KORUnicodeString& frequency,
                                                  const KORListValKORBoolean& bracket_flags);
  /// MOST norm format to code form; the frequency text goes on the parameters in brackets as it stands.
  /// A text that begins with neither "A" nor "(" comes back unchanged.
  KORUnicodeString GetMOSTCodeFromNormFormatService(const KORUnicodeString& norm, const KORUnicodeString& frequency);

  /// MODAPTS sequence, with multipliers ahead of brackets, to code form. A single code comes back unchanged; "0" if the
  /// text holds a character that has no place in it.
  ///
  /// Example: "M4G1 3(M3P0)" gives "M4-1 G1-1 M3-3.0001 P0-3.0001 ".
  KORUnicodeString GetMODAPTSCodeFromNormFormatService(const KORUnicodeString& norm);

  /// 1 if the code is a sequence of parameters, 0 if it is one plain code: its letters all stand together.
  unsigned char IsSequentialCode(const KORUnicodeString& code);

  /// Appends the codes and descriptions of the process-time entries, those with the identifier "0", of the table.
  void GetMOSTProcessTimeCodes(KORListValKORUnicodeString& codes, KORListValKORUnicodeString& texts);

  // ----------------------------------------------------------------------------------------------- Time of a code

  /// Looks a typed code up in the entry table of the current system.
  ///
  /// code         [in, out] changed to upper case in place
  /// time         [out] time in the unit of the entry file, printed with six significant digits; "0" for a code that
  ///              is not known, "0.0" for one whose formula is "0"
  /// description, time_type, frequency  [out] of the last entry that matches; untouched if none does
  ///
  /// An empty code writes nothing. Otherwise GetTACodeID tells whether an entry matched: it is empty if none did, or
  /// if that entry has no identifier. GetLocalDescription and GetValueAdded keep the values of the last match.
  void GetTimeToCode(KORUnicodeString& code, KORUnicodeString& time, KORUnicodeString& description,
                     KORUnicodeString& time_type, KORUnicodeString& frequency);

  /// Combines the option bits that a code selects into `option_id`, which the caller starts; it is never cleared.
  void GetOptionID(KORUnicodeString code, long& option_id);

  /// Replaces each "$n$" of a formula by the value at position n if its flag is set, else by nothing. The arrays are
  /// the caller's and hold 2000 elements; an n outside 0 to 1999 counts as not set.
  void SubstParameterCode(KORUnicodeString& formula, const double* values, const int* flags) const;

  KORUnicodeString GetLocalDescription() const { return _LocalDescription; }
  KORUnicodeString GetTACodeID() const { return _TACodeID; }
  KORUnicodeString GetValueAdded() const { return _ValueAddedText; }
  /// Index (from 0) in the entry table of the last entry that matched; -1 before any match and after an empty code.
  int GetCodeIndex() const { return _CodeIndex; }

  // ------------------------------------------------------------------------------------------------ Lines

  /// Stored time of a line for one occurrence, in seconds, by its time type: from "TTBTime", "TTUTime", "TWTime" or
  /// "TRGTime"; for "T**" from "TotalTime", which holds the frequency already.
  ///
  /// row  from 1; a row that is not there has no values
  /// Returns 0.0 for any other time type, for a missing value, and if `analysis` is null or offers no lines.
  static double GetTimeOfLine(int row, KORBaseUnknown* analysis);

  /// Stored frequency of a line ("Factor"); the marker -1.0 comes back as it is. 1.0 if the line has none, and if
  /// `analysis` is null or offers no lines.
  static double GetFrequencyOfLine(int row, KORBaseUnknown* analysis);

  /// Sum over the lines without formula parameters of time by frequency, in seconds. A frequency of -1.0 counts as 1.0;
  /// any other that is not above 0, and a missing one, adds nothing, nor does a line whose time type is "T**" or
  /// unknown. 0.0 if `analysis` is null; raises the null-handle error if it offers no lines.
  static double CalcTotalTimeOfNonFormulaCode(KORBaseUnknown* analysis);

  /// Gives back the records of a list from VEXITimeAnalysisLines::GetLines: frees the formula parameters of each,
  /// releases it, and empties the list. Null entries are passed over.
  static void ReleaseTimeAnalysisLines(KORRawCollPV& lines);

  /// Reads an attribute of an object as text: of the object itself if it offers KORIInstance and has the attribute,
  /// otherwise, for an operation occurrence, of the reference behind its instance.
  ///
  /// value       [out] the text; untouched unless the attribute was found
  /// real_value, int_value  not used
  /// Returns the status of reading the text; E_FAIL if the object is no KORIInstance, is no occurrence, or the way to
  /// its reference fails; the status of that way if the reference lacks the attribute too.
  long GetValue(KORBaseUnknown_var object, KORUnicodeString& name, KORUnicodeString& value, double& real_value,
                int& int_value);

  // ------------------------------------------------------------------------------------------------ Reuse

  /// The analysis that a row (from 1) reuses; null if it reuses none, and if `analysis` is null or offers no lines.
  static KORBaseUnknown_var GetReusedTAOfRow(int row, KORBaseUnknown_var analysis);

  /// 1 if any line reuses an analysis; 0 if none does, or if `analysis` offers no attributes or no lines.
  unsigned char IsTAHasReusedLine(const KORBaseUnknown_var& analysis);

  /// Lists an analysis and all that it reuses, at any depth: depth first, an analysis ahead of those that it reuses,
  /// each identifier once.
  ///
  /// identifiers, values, analyses  [in, out] parallel; for each identifier that is not in the list yet, the identifier
  ///     ("PLM_ExternalID"), 0.0 and the analysis are appended
  ///
  /// Does nothing for null and for an object without VEXITimeAnalysisRepReference; raises the null-handle error for an
  /// analysis without properties or lines. An analysis that is met again on the way down from itself is not entered
  /// again, so that circles of reuse end. The time taken is linear in the lines, however often an analysis is reused,
  /// and the depth has no bound.
  static void PrepareListOfAllLevelReusedPLMIds(KORBaseUnknown_var analysis, KORListValKORUnicodeString& identifiers,
                                                KORRawColldouble& values, KORListValKORBaseUnknown_var& analyses);

  /// The identifier ("PLM_ExternalID") of an analysis; empty for null and for an object without properties.
  static KORUnicodeString GetTAPLMExternalID(KORBaseUnknown* analysis);

  /// The first time analysis that the query for that "PLM_ExternalID" finds; null if it finds none.
  static KORBaseUnknown_var GetTAFromPLMExternalID(KORUnicodeString identifier);

  /// Brings an analysis into the mode "Authoring_Mode" and loads its applicative container. The status of the last step
  /// taken: of the switch engine, of the preparation, of the switch, of the container. Success without anything done
  /// for null, and if there is no engine though its status is a success.
  static long LoadRepRef(KORBaseUnknown* analysis);

  // ------------------------------------------------------------------------------------------------ Calculation

  /// Evaluates the formulas of a line with the values of its parameters.
  ///
  /// parameters       VEXTimeAnalysisFormulaParameter records or null, as under "FormulaParameter"; none is changed
  /// analysis_id      identifier of the analysis that holds the line
  /// reused_analysis  the analysis that the line reuses; null for a formula of the line's own
  /// frequency        [in, out] changed only by a formula of the line's own analysis, to its output "Frequency" if
  ///                  that is not -1
  /// description      [in, out] changed only by such a formula, to its output "Description" if that is not empty
  /// Returns          the time of the line for one occurrence, in seconds. 0.0 also for an empty list, and as soon as a
  ///                  formula is not valid or one of its parameters is null.
  ///
  /// A formula of the line's own analysis counts with its time alone. One of a reused analysis counts with its time by
  /// its frequency, together with the plain lines of that analysis; where its time or frequency is left open (at most
  /// 0.0, -1.0), the stored line of the formula, or the total found so far of what that line reuses, takes its place.
  double CalculateFormulaOnLineService(KORRawCollPV& parameters, KORUnicodeString& analysis_id,
                                       KORBaseUnknown_var reused_analysis, double& frequency,
                                       KORUnicodeString& description);

  /// Recomputes a whole analysis: brings the formula lines up to date, stores the lines, and writes the totals.
  ///
  /// The sums by time type and of all lines go to "TTBCalculated", "TTUCalculated", "TWCalculated", "TRGCalculated" and
  /// "TotalCalculated" in TMU, and to "V_HumanTime", "V_MachineTime", "V_WaitingTime", "V_SetupTime" and "V_TotalTime"
  /// in seconds, rounded to 6 decimals. Lines with the code "*" or without one take no part and are not stored. A plain
  /// line keeps its stored times; a reused analysis is not itself recomputed.
  ///
  /// Returns the status of the last write; E_FAIL, with nothing changed, if `analysis` offers no attributes or no
  /// lines. A failure in between leaves what was written before it.
  long CalculateAnalyzedTimeBG(const KORBaseUnknown_var& analysis);

  // ------------------------------------------------------------------------------------- User-defined attributes

  /// Reads the names of user-defined attributes from a file and appends them to the three lists.
  /// S_OK; E_FAIL if the file cannot be parsed, has no root, or lacks one of the three kinds, in which case the names
  /// of the kinds before it are in their lists.
  long ReadXMLFileWithUserDefinedAttributes(const KORUnicodeString& path,
                                            KORListValKORUnicodeString& analysis_attributes,
                                            KORListValKORUnicodeString& operation_attributes,
                                            KORListValKORUnicodeString& system_attributes);

 private:
  KORIDOMDocument_var _DCEntriesDocument;
  KORIDOMNodeList_var _DCEntriesNodeList;
  KORIDOMDocument_var _DCDocument;
  KORIDOMNodeList_var _DCNodeList;
  KORUnicodeString _Subsystem;
  std::shared_ptr<const datacard::EntryTable> _DCEntries;  // shared by copies of the object
  int _DCEntriesCount = 0;
  int _CodeIndex = -1;
  double _MinToTMUConversion = 0.0;
  KORListValKORUnicodeString _XMLSyntaxErrors;
  KORListValKORUnicodeString _DCsWithMissingFields;
  KORUnicodeString _LocalDescription;
  KORUnicodeString _TACodeID;
  KORUnicodeString _ValueAddedText;
};
