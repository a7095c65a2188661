// Remembers compiled patterns by their text.
#include "datacard/PatternMemory.h"

namespace datacard {

PatternMemory& PatternMemory::OfThread() {
  thread_local PatternMemory memory;
  return memory;
}

const CodePattern& PatternMemory::PatternOf(std::string_view text) {
  if (_Last != nullptr && _Last->first == text) return _Last->second;
  auto found = _Patterns.find(text);
  if (found == _Patterns.end()) {
    if (_Bytes + text.size() > MostBytes) {
      _Last = nullptr;
      _Patterns.clear();
      _Bytes = 0;
    }
    found = _Patterns.emplace(text, CodePattern(text)).first;
    _Bytes += text.size();
  }
  _Last = &*found;
  return found->second;
}

}  // namespace datacard
