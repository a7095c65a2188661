// The order in which analyses that reuse each other are computed.
#include "tools/analysis/ReuseOrder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr std::size_t None = static_cast<std::size_t>(-1);

using Reuse = std::vector<std::vector<std::size_t>>;
using Order = std::vector<std::size_t>;

struct OrderRow {
  const char* name;
  Reuse reused;
  Order order;
  std::vector<Order> circles;
};

class ReuseOrderTest : public testing::TestWithParam<OrderRow> {};

TEST_P(ReuseOrderTest, PutsReusedAnalysesFirst) {
  std::vector<Order> circles;
  const Order order = tool::OrderByReuse(GetParam().reused, None, [&](const tool::ReuseCircleFound& circle) {
    EXPECT_EQ(GetParam().reused[circle.Member][circle.Row], circle.Path.front()) << "the row that closes it";
    circles.push_back(circle.Path);
  });
  EXPECT_EQ(order, GetParam().order);
  EXPECT_EQ(circles, GetParam().circles);
}

INSTANTIATE_TEST_SUITE_P(Rows, ReuseOrderTest,
                         testing::Values(OrderRow{"Nothing", {}, {}, {}},
                                         OrderRow{"WithoutReuse", {{None}, {}, {None, None}}, {0, 1, 2}, {}},
                                         OrderRow{"Chain", {{1}, {2}, {}}, {2, 1, 0}, {}},
                                         OrderRow{"ChainUpward", {{}, {0}, {1}}, {0, 1, 2}, {}},
                                         OrderRow{"Diamond", {{1, 2}, {3}, {3}, {}}, {3, 1, 2, 0}, {}},
                                         OrderRow{"TwiceInOneAnalysis", {{1, None, 1}, {}}, {1, 0}, {}},
                                         OrderRow{"Itself", {{0}}, {0}, {{0, 0}}},
                                         OrderRow{"CircleOfTwo", {{1}, {0}}, {1, 0}, {{0, 1, 0}}},
                                         OrderRow{"CircleOfThree", {{1}, {2}, {0}}, {2, 1, 0}, {{0, 1, 2, 0}}},
                                         OrderRow{"CircleBelow", {{1}, {2}, {1}}, {2, 1, 0}, {{1, 2, 1}}},
                                         OrderRow{"TwoRowsCloseIt", {{1}, {0, 0}}, {1, 0}, {{0, 1, 0}, {0, 1, 0}}}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ReuseOrder, HasNoDepthBound) {
  constexpr std::size_t depth = 1'000'000;
  Reuse reused(depth);
  for (std::size_t member = 0; member + 1 < depth; ++member) reused[member] = {member + 1};
  const Order order = tool::OrderByReuse(reused, None, [](const tool::ReuseCircleFound&) { FAIL(); });
  ASSERT_EQ(order.size(), depth);
  EXPECT_EQ(order.front(), depth - 1);
  EXPECT_EQ(order.back(), 0u);
}

TEST(ReuseOrder, TakesNoLongerForALadder) {
  constexpr std::size_t steps = 100'000;
  Reuse reused(steps);
  for (std::size_t member = 0; member + 1 < steps; ++member) reused[member] = {member + 1, member + 1};
  EXPECT_EQ(tool::OrderByReuse(reused, None, [](const tool::ReuseCircleFound&) { FAIL(); }).size(), steps);
}

}  // namespace
