#ifndef TOVIKXML_JSON_TRANSCODER_H_
#define TOVIKXML_JSON_TRANSCODER_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tovikxml/settings/json_context.h"

namespace TovikXmlLib16 {

class CSerializationContext;

/// Makes of JSON in UTF-8 the XML text that it stands for, in one pass over the bytes and several
/// times as fast as the reader with its handler, as long as it is certain of everything in it: the
/// grammar of RFC 8259 alone, in the order in which XML wants its parts. For anything else, and
/// every fault, it gives nothing: then the reader decides. So its text is that of the reader, byte
/// for byte, or none. Internal.
class CJsonTranscoder {
 public:
  explicit CJsonTranscoder(const CSerializationContext& context);

  /// The XML text; nothing where the reader has to look. `json` has no byte order mark.
  std::optional<std::string> Transcode(std::string_view json);

 private:
  // An element that is being written.
  struct Element {
    std::string_view name;
    bool isStartTagOpen = true;
    bool hasChildren = false;
  };
  enum class Position { kText, kAttribute };

  bool ReadDocument();
  bool ReadMembers(Element* parent, int depth);
  bool ReadMember(Element* parent, int depth, bool& isText);
  bool ReadValue(std::string_view name, Element* parent, int depth);
  bool ReadItem(std::string_view name, Element* parent, int depth);
  bool ReadContent(Element& element, int depth);
  bool ReadAttribute(std::string_view name, Element& element);
  bool ReadScalar(Position position);
  bool ReadString(Position position);
  bool ReadEscape(Position position);
  bool ReadHexUnit(unsigned& unit);
  bool ReadNumber();
  bool SkipDigits();
  bool ReadName(std::string_view& name);

  void Start(const Element& element, Element* parent);
  void End(const Element& element);
  void Indent(std::size_t depth) { m_out.append(depth, '\t'); }
  void AppendEscaped(char character, Position position);
  void AppendPoint(char32_t point);

  void SkipWhite();
  bool Accept(char character);
  bool Accept(std::string_view text);

  bool m_isBare;
  std::string m_rootName;
  bool m_hasRootName;
  const char* m_at = nullptr;
  const char* m_end = nullptr;
  std::size_t m_openElements = 0;
  std::string m_out;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_JSON_TRANSCODER_H_
