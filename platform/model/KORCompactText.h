// A text in sixteen bytes, for tables of very many values.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <utility>

/// A text that never changes. Up to twelve bytes stand in the object itself, longer ones on the heap. A text of four
/// gigabytes or more is refused with std::length_error.
class KORCompactText {
 public:
  KORCompactText() = default;
  explicit KORCompactText(std::string_view bytes) : _Length(LengthOf(bytes)) {
    char* target = _Bytes.data();
    if (IsOnHeap()) {
      target = new char[_Length];
      std::memcpy(_Bytes.data(), &target, sizeof target);
    }
    if (_Length > 0) std::memcpy(target, bytes.data(), _Length);
  }
  KORCompactText(const KORCompactText& other) : KORCompactText(other.Bytes()) {}
  KORCompactText(KORCompactText&& other) noexcept { Swap(other); }
  KORCompactText& operator=(KORCompactText other) noexcept {
    Swap(other);
    return *this;
  }
  ~KORCompactText() {
    if (IsOnHeap()) delete[] OnHeap();
  }

  std::string_view Bytes() const { return {IsOnHeap() ? OnHeap() : _Bytes.data(), _Length}; }

 private:
  static std::uint32_t LengthOf(std::string_view bytes) {
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("a text of 4 GiB or more");
    return static_cast<std::uint32_t>(bytes.size());
  }

  bool IsOnHeap() const { return _Length > _Bytes.size(); }
  char* OnHeap() const {
    char* bytes;
    std::memcpy(&bytes, _Bytes.data(), sizeof bytes);
    return bytes;
  }
  void Swap(KORCompactText& other) noexcept {
    std::swap(_Length, other._Length);
    std::swap(_Bytes, other._Bytes);
  }

  std::uint32_t _Length = 0;
  std::array<char, 12> _Bytes{};  // the text, or at its head the address of the text on the heap
};
