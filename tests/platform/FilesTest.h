// What the tests of files share: a session and a folder of their own, and short ways to write and to read.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORFiles.h"
#include "platform/system/KORSession.h"
#include "tests/support/TemporaryFolder.h"

namespace platformtest {

using Names = std::vector<std::string>;

class FilesTest : public testing::Test {
 protected:
  /// Full path of a name in the folder of the test; of the folder itself for an empty name.
  KORUnicodeString Path(const std::string& name = "") const {
    return KORUnicodeString(std::string_view(_Folder.Path(name)));
  }

  /// The descriptor of a file that is open; -1, and a failure of the test, if it cannot be opened.
  static int Open(const KORUnicodeString& path, const char* mode) {
    int descriptor = -1;
    EXPECT_EQ(KORFOpen(path, mode, descriptor), S_OK) << path.ConvertToChar();
    return descriptor;
  }

  static long Write(int descriptor, std::string_view bytes) {
    return KORFWrite(descriptor, bytes.data(), bytes.size());
  }

  /// Reads `count` bytes at most.
  static std::string Read(int descriptor, std::size_t count) {
    std::string bytes(count, '?');
    std::size_t read = 0;
    EXPECT_EQ(KORFRead(descriptor, bytes.data(), count, read), S_OK);
    bytes.resize(read);
    return bytes;
  }

  static std::size_t SizeOf(int descriptor) {
    std::size_t size = 0;
    EXPECT_EQ(KORFSize(descriptor, size), S_OK);
    return size;
  }

  /// Writes a file in one go. The first status that is a failure.
  static long WriteFile(const KORUnicodeString& path, std::string_view bytes) {
    int descriptor = -1;
    if (const long status = KORFOpen(path, "w", descriptor); Failed(status)) return status;
    const long written = Write(descriptor, bytes);
    const long closed = KORFClose(descriptor);
    return Failed(written) ? written : closed;
  }

  const KORFreshSession _Session;
  const support::TemporaryFolder _Folder;
};

/// All values that a byte can have, NUL first.
inline std::string AllBytes() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  return bytes;
}

}  // namespace platformtest
