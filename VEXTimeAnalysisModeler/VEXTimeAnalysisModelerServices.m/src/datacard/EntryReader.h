// Reads the entries of a data card entry file.
//
//   DATACARDENTRY = CODE_ID CODE { TEXT | LOCALTEXT | VALUEADDED | FREQUENCY | TIME | PAR_1_START | PAR_1_END
//                                | PATTERN PATTERN1 | TIMETYPE | OPTION }
//   OPTION        = { PAR_ID | TIME | OPTION_ID }
//
// The value of an element is that of its first child node. CODE_ID opens the record: a known element ahead of it is
// passed over, and a second one opens a fresh record. An empty CODE_ID or CODE ends the reading of the entry. Of a
// repeated element the last one counts. Unknown elements are passed over.
#pragma once

#include <vector>

#include "VEXSTMDataCardScans.h"
#include "platform/document/KORXMLDocument.h"

namespace datacard {

/// One record for each element of the list, in order; an element that opens no record gives one with empty fields.
std::vector<VEXSTMDataCardEntriesScan> ReadEntries(const KORIDOMNodeList_var& elements);

}  // namespace datacard
