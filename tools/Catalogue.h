// Where the catalogue is, and the services of its systems.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tools/Answers.h"
#include "tools/CommandLine.h"
#include "tools/Messages.h"
#include "tools/Surroundings.h"

namespace tool {

/// A folder that may hold the folders DataCardEntry and DataCard, and what named it.
struct CatalogueFolder {
  std::string Path;
  std::string Origin;
};

/// Makes `system` the current one of the service, whose rules go by its name; no file is read. Does nothing for an
/// empty name.
void SelectSystem(const std::string& system, VEXSTMTimeAnalysisDlgServices& service);

/// Finds the files of a catalogue. The folders are searched in this order:
///
///   1. --catalogue, and then nothing else
///   2. the setting "datacardpath": the folder DataCardEntry beside the folder that it names
///   3. the folders of the environment variable "KORStartupPath"
///   4. the installed catalogue, relative to the folder of the program
///
/// The settings are those of --settings, else of timeanalysis/VEXTimeAnalysisCommonOptions.settings below
/// $XDG_CONFIG_HOME or ~/.config, if that file is there.
class Catalogue {
 public:
  /// Reads the settings and puts the folders into the current session, where the services look for them.
  Catalogue(const CommandLine& line, const Surroundings& surroundings);

  /// Tells of a setting "mintotmuconversion" that is no number above 0; the services take what they can make of it.
  void TellOfSettings(Answers& answers) const;

  const std::vector<CatalogueFolder>& GetFolders() const { return _Folders; }

  /// The folder of the data card group files; empty if there is none.
  const std::string& GetCardFolder() const { return _CardFolder; }

  /// Path of the system's entry file; empty if there is none.
  std::string FindEntryFile(const std::string& system) const;

  /// Makes `system` the current one of the service and reads its entry file; returns the file's path. Raises
  /// NoEntryFile and EntryFileNotReadable.
  std::string Open(const std::string& system, VEXSTMTimeAnalysisDlgServices& service) const;

  /// Every path at which the entry file of the system is looked for.
  std::vector<SearchedPlace> PlacesOf(const std::string& system) const;
  /// Every folder in which entry files are looked for.
  std::vector<SearchedPlace> Places() const;

 private:
  std::vector<CatalogueFolder> _Folders;
  std::string _CardFolder;
  std::optional<std::string> _UnusableConversion;
};

}  // namespace tool
