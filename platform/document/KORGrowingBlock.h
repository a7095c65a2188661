// A block of plain values that grows in place where the system can. Private to platform/document.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string_view>
#include <type_traits>

/// Values one behind the other, as in std::vector. Growing hands the old block to the allocator to be enlarged:
/// large blocks are moved by the memory map then, without a copy, and never stand there twice.
template <class Value>
class KORGrowingBlock {
  static_assert(std::is_trivially_copyable_v<Value>);

 public:
  KORGrowingBlock() = default;
  ~KORGrowingBlock() { std::free(_Values); }
  KORGrowingBlock(const KORGrowingBlock&) = delete;
  KORGrowingBlock& operator=(const KORGrowingBlock&) = delete;

  std::size_t Size() const { return _Size; }
  Value& operator[](std::size_t index) { return _Values[index]; }
  const Value& operator[](std::size_t index) const { return _Values[index]; }

  void Append(const Value& value) {
    if (_Size == _Capacity) Resize(_Size + _Size / 2 + 64);
    _Values[_Size++] = value;
  }

  void Append(std::basic_string_view<Value> values) requires std::is_same_v<Value, char> {
    if (values.size() > _Capacity - _Size) Resize(std::max(_Size + values.size(), _Size + _Size / 2 + 64));
    std::copy_n(values.data(), values.size(), _Values + _Size);
    _Size += values.size();
  }

  /// Gives back what is not in use.
  void ShrinkToFit() {
    if (_Size < _Capacity) Resize(std::max<std::size_t>(_Size, 1));
  }

 private:
  void Resize(std::size_t capacity) {
    void* const block = std::realloc(_Values, capacity * sizeof(Value));
    if (block == nullptr) throw std::bad_alloc();
    _Values = static_cast<Value*>(block);
    _Capacity = capacity;
  }

  Value* _Values = nullptr;
  std::size_t _Size = 0;
  std::size_t _Capacity = 0;
};
