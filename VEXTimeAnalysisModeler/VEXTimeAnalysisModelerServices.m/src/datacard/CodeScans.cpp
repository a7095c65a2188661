// Code patterns as arrays of the public token records.
#include "datacard/CodeScans.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace datacard {
namespace {

using Record = VEXSTMDataCardCodeScan;
using Type = PatternTokenType;

Type TypeOf(const Record& record) {
  constexpr int last = static_cast<int>(Type::End);
  return record._Type >= 0 && record._Type <= last ? static_cast<Type>(record._Type) : Type::Unknown;
}

std::vector<PatternToken> TokensOf(const Record* records) {
  std::vector<PatternToken> tokens;
  for (; TypeOf(*records) != Type::End; ++records) {
    tokens.push_back({TypeOf(*records), records->_Min, records->_Max, 0, records->_Text.Bytes()});
  }
  return tokens;
}

void WriteMatch(const TokenMatch& match, Record& record) {
  record._Matched = match.Matched ? 1 : 0;
  if (TypeOf(record) == Type::IntegerParameter) record._IntValue = match.Integer;
  if (TypeOf(record) == Type::RealParameter) record._RealValue = match.Real;
  if (!match.HoldsNumber) return;
  record._Text = TypeOf(record) == Type::IntegerParameter ? KORUnicodeString::FromInteger(match.Integer)
                                                          : KORUnicodeString::FromReal(match.Real);
}

}  // namespace

std::unique_ptr<VEXSTMDataCardCodeScan[]> ScansOfPattern(const CodePattern& pattern) {
  auto records = std::make_unique<Record[]>(pattern.Size() + 1);
  for (std::size_t position = 0; position <= pattern.Size(); ++position) {
    const PatternToken& token = pattern[position];
    Record& record = records[position];
    record._Type = static_cast<int>(token.Type);
    record._Text = KORUnicodeString(token.Text);
    record._Min = token.Min;
    record._Max = token.Max;
  }
  return records;
}

VEXSTMDataCardCodeScan* WalkScans(std::string_view code, bool chained, VEXSTMDataCardCodeScan* tokens, int& consumed) {
  const CodePattern pattern(TokensOf(tokens));
  std::vector<TokenMatch> matches(pattern.Size());
  for (std::size_t position = 0; position < pattern.Size(); ++position) {
    const Record& record = tokens[position];
    matches[position] = {record._Matched != 0, false, record._IntValue, record._RealValue};
  }
  const PatternWalk walk = pattern.Walk(code, chained, matches);
  for (std::size_t position = 0; position < pattern.Size(); ++position) WriteMatch(matches[position], tokens[position]);
  consumed += static_cast<int>(walk.Consumed);
  return walk.Stop ? tokens + *walk.Stop : nullptr;
}

}  // namespace datacard
