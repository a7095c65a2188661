// How texts of the exchange are cut: streams into items, items into fields, and the names of an attribute apart.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

namespace exchange {

inline constexpr char ItemSeparator = '|';
inline constexpr char FieldSeparator = ':';
inline constexpr char NameSeparator = '|';

/// First fields of the items that are looked at.
inline constexpr std::string_view AttributeData = "AttributeData";
inline constexpr std::string_view LineData = "LineData";

/// Cuts a text at a separator into fields, as VEXTADataIO::ExplodeString tells.
KORListValKORUnicodeString Explode(const KORUnicodeString& separator, const KORUnicodeString& text);

/// Gives the fields of Explode one by one, as views into the text.
class FieldCutter {
 public:
  FieldCutter(char separator, std::string_view text) : _Separator(separator), _Rest(text), _IsAtEnd(text.empty()) {}

  /// The next field; nothing behind the last one.
  std::optional<std::string_view> Next() {
    if (_IsAtEnd) return std::nullopt;
    const std::size_t end = _Rest.find(_Separator);
    const std::string_view field = _Rest.substr(0, end);
    _IsAtEnd = end == std::string_view::npos;
    if (!_IsAtEnd) _Rest.remove_prefix(end + 1);
    return field;
  }

 private:
  char _Separator;
  std::string_view _Rest;
  bool _IsAtEnd;
};

/// An item cut at ":", as views into its text. Fields behind the sixth are not looked at.
class Item {
 public:
  explicit Item(std::string_view text) {
    FieldCutter cutter(FieldSeparator, text);
    while (_Count < _Fields.size()) {
      const auto field = cutter.Next();
      if (!field) break;
      _Fields[_Count++] = *field;
    }
  }

  /// "AttributeData", "LineData", or what stands there otherwise; empty if the item has no field.
  std::string_view Kind() const { return _Fields[0]; }
  bool HasFields(std::size_t count) const { return _Count >= count; }
  /// The field at a position from 1 to 6; empty if the item does not have it.
  std::string_view Field(std::size_t position) const { return _Fields[position - 1]; }

 private:
  std::array<std::string_view, 6> _Fields;
  std::size_t _Count = 0;
};

}  // namespace exchange
