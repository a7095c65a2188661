// Formulas are compiled once, and forgotten when there are too many.
#include "platform/knowledge/KORCkeFormulaCache.h"

#include "platform/knowledge/KORCkeLimits.h"
#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

std::string NumberedBody(std::size_t number) {
  return "out = " + std::to_string(number);
}

TEST(FormulaCacheTest, KnowsAFormulaBySignatureAndBody) {
  KORCkeFormulaCache cache;
  const auto first = cache.Find("out a : Real", "1");
  EXPECT_EQ(cache.Find("out a : Real", "1"), first);
  EXPECT_NE(cache.Find("out a : Real", "1 "), first);
  EXPECT_NE(cache.Find("out a : Real ", "1"), first);
  EXPECT_NE(cache.Find("", "out a : Real1"), first);
  EXPECT_EQ(cache.CountFormulas(), 4u);
}

TEST(FormulaCacheTest, KeepsWhatCannotBeReadToo) {
  KORCkeFormulaCache cache;
  const auto signature = cache.Find("x", "1");
  EXPECT_EQ(cache.Find("x", "1"), signature);
  EXPECT_NE(signature->Problem, "");
  const auto body = cache.Find("x : Real", "= =");
  EXPECT_EQ(cache.Find("x : Real", "= ="), body);
  EXPECT_NE(body->Problem, "");
}

TEST(FormulaCacheTest, DoesNotKeepWhatIsTooLong) {
  KORCkeFormulaCache cache;
  EXPECT_NE(cache.Find("", std::string(korcke::LongestBody + 1, ' '))->Problem, "");
  EXPECT_NE(cache.Find(std::string(korcke::LongestSignature + 1, ' '), "")->Problem, "");
  EXPECT_EQ(cache.CountFormulas(), 0u);
}

TEST(FormulaCacheTest, ForgetsAllWhenThereAreTooMany) {
  KORCkeFormulaCache cache;
  const auto first = cache.Find("", NumberedBody(0));
  for (std::size_t number = 1; number < korcke::MostFormulas; ++number) cache.Find("", NumberedBody(number));
  EXPECT_EQ(cache.CountFormulas(), korcke::MostFormulas);
  EXPECT_TRUE(cache.Knows(*first));
  EXPECT_EQ(cache.Find("", NumberedBody(0)), first);

  cache.Find("", "one more = 1");
  EXPECT_EQ(cache.CountFormulas(), 1u);
  EXPECT_FALSE(cache.Knows(*first));
  EXPECT_EQ(first->Body, NumberedBody(0));
}

TEST(FormulaCacheTest, ForgetsAllWhenTheyTakeTooMuchMemory) {
  KORCkeFormulaCache cache;
  std::size_t most = 0;
  for (std::size_t number = 0; number < 300; ++number) {
    cache.Find("", NumberedBody(number) + ' ' + Repeated("a=a+1 ", 4000));
    most = std::max(most, cache.CountFormulas());
  }
  EXPECT_GT(most, 20u);
  EXPECT_LT(most, 250u);
}

TEST(FormulaCacheTest, ExpressionRunsAfterItsFormulaWasForgotten) {
  Formula formula("x : Real, out a : Real, out b : Real", "a = x + 1", {R(2), R(0), R(0)});
  EXPECT_EQ(formula.Run(), S_OK);
  for (std::size_t number = 0; number <= korcke::MostFormulas; ++number) Expression("", NumberedBody(number));
  for (int run = 0; run < 2; ++run) EXPECT_EQ(formula.Run(), S_OK) << formula.Problem();
  EXPECT_EQ(formula.Values(), "2 3 0");
}

}  // namespace
}  // namespace knowledgetest
