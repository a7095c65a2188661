// The signature of a formula, read from its text.
#include "platform/knowledge/KORCkeFormula.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "platform/knowledge/KORCkeLimits.h"

namespace {

constexpr std::array<std::string_view, 23> WordsOfTheLanguage{
    "_ENV", "and",   "break", "do",  "else", "elseif", "end",    "false", "for",  "function", "goto", "if",
    "in",   "local", "nil",   "not", "or",   "repeat", "return", "then",  "true", "until",    "while"};

bool IsBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}
bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') || character == '_';
}
bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

class SignatureReader {
 public:
  explicit SignatureReader(std::string_view text) : _Rest(text) {}

  // signature = [ argument { "," argument } ]
  KORCkeFormula ReadSignature() {
    SkipBlanks();
    if (_Rest.empty()) return std::move(_Formula);
    do {
      ReadArgument();
    } while (_Formula.Problem.empty() && TakeCharacter(','));
    if (_Formula.Problem.empty() && !_Rest.empty()) Fail("\",\" or the end expected");
    if (!_Formula.Problem.empty()) _Formula.Arguments.clear();
    return std::move(_Formula);
  }

 private:
  // argument = [ "out" ] name ":" type
  void ReadArgument() {
    KORCkeArgument argument;
    std::string_view name = TakeName();
    if (name == "out" && !_Rest.empty() && IsLetter(_Rest.front())) {
      argument.Mode = KORCke::OutputMode;
      name = TakeName();
    }
    if (!CheckName(name)) return;
    argument.Name = KORUnicodeString(name);
    if (!TakeCharacter(':')) {
      Fail("\":\" expected");
      return;
    }
    if (!ReadType(argument)) return;
    _Formula.Arguments.push_back(std::move(argument));
    if (_Formula.Arguments.size() > korcke::MostArguments) {
      _Formula.Problem = "signature: more than " + std::to_string(korcke::MostArguments) + " arguments";
    }
  }

  bool CheckName(std::string_view name) {
    if (name.empty()) {
      Fail("name of an argument expected");
    } else if (std::find(WordsOfTheLanguage.begin(), WordsOfTheLanguage.end(), name) != WordsOfTheLanguage.end()) {
      _Formula.Problem = "signature: an argument can't be called \"" + std::string(name) + '"';
    } else if (!_Names.insert(name).second) {
      _Formula.Problem = "signature: two arguments are called \"" + std::string(name) + '"';
    }
    return _Formula.Problem.empty();
  }

  // type = "Integer" | "Real" | "String" | the name of a magnitude
  bool ReadType(KORCkeArgument& argument) {
    const std::string_view name = TakeName();
    argument.TypeName = KORUnicodeString(name);
    argument.Magnitude = KORParmDictionary::FindMagnitude(argument.TypeName);
    if (name == "Integer") {
      argument.Kind = KORCke::ValueKind::Integer;
    } else if (name == "String") {
      argument.Kind = KORCke::ValueKind::Text;
    } else if (name.empty()) {
      Fail("type expected");
    } else if (name != "Real" && argument.Magnitude == nullptr) {
      _Formula.Problem = "signature: no type is called \"" + std::string(name) + '"';
    }
    return _Formula.Problem.empty();
  }

  void Fail(const char* what) {
    constexpr std::size_t shown = 20;
    _Formula.Problem = std::string("signature: ") + what;
    if (_Rest.empty()) {
      _Formula.Problem += " at its end";
    } else {
      _Formula.Problem += " ahead of \"" + std::string(_Rest.substr(0, shown)) + '"';
    }
  }

  // The name at the head, with the blanks behind it; empty if none stands there.
  std::string_view TakeName() {
    std::size_t length = 0;
    if (!_Rest.empty() && IsLetter(_Rest.front())) {
      while (length < _Rest.size() && (IsLetter(_Rest[length]) || IsDigit(_Rest[length]))) ++length;
    }
    const std::string_view name = _Rest.substr(0, length);
    _Rest.remove_prefix(length);
    SkipBlanks();
    return name;
  }

  bool TakeCharacter(char character) {
    if (_Rest.empty() || _Rest.front() != character) return false;
    _Rest.remove_prefix(1);
    SkipBlanks();
    return true;
  }

  void SkipBlanks() {
    while (!_Rest.empty() && IsBlank(_Rest.front())) _Rest.remove_prefix(1);
  }

  std::string_view _Rest;
  KORCkeFormula _Formula;
  std::unordered_set<std::string_view> _Names;
};

}  // namespace

int KORCkeFormula::CountOutputs() const {
  return static_cast<int>(std::count_if(Arguments.begin(), Arguments.end(), [](const KORCkeArgument& argument) {
    return argument.Mode == KORCke::OutputMode;
  }));
}

KORCkeFormula KORCkeFormula::Read(std::string_view signature) {
  if (signature.size() > korcke::LongestSignature) {
    return {{}, "signature: longer than " + std::to_string(korcke::LongestSignature) + " bytes"};
  }
  return SignatureReader(signature).ReadSignature();
}
