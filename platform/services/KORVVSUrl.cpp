// Where the content of a stream comes from.
#include "platform/services/KORVVSUrl.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/system/KORHostPath.h"
#include "platform/system/KORPerform.h"

namespace {

// The bytes that stand in the path of a URL as they are; all others are escaped.
constexpr std::string_view PlainBytes =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/";

std::string Escaped(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const char character : path) {
    if (PlainBytes.find(character) != std::string_view::npos) {
      text += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      text += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
  }
  return text;
}

}  // namespace

long KORVVSUrlUtils::FromNativeFilePathToUrl(const KORUnicodeString& path, KORVVSUrl& url) {
  return KORPerform("FromNativeFilePathToUrl", [&path, &url] {
    if (path.IsEmpty()) return E_INVALIDARG;
    std::error_code failure;
    std::string absolute = std::filesystem::absolute(KORHostPath(path.Bytes()), failure).string();
    if (failure) return E_FAIL;
    url._Text = KORUnicodeString(std::string_view("file://" + Escaped(absolute)));
    url._Path = std::move(absolute);
    return S_OK;
  });
}
