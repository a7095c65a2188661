// Lists whose positions count from 1: the value lists and the raw collections of the platform.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/base/KORFatalError.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

class KORBaseUnknown;

/// A list of values in positions 1 to Size(). Copies are independent lists.
///
/// A list of pointers owns nothing: destroying it leaves the objects alone.
/// A position outside 1 to Size() is a broken invariant of the caller and ends the process.
template <class Value>
class KORList {
 public:
  KORList() = default;
  /// An empty list with room for that many values; a negative number stands for 0.
  explicit KORList(int capacity) { _Values.reserve(static_cast<std::size_t>(std::max(capacity, 0))); }

  int Size() const { return static_cast<int>(_Values.size()); }

  void Append(const Value& value) { _Values.push_back(value); }

  /// Appends the entries of `other`, in order.
  void Append(const KORList& other) {
    for (std::size_t index = 0, count = other._Values.size(); index < count; ++index) {
      _Values.push_back(other._Values[index]);
    }
  }

  Value& operator[](int position) { return _Values[IndexOf(position)]; }
  const Value& operator[](int position) const { return _Values[IndexOf(position)]; }

  /// The first position, not before `from`, that holds a value equal to `value`; 0 if there is none. A `from` ahead of
  /// the list stands for 1.
  int Locate(const Value& value, int from = 1) const {
    const auto start = _Values.begin() + std::min(std::max(from, 1) - 1, Size());
    const auto found = std::find(start, _Values.end(), value);
    return found == _Values.end() ? 0 : static_cast<int>(found - _Values.begin()) + 1;
  }

  void RemoveAll() { _Values.clear(); }

  auto begin() const { return _Values.begin(); }
  auto end() const { return _Values.end(); }

  friend bool operator==(const KORList&, const KORList&) = default;

 private:
  std::size_t IndexOf(int position) const {
    if (position < 1 || position > Size()) {
      KORFatalError("AssertionFailed:1 <= position && position <= Size()", nullptr, nullptr, nullptr, __FILE__,
                    __LINE__);
    }
    return static_cast<std::size_t>(position - 1);
  }

  std::vector<Value> _Values;
};

/// The platform's truth value; a byte, so that lists of it hand out references.
using KORBoolean = unsigned char;

using KORListValKORUnicodeString = KORList<KORUnicodeString>;
using KORListValKORString = KORList<KORString>;
using KORListValKORBoolean = KORList<KORBoolean>;

using KORRawCollPV = KORList<void*>;
using KORRawColldouble = KORList<double>;
using KORRawCollint = KORList<int>;
using KORListPtrKORBaseUnknown = KORList<KORBaseUnknown*>;
/// KORBaseUnknown is the one base of all objects, and so what an unknown object is held by.
using KORListPtrIUnknown = KORListPtrKORBaseUnknown;
