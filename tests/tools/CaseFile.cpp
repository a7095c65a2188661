// Case files.
#include "tests/tools/CaseFile.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::string_view AnyLines = "...";

void Replace(std::string& text, std::string_view old_text, std::string_view new_text) {
  for (std::size_t at = text.find(old_text); at != std::string::npos; at = text.find(old_text, at + new_text.size())) {
    text.replace(at, old_text.size(), new_text);
  }
}

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  bool open = false;
  char quote = '\0';
  for (const char character : text) {
    if (quote != '\0' && character == quote) {
      quote = '\0';
    } else if (quote == '\0' && (character == '\'' || character == '"')) {
      quote = character;
      if (!open) words.emplace_back();
      open = true;
    } else if (quote == '\0' && character == ' ') {
      open = false;
    } else {
      if (!open) words.emplace_back();
      open = true;
      words.back() += character;
    }
  }
  return words;
}

class CaseReader {
 public:
  explicit CaseReader(const std::string& path) : _Path(path), _Folder(std::filesystem::path(path).parent_path()) {}

  std::vector<ToolCase> Read() {
    std::ifstream file(_Path);
    if (!file) throw std::runtime_error(_Path + ": cannot be read");
    for (std::string line; std::getline(file, line);) {
      ++_Line;
      Replace(line, "{cases}", _Folder);
      Replace(line, "{tab}", "\t");
      Replace(line, "{blank}", " ");
      _Open ? TakeLine(line) : TakeHead(line);
    }
    if (_Open) Refuse("the last case has no status");
    return std::move(_Cases);
  }

 private:
  [[noreturn]] void Refuse(const std::string& why) const {
    throw std::runtime_error(_Path + ":" + std::to_string(_Line) + ": " + why);
  }

  void TakeHead(const std::string& line) {
    if (line.empty() || line.starts_with('#')) return;
    if (!line.starts_with('[') || !line.ends_with(']')) Refuse("neither a comment nor \"[name]\"");
    _Cases.emplace_back();
    _Cases.back().Name = line.substr(1, line.size() - 2);
    _Cases.back().Place = _Path + ":" + std::to_string(_Line);
    _Open = true;
  }

  void TakeLine(const std::string& line) {
    ToolCase& current = _Cases.back();
    const std::string rest = line.size() > 2 ? line.substr(2) : std::string();
    if (line.starts_with("$ timeanalysis")) {
      current.Arguments = Words(std::string_view(rest).substr(std::string_view("timeanalysis").size()));
    } else if (line.starts_with("@ ") && rest.find('=') != std::string::npos) {
      current.Environment[rest.substr(0, rest.find('='))] = rest.substr(rest.find('=') + 1);
    } else if (line == "<" || line.starts_with("< ")) {
      current.Input += rest + "\n";
    } else if (line == ">" || line.starts_with("> ")) {
      current.Answers.push_back(rest);
    } else if (line == "!" || line.starts_with("! ")) {
      current.Messages.push_back(rest);
    } else if (line == ">...") {
      current.Answers.emplace_back(AnyLines);
    } else if (line == "!...") {
      current.Messages.emplace_back(AnyLines);
    } else if (line.starts_with("= ")) {
      current.ExitStatus = std::stoi(rest);
      _Open = false;
    } else {
      Refuse("a line that is none of a case");
    }
  }

  std::string _Path;
  std::string _Folder;
  int _Line = 0;
  bool _Open = false;
  std::vector<ToolCase> _Cases;
};

}  // namespace

std::vector<ToolCase> ReadCaseFile(const std::string& path) {
  return CaseReader(path).Read();
}

bool LinesMatch(const std::vector<std::string>& expected, const std::string& text) {
  std::size_t at = 0;
  bool any = false;
  for (const std::string& line : expected) {
    if (line == AnyLines) {
      any = true;
      continue;
    }
    const std::string whole = line + "\n";
    std::size_t found = at;
    while (text.compare(found, whole.size(), whole) != 0) {
      const std::size_t next = text.find('\n', found);
      if (!any || next == std::string::npos) return false;
      found = next + 1;
    }
    at = found + whole.size();
    any = false;
  }
  return any || at == text.size();
}
