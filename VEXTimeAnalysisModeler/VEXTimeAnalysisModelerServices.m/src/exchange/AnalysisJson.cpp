// A JSON copy of a time analysis, as a stream on it: the templates are filled with its values, written to a file, and
// the file is added to the analysis.
#include "exchange/AnalysisJson.h"

#include <optional>
#include <string_view>
#include <utility>

#include "exchange/JoinPath.h"
#include "exchange/JsonTemplate.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/services/KORVVSUrl.h"
#include "platform/system/KORFiles.h"
#include "platform/system/KORRecord.h"
#include "platform/system/KORSystem.h"

namespace exchange {
namespace {

constexpr const char* TemplateFolder = "JSONTemplates";
constexpr const char* CompleteTemplateName = "TAComplete_Template.JSON";
constexpr const char* LineTemplateName = "TALineAttributes_Template.JSON";
constexpr const char* AttributesKey = "TAATTRIBUTES";
constexpr const char* LinesKey = "TALINESDETAILS";
constexpr const char* FileExtension = ".JSON";
constexpr const char* StreamFormat = "JSON";

KOROmxJsonObject ReadTemplate(const char* name) {
  return KOROmxJsonObject(KOROmxFilePath(KOROmxUTF8String(FindJsonTemplate(name))));
}

KOROmxJsonObject AttributesIn(const KOROmxJsonObject& document) {
  KOROmxJsonObject attributes;
  (void)document.GetJsonObject(AttributesKey, attributes);  // none if the template has no such object
  return attributes;
}

KOROmxJsonArray LinesIn(const KOROmxJsonObject& document) {
  KOROmxJsonArray lines;
  (void)document.GetJsonArray(LinesKey, lines);  // none if the template has no such array
  return lines;
}

/// The template of the whole file, with its two sections, which are made out of it, at hand.
struct CompleteTemplate {
  KOROmxJsonObject Document = ReadTemplate(CompleteTemplateName);
  JsonTemplate Attributes{AttributesIn(Document)};
  KOROmxJsonArray Lines = LinesIn(Document);
};

/// Both templates, each read from its file when it is first wanted and kept for the analyses and lines that follow.
class Templates {
 public:
  const CompleteTemplate& Complete() {
    if (!_Complete) _Complete.emplace();
    return *_Complete;
  }
  const JsonTemplate& Line() {
    if (!_Line) _Line.emplace(ReadTemplate(LineTemplateName));
    return *_Line;
  }

 private:
  std::optional<CompleteTemplate> _Complete;
  std::optional<JsonTemplate> _Line;
};

// The lines of an analysis in the places of as many elements of the template; what the template has beyond stays.
KOROmxJsonArray ArrayOfLines(VEXITimeAnalysisLines& lines, KOROmxJsonArray array, Templates& templates) {
  int count = 0;
  (void)lines.GetLineCount(count);
  for (int row = 1; row <= count; ++row) {
    VEXTimeAnalysisLineData line;
    (void)lines.GetLine(row, line);
    KOROmxJsonObject object = templates.Line().FilledFrom(line);
    (void)line.ClearFormulaAndParamters();
    (void)array.Remove(row);  // nothing to remove behind the elements of the template
    (void)array.PutJsonObject(row, std::move(object));
  }
  return array;
}

KOROmxJsonObject JsonOfAnalysis(const KORBaseUnknown_var& analysis, Templates& templates) {
  const CompleteTemplate& complete = templates.Complete();
  KOROmxJsonObject document = complete.Document;
  const VEXITimeAnalysisRepReference_var attributes = analysis;
  if (!attributes.IsNull()) {
    (void)document.PutJsonObject(AttributesKey, complete.Attributes.FilledFrom(*attributes));
  }
  const VEXITimeAnalysisLines_var lines = analysis;
  if (!lines.IsNull()) (void)document.PutJsonArray(LinesKey, ArrayOfLines(*lines, complete.Lines, templates));
  return document;
}

KORUnicodeString FolderOfFiles() {
  const KORRecord* const recorder = KORRecord::GetMain();
  const bool is_recorded = recorder->IsCapture() != 0 || recorder->IsReplay() != 0;
  return KORGetEnv(is_recorded ? "QRN_TVS_TMP" : "KORTemp");
}

// A file that cannot be written whole is not there afterwards, and so cannot be added: that tells of it.
long WriteFile(const KORUnicodeString& path, const KORUnicodeString& text) {
  int descriptor = 0;
  const long status = KORFOpen(path, "w", descriptor);
  if (Failed(status)) return status;
  if (!text.IsEmpty()) (void)KORFWrite(descriptor, text.ConvertToChar(), text.Bytes().size());
  (void)KORFClose(descriptor);
  return status;
}

}  // namespace

KORUnicodeString FindJsonTemplate(const KORUnicodeString& name) {
  const char* const separator = KORSeparatesWithSlash() ? "/" : "\\";
  return KORFindPath(KORUnicodeString(TemplateFolder) + separator + name, KORGetEnv("KORStartupPath"));
}

bool HasJson(const KORBaseUnknown_var& analysis) {
  if (analysis.IsNull()) return false;
  for (const KORIOmbStreamDescriptor_var stream : KOROmbNonZENTAStreamsManager(analysis).GetSDFamily(0)) {
    KORUnicodeString format;
    if (!stream.IsNull()) (void)stream->GetStreamFormat(format);
    if (format == StreamFormat) return true;
  }
  return false;
}

KOROmxJsonObject JsonOfLine(const VEXTimeAnalysisLineData& line) {
  return JsonTemplate(ReadTemplate(LineTemplateName)).FilledFrom(line);
}

long AttachJson(const KOROmxJsonObject& json, const VEXITimeAnalysisRepReference_var& analysis) {
  const VEXITimeAnalysisProperties_var properties = analysis;
  if (properties.IsNull()) return E_INVALIDARG;
  KORUnicodeString identifier;
  (void)properties->GetValue("PLM_ExternalID", identifier);
  const std::optional<KORUnicodeString> path = JoinPath(FolderOfFiles(), identifier + FileExtension);
  if (!path) return E_INVALIDARG;
  if (const long status = WriteFile(*path, json.ToString()); Failed(status)) return status;
  KORVVSUrl url;
  (void)KORVVSUrlUtils::FromNativeFilePathToUrl(*path, url);  // a URL that names nothing cannot be added
  return KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(analysis, StreamFormat, identifier, url, 0);
}

long AttachJsonToAll(const KORListValKORBaseUnknown_var& analyses) {
  Templates templates;
  long status = S_OK;
  for (const KORBaseUnknown_var& analysis : analyses) {
    if (!HasJson(analysis)) status = AttachJson(JsonOfAnalysis(analysis, templates), analysis);
  }
  return status;
}

}  // namespace exchange
