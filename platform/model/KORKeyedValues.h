// Values of several types by key: what a line of an analysis and the attributes of an object are made of.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <variant>

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

/// A table from keys to values. A key holds one value of one type at a time; any text is a key.
///
/// Copies share their content until one of them is changed, so that a copy costs a few nanoseconds. Tables that share
/// content are used on one thread.
class KORPLATFORM_API KORKeyedValues {
 public:
  /// A value as it is seen in a walk; texts are views into the table.
  using View = std::variant<std::string_view, double, int, unsigned char, KORBaseUnknown_var>;

  /// S_OK; E_FAIL, with `value` left as it was, if the key is not set or is set under another type.
  long Get(std::string_view key, KORUnicodeString& value) const;
  long Get(std::string_view key, double& value) const;
  long Get(std::string_view key, int& value) const;
  long Get(std::string_view key, unsigned char& value) const;
  long Get(std::string_view key, KORBaseUnknown_var& value) const;

  /// Sets the value of a key, whatever its type was before.
  void Set(std::string_view key, const KORUnicodeString& value);
  void Set(std::string_view key, double value);
  void Set(std::string_view key, int value);
  void Set(std::string_view key, unsigned char value);
  void Set(std::string_view key, const KORBaseUnknown_var& value);

  /// The value of a key, valid until the table is changed; nothing if the key is not set.
  std::optional<View> Look(std::string_view key) const;

  /// Walks the values in a fixed order: the known keys (KORKnownKeys) in theirs, then all others by their bytes. The
  /// table is not to be changed meanwhile.
  void ForEach(const std::function<void(std::string_view key, const View& value)>& visit) const;

 private:
  struct Content;
  template <class Value>
  const Value* Find(std::string_view key) const;
  template <class Value>
  void Put(std::string_view key, Value value);

  std::shared_ptr<Content> _Content;  // null: no key is set
};
