// A stack whose first elements need no memory of their own.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

/// The first `InlineCount` elements lie in the object, deeper ones on the heap. Meant for elements without initial
/// values, so that a stack costs nothing until it is used.
template <class Element, std::size_t InlineCount>
class KORInlineStack {
 public:
  bool IsEmpty() const { return _Size == 0; }
  std::size_t Size() const { return _Size; }

  void Push(const Element& element) {
    if (_Size < InlineCount) {
      _First[_Size] = element;
    } else {
      _Deeper.push_back(element);
    }
    ++_Size;
  }

  Element Pop() {
    --_Size;
    if (_Size < InlineCount) return _First[_Size];
    const Element element = _Deeper.back();
    _Deeper.pop_back();
    return element;
  }

  const Element& Top() const { return (*this)[_Size - 1]; }
  const Element& operator[](std::size_t index) const {
    return index < InlineCount ? _First[index] : _Deeper[index - InlineCount];
  }

 private:
  std::array<Element, InlineCount> _First;
  std::vector<Element> _Deeper;
  std::size_t _Size = 0;
};
