// The content of a file as one block of bytes.
#include "platform/system/KORFileContent.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>

namespace {

std::string CauseOf(int error) {
  return std::generic_category().message(error);
}

// A file that is open as long as this lives.
class OpenFile {
 public:
  // Not blocking, so that a pipe without a writer doesn't keep the caller waiting.
  explicit OpenFile(const char* path) : _Descriptor(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~OpenFile() {
    if (_Descriptor >= 0) close(_Descriptor);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOpen() const { return _Descriptor >= 0; }
  bool Describe(struct stat& description) const { return fstat(_Descriptor, &description) == 0; }

  // Reads up to `length` bytes; fewer at the end of the file; -1 if it can't be read.
  ssize_t Read(char* bytes, std::size_t length) const {
    std::size_t total = 0;
    while (total < length) {
      const ssize_t count = read(_Descriptor, bytes + total, std::min<std::size_t>(length - total, 1u << 30));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return -1;
      if (count == 0) break;
      total += static_cast<std::size_t>(count);
    }
    return static_cast<ssize_t>(total);
  }

 private:
  int _Descriptor;
};

// Reads all of an open regular file of the length told; an empty text if that went well, else the cause.
std::string ReadAll(const OpenFile& file, std::size_t length, std::string& content) {
  content.resize(length);
  const ssize_t count = file.Read(content.data(), length);
  if (count < 0) return CauseOf(errno);
  char more = '\0';
  if (static_cast<std::size_t>(count) < length || file.Read(&more, 1) != 0) {
    return "the file changed its length while it was read";
  }
  return {};
}

std::string Read(const std::string& path, std::size_t most, std::string& content) {
  if (path.find('\0') != std::string::npos) return CauseOf(ENOENT);
  const OpenFile file(path.c_str());
  struct stat description {};
  if (!file.IsOpen() || !file.Describe(description)) return CauseOf(errno);
  if (S_ISDIR(description.st_mode)) return CauseOf(EISDIR);
  if (!S_ISREG(description.st_mode)) return "not a regular file";
  const auto length = static_cast<std::size_t>(description.st_size);
  if (length > most) return "the file is longer than " + std::to_string(most) + " bytes";
  return ReadAll(file, length, content);
}

}  // namespace

bool KORReadFileContent(const std::string& path, std::size_t most, std::string& content, std::string& cause) {
  content.clear();
  try {
    cause = Read(path, most, content);
  } catch (const std::bad_alloc&) {
    cause = CauseOf(ENOMEM);
  }
  if (cause.empty()) return true;
  content = std::string();
  return false;
}
