// The sequence of objects whose positions count from 0.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/base/KORFatalError.h"

class KORBaseUnknown;

/// A sequence of objects in positions 0 to Size() - 1; every other list of the platform counts from 1.
///
/// The sequence owns its array, not the objects: whoever is told that each object comes with a reference releases them.
/// A position outside is a broken invariant of the caller and ends the process. Copies are independent sequences.
class _SEQUENCE_KORBaseUnknown_ptr {
 public:
  int Size() const { return static_cast<int>(_Objects.size()); }
  void Append(KORBaseUnknown* object) { _Objects.push_back(object); }

  KORBaseUnknown*& operator[](int position) {
    CheckPosition(position);
    return _Objects[static_cast<std::size_t>(position)];
  }
  KORBaseUnknown* operator[](int position) const {
    CheckPosition(position);
    return _Objects[static_cast<std::size_t>(position)];
  }

 private:
  void CheckPosition(int position) const {
    if (position < 0 || position >= Size()) {
      KORFatalError("AssertionFailed:0 <= position && position < Size()", nullptr, nullptr, nullptr, __FILE__,
                    __LINE__);
    }
  }

  std::vector<KORBaseUnknown*> _Objects;
};
