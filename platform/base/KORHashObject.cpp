// The table from pointer to pointer.
#include "platform/base/KORHashObject.h"

#include <algorithm>

KORHashObject::KORHashObject(int initial_size) {
  const auto count = static_cast<std::size_t>(std::max(initial_size, 0));
  _Entries.reserve(count);
  _Indices.reserve(count);
}

int KORHashObject::Insert(void* key, void* value) {
  if (!_Indices.try_emplace(key, _Entries.size()).second) return 0;
  _Entries.push_back({key, value});
  return 1;
}

void KORHashObject::Put(void* key, void* value) {
  if (Insert(key, value) == 0) _Entries[_Indices.at(key)].Value = value;
}

void* KORHashObject::Get(const void* key) const {
  const auto found = _Indices.find(key);
  return found == _Indices.end() ? nullptr : _Entries[found->second].Value;
}

void KORHashObject::RemoveAll() {
  _Entries.clear();
  _Indices.clear();
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
