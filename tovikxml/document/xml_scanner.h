#ifndef TOVIKXML_DOCUMENT_XML_SCANNER_H_
#define TOVIKXML_DOCUMENT_XML_SCANNER_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tovikxml/base/text_hash.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/tree_storage.h"

namespace TovikXmlLib16 {

/// Reads a whole document in UTF-8 into a tree, several times as fast as the parser, as long as it
/// is certain of everything in it: XML 1.0 without a document type, names of ASCII letters, the
/// five entities and character references. Anything else, and every fault, ends in "not certain":
/// then the tree is to be cleared and the parser reads from the beginning, whose verdict, words and
/// lines hold. So it takes a part of what the parser takes and never one document more.
///
///     document = [declaration] misc* element misc*
///     misc     = white space / comment / processing instruction
///
/// One scanner serves one document. Internal.
class CXmlScanner {
 public:
  /// `encoding` is the one that the declaration may name, in upper case.
  CXmlScanner(CXmlDocument& document, std::string_view encoding);
  CXmlScanner(const CXmlScanner&) = delete;
  CXmlScanner& operator=(const CXmlScanner&) = delete;

  /// Whether the document was read. The bytes must outlive the call alone.
  bool Read(std::string_view text);

 private:
  // A namespace URI, as the document keeps it.
  using Uri = const WString;

  struct Prefix {
    std::string_view text;
    Uri* uri = nullptr;        // in force; null if there is none
    Uri* lastBound = nullptr;  // as the document knows it
  };

  // A qualified name as it stands in the text, with what it came to mean last.
  struct Name {
    std::string_view raw;
    std::size_t local = 0;       // where the local name begins; 0 if there is no prefix
    Prefix* prefix = nullptr;    // that of the default namespace if it has none
    Prefix* declares = nullptr;  // for "xmlns" and names with that prefix
    Uri* uri = nullptr;
    const CXmlName* element = nullptr;    // in `uri`
    const CXmlName* attribute = nullptr;  // the same; without a prefix in none
    Name* successor = nullptr;            // the name that last came behind it
    std::uint64_t lastElement = 0;        // the number of the element that had it as an attribute
  };

  struct Slot {
    std::uint64_t hash = 0;
    Name* name = nullptr;
  };

  struct Attribute {
    Name* name;
    std::size_t begin;  // of its value in `m_units`
    std::size_t end;
  };

  struct Open {
    std::string_view name;
    std::size_t bindings;  // in force in front of it
  };

  struct Binding {
    Prefix* prefix;
    Uri* former;
  };

  struct Hash {
    std::size_t operator()(std::string_view text) const {
      return static_cast<std::size_t>(HashBytes(text));
    }
  };

  bool ReadDeclaration();
  bool ReadMisc();
  bool ReadContent();
  bool ReadMarkup();
  bool ReadStartTag();
  bool ReadAttributes();
  bool ReadAttribute();
  bool ReadEndTag();
  bool ReadText();
  bool ReadCData();
  bool SkipComment();
  bool SkipInstruction();

  bool Declare(Prefix& prefix, WStringView uri);
  bool BindAnew(Prefix& prefix, WStringView uri);
  bool AddElement(Name& name);
  bool AddAttributes(CXmlElement& element);
  void CloseElement();

  Name* ReadName();
  Name* FindName(std::string_view raw);
  void GrowNames();
  bool FillName(Name& name);
  Prefix& PrefixOf(std::string_view text);
  const CXmlName* ElementName(Name& name);
  const CXmlName* AttributeName(Name& name);
  const CXmlName* Keep(Uri* uri, const Name& name);

  bool ReadValue(char quote);
  bool ReadReference(char32_t& point);
  template <auto kind>
  bool Widen(const char* end);
  template <class Empty>
  bool ReadPlain(const char* end, Empty empty);
  void AppendPoint(char32_t point);
  void AppendLineEnd();
  void FlushText();
  void EmptyUnits() { m_out = m_units; }
  void GrowUnits();

  bool Accept(std::string_view text);
  bool AcceptRaw(std::string_view known);
  bool SkipWhite();
  std::string_view Until(const char* end) const {
    return {m_at, static_cast<std::size_t>(end - m_at)};
  }

  CXmlDocument& m_document;
  std::string_view m_encoding;
  const char* m_at = nullptr;
  const char* m_end = nullptr;

  // Text on its way into the tree, or the values of the attributes of an element. Units are written
  // in blocks, of which the last may begin just in front of `m_full`.
  static constexpr std::size_t kFirstUnits = 4096;
  static constexpr std::size_t kSlack = 16;
  std::array<wchar, kFirstUnits + kSlack> m_firstUnits;
  std::unique_ptr<wchar[]> m_grownUnits;
  wchar* m_units = m_firstUnits.data();
  wchar* m_out = m_units;
  wchar* m_full = m_units + kFirstUnits;

  CXmlNodePool<Name> m_names;
  std::size_t m_nameCount = 0;
  std::vector<Slot> m_slots;
  Name m_first;  // in front of all names
  Name* m_lastName = &m_first;
  std::unordered_map<std::string_view, Prefix, Hash> m_prefixes;
  Prefix m_default;
  std::vector<Open> m_open;
  std::vector<Binding> m_bindings;
  std::vector<Attribute> m_attributes;
  std::vector<const CXmlName*> m_prefixed;
  std::uint64_t m_elements = 0;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_XML_SCANNER_H_
