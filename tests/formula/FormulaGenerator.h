// Draws formulas at random: well-formed ones from the grammar, and mutated ones.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace formulatest {

class FormulaGenerator {
 public:
  explicit FormulaGenerator(std::uint32_t seed) : _Random(seed) {}

  /// A formula that is well-formed but for odd numbers and names and, in three cases of five, mutations.
  std::wstring Draw() {
    std::wstring text = Expression(static_cast<int>(Below(4)));
    if (Below(5) < 3) {
      for (std::uint32_t count = 1 + Below(3); count > 0; --count) Mutate(text);
    }
    return text;
  }

 private:
  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(_Random()) % bound; }

  template <std::size_t count>
  std::wstring OneOf(const std::array<const wchar_t*, count>& texts) {
    return texts[Below(static_cast<std::uint32_t>(count))];
  }

  std::wstring Blank() { return Below(8) == 0 ? OneOf(std::array{L" ", L"  ", L"\t", L"\n"}) : std::wstring(); }

  std::wstring Expression(int depth) {
    std::wstring text = Blank();
    if (Below(5) == 0) text += Below(2) == 0 ? L"-" : L"+";
    text += Term(depth);
    for (std::uint32_t more = Below(4) == 0 ? Below(4) : Below(2); more > 0; --more) {
      text += Blank() + (Below(2) == 0 ? L"-" : L"+") + Term(depth);
    }
    return text + Blank();
  }

  std::wstring Term(int depth) {
    std::wstring text = Factor(depth);
    for (std::uint32_t more = Below(3) == 0 ? 1 + Below(2) : 0; more > 0; --more) {
      text += Blank() + (Below(2) == 0 ? L"*" : L"/") + Factor(depth);
    }
    return text;
  }

  std::wstring Factor(int depth) {
    const std::uint32_t kind = Below(6);
    if (depth <= 0 || kind < 2) return Blank() + Number();
    if (kind < 4) return Blank() + L"(" + Expression(depth - 1) + L")";
    return Blank() + Call(depth);
  }

  std::wstring Call(int depth) {
    std::wstring text = Name() + Blank() + L"(";
    std::uint32_t count = Below(12) == 0 ? Below(23) : Below(4);
    for (std::uint32_t n = 0; n < count; ++n) {
      if (n > 0) text += Blank() + (Below(3) == 0 ? L"_" : L",");
      text += count > 5 && Below(4) != 0 ? Number() : Expression(depth - 1);
    }
    return text + Blank() + L")";
  }

  std::wstring Name() {
    static constexpr std::array known{L"sin",
                                      L"cos",
                                      L"tan",
                                      L"exp",
                                      L"pow",
                                      L"sqrt",
                                      L"abs",
                                      L"MTM1REACH",
                                      L"MTM1MOVE",
                                      L"MTM1DYNAMICFACTOR",
                                      L"MTM1STATICCONSTANT",
                                      L"MTM1POSITION",
                                      L"MTM1TURN",
                                      L"MTM1EYETRAVEL",
                                      L"MTM1SIDESTEP",
                                      L"MTM1LEGMOTION",
                                      L"WFASY",
                                      L"WFPP",
                                      L"WFT",
                                      L"MOST"};
    static constexpr std::array unknown{L"foo", L"ABS", L"abs1", L"e", L"MTM1", L"mtm1reach", L"x", L"inf", L"nan"};
    return Below(40) == 0 ? OneOf(unknown) : OneOf(known);
  }

  std::wstring Number() {
    static constexpr std::array common{L"0", L"1", L"2", L"3", L"7", L"10", L"80", L"1.5", L"0.25"};
    static constexpr std::array odd{L"0.0",   L"1.",     L"007",    L"1e3",
                                    L"2E-2",  L"1e+1",   L"0x1F",   L"0x1p3",
                                    L"1e400", L"9e-400", L"1.5e-7", L"1234567890123456789012",
                                    L"1e",    L"0x",     L"1.2.3",  L".5",
                                    L"1e+",   L"1,5",    L"1_5",    L"3.14159265358979"};
    if (Below(5) == 0) return OneOf(odd);
    if (Below(3) == 0) return std::to_wstring(Below(2000));
    return OneOf(common);
  }

  std::size_t Place(const std::wstring& text, bool with_end) {
    return Below(static_cast<std::uint32_t>(text.size() + (with_end ? 1 : 0)));
  }

  // A place just behind a closed parenthesis, if there is one.
  std::size_t PlaceBehindParenthesis(const std::wstring& text) {
    const std::size_t found = text.find(L')', Place(text, true));
    return found == std::wstring::npos ? Place(text, true) : found + 1;
  }

  void Mutate(std::wstring& text) {
    static constexpr std::array scraps{L"$", L"(", L")", L"+", L"-", L"*",  L"/",    L",",   L"_",   L"1",
                                       L"0", L" ", L".", L"e", L"x", L"()", L"abs(", L"1/0", L"sin", L"\u00E4"};
    static constexpr std::array errors{L"$", L"$", L",", L"_", L"1", L"(", L")", L" 2", L"/0", L"x", L",,", L"abs("};
    switch (text.empty() ? 2 : Below(9)) {
      case 0:
        text.erase(Place(text, false), 1);
        break;
      case 1: {
        const std::size_t place = Place(text, false);
        text.insert(place, 1, text[place]);
        break;
      }
      case 2:
        text.insert(Place(text, true), OneOf(scraps));
        break;
      case 3:
        text.insert(PlaceBehindParenthesis(text), OneOf(errors));
        break;
      case 4:
        text.insert(PlaceBehindParenthesis(text), OneOf(errors));
        break;
      case 5:
        text.replace(Place(text, false), 1, OneOf(scraps));
        break;
      case 6: {
        const std::size_t place = Place(text, false);
        if (place + 1 < text.size()) std::swap(text[place], text[place + 1]);
        break;
      }
      case 7:
        text.insert(Place(text, true), text.substr(Place(text, false), 1 + Below(6)));
        break;
      default:
        text.erase(Place(text, false), 1 + Below(8));
        break;
    }
  }

  std::mt19937 _Random;
};

}  // namespace formulatest
