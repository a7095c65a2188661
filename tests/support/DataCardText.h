// Builds the text of data card files, entry files and attribute files element by element.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace support {

/// A text as it stands between tags: the characters that mark up XML are replaced.
inline std::string Escape(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

/// An element that holds other elements, written as they are.
inline std::string Container(std::string_view name, std::string_view inner) {
  return "<" + std::string(name) + ">" + std::string(inner) + "</" + std::string(name) + ">";
}

/// An element that holds a text; an empty text gives an element without a child.
inline std::string Element(std::string_view name, std::string_view text) {
  return Container(name, Escape(text));
}

using Field = std::pair<std::string_view, std::string_view>;

/// Elements one behind the other.
inline std::string Elements(std::initializer_list<Field> fields) {
  std::string text;
  for (const auto& [name, value] : fields) text += Element(name, value);
  return text;
}

/// One entry with its elements in the order given.
inline std::string EntryElement(std::initializer_list<Field> fields) {
  return Container("DATACARDENTRY", Elements(fields)) + "\n";
}

/// An option with its elements in the order given.
inline std::string OptionElement(std::initializer_list<Field> fields) {
  return Container("OPTION", Elements(fields));
}

/// A whole file around the inner elements. Any root name does.
inline std::string DataCardFile(std::string_view inner) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CODEBOOK>\n" + std::string(inner) + "</CODEBOOK>\n";
}

/// A group file with its two elements.
inline std::string GroupFile(std::string_view system, std::string_view name) {
  return DataCardFile(Container("DATACARDGROUP", Elements({{"SUBSYSTEM", system}, {"NAME", name}})));
}

}  // namespace support
