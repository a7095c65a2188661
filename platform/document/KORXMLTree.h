// The block of nodes behind a parsed document. Private to platform/document.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/document/KORGrowingBlock.h"

/// The kinds of nodes; the nodes of the last three kinds all have the name that stands in their comment.
enum class KORXMLKind : std::uint32_t {
  Element,
  Instruction,
  Text,     // #text
  Section,  // #cdata-section
  Comment   // #comment
};

/// One node. Nodes lie in document order, so that what is below an element lies right behind it.
struct KORXMLNode {
  KORXMLKind Kind : 3;
  std::uint32_t Name : 29;    // number of the name
  std::uint32_t Begin;        // of an element: number of children; else: place of the content in the text
  std::uint32_t End;          // of an element: index behind the last node below it; else: end of the content
  std::uint32_t NextSibling;  // index, or 0 if there is none: the root is nobody's sibling
  std::uint32_t Line;         // from 1
};
static_assert(sizeof(KORXMLNode) == 20);

/// A document under construction by the parser, and read-only from then on. Index 0 is the root element.
///
/// Growing beyond what the numbers of a node hold throws std::length_error.
class KORXMLTree {
 public:
  static constexpr std::uint32_t NoName = ~std::uint32_t{0};

  KORXMLTree();

  const KORXMLNode& Node(std::uint32_t index) const { return _Nodes[index]; }
  std::uint32_t Size() const { return static_cast<std::uint32_t>(_Nodes.Size()); }
  bool IsElement(std::uint32_t index) const { return Node(index).Kind == KORXMLKind::Element; }

  std::string_view NameOf(std::uint32_t index) const { return _Names[Node(index).Name]; }
  std::string_view ValueOf(std::uint32_t index) const;
  /// Number of a name; NoName if no node of the document has it.
  std::uint32_t FindName(std::string_view name) const;
  /// Index of the first child; 0 if there is none.
  std::uint32_t FirstChildOf(std::uint32_t index) const;

  /// Building: the nodes come in document order, each as the next child of the innermost open element.
  void OpenElement(std::string_view name, std::uint32_t line);
  void CloseElement();
  /// Collects the content of the next leaf, piece by piece.
  void Collect(std::string_view piece);
  bool HasCollected() const { return _Text.Size() > _Collected; }
  /// Adds a leaf with the content that was collected.
  void AddLeaf(KORXMLKind kind, std::string_view name, std::uint32_t line);
  /// Ends the building.
  void Finish();

  std::size_t Depth() const { return _Open.size(); }
  /// Name of the innermost open element; empty if none is open.
  std::string_view InnermostName() const;

 private:
  struct OpenNode {
    std::uint32_t Index;
    std::uint32_t LastChild;  // 0 while there is none
  };

  std::uint32_t AddNode(KORXMLKind kind, std::uint32_t name, std::uint32_t line);
  std::uint32_t NumberOf(std::string_view name);  // of a name that is not empty

  KORGrowingBlock<KORXMLNode> _Nodes;
  KORGrowingBlock<char> _Text;
  std::size_t _Collected = 0;  // begin of the content that no leaf holds yet
  std::deque<std::string> _Names;
  // An ordered table: no choice of names in a file makes it slow.
  std::map<std::string_view, std::uint32_t, std::less<>> _NameNumbers;
  std::array<std::uint32_t, 256> _RecentNames{};  // number last seen for a name of that length and last letter
  std::vector<OpenNode> _Open;
};
