// A file of the operating system that is open as long as an object lives. For the sources of the platform.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <utility>

/// An open file, or none. What cannot be done leaves its cause in errno. Interrupted calls are taken up again.
class KORHostFile {
 public:
  KORHostFile() = default;
  KORHostFile(KORHostFile&& other) noexcept : _Descriptor(std::exchange(other._Descriptor, -1)) {}
  KORHostFile& operator=(KORHostFile&& other) noexcept {
    std::swap(_Descriptor, other._Descriptor);
    return *this;
  }
  KORHostFile(const KORHostFile&) = delete;
  KORHostFile& operator=(const KORHostFile&) = delete;
  ~KORHostFile() { (void)Close(); }

  /// Opens a path, seen from an open folder (AT_FDCWD: the working folder), with the flags of open; one that cannot
  /// be opened is not open. It is not handed on to child processes.
  static KORHostFile Open(int folder, const std::string& path, int flags, mode_t mode = 0);

  bool IsOpen() const { return _Descriptor >= 0; }
  int GetDescriptor() const { return _Descriptor; }
  bool Describe(struct stat& description) const;

  /// Reads up to `length` bytes; fewer at the end of the file; -1 if it cannot be read.
  ssize_t Read(char* bytes, std::size_t length) const;
  /// Writes all bytes; false if not all of them could be written.
  bool Write(const char* bytes, std::size_t length) const;
  /// False if what was written may not be whole. Not open afterwards in any case.
  bool Close();

 private:
  int _Descriptor = -1;
};

/// The words of the operating system for an error number.
std::string KORCauseOf(int error);

/// Opens an existing regular file for reading. An empty text, and the open file with its length in bytes; or the cause,
/// in words for a person, why there is none.
std::string KOROpenRegularFile(const std::string& path, KORHostFile& file, std::size_t& length);
