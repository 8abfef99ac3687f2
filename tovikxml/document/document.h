#ifndef TOVIKXML_DOCUMENT_DOCUMENT_H_
#define TOVIKXML_DOCUMENT_DOCUMENT_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "tovikxml/base/export.h"
#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/tree_text.h"

/// @file
/// A parsed document as a tree. Whatever the source (XML text, Fast Infoset, compressed bytes),
/// objects are read from this tree:
///
///     CXmlDocument document;
///     document.Load(u"orders.xml");
///     for (CXmlElement* order = document.GetDocumentElement()->GetFirstElement(); order;
///          order = order->GetNextSiblingElement()) {
///       use(order->GetLocalName(), order->GetAttribute(u"id", u""));
///     }
///
/// Names are kept as namespace URI and local name; the text of an element is one string, all its
/// character content in document order; prefixes survive in one table for the whole document.
/// Comments, processing instructions and the document type are dropped. Nodes belong to their
/// document and never outlive it. A document belongs to one thread, also for reading, since texts
/// become strings when they are asked for.
namespace TovikXmlLib16 {

class CBinaryData;
class CInputFile;
class CSerializationContext;
class CXmlDocument;
class CXmlElement;
struct ByteArray;
struct CBorrowedText;
class CXmlNameTable;
struct CXmlName;
struct CXmlTreeStorage;

/// An attribute of an element; namespace declarations are none.
class TOVIKXML_EXPORT CXmlAttribute final : public CInstanceMonitor {
 public:
  ~CXmlAttribute() override;

  const WString& GetLocalName() const;
  const WString& GetNamespaceURI() const;
  const WString& GetValue() const { return m_value.AsString(); }
  /// The same without making a `WString` of it, which saves an allocation.
  WStringView GetValueView() const { return m_value.View(); }
  /// The path of the attribute, such as "/orders/order[2]/@id".
  WString GetXPath() const;

  /// Whether this is `xmlns`, `xsi:type`, `xsi:schemaLocation` or `xsi:noNamespaceSchemaLocation`:
  /// the document's machinery rather than the schema's.
  bool IsNamespaceAttribute() const;
  bool IsNilAttribute() const;

 private:
  friend class CXmlDocument;
  friend struct CBorrowedText;
  friend struct CXmlTreeStorage;
  CXmlAttribute();

  bool IsReserved() const;

  CXmlElement* m_element = nullptr;
  const CXmlName* m_name = nullptr;
  CXmlTreeText m_value;
};

/// An element with its attributes, its text and its child elements, which form a list.
class TOVIKXML_EXPORT CXmlElement final : public CInstanceMonitor {
 public:
  CXmlDocument* GetDocument() const { return m_document; }
  /// Null at the root.
  CXmlElement* GetParentElm() const { return m_parent; }
  CXmlElement* GetFirstElement() const { return m_firstChild; }
  CXmlElement* GetNextSiblingElement() const { return m_nextSibling; }

  const WString& GetLocalName() const;
  /// Empty when the element is in no namespace.
  const WString& GetNamespaceURI() const;
  const WString& GetText() const { return m_text.AsString(); }
  /// The same without making a `WString` of it, which saves an allocation.
  WStringView GetTextView() const { return m_text.View(); }
  /// In document order.
  const std::vector<CXmlAttribute*>& GetAttributes() const { return m_attributes; }
  /// The value of the first attribute with both names; an empty text if there is none.
  const WString& GetAttribute(const WString& localName, const WString& namespaceUri) const;
  /// The path of the element, such as "/orders/p:order[2]": an element has a position if siblings
  /// have the same qualified name, and a prefix if the document declares a non-empty one.
  WString GetXPath() const;

 protected:
  ~CXmlElement() override;

 private:
  friend class CXmlAttribute;
  friend class CXmlDocument;
  friend struct CBorrowedText;
  friend struct CXmlTreeStorage;
  CXmlElement();

  WString GetQName() const;
  WString GetNameWithPredicate() const;

  CXmlDocument* m_document = nullptr;
  CXmlElement* m_parent = nullptr;
  CXmlElement* m_nextSibling = nullptr;
  CXmlElement* m_firstChild = nullptr;
  CXmlElement* m_lastChild = nullptr;
  const CXmlName* m_name = nullptr;
  std::vector<CXmlAttribute*> m_attributes;
  CXmlTreeText m_text;
};

/// The document: loads bytes or text, owns the tree, and knows the prefixes.
class TOVIKXML_EXPORT CXmlDocument : public CInstanceMonitor {
 public:
  /// Sees each element at its end tag, children first, complete but for children freed before.
  /// Returning true frees the element at once, so that a very long document can be processed
  /// element by element while the tree stays small. The root always stays. The elements of a Fast
  /// Infoset document are not shown.
  using ElementCallback = bool (*)(CXmlElement*);

  /// Without a context the default context is used. The context must outlive the document.
  CXmlDocument();
  explicit CXmlDocument(const CSerializationContext& context);
  explicit CXmlDocument(ElementCallback callback);
  CXmlDocument(ElementCallback callback, const CSerializationContext& context);
  CXmlDocument(const CXmlDocument&) = delete;
  CXmlDocument& operator=(const CXmlDocument&) = delete;
  ~CXmlDocument() override;

  /// Frees the tree and the prefix table.
  virtual void Cleanup();

  /// @name Loading XML text and Fast Infoset
  /// Each load entry first calls `Cleanup`. They throw `CTovikException`: "%s at line %d" with the
  /// parser's words for text that is not well-formed, "Failed to parse FastInfoset. ...", "XML
  /// String is empty!", "XML Stream is empty!", or a message with the file's name and the system's
  /// error number. After a failure the document is to be abandoned or loaded again.
  /// @{

  /// Reads XML text or Fast Infoset from a file, which may be compressed with gzip or zlib. In
  /// overlapped mode (`AsyncFromXmlFile`) the file is read in blocks and must be plain XML text.
  void Load(const wchar* fileName);
  /// Reads bytes as `Load` does.
  void LoadXmlStream(const unsigned char* data, unsigned long length);
  /// Reads bytes in the encoding that they declare, else UTF-8.
  void LoadXml(const char* text);
  /// Reads 16-bit text, which needs no declaration; one that names another encoding is refused.
  void LoadXml(const wchar* text);
  /// @}

  /// @name Turning JSON into XML text
  /// The JSON load entries give the XML text that the JSON stands for, in UTF-8, to be read by
  /// `LoadXmlStream`; the document itself stays empty. They throw "JSON String is empty!" or "JSON
  /// Stream is empty!", as `Load` does for the file, and `CTovikValidationException` with line,
  /// position and path for bytes that are not UTF-8 and for text that is not JSON.
  /// @{

  /// Reads UTF-8, with or without a byte order mark, from a file, which may be compressed. An empty
  /// file gives XML text without a root.
  CBinaryData LoadJsonFile(const wchar* fileName);
  /// Reads bytes as `LoadJsonFile` does.
  CBinaryData LoadJsonStream(const unsigned char* data, unsigned long length);
  /// Reads UTF-8.
  CBinaryData LoadJson(const char* text);
  CBinaryData LoadJson(const wchar* text);
  /// @}

  /// The name of the first entity that the document refers to and that was not read, so that its
  /// text is missing in the tree; empty if there is none. External entities are never read, nor is
  /// the external part of a document type, in which others are declared. An entity that a Fast
  /// Infoset document has under an index alone is named by that, as in "#3".
  const WString& GetUnreadEntity() const { return m_unreadEntity; }
  /// The root; null before a load.
  CXmlElement* GetDocumentElement() const { return m_root; }
  /// The first prefix, in ascending order, that is bound to the URI anywhere in the document. Empty
  /// if there is none or if it is the default namespace.
  WString LookupAliasFromNamespace(const wchar* uri) const;
  /// The URI last bound to the prefix; empty if it is unknown.
  WString LookupNamespaceFromAlias(const wchar* alias) const;

 private:
  friend class CExpatReader;
  friend class CFastInfosetReader;
  friend struct CBorrowedText;
  friend class CXmlElement;
  friend class CXmlAttribute;
  friend class CXmlScanner;

  // An element between its start and its end tag, and the sibling in front of it.
  struct OpenElement {
    CXmlElement* element;
    CXmlElement* previousSibling;
  };

  // For the parsers.
  CXmlNameTable& Names();
  const CXmlName* KeepName(const wchar* qualified);
  const CXmlName* KeepName(WStringView namespaceUri, WStringView localName);
  CXmlElement* AddElement(const CXmlName* name);
  void ReserveAttributes(CXmlElement* element, std::size_t count) {
    element->m_attributes.reserve(count);
  }
  void AddElementAttribute(CXmlElement* element, const CXmlName* name, WStringView value);
  /// Appends to the element whose end tag comes next; the text has no carriage return.
  void AppendText(WStringView text);
  /// The same for text that may have carriage returns, which are dropped; a zero unit ends it.
  void AppendTextExcludingCR(WStringView text);
  void EndElement();
  /// Ends an element that no callback is to see.
  void CloseElement() { m_open.pop_back(); }
  CXmlElement* TopElement() const { return m_open.empty() ? nullptr : m_open.back().element; }
  void BindAlias(WString prefix, WString uri);
  void RemoveLastChildElement(const OpenElement& ended);

  void Parse(const unsigned char* data, std::size_t length);
  void ParseExpanded(const unsigned char* data, std::size_t length);
  bool ParseFastInfoset(const unsigned char* data, std::uint32_t length);
  void ParseText(const unsigned char* data, std::size_t length);
  bool ScanText(std::string_view text, std::string_view encoding);
  CBinaryData ParseJson(ByteArray input);
  static ByteArray ReadWhole(const wchar* fileName);
  void LoadOverlapped(const wchar* fileName);
  void ParseOverlapped(CInputFile& file, ByteArray current);

  WString LookupAlias(const WString& uri) const;

  std::unique_ptr<CXmlTreeStorage> m_storage;
  CXmlElement* m_root = nullptr;
  const CXmlName* m_lastName = nullptr;
  std::vector<OpenElement> m_open;
  std::map<WString, WString> m_aliases;
  // The prefixes of each namespace, from the first time that one is asked for.
  mutable std::optional<std::map<WString, std::set<WString>>> m_prefixes;
  WString m_unreadEntity;
  int m_schemaType;
  WString m_lentText;
  ElementCallback m_callback = nullptr;
  const CSerializationContext* m_context;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_DOCUMENT_H_
