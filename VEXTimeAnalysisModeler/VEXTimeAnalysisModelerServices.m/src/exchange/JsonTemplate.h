// An object of a JSON template, and how it becomes the object of an analysis or of a line.
#pragma once

#include <utility>
#include <vector>

#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/document/KOROmxJson.h"

namespace exchange {

/// Keys with an example each. An example is never exported; its type tells how the value of the key is read, and a
/// source that does not hold the key with that type gives the value in the last column.
///
///   example     read as            not held
///   boolean     unsigned char      false
///   real        double             0.0
///   integer     int                0
///   text        KORUnicodeString   ""
///   any other   not read           stays as it is in the template
class JsonTemplate {
 public:
  explicit JsonTemplate(KOROmxJsonObject object) : _Object(std::move(object)) {
    KOROmxBaseIterVar keys = _Object.GetIterator();
    for (KOROmxKeyString key; keys.nextItem(key);) {
      _Places.push_back({key, KORString(key.GetText()), _Object.GetJsonType(key)});
    }
  }

  /// The object with the values of a source, which has a GetValue for each of the four types.
  template <class Source>
  KOROmxJsonObject FilledFrom(Source& source) const {
    KOROmxJsonObject filled = _Object;
    for (const Place& place : _Places) Fill(place, source, filled);
    return filled;
  }

 private:
  struct Place {
    KOROmxKeyString Key;
    KORString SourceKey;  // the same
    KOROmxJsonType Type;
  };

  template <class Value, class Source>
  static Value Read(Source& source, const KORString& key) {
    Value value{};
    (void)source.GetValue(key, value);  // stays as it is if it cannot be read
    return value;
  }

  template <class Source>
  static void Fill(const Place& place, Source& source, KOROmxJsonObject& filled) {
    switch (place.Type) {
      case KOROmxJsonType::Boolean:
        (void)filled.PutBoolean(place.Key, Read<unsigned char>(source, place.SourceKey) != 0);
        break;
      case KOROmxJsonType::Real:
        (void)filled.PutDouble(place.Key, Read<double>(source, place.SourceKey));
        break;
      case KOROmxJsonType::Integer:
        (void)filled.PutInteger(place.Key, Read<int>(source, place.SourceKey));
        break;
      case KOROmxJsonType::String:
        (void)filled.PutString(place.Key, Read<KORUnicodeString>(source, place.SourceKey));
        break;
      default:
        break;
    }
  }

  KOROmxJsonObject _Object;
  std::vector<Place> _Places;
};

}  // namespace exchange
