// Remembers what the lookups of codes have found.
#include "codenorm/LookupMemory.h"

namespace codenorm {

void LookupMemory::Enter(std::uint64_t table_number, std::string_view system, wchar_t decimal_character) {
  if (table_number == _TableNumber && system == _System && decimal_character == _DecimalCharacter) return;
  _Answers.clear();
  _TableNumber = table_number;
  _System = system;
  _DecimalCharacter = decimal_character;
}

const CodeTime* LookupMemory::Find(std::string_view code) const {
  const auto found = _Answers.find(code);
  return found == _Answers.end() ? nullptr : &found->second;
}

void LookupMemory::Remember(std::string_view code, const CodeTime& answer) {
  if (code.size() > MostCodeBytes) return;
  if (_Answers.size() >= MostAnswers) _Answers.clear();
  _Answers.emplace(code, answer);
}

}  // namespace codenorm
