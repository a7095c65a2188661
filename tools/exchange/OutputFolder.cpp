// A folder that files are written into.
#include "tools/exchange/OutputFolder.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORFileContent.h"
#include "platform/system/KORPaths.h"
#include "tools/analysis/AnalysisFolder.h"
#include "tools/exchange/ExchangeMessages.h"

namespace tool {

namespace {

constexpr mode_t AnybodyUpToTheMask = 0777;
constexpr mode_t AnybodyReadsUpToTheMask = 0666;
constexpr mode_t AllPermissions = 0777;

std::string CauseOf(int error) {
  return std::generic_category().message(error);
}

// A descriptor of the operating system, closed at the end.
class Descriptor {
 public:
  explicit Descriptor(int number) : _Number(number) {}
  Descriptor(Descriptor&& other) noexcept : _Number(std::exchange(other._Number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(_Number, other._Number);
    return *this;
  }
  ~Descriptor() { (void)Close(); }

  bool IsOpen() const { return _Number >= 0; }
  int Get() const { return _Number; }
  bool Close() { return _Number < 0 || close(std::exchange(_Number, -1)) == 0; }

 private:
  int _Number;
};

// Opens the folder that a name leads to from an open one, making those that are missing; links are not followed.
Descriptor OpenFolderOf(const std::string& path, std::string_view name) {
  Descriptor folder(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  for (std::size_t slash = name.find('/'); folder.IsOpen() && slash != std::string_view::npos; slash = name.find('/')) {
    const std::string part(name.substr(0, slash));
    name.remove_prefix(slash + 1);
    if (mkdirat(folder.Get(), part.c_str(), AnybodyUpToTheMask) != 0 && errno != EEXIST) return Descriptor(-1);
    folder = Descriptor(openat(folder.Get(), part.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  }
  return folder;
}

// A name that nobody takes for that of a file of the exchange, and that no other file has.
std::string TemporaryName() {
  std::uint64_t lot = 0;
  if (getentropy(&lot, sizeof lot) != 0) return {};
  std::string digits(16, '0');
  for (char& digit : digits) {
    digit = "0123456789abcdef"[lot & 0xF];
    lot >>= 4;
  }
  return ".timeanalysis-" + digits;
}

bool WriteAll(const Descriptor& file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = write(file.Get(), content.data(), std::min<std::size_t>(content.size(), 1u << 30));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Gives a file its place, in one step: either it stands there whole, or all is as it was.
bool Place(int folder, const char* temporary, const char* name, OutputFolder::Present present) {
  if (present == OutputFolder::Present::Replaced) return renameat(folder, temporary, folder, name) == 0;
  if (renameat2(folder, temporary, folder, name, RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // A file system that knows no such renaming.
  if (linkat(folder, temporary, folder, name, 0) != 0) return false;
  (void)unlinkat(folder, temporary, 0);
  return true;
}

// A file that takes the place of another one may be read and written by the same people.
void TakePermissions(int folder, const std::string& name, const Descriptor& file) {
  struct stat present {};
  if (fstatat(folder, name.c_str(), &present, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(present.st_mode)) return;
  (void)fchmod(file.Get(), present.st_mode & AllPermissions);
}

// Writes the file in an open folder; 0, or the error.
int WriteIn(int folder, const std::string& name, std::string_view content, OutputFolder::Present present) {
  const std::string temporary = TemporaryName();
  if (temporary.empty()) return EIO;
  Descriptor file(
      openat(folder, temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, AnybodyReadsUpToTheMask));
  if (!file.IsOpen()) return errno;
  if (present == OutputFolder::Present::Replaced) TakePermissions(folder, name, file);
  const bool done = WriteAll(file, content) && file.Close() && Place(folder, temporary.c_str(), name.c_str(), present);
  const int error = done ? 0 : errno;
  if (!done) (void)unlinkat(folder, temporary.c_str(), 0);
  return error;
}

}  // namespace

std::string OutputFolder::PathOf(const std::string& identifier) const {
  const bool has_hidden_part = identifier.starts_with('.') || identifier.find("/.") != std::string::npos;
  if (!IsPlainName(identifier) || has_hidden_part) return {};
  const std::string name = identifier + _Extension;
  char* path = nullptr;
  (void)KORMakePath(KORUnicodeString(std::string_view(_Path)), KORUnicodeString(std::string_view(name)), path);
  if (path == nullptr) return {};
  std::string joined(path);
  free(path);
  return joined;
}

bool OutputFolder::Holds(const std::string& identifier, std::string_view content) const {
  const std::string path = PathOf(identifier);
  std::error_code error;
  if (path.empty() || !std::filesystem::is_regular_file(std::filesystem::symlink_status(path, error))) return false;
  if (std::filesystem::file_size(path, error) != content.size() || error) return false;
  std::string bytes;
  std::string cause;
  return KORReadFileContent(path, content.size(), bytes, cause) && bytes == content;
}

std::optional<Failure> OutputFolder::Check(const std::string& identifier) const {
  const std::string path = PathOf(identifier);
  if (path.empty()) return IdentifierNoFileName(identifier);
  std::error_code error;
  const auto type = std::filesystem::symlink_status(path, error).type();
  if (type == std::filesystem::file_type::not_found) return std::nullopt;
  if (type == std::filesystem::file_type::none) return FileNotWritable(path, error.message());
  if (type == std::filesystem::file_type::directory) return FileNotWritable(path, CauseOf(EISDIR));
  if (_Present == Present::Kept) return FileIsThere(path);
  return std::nullopt;
}

void OutputFolder::Write(const std::string& identifier, std::string_view content) const {
  std::error_code made;
  std::filesystem::create_directories(_Path, made);
  const std::string path = PathOf(identifier);
  if (path.empty()) throw IdentifierNoFileName(identifier);
  const std::string name = identifier + _Extension;
  const Descriptor folder = OpenFolderOf(_Path, name);
  if (!folder.IsOpen()) throw FileNotWritable(path, CauseOf(errno));
  const int error = WriteIn(folder.Get(), name.substr(name.rfind('/') + 1), content, _Present);
  if (error == EEXIST) throw FileIsThere(path);
  if (error != 0) throw FileNotWritable(path, CauseOf(error));
}

}  // namespace tool
