// How texts of the exchange are cut.
#include "exchange/ItemText.h"

namespace exchange {

KORListValKORUnicodeString Explode(const KORUnicodeString& separator, const KORUnicodeString& text) {
  KORListValKORUnicodeString fields;
  if (text.IsEmpty()) return fields;
  const std::string_view bytes = text.Bytes();
  // One character is cut away with each field, however long the separator is.
  const std::size_t cut_away = separator.SubString(0, 1).Bytes().size();
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = separator.IsEmpty() ? std::string_view::npos : bytes.find(separator.Bytes(), start);
    fields.Append(KORUnicodeString(bytes.substr(start, end - start)));
    if (end == std::string_view::npos) return fields;
    start = end + cut_away;
  }
}

}  // namespace exchange
