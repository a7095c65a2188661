// Where the catalogue is, and the services of its systems.
#include "tools/Catalogue.h"

#include <cmath>
#include <filesystem>
#include <system_error>

#include "platform/system/KORSettingRepository.h"
#include "platform/system/KORSystem.h"
#include "tools/Systems.h"

namespace tool {

namespace {

constexpr const char* RepositoryName = "VEXTimeAnalysisCommonOptions";
constexpr const char* EntryFolder = "DataCardEntry";
constexpr const char* CardFolder = "DataCard";

std::string Environment(const KORSession& session, const char* name) {
  const auto value = session.GetEnvironment(name);
  return value ? std::string(value->Bytes()) : std::string();
}

void LoadSettings(KORSettingRepository& repository, const std::string& path) {
  const int fault = repository.LoadFile(path);
  if (fault < 0) throw SettingsNotReadable(path);
  if (fault > 0) throw SettingsLineNotReadable(path, fault);
}

// The user's own settings file, if there is one.
std::string UserSettings(const KORSession& session) {
  std::string folder = Environment(session, "XDG_CONFIG_HOME");
  if (folder.empty()) {
    const std::string home = Environment(session, "HOME");
    if (home.empty()) return {};
    folder = home + "/.config";
  }
  const std::string path = folder + "/timeanalysis/" + RepositoryName + ".settings";
  std::error_code error;
  return std::filesystem::exists(path, error) ? path : std::string();
}

// The setting of TMU per minute, if it is there and no number above 0.
std::optional<std::string> UnusableConversion(const KORSettingRepository& repository) {
  KORUnicodeString text;
  if (Failed(repository.ReadSetting("mintotmuconversion", text))) return std::nullopt;
  double number = 0.0;
  const bool read = Succeeded(repository.ReadSetting("mintotmuconversion", number));
  if (read && std::isfinite(number) && number > 0.0) return std::nullopt;
  return std::string(text.Bytes());
}

void AppendFolders(std::vector<CatalogueFolder>& folders, const std::string& list, const std::string& origin) {
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t end = std::min(list.find(':', start), list.size());
    if (end > start) folders.push_back({list.substr(start, end - start), origin});
    start = end + 1;
  }
}

std::string SearchPath(const std::vector<CatalogueFolder>& folders) {
  std::string path;
  for (const CatalogueFolder& folder : folders) path += (path.empty() ? "" : ":") + folder.Path;
  return path;
}

}  // namespace

void SelectSystem(const std::string& system, VEXSTMTimeAnalysisDlgServices& service) {
  KORUnicodeString path;  // where its file is, which nobody asks here
  if (!system.empty()) service.GetDCEXMLFilePath(KORUnicodeString(std::string_view(system)), path);
}

Catalogue::Catalogue(const CommandLine& line, const Surroundings& surroundings) {
  KORSession& session = surroundings.Session;
  KORSettingRepository& repository = session.AddRepository(RepositoryName);
  const std::string settings = line.Settings.empty() ? UserSettings(session) : line.Settings;
  if (!settings.empty()) LoadSettings(repository, settings);
  _UnusableConversion = UnusableConversion(repository);

  std::vector<CatalogueFolder> startup;
  if (!line.Catalogue.empty()) {
    if (line.Catalogue.find(':') != std::string::npos) throw FolderWithColon(line.Catalogue);
    repository.WriteSetting("datacardpath", "");
    startup.push_back({line.Catalogue, "the catalogue folder named"});
  } else {
    KORUnicodeString cards;
    KORUnicodeString beside;
    KORUnicodeString last;
    repository.ReadSetting("datacardpath", cards);
    if (!cards.IsEmpty() && Succeeded(KORSplitPath(cards, beside, last))) {
      _CardFolder = cards.Bytes();
      _Folders.push_back({std::string(beside.Bytes()), "setting datacardpath in " + settings});
    }
    AppendFolders(startup, Environment(session, "KORStartupPath"), "environment variable KORStartupPath");
    if (!surroundings.ProgramFolder.empty()) {
      const auto installed = std::filesystem::path(surroundings.ProgramFolder) / TIMEANALYSIS_CATALOGUE_FROM_TOOL;
      startup.push_back({installed.lexically_normal().string(), "installed catalogue"});
    }
  }
  const KORUnicodeString search_path{std::string_view(SearchPath(startup))};
  session.SetEnvironment("KORStartupPath", search_path);
  if (_CardFolder.empty()) _CardFolder = KORFindPath(CardFolder, search_path).Bytes();
  _Folders.insert(_Folders.end(), startup.begin(), startup.end());
}

void Catalogue::TellOfSettings(Answers& answers) const {
  if (_UnusableConversion) answers.Tell(ConversionNotUsable(*_UnusableConversion));
}

std::string Catalogue::FindEntryFile(const std::string& system) const {
  VEXSTMTimeAnalysisDlgServices service;
  KORUnicodeString path;
  service.GetDCEXMLFilePath(KORUnicodeString(std::string_view(system)), path);
  return std::string(path.Bytes());
}

std::string Catalogue::Open(const std::string& system, VEXSTMTimeAnalysisDlgServices& service) const {
  KORUnicodeString path;
  service.GetDCEXMLFilePath(KORUnicodeString(std::string_view(system)), path);
  if (path.IsEmpty()) throw NoEntryFile(system, PlacesOf(system));
  if (Failed(service.ReadDCEntriesFromFile(path))) {
    KORListValKORUnicodeString messages;
    std::string cause;
    if (service.GetXMLSyntaxErrorList(messages) == S_OK && messages.Size() > 0) {
      cause = messages[messages.Size()].Bytes();
    }
    throw EntryFileNotReadable(system, std::string(path.Bytes()), cause);
  }
  return std::string(path.Bytes());
}

std::vector<SearchedPlace> Catalogue::PlacesOf(const std::string& system) const {
  std::vector<SearchedPlace> places = Places();
  for (SearchedPlace& place : places) place.Path += "/" + EntryFileOf(system);
  return places;
}

std::vector<SearchedPlace> Catalogue::Places() const {
  std::vector<SearchedPlace> places;
  for (const CatalogueFolder& folder : _Folders) places.push_back({folder.Path + "/" + EntryFolder, folder.Origin});
  return places;
}

}  // namespace tool
