// What the tests of the JSON export share: a session with folders for templates and files, and short ways to write
// templates, to export and to see what came out.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "VEXSTMJSONServices.h"
#include "platform/model/KORRepReference.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/TemporaryFolder.h"

namespace exchangetest {

inline constexpr const char* CompleteTemplateFile = "start/JSONTemplates/TAComplete_Template.JSON";
inline constexpr const char* LineTemplateFile = "start/JSONTemplates/TALineAttributes_Template.JSON";

/// A fresh session that finds its templates below "start" and writes its files to "temp", both in the folder of the
/// test.
class JsonExportTest : public testing::Test {
 protected:
  JsonExportTest() {
    _Session.SetEnvironment("KORStartupPath", support::Unicode(_Folder.MakeFolder("start")));
    _Session.SetEnvironment("KORTemp", support::Unicode(_Folder.MakeFolder("temp")));
    _Session.UnsetEnvironment("QRN_TVS_TMP");
  }

  void WriteTemplates(const std::string& complete, const std::string& line) const {
    _Folder.Write(CompleteTemplateFile, complete);
    _Folder.Write(LineTemplateFile, line);
  }

  /// Templates with that content under "TAATTRIBUTES" and "TALINESDETAILS", and of a line.
  void WriteSections(const std::string& attributes, const std::string& lines, const std::string& line) const {
    WriteTemplates(R"({"TAATTRIBUTES":)" + attributes + R"(,"TALINESDETAILS":)" + lines + "}", line);
  }

  static long Export(const std::vector<KORBaseUnknown_var>& analyses) {
    KORListValKORBaseUnknown_var list;
    for (const KORBaseUnknown_var& analysis : analyses) list.Append(analysis);
    return VEXSTMJSONServices::CreateAndUpdateJSONOnTA(list);
  }

  /// The content of the JSON stream that is called like the analysis; nothing if there is none.
  static std::optional<std::string> StreamOf(const support::TimeAnalysis_var& analysis) {
    KORUnicodeString identifier;
    (void)analysis->GetValue("PLM_ExternalID", identifier);
    const KORStream* const stream = analysis->GetContent().Streams.Find({"JSON", identifier});
    return stream == nullptr ? std::nullopt : std::optional(*stream->Bytes);
  }

  /// Exports one analysis, which has to work, and gives its stream.
  static std::string Exported(const support::TimeAnalysis_var& analysis) {
    EXPECT_EQ(Export({analysis}), S_OK);
    return StreamOf(analysis).value_or("no stream");
  }

  /// The names in the folder for files, sorted.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(_Folder.Path("temp"))) {
      names.push_back(std::filesystem::relative(entry.path(), _Folder.Path("temp")).string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  KORFreshSession _Session;
  support::TemporaryFolder _Folder;
};

/// The same with a row of a table.
template <class Row>
class JsonExportRowTest : public JsonExportTest, public testing::WithParamInterface<Row> {};

}  // namespace exchangetest
