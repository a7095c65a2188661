// The face of the service library: checks arguments, hands the members over that a room needs, and returns.
#include "VEXSTMTimeAnalysisDlgServices.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "calculation/AnalyzedTime.h"
#include "calculation/AttributeText.h"
#include "calculation/LineFormula.h"
#include "calculation/LineTime.h"
#include "calculation/ReuseTree.h"
#include "codenorm/CodeTime.h"
#include "codenorm/ModaptsNorm.h"
#include "codenorm/MostNorm.h"
#include "codenorm/SequenceText.h"
#include "datacard/AttributeFile.h"
#include "datacard/CatalogueFiles.h"
#include "datacard/CodePattern.h"
#include "datacard/CodeScans.h"
#include "datacard/DataCardScan.h"
#include "datacard/EntryReader.h"
#include "datacard/EntryTable.h"
#include "datacard/PatternMemory.h"
#include "datacard/XmlAccess.h"
#include "objects/AnalysisLookup.h"
#include "objects/AuthoringLoad.h"
#include "platform/base/KORNumberText.h"
#include "platform/system/KORSettingRepository.h"
#include "presentation/Registration.h"
#include "timevalue/DecimalCharacter.h"
#include "timevalue/TextHelpers.h"
#include "timevalue/TimeFormula.h"
#include "timevalue/TimeUnits.h"

namespace {

constexpr std::string_view ChainedSystem = "SAM";  // its codes are chains of parts joined by "+"

/// The setting "mintotmuconversion"; 0 if it is missing.
double ConversionSetting() {
  double tmu_per_minute = 0.0;
  const KORSettingRepository* settings = KORSettingRepository::GetRepository("VEXTimeAnalysisCommonOptions", 0, 1);
  if (settings != nullptr) (void)settings->ReadSetting("mintotmuconversion", tmu_per_minute);
  return tmu_per_minute;
}

template <class Record>
void CopyRecords(Record* target, const KORRawCollPV& sources, int count) {
  if (target == nullptr) return;
  for (int position = 1; position <= std::min(count, sources.Size()); ++position) {
    if (sources[position] != nullptr) target[position - 1] = *static_cast<const Record*>(sources[position]);
  }
}

}  // namespace

VEXSTMTimeAnalysisDlgServices::VEXSTMTimeAnalysisDlgServices() : _MinToTMUConversion(ConversionSetting()) {
}

const KORMetaClass* VEXSTMTimeAnalysisDlgServices::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXSTMTimeAnalysisDlgServices");
  return meta_object;
}

VEXSTMTimeAnalysisDlgServices* VEXSTMTimeAnalysisDlgServices::CreateItself() {
  return new VEXSTMTimeAnalysisDlgServices;
}

// Time formulas

double VEXSTMTimeAnalysisDlgServices::GetTimeFromFormula(KORUnicodeString formula, int& status) {
  return timevalue::TimeOfFormula(formula.Bytes(), _Subsystem.Bytes(), status);
}

long VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar(KORUnicodeString& text) {
  return timevalue::ToDotDecimalCharacter(text);
}

long VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar(KORUnicodeString& text) {
  return timevalue::ToLocalDecimalCharacter(text);
}

// Time values

void VEXSTMTimeAnalysisDlgServices::SetMinToTMUConversionValue(double value) {
  _MinToTMUConversion = value;
}

double VEXSTMTimeAnalysisDlgServices::ConvertFromSecToTmu(double seconds) const {
  return seconds / timevalue::SecondsPerTmu(_MinToTMUConversion);
}

double VEXSTMTimeAnalysisDlgServices::RoundOffTimeValue(double value, double decimals) {
  return timevalue::RoundOff(value, decimals);
}

double VEXSTMTimeAnalysisDlgServices::UnitConvertor(double tmu, int unit, int decimals) const {
  return timevalue::RoundOff(timevalue::FromTmu(tmu, unit, timevalue::SecondsPerTmu(_MinToTMUConversion)), decimals);
}

// Text helpers

unsigned char VEXSTMTimeAnalysisDlgServices::IsStringValueAReal(const KORUnicodeString& text) {
  return timevalue::IsReal(text) ? 1 : 0;
}

unsigned char VEXSTMTimeAnalysisDlgServices::IsStringValueAnInteger(const KORUnicodeString& text) {
  return timevalue::IsInteger(text) ? 1 : 0;
}

KORListValKORUnicodeString VEXSTMTimeAnalysisDlgServices::BreakStringToParams(const KORUnicodeString& separator,
                                                                              KORUnicodeString text) {
  return timevalue::CutAtSeparator(separator.Bytes(), text.Bytes());
}

void VEXSTMTimeAnalysisDlgServices::ConvertColorHexToInt(KORUnicodeString color, int& red, int& green, int& blue) {
  timevalue::SplitColor(color, red, green, blue);
}

void VEXSTMTimeAnalysisDlgServices::SortIntArray(int* array, int count) {
  if (array != nullptr && count > 1) std::sort(array, array + count);
}

// Catalogues

void VEXSTMTimeAnalysisDlgServices::GetDCEXMLFilePath(KORUnicodeString system, KORUnicodeString& path) {
  _Subsystem = std::move(system);
  if (auto found = datacard::FindEntryFile(_Subsystem)) path = *std::move(found);
}

long VEXSTMTimeAnalysisDlgServices::GetDCGsList(KORUnicodeString system, KORListValKORUnicodeString& paths,
                                                KORListValKORUnicodeString& names) {
  _Subsystem = std::move(system);
  datacard::GroupFiles files = datacard::ListGroupFiles(_Subsystem);
  paths = std::move(files.Paths);
  names.Append(files.Names);
  _XMLSyntaxErrors = std::move(files.Messages);
  _DCsWithMissingFields = std::move(files.MissingFields);
  return files.Status;
}

long VEXSTMTimeAnalysisDlgServices::GetDCsWithMissingFieldsList(KORListValKORUnicodeString& names) {
  return datacard::HandOver(_DCsWithMissingFields, names);
}

// XML access

KORIDOMDocument_var VEXSTMTimeAnalysisDlgServices::GetDOMDocument(KORUnicodeString path) {
  return datacard::ParseDocument(path, _XMLSyntaxErrors);
}

KORISAXInputSource_var VEXSTMTimeAnalysisDlgServices::GetSaxInput(KORUnicodeString path) {
  return datacard::InputSourceOf(path);
}

KORIDOMElement_var VEXSTMTimeAnalysisDlgServices::GetRootElement(KORIDOMDocument_var document) {
  return datacard::RootOf(document);
}

long VEXSTMTimeAnalysisDlgServices::GetXMLNode(KORUnicodeString& result, KORUnicodeString tag, KORUnicodeString path) {
  return datacard::CollectTexts(path, tag, _XMLSyntaxErrors, result);
}

KORUnicodeString VEXSTMTimeAnalysisDlgServices::WriteChildNode(KORUnicodeString name, KORUnicodeString value) {
  return KORUnicodeString("<") + name + ">" + value + "</" + name + ">\n";
}

long VEXSTMTimeAnalysisDlgServices::GetXMLSyntaxErrorList(KORListValKORUnicodeString& messages) {
  return datacard::HandOver(_XMLSyntaxErrors, messages);
}

// Codes of a system

long VEXSTMTimeAnalysisDlgServices::ReadDCEntriesFromFile(KORUnicodeString path) {
  if (_DCEntriesDocument.IsNull()) _DCEntriesDocument = GetDOMDocument(path);
  const KORIDOMElement_var root = GetRootElement(_DCEntriesDocument);
  if (root.IsNull() || !_DCEntriesNodeList.IsNull()) return E_FAIL;
  const long status = root.GetElementsByTagName("DATACARDENTRY", _DCEntriesNodeList);
  _DCEntries = std::make_shared<const datacard::EntryTable>(datacard::ReadEntries(_DCEntriesNodeList));
  _DCEntriesCount = static_cast<int>(_DCEntries->Records().size());
  return status;
}

int VEXSTMTimeAnalysisDlgServices::GetDCEntriesCount() const {
  return _DCEntriesCount;
}

const VEXSTMDataCardEntriesScan* VEXSTMTimeAnalysisDlgServices::GetDCEntry(int index) const {
  if (index < 0 || index >= _DCEntriesCount) return nullptr;
  return &_DCEntries->Records()[static_cast<std::size_t>(index)];
}

// Data cards

long VEXSTMTimeAnalysisDlgServices::ReadDCFromFile(KORUnicodeString path, int& card_count, int& entry_count) {
  if (_DCDocument.IsNull()) _DCDocument = GetDOMDocument(path);
  const KORIDOMElement_var root = GetRootElement(_DCDocument);
  if (root.IsNull() || !_DCNodeList.IsNull()) return E_FAIL;
  (void)root.GetElementsByTagName("DATACARD", _DCNodeList);  // the search of the entries tells the status
  KORIDOMNodeList_var entries;
  const long status = root.GetElementsByTagName("DATACARDENTRY", entries);
  card_count = _DCNodeList.GetLength();
  entry_count = entries.GetLength();
  return status;
}

long VEXSTMTimeAnalysisDlgServices::ScanDCFromFile(VEXSTMDataCardScan*& scans, KORListValKORUnicodeString& descriptions,
                                                   int* entry_counts) {
  if (_DCNodeList.IsNull()) return E_FAIL;
  datacard::ScannedCards scanned = datacard::ScanCards(_DCNodeList);
  descriptions = std::move(scanned.Descriptions);
  if (entry_counts != nullptr) std::ranges::copy(scanned.EntryCounts, entry_counts);
  scans = new VEXSTMDataCardScan[scanned.Codes.size()];
  std::ranges::move(scanned.Codes, scans);
  return scanned.Status;
}

void VEXSTMTimeAnalysisDlgServices::CopyDataCardScans(VEXSTMDataCardScan* target, KORRawCollPV sources,
                                                      int count) const {
  CopyRecords(target, sources, count);
}

void VEXSTMTimeAnalysisDlgServices::CopyDataCardEntriesScans(VEXSTMDataCardEntriesScan* target, KORRawCollPV sources) {
  CopyRecords(target, sources, _DCEntriesCount);
}

void VEXSTMTimeAnalysisDlgServices::CopyDataCardCodeScans(VEXSTMDataCardCodeScan* target, KORRawCollPV sources,
                                                          int count) const {
  CopyRecords(target, sources, count);
}

// Code patterns

long VEXSTMTimeAnalysisDlgServices::CreateCodeScanPattern(KORUnicodeString pattern,
                                                          VEXSTMDataCardCodeScan*& tokens) const {
  tokens = datacard::ScansOfPattern(datacard::CodePattern(pattern.Bytes())).release();
  return S_OK;
}

VEXSTMDataCardCodeScan* VEXSTMTimeAnalysisDlgServices::GetDataCardCodeScan(const char* code,
                                                                           VEXSTMDataCardCodeScan* tokens,
                                                                           int& consumed) {
  if (tokens == nullptr) return nullptr;
  return datacard::WalkScans(code == nullptr ? "" : code, _Subsystem.Bytes() == ChainedSystem, tokens, consumed);
}

unsigned char VEXSTMTimeAnalysisDlgServices::CheckDataCardCodePattern(const KORUnicodeString& code,
                                                                      const KORUnicodeString& pattern, int& count,
                                                                      double* values, int* flags) {
  if (pattern.IsEmpty()) return 0;
  datacard::PatternMemory& memory = datacard::PatternMemory::OfThread();
  const datacard::CodePattern& compiled = memory.PatternOf(pattern.Bytes());
  if (!datacard::MatchesWhole(compiled, code.Bytes(), _Subsystem.Bytes() == ChainedSystem, memory.Matches())) return 0;
  count = static_cast<int>(compiled.Size());
  for (std::size_t position = 0; position < compiled.Size(); ++position) {
    const datacard::TokenMatch& match = memory.Matches()[position];
    values[position] = datacard::NumberOf(compiled[position], match);
    flags[position] = match.Matched ? 1 : 0;
  }
  return 1;
}

// Code norms

KORUnicodeString VEXSTMTimeAnalysisDlgServices::ConvertToMOSTNormFormatService(const KORUnicodeString& code,
                                                                               const KORUnicodeString& frequency) {
  int status = 0;  // a frequency that cannot be evaluated counts as 0
  const std::string value = kornumber::PrintReal(GetTimeFromFormula(frequency, status));
  return KORUnicodeString(codenorm::NormOfMostCode(code.Bytes(), value));
}

KORUnicodeString VEXSTMTimeAnalysisDlgServices::ConvertToMOSTNormFormatService(
    const KORUnicodeString& code, const KORUnicodeString& /*frequency*/, const KORListValKORBoolean& bracket_flags) {
  return KORUnicodeString(codenorm::NormOfMostCode(code.Bytes(), bracket_flags));
}

KORUnicodeString VEXSTMTimeAnalysisDlgServices::GetMOSTCodeFromNormFormatService(const KORUnicodeString& norm,
                                                                                 const KORUnicodeString& frequency) {
  return KORUnicodeString(codenorm::MostCodeOfNorm(norm.Bytes(), frequency.Bytes()));
}

KORUnicodeString VEXSTMTimeAnalysisDlgServices::GetMODAPTSCodeFromNormFormatService(const KORUnicodeString& norm) {
  return codenorm::ModaptsCodeOfNorm(norm, _Subsystem.Bytes());
}

unsigned char VEXSTMTimeAnalysisDlgServices::IsSequentialCode(const KORUnicodeString& code) {
  return codenorm::IsSequence(code.Bytes()) ? 1 : 0;
}

void VEXSTMTimeAnalysisDlgServices::GetMOSTProcessTimeCodes(KORListValKORUnicodeString& codes,
                                                            KORListValKORUnicodeString& texts) {
  if (_DCEntries == nullptr) return;
  for (const VEXSTMDataCardEntriesScan& entry : _DCEntries->Records()) {
    if (entry._CodeID.Bytes() != "0") continue;
    codes.Append(entry._Code);
    texts.Append(entry._Text);
  }
}

// Time of a code

void VEXSTMTimeAnalysisDlgServices::GetTimeToCode(KORUnicodeString& code, KORUnicodeString& time,
                                                  KORUnicodeString& description, KORUnicodeString& time_type,
                                                  KORUnicodeString& frequency) {
  if (code.IsEmpty()) {
    _CodeIndex = -1;
    return;
  }
  _TACodeID = KORUnicodeString();
  code.ToUpper();
  const codenorm::CodeTime found = codenorm::LookUpCode(code.Bytes(), _DCEntries.get(), _Subsystem.Bytes());
  time = KORUnicodeString(std::string_view(found.Time));
  if (!found.Entry) return;
  const VEXSTMDataCardEntriesScan& entry = _DCEntries->Records()[*found.Entry];
  description = entry._Text;
  time_type = entry._TimeType;
  frequency = entry._Frequency;
  _CodeIndex = static_cast<int>(*found.Entry);
  _LocalDescription = entry._LocalText;
  _ValueAddedText = entry._ValueAdded;
  _TACodeID = entry._CodeID;
}

void VEXSTMTimeAnalysisDlgServices::GetOptionID(KORUnicodeString code, long& option_id) {
  if (code.IsEmpty()) return;
  code.ToUpper();
  option_id |= codenorm::OptionsOfCode(code.Bytes(), _DCEntries.get(), _Subsystem.Bytes());
}

void VEXSTMTimeAnalysisDlgServices::SubstParameterCode(KORUnicodeString& formula, const double* values,
                                                       const int* flags) const {
  if (values == nullptr || flags == nullptr) return;
  const codenorm::CodeNumbers numbers{{values, codenorm::ReferenceCount}, {flags, codenorm::ReferenceCount}};
  formula = KORUnicodeString(codenorm::Substitute(formula.Bytes(), numbers));
}

// Lines

double VEXSTMTimeAnalysisDlgServices::GetTimeOfLine(int row, KORBaseUnknown* analysis) {
  return calculation::TimeOfLine(row, analysis);
}

double VEXSTMTimeAnalysisDlgServices::GetFrequencyOfLine(int row, KORBaseUnknown* analysis) {
  return calculation::FrequencyOfLine(row, analysis);
}

double VEXSTMTimeAnalysisDlgServices::CalcTotalTimeOfNonFormulaCode(KORBaseUnknown* analysis) {
  return calculation::TimeOfPlainLines(analysis);
}

void VEXSTMTimeAnalysisDlgServices::ReleaseTimeAnalysisLines(KORRawCollPV& lines) {
  calculation::ReleaseLines(lines);
}

long VEXSTMTimeAnalysisDlgServices::GetValue(KORBaseUnknown_var object, KORUnicodeString& name, KORUnicodeString& value,
                                             double& /*real_value*/, int& /*int_value*/) {
  return calculation::AttributeText(object, name, value);
}

// Reuse

KORBaseUnknown_var VEXSTMTimeAnalysisDlgServices::GetReusedTAOfRow(int row, KORBaseUnknown_var analysis) {
  return calculation::ReusedAnalysisOfRow(row, analysis);
}

unsigned char VEXSTMTimeAnalysisDlgServices::IsTAHasReusedLine(const KORBaseUnknown_var& analysis) {
  return calculation::HasReusedLine(analysis) ? 1 : 0;
}

void VEXSTMTimeAnalysisDlgServices::PrepareListOfAllLevelReusedPLMIds(KORBaseUnknown_var analysis,
                                                                      KORListValKORUnicodeString& identifiers,
                                                                      KORRawColldouble& values,
                                                                      KORListValKORBaseUnknown_var& analyses) {
  calculation::ListAllReused(analysis, {identifiers, values, analyses});
}

KORUnicodeString VEXSTMTimeAnalysisDlgServices::GetTAPLMExternalID(KORBaseUnknown* analysis) {
  return calculation::IdentifierOf(analysis);
}

KORBaseUnknown_var VEXSTMTimeAnalysisDlgServices::GetTAFromPLMExternalID(KORUnicodeString identifier) {
  return objects::FindByIdentifier(identifier);
}

long VEXSTMTimeAnalysisDlgServices::LoadRepRef(KORBaseUnknown* analysis) {
  return objects::LoadForAuthoring(analysis);
}

// Calculation

double VEXSTMTimeAnalysisDlgServices::CalculateFormulaOnLineService(KORRawCollPV& parameters,
                                                                    KORUnicodeString& analysis_id,
                                                                    KORBaseUnknown_var reused_analysis,
                                                                    double& frequency, KORUnicodeString& description) {
  return calculation::TimeOfFormulaLine(parameters, analysis_id, reused_analysis, {frequency, description});
}

long VEXSTMTimeAnalysisDlgServices::CalculateAnalyzedTimeBG(const KORBaseUnknown_var& analysis) {
  return calculation::CalculateAnalysis(analysis, timevalue::SecondsPerTmu(_MinToTMUConversion));
}

// User-defined attributes

long VEXSTMTimeAnalysisDlgServices::ReadXMLFileWithUserDefinedAttributes(
    const KORUnicodeString& path, KORListValKORUnicodeString& analysis_attributes,
    KORListValKORUnicodeString& operation_attributes, KORListValKORUnicodeString& system_attributes) {
  return datacard::ReadAttributeNames(GetRootElement(GetDOMDocument(path)), analysis_attributes, operation_attributes,
                                      system_attributes);
}
