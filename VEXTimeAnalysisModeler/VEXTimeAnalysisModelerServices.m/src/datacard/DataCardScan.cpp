// Reads the codes of data cards.
#include "datacard/DataCardScan.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "datacard/XmlAccess.h"
#include "platform/base/KORNumberText.h"
#include "platform/base/KORStatus.h"

namespace datacard {
namespace {

using Scan = VEXSTMDataCardScan;

struct TextElement {
  std::string_view Element;
  KORUnicodeString Scan::*Target;
};

struct NumberElement {
  std::string_view Element;
  int Scan::*Target;
};

// clang-format off
constexpr std::array<TextElement, 5> TextElements{{
    {"CODE",       &Scan::_Code},
    {"LABEL",      &Scan::_Label},
    {"SUBLABEL",   &Scan::_SubLabel},
    {"FRAMETITLE", &Scan::_FrameTitle},
    {"RANGE",      &Scan::_Range},
}};

constexpr std::array<NumberElement, 4> NumberElements{{
    {"TAB",    &Scan::_Tab},
    {"FRAME",  &Scan::_Frame},
    {"ROW",    &Scan::_Row},
    {"COLUMN", &Scan::_Column},
}};
// clang-format on

Scan ScanEntry(const KORIDOMNode_var& entry) {
  Scan scan;
  for (KORIDOMNode_var child = entry.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    const std::string_view name = child.GetNodeName();
    const auto text = std::ranges::find(TextElements, name, &TextElement::Element);
    const auto number = std::ranges::find(NumberElements, name, &NumberElement::Element);
    if (text != TextElements.end() && (scan.*text->Target).IsEmpty()) {
      scan.*text->Target = KORUnicodeString(ValueOf(child));
    } else if (number != NumberElements.end() && scan.*number->Target == 0) {
      scan.*number->Target = kornumber::ReadInteger(ValueOf(child)).value_or(0);
    }
  }
  return scan;
}

void ScanCard(const KORIDOMNode_var& card, ScannedCards& scanned) {
  for (KORIDOMNode_var child = card.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    const std::string_view name = child.GetNodeName();
    if (name == "DATACARDENTRY") {
      scanned.Codes.push_back(ScanEntry(child));
    } else if (name == "DESCRIPTION" && !child.GetFirstChild().IsNull()) {
      scanned.Descriptions.Append(KORUnicodeString(ValueOf(child)));
    }
  }
}

}  // namespace

ScannedCards ScanCards(const KORIDOMNodeList_var& cards) {
  ScannedCards scanned{S_OK, {}, {}, {}};
  for (int index = 0; index < cards.GetLength(); ++index) {
    const KORIDOMNode_var card = cards.Item(index);
    KORIDOMNodeList_var entries;
    scanned.Status = card.GetElementsByTagName("DATACARDENTRY", entries);
    scanned.EntryCounts.push_back(entries.GetLength());
    ScanCard(card, scanned);
  }
  return scanned;
}

}  // namespace datacard
