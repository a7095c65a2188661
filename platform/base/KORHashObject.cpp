// The table from pointer to pointer.
#include "platform/base/KORHashObject.h"

#include <algorithm>
#include <bit>

namespace {

// The first place at which a key is looked for. Addresses are multiples of some power of 2; the product with a large
// odd number carries all of their digits into its upper ones, of which as many count as there are places.
std::size_t FirstPlaceOf(const void* key, std::size_t places) {
  const std::uint64_t product = reinterpret_cast<std::uintptr_t>(key) * std::uint64_t{0x9E3779B97F4A7C15};
  return static_cast<std::size_t>(product >> (64 - std::countr_zero(places)));
}

}  // namespace

KORHashObject::KORHashObject(int initial_size) {
  const auto count = static_cast<std::size_t>(std::max(initial_size, 1));
  _Entries.reserve(count);
  MakePlaces(count);
}

// The place of the key; the empty one that it would take if it doesn't stand.
std::size_t KORHashObject::PlaceOf(const void* key) const {
  std::size_t place = FirstPlaceOf(key, _Places.size());
  while (_Places[place] != 0 && _Entries[_Places[place] - 1].Key != key) place = (place + 1) & (_Places.size() - 1);
  return place;
}

// Makes room for that many entries, and puts those that stand in their places.
void KORHashObject::MakePlaces(std::size_t entries) {
  _Places.assign(std::bit_ceil(2 * entries), 0);
  for (std::uint32_t number = 1; number <= _Entries.size(); ++number) {
    _Places[PlaceOf(_Entries[number - 1].Key)] = number;
  }
}

int KORHashObject::Insert(void* key, void* value) {
  const std::size_t place = PlaceOf(key);
  if (_Places[place] != 0) return 0;
  _Entries.push_back({key, value});
  if (2 * _Entries.size() > _Places.size()) {
    MakePlaces(2 * _Entries.size());
  } else {
    _Places[place] = static_cast<std::uint32_t>(_Entries.size());
  }
  return 1;
}

void KORHashObject::Put(void* key, void* value) {
  if (Insert(key, value) == 0) _Entries[_Places[PlaceOf(key)] - 1].Value = value;
}

void* KORHashObject::Get(const void* key) const {
  const std::size_t number = _Places[PlaceOf(key)];
  return number == 0 ? nullptr : _Entries[number - 1].Value;
}

void KORHashObject::RemoveAll() {
  _Entries.clear();
  std::fill(_Places.begin(), _Places.end(), 0);
  _Next = 0;
}

int KORHashObject::Next(void*& key, void*& value) {
  if (_Next == _Entries.size()) {
    key = value = nullptr;
    return 0;
  }
  key = _Entries[_Next].Key;
  value = _Entries[_Next].Value;
  ++_Next;
  return 1;
}
