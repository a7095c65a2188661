// The catalogue that is shipped with the library, as a session finds it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/system/KORSession.h"
#include "tests/support/ServiceTest.h"

namespace support {

/// A session whose setting names the shipped catalogue.
class ShippedCatalogueSession : public ServiceTest {
 protected:
  ShippedCatalogueSession() {
    _Session.AddRepository("VEXTimeAnalysisCommonOptions")
        .WriteSetting("datacardpath", Unicode(std::string(CATALOGUE_FOLDER) + "/DataCard"));
  }

  /// Loads the entry file of a system and returns its path.
  std::string LoadSystem(VEXSTMTimeAnalysisDlgServices& services, const std::string& system) {
    KORUnicodeString path;
    services.GetDCEXMLFilePath(Unicode(system), path);
    EXPECT_EQ(services.ReadDCEntriesFromFile(path), S_OK) << Text(path);
    return Text(path);
  }
};

/// Time of a code as the lookup prints it.
inline std::string TimeOf(VEXSTMTimeAnalysisDlgServices& services, const std::string& code) {
  KORUnicodeString typed = Unicode(code);
  KORUnicodeString time, description, time_type, frequency;
  services.GetTimeToCode(typed, time, description, time_type, frequency);
  return Text(time);
}

/// A number as it stands in a text, 0 if it cannot be read.
inline double NumberOf(const std::string& text) {
  double number = 0.0;
  Unicode(text).ConvertToNum(number);
  return number;
}

}  // namespace support
