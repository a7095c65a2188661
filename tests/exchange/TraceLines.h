// The lines that the services write into their trace during a test.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ModuleTrace.h"

namespace exchangetest {

/// Catches the trace of the services until the end of the scope; standard error gets nothing meanwhile. One at a time.
class TraceLines {
 public:
  TraceLines() {
    ModuleTrace().RedirectTo([this](std::string_view line) { Take(line); });
  }
  ~TraceLines() { ModuleTrace().RedirectTo(nullptr); }
  TraceLines(const TraceLines&) = delete;
  TraceLines& operator=(const TraceLines&) = delete;

  /// The lines since the start, or since they were last taken, in order, without the line feed that ends each.
  std::vector<std::string> Take() { return std::exchange(_Lines, {}); }

 private:
  void Take(std::string_view line) {
    ASSERT_TRUE(line.ends_with('\n')) << "a line without its end: " << line;
    line.remove_suffix(1);
    _Lines.emplace_back(line);
  }

  std::vector<std::string> _Lines;
};

}  // namespace exchangetest
