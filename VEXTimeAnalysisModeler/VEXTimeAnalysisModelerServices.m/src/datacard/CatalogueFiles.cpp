// Where the files of the catalogues lie, and which of them belong to a motion-time system.
#include "datacard/CatalogueFiles.h"

#include <array>
#include <string_view>

#include "datacard/XmlAccess.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORRecord.h"
#include "platform/system/KORSettingRepository.h"
#include "platform/system/KORSystem.h"

namespace datacard {
namespace {

struct SystemFile {
  std::string_view System;
  const char* File;
};

// clang-format off
constexpr std::array<SystemFile, 12> EntryFiles{{
    {"STD",      "dce_std.xml"},
    {"UAS",      "dce_uas.xml"},
    {"MEK",      "dce_mek.xml"},
    {"AZB",      "dce_azb.xml"},
    {"MTM1",     "dce_mtm1.xml"},
    {"MTM2",     "dce_mtm2.xml"},
    {"RWF",      "dce_rwf.xml"},
    {"SAM",      "dce_sam.xml"},
    {"MOST",     "dce_most.xml"},
    {"MiniMOST", "dce_minimost.xml"},
    {"MaxiMOST", "dce_maximost.xml"},
    {"MODAPTS",  "dce_modapts.xml"},
}};
// clang-format on
constexpr const char* EntryFileOfOtherNames = "dce_std.xml";

constexpr const char* EntryFolder = "DataCardEntry";
constexpr const char* GroupFolder = "DataCard";
constexpr const char* StartupPath = "KORStartupPath";

const char* EntryFileOf(const KORUnicodeString& system) {
  for (const SystemFile& candidate : EntryFiles) {
    if (candidate.System == system.Bytes()) return candidate.File;
  }
  return EntryFileOfOtherNames;
}

bool IsRecording() {
  const KORRecord* recorder = KORRecord::GetMain();
  return recorder->IsCapture() != 0 || recorder->IsReplay() != 0;
}

KORSettingRepository* Settings() {
  return KORSettingRepository::GetRepository("VEXTimeAnalysisCommonOptions", 0, 1);
}

KORUnicodeString CardFolderSetting(const KORSettingRepository& settings) {
  KORUnicodeString folder;
  (void)settings.ReadSetting("datacardpath", folder);  // stays empty if it is not set
  return folder;
}

KORUnicodeString RecordedRunFolder() {
  return KORFindPath(KORGetEnv("RecDir"), KORGetEnv("QRN_TVS_IN"));
}

KORUnicodeString FindGroupFolder() {
  KORUnicodeString folder = KORFindPath(GroupFolder, KORGetEnv(StartupPath));
  if (IsRecording()) {
    if (VEXSTMMiscUtils::IsEnvVariableSet("VEX_TVS_TEST_TABLE_DC", 1) == 0) return folder;
    const KORUnicodeString run = RecordedRunFolder();
    return run.IsEmpty() ? folder : KORFindPath(GroupFolder, run);
  }
  const KORSettingRepository* settings = Settings();
  if (settings == nullptr) return folder;
  const KORUnicodeString setting = CardFolderSetting(*settings);
  return setting.IsEmpty() ? folder : setting;
}

/// Only a file whose name claims it for the system is reported.
bool ClaimsSystem(const KORUnicodeString& file, const KORUnicodeString& system) {
  KORUnicodeString lower = system;
  lower.ToLower();
  return file.SearchSubString("dcg") >= 0 && (file.SearchSubString(system) >= 0 || file.SearchSubString(lower) >= 0);
}

/// Takes one group file in: into the listed files if it belongs to the system, else into the reports or nowhere.
void TakeGroupFile(const KORUnicodeString& file, const KORUnicodeString& folder, const KORUnicodeString& system,
                   GroupFiles& files) {
  const KORUnicodeString path = KORFindPath(file, folder);
  const KORIDOMElement_var root = RootOf(ParseDocument(path, files.Messages));
  if (root.IsNull()) return;
  const KORIDOMElement_var group = FirstElementBelow(root, "DATACARDGROUP");
  const KORIDOMElement_var group_system = FirstElementBelow(group, "SUBSYSTEM");
  const bool other_system = !group_system.IsNull() && ValueOf(group_system) != system.Bytes();
  if (other_system) return;
  const KORIDOMElement_var name = FirstElementBelow(group, "NAME");
  if (group_system.IsNull() || name.IsNull()) {
    if (ClaimsSystem(file, system)) files.MissingFields.Append(file);
    return;
  }
  files.Names.Append(KORUnicodeString(ValueOf(name)));
  files.Paths.Append(path);
  files.Status = S_OK;
}

}  // namespace

std::optional<KORUnicodeString> FindEntryFile(const KORUnicodeString& system) {
  const KORUnicodeString relative_path =
      KORUnicodeString(EntryFolder) + (KORSeparatesWithSlash() ? "/" : "\\") + EntryFileOf(system);
  const KORSettingRepository* settings = Settings();
  if (settings == nullptr) return std::nullopt;
  KORUnicodeString card_folder = CardFolderSetting(*settings);
  if (IsRecording() && VEXSTMMiscUtils::IsEnvVariableSet("SHOW_LOCALTEXT", 1) != 0) {
    card_folder = KORFindPath(EntryFolder, RecordedRunFolder());
  }
  // The entry files lie beside the folder of the setting, which names the group files.
  KORUnicodeString folder;
  KORUnicodeString last;
  if (!card_folder.IsEmpty() && Succeeded(KORSplitPath(card_folder, folder, last))) {
    const KORUnicodeString path = KORFindPath(relative_path, folder);
    if (!path.IsEmpty()) return path;
  }
  return KORFindPath(relative_path, KORGetEnv(StartupPath));
}

GroupFiles ListGroupFiles(const KORUnicodeString& system) {
  GroupFiles files{};
  const KORUnicodeString folder = FindGroupFolder();
  KORListValKORUnicodeString names;
  files.Status = KORListDirectory(folder, names);
  for (const KORUnicodeString& name : names) {
    if (name.SearchSubString(".xml") >= 0) TakeGroupFile(name, folder, system, files);
  }
  return files;
}

}  // namespace datacard
