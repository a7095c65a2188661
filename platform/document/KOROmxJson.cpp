// The JSON document. The grammar that is read, in short (RFC 8259):
//
//   object = "{" [ text ":" value { "," text ":" value } ] "}"
//   array  = "[" [ value { "," value } ] "]"
//   value  = object | array | text | number | "true" | "false" | "null"
//
// Blanks, tabs and line ends may stand between the parts; there are no comments.
#include "platform/document/KOROmxJson.h"

#include <locale.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <nlohmann/json.hpp>
#include <numeric>
#include <string>

#include "platform/system/KORFileContent.h"

namespace {

using Json = nlohmann::ordered_json;
using Members = Json::object_t;

// Numbers are read with the locale's decimal character by the library, which takes it for one byte. So they are read
// under the locale "C", in force on this thread alone.
class PlainNumbers {
 public:
  PlainNumbers() : _Before(uselocale(Plain())) {}
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;
  ~PlainNumbers() { uselocale(_Before); }

 private:
  static locale_t Plain() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
  }

  locale_t _Before;
};

// The members of an object in the order in which they are read. Not the library's own list, which copies all values
// whenever it grows.
using ReadMembers = std::vector<std::pair<std::string, Json>>;

// Of several members with one key the first takes the value of the last; true for all but the first. By sorting, so
// that the time is in proportion to the number of keys, whatever they are.
std::vector<bool> MergeEqualKeys(ReadMembers& members) {
  std::vector<std::size_t> places(members.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::sort(places.begin(), places.end(), [&members](std::size_t left, std::size_t right) {
    const int difference = members[left].first.compare(members[right].first);
    return difference < 0 || (difference == 0 && left < right);
  });
  std::vector<bool> merged(members.size());
  std::size_t first = 0;
  for (std::size_t next = 1; next < places.size(); ++next) {
    if (members[places[next]].first != members[places[first]].first) {
      first = next;
      continue;
    }
    std::swap(members[places[first]].second, members[places[next]].second);
    merged[places[next]] = true;
  }
  return merged;
}

Json ObjectOf(ReadMembers members) {
  const std::vector<bool> merged = MergeEqualKeys(members);
  Json object = Json::object();
  Members::Container& list = object.get_ref<Members&>();
  list.reserve(members.size());
  for (std::size_t place = 0; place < members.size(); ++place) {
    if (!merged[place]) list.emplace_back(std::move(members[place].first), std::move(members[place].second));
  }
  return object;
}

// Takes the parts of a text in their order from the library's parser and builds the value. The names of its functions
// are the library's. Each gives false to stop the reading.
class ValueBuilder {
 public:
  Json& Value() { return _Value; }
  int Depth() const { return _Depth; }

  bool null() { return Add(nullptr); }
  bool boolean(bool value) { return Add(value); }
  bool number_integer(std::int64_t value) { return Add(value); }
  bool number_unsigned(std::uint64_t value) { return Add(value); }
  bool number_float(double value, const std::string& /*text*/) { return Add(value); }
  bool string(std::string& value) { return Add(std::move(value)); }
  bool binary(Json::binary_t& /*value*/) { return false; }
  bool start_object(std::size_t /*size*/) { return Open(true); }
  bool start_array(std::size_t /*size*/) { return Open(false); }
  bool key(std::string& value) {
    _Open.back().Members.emplace_back(std::move(value), nullptr);
    return true;
  }
  bool end_object() { return Close(); }
  bool end_array() { return Close(); }
  bool parse_error(std::size_t /*position*/, const std::string& /*token*/, const nlohmann::detail::exception& /*why*/) {
    return false;
  }

 private:
  // An object or array that is not closed yet.
  struct Part {
    bool IsObject;
    ReadMembers Members;     // the last one waits for its value
    Json::array_t Elements;  // of an array
  };

  bool Add(Json value) {
    if (_Open.empty()) {
      _Value = std::move(value);
    } else if (_Open.back().IsObject) {
      _Open.back().Members.back().second = std::move(value);
    } else {
      _Open.back().Elements.push_back(std::move(value));
    }
    return true;
  }

  bool Open(bool is_object) {
    if (static_cast<int>(_Open.size()) == KOROmxDeepestJsonFile) return false;
    _Open.push_back({is_object, {}, {}});
    _Depth = std::max(_Depth, static_cast<int>(_Open.size()));
    return true;
  }

  bool Close() {
    Part part = std::move(_Open.back());
    _Open.pop_back();
    return Add(part.IsObject ? ObjectOf(std::move(part.Members)) : Json(std::move(part.Elements)));
  }

  Json _Value;
  std::vector<Part> _Open;
  int _Depth = 0;
};

KOROmxJsonType TypeOf(const Json& value) {
  switch (value.type()) {
    case Json::value_t::boolean:
      return KOROmxJsonType::Boolean;
    case Json::value_t::number_float:
      return KOROmxJsonType::Real;
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
      return KOROmxJsonType::Integer;
    case Json::value_t::string:
      return KOROmxJsonType::String;
    case Json::value_t::object:
      return KOROmxJsonType::Object;
    case Json::value_t::array:
      return KOROmxJsonType::Array;
    default:
      return KOROmxJsonType::Null;
  }
}

}  // namespace

// A value with what is known of it.
struct KOROmxJsonContent::Data {
  Json Value;
  int Depth = 1;              // levels of objects and arrays, at least as many as there are
  std::size_t LastFound = 0;  // index of the member that was asked for last

  // The value under a key; null if it is not there. The search begins at the last find, as keys are mostly asked for
  // in their order.
  Json* Find(std::string_view key) {
    Members& members = Value.get_ref<Members&>();
    for (std::size_t tried = 0; tried < members.size(); ++tried, ++LastFound) {
      if (LastFound >= members.size()) LastFound = 0;
      auto& [name, value] = members.begin()[static_cast<std::ptrdiff_t>(LastFound)];
      if (name == key) return &value;
    }
    return nullptr;
  }

  // The value under a key, which is null for a key that was not there.
  Json& Place(std::string_view key) {
    if (Json* const found = Find(key)) return *found;
    Members::Container& members = Value.get_ref<Members&>();
    return members.emplace_back(std::string(key), nullptr).second;
  }
};

namespace {

using Data = KOROmxJsonContent::Data;

// The data of an object or array that is to be changed, made if there is none yet.
Data& Changeable(KOROmxJsonContent& content, Json::value_t type) {
  if (content.Get() == nullptr) {
    content = KOROmxJsonContent(std::make_unique<Data>(Data{Json(type)}));
  }
  return *content.Get();
}

// Copies what stands under a key if it is of that type.
long CopyMember(const KOROmxJsonContent& object, std::string_view key, Json::value_t type, KOROmxJsonContent& target) {
  const Json* const found = object.Get() == nullptr ? nullptr : object.Get()->Find(key);
  if (found == nullptr || found->type() != type) return E_FAIL;
  target = KOROmxJsonContent(std::make_unique<Data>(Data{*found, std::max(object.Get()->Depth - 1, 1)}));
  return S_OK;
}

// Puts a plain value under a key.
template <class Value>
long PutPlain(KOROmxJsonContent& object, std::string_view key, const Value& value) {
  Changeable(object, Json::value_t::object).Place(key) = value;
  return S_OK;
}

// Moves an object or array, which is empty where there is no data, to the place that `place` makes for it.
template <class Place>
long PutNested(KOROmxJsonContent& whole, Json::value_t type, KOROmxJsonContent& part, Json::value_t part_type,
               const Place& place) {
  Data& data = Changeable(whole, type);
  Data& nested = Changeable(part, part_type);
  place(data) = std::move(nested.Value);
  data.Depth = std::max(data.Depth, nested.Depth + 1);
  return S_OK;
}

bool IsTooDeepInside(const KOROmxJsonContent& part) {
  return part.Get() != nullptr && part.Get()->Depth >= KOROmxDeepestJson;
}

// The value that a text stands for; null data if it stands for none, or for anything but an object.
std::unique_ptr<Data> ParseObject(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) return nullptr;  // which the library takes for the end of the text
  const PlainNumbers plain_numbers;
  ValueBuilder builder;
  if (!Json::sax_parse(text.begin(), text.end(), &builder) || !builder.Value().is_object()) return nullptr;
  return std::make_unique<Data>(Data{std::move(builder.Value()), builder.Depth()});
}

}  // namespace

bool KOROmxBaseIterVar::nextItem(KOROmxKeyString& key) {
  if (_Next == _Keys.size()) return false;
  key = _Keys[_Next++];
  return true;
}

KOROmxJsonContent::KOROmxJsonContent() = default;
KOROmxJsonContent::KOROmxJsonContent(std::unique_ptr<Data> data) : _Data(std::move(data)) {
}
KOROmxJsonContent::KOROmxJsonContent(const KOROmxJsonContent& other)
    : _Data(other._Data == nullptr ? nullptr : std::make_unique<Data>(*other._Data)) {
}
KOROmxJsonContent::KOROmxJsonContent(KOROmxJsonContent&& other) noexcept = default;
KOROmxJsonContent& KOROmxJsonContent::operator=(const KOROmxJsonContent& other) {
  return *this = KOROmxJsonContent(other);
}
KOROmxJsonContent& KOROmxJsonContent::operator=(KOROmxJsonContent&& other) noexcept = default;
KOROmxJsonContent::~KOROmxJsonContent() = default;

// Objects

KOROmxJsonObject::KOROmxJsonObject(const KOROmxFilePath& path) {
  try {
    std::string content;
    std::string cause;
    if (!KORReadFileContent(std::string(path.Bytes()), KOROmxLongestJsonFile, content, cause)) return;
    const KORUnicodeString text{std::string_view(content)};
    _Content = KOROmxJsonContent(ParseObject(text.Bytes()));
  } catch (const std::bad_alloc&) {
    _Content = KOROmxJsonContent();
  }
}

KOROmxBaseIterVar KOROmxJsonObject::GetIterator() const {
  std::vector<KOROmxKeyString> keys;
  if (const Data* const data = _Content.Get()) {
    const Members& members = data->Value.get_ref<const Members&>();
    keys.reserve(members.size());
    for (const auto& [name, value] : members) keys.emplace_back(KORUnicodeString(std::string_view(name)));
  }
  return KOROmxBaseIterVar(std::move(keys));
}

KOROmxJsonType KOROmxJsonObject::GetJsonType(const KOROmxKeyString& key) const {
  const Json* const found = _Content.Get() == nullptr ? nullptr : _Content.Get()->Find(key.Bytes());
  return found == nullptr ? KOROmxJsonType::Missing : TypeOf(*found);
}

long KOROmxJsonObject::GetJsonObject(const KOROmxKeyString& key, KOROmxJsonObject& object) const {
  return CopyMember(_Content, key.Bytes(), Json::value_t::object, object._Content);
}

long KOROmxJsonObject::GetJsonArray(const KOROmxKeyString& key, KOROmxJsonArray& array) const {
  return CopyMember(_Content, key.Bytes(), Json::value_t::array, array._Content);
}

long KOROmxJsonObject::PutBoolean(const KOROmxKeyString& key, bool value) {
  return PutPlain(_Content, key.Bytes(), value);
}

long KOROmxJsonObject::PutDouble(const KOROmxKeyString& key, double value) {
  return PutPlain(_Content, key.Bytes(), value);
}

long KOROmxJsonObject::PutInteger(const KOROmxKeyString& key, int value) {
  return PutPlain(_Content, key.Bytes(), value);
}

long KOROmxJsonObject::PutString(const KOROmxKeyString& key, const KORUnicodeString& value) {
  Data& data = Changeable(_Content, Json::value_t::object);
  Json* const before = data.Find(key.Bytes());
  if (before != nullptr && before->is_string()) {
    before->get_ref<std::string&>().assign(value.Bytes());  // in the memory that the text before had
  } else {
    Json text(std::string(value.Bytes()));
    data.Place(key.Bytes()) = std::move(text);
  }
  return S_OK;
}

long KOROmxJsonObject::PutJsonObject(const KOROmxKeyString& key, KOROmxJsonObject object) {
  if (IsTooDeepInside(object._Content)) return E_INVALIDARG;
  return PutNested(_Content, Json::value_t::object, object._Content, Json::value_t::object,
                   [&key](Data& data) -> Json& { return data.Place(key.Bytes()); });
}

long KOROmxJsonObject::PutJsonArray(const KOROmxKeyString& key, KOROmxJsonArray array) {
  if (IsTooDeepInside(array._Content)) return E_INVALIDARG;
  return PutNested(_Content, Json::value_t::object, array._Content, Json::value_t::array,
                   [&key](Data& data) -> Json& { return data.Place(key.Bytes()); });
}

KORUnicodeString KOROmxJsonObject::ToString() const {
  if (_Content.Get() == nullptr) return "{}";
  return KORUnicodeString(std::string_view(_Content.Get()->Value.dump()));
}

// Arrays

namespace {

Json::array_t::iterator At(Json& array, int position) {
  return array.get_ref<Json::array_t&>().begin() + (position - 1);
}

int SizeOf(const KOROmxJsonContent& array) {
  return array.Get() == nullptr ? 0 : static_cast<int>(array.Get()->Value.size());
}

}  // namespace

long KOROmxJsonArray::Remove(int position) {
  if (position < 1 || position > SizeOf(_Content)) return E_INVALIDARG;
  Json& array = _Content.Get()->Value;
  array.get_ref<Json::array_t&>().erase(At(array, position));
  return S_OK;
}

long KOROmxJsonArray::PutJsonObject(int position, KOROmxJsonObject object) {
  if (position < 1 || position > SizeOf(_Content) + 1 || IsTooDeepInside(object._Content)) return E_INVALIDARG;
  return PutNested(_Content, Json::value_t::array, object._Content, Json::value_t::object,
                   [position](Data& data) -> Json& {
                     Json::array_t& values = data.Value.get_ref<Json::array_t&>();
                     return *values.emplace(At(data.Value, position), nullptr);
                   });
}
