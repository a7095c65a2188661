// Where the content of a stream comes from.
#pragma once

#include <string>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// The place of a local file, in the form of a URL ("file:///tmp/grip.png"). Names nothing until it is filled.
class KORPLATFORM_API KORVVSUrl {
 public:
  /// The URL, "%" and two hexadecimal digits standing for each byte that may not stand in it; empty if it names
  /// nothing.
  const KORUnicodeString& GetText() const { return _Text; }
  /// The full path of the local file that the URL names, with "/" between folders, in the bytes of the file system;
  /// empty if it names nothing.
  const std::string& GetNativeFilePath() const { return _Path; }

 private:
  friend struct KORVVSUrlUtils;
  KORUnicodeString _Text;
  std::string _Path;
};

struct KORPLATFORM_API KORVVSUrlUtils {
  /// Makes `url` name a local file, which need not be there. A relative path is one of the working folder of the
  /// moment. S_OK; E_INVALIDARG for an empty path; E_FAIL for a relative one where no working folder can be had. `url`
  /// is left as it was on failure.
  static long FromNativeFilePathToUrl(const KORUnicodeString& path, KORVVSUrl& url);
};
