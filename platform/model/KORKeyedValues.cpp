// Values of several types by key.
#include "platform/model/KORKeyedValues.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/model/KORCompactText.h"
#include "platform/model/KORKnownKeys.h"

namespace {

using StoredValue = std::variant<KORCompactText, double, int, unsigned char, KORBaseUnknown_var>;

// Known keys by the hash of their name: a table with open addressing, 0 for a free place, else the key's number from 1.
constexpr std::size_t PlaceCount = 256;
static_assert(KORKnownKeys.size() * 4 < PlaceCount);
static_assert(KORKnownKeys.size() <= 64, "a table marks its keys by the bits of one number");

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
std::optional<unsigned> FindKnownKey(std::string_view key) {
  if (key.size() > LongestKnownKey) return std::nullopt;
  for (std::size_t place = PlaceOf(key);; place = (place + 1) % PlaceCount) {
    const std::uint8_t number = KnownKeyPlaces[place];
    if (number == 0) return std::nullopt;
    if (KORKnownKeys[number - 1u] == key) return number - 1u;
  }
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

// The values of the known keys stand one behind the other in the order of the keys: so a key is found by counting those
// ahead of it, and a table takes little more room than its values.
struct KORKeyedValues::Content {
  std::uint64_t KnownKeys = 0;  // bit N: the key with the index N is set
  std::vector<StoredValue> KnownValues;
  std::map<std::string, StoredValue, std::less<>> OtherValues;

  const StoredValue* Find(std::string_view key) const {
    if (const std::optional<unsigned> known = FindKnownKey(key)) {
      return IsSet(*known) ? &KnownValues[PositionOf(*known)] : nullptr;
    }
    const auto found = OtherValues.find(key);
    return found == OtherValues.end() ? nullptr : &found->second;
  }

  StoredValue& Place(std::string_view key) {
    if (const std::optional<unsigned> known = FindKnownKey(key)) return PlaceKnown(*known);
    const auto found = OtherValues.lower_bound(key);
    if (found != OtherValues.end() && found->first == key) return found->second;
    return OtherValues.emplace_hint(found, key, StoredValue())->second;
  }

  bool IsSet(unsigned known) const { return (KnownKeys >> known & 1u) != 0; }

 private:
  std::size_t PositionOf(unsigned known) const {
    return static_cast<std::size_t>(std::popcount(KnownKeys & ((std::uint64_t{1} << known) - 1)));
  }

  StoredValue& PlaceKnown(unsigned known) {
    const auto position = static_cast<std::ptrdiff_t>(PositionOf(known));
    if (!IsSet(known)) {
      // Grows by a few places at a time: there are very many tables, and each has few values.
      if (KnownValues.size() == KnownValues.capacity()) KnownValues.reserve(KnownValues.size() + 8);
      KnownValues.emplace(KnownValues.begin() + position);
      KnownKeys |= std::uint64_t{1} << known;
    }
    return KnownValues[static_cast<std::size_t>(position)];
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
  std::size_t position = 0;
  for (unsigned known = 0; known < KORKnownKeys.size(); ++known) {
    if (_Content->IsSet(known)) visit(KORKnownKeys[known], ViewOf(_Content->KnownValues[position++]));
  }
  for (const auto& [key, value] : _Content->OtherValues) visit(key, ViewOf(value));
}

std::optional<KORKeyedValues::View> KORKeyedValues::Look(std::string_view key) const {
  const StoredValue* const value = _Content == nullptr ? nullptr : _Content->Find(key);
  return value == nullptr ? std::nullopt : std::optional(ViewOf(*value));
}
