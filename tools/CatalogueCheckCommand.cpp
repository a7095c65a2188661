// timeanalysis catalogue check: a table of what is wrong with the files of a catalogue.
#include <algorithm>
#include <charconv>
#include <filesystem>
#include <ostream>
#include <set>
#include <system_error>

#include "platform/system/KORSystem.h"
#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/JsonLine.h"
#include "tools/Systems.h"
#include "tools/check/EntryCheck.h"
#include "tools/check/Finding.h"

namespace tool {

namespace {

// What was looked at, for the closing line.
struct CheckedCatalogue {
  CatalogueFindings Findings;
  int Files = 0;
  int Entries = 0;
};

KORUnicodeString Text(std::string_view bytes) {
  return KORUnicodeString(bytes);
}

KORIDOMNode_var FirstElement(const KORIDOMNode_var& below, std::string_view name) {
  KORIDOMNodeList_var elements;
  below.GetElementsByTagName(name, elements);
  return elements.IsNull() ? KORIDOMNode_var() : elements.Item(0);
}

// Takes the path off a message of the parser, and returns the line that it names; 0 if it names none.
int TakeLineFrom(std::string& message, const std::string& path) {
  if (!message.starts_with(path + ": ")) return 0;
  message.erase(0, path.size() + 2);
  constexpr std::string_view word = "line ";
  int line = 0;
  if (message.starts_with(word)) std::from_chars(message.data() + word.size(), message.data() + message.size(), line);
  return line;
}

// Parses a file; null if it does not parse, which is then a finding.
KORIDOMElement_var Parse(const std::string& path, CheckedCatalogue& checked) {
  VEXSTMTimeAnalysisDlgServices service;
  ++checked.Files;
  const KORIDOMElement_var root = service.GetRootElement(service.GetDOMDocument(Text(path)));
  if (!root.IsNull()) return root;
  KORListValKORUnicodeString messages;
  service.GetXMLSyntaxErrorList(messages);
  std::string cause = messages.Size() > 0 ? std::string(messages[1].Bytes()) : "the file cannot be read";
  const int line = TakeLineFrom(cause, path);
  checked.Findings.push_back({path, line, 0, "", findingkind::File, cause});
  return {};
}

void CheckEntryFile(const std::string& system, const std::string& path, const Catalogue& catalogue,
                    CheckedCatalogue& checked) {
  const KORIDOMElement_var root = Parse(path, checked);
  if (root.IsNull()) return;
  VEXSTMTimeAnalysisDlgServices service;
  catalogue.Open(system, service);
  KORIDOMNodeList_var elements;
  root.GetElementsByTagName("DATACARDENTRY", elements);
  const int count = std::min(elements.IsNull() ? 0 : elements.GetLength(), service.GetDCEntriesCount());
  if (count == 0)
    checked.Findings.push_back({path, root.GetLineNumber(), 0, "", findingkind::Missing, "no DATACARDENTRY"});
  checked.Entries += count;
  EntryCheck check(service);
  for (int index = 0; index < count; ++index) {
    EntryFields fields = ReadEntryFields(elements.Item(index));
    std::vector<LineFlaw> flaws = check.Check(index, fields);
    flaws.insert(flaws.begin(), fields.Flaws.begin(), fields.Flaws.end());
    for (const LineFlaw& flaw : flaws) {
      checked.Findings.push_back({path, flaw.Line, index + 1, std::string(service.GetDCEntry(index)->_Code.Bytes()),
                                  flaw.What.Kind, flaw.What.Text});
    }
  }
}

void CheckCardFile(const std::string& path, CheckedCatalogue& checked) {
  const KORIDOMElement_var root = Parse(path, checked);
  if (root.IsNull()) return;
  const KORIDOMNode_var group = FirstElement(root, "DATACARDGROUP");
  const auto add = [&](int line, const char* kind, const std::string& text) {
    checked.Findings.push_back({path, line, 0, "", kind, text});
  };
  if (group.IsNull()) {
    if (FirstElement(root, "DATACARD").IsNull()) {
      add(root.GetLineNumber(), findingkind::Missing, "neither a DATACARDGROUP nor a DATACARD");
    }
    return;
  }
  for (const char* name : {"SUBSYSTEM", "NAME"}) {
    const KORIDOMNode_var field = FirstElement(group, name);
    if (field.IsNull() || field.GetFirstChild().IsNull()) {
      add(field.IsNull() ? group.GetLineNumber() : field.GetLineNumber(), findingkind::Missing,
          std::string(name) + (field.IsNull() ? " is missing" : " is empty"));
    } else if (std::string_view(name) == "SUBSYSTEM" && !IsSystem(field.GetFirstChild().GetNodeValue())) {
      add(field.GetLineNumber(), findingkind::File,
          "\"" + std::string(field.GetFirstChild().GetNodeValue()) +
              "\" is no motion-time system; nothing lists the group");
    }
  }
}

// A link whose file is not there, which a search for the file passes over without a word.
bool IsBrokenLink(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_symlink(path, error) && !std::filesystem::exists(path, error);
}

std::vector<std::string> XmlFilesIn(const std::string& folder) {
  std::vector<std::string> files;
  KORListValKORUnicodeString names;
  if (folder.empty() || Failed(KORListDirectory(Text(folder), names))) return files;
  for (const KORUnicodeString& name : names) {
    if (name.SearchSubString(".xml") >= 0) files.push_back(folder + "/" + std::string(name.Bytes()));
  }
  return files;
}

// Links without their file among the folders of entry files and in that of the card groups.
void CheckLinks(const Catalogue& catalogue, CheckedCatalogue& checked) {
  std::set<std::string> folders;
  for (const SearchedPlace& place : catalogue.Places()) folders.insert(place.Path);
  if (!catalogue.GetCardFolder().empty()) {
    folders.insert(catalogue.GetCardFolder());
  } else {
    for (const CatalogueFolder& folder : catalogue.GetFolders()) folders.insert(folder.Path + "/DataCard");
  }
  for (const std::string& folder : folders) {
    std::vector<std::string> paths = XmlFilesIn(folder);
    paths.push_back(folder);
    for (const std::string& path : paths) {
      if (!IsBrokenLink(path)) continue;
      checked.Findings.push_back({path, 0, 0, "", findingkind::File, "a link to a file that is not there"});
    }
  }
}

// Files beside the entry files that carry no system's name.
void CheckStrayFiles(const std::set<std::string>& folders, CheckedCatalogue& checked) {
  for (const std::string& folder : folders) {
    for (const std::string& path : XmlFilesIn(folder)) {
      if (IsBrokenLink(path)) continue;
      const std::string name = std::filesystem::path(path).filename().string();
      const bool known = std::any_of(SystemNames.begin(), SystemNames.end(),
                                     [&name](std::string_view system) { return EntryFileOf(system) == name; });
      if (!known)
        checked.Findings.push_back({path, 0, 0, "", findingkind::File, "no system reads a file of this name"});
    }
  }
}

void WriteTable(std::ostream& output, const CheckedCatalogue& checked) {
  std::vector<std::vector<std::string>> rows{{"FILE", "LINE", "ENTRY", "KIND", "FINDING"}};
  for (const CatalogueFinding& finding : checked.Findings) {
    rows.push_back({finding.File, finding.Line == 0 ? "-" : std::to_string(finding.Line),
                    finding.Entry == 0 ? "-" : std::to_string(finding.Entry) + " " + finding.Code, finding.Kind,
                    finding.Text});
  }
  std::vector<std::size_t> widths(rows.front().size());
  for (const auto& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], row[column].size());
    }
  }
  if (!checked.Findings.empty()) {
    for (const auto& row : rows) {
      for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        output << row[column] << std::string(widths[column] - row[column].size() + 2, ' ');
      }
      output << row.back() << '\n';
    }
  }
  const auto count = checked.Findings.size();
  output << checked.Files << (checked.Files == 1 ? " file, " : " files, ") << checked.Entries
         << (checked.Entries == 1 ? " entry, " : " entries, ") << (count == 0 ? "no" : std::to_string(count))
         << (count == 1 ? " finding\n" : " findings\n");
}

void WriteJson(std::ostream& output, const CatalogueFinding& finding) {
  nlohmann::ordered_json answer;
  answer["file"] = finding.File;
  answer["line"] = finding.Line;
  answer["entry"] = finding.Entry;
  answer["code"] = finding.Code;
  answer["kind"] = finding.Kind;
  answer["text"] = finding.Text;
  WriteJsonLine(output, answer);
}

}  // namespace

void RunCatalogueCheck(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  CheckedCatalogue checked;
  std::set<std::string> folders;
  for (const std::string_view name : SystemNames) {
    const std::string path = catalogue.FindEntryFile(std::string(name));
    if (path.empty()) continue;
    folders.insert(std::filesystem::path(path).parent_path().string());
    CheckEntryFile(std::string(name), path, catalogue, checked);
  }
  CheckStrayFiles(folders, checked);
  for (const std::string& path : XmlFilesIn(catalogue.GetCardFolder())) {
    if (!IsBrokenLink(path)) CheckCardFile(path, checked);
  }
  CheckLinks(catalogue, checked);
  if (checked.Files == 0 && checked.Findings.empty()) throw NoCatalogue(catalogue.Places());
  if (line.Json) {
    for (const CatalogueFinding& finding : checked.Findings) WriteJson(answers.Out(), finding);
  } else {
    WriteTable(answers.Out(), checked);
  }
  if (!checked.Findings.empty()) answers.Note(ExitStatus::Finding);
}

}  // namespace tool
