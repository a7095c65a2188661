// Reads the codes of data cards.
//
//   DATACARD      = { DESCRIPTION | DATACARDENTRY }
//   DATACARDENTRY = { CODE | LABEL | SUBLABEL | FRAMETITLE | RANGE | TAB | FRAME | ROW | COLUMN }
//
// Of a repeated element the first with a non-empty text, or a number other than 0, counts.
#pragma once

#include <vector>

#include "VEXSTMDataCardScans.h"
#include "platform/base/KORList.h"
#include "platform/document/KORXMLDocument.h"

namespace datacard {

/// What the data cards of a file hold.
struct ScannedCards {
  long Status;                              // of the last search
  std::vector<VEXSTMDataCardScan> Codes;    // of all cards, one card behind the other
  KORListValKORUnicodeString Descriptions;  // of the cards that have one
  std::vector<int> EntryCounts;             // for each card: entries at any depth below it
};

ScannedCards ScanCards(const KORIDOMNodeList_var& cards);

}  // namespace datacard
