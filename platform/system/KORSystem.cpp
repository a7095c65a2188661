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
#include "platform/system/KORHostPath.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

KORUnicodeString KORGetEnv(const KORUnicodeString& name) {
  return KORGive("KORGetEnv", [&name] {
    return KORSession::Current().GetEnvironment(std::string(name.Bytes())).value_or(KORUnicodeString());
  });
}

int KORGetOperatingSystem(int /*reserved*/) {
  return KORSession::Current().GetOperatingSystem();
}

bool KORSeparatesWithSlash() {
  const int code = KORGetOperatingSystem(0) & 0xFFFF;
  return code <= 3 || code == 7;
}

long KORSysGetLocalDecimalChar(KORUnicodeString& character) {
  return KORPerform("KORSysGetLocalDecimalChar", [&character] {
    const wchar_t decimal = KORLocalDecimalCharacter();
    if (decimal == L'\0') return E_FAIL;
    character = KORUnicodeString(std::wstring_view(&decimal, 1));
    return S_OK;
  });
}

KORUnicodeString KORFindPath(const KORUnicodeString& name, const KORUnicodeString& folders) {
  if (name.IsEmpty() || folders.IsEmpty()) return {};
  const std::string host_name = KORHostPath(name.Bytes());
  if (host_name.starts_with('/')) return KORHostPathExists(host_name) ? name : KORUnicodeString();

  const char separator = KORSeparatesWithSlash() ? ':' : ';';
  std::string_view rest = folders.Bytes();
  for (bool more = true; more;) {
    const std::size_t end = rest.find(separator);
    const std::string_view folder = rest.substr(0, end);
    more = end != std::string_view::npos;
    if (more) rest.remove_prefix(end + 1);
    if (folder.empty()) continue;
    const std::string path = KORJoinPath(folder, name.Bytes());
    if (KORHostPathExists(KORHostPath(path))) return KORUnicodeString(std::string_view(path));
  }
  return {};
}

long KORSplitPath(const KORUnicodeString& path, KORUnicodeString& folder, KORUnicodeString& last) {
  return KORPerform("KORSplitPath", [&path, &folder, &last] {
    if (path.IsEmpty()) return E_INVALIDARG;
    KORCutPath(KORWithoutSeparatorsAtEnd(path.Bytes()), folder, last);
    return S_OK;
  });
}

long KORListDirectory(const KORUnicodeString& folder, KORListValKORUnicodeString& names) {
  names.RemoveAll();
  return KORPerform("KORListDirectory", [&folder, &names] {
    const std::string host_folder = KORHostPath(folder.Bytes());
    if (host_folder.find('\0') != std::string::npos) return E_FAIL;

    std::error_code failure;
    std::vector<std::string> found;
    std::filesystem::directory_iterator entry(host_folder, failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
      found.push_back(entry->path().filename().string());
    }
    if (failure) return E_FAIL;
    std::sort(found.begin(), found.end());
    for (const std::string& name : found) names.Append(KORUnicodeString(std::string_view(name)));
    return S_OK;
  });
}

int VEXSTMMiscUtils::IsEnvVariableSet(const KORUnicodeString& name, int /*reserved*/) {
  return KORGive("IsEnvVariableSet", [&name] {
    return KORSession::Current().GetEnvironment(std::string(name.Bytes())).has_value() ? 1 : 0;
  });
}
