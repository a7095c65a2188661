// Names the rows of a table of test cases by their first member.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace platformtest {

struct NameOfRow {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    return row.param.Name;
  }
};

}  // namespace platformtest
