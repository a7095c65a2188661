// The JSON document: objects and arrays that are read from a file, changed by key and position, and written as text.
//
// Objects keep the order of their keys. Integers and reals are told apart, on reading and on writing: 0 is an integer,
// 0.0, 0e0 and a whole number beyond 64 bits are reals, and the real 2 is written as 2.0. A real is written with as
// many digits as read back bit for bit, with "." in every locale; NaN and the infinities, which JSON has no form for,
// are written as null. Texts hold any character of Unicode, NUL included.
//
// Objects and arrays are values: a copy is independent of what it was copied from. A move costs a few nanoseconds
// whatever the size, and what was moved from is empty. One object or array serves one thread at a time, also for
// reading. Where memory runs out outside of the reading of a file, std::bad_alloc comes out, as from the texts of the
// platform, and nothing was changed; there is no other exception. Giving up nested values takes a little memory of its
// own; where not even that is left, the process ends.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/KORExport.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUnicodeString.h"

class KOROmxJsonArray;

/// The kinds of JSON values, by the platform's numbers.
enum class KOROmxJsonType {
  Missing = 0,  // no value: the key is not there
  Boolean = 1,
  Real = 2,
  Integer = 3,
  Null = 4,
  String = 5,
  Object = 6,
  Array = 7,
};

/// Bounds on what comes from outside: a file that is longer, or nested deeper, is not read.
inline constexpr std::size_t KOROmxLongestJsonFile = std::size_t{16} << 20;  // bytes: 16 MiB
inline constexpr int KOROmxDeepestJsonFile = 1000;  // levels, the object at the top being the first
/// What is put together may be nested twice as deep. An object or array counts as deep as it has ever been.
inline constexpr int KOROmxDeepestJson = 2000;

/// A text of the document room.
class KOROmxUTF8String {
 public:
  explicit KOROmxUTF8String(KORUnicodeString text) : _Text(std::move(text)) {}
  std::string_view Bytes() const { return _Text.Bytes(); }

 private:
  KORUnicodeString _Text;
};

/// The path of a file.
class KOROmxFilePath {
 public:
  explicit KOROmxFilePath(KOROmxUTF8String path) : _Path(std::move(path)) {}
  std::string_view Bytes() const { return _Path.Bytes(); }

 private:
  KOROmxUTF8String _Path;
};

/// A key of an object; any text is one.
class KOROmxKeyString {
 public:
  KOROmxKeyString() = default;
  KOROmxKeyString(const char* key) : _Text(key) {}  // implicit on purpose: literals stand for keys everywhere
  explicit KOROmxKeyString(KORUnicodeString key) : _Text(std::move(key)) {}
  const KORUnicodeString& GetText() const { return _Text; }
  std::string_view Bytes() const { return _Text.Bytes(); }

 private:
  KORUnicodeString _Text;
};

/// A walk over the keys that an object had when the walk was begun, in their order.
class KORPLATFORM_API KOROmxBaseIterVar {
 public:
  explicit KOROmxBaseIterVar(std::vector<KOROmxKeyString> keys) : _Keys(std::move(keys)) {}

  /// True and the next key; false, with `key` left as it was, behind the last one.
  bool nextItem(KOROmxKeyString& key);

 private:
  std::vector<KOROmxKeyString> _Keys;
  std::size_t _Next = 0;
};

/// What objects and arrays are made of: a value of the library behind them, which no header names.
class KORPLATFORM_API KOROmxJsonContent {
 public:
  struct Data;

  KOROmxJsonContent();
  explicit KOROmxJsonContent(std::unique_ptr<Data> data);
  KOROmxJsonContent(const KOROmxJsonContent& other);
  KOROmxJsonContent(KOROmxJsonContent&& other) noexcept;
  KOROmxJsonContent& operator=(const KOROmxJsonContent& other);
  KOROmxJsonContent& operator=(KOROmxJsonContent&& other) noexcept;
  ~KOROmxJsonContent();

  Data* Get() const { return _Data.get(); }

 private:
  std::unique_ptr<Data> _Data;  // null: empty
};

/// A JSON object: values by key, in the order in which the keys came.
class KORPLATFORM_API KOROmxJsonObject {
 public:
  /// An object without keys.
  KOROmxJsonObject() = default;

  /// The object that a file holds. It is left without keys if the file is missing, cannot be read, is longer or nested
  /// deeper than the bounds above, needs more memory to be read than there is, is no JSON (RFC 8259) as a whole, or has
  /// something other than an object at its top.
  ///
  /// Of several values under one key the last one holds, at the place of the first. Bytes that are no valid UTF-8 as a
  /// whole are read as Windows-1252, as KORUnicodeString does; a byte order mark of UTF-8 is passed over. A number
  /// beyond the range of a double, and an escape of half a pair of surrogates, are no JSON here.
  explicit KOROmxJsonObject(const KOROmxFilePath& path);

  /// Begins a walk over the keys.
  KOROmxBaseIterVar GetIterator() const;

  /// What stands under a key. Asking for keys in their order takes the same time for each, however many there are.
  KOROmxJsonType GetJsonType(const KOROmxKeyString& key) const;

  /// Copies of the object or array under a key. S_OK; E_FAIL, with the argument left as it was, if something else
  /// stands there or nothing.
  long GetJsonObject(const KOROmxKeyString& key, KOROmxJsonObject& object) const;
  long GetJsonArray(const KOROmxKeyString& key, KOROmxJsonArray& array) const;

  /// Replace the value under a key, whatever its kind was; a key that is not there is added behind the others. S_OK.
  /// For an object or array also E_INVALIDARG, with nothing changed, if the whole would be nested deeper than
  /// KOROmxDeepestJson.
  long PutBoolean(const KOROmxKeyString& key, bool value);
  long PutDouble(const KOROmxKeyString& key, double value);
  long PutInteger(const KOROmxKeyString& key, int value);
  long PutString(const KOROmxKeyString& key, const KORUnicodeString& value);
  long PutJsonObject(const KOROmxKeyString& key, KOROmxJsonObject object);
  long PutJsonArray(const KOROmxKeyString& key, KOROmxJsonArray array);

  /// The document as text, without blanks and line breaks between its parts; "{}" without keys. Quotes, backslashes and
  /// control characters are escaped, all other characters stand as they are.
  KORUnicodeString ToString() const;

 private:
  friend class KOROmxJsonArray;
  KOROmxJsonContent _Content;
};

/// A JSON array of any values, in positions from 1.
class KORPLATFORM_API KOROmxJsonArray {
 public:
  /// An array without values.
  KOROmxJsonArray() = default;

  /// Takes the value at a position away; those behind it move up. S_OK; E_INVALIDARG, with nothing changed, for a
  /// position at which nothing stands.
  long Remove(int position);

  /// Inserts an object at a position; what stood there, and all behind it, moves one position on. One past the last
  /// position appends. S_OK; E_INVALIDARG, with nothing changed, for any other position, and if the whole would be
  /// nested deeper than KOROmxDeepestJson.
  long PutJsonObject(int position, KOROmxJsonObject object);

 private:
  friend class KOROmxJsonObject;
  KOROmxJsonContent _Content;
};
