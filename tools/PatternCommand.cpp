// timeanalysis pattern: do codes match a pattern, and what did each token take.
#include <iomanip>
#include <map>
#include <memory>
#include <optional>
#include <ostream>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/JsonLine.h"
#include "tools/LineReader.h"
#include "tools/LookupForm.h"
#include "tools/NumberText.h"
#include "tools/PatternMatch.h"
#include "tools/PatternText.h"
#include "tools/Systems.h"

namespace tool {

namespace {

// A pattern, read as its author wrote it and as the services compile it.
struct AuthorPattern {
  AuthorPattern(VEXSTMTimeAnalysisDlgServices& service, std::string_view pattern)
      : Source(pattern), Tokens(ReadPatternText(KORUnicodeString(pattern).Bytes())), Matchable(service, pattern) {}

  std::string Source;
  std::vector<PatternToken> Tokens;
  MatchablePattern Matchable;
};

void WriteJson(std::ostream& output, const PatternMatch& match) {
  nlohmann::ordered_json values = nlohmann::ordered_json::array();
  nlohmann::ordered_json flags = nlohmann::ordered_json::array();
  for (std::size_t token = 0; token < static_cast<std::size_t>(match.Count); ++token) {
    values.push_back(JsonNumber(match.Values[token]));
    flags.push_back(match.Flags[token]);
  }
  nlohmann::ordered_json answer;
  answer["match"] = match.Matches;
  answer["count"] = match.Count;
  answer["values"] = std::move(values);
  answer["flags"] = std::move(flags);
  WriteJsonLine(output, answer);
}

void WriteTokens(std::ostream& output, const std::vector<PatternToken>& tokens, const PatternMatch& match) {
  std::size_t width = 5;
  for (const PatternToken& token : tokens) width = std::min<std::size_t>(std::max(width, token.Source.size()), 40);
  const auto row = [&](const std::string& position, const std::string& token, const std::string& value,
                       const char* part) {
    output << "  " << std::left << std::setw(10) << position << std::setw(static_cast<int>(width) + 2) << token
           << std::setw(12) << value << part << '\n';
  };
  row("position", "token", "value", "took part");
  for (std::size_t position = 0; position < tokens.size(); ++position) {
    const PatternToken& token = tokens[position];
    const bool parameter = token.Kind == PatternKind::Integer || token.Kind == PatternKind::Real;
    const bool known = match.Matches && position < static_cast<std::size_t>(match.Count);
    row(std::to_string(position), token.Source, known && parameter ? NumberText(match.Values[position]) : "-",
        !known                       ? "-"
        : match.Flags[position] != 0 ? "yes"
                                     : "no");
  }
}

// The token at a position with its place, or the whole group that it opens.
std::string TokenName(const std::vector<PatternToken>& tokens, int position) {
  std::string text;
  int depth = 0;
  for (auto token = static_cast<std::size_t>(position); token < tokens.size(); ++token) {
    text += tokens[token].Source;
    depth += tokens[token].Kind == PatternKind::GroupOpen ? 1 : tokens[token].Kind == PatternKind::GroupClose ? -1 : 0;
    if (depth <= 0) break;
  }
  return Excerpt(text) + " at position " + std::to_string(position);
}

// Why the code does not match.
std::string Cause(const AuthorPattern& pattern, std::string_view code) {
  if (pattern.Source.empty()) return "the pattern is empty";
  const PatternProgress progress = pattern.Matchable.WalkFromHead(code);
  const std::string token = progress.Stopped < 0 ? std::string() : TokenName(pattern.Tokens, progress.Stopped);
  if (progress.Taken > code.size()) return "a number prints longer than it was typed";
  const std::string rest = "\"" + std::string(code.substr(progress.Taken)) + "\"";
  if (progress.Failed) {
    if (token.empty()) return "a token that has to take part fails";
    return token + " fails " + (progress.Taken == code.size() ? "at the end of the code" : "at " + rest);
  }
  return "the pattern takes \"" + std::string(code.substr(0, progress.Taken)) + "\" and leaves " + rest +
         (token.empty() ? "" : "; " + token + " does not take it");
}

void WriteText(std::ostream& output, const AuthorPattern& pattern, const KORUnicodeString& code,
               const PatternMatch& match) {
  output << code.Bytes() << ": " << (match.Matches ? "match" : "no match; " + Cause(pattern, code.Bytes())) << '\n';
  WriteTokens(output, pattern.Tokens, match);
}

void Answer(const CommandLine& line, const AuthorPattern& pattern, std::string_view bytes, std::size_t number,
            Answers& answers) {
  const KORUnicodeString code(bytes);
  const PatternMatch match = pattern.Matchable.Match(code.Bytes());
  if (line.Json) {
    WriteJson(answers.Out(), match);
  } else {
    WriteText(answers.Out(), pattern, code, match);
  }
  if (match.Matches) return;
  const std::string form = LookupForm(code.Bytes());
  if (form != code.Bytes() && pattern.Matchable.Match(form).Matches) {
    answers.Tell(CodeNotInLookupForm(code.Bytes(), form, number));
  }
  answers.Note(ExitStatus::Finding);
}

// Lines of system, pattern and code with tabs between them.
class PatternLines {
 public:
  PatternLines(const CommandLine& line, Answers& answers) : _Line(line), _Answers(answers) {}

  void Take(std::string_view text, std::size_t number) {
    const std::size_t first = text.find('\t');
    const std::size_t second = first == std::string_view::npos ? first : text.find('\t', first + 1);
    if (second == std::string_view::npos || text.find('\t', second + 1) != std::string_view::npos) {
      throw PatternLineWithoutFields(number);
    }
    const std::string_view system = text.substr(0, first);
    if (!IsSystem(system)) throw UnknownSystemInLine(number, system);
    Select(std::string(system), text.substr(first + 1, second - first - 1));
    Answer(_Line, *_Pattern, text.substr(second + 1), number, _Answers);
  }

 private:
  // Lines with one pattern mostly follow each other, so the last one is kept.
  void Select(const std::string& system, std::string_view pattern) {
    if (_Pattern && system == _System && pattern == _Pattern->Source) return;
    _System = system;
    VEXSTMTimeAnalysisDlgServices& service = _Services[system];
    SelectSystem(system, service);
    _Pattern.emplace(service, pattern);
  }

  const CommandLine& _Line;
  Answers& _Answers;
  std::map<std::string, VEXSTMTimeAnalysisDlgServices> _Services;
  std::string _System;
  std::optional<AuthorPattern> _Pattern;
};

}  // namespace

void RunPattern(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  if (line.System == "-") {
    PatternLines lines(line, answers);
    ForEachText(line, surroundings, [&lines](std::string_view text, std::size_t number) { lines.Take(text, number); });
    return;
  }
  VEXSTMTimeAnalysisDlgServices service;
  SelectSystem(line.System, service);
  const AuthorPattern pattern(service, line.Pattern);
  ForEachText(line, surroundings,
              [&](std::string_view code, std::size_t number) { Answer(line, pattern, code, number, answers); });
}

}  // namespace tool
