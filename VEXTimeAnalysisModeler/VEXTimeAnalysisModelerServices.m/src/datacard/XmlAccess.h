// Files into documents, and the texts of their elements.
#pragma once

#include <string_view>

#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/document/KORXMLDocument.h"
#include "platform/document/KORXMLParser.h"

namespace datacard {

/// An input source for the parser; null if the platform gives none.
KORISAXInputSource_var InputSourceOf(const KORUnicodeString& path);

/// Parses a file. Null on any failure; the parser's message, if there is one, is appended to `messages`.
KORIDOMDocument_var ParseDocument(const KORUnicodeString& path, KORListValKORUnicodeString& messages);

/// The root element; null if the document is null or has no root.
KORIDOMElement_var RootOf(const KORIDOMDocument_var& document);

/// Every element of that name below a node, in document order; null for a null node.
KORIDOMNodeList_var ElementsBelow(const KORIDOMNode_var& node, std::string_view name);

/// The first of them; null if there is none.
KORIDOMElement_var FirstElementBelow(const KORIDOMNode_var& node, std::string_view name);

/// The value of a data card element: that of its first child and nothing else. Empty if it has none.
std::string_view ValueOf(const KORIDOMNode_var& element);

/// Hands a list over and empties it. S_OK; E_FAIL, with `target` untouched, if it is empty.
long HandOver(KORListValKORUnicodeString& source, KORListValKORUnicodeString& target);

/// As VEXSTMTimeAnalysisDlgServices::GetXMLNode, with `messages` as in ParseDocument.
long CollectTexts(const KORUnicodeString& path, const KORUnicodeString& tag, KORListValKORUnicodeString& messages,
                  KORUnicodeString& texts);

}  // namespace datacard
