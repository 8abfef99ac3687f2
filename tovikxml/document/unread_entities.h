#ifndef TOVIKXML_DOCUMENT_UNREAD_ENTITIES_H_
#define TOVIKXML_DOCUMENT_UNREAD_ENTITIES_H_

#include <functional>
#include <map>
#include <string_view>

#include "tovikxml/base/wide_string.h"

struct XML_ParserStruct;

namespace TovikXmlLib16 {

/// Finds the first entity that a document refers to and the parser passes over without a word: an
/// external one, or one that only an external part of the document type, which is not read, could
/// declare. Its text is then missing in the tree. Internal.
///
/// In content the parser tells. For attributes it does not, so that the start tags are looked at as
/// they stand in the document, and the texts of the entities that these refer to.
class CUnreadEntities {
 public:
  explicit CUnreadEntities(XML_ParserStruct* parser) : m_parser(parser) {}

  /// Empty if there is none so far.
  const WString& GetFirst() const { return m_first; }

  /// Notes what is declared. An entity without a text is external.
  void Declare(WStringView name, const WString* text);
  void Note(WStringView name);
  /// Notes the external ones of the entities that are open.
  void NoteOpen(WStringView openEntities);
  /// Looks at the start tag that the parser is at.
  void LookAtStartTag();
  /// Looks at the default value of an attribute that the parser is at.
  void LookAtDefaultValue();

 private:
  std::string_view InputFromEvent() const;
  void LookAtBytes(std::string_view bytes);
  void LookAt(WStringView text);

  struct Entity {
    WString text;
    bool isExternal;
    bool isLookedAt = false;
  };

  XML_ParserStruct* m_parser;
  std::map<WString, Entity, std::less<>> m_declared;
  WString m_first;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_UNREAD_ENTITIES_H_
