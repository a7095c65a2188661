// The events of the XML parser, turned into a tree.
#include "platform/document/KORXMLTreeBuilder.h"

// Asks the parser's header for the bound on the expansion of entities.
#define XML_DTD
#include <expat.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "platform/base/KORWindows1252.h"
#include "platform/document/KORXMLTree.h"

namespace {

constexpr std::size_t DeepestElement = 1000;
constexpr int MostEntityDeclarations = 1000;
// Entities may expand to 8 MiB, and beyond that to so many times the length of the file.
constexpr float MostAmplification = 10.0F;

bool IsNamed(std::string_view name, std::string_view lower_case) {
  return std::equal(name.begin(), name.end(), lower_case.begin(), lower_case.end(), [](char left, char right) {
    return std::tolower(static_cast<unsigned char>(left)) == static_cast<unsigned char>(right);
  });
}

// Tells the lines of events, which come in the order of the content. The parser's own count looks at each character
// anew; where the ends of lines are single bytes, searching for them is faster.
class LineCounter {
 public:
  explicit LineCounter(std::string_view content)
      : _Content(content),
        _IsPlain(content.find('\r') == content.npos && content.substr(0, 2).find('\0') == content.npos &&
                 !content.starts_with("\xFE\xFF") && !content.starts_with("\xFF\xFE")) {}

  std::uint32_t LineOf(XML_Parser parser) {
    if (!_IsPlain) return static_cast<std::uint32_t>(XML_GetCurrentLineNumber(parser));
    const XML_Index place = XML_GetCurrentByteIndex(parser);
    const std::size_t end = place < 0 ? 0 : static_cast<std::size_t>(place);
    while (_Offset < end) {
      const void* const line_end = std::memchr(_Content.data() + _Offset, '\n', end - _Offset);
      if (line_end == nullptr) break;
      ++_Line;
      _Offset = static_cast<std::size_t>(static_cast<const char*>(line_end) - _Content.data()) + 1;
    }
    _Offset = std::max(_Offset, end);
    return _Line;
  }

 private:
  std::string_view _Content;
  bool _IsPlain;
  std::size_t _Offset = 0;
  std::uint32_t _Line = 1;
};

// Takes the events of one parse. The events come through the parser's C frames, which no exception may cross.
class TreeBuilder {
 public:
  explicit TreeBuilder(std::string_view content)
      : _Content(content),
        _Parser(XML_ParserCreate(nullptr), XML_ParserFree),
        _Tree(std::make_shared<KORXMLTree>()),
        _Lines(content) {
    if (_Parser == nullptr) throw std::bad_alloc();
    XML_Parser parser = _Parser.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, StartElement, EndElement);
    XML_SetCharacterDataHandler(parser, CharacterData);
    XML_SetCdataSectionHandler(parser, StartSection, EndSection);
    XML_SetCommentHandler(parser, Comment);
    XML_SetProcessingInstructionHandler(parser, Instruction);
    XML_SetEntityDeclHandler(parser, EntityDeclaration);
    XML_SetUnknownEncodingHandler(parser, UnknownEncoding, this);
    // A document that needs a text from outside is refused: passing over the text would change a value in silence.
    // Parameter entities of the file itself are read.
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_UNLESS_STANDALONE);
    XML_SetExternalEntityRefHandler(parser, ExternalEntity);
    XML_SetSkippedEntityHandler(parser, SkippedEntity);
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser, MostAmplification);
  }

  std::shared_ptr<const KORXMLTree> Build(std::string& fault) {
    if (XML_Parse(_Parser.get(), _Content.data(), static_cast<int>(_Content.size()), XML_TRUE) == XML_STATUS_OK &&
        _Cause.empty()) {
      _Tree->Finish();
      return std::move(_Tree);
    }
    fault = DescribeFault();
    return nullptr;
  }

 private:
  // Runs `work` on the builder behind an event; whatever it throws stops the parse with a cause.
  template <class Work>
  static void Handle(void* user_data, Work work) noexcept {
    auto& builder = *static_cast<TreeBuilder*>(user_data);
    if (!builder._Cause.empty()) return;  // events may still come in after the parse was stopped
    try {
      work(builder);
    } catch (const std::length_error&) {
      builder.Stop("the document is too large");
    } catch (...) {
      builder.Stop("out of memory");
    }
  }

  void Stop(std::string_view cause) noexcept {
    _Cause = cause;
    _StopPlace = CurrentPlace();  // the parser still moves on
    XML_StopParser(_Parser.get(), XML_FALSE);
  }

  struct Place {
    XML_Size Line = 0;
    XML_Size Column = 0;  // from 0
  };

  Place CurrentPlace() const noexcept {
    return {XML_GetCurrentLineNumber(_Parser.get()), XML_GetCurrentColumnNumber(_Parser.get())};
  }

  std::uint32_t Line() { return _Lines.LineOf(_Parser.get()); }

  // Ends the text that was being collected from pieces.
  void EndText() {
    if (_Tree->HasCollected()) _Tree->AddLeaf(KORXMLKind::Text, {}, _TextLine);
  }

  void AddLeaf(KORXMLKind kind, std::string_view name, std::string_view content) {
    if (_Tree->Depth() == 0) return;  // outside the root element
    EndText();
    _Tree->Collect(content);
    _Tree->AddLeaf(kind, name, Line());
  }

  static void XMLCALL StartElement(void* user_data, const XML_Char* name, const XML_Char** /*attributes*/) {
    Handle(user_data, [name](TreeBuilder& builder) {
      builder.EndText();
      if (builder._Tree->Depth() == DeepestElement) {
        builder.Stop("elements are nested deeper than 1,000");
        return;
      }
      builder._Tree->OpenElement(name, builder.Line());
    });
  }

  static void XMLCALL EndElement(void* user_data, const XML_Char* /*name*/) {
    Handle(user_data, [](TreeBuilder& builder) {
      builder.EndText();
      builder._Tree->CloseElement();
    });
  }

  static void XMLCALL CharacterData(void* user_data, const XML_Char* characters, int length) {
    Handle(user_data, [characters, length](TreeBuilder& builder) {
      if (!builder._InSection && !builder._Tree->HasCollected()) builder._TextLine = builder.Line();
      builder._Tree->Collect({characters, static_cast<std::size_t>(length)});
    });
  }

  static void XMLCALL StartSection(void* user_data) {
    Handle(user_data, [](TreeBuilder& builder) {
      builder.EndText();
      builder._InSection = true;
      builder._TextLine = builder.Line();
    });
  }

  static void XMLCALL EndSection(void* user_data) {
    Handle(user_data, [](TreeBuilder& builder) {
      builder._Tree->AddLeaf(KORXMLKind::Section, {}, builder._TextLine);
      builder._InSection = false;
    });
  }

  static void XMLCALL Comment(void* user_data, const XML_Char* content) {
    Handle(user_data, [content](TreeBuilder& builder) { builder.AddLeaf(KORXMLKind::Comment, {}, content); });
  }

  static void XMLCALL Instruction(void* user_data, const XML_Char* target, const XML_Char* content) {
    Handle(user_data,
           [target, content](TreeBuilder& builder) { builder.AddLeaf(KORXMLKind::Instruction, target, content); });
  }

  static void XMLCALL EntityDeclaration(void* user_data, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                                        const XML_Char*, const XML_Char*, const XML_Char*) {
    Handle(user_data, [](TreeBuilder& builder) {
      if (++builder._EntityDeclarations > MostEntityDeclarations) builder.Stop("more than 1,000 entity declarations");
    });
  }

  // Declarations from outside come without a context and are passed over; what they declare is refused where it is
  // used.
  static int XMLCALL ExternalEntity(XML_Parser parser, const XML_Char* context, const XML_Char* /*base*/,
                                    const XML_Char* /*system_id*/, const XML_Char* /*public_id*/) {
    if (context == nullptr) {
      static_cast<TreeBuilder*>(XML_GetUserData(parser))->_DeclaresOutside = true;
      return XML_STATUS_OK;
    }
    Handle(XML_GetUserData(parser), [](TreeBuilder& builder) {
      builder.Stop("a reference to an external entity, and nothing outside the file is read");
    });
    return XML_STATUS_ERROR;
  }

  static void XMLCALL SkippedEntity(void* user_data, const XML_Char* /*name*/, int is_parameter_entity) {
    if (is_parameter_entity != 0) return;
    Handle(user_data, [](TreeBuilder& builder) {
      if (builder._DeclaresOutside)
        builder.Stop("a reference to an entity that the file does not declare, and nothing outside it is read");
    });
  }

  static int XMLCALL UnknownEncoding(void* /*data*/, const XML_Char* name, XML_Encoding* encoding) {
    if (!IsNamed(name, "windows-1252")) return XML_STATUS_ERROR;
    for (int byte = 0; byte < 256; ++byte) {
      encoding->map[byte] = static_cast<int>(Windows1252Character(static_cast<unsigned char>(byte)));
    }
    return XML_STATUS_OK;
  }

  std::string DescribeFault() const {
    const bool stopped = !_Cause.empty();
    const Place place = stopped ? _StopPlace : CurrentPlace();
    std::string fault = "line " + std::to_string(place.Line) + ", column " + std::to_string(place.Column + 1);
    if (const std::string_view name = _Tree->InnermostName(); !name.empty()) {
      fault.append(", in element <").append(name).append(">");
    }
    return fault.append(": ").append(stopped ? _Cause : XML_ErrorString(XML_GetErrorCode(_Parser.get())));
  }

  std::string_view _Content;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> _Parser;
  std::shared_ptr<KORXMLTree> _Tree;
  LineCounter _Lines;
  std::uint32_t _TextLine = 0;
  bool _InSection = false;
  int _EntityDeclarations = 0;
  bool _DeclaresOutside = false;  // the file names declarations outside it, which are not read
  std::string_view _Cause;        // of a parse stopped by an event; a text that lives for ever
  Place _StopPlace;
};

}  // namespace

std::shared_ptr<const KORXMLTree> KORBuildXMLTree(std::string_view content, std::string& fault) {
  if (content.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    fault = "the file is longer than 2,147,483,647 bytes";
    return nullptr;
  }
  return TreeBuilder(content).Build(fault);
}
