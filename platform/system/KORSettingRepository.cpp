// Named stores of settings.
#include "platform/system/KORSettingRepository.h"

#include <limits>
#include <string_view>

#include "platform/base/KORNumberText.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORFileContent.h"
#include "platform/system/KORPerform.h"
#include "platform/system/KORSession.h"

namespace {

std::string_view WithoutBlanksAround(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\v\f";
  const std::size_t first = text.find_first_not_of(blanks);
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// Takes the first line, with its end, away from `rest`.
std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return line;
}

}  // namespace

KORSettingRepository* KORSettingRepository::GetRepository(const KORUnicodeString& name, int /*access*/, int /*scope*/) {
  return KORGive("GetRepository", [&name] { return KORSession::Current().FindRepository(name); });
}

long KORSettingRepository::ReadSetting(const KORUnicodeString& name, KORUnicodeString& value) const {
  return KORPerform("ReadSetting", [this, &name, &value] {
    const auto found = _Settings.find(name);
    if (found == _Settings.end()) return E_FAIL;
    value = found->second;
    return S_OK;
  });
}

long KORSettingRepository::ReadSetting(const KORUnicodeString& name, double& value) const {
  return KORPerform("ReadSetting", [this, &name, &value] {
    const auto found = _Settings.find(name);
    if (found == _Settings.end()) return E_FAIL;
    const std::optional<double> number = kornumber::ReadWholeReal(found->second.Bytes());
    if (!number) return E_FAIL;
    value = *number;
    return S_OK;
  });
}

void KORSettingRepository::WriteSetting(const KORUnicodeString& name, const KORUnicodeString& value) {
  _Settings[name] = value;
}

int KORSettingRepository::LoadFile(const std::string& path) {
  std::string content;
  std::string cause;
  if (!KORReadFileContent(path, std::numeric_limits<int>::max(), content, cause)) return -1;
  std::string_view rest = content;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);  // the mark that some editors put before UTF-8

  int first_fault = 0;
  for (int number = 1; !rest.empty(); ++number) {
    const std::string_view line = WithoutBlanksAround(TakeLine(rest));
    if (line.empty() || line.front() == '#') continue;
    const std::size_t equals = line.find('=');
    const std::string_view name = WithoutBlanksAround(line.substr(0, equals));
    if (equals == std::string_view::npos || name.empty()) {
      if (first_fault == 0) first_fault = number;
      continue;
    }
    WriteSetting(KORUnicodeString(name), KORUnicodeString(WithoutBlanksAround(line.substr(equals + 1))));
  }
  return first_fault;
}
