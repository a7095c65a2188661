// Values of several types by key.
#include "platform/model/KORKeyedValues.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/model/KORCompactText.h"
#include "platform/model/KORLineKeys.h"

namespace {

using StoredValue = std::variant<KORCompactText, double, int, unsigned char, KORBaseUnknown_var>;

// Known keys by the hash of their name: a table with open addressing, 0 for a free place, else the key's number from 1.
constexpr std::size_t PlaceCount = 256;
static_assert(KORKnownKeys.size() * 4 < PlaceCount);

constexpr std::size_t PlaceOf(std::string_view key) {
  std::uint32_t hash = 2166136261u;  // FNV-1a, 32 bits
  for (const char character : key) hash = (hash ^ static_cast<std::uint8_t>(character)) * 16777619u;
  return (hash ^ (hash >> 8)) % PlaceCount;
}

constexpr auto KnownKeyPlaces = [] {
  std::array<std::uint8_t, PlaceCount> places{};
  for (std::size_t number = 1; number <= KORKnownKeys.size(); ++number) {
    std::size_t place = PlaceOf(KORKnownKeys[number - 1]);
    while (places[place] != 0) place = (place + 1) % PlaceCount;
    places[place] = static_cast<std::uint8_t>(number);
  }
  return places;
}();

constexpr std::size_t LongestKnownKey =
    std::ranges::max(KORKnownKeys, {}, [](std::string_view key) { return key.size(); }).size();

// Index of a known key; nothing for any other key.
std::optional<std::uint8_t> FindKnownKey(std::string_view key) {
  if (key.size() > LongestKnownKey) return std::nullopt;
  for (std::size_t place = PlaceOf(key);; place = (place + 1) % PlaceCount) {
    const std::uint8_t number = KnownKeyPlaces[place];
    if (number == 0) return std::nullopt;
    if (KORKnownKeys[number - 1u] == key) return static_cast<std::uint8_t>(number - 1);
  }
}

template <class Key>
struct Entry {
  StoredValue Value;
  Key Name;
};

// Entries stand in the order of their keys.
template <class Entries, class Key>
auto Locate(Entries& entries, const Key& key) {
  return std::lower_bound(entries.begin(), entries.end(), key,
                          [](const auto& entry, const Key& wanted) { return entry.Name < wanted; });
}

template <class Key, class Wanted>
const StoredValue* FindIn(const std::vector<Entry<Key>>& entries, const Wanted& key) {
  const auto place = Locate(entries, key);
  return place == entries.end() || place->Name != key ? nullptr : &place->Value;
}

template <class Key, class Wanted>
StoredValue& PlaceIn(std::vector<Entry<Key>>& entries, const Wanted& key) {
  auto place = Locate(entries, key);
  if (place == entries.end() || place->Name != key) place = entries.insert(place, {StoredValue(), Key(key)});
  return place->Value;
}

KORKeyedValues::View ViewOf(const StoredValue& value) {
  return std::visit(
      [](const auto& held) -> KORKeyedValues::View {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, KORCompactText>) {
          return held.Bytes();
        } else {
          return held;
        }
      },
      value);
}

template <class Value>
long Read(const Value* found, Value& value) {
  if (found == nullptr) return E_FAIL;
  value = *found;
  return S_OK;
}

}  // namespace

struct KORKeyedValues::Content {
  std::vector<Entry<std::uint8_t>> Known;
  std::vector<Entry<std::string>> Others;

  const StoredValue* Find(std::string_view key) const {
    const std::optional<std::uint8_t> known = FindKnownKey(key);
    return known ? FindIn(Known, *known) : FindIn(Others, key);
  }

  StoredValue& Place(std::string_view key) {
    const std::optional<std::uint8_t> known = FindKnownKey(key);
    return known ? PlaceIn(Known, *known) : PlaceIn(Others, key);
  }
};

template <class Value>
const Value* KORKeyedValues::Find(std::string_view key) const {
  const StoredValue* const value = _Content == nullptr ? nullptr : _Content->Find(key);
  return value == nullptr ? nullptr : std::get_if<Value>(value);
}

template <class Value>
void KORKeyedValues::Put(std::string_view key, Value value) {
  if (_Content == nullptr) {
    _Content = std::make_shared<Content>();
  } else if (_Content.use_count() > 1) {
    _Content = std::make_shared<Content>(*_Content);
  }
  _Content->Place(key) = std::move(value);
}

long KORKeyedValues::Get(std::string_view key, KORUnicodeString& value) const {
  const auto* const found = Find<KORCompactText>(key);
  if (found == nullptr) return E_FAIL;
  value = KORUnicodeString(found->Bytes());
  return S_OK;
}

long KORKeyedValues::Get(std::string_view key, double& value) const {
  return Read(Find<double>(key), value);
}

long KORKeyedValues::Get(std::string_view key, int& value) const {
  return Read(Find<int>(key), value);
}

long KORKeyedValues::Get(std::string_view key, unsigned char& value) const {
  return Read(Find<unsigned char>(key), value);
}

long KORKeyedValues::Get(std::string_view key, KORBaseUnknown_var& value) const {
  return Read(Find<KORBaseUnknown_var>(key), value);
}

void KORKeyedValues::Set(std::string_view key, const KORUnicodeString& value) {
  Put(key, KORCompactText(value.Bytes()));
}

void KORKeyedValues::Set(std::string_view key, double value) {
  Put(key, value);
}

void KORKeyedValues::Set(std::string_view key, int value) {
  Put(key, value);
}

void KORKeyedValues::Set(std::string_view key, unsigned char value) {
  Put(key, value);
}

void KORKeyedValues::Set(std::string_view key, const KORBaseUnknown_var& value) {
  Put(key, value);
}

void KORKeyedValues::ForEach(const std::function<void(std::string_view key, const View& value)>& visit) const {
  if (_Content == nullptr) return;
  for (const Entry<std::uint8_t>& entry : _Content->Known) visit(KORKnownKeys[entry.Name], ViewOf(entry.Value));
  for (const Entry<std::string>& entry : _Content->Others) visit(entry.Name, ViewOf(entry.Value));
}

std::optional<KORKeyedValues::View> KORKeyedValues::Look(std::string_view key) const {
  const StoredValue* const value = _Content == nullptr ? nullptr : _Content->Find(key);
  return value == nullptr ? std::nullopt : std::optional(ViewOf(*value));
}
