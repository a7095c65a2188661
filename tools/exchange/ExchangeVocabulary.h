// What the exchange calls the attributes of an analysis and the keys of its lines. It is asked, name by name, and tells
// by what it does with them: so the tool has no tables of its own that could differ.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "tools/exchange/ExchangeProbe.h"

namespace tool {

/// A name in the exchange.
struct ExchangeName {
  std::string Key;  // empty: the exchange has none
  ExchangeType Type = ExchangeType::None;
  int Column = 0;  // of a key of a line, in the form that is written
};

class ExchangeVocabulary {
 public:
  /// The name of an attribute, and of a key of a line. Where the exchange has none, asking for the first time leaves a
  /// line in the trace, but for those that are known to have none (IsKnownToHaveNoName).
  const ExchangeName& OfAttribute(std::string_view attribute);
  const ExchangeName& OfLineKey(std::string_view key);

  /// The type that values under a key of the exchange have: of an attribute, and of a cell of a line. None if there is
  /// no such key, which leaves a line in the trace when it is first asked for.
  ExchangeType TypeOfAttribute(std::string_view exchange_key);
  ExchangeType TypeOfCell(std::string_view exchange_key);

 private:
  ExchangeName Ask(std::string_view name, std::vector<std::string>& list);
  ExchangeType AskByWriting(const std::vector<std::string>& items);

  std::map<std::string, ExchangeName, std::less<>> _Attributes;
  std::map<std::string, ExchangeName, std::less<>> _LineKeys;
  std::map<std::string, ExchangeType, std::less<>> _TypesOfAttributes;
  std::map<std::string, ExchangeType, std::less<>> _TypesOfCells;
  ExchangeProbe _Probe;
};

/// Attributes and keys that the exchange has no name for, as everybody knows: the identifier, by which an analysis is
/// found, the totals in seconds, the printed frequency, and the picture of a formula.
bool IsKnownToHaveNoName(std::string_view name);

/// True for those of them that follow from what the exchange does carry.
bool FollowsFromOthers(std::string_view name);

}  // namespace tool
