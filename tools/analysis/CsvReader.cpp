// Records of comma-separated text.
#include "tools/analysis/CsvReader.h"

namespace tool {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(std::string_view text) : _Text(text) {
  if (!_Text.starts_with(ByteOrderMark)) return;
  _Ahead = ByteOrderMark.size();
  _Text.remove_prefix(_Ahead);
}

bool CsvReader::Stop(CsvFault fault, std::size_t line) {
  _Fault = fault;
  _FaultLine = line;
  _Place = _Text.size();
  return false;
}

// separator: the first one outside quotes up to the end of the record.
void CsvReader::FindSeparator() {
  _Separator = ',';
  bool quoted = false;
  for (const char character : _Text.substr(_Place)) {
    if (character == '"') quoted = !quoted;
    if (quoted) continue;
    if (character == '\n' || character == '\r') return;
    if (character == ',' || character == ';' || character == '\t') {
      _Separator = character;
      return;
    }
  }
}

bool CsvReader::AtLineEnd() const {
  return _Place == _Text.size() || _Text[_Place] == '\n' || _Text[_Place] == '\r';
}

// line-end
void CsvReader::TakeLineEnd() {
  if (_Place == _Text.size()) return;
  ++_Line;
  const bool pair = _Text.substr(_Place).starts_with("\r\n");
  _Place += pair ? 2 : 1;
}

// quoted; false if the closing quote is missing.
bool CsvReader::TakeQuoted(std::string& field) {
  ++_Place;
  while (true) {
    const std::size_t quote = _Text.find('"', _Place);
    if (quote == std::string_view::npos) return false;
    const std::string_view piece = _Text.substr(_Place, quote - _Place);
    field += piece;
    for (std::size_t at = 0; at < piece.size(); ++at) {
      const bool pair = piece[at] == '\r' && at + 1 < piece.size() && piece[at + 1] == '\n';
      if (piece[at] == '\n' || (piece[at] == '\r' && !pair)) ++_Line;
    }
    _Place = quote + 1;
    if (_Place == _Text.size() || _Text[_Place] != '"') return true;
    field += '"';
    ++_Place;
  }
}

// plain, or what stands behind a closing quote
void CsvReader::TakePlain(std::string& field) {
  const char ends[] = {_Separator, '\n', '\r'};
  const std::size_t end = std::min(_Text.find_first_of(std::string_view(ends, sizeof ends), _Place), _Text.size());
  field += _Text.substr(_Place, end - _Place);
  _Place = end;
}

bool CsvReader::Next(CsvRecord& record) {
  if (_Place == _Text.size()) return false;
  record = CsvRecord();
  record.Line = _Line;
  const std::size_t start = _Place;
  if (_Text[_Place] == '#') {
    const std::size_t end = std::min(_Text.find_first_of("\r\n", _Place), _Text.size());
    record.IsComment = true;
    record.Fields.emplace_back(_Text.substr(_Place + 1, end - _Place - 1));
    _Place = end;
  } else {
    if (_Separator == '\0') FindSeparator();
    for (bool more = true; more;) {
      std::string& field = record.Fields.emplace_back();
      const std::size_t field_start = _Place;
      const bool quoted = !AtLineEnd() && _Text[_Place] == '"';
      if (quoted && !TakeQuoted(field)) return Stop(CsvFault::OpenQuote, record.Line);
      const std::size_t taken = field.size();
      TakePlain(field);
      if (quoted && field.size() > taken) record.HasTextBehindQuote = true;
      record.Extents.push_back({_Ahead + field_start, _Place - field_start});
      more = !AtLineEnd();
      if (more) ++_Place;
    }
  }
  const std::string_view text = _Text.substr(start, _Place - start);
  if (text.size() > LongestRecord) return Stop(CsvFault::TooLong, record.Line);
  if (text.find('\0') != std::string_view::npos) return Stop(CsvFault::NulByte, record.Line);
  TakeLineEnd();
  return true;
}

}  // namespace tool
