// Streams that come in: their items, looked at one by one before the exchange reads them, and what is wrong with them.
//
// What an item has to be stands at StreamWriter.h. An item that cannot be read is passed over, with its place, cause
// and remedy. So that a row keeps its number, rows rise by one; a row may be written again.
#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "tools/Messages.h"
#include "tools/exchange/ExchangeVocabulary.h"

namespace tool {

struct StreamReference {
  int Row = 0;
  std::string Identifier;
};

/// What a stream holds.
struct StreamContent {
  KORListValKORUnicodeString Items;     // those that SetAnalysisData is to read
  std::vector<StreamReference> Reused;  // each reference to another analysis
  std::vector<Failure> Problems;        // in the order of the items; the first ones of very many
  std::size_t FurtherProblems = 0;      // behind those

  /// The problems; the further ones as their number.
  std::vector<Failure> AllProblems(const std::string& path) const;
};

class StreamReader {
 public:
  /// Whether a key that the exchange does not know is a problem.
  enum class UnknownKeys { Told, PassedOver };

  /// path  what messages call the stream. Both have to outlive the reader.
  StreamReader(const std::string& path, ExchangeVocabulary& vocabulary, UnknownKeys unknown = UnknownKeys::Told)
      : _Path(path), _Vocabulary(vocabulary), _Unknown(unknown) {}

  /// Reads the bytes of a stream: UTF-8, or Windows-1252 if they are no UTF-8 as a whole. Raises StreamEmpty,
  /// StreamWithNul, StreamWithTooManyItems, StreamWithUnknownKeys and StreamHoldsNothing.
  StreamContent Read(std::string_view bytes);

  static constexpr std::size_t LongestStream = std::size_t{256} << 20;
  static constexpr std::size_t MostItems = 5'000'000;
  static constexpr std::size_t MostProblems = 1'000;     // that are listed
  static constexpr std::size_t MostUnknownKeys = 1'000;  // beyond them a text is no stream

 private:
  struct Column {
    std::string Key;
    ExchangeType Type;  // None: the exchange does not know the key
  };
  class Fields;

  bool TakeItem(std::string_view item);
  bool TakeAttribute(const Fields& fields);
  bool TakeCell(const Fields& fields);
  void TakeHeading(const Fields& fields);
  const Column* FindColumn(std::string_view text);
  bool CheckRow(std::string_view text, int row);
  void CheckValue(std::string_view key, ExchangeType type, std::string_view value);
  void TakeUnknownKey(std::string_view key, const Failure& problem);
  void Tell(const Failure& problem);

  const std::string& _Path;
  ExchangeVocabulary& _Vocabulary;
  UnknownKeys _Unknown;
  std::size_t _Item = 0;  // that is being read, from 1
  bool _HoldsSomething = false;
  std::set<std::string, std::less<>> _Attributes;  // keys met
  std::set<std::string, std::less<>> _UnknownKeys;
  std::vector<Column> _Columns;
  std::set<std::string, std::less<>> _ColumnKeys;  // met
  int _RowCount = 0;
  StreamContent _Content;
};

}  // namespace tool
