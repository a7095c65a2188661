// A file that appears under its path when it is whole.
#include "platform/system/KORPendingFile.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>

namespace {

constexpr mode_t EverybodyUpToTheMask = 0666;

// A name that no other file has; empty if it can't be had.
std::string DrawTemporaryName() {
  std::uint64_t lot = 0;
  if (getentropy(&lot, sizeof lot) != 0) return {};
  constexpr std::string_view digits = "0123456789abcdef";
  std::string name = ".korpending-";
  for (int shift = 60; shift >= 0; shift -= 4) name += digits[(lot >> shift) & 0xF];
  return name;
}

}  // namespace

KORPendingFile::KORPendingFile(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  const bool in_working_folder = separator == std::string::npos;
  _Name = in_working_folder ? path : path.substr(separator + 1);
  if (_Name.empty()) return;
  const std::string folder = in_working_folder ? "." : path.substr(0, separator + 1);
  _Folder = KORHostFile::Open(AT_FDCWD, folder, O_PATH | O_DIRECTORY);
  if (!_Folder.IsOpen() || !MayReplace() || !Create()) return;
  if (!TakeAway(_Name)) GiveUp();
}

bool KORPendingFile::MayReplace() const {
  struct stat present {};
  if (fstatat(_Folder.GetDescriptor(), _Name.c_str(), &present, AT_SYMLINK_NOFOLLOW) != 0) return errno == ENOENT;
  return S_ISREG(present.st_mode) || S_ISLNK(present.st_mode);
}

bool KORPendingFile::Create() {
  _TemporaryName = DrawTemporaryName();
  if (_TemporaryName.empty()) return false;
  _Content = KORHostFile::Open(_Folder.GetDescriptor(), _TemporaryName, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
                               EverybodyUpToTheMask);
  if (!_Content.IsOpen()) _TemporaryName.clear();
  return _Content.IsOpen();
}

bool KORPendingFile::TakeAway(const std::string& name) const {
  return unlinkat(_Folder.GetDescriptor(), name.c_str(), 0) == 0 || errno == ENOENT;
}

bool KORPendingFile::Write(const char* bytes, std::size_t length) {
  const bool whole = _Content.IsOpen() && _Content.Write(bytes, length);
  if (!whole) GiveUp();
  return whole;
}

bool KORPendingFile::Keep() {
  const int folder = _Folder.GetDescriptor();
  const bool kept =
      _Content.IsOpen() && _Content.Close() && renameat(folder, _TemporaryName.c_str(), folder, _Name.c_str()) == 0;
  if (kept) _TemporaryName.clear();
  GiveUp();
  return kept;
}

void KORPendingFile::GiveUp() {
  (void)_Content.Close();
  if (!_TemporaryName.empty()) (void)TakeAway(_TemporaryName);
  _TemporaryName.clear();
}
