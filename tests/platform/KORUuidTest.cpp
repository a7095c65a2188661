// Identifiers of classes and interfaces.
#include "platform/base/KORUuid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

// The two halves follow from the name by FNV-1a; "a" and "foobar" are published examples of that hash.
TEST(KORUuidTest, FollowsFromTheName) {
  constexpr std::array<std::uint8_t, 8> HashOfA{0xaf, 0x63, 0xdc, 0x4c, 0x86, 0x01, 0xec, 0x8c};
  constexpr std::array<std::uint8_t, 8> HashOfFoobar{0x85, 0x94, 0x41, 0x71, 0xf7, 0x39, 0x67, 0xe8};
  EXPECT_TRUE(std::equal(HashOfA.begin(), HashOfA.end(), KORUuid::OfName("a").Bytes.begin()));
  EXPECT_TRUE(std::equal(HashOfFoobar.begin(), HashOfFoobar.end(), KORUuid::OfName("foobar").Bytes.begin()));
}

TEST(KORUuidTest, SecondHalfGoesOverTheNameAgain) {
  const KORUuid once = KORUuid::OfName("ab");
  const KORUuid twice = KORUuid::OfName("abab");
  EXPECT_TRUE(std::equal(once.Bytes.begin() + 8, once.Bytes.end(), twice.Bytes.begin()));
}

TEST(KORUuidTest, TellsNamesApart) {
  EXPECT_EQ(KORUuid::OfName("VEXITimeAnalysisLines"), KORUuid::OfName("VEXITimeAnalysisLines"));
  EXPECT_NE(KORUuid::OfName("VEXITimeAnalysisLines"), KORUuid::OfName("VEXITimeAnalysisLine"));
  EXPECT_NE(KORUuid::OfName("ab"), KORUuid::OfName("ba"));
  EXPECT_NE(KORUuid::OfName(""), KORUuid{});
}

TEST(KORUuidTest, IsKnownWhenCompiling) {
  static_assert(KORUuid::OfName("VEXIExample") == KORUuid::OfName("VEXIExample"));
  static_assert(KORUuid{} == KORUuid{});
}

}  // namespace
