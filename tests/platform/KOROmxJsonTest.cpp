// JSON objects and arrays: reading and putting values by key and position, and the text of the whole.
#include "platform/document/KOROmxJson.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tests/platform/JsonTest.h"
#include "tests/platform/NamedRow.h"
#include "tests/support/RandomText.h"

namespace {

using platformtest::KeysOf;
using platformtest::NameOfRow;
using platformtest::ReadJson;
using platformtest::TextOf;

struct TypeRow {
  const char* Name;
  const char* Example;
  KOROmxJsonType Type;
  int Number;
};
class JsonTypeTest : public testing::TestWithParam<TypeRow> {};

TEST_P(JsonTypeTest, IsThatOfTheValue) {
  const KOROmxJsonObject object = ReadJson(std::string("{\"before\":1,\"key\":") + GetParam().Example + "}");
  EXPECT_EQ(object.GetJsonType("key"), GetParam().Type);
  EXPECT_EQ(static_cast<int>(object.GetJsonType("key")), GetParam().Number);
}

INSTANTIATE_TEST_SUITE_P(Rows, JsonTypeTest,
                         testing::Values(TypeRow{"False", "false", KOROmxJsonType::Boolean, 1},
                                         TypeRow{"True", "true", KOROmxJsonType::Boolean, 1},
                                         TypeRow{"RealZero", "0.0", KOROmxJsonType::Real, 2},
                                         TypeRow{"Exponent", "1e0", KOROmxJsonType::Real, 2},
                                         TypeRow{"IntegerZero", "0", KOROmxJsonType::Integer, 3},
                                         TypeRow{"NegativeInteger", "-7", KOROmxJsonType::Integer, 3},
                                         TypeRow{"LongInteger", "18446744073709551615", KOROmxJsonType::Integer, 3},
                                         TypeRow{"Null", "null", KOROmxJsonType::Null, 4},
                                         TypeRow{"EmptyText", "\"\"", KOROmxJsonType::String, 5},
                                         TypeRow{"Object", "{}", KOROmxJsonType::Object, 6},
                                         TypeRow{"Array", "[]", KOROmxJsonType::Array, 7}),
                         NameOfRow());

TEST(JsonObjectTest, AKeyThatIsNotThereHasTypeZero) {
  EXPECT_EQ(static_cast<int>(KOROmxJsonObject().GetJsonType("a")), 0);
  EXPECT_EQ(ReadJson(R"({"b":1})").GetJsonType("a"), KOROmxJsonType::Missing);
}

TEST(JsonObjectTest, ANewKeyComesBehindTheOthers) {
  KOROmxJsonObject object;
  EXPECT_EQ(object.PutInteger("z", 1), S_OK);
  EXPECT_EQ(object.PutBoolean("a", true), S_OK);
  EXPECT_EQ(object.PutBoolean("b", false), S_OK);
  EXPECT_EQ(object.PutDouble("", 2.0), S_OK);
  EXPECT_EQ(object.PutString("m", "text"), S_OK);
  EXPECT_EQ(object.PutJsonObject("o", KOROmxJsonObject()), S_OK);
  EXPECT_EQ(object.PutJsonArray("l", KOROmxJsonArray()), S_OK);
  EXPECT_EQ(TextOf(object), R"({"z":1,"a":true,"b":false,"":2.0,"m":"text","o":{},"l":[]})");
}

// Every Put over every kind of value: the place stays, the kind changes.
TEST(JsonObjectTest, AValueReplacesOneOfAnyKindInItsPlace) {
  for (const char* before : {"true", "0.5", "7", "null", "\"text\"", "{\"x\":1}", "[1]"}) {
    const KOROmxJsonObject original = ReadJson(std::string("{\"a\":1,\"key\":") + before + ",\"z\":2}");
    const auto with = [&original](auto put) {
      KOROmxJsonObject object = original;
      EXPECT_EQ(put(object), S_OK);
      return TextOf(object);
    };
    EXPECT_EQ(with([](auto& object) { return object.PutBoolean("key", false); }), R"({"a":1,"key":false,"z":2})");
    EXPECT_EQ(with([](auto& object) { return object.PutDouble("key", 3); }), R"({"a":1,"key":3.0,"z":2})");
    EXPECT_EQ(with([](auto& object) { return object.PutInteger("key", 3); }), R"({"a":1,"key":3,"z":2})");
    EXPECT_EQ(with([](auto& object) { return object.PutString("key", "3"); }), R"({"a":1,"key":"3","z":2})");
    EXPECT_EQ(with([](auto& object) { return object.PutJsonObject("key", {}); }), R"({"a":1,"key":{},"z":2})");
    EXPECT_EQ(with([](auto& object) { return object.PutJsonArray("key", {}); }), R"({"a":1,"key":[],"z":2})");
  }
}

TEST(JsonObjectTest, KeysAreFoundInAnyOrder) {
  KOROmxJsonObject object = ReadJson(R"({"a":0,"b":0,"c":0})");
  for (const char* key : {"c", "a", "b", "b", "c", "missing", "a", "c"}) {
    if (object.GetJsonType(key) == KOROmxJsonType::Integer) (void)object.PutString(key, key);
    if (object.GetJsonType(key) == KOROmxJsonType::String) (void)object.PutString(key, KORUnicodeString(key) + "!");
  }
  EXPECT_EQ(TextOf(object), R"({"a":"a!","b":"b!","c":"c!"})");
}

struct RealRow {
  const char* Name;
  double Value;
  const char* Written;
};
class JsonRealTest : public testing::TestWithParam<RealRow> {};

TEST_P(JsonRealTest, IsWritten) {
  KOROmxJsonObject object;
  (void)object.PutDouble("a", GetParam().Value);
  EXPECT_EQ(TextOf(object), std::string("{\"a\":") + GetParam().Written + "}");
  EXPECT_EQ(object.GetJsonType("a"), KOROmxJsonType::Real);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, JsonRealTest,
    testing::Values(RealRow{"Zero", 0.0, "0.0"}, RealRow{"NegativeZero", -0.0, "-0.0"}, RealRow{"Whole", 2.0, "2.0"},
                    RealRow{"NoValueOfALine", -0.036, "-0.036"}, RealRow{"Third", 1.0 / 3.0, "0.3333333333333333"},
                    RealRow{"SeventeenDigits", 0.1 + 0.2, "0.30000000000000004"}, RealRow{"Great", 1e300, "1e+300"},
                    RealRow{"Greatest", std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
                    RealRow{"Least", std::numeric_limits<double>::denorm_min(), "5e-324"},
                    RealRow{"NotANumber", std::numeric_limits<double>::quiet_NaN(), "null"},
                    RealRow{"Infinity", std::numeric_limits<double>::infinity(), "null"},
                    RealRow{"NegativeInfinity", -std::numeric_limits<double>::infinity(), "null"}),
    NameOfRow());

TEST(JsonObjectTest, IntegersHave32Bits) {
  KOROmxJsonObject object;
  (void)object.PutInteger("least", std::numeric_limits<int>::min());
  (void)object.PutInteger("greatest", std::numeric_limits<int>::max());
  EXPECT_EQ(TextOf(object), R"({"least":-2147483648,"greatest":2147483647})");
}

// Every character of Unicode, as key and as value, read back by the library.
TEST(JsonObjectTest, AnyCharacterComesBack) {
  std::wstring characters;
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character < 0xD800 || character > 0xDFFF) characters += static_cast<wchar_t>(character);
  }
  const KORUnicodeString text{std::wstring_view(characters)};
  KOROmxJsonObject object;
  (void)object.PutString(KOROmxKeyString(text), text);
  const auto read = nlohmann::json::parse(TextOf(object));
  ASSERT_EQ(read.size(), 1u);
  EXPECT_TRUE(read.begin().key() == text.Bytes());
  EXPECT_TRUE(read.begin()->get<std::string>() == text.Bytes());
}

TEST(JsonObjectTest, TextsAreEscaped) {
  KOROmxJsonObject object;
  (void)object.PutString("\"k\\", KORUnicodeString(std::string_view("a\"b\\c/\n\t\x01\x00ö", 12)));
  EXPECT_EQ(TextOf(object), R"({"\"k\\":"a\"b\\c/\n\t\u0001\u0000ö"})");
}

TEST(JsonObjectTest, KeysThatAreNoUtf8AreReadAsWindows1252) {
  KOROmxJsonObject object;
  (void)object.PutInteger("H\xF6he", 1);
  EXPECT_EQ(TextOf(object), R"({"Höhe":1})");
}

TEST(JsonWalkTest, GivesTheKeysInTheirOrder) {
  EXPECT_EQ(KeysOf(ReadJson(R"({"b":{"x":1},"a":0,"":[2]})")), (std::vector<std::string>{"b", "a", ""}));
  EXPECT_TRUE(KeysOf(KOROmxJsonObject()).empty());
}

TEST(JsonWalkTest, LeavesTheKeyAtItsEnd) {
  KOROmxBaseIterVar walk = ReadJson(R"({"only":1})").GetIterator();
  KOROmxKeyString key;
  EXPECT_TRUE(walk.nextItem(key));
  EXPECT_EQ(key.Bytes(), "only");
  EXPECT_FALSE(walk.nextItem(key));
  EXPECT_FALSE(walk.nextItem(key));
  EXPECT_EQ(key.Bytes(), "only");
}

TEST(JsonWalkTest, IsThatOfItsBeginning) {
  KOROmxJsonObject object = ReadJson(R"({"a":1,"b":2})");
  KOROmxBaseIterVar walk = object.GetIterator();
  std::string keys;
  for (KOROmxKeyString key; walk.nextItem(key);) {
    keys += key.Bytes();
    (void)object.PutInteger(KOROmxKeyString(key.GetText() + "+"), 0);
    (void)object.PutInteger(key, 7);
  }
  EXPECT_EQ(keys, "ab");
  EXPECT_EQ(TextOf(object), R"({"a":7,"b":7,"a+":0,"b+":0})");
}

TEST(JsonValueTest, CopiesAreIndependent) {
  const KOROmxJsonObject original = ReadJson(R"({"a":{"x":1},"l":[{}]})");
  KOROmxJsonObject copy = original;
  KOROmxJsonObject inner;
  EXPECT_EQ(copy.GetJsonObject("a", inner), S_OK);
  (void)inner.PutInteger("x", 2);
  KOROmxJsonArray list;
  EXPECT_EQ(copy.GetJsonArray("l", list), S_OK);
  (void)list.Remove(1);
  EXPECT_EQ(TextOf(copy), TextOf(original));
  (void)copy.PutJsonObject("a", inner);
  (void)copy.PutJsonArray("l", list);
  EXPECT_EQ(TextOf(copy), R"({"a":{"x":2},"l":[]})");
  EXPECT_EQ(TextOf(original), R"({"a":{"x":1},"l":[{}]})");
  copy = original;
  EXPECT_EQ(TextOf(copy), TextOf(original));
  const KOROmxJsonObject& same = copy;
  copy = same;
  EXPECT_EQ(TextOf(copy), TextOf(original));
}

TEST(JsonValueTest, WhatWasMovedFromIsEmpty) {
  KOROmxJsonObject object = ReadJson(R"({"a":1})");
  const KOROmxJsonObject taken = std::move(object);
  EXPECT_EQ(TextOf(taken), R"({"a":1})");
  EXPECT_EQ(TextOf(object), "{}");  // NOLINT(bugprone-use-after-move): this is what is tested
  (void)object.PutInteger("b", 2);
  EXPECT_EQ(TextOf(object), R"({"b":2})");
}

TEST(JsonValueTest, AnObjectMayBePutIntoItself) {
  KOROmxJsonObject object = ReadJson(R"({"a":1})");
  EXPECT_EQ(object.PutJsonObject("self", object), S_OK);
  EXPECT_EQ(TextOf(object), R"({"a":1,"self":{"a":1}})");
}

TEST(JsonValueTest, OnlyWhatIsOfThatKindIsHandedOut) {
  const KOROmxJsonObject object = ReadJson(R"({"o":{},"l":[],"n":1})");
  KOROmxJsonObject inner = ReadJson(R"({"before":1})");
  for (const char* key : {"l", "n", "missing"}) EXPECT_EQ(object.GetJsonObject(key, inner), E_FAIL) << key;
  EXPECT_EQ(KOROmxJsonObject().GetJsonObject("o", inner), E_FAIL);
  EXPECT_EQ(TextOf(inner), R"({"before":1})");
  KOROmxJsonArray list;
  (void)list.PutJsonObject(1, {});
  for (const char* key : {"o", "n", "missing"}) EXPECT_EQ(object.GetJsonArray(key, list), E_FAIL) << key;
  KOROmxJsonObject holder;
  (void)holder.PutJsonArray("list", list);
  EXPECT_EQ(TextOf(holder), R"({"list":[{}]})");
}

// Arrays. A change of the array [1,"two",{"n":3}].
struct ArrayRow {
  const char* Name;
  bool Removes;  // else {"new":0} is put
  int Position;
  long Status;
  const char* Array;
};
class JsonArrayTest : public testing::TestWithParam<ArrayRow> {};

TEST_P(JsonArrayTest, Changes) {
  KOROmxJsonObject object = ReadJson(R"({"l":[1,"two",{"n":3}]})");
  KOROmxJsonArray array;
  (void)object.GetJsonArray("l", array);
  KOROmxJsonObject element;
  (void)element.PutInteger("new", 0);
  const int position = GetParam().Position;
  EXPECT_EQ(GetParam().Removes ? array.Remove(position) : array.PutJsonObject(position, element), GetParam().Status);
  (void)object.PutJsonArray("l", array);
  EXPECT_EQ(TextOf(object), std::string("{\"l\":") + GetParam().Array + "}");
}

constexpr int LeastPosition = std::numeric_limits<int>::min();
constexpr int GreatestPosition = std::numeric_limits<int>::max();
constexpr const char* UnchangedArray = R"([1,"two",{"n":3}])";

INSTANTIATE_TEST_SUITE_P(Remove, JsonArrayTest,
                         testing::Values(ArrayRow{"First", true, 1, S_OK, R"(["two",{"n":3}])"},
                                         ArrayRow{"Middle", true, 2, S_OK, R"([1,{"n":3}])"},
                                         ArrayRow{"Last", true, 3, S_OK, R"([1,"two"])"},
                                         ArrayRow{"OnePastTheLast", true, 4, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Zero", true, 0, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Negative", true, -1, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Least", true, LeastPosition, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Greatest", true, GreatestPosition, E_INVALIDARG, UnchangedArray}),
                         NameOfRow());

INSTANTIATE_TEST_SUITE_P(Put, JsonArrayTest,
                         testing::Values(ArrayRow{"First", false, 1, S_OK, R"([{"new":0},1,"two",{"n":3}])"},
                                         ArrayRow{"Middle", false, 2, S_OK, R"([1,{"new":0},"two",{"n":3}])"},
                                         ArrayRow{"Last", false, 3, S_OK, R"([1,"two",{"new":0},{"n":3}])"},
                                         ArrayRow{"OnePastTheLastAppends", false, 4, S_OK,
                                                  R"([1,"two",{"n":3},{"new":0}])"},
                                         ArrayRow{"TwoPastTheLast", false, 5, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Zero", false, 0, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Negative", false, -1, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Least", false, LeastPosition, E_INVALIDARG, UnchangedArray},
                                         ArrayRow{"Greatest", false, GreatestPosition, E_INVALIDARG, UnchangedArray}),
                         NameOfRow());

TEST(JsonEmptyArrayTest, HasNothingToRemoveAndTakesAFirstElement) {
  KOROmxJsonArray array;
  EXPECT_EQ(array.Remove(1), E_INVALIDARG);
  EXPECT_EQ(array.PutJsonObject(2, {}), E_INVALIDARG);
  EXPECT_EQ(array.PutJsonObject(1, {}), S_OK);
  EXPECT_EQ(array.Remove(1), S_OK);
  EXPECT_EQ(array.Remove(1), E_INVALIDARG);
}

TEST(JsonDepthTest, TwoThousandLevelsMayBePutTogetherAndNoMore) {
  KOROmxJsonObject object;
  int levels = 1;
  while (levels < KOROmxDeepestJson) {
    KOROmxJsonObject around;
    ASSERT_EQ(around.PutJsonObject("a", std::move(object)), S_OK) << levels;
    object = std::move(around);
    ++levels;
  }
  const std::string deepest = platformtest::NestedObjects(KOROmxDeepestJson);
  EXPECT_EQ(TextOf(object), deepest);
  KOROmxJsonObject around;
  EXPECT_EQ(around.PutJsonObject("a", object), E_INVALIDARG);
  EXPECT_EQ(TextOf(around), "{}");
  KOROmxJsonArray array;
  EXPECT_EQ(array.PutJsonObject(1, object), E_INVALIDARG);
  EXPECT_EQ(array.Remove(1), E_INVALIDARG) << "nothing was put";
  EXPECT_EQ(TextOf(object), deepest);
}

TEST(JsonDepthTest, ArraysCountToo) {
  KOROmxJsonObject object;
  int levels = 1;
  for (;;) {
    KOROmxJsonArray array;
    if (array.PutJsonObject(1, object) != S_OK) break;
    KOROmxJsonObject around;
    if (around.PutJsonArray("l", std::move(array)) != S_OK) break;
    object = std::move(around);
    levels += 2;
  }
  EXPECT_EQ(levels, KOROmxDeepestJson - 1);
  EXPECT_EQ(TextOf(object).size(), static_cast<std::size_t>(KOROmxDeepestJson / 2 - 1) * 8 + 2);
}

TEST(JsonDepthTest, AMemberMayGoBackWhereItCameFrom) {
  KOROmxJsonObject object = ReadJson(platformtest::NestedObjects(KOROmxDeepestJsonFile));
  for (int round = 0; round < 2 * KOROmxDeepestJson; ++round) {
    KOROmxJsonObject inner;
    ASSERT_EQ(object.GetJsonObject("a", inner), S_OK);
    ASSERT_EQ(object.PutJsonObject("a", std::move(inner)), S_OK) << round;
  }
  EXPECT_EQ(TextOf(object), platformtest::NestedObjects(KOROmxDeepestJsonFile));
}

// Random changes of an object, beside the same changes of the library's own value.
class RandomChanges {
 public:
  explicit RandomChanges(unsigned seed) : _Random(seed) {}

  void Change(KOROmxJsonObject& object, nlohmann::ordered_json& model) {
    static const std::vector<std::string> keys{
        "a", "b", "RowNum", "V_Name", "", "ä", "a key of more than a few letters"};
    const std::string name = _Random.AnyOf(keys);
    const KOROmxKeyString key{KORUnicodeString(std::string_view(name))};
    switch (_Random.Below(7)) {
      case 0:
        model[name] = true;
        EXPECT_EQ(object.PutBoolean(key, true), S_OK);
        break;
      case 1: {
        const double number = _Random.Below(1000) / 7.0;
        model[name] = number;
        EXPECT_EQ(object.PutDouble(key, number), S_OK);
        break;
      }
      case 2: {
        const int number = static_cast<int>(_Random.Generator()());
        model[name] = number;
        EXPECT_EQ(object.PutInteger(key, number), S_OK);
        break;
      }
      case 3: {
        const std::string text = _Random.Draw(std::vector<std::string>{"x", "\"", "\\", "\n", "ß", "日", "/"}, 30);
        model[name] = text;
        EXPECT_EQ(object.PutString(key, KORUnicodeString(std::string_view(text))), S_OK);
        break;
      }
      case 4:
        PutNested(object, model, key, name);
        break;
      default:
        ChangeArray(object, model, key, name);
    }
  }

 private:
  void PutNested(KOROmxJsonObject& object, nlohmann::ordered_json& model, const KOROmxKeyString& key,
                 const std::string& name) {
    KOROmxJsonObject inner;
    auto inner_model = nlohmann::ordered_json::object();
    const bool is_object = model.contains(name) && model[name].is_object();
    EXPECT_EQ(object.GetJsonObject(key, inner), is_object ? S_OK : E_FAIL);
    if (is_object) inner_model = model[name];
    Change(inner, inner_model);
    model[name] = inner_model;
    EXPECT_EQ(object.PutJsonObject(key, std::move(inner)), S_OK);
  }

  void ChangeArray(KOROmxJsonObject& object, nlohmann::ordered_json& model, const KOROmxKeyString& key,
                   const std::string& name) {
    KOROmxJsonArray array;
    auto array_model = nlohmann::ordered_json::array();
    const bool is_array = model.contains(name) && model[name].is_array();
    EXPECT_EQ(object.GetJsonArray(key, array), is_array ? S_OK : E_FAIL);
    if (is_array) array_model = model[name];
    const int size = static_cast<int>(array_model.size());
    const int position = _Random.Below(size + 4) - 1;
    if (_Random.OneIn(3)) {
      const bool there = position >= 1 && position <= size;
      if (there) array_model.erase(static_cast<std::size_t>(position - 1));
      EXPECT_EQ(array.Remove(position), there ? S_OK : E_INVALIDARG);
    } else {
      KOROmxJsonObject element;
      auto element_model = nlohmann::ordered_json::object();
      Change(element, element_model);
      const bool there = position >= 1 && position <= size + 1;
      if (there) array_model.insert(array_model.begin() + (position - 1), element_model);
      EXPECT_EQ(array.PutJsonObject(position, std::move(element)), there ? S_OK : E_INVALIDARG);
    }
    model[name] = array_model;
    EXPECT_EQ(object.PutJsonArray(key, std::move(array)), S_OK);
  }

  support::RandomText _Random;
};

TEST(JsonRandomTest, ChangesAreThoseOfTheLibrary) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    RandomChanges changes(seed);
    KOROmxJsonObject object;
    auto model = nlohmann::ordered_json::object();
    for (int change = 0; change < 60; ++change) changes.Change(object, model);
    ASSERT_EQ(TextOf(object), model.dump()) << "seed " << seed;
    ASSERT_EQ(TextOf(ReadJson(model.dump(2))), model.dump()) << "seed " << seed;
  }
}

}  // namespace
