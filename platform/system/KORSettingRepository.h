// Named stores of settings.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// One named store of settings, each a text under a name.
class KORPLATFORM_API KORSettingRepository {
 public:
  /// The repository of that name in the current session; null if there is none. Owned by the session.
  /// The two numbers are the platform's access mode and are not looked at.
  static KORSettingRepository* GetRepository(const KORUnicodeString& name, int access = 0, int scope = 1);

  /// Reads a setting. S_OK, or E_FAIL, with `value` untouched, if the setting is not there or, for the number, its
  /// text is no number as a whole.
  long ReadSetting(const KORUnicodeString& name, KORUnicodeString& value) const;
  long ReadSetting(const KORUnicodeString& name, double& value) const;

  void WriteSetting(const KORUnicodeString& name, const KORUnicodeString& value);

  /// Adds the settings of a file to the repository, a later one over an earlier one of the same name.
  ///
  ///   file    = { line }            one setting a line, UTF-8
  ///   line    = [ name "=" value ]  blanks around name and value do not count
  ///   comment = "#" ...             a line whose first character other than a blank is "#"
  ///
  /// Returns the number of the first line that is none of these, 0 if all are, -1 if the file cannot be read.
  /// A line that is none of these is passed over.
  int LoadFile(const std::string& path);

 private:
  std::map<KORUnicodeString, KORUnicodeString> _Settings;
};
