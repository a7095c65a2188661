// The events of the XML parser, turned into a tree. Private to platform/document.
#pragma once

#include <memory>
#include <string>
#include <string_view>

class KORXMLTree;

/// Parses the content of a file into a tree.
///
/// A tree, or null and, in `fault`, the place and the cause: "line L, column C, in element <NAME>: CAUSE", or the
/// cause alone where no place applies. Throws std::bad_alloc when memory runs out outside the parse proper.
std::shared_ptr<const KORXMLTree> KORBuildXMLTree(std::string_view content, std::string& fault);
