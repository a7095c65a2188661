// A bare recursive descent over a formula.
#include "BareFormula.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "formula/FormulaEvaluator.h"

namespace bench {
namespace {

bool IsDigit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}
bool IsLetter(wchar_t character) {
  return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

class Descent {
 public:
  explicit Descent(const wchar_t* text) : _Position(text) {}

  double Run(bool& good) {
    const double value = ReadExpression();
    good = _Good && *_Position == L'\0';
    return value;
  }

 private:
  bool Take(wchar_t character) {
    if (*_Position != character) return false;
    ++_Position;
    return true;
  }

  double ReadExpression() {
    double sum = Take(L'-') ? -ReadTerm() : (Take(L'+'), ReadTerm());
    for (;;) {
      if (Take(L'+')) {
        sum += ReadTerm();
      } else if (Take(L'-')) {
        sum -= ReadTerm();
      } else {
        return sum;
      }
    }
  }

  double ReadTerm() {
    double product = ReadFactor();
    for (;;) {
      if (Take(L'*')) {
        product *= ReadFactor();
      } else if (Take(L'/')) {
        product /= ReadFactor();
      } else {
        return product;
      }
    }
  }

  double ReadFactor() {
    if (IsDigit(*_Position)) return ReadNumber();
    if (IsLetter(*_Position)) return ReadCall();
    if (!Take(L'(')) return Fail();
    const double value = ReadExpression();
    return Take(L')') ? value : Fail();
  }

  double ReadNumber() {
    static constexpr std::array powers{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
    double digits = 0.0;
    while (IsDigit(*_Position)) digits = digits * 10.0 + static_cast<double>(*_Position++ - L'0');
    if (!Take(L'.')) return digits;
    std::size_t fraction = 0;
    for (; IsDigit(*_Position) && fraction + 1 < powers.size(); ++fraction) {
      digits = digits * 10.0 + static_cast<double>(*_Position++ - L'0');
    }
    return digits / powers[fraction];
  }

  double ReadCall() {
    const wchar_t* begin = _Position;
    while (IsLetter(*_Position) || IsDigit(*_Position)) ++_Position;
    const FormulaFunction* function = FindFunction({begin, static_cast<std::size_t>(_Position - begin)});
    if (function == nullptr || !Take(L'(')) return Fail();
    FormulaArguments arguments{};
    if (Take(L')')) return function->Function(arguments);
    std::size_t count = 0;
    do {
      const double argument = ReadExpression();
      if (count < arguments.size()) arguments[count++] = argument;
    } while (Take(L',') || Take(L'_'));
    return Take(L')') ? function->Function(arguments) : Fail();
  }

  static const FormulaFunction* FindFunction(std::wstring_view name) {
    for (const FormulaFunction& candidate : FormulaFunctions()) {
      if (candidate.Function == nullptr) break;
      if (candidate.Name == name) return &candidate;
    }
    return nullptr;
  }

  double Fail() {
    _Good = false;
    return 0.0;
  }

  const wchar_t* _Position;
  bool _Good = true;
};

}  // namespace

double EvaluateBareFormula(const wchar_t* text, bool& good) {
  return Descent(text).Run(good);
}

}  // namespace bench
