// Analyses as JSON.
#include "tools/exchange/JsonWriter.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "VEXSTMJSONServices.h"
#include "platform/system/KORFileContent.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/OutputFolder.h"

namespace tool {

namespace {

namespace files = std::filesystem;

constexpr const char* TemplateFolder = "JSONTemplates";
constexpr const char* CompleteTemplate = "TAComplete_Template.JSON";
constexpr const char* LineTemplate = "TALineAttributes_Template.JSON";
constexpr const char* Extension = ".JSON";
constexpr const char* FolderVariable = "KORTemp";
constexpr std::size_t LongestDocument = std::size_t{1} << 30;

// The services look for templates where KORStartupPath says; the folder of the setting "datacardpath" counts, too.
void LetTemplatesBeFound(const Catalogue& catalogue, KORSession& session) {
  std::string path;
  for (const CatalogueFolder& folder : catalogue.GetFolders()) path += (path.empty() ? "" : ":") + folder.Path;
  session.SetEnvironment("KORStartupPath", KORUnicodeString(std::string_view(path)));
}

std::string FindTemplate(const char* name, const Catalogue& catalogue) {
  KORUnicodeString path;
  VEXSTMJSONServices::GetTemplateJSONFilaPath(name, path);
  if (!path.IsEmpty()) return std::string(path.Bytes());
  std::vector<SearchedPlace> places;
  for (const CatalogueFolder& folder : catalogue.GetFolders()) {
    places.push_back({folder.Path + "/" + TemplateFolder + "/" + name, folder.Origin});
  }
  throw NoJsonTemplate(name, places);
}

KOROmxJsonObject ReadTemplate(const std::string& path) {
  return KOROmxJsonObject(KOROmxFilePath(KOROmxUTF8String(KORUnicodeString(std::string_view(path)))));
}

void CheckTemplates(const Catalogue& catalogue) {
  const std::string complete = FindTemplate(CompleteTemplate, catalogue);
  const KOROmxJsonObject document = ReadTemplate(complete);
  if (document.GetJsonType("TAATTRIBUTES") != KOROmxJsonType::Object ||
      document.GetJsonType("TALINESDETAILS") != KOROmxJsonType::Array) {
    throw JsonTemplateNotUsable(complete, "an object \"TAATTRIBUTES\" and an array \"TALINESDETAILS\"");
  }
  const std::string line = FindTemplate(LineTemplate, catalogue);
  KOROmxJsonObject keys = ReadTemplate(line);
  KOROmxKeyString key;
  if (!keys.GetIterator().nextItem(key)) throw JsonTemplateNotUsable(line, "an object with the keys of a line");
}

std::string MakeTemporaryFolder() {
  std::error_code error;
  std::string pattern = (files::temp_directory_path(error) / "timeanalysis-XXXXXX").string();
  if (error || mkdtemp(pattern.data()) == nullptr) {
    throw FileNotWritable(pattern, error ? error.message() : std::generic_category().message(errno));
  }
  return pattern;
}

}  // namespace

JsonWriter::JsonWriter(const Catalogue& catalogue, const Surroundings& surroundings)
    : _Session(surroundings.Session), _FolderBefore(_Session.GetEnvironment(FolderVariable)) {
  LetTemplatesBeFound(catalogue, _Session);
  CheckTemplates(catalogue);
  _Folder = MakeTemporaryFolder();
  _Session.SetEnvironment(FolderVariable, KORUnicodeString(std::string_view(_Folder)));
}

JsonWriter::~JsonWriter() {
  std::error_code ignored;
  files::remove_all(_Folder, ignored);
  _FolderBefore ? _Session.SetEnvironment(FolderVariable, *_FolderBefore) : _Session.UnsetEnvironment(FolderVariable);
}

std::string JsonWriter::DocumentOf(const ExchangedAnalysis& analysis) const {
  const OutputFolder folder(_Folder, Extension, OutputFolder::Present::Replaced);
  if (const auto fault = folder.Check(analysis.Identifier)) throw Failure(*fault);
  const files::path path = files::path(_Folder) / (analysis.Identifier + Extension);
  std::error_code error;
  files::create_directories(path.parent_path(), error);
  KORListValKORBaseUnknown_var list;
  list.Append(KORBaseUnknown_var(analysis.Analysis));
  std::string document;
  std::string cause = error.message();
  const bool is_written = !error && Succeeded(VEXSTMJSONServices::CreateAndUpdateJSONOnTA(list));
  if (!is_written) throw JsonNotWritable(analysis.Source, _Folder);
  if (!KORReadFileContent(path.string(), LongestDocument, document, cause)) {
    throw FileNotWritable(path.string(), cause);
  }
  files::remove(path, error);
  return document;
}

}  // namespace tool
