// A disk on which files do not grow beyond a length.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

namespace support {

/// While it lives, no file of this process grows beyond `bytes`: what is written behind that fails as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : _SignalBefore(std::signal(SIGXFSZ, SIG_IGN)) {
    if (getrlimit(RLIMIT_FSIZE, &_Before) != 0) throw std::runtime_error("the limit of files cannot be had");
    const rlimit full{bytes, _Before.rlim_max};
    if (setrlimit(RLIMIT_FSIZE, &full) != 0) throw std::runtime_error("the limit of files cannot be set");
  }
  ~FullDisk() {
    (void)setrlimit(RLIMIT_FSIZE, &_Before);
    (void)std::signal(SIGXFSZ, _SignalBefore);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*_SignalBefore)(int);
  rlimit _Before{};
};

}  // namespace support
