// Environment, locale, paths and folders of the current session.
#include "platform/system/KORSystem.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/base/KORLocale.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

namespace {

// True on the systems with "/" between folders; on the others "\" separates folders too.
bool SeparatesWithSlash() {
  const int code = KORGetOperatingSystem(0) & 0xFFFF;
  return code <= 3 || code == 7;
}

// The name as the file system of this machine knows it.
std::string HostPath(std::string_view path) {
  std::string host(path);
  if (!SeparatesWithSlash()) std::replace(host.begin(), host.end(), '\\', '/');
  return host;
}

bool Exists(const std::string& path) {
  if (path.find('\0') != std::string::npos) return false;
  std::error_code fault;
  return std::filesystem::exists(path, fault);
}

std::string Join(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.ends_with('/')) path += '/';
  return path.append(name);
}

}  // namespace

KORUnicodeString KORGetEnv(const KORUnicodeString& name) {
  return KORSession::Current().GetEnvironment(std::string(name.Bytes())).value_or(KORUnicodeString());
}

int KORGetOperatingSystem(int /*reserved*/) {
  return KORSession::Current().GetOperatingSystem();
}

long KORSysGetLocalDecimalChar(KORUnicodeString& character) {
  if (const long fault = KORSession::Current().GetFault("KORSysGetLocalDecimalChar"); fault != S_OK) return fault;
  const wchar_t decimal = KORLocalDecimalCharacter();
  if (decimal == L'\0') return E_FAIL;
  character = KORUnicodeString(std::wstring_view(&decimal, 1));
  return S_OK;
}

KORUnicodeString KORFindPath(const KORUnicodeString& name, const KORUnicodeString& folders) {
  if (name.IsEmpty() || folders.IsEmpty()) return {};
  const std::string host_name = HostPath(name.Bytes());
  if (host_name.starts_with('/')) return Exists(host_name) ? name : KORUnicodeString();

  const char separator = SeparatesWithSlash() ? ':' : ';';
  std::string_view rest = folders.Bytes();
  for (bool more = true; more;) {
    const std::size_t end = rest.find(separator);
    const std::string_view folder = rest.substr(0, end);
    more = end != std::string_view::npos;
    if (more) rest.remove_prefix(end + 1);
    if (!folder.empty() && Exists(Join(folder, host_name))) return KORUnicodeString(Join(folder, name.Bytes()));
  }
  return {};
}

long KORSplitPath(const KORUnicodeString& path, KORUnicodeString& folder, KORUnicodeString& last) {
  if (const long fault = KORSession::Current().GetFault("KORSplitPath"); fault != S_OK) return fault;
  if (path.IsEmpty()) return E_INVALIDARG;
  const std::string_view separators = SeparatesWithSlash() ? "/" : "/\\";
  const std::string whole(path.Bytes());  // a copy: the path may be one of the texts to fill
  const std::string_view bytes = whole;

  // Where nothing but separators is left, the first of them is the root folder.
  const auto without_end = [&separators](std::string_view text) {
    const std::size_t end = text.find_last_not_of(separators);
    return end == std::string_view::npos ? text.substr(0, 1) : text.substr(0, end + 1);
  };
  const std::string_view trimmed = without_end(bytes);
  const std::size_t cut = trimmed.find_last_of(separators);
  if (cut == std::string_view::npos) {
    folder = KORUnicodeString();
    last = KORUnicodeString(trimmed);
  } else {
    folder = KORUnicodeString(without_end(trimmed.substr(0, cut + 1)));
    last = KORUnicodeString(trimmed.substr(cut + 1));
  }
  return S_OK;
}

long KORListDirectory(const KORUnicodeString& folder, KORListValKORUnicodeString& names) {
  names.RemoveAll();
  if (const long fault = KORSession::Current().GetFault("KORListDirectory"); fault != S_OK) return fault;
  const std::string host_folder = HostPath(folder.Bytes());
  if (host_folder.find('\0') != std::string::npos) return E_FAIL;

  std::error_code fault;
  std::vector<std::string> found;
  std::filesystem::directory_iterator entry(host_folder, fault);
  for (; !fault && entry != std::filesystem::directory_iterator(); entry.increment(fault)) {
    found.push_back(entry->path().filename().string());
  }
  if (fault) return E_FAIL;
  std::sort(found.begin(), found.end());
  for (const std::string& name : found) names.Append(KORUnicodeString(std::string_view(name)));
  return S_OK;
}

int VEXSTMMiscUtils::IsEnvVariableSet(const KORUnicodeString& name, int /*reserved*/) {
  return KORSession::Current().GetEnvironment(std::string(name.Bytes())).has_value() ? 1 : 0;
}
