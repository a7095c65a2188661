// Reads an entry file with libxml2 into plain records.
#include "PlainXmlReader.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "GoalTable.h"

namespace bench {
namespace {

constexpr std::array<std::string_view, 14> Names{"CODE_ID",   "CODE",     "TEXT",        "LOCALTEXT", "VALUEADDED",
                                                 "FREQUENCY", "TIME",     "PAR_1_START", "PAR_1_END", "PATTERN",
                                                 "PATTERN1",  "TIMETYPE", "PAR_ID",      "OPTION_ID"};

std::string_view TextOf(const xmlChar* text) {
  return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

PlainRecord ReadRecord(const xmlNode* entry) {
  PlainRecord record;
  for (const xmlNode* child = entry->children; child != nullptr; child = child->next) {
    if (child->type != XML_ELEMENT_NODE) continue;
    const auto found = std::ranges::find(Names, TextOf(child->name));
    if (found == Names.end() || child->children == nullptr) continue;
    record[static_cast<std::size_t>(found - Names.begin())] = TextOf(child->children->content);
  }
  return record;
}

}  // namespace

std::vector<PlainRecord> ReadPlainRecords(const std::string& path) {
  // Short texts inside their nodes: the quickest way that the library offers.
  xmlDoc* document = xmlReadFile(path.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_COMPACT);
  if (document == nullptr) RefuseToCompare("libxml2 does not read " + path);
  std::vector<PlainRecord> records;
  for (const xmlNode* entry = xmlDocGetRootElement(document)->children; entry != nullptr; entry = entry->next) {
    if (TextOf(entry->name) == "DATACARDENTRY") records.push_back(ReadRecord(entry));
  }
  xmlFreeDoc(document);
  return records;
}

}  // namespace bench
