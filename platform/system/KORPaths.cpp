// Paths put together and taken apart.
#include "platform/system/KORPaths.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/base/KORStatus.h"
#include "platform/system/KORHostPath.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSystem.h"

namespace {

constexpr std::size_t LongestPart = 255;    // bytes of the name of one file or folder
constexpr std::size_t LongestPath = 4'095;  // bytes, without the NUL behind it
constexpr std::string_view SeparatorsInNames = "/\\";

// The control characters are U+0000 to U+001F, U+007F, and U+0080 to U+009F; the latter are C2 80 to C2 9F in UTF-8.
bool HoldsControlCharacter(std::string_view text) {
  unsigned char before = 0;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7F || (before == 0xC2 && byte < 0xA0)) return true;
    before = byte;
  }
  return false;
}

bool IsAbsolute(std::string_view name) {
  if (SeparatorsInNames.find(name.front()) != std::string_view::npos) return true;
  const bool has_drives = !KORSeparatesWithSlash();
  return has_drives && name.size() > 1 && name[1] == ':' && std::isalpha(static_cast<unsigned char>(name[0])) != 0;
}

bool ArePartsFit(std::string_view name) {
  for (;;) {
    const std::size_t end = name.find_first_of(SeparatorsInNames);
    const std::string_view part = name.substr(0, end);
    if (part == ".." || part.size() > LongestPart) return false;
    if (end == std::string_view::npos) return !part.empty() && part != ".";
    name.remove_prefix(end + 1);
  }
}

bool StaysInItsFolder(std::string_view name) {
  return !name.empty() && !HoldsControlCharacter(name) && !IsAbsolute(name) && ArePartsFit(name);
}

// Whether the name passes through a folder that is a link, and so may lie anywhere.
bool PassesThroughLink(std::string_view folder, std::string_view name) {
  const std::string_view separators = KORFolderSeparators();
  for (std::size_t end = name.find_first_of(separators); end != std::string_view::npos;
       end = name.find_first_of(separators, end + 1)) {
    std::error_code failure;
    const std::string inner = KORHostPath(KORJoinPath(folder, name.substr(0, end)));
    if (std::filesystem::is_symlink(inner, failure)) return true;
  }
  return false;
}

// A copy for the caller to free; null if there is no memory for it.
char* CopyOf(const std::string& text) {
  auto* const copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy != nullptr) std::memcpy(copy, text.c_str(), text.size() + 1);
  return copy;
}

}  // namespace

long KORMakePath(const KORUnicodeString& folder, const KORUnicodeString& file, char*& path) {
  path = nullptr;
  return KORPerform("KORMakePath", [&folder, &file, &path] {
    const std::string_view folder_bytes = folder.Bytes();
    if (folder_bytes.empty() || folder_bytes.find('\0') != std::string_view::npos) return E_INVALIDARG;
    if (!StaysInItsFolder(file.Bytes())) return E_INVALIDARG;
    if (PassesThroughLink(folder_bytes, file.Bytes())) return E_INVALIDARG;
    const std::string joined = KORJoinPath(folder_bytes, file.Bytes());
    if (joined.size() <= LongestPath) path = CopyOf(joined);
    return path == nullptr ? E_INVALIDARG : S_OK;
  });
}

long KORSplitPathEx(const KORUnicodeString& path, KORUnicodeString& folder, KORUnicodeString& file) {
  const KORUnicodeString whole = path;  // which may be one of the texts to fill
  folder = KORUnicodeString();
  file = KORUnicodeString();
  return KORPerform("KORSplitPathEx", [&whole, &folder, &file] {
    if (whole.IsEmpty()) return E_INVALIDARG;
    KORCutPath(whole.Bytes(), folder, file);
    return S_OK;
  });
}
