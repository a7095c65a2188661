// The table from text to pointer.
#include "platform/base/KORHashDico.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

KORHashDico::KORHashDico(int initial_size) {
  _Places.reserve(static_cast<std::size_t>(std::max(initial_size, 0)));
}

int KORHashDico::Insert(const KORUnicodeString& key, void* value) {
  if (_Places.contains(key.Bytes())) return 0;
  const auto place = _Entries.insert(_Entries.end(), Entry{key, value});
  _Places.emplace(place->Key.Bytes(), place);
  return 1;
}

void* KORHashDico::Locate(const KORUnicodeString& key) const {
  const auto found = _Places.find(key.Bytes());
  return found == _Places.end() ? nullptr : found->second->Value;
}

void KORHashDico::Remove(const KORUnicodeString& key) {
  const auto found = _Places.find(key.Bytes());
  if (found == _Places.end()) return;
  const auto entry = found->second;
  _Places.erase(found);
  _Entries.erase(entry);
}

void KORHashDico::RemoveAll() {
  _Places.clear();
  _Entries.clear();
}

int KORHashDico::NextItem(const KORUnicodeString*& key, void*& value) const {
  auto next = _Entries.begin();
  if (key != nullptr) {
    const auto found = _Places.find(key->Bytes());
    next = found == _Places.end() ? _Entries.end() : std::next(std::list<Entry>::const_iterator(found->second));
  }
  const bool at_end = next == _Entries.end();
  key = at_end ? nullptr : &next->Key;
  value = at_end ? nullptr : next->Value;
  return at_end ? 0 : 1;
}
