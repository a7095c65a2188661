// Paths as the file system of this machine knows them.
#include "platform/system/KORHostPath.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/system/KORSystem.h"

std::string_view KORFolderSeparators() {
  return KORSeparatesWithSlash() ? "/" : "/\\";
}

std::string KORHostPath(std::string_view path) {
  std::string host(path);
  if (!KORSeparatesWithSlash()) std::replace(host.begin(), host.end(), '\\', '/');
  return host;
}

bool KORHostPathExists(const std::string& path) {
  if (path.find('\0') != std::string::npos) return false;
  std::error_code fault;
  return std::filesystem::exists(path, fault);
}

std::string KORJoinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (path.find_last_of(KORFolderSeparators()) != path.size() - 1) path += '/';
  return path.append(name);
}

std::string_view KORWithoutSeparatorsAtEnd(std::string_view path) {
  const std::size_t end = path.find_last_not_of(KORFolderSeparators());
  return end == std::string_view::npos ? path.substr(0, 1) : path.substr(0, end + 1);
}

void KORCutPath(std::string_view path, KORUnicodeString& folder, KORUnicodeString& last) {
  const std::size_t separator = path.find_last_of(KORFolderSeparators());
  const std::size_t cut = separator == std::string_view::npos ? 0 : separator + 1;
  KORUnicodeString ahead(KORWithoutSeparatorsAtEnd(path.substr(0, cut)));
  KORUnicodeString behind(path.substr(cut));
  folder = std::move(ahead);
  last = std::move(behind);
}
