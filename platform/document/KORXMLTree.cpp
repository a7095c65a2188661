// The block of nodes behind a parsed document.
#include "platform/document/KORXMLTree.h"

#include <stdexcept>

namespace {

// Names that nodes without a name of their own go by, in the order of their kinds behind Instruction.
constexpr std::string_view FixedNames[] = {"#text", "#cdata-section", "#comment"};

constexpr std::size_t MostText = 0xFFFFFFFFu;
constexpr std::size_t MostNodes = 0x7FFFFFFFu;  // positions in a node list are of type int
constexpr std::uint32_t MostNames = (1u << 29) - 1;

std::uint32_t FixedNameNumber(KORXMLKind kind) {
  return static_cast<std::uint32_t>(kind) - static_cast<std::uint32_t>(KORXMLKind::Text);
}

}  // namespace

KORXMLTree::KORXMLTree() {
  for (const std::string_view name : FixedNames) NumberOf(name);
}

std::string_view KORXMLTree::ValueOf(std::uint32_t index) const {
  const KORXMLNode& node = Node(index);
  if (node.Kind == KORXMLKind::Element) return {};
  return node.Begin == node.End ? std::string_view() : std::string_view(&_Text[node.Begin], node.End - node.Begin);
}

std::uint32_t KORXMLTree::FindName(std::string_view name) const {
  const auto found = _NameNumbers.find(name);
  return found == _NameNumbers.end() ? NoName : found->second;
}

std::uint32_t KORXMLTree::FirstChildOf(std::uint32_t index) const {
  const KORXMLNode& node = Node(index);
  return node.Kind == KORXMLKind::Element && node.End > index + 1 ? index + 1 : 0;
}

void KORXMLTree::OpenElement(std::string_view name, std::uint32_t line) {
  const std::uint32_t index = AddNode(KORXMLKind::Element, NumberOf(name), line);
  _Open.push_back({index, 0});
}

void KORXMLTree::CloseElement() {
  _Nodes[_Open.back().Index].End = Size();
  _Open.pop_back();
}

void KORXMLTree::Collect(std::string_view piece) {
  if (piece.size() > MostText - _Text.Size()) throw std::length_error("text");
  _Text.Append(piece);
}

void KORXMLTree::AddLeaf(KORXMLKind kind, std::string_view name, std::uint32_t line) {
  const std::uint32_t number = kind == KORXMLKind::Instruction ? NumberOf(name) : FixedNameNumber(kind);
  KORXMLNode& node = _Nodes[AddNode(kind, number, line)];
  node.Begin = static_cast<std::uint32_t>(_Collected);
  _Collected = _Text.Size();
  node.End = static_cast<std::uint32_t>(_Collected);
}

void KORXMLTree::Finish() {
  _Nodes.ShrinkToFit();
  _Text.ShrinkToFit();
}

std::string_view KORXMLTree::InnermostName() const {
  return _Open.empty() ? std::string_view() : NameOf(_Open.back().Index);
}

std::uint32_t KORXMLTree::AddNode(KORXMLKind kind, std::uint32_t name, std::uint32_t line) {
  if (_Nodes.Size() >= MostNodes) throw std::length_error("nodes");
  const std::uint32_t index = Size();
  KORXMLNode node{};
  node.Kind = kind;
  node.Name = name & MostNames;
  node.Line = line;
  _Nodes.Append(node);
  if (!_Open.empty()) {
    OpenNode& parent = _Open.back();
    ++_Nodes[parent.Index].Begin;
    if (parent.LastChild != 0) _Nodes[parent.LastChild].NextSibling = index;
    parent.LastChild = index;
  }
  return index;
}

std::uint32_t KORXMLTree::NumberOf(std::string_view name) {
  const std::size_t letters = static_cast<unsigned char>(name.back()) * 7u + name.size();
  std::uint32_t& recent = _RecentNames[letters % _RecentNames.size()];
  if (recent < _Names.size() && _Names[recent] == name) return recent;
  if (const auto found = _NameNumbers.find(name); found != _NameNumbers.end()) return recent = found->second;
  if (_Names.size() >= MostNames) throw std::length_error("names");
  const auto number = static_cast<std::uint32_t>(_Names.size());
  _NameNumbers.emplace(_Names.emplace_back(name), number);
  return recent = number;
}
