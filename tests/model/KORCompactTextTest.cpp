// Texts in sixteen bytes: on both sides of the bound between those that stand in the object and those on the heap.
#include "platform/model/KORCompactText.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace {

static_assert(sizeof(KORCompactText) == 16);

class KORCompactTextTest : public testing::TestWithParam<std::size_t> {
 protected:
  static std::string TextOf(std::size_t length) {
    std::string text;
    for (std::size_t index = 0; index < length; ++index) text += static_cast<char>('a' + index % 26);
    if (length > 2) text[1] = '\0';
    return text;
  }
};

TEST_P(KORCompactTextTest, GivesTheTextBack) {
  const std::string text = TextOf(GetParam());
  EXPECT_EQ(KORCompactText(text).Bytes(), text);
}

TEST_P(KORCompactTextTest, CopiesAreIndependent) {
  const std::string text = TextOf(GetParam());
  KORCompactText original(text);
  const KORCompactText copy = original;
  original = KORCompactText("another text, and a long one");
  EXPECT_EQ(copy.Bytes(), text);
  original = copy;
  const KORCompactText& same = original;
  original = same;
  EXPECT_EQ(original.Bytes(), text);
}

TEST_P(KORCompactTextTest, MovesLeaveTheEmptyText) {
  const std::string text = TextOf(GetParam());
  KORCompactText original(text);
  const KORCompactText moved = std::move(original);
  EXPECT_EQ(moved.Bytes(), text);
  EXPECT_EQ(original.Bytes(), "");  // NOLINT(bugprone-use-after-move): told
}

INSTANTIATE_TEST_SUITE_P(Lengths, KORCompactTextTest, testing::Values(0, 1, 11, 12, 13, 100, 1000000));

TEST(KORCompactTextLimitTest, FourGigabytesAreRefused) {
  // The view is longer than its bytes, which are not read.
  EXPECT_THROW(KORCompactText(std::string_view("a", std::size_t{1} << 32)), std::length_error);
}

}  // namespace
