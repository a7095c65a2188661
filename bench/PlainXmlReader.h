// Reads an entry file with libxml2 into plain records: the yardstick for reading a catalogue.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace bench {

/// The texts of one entry, in the order of the elements' names in PlainXmlReader.cpp.
using PlainRecord = std::array<std::string, 14>;

/// Parses the file into a document, reads the entries and frees the document.
std::vector<PlainRecord> ReadPlainRecords(const std::string& path);

}  // namespace bench
