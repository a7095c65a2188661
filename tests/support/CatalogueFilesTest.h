// What the tests of the catalogue's files share: folders, the setting that names them, and the recorded run.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/system/KORRecord.h"
#include "platform/system/KORSession.h"
#include "tests/support/DataCardText.h"
#include "tests/support/ServiceTest.h"

namespace support {

// Folders: "installed" is the one of the start-up path, "plant" the one of the setting, "runs/run1" the recorded run.
class CatalogueFilesTest : public ServiceTest {
 protected:
  CatalogueFilesTest() { _Session.SetEnvironment("KORStartupPath", Unicode(_Folder.MakeFolder("installed"))); }

  KORSettingRepository& Settings() { return _Session.AddRepository("VEXTimeAnalysisCommonOptions"); }

  void SetCardFolder(const std::string& folder) {
    Settings().WriteSetting("datacardpath", Unicode(_Folder.Path(folder)));
  }

  // Puts the recorded run within reach; its folder is runs/run1.
  void StartRecorder(KORRecord::Mode mode) {
    _Session.GetRecorder().SetMode(mode);
    _Session.SetEnvironment("QRN_TVS_IN", Unicode(_Folder.MakeFolder("runs")));
    _Session.SetEnvironment("RecDir", "run1");
    _Folder.MakeFolder("runs/run1");
  }

  std::string WriteEntryFile(const std::string& folder) {
    return _Folder.Write(folder + "/DataCardEntry/dce_std.xml", DataCardFile(""));
  }

  std::string WriteGroupFile(const std::string& name, const std::string& system, const std::string& display_name) {
    return _Folder.Write(name, GroupFile(system, display_name));
  }

  // Path of the entry file of "STD", from a path argument that held "before".
  std::string StandardPath() {
    KORUnicodeString path = "before";
    _Services.GetDCEXMLFilePath("STD", path);
    return Text(path);
  }

  // Lists the group files of a system into fresh lists.
  long List(const std::string& system) {
    _Paths = KORListValKORUnicodeString();
    _Names = KORListValKORUnicodeString();
    return _Services.GetDCGsList(Unicode(system), _Paths, _Names);
  }

  VEXSTMTimeAnalysisDlgServices _Services;
  KORListValKORUnicodeString _Paths;
  KORListValKORUnicodeString _Names;
};

}  // namespace support
