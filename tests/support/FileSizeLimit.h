// A full disk, for as long as an object lives.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstddef>
#include <stdexcept>

namespace support {

/// Lets no file of the process grow beyond a number of bytes: a write that would do so fails. Keep it around the call
/// under test alone, as it holds for the output of the test program as well.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::size_t bytes) : _SignalBefore(std::signal(SIGXFSZ, SIG_IGN)) {
    if (getrlimit(RLIMIT_FSIZE, &_Before) != 0) throw std::runtime_error("the limit of file sizes cannot be read");
    rlimit limit = _Before;
    limit.rlim_cur = bytes;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("the limit of file sizes cannot be set");
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    (void)setrlimit(RLIMIT_FSIZE, &_Before);
    (void)std::signal(SIGXFSZ, _SignalBefore);
  }

 private:
  rlimit _Before{};
  void (*_SignalBefore)(int);
};

}  // namespace support
