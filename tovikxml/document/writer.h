#ifndef TOVIKXML_DOCUMENT_WRITER_H_
#define TOVIKXML_DOCUMENT_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>

#include "tovikxml/base/export.h"
#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/item_type.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/alias_scopes.h"

namespace TovikXmlLib16 {

/// The sink through which objects are written: a stream of start elements, attributes, text and
/// end elements with namespaces. Objects know only this interface; XML text, Fast Infoset and JSON
/// each derive from it.
///
/// A writer is driven as: `Open`; processing instructions, `SetDefaultNamespace` and
/// `AddNamespaceAlias` for the root; `WriteStartElement`; attributes; `WriteInlineSchema` if any;
/// content; `WriteEndElement`; `Close`. A writer belongs to the one call that made it. After an
/// exception it is only destroyed.
class TOVIKXML_EXPORT CXmlWriter : public CInstanceMonitor {
 public:
  CXmlWriter(const CXmlWriter&) = delete;
  CXmlWriter& operator=(const CXmlWriter&) = delete;
  ~CXmlWriter() override;

  /// Called once, before anything is written.
  virtual void Open();
  /// Called once, after the root is closed. Throws `CTovikException` "An Element has not been
  /// closed." if it is not.
  virtual void Close();

  /// Sets the default namespace of the open element, or that which the root will declare. On an
  /// open element it changes what later elements compare against and is not declared.
  virtual void SetDefaultNamespace(const WString& uri);
  /// Records a prefix for a namespace in the open element, or for the root to declare.
  virtual void AddNamespaceAlias(const WString& alias, const WString& namespaceUri);

  virtual void WriteComment(const WString& text) = 0;
  /// Writes complete text, with its delimiters, in front of the root.
  virtual void WriteProcessingInstruction(const WString& text) = 0;
  /// Writes verbatim text into the root's start tag, behind its attributes.
  virtual void WriteInlineSchema(const WString& text) = 0;
  /// Opens an element. A namespace other than the default one gets the prefix in force for it, or
  /// a generated one.
  virtual void WriteStartElement(const WString& localName, const WString& namespaceUri) = 0;
  virtual void WriteText(const WString& value, ItemType itemType) = 0;
  virtual void WriteEndElement() = 0;
  /// Throws `CTovikException` "Attributes must be added before elements" behind content.
  virtual void WriteAttribute(const WString& localName, const WString& namespaceUri,
                              const WString& value, ItemType itemType) = 0;
  /// Writes `xsi:type` with a qualified name as its value.
  virtual void WriteXsiType(const WString& typeNamespaceUri, const WString& typeName,
                            ItemType itemType) = 0;
  /// Writes `xsi:nil="true"`.
  virtual void WriteXsiNil() = 0;

  /// Marks the items of a repeated element inside the open element: 1 before the first, 3 behind
  /// the last. Without effect if no element is open.
  virtual void SetCollectionState(int state);

  using AliasMap = CAliasScopes::AliasMap;

  /// The first of "AA", "AB" ... "AZ", "BA" ... that no entry of the map uses.
  static WString GenerateAlias(const AliasMap& aliases);

 protected:
  /// One open element.
  class TOVIKXML_EXPORT CXmlWriterContext : public CInstanceMonitor {
   public:
    CXmlWriterContext();
    ~CXmlWriterContext() override;

    const WString& GetNamespaceUri() const { return m_namespaceUri; }
    const WString& GetLocalName() const { return m_localName; }
    /// 0 for the root.
    int GetDepth() const { return m_depth; }
    CXmlWriterContext* GetParent() const { return m_parent.get(); }

    const WString& GetDefaultNamespace() const { return *m_defaultNamespace; }
    /// @name The aliases in force
    /// Of the innermost element alone; what it changes ends with it.
    /// @{
    const AliasMap& GetAliasMap() const { return m_scopes->GetAliases(); }
    /// Null if the namespace has none.
    const WString* FindAlias(const WString& namespaceUri) const {
      return m_scopes->Find(namespaceUri);
    }
    /// A namespace that has none gets an empty one.
    const WString& GetAlias(const WString& namespaceUri) const;
    void AddAlias(const WString& namespaceUri, const WString& alias);
    const WString& AddGeneratedAlias(const WString& namespaceUri);
    /// @}
    /// For this element and those inside.
    void SetDefaultNamespace(const WString& uri);

    std::int32_t childCount = 0;
    /// Whether attributes are still legal.
    bool startTagOpen = true;
    bool hasAttributes = false;
    std::int32_t collectionState = 0;

   private:
    friend class CXmlWriter;

    std::int32_t m_depth = 0;
    WString m_namespaceUri;
    WString m_localName;
    std::unique_ptr<CXmlWriterContext> m_parent;
    CAliasScopes* m_scopes = nullptr;
    std::size_t m_outerAliases = 0;  // the mark to restore behind the element
    WString m_ownDefaultNamespace;
    const WString* m_defaultNamespace = &m_ownDefaultNamespace;  // or an ancestor's
  };

  /// Takes the name of the deriving class.
  explicit CXmlWriter(const wchar* className);

  /// The innermost open element; null if there is none.
  CXmlWriterContext* Current() const { return m_current.get(); }
  /// Makes and enters the context of a new element.
  CXmlWriterContext* PushContext(const WString& localName, const WString& namespaceUri);
  /// Leaves the innermost element.
  void PopContext();
  /// Throws "Attributes must be added before elements" if the start tag is closed.
  void RequireOpenStartTag() const;

 private:
  std::unique_ptr<CXmlWriterContext> TakeContext();
  void EnterRootScope(CXmlWriterContext& root);

  WString m_defaultNamespace;
  std::unique_ptr<CXmlWriterContext> m_current;
  // Contexts of closed elements, linked through their parents, for reuse.
  std::unique_ptr<CXmlWriterContext> m_spare;
  AliasMap m_aliases;
  CAliasScopes m_scopes;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_WRITER_H_
