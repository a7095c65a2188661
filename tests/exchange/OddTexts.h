// Texts at the edge of what items hold: kinds of items, keys, rows, columns, numbers, letters.
#pragma once

#include <string>
#include <vector>

namespace exchangetest {

using TextTable = std::vector<std::string>;

/// First fields, most of them of items that are read.
inline const TextTable& ItemHeads() {
  static const TextTable texts{"LineData", "LineData", "LineData",  "LineData",       "AttributeData", "AttributeData",
                               "Save",     "linedata", "",          "LineData ",      " LineData",     "LineData2",
                               "LineDat",  "Länge",    "attribute", "AttributeData2", "\xE4"};
  return texts;
}

/// Keys of neither table: names of the other side, other capitals, blanks, parts and joined names.
inline const TextTable& OddKeys() {
  static const TextTable texts{"unknown", "V_Name", "TimeAnalysis", "Name",    "name ", " code",
                               "timetyp", "Länge",  "\xFCn",        "",        "codes", "V_TimeType|TimeType",
                               "日本",    "RowNum", "TimeType",     "LineData"};
  return texts;
}

inline const TextTable& RowTexts() {
  static const TextTable texts{"0", "0",  "1",  "1",  "2",          "3",          "7",   "-5",
                               "x", " 1", "1x", "-0", "2000000000", "4294967297", "0x1", "",
                               "4", "5",  "6",  "2",  "4294967296", "-2147483648"};
  return texts;
}

inline const TextTable& ColumnTexts() {
  static const TextTable texts{"0",          "0",          "0", "1",  "1", "2", "3", "99", "-1", "-2", "2147483647",
                               "2147483648", "4294967296", "x", " 0", "",  "4", "5", "6",  "7",  "8",  "1x"};
  return texts;
}

/// Signs, blanks, other bases, reals, letters, and what lies at and beyond 32 and 64 bits.
inline const TextTable& OddIntegers() {
  static const TextTable texts{"-0",
                               "+2",
                               "--1",
                               "+ 1",
                               " 3",
                               "\t4\n",
                               "\v\f\r5",
                               "3abc",
                               "abc",
                               "",
                               " ",
                               "0x10",
                               "010",
                               "1e3",
                               "1.9",
                               "nan",
                               "2147483647",
                               "2147483648",
                               "-2147483648",
                               "-2147483649",
                               "4294967296",
                               "4294967297",
                               "9223372036854775807",
                               "9223372036854775808",
                               "-9223372036854775809",
                               "99999999999999999999999999",
                               "１"};
  return texts;
}

/// No numbers, infinities, what lies beyond the range at both ends, hexadecimal ones, commas, and halves of numbers.
inline const TextTable& OddReals() {
  static const TextTable texts{"nan",
                               "-nan",
                               "nan(1)",
                               "NAN",
                               "inf",
                               "-inf",
                               "Infinity",
                               "infi",
                               "1e308",
                               "1e309",
                               "-1e999999999999",
                               "1e-400",
                               "4.9406564584124654e-324",
                               "2.2250738585072011e-308",
                               "1.7976931348623158e308",
                               "0x1.8p3",
                               "0x",
                               "0x.",
                               "0x1p-1080",
                               "-0",
                               "-0.036",
                               ".5",
                               "5.",
                               ".",
                               "1,5",
                               "1e",
                               "1e+",
                               "1e5x",
                               "  2.5  ",
                               "+-1",
                               "0.1000000000000000055511151231257827021181583404541015625",
                               "9007199254740993",
                               "abc",
                               ""};
  return texts;
}

/// Words, blanks, separators, letters beyond ASCII, and bytes that are no UTF-8.
inline const TextTable& TextPieces() {
  static const TextTable texts{"Get",    " ",  "TTB",  "12:30",        "|", "Länge", "日本", "\x80",
                               "gr\xFC", "\n", "Save", "TimeAnalysis", ":", "-1",    "😀"};
  return texts;
}

}  // namespace exchangetest
