#ifndef TOVIKXML_TOOLS_CONVERT_NAMESPACES_H_
#define TOVIKXML_TOOLS_CONVERT_NAMESPACES_H_

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// The namespace of the attributes that declare prefixes.
extern const TovikXmlLib16::WString kXmlnsNamespace;

/// Follows the namespaces in scope while a tree is walked (Namespaces in XML 1.0), and gives each
/// start tag as it is to be written: every declaration stays on its element, and what a document
/// without text of its own, Fast Infoset, leaves undeclared is declared where it is needed.
///
/// The names of the tree are qualified: those of XML text as `st_NoNamespaces` gives them, those of
/// Fast Infoset as `SetQualifiedNames` does, which have their namespace beside them.
class Namespaces {
 public:
  enum class Source { kXmlText, kFastInfoset };

  struct Declaration {
    TovikXmlLib16::WString prefix;
    TovikXmlLib16::WString uri;
  };
  /// A qualified name and its namespace; they live as long as the start tag.
  struct Name {
    const TovikXmlLib16::WString* qualified;
    const TovikXmlLib16::WString* uri;
  };
  struct Attribute {
    Name name;
    const TovikXmlLib16::CXmlAttribute* node;
  };
  struct StartTag {
    Name name{};
    std::vector<Declaration> declarations;
    std::vector<Attribute> attributes;
  };

  explicit Namespaces(Source source);

  /// The start tag of an element, until the next call. Throws `CTovikException`, with the path of
  /// the element, for what is not well-formed: prefixes that are not declared or are reserved,
  /// names with a second colon, two attributes of one name.
  const StartTag& Enter(const TovikXmlLib16::CXmlElement& element);
  /// Takes back what the element declared that was entered last.
  void Leave();

 private:
  using WString = TovikXmlLib16::WString;
  using WStringView = TovikXmlLib16::WStringView;

  struct Change {
    WString prefix;
    WString uriBefore;
  };

  void TakeDeclaration(const WString& name, const WString& uri);
  void Declare(const WString& prefix, const WString& uri);
  void Bind(const WString& prefix, const WString& uri);
  void SetUri(const WString& prefix, const WString& uri);
  const WString& UriOf(WStringView prefix) const;

  Name ElementName(const TovikXmlLib16::CXmlElement& element);
  Name AttributeName(const TovikXmlLib16::CXmlAttribute& attribute);
  Name NameByPrefix(const WString& qualified, const WString& uriWithoutPrefix);
  Name NameInNamespace(const WString& qualified, const WString& uri, bool isAttribute);
  WString PrefixFor(WStringView wanted, const WString& uri, bool isAttribute);
  void DropDefaultNamespace();
  void RequireDistinctAttributes();
  void RequireNamePart(WStringView part);
  [[noreturn]] void Refuse(const WString& reason) const;

  Source m_source;
  const TovikXmlLib16::CXmlElement* m_element = nullptr;
  StartTag m_tag;
  std::deque<WString> m_madeNames;  // of the start tag
  // Both ways between prefixes and what they stand for at present.
  std::map<WString, WString, std::less<>> m_uris;
  std::map<WString, std::set<WString>> m_prefixes;
  std::vector<Change> m_changes;
  std::vector<std::size_t> m_marks;  // the number of changes before each open element
  std::set<WString, std::less<>> m_knownParts;
  unsigned m_lastNumber = 0;
};

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_NAMESPACES_H_
