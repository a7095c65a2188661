// Tables from keys to values: types, order, sharing, and any sequence of changes against a map.
#include "platform/model/KORKeyedValues.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "platform/model/KORKnownKeys.h"
#include "tests/model/ModelTest.h"
#include "tests/support/RandomText.h"

namespace {

using modeltest::Unicode;

std::vector<std::string> KeysOf(const KORKeyedValues& table) {
  std::vector<std::string> keys;
  table.ForEach([&](std::string_view key, const KORKeyedValues::View&) { keys.emplace_back(key); });
  return keys;
}

template <class Type>
Type Read(const KORKeyedValues& table, std::string_view key, Type value) {
  (void)table.Get(key, value);
  return value;
}

TEST(KORKeyedValuesTest, KnownKeysAreDistinct) {
  std::vector<std::string_view> keys(KORKnownKeys.begin(), KORKnownKeys.end());
  std::ranges::sort(keys);
  EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end());
}

TEST(KORKeyedValuesTest, EmptyTableHoldsNothing) {
  const KORKeyedValues table;
  double value = 3.0;
  EXPECT_EQ(table.Get("Factor", value), E_FAIL);
  EXPECT_EQ(value, 3.0);
  EXPECT_FALSE(table.Look("Factor").has_value());
  EXPECT_THAT(KeysOf(table), testing::IsEmpty());
}

TEST(KORKeyedValuesTest, EveryKnownKeyHasAPlaceOfItsOwn) {
  KORKeyedValues table;
  // From both ends inward, so that keys come in ahead of others and behind them.
  for (std::size_t left = 0, right = KORKnownKeys.size() - 1; left <= right; ++left, --right) {
    table.Set(KORKnownKeys[left], static_cast<int>(left));
    table.Set(KORKnownKeys[right], static_cast<int>(right));
    if (right == 0) break;
  }
  for (std::size_t index = 0; index < KORKnownKeys.size(); ++index) {
    EXPECT_EQ(Read(table, KORKnownKeys[index], -1), static_cast<int>(index)) << KORKnownKeys[index];
  }
  EXPECT_THAT(KeysOf(table), testing::ElementsAreArray(KORKnownKeys));
}

TEST(KORKeyedValuesTest, WalksKnownKeysInTheirOrderAndOthersByBytes) {
  KORKeyedValues table;
  for (const char* key : {"zeta", "V_Name", "\xC3\xA4", "Factor", "Alpha", "", "RowNum", "alpha"}) table.Set(key, 1);
  EXPECT_THAT(KeysOf(table),
              testing::ElementsAre("RowNum", "Factor", "V_Name", "", "Alpha", "alpha", "zeta", "\xC3\xA4"));
}

struct KeyCase {
  const char* Name;
  std::string Key;
};

void PrintTo(const KeyCase& row, std::ostream* out) {
  *out << row.Name;
}

class AnyKeyTest : public testing::TestWithParam<KeyCase> {};

TEST_P(AnyKeyTest, IsStoredAndGivenBack) {
  const std::string& key = GetParam().Key;
  KORKeyedValues table;
  table.Set("Factor", 1.0);
  table.Set(key, 42);
  EXPECT_EQ(Read(table, key, 0), 42);
  EXPECT_EQ(Read(table, key + "x", 0), 0);
  EXPECT_THAT(KeysOf(table), testing::ElementsAre("Factor", key));
  table.Set(key, Unicode("text"));
  EXPECT_EQ(Read(table, key, 0), 0);
  EXPECT_EQ(Read(table, key, Unicode("")), "text");
}

INSTANTIATE_TEST_SUITE_P(Keys, AnyKeyTest,
                         testing::Values(KeyCase{"Empty", ""}, KeyCase{"Nul", std::string(1, '\0')},
                                         KeyCase{"NulInside", std::string("Code\0x", 6)},
                                         KeyCase{"NulBehindAKnownKey", std::string("Code\0", 5)},
                                         KeyCase{"Utf8",
                                                 "St\xC3\xBC"
                                                 "ckzahl \xE6\x97\xB6\xE9\x97\xB4"},
                                         KeyCase{"NotUtf8", "\xFF\xFE"}, KeyCase{"OtherCase", "FACTOR"},
                                         KeyCase{"BlankBehind", "Factor "},
                                         KeyCase{"LongestKnownAndMore", "IsStandardTextFlag2"},
                                         KeyCase{"MillionCharacters", std::string(1000000, 'k')}),
                         modeltest::NameOfRow());

TEST(KORKeyedValuesTest, MillionCharactersDifferInTheLast) {
  std::string key(1000000, 'k');
  KORKeyedValues table;
  table.Set(key, 1);
  key.back() = 'l';
  EXPECT_EQ(Read(table, key, 0), 0);
  table.Set(key, 2);
  EXPECT_EQ(Read(table, key, 0), 2);
  EXPECT_EQ(Read(table, std::string(1000000, 'k'), 0), 1);
}

TEST(KORKeyedValuesTest, ManyOtherKeysCostNoMoreEach) {
  constexpr int Count = 200000;
  KORKeyedValues table;
  for (int number = Count; number > 0; --number) table.Set("key" + std::to_string(number), number);
  for (int number = 1; number <= Count; ++number) ASSERT_EQ(Read(table, "key" + std::to_string(number), 0), number);
}

class TextLengthTest : public testing::TestWithParam<std::size_t> {};

TEST_P(TextLengthTest, IsGivenBackUnchanged) {
  const KORUnicodeString text(std::string_view(std::string(GetParam(), 'x')));
  KORKeyedValues table;
  table.Set("Code", text);
  table.Set("other", text);
  const KORKeyedValues copy = table;
  table.Set("Code", Unicode("changed"));
  EXPECT_EQ(Read(copy, "Code", Unicode("default")), text);
  EXPECT_EQ(Read(table, "other", Unicode("default")), text);
}

INSTANTIATE_TEST_SUITE_P(Lengths, TextLengthTest, testing::Values(0, 1, 12, 13, 1000, 1 << 20));

TEST(KORKeyedValuesTest, RealsAreGivenBackBitForBit) {
  for (const std::uint64_t bits : std::initializer_list<std::uint64_t>{
           0x0000000000000000u, 0x8000000000000000u, 0x7FF0000000000000u, 0xFFF0000000000000u, 0x7FF8000000000000u,
           0xFFF8000000000001u, 0x7FF800DEADBEEF00u, 0x0000000000000001u, 0x7FEFFFFFFFFFFFFFu, 0x3FF0000000000001u}) {
    KORKeyedValues table;
    table.Set("Factor", std::bit_cast<double>(bits));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(Read(table, "Factor", 1.0)), bits);
  }
}

TEST(KORKeyedValuesTest, CopiesShareNothingThatShows) {
  KORKeyedValues first;
  first.Set("Code", Unicode("A"));
  first.Set("other", 1);
  KORKeyedValues second = first;
  second.Set("Code", Unicode("B"));
  first.Set("other", 2);
  first.Set("Factor", 2.5);
  EXPECT_EQ(Read(first, "Code", Unicode("")), "A");
  EXPECT_EQ(Read(second, "Code", Unicode("")), "B");
  EXPECT_EQ(Read(first, "other", 0), 2);
  EXPECT_EQ(Read(second, "other", 0), 1);
  EXPECT_EQ(Read(second, "Factor", 1.0), 1.0);
}

TEST(KORKeyedValuesTest, ValueMayComeFromTheTableItself) {
  KORKeyedValues table;
  const auto object = KORBaseUnknown_var::Adopt(new KORBaseUnknown);
  table.Set("TimeAnalysis", object);
  table.Set("TimeAnalysis", std::get<KORBaseUnknown_var>(*table.Look("TimeAnalysis")));
  EXPECT_TRUE(Read(table, "TimeAnalysis", KORBaseUnknown_var()) == object);
}

TEST(KORKeyedValuesTest, KeepsObjectsAliveAndLetsThemGo) {
  const long before = KORBaseUnknown::CountLiveObjects();
  KORKeyedValues table;
  table.Set("TimeAnalysis", KORBaseUnknown_var::Adopt(new KORBaseUnknown));
  const KORKeyedValues copy = table;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  table.Set("TimeAnalysis", 0);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  table = copy;
  EXPECT_FALSE(Read(table, "TimeAnalysis", KORBaseUnknown_var()).IsNull());
}

// Any sequence of operations on three tables, copies among them included, against maps.
class RandomTables {
 public:
  explicit RandomTables(unsigned seed) : _Random(seed) {}

  void Change() {
    const auto table = static_cast<std::size_t>(_Random.Below(3));
    if (_Random.OneIn(10)) {
      const auto other = static_cast<std::size_t>(_Random.Below(3));
      _Tables[table] = _Tables[other];
      _Expected[table] = _Expected[other];
      return;
    }
    const std::string key = DrawKey();
    const KORKeyedValues::View value = DrawValue();
    std::visit([&](const auto& held) { Set(_Tables[table], key, held); }, value);
    _Expected[table][key] = Describe(value);
  }

  void Compare() const {
    for (std::size_t table = 0; table < 3; ++table) {
      std::map<std::string, std::string> found;
      _Tables[table].ForEach(
          [&](std::string_view key, const KORKeyedValues::View& value) { found[std::string(key)] = Describe(value); });
      ASSERT_EQ(found, _Expected[table]);
      for (const auto& [key, value] : found) ASSERT_EQ(Describe(*_Tables[table].Look(key)), value);
    }
  }

 private:
  static void Set(KORKeyedValues& table, const std::string& key, std::string_view text) {
    table.Set(key, Unicode(text));
  }
  template <class Type>
  static void Set(KORKeyedValues& table, const std::string& key, const Type& value) {
    table.Set(key, value);
  }

  std::string DrawKey() {
    if (_Random.OneIn(2)) return std::string(_Random.AnyOf(KORKnownKeys));
    return _Random.Draw(std::vector<std::string>{"a", "B", "\xC3\xA4", "Factor"}, 2);
  }

  KORKeyedValues::View DrawValue() {
    switch (_Random.Below(5)) {
      case 0: {
        _Text = std::string(static_cast<std::size_t>(_Random.Below(30)), static_cast<char>('a' + _Random.Below(26)));
        return std::string_view(_Text);
      }
      case 1:
        return _Random.Below(1000) / 7.0;
      case 2:
        return _Random.Below(1000) - 500;
      case 3:
        return static_cast<unsigned char>(_Random.Below(256));
      default:
        return _Random.OneIn(2) ? KORBaseUnknown_var::Adopt(new KORBaseUnknown) : KORBaseUnknown_var();
    }
  }

  static std::string Describe(const KORKeyedValues::View& value) {
    struct Writer {
      std::string operator()(std::string_view text) const { return "text " + std::string(text); }
      std::string operator()(double real) const { return "real " + std::to_string(std::bit_cast<std::uint64_t>(real)); }
      std::string operator()(int integer) const { return "integer " + std::to_string(integer); }
      std::string operator()(unsigned char truth) const { return "boolean " + std::to_string(truth); }
      std::string operator()(const KORBaseUnknown_var& object) const {
        return "object " + std::to_string(reinterpret_cast<std::uintptr_t>(object.Get()));
      }
    };
    return std::visit(Writer(), value);
  }

  support::RandomText _Random;
  std::string _Text;
  std::array<KORKeyedValues, 3> _Tables;
  std::array<std::map<std::string, std::string>, 3> _Expected;
};

TEST(KORKeyedValuesTest, AnySequenceOfChangesIsThatOfAMap) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomTables tables(seed);
    for (int step = 0; step < 200; ++step) {
      tables.Change();
      if (step % 20 == 0) tables.Compare();
      if (testing::Test::HasFatalFailure()) return;
    }
    tables.Compare();
  }
}

}  // namespace
