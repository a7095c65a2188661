// Codes built from a pattern, to try it with.
#include "tools/check/SampleCodes.h"

#include <algorithm>

#include "platform/base/KORNumberText.h"

namespace tool {

namespace {

// Numbers that a parameter takes: ordinary ones first, then the bounds.
std::vector<std::string> NumbersOf(const PatternToken& token) {
  std::vector<std::string> texts;
  const auto add = [&texts](const std::string& text) {
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
  };
  if (token.Min > token.Max) return texts;
  const auto middle = static_cast<int>((static_cast<long>(token.Min) + token.Max) / 2);
  for (const int number : {1, 5, 30, middle, token.Min, token.Max}) {
    add(kornumber::PrintInteger(std::clamp(number, token.Min, token.Max)));
  }
  if (token.Kind == PatternKind::Real && middle + 0.5 <= token.Max) add(kornumber::PrintReal(middle + 0.5));
  return texts;
}

}  // namespace

SampleCodes::SampleCodes(const std::vector<PatternToken>& tokens, bool parts_with_plus)
    : _PartsWithPlus(parts_with_plus) {
  std::size_t position = 0;
  _Whole = ReadGroup(tokens, position);
}

SampleCodes::Part SampleCodes::ReadToken(const PatternToken& token) const {
  Part part;
  if (token.Kind == PatternKind::Integer || token.Kind == PatternKind::Real) {
    part.Texts = NumbersOf(token);
  } else if (token.Kind == PatternKind::Literal) {
    part.Texts.push_back(token.Text + (_PartsWithPlus ? "+" : ""));
  } else {
    part.Texts.emplace_back();
  }
  return part;
}

// Reads up to the ")" that closes the group, or to the end; the depth is bounded by the number of tokens.
SampleCodes::Part SampleCodes::ReadGroup(const std::vector<PatternToken>& tokens, std::size_t& position) {
  Part group;
  group.Group = true;
  for (; position < tokens.size() && tokens[position].Kind != PatternKind::GroupClose; ++position) {
    const PatternToken& token = tokens[position];
    if (token.Kind == PatternKind::Alternative) {
      // What stands ahead of the first mark is required, and what follows it is not tried then.
      if (!group.Choice && !group.Parts.empty()) {
        while (position < tokens.size() && tokens[position].Kind != PatternKind::GroupClose) {
          if (tokens[position++].Kind == PatternKind::GroupOpen) ReadGroup(tokens, position), ++position;
        }
        return group;
      }
      group.Choice = true;
    } else if (token.Kind == PatternKind::GroupOpen) {
      group.Parts.push_back(ReadGroup(tokens, ++position));
    } else {
      group.Parts.push_back(ReadToken(token));
    }
  }
  if (group.Choice) _RoundsInTurn = std::max(_RoundsInTurn, group.Parts.size());
  return group;
}

std::size_t SampleCodes::Choose(std::size_t count, std::size_t round) {
  if (round < _RoundsInTurn) return round % count;
  _Random = _Random * 1664525u + 1013904223u;
  return (_Random >> 8) % count;
}

void SampleCodes::Append(const Part& part, std::size_t round, std::string& code) {
  if (!part.Group) {
    if (!part.Texts.empty()) code += part.Texts[Choose(part.Texts.size(), round)];
  } else if (part.Choice) {
    if (!part.Parts.empty()) Append(part.Parts[Choose(part.Parts.size(), round)], round, code);
  } else {
    for (const Part& inner : part.Parts) Append(inner, round, code);
  }
}

std::string SampleCodes::Build(std::size_t round) {
  std::string code;
  Append(_Whole, round, code);
  if (_PartsWithPlus && code.ends_with('+')) code.pop_back();
  return code;
}

}  // namespace tool
