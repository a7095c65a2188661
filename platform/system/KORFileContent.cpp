// The content of a file as one block of bytes.
#include "platform/system/KORFileContent.h"

#include <cerrno>
#include <new>

#include "platform/system/KORHostFile.h"
#include "platform/system/KORHostPath.h"

namespace {

// Reads all of an open regular file of the length told; an empty text if that went well, else the cause.
std::string ReadAll(const KORHostFile& file, std::size_t length, std::string& content) {
  content.resize(length);
  const ssize_t count = file.Read(content.data(), length);
  if (count < 0) return KORCauseOf(errno);
  char more = '\0';
  if (static_cast<std::size_t>(count) < length || file.Read(&more, 1) != 0) {
    return "the file changed its length while it was read";
  }
  return {};
}

std::string Read(const std::string& path, std::size_t most, std::string& content) {
  KORHostFile file;
  std::size_t length = 0;
  if (std::string cause = KOROpenRegularFile(KORHostPath(path), file, length); !cause.empty()) return cause;
  if (length > most) return "the file is longer than " + std::to_string(most) + " bytes";
  return ReadAll(file, length, content);
}

}  // namespace

bool KORReadFileContent(const std::string& path, std::size_t most, std::string& content, std::string& cause) {
  content.clear();
  try {
    cause = Read(path, most, content);
  } catch (const std::bad_alloc&) {
    cause = KORCauseOf(ENOMEM);
  }
  if (cause.empty()) return true;
  content = std::string();
  return false;
}
