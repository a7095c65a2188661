// Number texts between the "." notation and the decimal character of the user's locale.
#include "timevalue/DecimalCharacter.h"

#include <string_view>

#include "platform/base/KORLocale.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSystem.h"

namespace timevalue {
namespace {

constexpr const char* Dot = ".";

/// E_FAIL if the character cannot be had and if it is "." itself: then nothing is to be converted.
long FetchOtherDecimalCharacter(KORUnicodeString& character) {
  if (Failed(KORSysGetLocalDecimalChar(character)) || character == Dot) return E_FAIL;
  return S_OK;
}

}  // namespace

long ToDotDecimalCharacter(KORUnicodeString& text) {
  KORUnicodeString character;
  if (text.IsEmpty() || Failed(FetchOtherDecimalCharacter(character))) return E_FAIL;
  text.ReplaceAll(character, Dot);
  return S_OK;
}

long ToLocalDecimalCharacter(KORUnicodeString& text) {
  if (text.Bytes().find(Dot) == std::string_view::npos) return E_FAIL;
  KORUnicodeString character;
  if (Failed(FetchOtherDecimalCharacter(character))) return E_FAIL;
  text.ReplaceAll(Dot, character);
  return S_OK;
}

wchar_t DecimalCharacterInForce() {
  const wchar_t character = KORLocalDecimalCharacter();
  if (character == L'.') return character;  // nothing is converted, whether the platform gives the character or not
  KORUnicodeString given;
  return Failed(KORSysGetLocalDecimalChar(given)) ? L'\0' : character;
}

}  // namespace timevalue
