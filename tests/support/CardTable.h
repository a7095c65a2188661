// Entry tables for lookups, one short line an entry.
#pragma once

#include <string>
#include <vector>

#include "tests/support/DataCardText.h"

namespace support {

// One entry of the table, by its elements; the empty ones are not written.
struct Card {
  std::string id = {};
  std::string code = {};
  std::string time = {};
  std::string start = {};
  std::string end = {};
  std::string pattern = {};
  std::string option_position = {};
  std::string option_time = {};
  std::string option_bits = {};

  std::string Written() const {
    std::string text = Element("CODE_ID", id) + Element("CODE", code) + Element("TIME", time) +
                       Elements({{"TEXT", "text of " + id},
                                 {"LOCALTEXT", "local text of " + id},
                                 {"VALUEADDED", "value of " + id},
                                 {"FREQUENCY", "frequency of " + id},
                                 {"TIMETYPE", "type of " + id},
                                 {"PAR_1_START", start},
                                 {"PAR_1_END", end}});
    if (!pattern.empty()) text += Elements({{"PATTERN", pattern}, {"PATTERN1", ""}});
    return Container(
               "DATACARDENTRY",
               text + OptionElement({{"PAR_ID", option_position}, {"TIME", option_time}, {"OPTION_ID", option_bits}})) +
           "\n";
  }
};

inline std::string TableOf(const std::vector<Card>& cards) {
  std::string text;
  for (const Card& card : cards) text += card.Written();
  return DataCardFile(text);
}

inline Card Plain(const std::string& id, const std::string& code, const std::string& time) {
  return {.id = id, .code = code, .time = time};
}

inline Card Ranged(const std::string& id, const std::string& code, const std::string& time, const std::string& start,
                   const std::string& end) {
  return {.id = id, .code = code, .time = time, .start = start, .end = end};
}

inline Card Patterned(const std::string& id, const std::string& pattern, const std::string& time,
                      const std::string& position = "", const std::string& option_time = "",
                      const std::string& option_bits = "") {
  return {.id = id,
          .code = "NONE" + id,
          .time = time,
          .pattern = pattern,
          .option_position = position,
          .option_time = option_time,
          .option_bits = option_bits};
}

}  // namespace support
