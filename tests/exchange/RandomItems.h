// Draws lists of items as they come from streams and from hands: well formed, nearly so, and not at all.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/exchange/OddTexts.h"
#include "tests/oracle/ExchangeOracle.h"
#include "tests/support/RandomText.h"

namespace exchangetest {

class RandomItems {
 public:
  /// identifiers  of analyses that there are
  RandomItems(unsigned seed, std::vector<std::string> identifiers)
      : _Random(seed), _Identifiers(std::move(identifiers)) {}

  /// Another list on each call.
  std::vector<std::string> Draw() {
    if (_Random.OneIn(40)) return {};
    if (_Random.OneIn(5)) return Heap();
    std::vector<std::string> items = WellFormed();
    if (_Random.OneIn(3)) return items;
    for (int left = _Random.Below(6) + 1; left > 0; --left) Spoil(items);
    return items;
  }

 private:
  using Fields = std::vector<std::string>;

  static std::string Join(const Fields& fields) {
    std::string text;
    for (std::size_t index = 0; index < fields.size(); ++index) text += (index == 0 ? "" : ":") + fields[index];
    return text;
  }

  static Fields Split(const std::string& item) {
    Fields fields{""};
    for (const char character : item) {
      if (character == ':') {
        fields.emplace_back();
      } else {
        fields.back() += character;
      }
    }
    return fields;
  }

  // ---- A list in its order: what leads a stream, attributes, the header row, lines from 1

  std::vector<std::string> WellFormed() {
    std::vector<std::string> items;
    if (_Random.OneIn(2)) items = {"Save", "New STM - STD", "STD"};
    for (int left = _Random.Below(6); left > 0; --left) items.push_back(Attribute());
    const int columns = _Random.Below(8);
    std::vector<int> types;
    for (int column = 0; column < columns; ++column) {
      const oracle::ExchangeLineKey& key = AnyLineKey();
      types.push_back(key.type);
      const std::string name = _Random.OneIn(12) ? OddKey() : key.key;
      items.push_back("LineData:et_linedata:0:" + std::to_string(column) + ":8:" + name);
    }
    const int rows = _Random.Below(5);
    for (int row = 1; row <= rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        if (!_Random.OneIn(6)) items.push_back(Cell(row, column, types[static_cast<std::size_t>(column)]));
      }
    }
    return items;
  }

  std::string Attribute() {
    const oracle::ExchangeAttribute& row = _Random.AnyOf(oracle::ExchangeAttributes());
    const std::string key = _Random.OneIn(12) ? OddKey() : row.key;
    return "AttributeData:" + key + ":" + std::to_string(row.type) + ":" + Value(row.type);
  }

  std::string Cell(int row, int column, int type) {
    return "LineData:et_linedata:" + std::to_string(row) + ":" + std::to_string(column) + ":" + std::to_string(type) +
           ":" + Value(type);
  }

  const oracle::ExchangeLineKey& AnyLineKey() {
    // The reused analysis has a way of its own and is to come often.
    for (const oracle::ExchangeLineKey& key : oracle::ExchangeLineKeys()) {
      if (key.type == 13 && _Random.OneIn(6)) return key;
    }
    return _Random.AnyOf(oracle::ExchangeLineKeys());
  }

  std::string Value(int type) {
    if (_Random.OneIn(12)) type = 8;
    if (type == 3 || type == 11) return Integer();
    if (type == 5) return Real();
    if (type == 13 && !_Random.OneIn(8)) return _Random.AnyOf(_Identifiers);
    return Text();
  }

  // ---- The order and the items disturbed

  void Spoil(std::vector<std::string>& items) {
    if (items.empty() || _Random.OneIn(8)) {
      items.insert(items.begin() + _Random.Below(static_cast<int>(items.size()) + 1), AnyItem());
      return;
    }
    const int at = _Random.Below(static_cast<int>(items.size()));
    std::string& item = items[static_cast<std::size_t>(at)];
    switch (_Random.Below(5)) {
      case 0:
        items.erase(items.begin() + at);
        return;
      case 1:
        std::swap(item, items[static_cast<std::size_t>(_Random.Below(static_cast<int>(items.size())))]);
        return;
      case 2:
        item += _Random.OneIn(2) ? ":" : ":" + Text();
        return;
      default:
        item = Join(SpoiltFields(Split(item)));
    }
  }

  Fields SpoiltFields(Fields fields) {
    const auto at = static_cast<std::size_t>(_Random.Below(static_cast<int>(fields.size())));
    if (_Random.OneIn(3)) {
      fields.resize(at);
    } else {
      fields[at] = AnyField();
    }
    return fields;
  }

  // ---- Anything at all

  std::vector<std::string> Heap() {
    std::vector<std::string> items;
    for (int left = _Random.Below(12) + 1; left > 0; --left) items.push_back(AnyItem());
    return items;
  }

  std::string AnyItem() {
    Fields fields{_Random.AnyOf(ItemHeads())};
    if (fields[0] == "LineData" && !_Random.OneIn(4)) {
      fields = {"LineData", AnyField(), Row(), Column(), AnyField(), _Random.OneIn(2) ? AnyLineKey().key : AnyField()};
    } else {
      for (int left = _Random.Below(8); left > 0; --left) fields.push_back(AnyField());
    }
    return Join(fields);
  }

  std::string AnyField() {
    switch (_Random.Below(8)) {
      case 0:
        return _Random.AnyOf(oracle::ExchangeAttributes()).key;
      case 1:
        return AnyLineKey().key;
      case 2:
        return OddKey();
      case 3:
        return Real();
      case 4:
        return Row();
      case 5:
        return Column();
      case 6:
        return Integer();
      default:
        return Text();
    }
  }

  std::string OddKey() { return _Random.AnyOf(OddKeys()); }
  std::string Row() { return _Random.AnyOf(RowTexts()); }
  std::string Column() { return _Random.AnyOf(ColumnTexts()); }

  std::string Integer() {
    if (_Random.OneIn(2)) return _Random.AnyOf(OddIntegers());
    return std::to_string(_Random.Below(6) - 1);
  }

  std::string Real() {
    if (_Random.OneIn(2)) return _Random.AnyOf(OddReals());
    return std::to_string(_Random.Below(100000) - 100) + "." + std::to_string(_Random.Below(1000000));
  }

  std::string Text() { return _Random.Draw(TextPieces(), 3); }

  support::RandomText _Random;
  std::vector<std::string> _Identifiers;
};

}  // namespace exchangetest
