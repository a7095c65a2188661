// What modules tell the platform of their classes, for the process.
#include "platform/base/KORFillDictionary.h"

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

namespace {

// A table in which each key stands once, with the first value that it got.
template <class Key, class Value>
class Table {
 public:
  bool Add(const Key& key, Value value) {
    const std::lock_guard lock(_Mutex);
    return _Values.try_emplace(key, value).second;
  }

  // Null if there is none.
  template <class Sought>
  Value Find(const Sought& key) {
    const std::lock_guard lock(_Mutex);
    const auto found = _Values.find(key);
    return found == _Values.end() ? nullptr : found->second;
  }

 private:
  std::mutex _Mutex;  // guards the values
  std::map<Key, Value, std::less<>> _Values;
};

using KeyOfEntry = std::pair<decltype(KORUuid::Bytes), decltype(KORUuid::Bytes)>;  // identifier and kind

// Never destroyed: objects that end behind the static ones may still make components.
Table<std::string, KORComponentMaker>& Components() {
  static auto* const components = new Table<std::string, KORComponentMaker>;
  return *components;
}

Table<KeyOfEntry, const KORMetaClass*>& Entries() {
  static auto* const entries = new Table<KeyOfEntry, const KORMetaClass*>;
  return *entries;
}

}  // namespace

bool KORFillDictionary::RegisterFunctionCreation(const char* component, KORComponentMaker maker) {
  return Components().Add(component, maker);
}

KORComponentMaker KORFillDictionary::FindFunctionCreation(const char* component) {
  return Components().Find(std::string_view(component));
}

bool KORFillDictionary::AddDictionary(const KORUuid& identifier, const KORUuid& kind, const KORMetaClass* entry) {
  return Entries().Add({identifier.Bytes, kind.Bytes}, entry);
}

const KORMetaClass* KORFillDictionary::FindInDictionary(const KORUuid& identifier, const KORUuid& kind) {
  return Entries().Find(KeyOfEntry(identifier.Bytes, kind.Bytes));
}
