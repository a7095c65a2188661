// Files by descriptor, and the check whether one is there.
#include "platform/system/KORFiles.h"

#include <atomic>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/system/KORHostFile.h"
#include "platform/system/KORHostPath.h"
#include "platform/system/KORPendingFile.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

namespace {

// An open file: one that is read, or one that is being written.
struct OpenFile {
  KORHostFile Read;
  std::unique_ptr<KORPendingFile> Written;  // null for a file that is read

  const KORHostFile& GetContent() const { return Written == nullptr ? Read : Written->GetContent(); }
};

// The open files of a session.
class OpenFiles {
 public:
  static OpenFiles& Current() { return KORSession::Current().GetPart<OpenFiles>(); }

  int Add(OpenFile file) {
    int descriptor = NewDescriptor();
    while (descriptor == 0 || _Files.contains(descriptor)) descriptor = NewDescriptor();
    _Files.emplace(descriptor, std::move(file));
    return descriptor;
  }

  OpenFile* Find(int descriptor) {
    const auto found = _Files.find(descriptor);
    return found == _Files.end() ? nullptr : &found->second;
  }

  void Remove(int descriptor) { _Files.erase(descriptor); }

 private:
  // Counted over all sessions, so that the descriptor of a closed file or of another session is not taken for that of
  // an open one.
  static int NewDescriptor() {
    static std::atomic<unsigned> count{0};
    return static_cast<int>(++count & unsigned{std::numeric_limits<int>::max()});
  }

  std::map<int, OpenFile> _Files;
};

bool OpenForReading(const std::string& path, OpenFile& file) {
  std::size_t length = 0;
  return KOROpenRegularFile(path, file.Read, length).empty();
}

bool OpenForWriting(const std::string& path, OpenFile& file) {
  file.Written = std::make_unique<KORPendingFile>(path);
  return file.Written->IsOpen();
}

}  // namespace

long KORFOpen(const KORUnicodeString& path, const char* mode, int& descriptor) {
  return KORPerform("KORFOpen", [&path, mode, &descriptor] {
    const std::string host_path = KORHostPath(path.Bytes());
    if (host_path.empty() || host_path.find('\0') != std::string::npos || mode == nullptr) return E_INVALIDARG;
    const bool writes = mode == std::string_view("w");
    if (!writes && mode != std::string_view("r")) return E_INVALIDARG;
    OpenFile file;
    const bool opened = writes ? OpenForWriting(host_path, file) : OpenForReading(host_path, file);
    if (!opened) return E_FAIL;
    descriptor = OpenFiles::Current().Add(std::move(file));
    return S_OK;
  });
}

long KORFSize(int descriptor, std::size_t& size) {
  return KORPerform("KORFSize", [descriptor, &size] {
    const OpenFile* const file = OpenFiles::Current().Find(descriptor);
    if (file == nullptr) return E_INVALIDARG;
    struct stat description {};
    if (!file->GetContent().Describe(description)) return E_FAIL;
    size = static_cast<std::size_t>(description.st_size);
    return S_OK;
  });
}

long KORFRead(int descriptor, void* bytes, std::size_t count, std::size_t& read) {
  read = 0;
  return KORPerform("KORFRead", [descriptor, bytes, count, &read] {
    const OpenFile* const file = OpenFiles::Current().Find(descriptor);
    if (file == nullptr || file->Written != nullptr || (bytes == nullptr && count > 0)) return E_INVALIDARG;
    const ssize_t done = file->Read.Read(static_cast<char*>(bytes), count);
    if (done < 0) return E_FAIL;
    read = static_cast<std::size_t>(done);
    return S_OK;
  });
}

long KORFWrite(int descriptor, const void* bytes, std::size_t count) {
  const OpenFile* const file = OpenFiles::Current().Find(descriptor);
  KORPendingFile* const written = file == nullptr ? nullptr : file->Written.get();
  const auto write = [written, bytes, count] {
    if (written == nullptr || (bytes == nullptr && count > 0)) return E_INVALIDARG;
    return written->Write(static_cast<const char*>(bytes), count) ? S_OK : E_FAIL;
  };
  return KORPerform("KORFWrite", write, [written] {
    if (written != nullptr) written->GiveUp();
  });
}

long KORFClose(int descriptor) {
  OpenFiles& files = OpenFiles::Current();
  const auto close = [&files, descriptor] {
    const OpenFile* const file = files.Find(descriptor);
    if (file == nullptr) return E_INVALIDARG;
    const bool kept = file->Written == nullptr || file->Written->Keep();
    files.Remove(descriptor);
    return kept ? S_OK : E_FAIL;
  };
  return KORPerform("KORFClose", close, [&files, descriptor] { files.Remove(descriptor); });
}

long _KORFileAccess(const KORUnicodeString& path, int /*access*/, int /*reserved*/) {
  return KORPerform("_KORFileAccess", [&path] { return KORHostPathExists(KORHostPath(path.Bytes())) ? S_OK : E_FAIL; });
}
