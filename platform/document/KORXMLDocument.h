// Parsed XML documents, read-only, with the reading operations of W3C DOM Level 1 Core that the system needs.
//
// A document is one compact block of nodes; documents, nodes and node lists are handles that may be null and keep
// their document alive. Reading one document from several threads at once is safe; one handle serves one thread.
// Calling through a null handle raises the null-handle error (ThrowErrorNullVar).
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/base/KORExport.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUnicodeString.h"

class KORIDOMNodeList_var;
class KORXMLTree;

/// A node of a document: an element, a text, a CDATA section, a comment or a processing instruction.
/// References to characters and to entities declared in the document are expanded in the text around them.
class KORPLATFORM_API KORIDOMNode_var {
 public:
  KORIDOMNode_var() = default;

  bool IsNull() const { return _Tree == nullptr; }
  bool IsElement() const;

  /// Tag name of an element, target of a processing instruction, "#text", "#cdata-section" or "#comment".
  /// Valid while the document lives.
  std::string_view GetNodeName() const;
  /// Content of a text, CDATA section, comment or processing instruction; empty for an element.
  /// Valid while the document lives.
  std::string_view GetNodeValue() const;

  /// The first child, or null.
  KORIDOMNode_var GetFirstChild() const;
  /// The node behind this one below the same parent, or null.
  KORIDOMNode_var GetNextSibling() const;
  KORIDOMNodeList_var GetChildNodes() const;

  /// Fills `elements` with every descendant element of that name, in document order. S_OK, also for an empty list.
  long GetElementsByTagName(std::string_view name, KORIDOMNodeList_var& elements) const;

  /// Number of the line (from 1) of the file on which the node begins.
  int GetLineNumber() const;

  friend bool operator==(const KORIDOMNode_var&, const KORIDOMNode_var&) = default;

 private:
  friend class KORIDOMDocument_var;
  friend class KORIDOMNodeList_var;
  KORIDOMNode_var(std::shared_ptr<const KORXMLTree> tree, std::uint32_t index);
  const KORXMLTree& Tree() const;

  std::shared_ptr<const KORXMLTree> _Tree;
  std::uint32_t _Index = 0;
};

/// An element is a node whose IsElement() is true.
using KORIDOMElement_var = KORIDOMNode_var;

/// A list of nodes, with positions from 0.
class KORPLATFORM_API KORIDOMNodeList_var {
 public:
  KORIDOMNodeList_var() = default;

  bool IsNull() const { return _Tree == nullptr; }
  int GetLength() const;
  /// The node at `index`; null outside 0 to GetLength() - 1.
  KORIDOMNode_var Item(int index) const;

 private:
  friend class KORIDOMNode_var;
  std::shared_ptr<const KORXMLTree> _Tree;
  std::vector<std::uint32_t> _Nodes;
};

class KORPLATFORM_API KORIDOMDocument_var {
 public:
  KORIDOMDocument_var() = default;
  explicit KORIDOMDocument_var(std::shared_ptr<const KORXMLTree> tree);

  bool IsNull() const { return _Tree == nullptr; }
  /// The root element; null if the document has none.
  KORIDOMElement_var GetDocumentElement() const;

 private:
  std::shared_ptr<const KORXMLTree> _Tree;
};
