// timeanalysis catalogue list: the systems of a catalogue, their files, entries and card groups.
#include <iomanip>
#include <ostream>
#include <set>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/JsonLine.h"
#include "tools/Systems.h"

namespace tool {

namespace {

struct CardGroup {
  std::string Name;
  std::string File;
};

// One system of the catalogue. File is empty if it has none, Entries is -1 if its file cannot be read.
struct ListedSystem {
  std::string Name;
  std::string File;
  int Entries = 0;
  std::vector<CardGroup> Groups;
};

// Group files are read anew for each system; a fault in one is told once.
class GroupFaults {
 public:
  explicit GroupFaults(Answers& answers) : _Answers(answers) {}

  void Tell(VEXSTMTimeAnalysisDlgServices& service) {
    KORListValKORUnicodeString faults;
    service.GetXMLSyntaxErrorList(faults);
    for (const auto& fault : faults) TellOnce(CardFileNotReadable(std::string(fault.Bytes())));
    KORListValKORUnicodeString incomplete;
    service.GetDCsWithMissingFieldsList(incomplete);
    for (const auto& name : incomplete) TellOnce(CardFileLacksFields(name.Bytes()));
  }

 private:
  void TellOnce(const Failure& failure) {
    if (_Told.insert(failure.what()).second) _Answers.Tell(failure);
  }

  Answers& _Answers;
  std::set<std::string> _Told;
};

ListedSystem List(const std::string& name, const Catalogue& catalogue, GroupFaults& faults, Answers& answers) {
  ListedSystem system{name, catalogue.FindEntryFile(name), 0, {}};
  VEXSTMTimeAnalysisDlgServices service;
  if (!system.File.empty()) {
    try {
      catalogue.Open(name, service);
      system.Entries = service.GetDCEntriesCount();
    } catch (const Failure& failure) {
      answers.Tell(failure);
      system.Entries = -1;
    }
  }
  VEXSTMTimeAnalysisDlgServices groups;
  KORListValKORUnicodeString paths;
  KORListValKORUnicodeString names;
  groups.GetDCGsList(KORUnicodeString(std::string_view(name)), paths, names);
  faults.Tell(groups);
  for (int position = 1; position <= std::min(paths.Size(), names.Size()); ++position) {
    system.Groups.push_back({std::string(names[position].Bytes()), std::string(paths[position].Bytes())});
  }
  return system;
}

void WriteText(std::ostream& output, const ListedSystem& system) {
  const std::string entries = system.File.empty() || system.Entries < 0 ? "-" : std::to_string(system.Entries);
  output << std::left << std::setw(10) << system.Name << std::right << std::setw(7) << entries << "  "
         << (system.File.empty() ? "no file" : system.File) << '\n';
  for (const CardGroup& group : system.Groups) {
    output << std::string(19, ' ') << group.File << "  " << group.Name << '\n';
  }
}

void WriteJson(std::ostream& output, const ListedSystem& system) {
  nlohmann::ordered_json groups = nlohmann::ordered_json::array();
  for (const CardGroup& group : system.Groups) {
    nlohmann::ordered_json listed;
    listed["name"] = group.Name;
    listed["file"] = group.File;
    groups.push_back(std::move(listed));
  }
  nlohmann::ordered_json answer;
  answer["system"] = system.Name;
  answer["file"] = system.File;
  answer["entries"] = std::max(system.Entries, 0);
  answer["groups"] = std::move(groups);
  WriteJsonLine(output, answer);
}

}  // namespace

void RunCatalogueList(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  GroupFaults faults(answers);
  std::vector<ListedSystem> systems;
  bool any = false;
  for (const std::string_view name : SystemNames) {
    systems.push_back(List(std::string(name), catalogue, faults, answers));
    any = any || !systems.back().File.empty() || !systems.back().Groups.empty();
  }
  if (!any) throw NoCatalogue(catalogue.Places());
  if (!line.Json) answers.Out() << "SYSTEM    ENTRIES  FILE\n";
  for (const ListedSystem& system : systems) {
    line.Json ? WriteJson(answers.Out(), system) : WriteText(answers.Out(), system);
  }
}

}  // namespace tool
