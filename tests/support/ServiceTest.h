// What the tests of the service object share: a session of their own, a temporary folder, and short ways to select a
// system, to load a table and to gather lists.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/system/KORSession.h"
#include "tests/support/TemporaryFolder.h"

namespace support {

inline std::string Text(const KORUnicodeString& text) {
  return std::string(text.Bytes());
}

inline KORUnicodeString Unicode(std::string_view text) {
  return KORUnicodeString(text);
}

inline std::vector<std::string> Texts(const KORListValKORUnicodeString& list) {
  std::vector<std::string> texts;
  for (const KORUnicodeString& text : list) texts.push_back(Text(text));
  return texts;
}

inline KORListValKORUnicodeString ListOf(const std::vector<std::string>& texts) {
  KORListValKORUnicodeString list;
  for (const std::string& text : texts) list.Append(Unicode(text));
  return list;
}

/// Names a parameterised test after the row's field `name`.
struct RowName {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    return row.param.name;
  }
};

/// Makes a system the current one of a service object; nothing is read. The session needs no settings for it.
inline void Select(VEXSTMTimeAnalysisDlgServices& services, const std::string& system) {
  KORUnicodeString path;
  services.GetDCEXMLFilePath(Unicode(system), path);
}

/// A fresh session, current for the time of the test, without the environment variables that lead to catalogues.
class ServiceTest : public testing::Test {
 protected:
  ServiceTest() {
    for (const char* name : {"KORStartupPath", "QRN_TVS_IN", "RecDir", "SHOW_LOCALTEXT", "VEX_TVS_TEST_TABLE_DC"}) {
      _Session.UnsetEnvironment(name);
    }
  }

  /// Loads an entry file of that text for a system.
  void Load(VEXSTMTimeAnalysisDlgServices& services, const std::string& system, const std::string& file_text) {
    Select(services, system);
    ASSERT_EQ(services.ReadDCEntriesFromFile(Unicode(_Folder.Write("table.xml", file_text))), S_OK);
  }

  KORSession _Session;
  KORSession::Scope _Scope{_Session};
  TemporaryFolder _Folder;
};

/// The same with a row of a table.
template <class Row>
class ServiceRowTest : public ServiceTest, public testing::WithParamInterface<Row> {};

}  // namespace support
