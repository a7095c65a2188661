// What the tests of pictures share: a session with a temporary folder, image files, and ways to see what is where.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "VEXSTMPicturesServices.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/TemporaryFolder.h"

namespace exchangetest {

/// What an output holds that nobody has written to.
inline constexpr const char* Untouched = "untouched";

/// Bytes that differ from seed to seed.
inline std::string DrawBytes(std::size_t count, std::uint32_t seed) {
  std::mt19937 lots(seed);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(lots());
  return bytes;
}

/// The content of a file; nothing if none is there.
inline std::optional<std::string> ContentOf(const std::string& path) {
  if (!std::filesystem::is_regular_file(path)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

/// The formats of the streams on an object, in their order.
inline std::vector<std::string> FormatsOn(const KORBaseUnknown_var& object) {
  std::vector<std::string> formats;
  for (const KORIOmbStreamDescriptor_var stream : KOROmbNonZENTAStreamsManager(object).GetSDFamily(0)) {
    KORUnicodeString format;
    (void)stream->GetStreamFormat(format);
    formats.push_back(support::Text(format));
  }
  return formats;
}

/// What a fetch gives.
struct Fetched {
  long status = 0;
  std::string path;                    // Untouched if it was not filled
  std::optional<std::string> content;  // of the file under the path
};

/// A fresh session whose temporary folder is "temp" in the folder of the test.
class PictureTest : public testing::Test {
 protected:
  PictureTest() { _Session.SetEnvironment("KORTemp", Unicode(_Folder.MakeFolder("temp"))); }

  static KORUnicodeString Unicode(std::string_view text) { return KORUnicodeString(text); }

  /// Writes an image file and adds it.
  long Add(const KORBaseUnknown_var& analysis, const std::string& file, const std::string& content) const {
    return VEXSTMPicturesServices::AddPictureOnTARep(analysis, Unicode(_Folder.Write("images/" + file, content)));
  }

  static Fetched Fetch(KORBaseUnknown_var analysis, std::string_view picture) {
    KORUnicodeString path(Untouched);
    Fetched fetched;
    fetched.status = VEXSTMPicturesServices::GetPictureOnTARep(analysis, Unicode(picture), path);
    fetched.path = support::Text(path);
    fetched.content = ContentOf(fetched.path);
    return fetched;
  }

  static long Remove(KORBaseUnknown_var analysis, std::string_view picture) {
    return VEXSTMPicturesServices::RemovePictureOnTARep(analysis, Unicode(picture));
  }

  static long Copy(KORBaseUnknown_var source, KORBaseUnknown_var destination) {
    return VEXSTMPicturesServices::CopyPictureFromSourceTAtoDestinationTA(source, destination);
  }

  /// Full path of a name in the temporary folder of the session.
  std::string InTemp(const std::string& name) const { return _Folder.Path("temp/" + name); }

  /// The paths of all that is below the folder of the test, sorted.
  std::vector<std::string> AllFiles() const {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(_Folder.Path())) {
      paths.push_back(std::filesystem::relative(entry.path(), _Folder.Path()).string());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
  }

  KORFreshSession _Session;
  support::TemporaryFolder _Folder;
};

/// The same with a row of a table.
template <class Row>
class PictureRowTest : public PictureTest, public testing::WithParamInterface<Row> {};

/// A line that names a picture.
inline support::Line LineWithPicture(const std::string& picture) {
  return support::Line("M10B").Set("FormulaPicture", KORUnicodeString(picture));
}

}  // namespace exchangetest
