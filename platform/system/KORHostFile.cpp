// A file of the operating system that is open as long as an object lives.
#include "platform/system/KORHostFile.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace {

// Bytes asked of the operating system in one call.
constexpr std::size_t LongestTransfer = std::size_t{1} << 30;

// Repeats a call that a signal has interrupted.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

KORHostFile KORHostFile::Open(int folder, const std::string& path, int flags, mode_t mode) {
  KORHostFile file;
  file._Descriptor = Uninterrupted([&] { return openat(folder, path.c_str(), flags | O_CLOEXEC, mode); });
  return file;
}

bool KORHostFile::Describe(struct stat& description) const {
  return fstat(_Descriptor, &description) == 0;
}

ssize_t KORHostFile::Read(char* bytes, std::size_t length) const {
  std::size_t total = 0;
  while (total < length) {
    const std::size_t wanted = std::min(length - total, LongestTransfer);
    const ssize_t count = Uninterrupted([&] { return read(_Descriptor, bytes + total, wanted); });
    if (count < 0) return -1;
    if (count == 0) break;
    total += static_cast<std::size_t>(count);
  }
  return static_cast<ssize_t>(total);
}

bool KORHostFile::Write(const char* bytes, std::size_t length) const {
  std::size_t total = 0;
  while (total < length) {
    const std::size_t wanted = std::min(length - total, LongestTransfer);
    const ssize_t count = Uninterrupted([&] { return write(_Descriptor, bytes + total, wanted); });
    if (count <= 0) return false;
    total += static_cast<std::size_t>(count);
  }
  return true;
}

bool KORHostFile::Close() {
  const int descriptor = std::exchange(_Descriptor, -1);
  return descriptor < 0 || close(descriptor) == 0;  // not taken up again: the descriptor is free after any outcome
}

std::string KORCauseOf(int error) {
  return std::generic_category().message(error);
}

std::string KOROpenRegularFile(const std::string& path, KORHostFile& file, std::size_t& length) {
  if (path.find('\0') != std::string::npos) return KORCauseOf(ENOENT);
  // Not blocking, so that a pipe without a writer doesn't keep the caller waiting.
  KORHostFile opened = KORHostFile::Open(AT_FDCWD, path, O_RDONLY | O_NONBLOCK);
  struct stat description {};
  if (!opened.IsOpen() || !opened.Describe(description)) return KORCauseOf(errno);
  if (S_ISDIR(description.st_mode)) return KORCauseOf(EISDIR);
  if (!S_ISREG(description.st_mode)) return "not a regular file";
  file = std::move(opened);
  length = static_cast<std::size_t>(description.st_size);
  return {};
}
