// Lines of an input: ends of lines, marks, bounds and what is no text.
#include "tools/LineReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tools/Messages.h"

namespace {

std::vector<std::string> Lines(const std::string& input) {
  std::istringstream stream(input);
  tool::LineReader reader(stream);
  std::vector<std::string> lines;
  for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
  EXPECT_EQ(reader.LineNumber(), lines.size());
  return lines;
}

struct LinesRow {
  const char* name;
  std::string input;
  std::vector<std::string> lines;
};

class LinesTest : public testing::TestWithParam<LinesRow> {};

TEST_P(LinesTest, AreCut) {
  EXPECT_EQ(Lines(GetParam().input), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(Rows, LinesTest,
                         testing::Values(LinesRow{"Nothing", "", {}}, LinesRow{"OneEmptyLine", "\n", {""}},
                                         LinesRow{"LastLineWithoutNewline", "a\nb", {"a", "b"}},
                                         LinesRow{"NewlineAtTheEndAddsNoLine", "a\nb\n", {"a", "b"}},
                                         LinesRow{"EmptyLinesAreLines", "a\n\n\nb\n", {"a", "", "", "b"}},
                                         LinesRow{"CarriageReturnsGo", "a\r\nb\r\n\r\n", {"a", "b", ""}},
                                         LinesRow{"CarriageReturnAtTheEnd", "a\r", {"a"}},
                                         LinesRow{"CarriageReturnInsideStays", "a\rb\n", {"a\rb"}},
                                         LinesRow{"OnlyOneCarriageReturnGoes", "a\r\r\n", {"a\r"}},
                                         LinesRow{"ByteOrderMarkAtTheStart",
                                                  "\xEF\xBB\xBF"
                                                  "a\n",
                                                  {"a"}},
                                         LinesRow{"ByteOrderMarkElsewhereStays",
                                                  "a\n\xEF\xBB\xBF"
                                                  "b\n",
                                                  {"a",
                                                   "\xEF\xBB\xBF"
                                                   "b"}},
                                         LinesRow{"BytesThatAreNoUtf8Pass", "\xE4\xFF\n", {"\xE4\xFF"}}),
                         [](const auto& row) { return std::string(row.param.name); });

// A stream that hands out one byte at a time, as a slow pipe does.
class DrippingBuffer : public std::streambuf {
 public:
  explicit DrippingBuffer(std::string text) : _Text(std::move(text)) {}

 protected:
  int_type underflow() override {
    if (_Next == _Text.size()) return traits_type::eof();
    setg(&_Text[_Next], &_Text[_Next], &_Text[_Next] + 1);
    ++_Next;
    return traits_type::to_int_type(*gptr());
  }

 private:
  std::string _Text;
  std::size_t _Next = 0;
};

TEST(LineReader, WaitsForNoMoreThanALine) {
  DrippingBuffer buffer("ab\ncd\n");
  std::istream stream(&buffer);
  int waits = 0;
  tool::LineReader reader(stream, [&waits] { ++waits; });
  std::string_view line;
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line, "ab");
  EXPECT_EQ(waits, 3);
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line, "cd");
  EXPECT_FALSE(reader.Next(line));
}

TEST(LineReader, ReadsLinesAcrossBlocks) {
  std::string input;
  std::vector<std::string> expected;
  for (std::size_t length : {65534u, 65535u, 65536u, 65537u, 200000u, 1u}) {
    expected.emplace_back(length, 'x');
    input += expected.back() + "\r\n";
  }
  EXPECT_EQ(Lines(input), expected);
}

std::string FailureOf(const std::string& input) {
  std::istringstream stream(input);
  tool::LineReader reader(stream);
  try {
    for (std::string_view line; reader.Next(line);) continue;
  } catch (const tool::Failure& failure) {
    EXPECT_EQ(failure.GetStatus(), tool::ExitStatus::Unusable);
    return failure.what();
  }
  return "";
}

TEST(LineReader, RefusesANulByteAndTellsItsLine) {
  const std::string message = FailureOf(std::string("a\nb\0c\nd\n", 8));
  EXPECT_NE(message.find("standard input, line 2: holds a NUL byte"), std::string::npos) << message;
}

TEST(LineReader, RefusesALineBeyondItsBound) {
  EXPECT_EQ(FailureOf("a\n" + std::string(tool::LineReader::LongestLine, 'x') + "\n"), "");
  const std::string message = FailureOf("a\n" + std::string(tool::LineReader::LongestLine + 1, 'x') + "\n");
  EXPECT_NE(message.find("standard input, line 2: longer than 16777216 bytes"), std::string::npos) << message;
}

}  // namespace
