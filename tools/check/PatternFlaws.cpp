// Flaws of a code pattern that show in its text.
#include "tools/check/PatternFlaws.h"

#include <cctype>

namespace tool {

namespace {

std::string Position(std::size_t position) {
  return " at position " + std::to_string(position);
}

bool IsMark(const PatternToken& token) {
  return token.Kind == PatternKind::Alternative;
}

// One level of the pattern, from its "(" on, or the whole of it.
struct Level {
  std::size_t Open;                   // position of the "("; unused for the whole pattern
  bool Alternatives = false;          // a mark has been met
  bool Filled = false;                // something stands in the current alternative, or ahead of the first mark
  bool Told = false;                  // of a second token in one alternative
  std::string Pending;                // literal that is the whole of the current alternative so far
  std::vector<std::string> Literals;  // alternatives that are one literal, in their order
};

class FlawFinder {
 public:
  FlawFinder(const std::vector<PatternToken>& tokens, bool parts_with_plus)
      : _Tokens(tokens), _PartsWithPlus(parts_with_plus) {}

  std::vector<Flaw> Find() {
    _Levels.push_back({0, false, false, false, {}, {}});
    for (std::size_t position = 0; position < _Tokens.size(); ++position) {
      CheckToken(position);
      CheckPlace(position);
    }
    if (const std::size_t open = _Levels.size() - 1; open > 0) {
      Add(findingkind::Pattern, "the group opened" + Position(_Levels.back().Open) + " is not closed" +
                                    (open > 1 ? ", nor are " + std::to_string(open - 1) + " around it" : ""));
    }
    return std::move(_Flaws);
  }

 private:
  void Add(const char* kind, const std::string& text) { _Flaws.push_back({kind, text}); }

  void CheckToken(std::size_t position) {
    const PatternToken& token = _Tokens[position];
    const std::string source = token.Source + Position(position);
    if (token.BlankAhead && position > 0) {
      Add(findingkind::Pattern, "a blank or a line break ahead of " + source + "; tokens follow each other directly");
    }
    switch (token.Kind) {
      case PatternKind::Unknown:
        Add(findingkind::Pattern, source + " begins no token and can never match");
        break;
      case PatternKind::Integer:
      case PatternKind::Real:
        CheckParameter(token, source);
        break;
      case PatternKind::Literal:
        CheckLiteral(token, source);
        break;
      default:
        break;
    }
  }

  void CheckParameter(const PatternToken& token, const std::string& source) {
    if (token.Open) Add(findingkind::Pattern, "the range of " + source + " lacks its \"]\"");
    if (token.RangeWithoutComma) {
      Add(findingkind::Pattern, "the range of " + source + " has no comma and does not count");
    } else if (token.BoundNotRead) {
      Add(findingkind::Pattern, "a bound of " + source + " is no whole number");
    } else if (token.Min > token.Max) {
      Add(findingkind::Pattern, "the lower bound of " + source + " is above the upper one");
    }
  }

  void CheckLiteral(const PatternToken& token, const std::string& source) {
    if (token.Open)
      Add(findingkind::Pattern, "the literal " + source + " lacks its closing quote and takes all behind it");
    bool blank = false;
    bool lower = false;
    for (const char character : token.Text) {
      blank = blank || character == ' ';
      lower = lower || std::islower(static_cast<unsigned char>(character));
    }
    if (lower)
      Add(findingkind::Never, "the literal " + source + " has lower case letters; codes are compared in upper case");
    if (blank) Add(findingkind::Never, "the literal " + source + " has a blank; codes are compared without blanks");
    if (_PartsWithPlus && token.Text.find('+') != std::string::npos) {
      Add(findingkind::Never, "the literal " + source + " has a \"+\", which joins the parts of a code");
    }
  }

  void CheckPlace(std::size_t position) {
    const PatternToken& token = _Tokens[position];
    if (token.Kind == PatternKind::GroupOpen) {
      Fill(position);
      _Levels.push_back({position, false, false, false, {}, {}});
    } else if (token.Kind == PatternKind::GroupClose) {
      if (_Levels.size() == 1) {
        Add(findingkind::Pattern, "\")\"" + Position(position) + " closes no group");
        return;
      }
      EndAlternative();
      _Levels.pop_back();
    } else if (IsMark(token)) {
      Mark(position);
    } else {
      Fill(position);
    }
  }

  void Mark(std::size_t position) {
    Level& level = _Levels.back();
    if (!level.Alternatives && level.Filled) {
      Add(findingkind::Pattern,
          "the mark | has to stand ahead of the first alternative too; without it what stands ahead of "
          "the mark" +
              Position(position) + " is required and what follows is never tried");
    }
    EndAlternative();
    level.Alternatives = true;
    level.Filled = false;
  }

  // A token, or a whole group, stands at the position.
  void Fill(std::size_t position) {
    Level& level = _Levels.back();
    if (level.Alternatives && level.Filled) {
      level.Pending.clear();
      if (!level.Told) {
        Add(findingkind::Pattern, _Tokens[position].Source + Position(position) +
                                      " is an alternative of its own; put what belongs together into a group");
      }
      level.Told = true;
      return;
    }
    level.Filled = true;
    if (level.Alternatives && _Tokens[position].Kind == PatternKind::Literal) {
      level.Pending = _Tokens[position].Text;
      CheckPrefix(position);
    }
  }

  // The first alternative that matches wins, so that one that begins with an earlier one is never reached.
  void CheckPrefix(std::size_t position) {
    const std::string& text = _Tokens[position].Text;
    for (const std::string& earlier : _Levels.back().Literals) {
      if (_PartsWithPlus ? text == earlier : text.starts_with(earlier)) {
        Add(findingkind::Never, "the alternative " + _Tokens[position].Source + Position(position) +
                                    " is never reached, since \"" + earlier + "\" ahead of it takes its codes");
        return;
      }
    }
  }

  void EndAlternative() {
    Level& level = _Levels.back();
    if (!level.Pending.empty()) level.Literals.push_back(level.Pending);
    level.Pending.clear();
  }

  const std::vector<PatternToken>& _Tokens;
  bool _PartsWithPlus;
  std::vector<Level> _Levels;
  std::vector<Flaw> _Flaws;
};

}  // namespace

std::vector<Flaw> FindPatternFlaws(const std::vector<PatternToken>& tokens, bool parts_with_plus) {
  return FlawFinder(tokens, parts_with_plus).Find();
}

}  // namespace tool
