#ifndef TOVIKXML_BINDING_OBJECT_BASE_H_
#define TOVIKXML_BINDING_OBJECT_BASE_H_

#include <atomic>
#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/encoding.h"
#include "tovikxml/fastinfoset/declaration.h"

namespace TovikXmlLib16Data {
class CAttributeInfo;
class CElementInfo;
}  // namespace TovikXmlLib16Data

namespace TovikXmlLib16 {

class CBinaryData;
class CElement;
class CSerializationContext;
class CTextStream;
class CXmlCollectionBase;
class CXmlDocument;
class CXmlElement;
class CXmlObjectBase;
class CXmlWriter;

/// Hears of changes in the collections that it was added to as a listener.
class TOVIKXML_EXPORT IEventSink {
 public:
  /// What happened or is about to.
  enum MsgType : int {
    CollectionChange = 0,         ///< data is null
    CollectionAdd = 1,            ///< data is the item; fired before it is stored
    CollectionAddComplete = 2,    ///< data is the item
    CollectionRemove = 3,         ///< data points to the `int` index, null if that is -1
    CollectionRemoveComplete = 4  ///< as CollectionRemove
  };

  virtual void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) = 0;

 protected:
  IEventSink() = default;
  IEventSink(const IEventSink&) = default;
  IEventSink& operator=(const IEventSink&) = default;
  ~IEventSink() = default;
};

/// A generated class adds this base if its element may carry `xsi:nil`.
class TOVIKXML_EXPORT INillable {
 public:
  INillable() = default;
  INillable(const INillable&) = default;

  virtual bool IsNil() const = 0;
  virtual void SetNil(bool nil) = 0;

 protected:
  ~INillable() = default;
};

/// The root of everything that turns itself into XML text, Fast Infoset or JSON and back:
/// generated classes, collections and open content.
///
///     CSmartPtr<Order> order(new Order);
///     order->FromXmlFile(u"order.xml", context);
///     CBinaryData bytes = order->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, context,
///                                            Compression_GZip);
///
/// Objects are reference counted: they are born with a count of 0, held through `CSmartPtr`, and
/// die by the last `Release`. Counts may change on several threads; everything else of an object
/// belongs to one thread at a time.
///
/// Every entry point (`To...`, `From...`) takes its settings from a `CSerializationContext` and
/// throws `CTovikException` "Wrong Version (...)" if `SetGeneratorVersion` did not state the
/// version of this library. Reading replaces the content in place and is not transactional: after
/// a failure the object holds what was read so far. `FromXmlStream` and `FromXmlFile` recognise
/// compressed input (gzip, zlib).
class TOVIKXML_EXPORT CXmlObjectBase : public IEventSink {
 public:
  /// Called by collections that this object listens to; does nothing here.
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override;
  virtual CXmlObjectBase* GetBase() = 0;

  /// Writes a file. `Compression_ZLib` is refused with "ZLIB Compression only available for To
  /// Stream methods." before anything else. A file that a failure leaves behind stays as far as
  /// it was written.
  virtual void ToXmlFile(const wchar* fileName, bool includeHeader, bool formatted,
                         XmlEncoding encoding, EOLType eol, const CSerializationContext& context,
                         CompressionType compression) const;
  virtual void ToFastInfosetFile(const wchar* fileName, FInfoDecl declaration,
                                 const CSerializationContext& context,
                                 CompressionType compression) const;
  virtual void ToJsonFile(const wchar* fileName, bool formatted, XmlEncoding encoding, EOLType eol,
                          const CSerializationContext& context, CompressionType compression) const;
  /// The object as 16-bit XML text; its header, if asked for, names no encoding.
  virtual WString ToXml(bool includeHeader, bool formatted, EOLType eol,
                        const CSerializationContext& context) const;
  virtual WString ToJson(bool formatted, EOLType eol, const CSerializationContext& context) const;
  /// The object as bytes, without a byte order mark. Data that does not shrink cannot be
  /// compressed: "Failed to compress data. [Error Code: %d]".
  virtual CBinaryData ToXmlStream(bool includeHeader, bool formatted, XmlEncoding encoding,
                                  EOLType eol, const CSerializationContext& context,
                                  CompressionType compression) const;
  virtual CBinaryData ToFastInfosetStream(FInfoDecl declaration,
                                          const CSerializationContext& context,
                                          CompressionType compression) const;
  virtual CBinaryData ToJsonStream(bool formatted, XmlEncoding encoding, EOLType eol,
                                   const CSerializationContext& context,
                                   CompressionType compression) const;

  virtual void FromXmlFile(const wchar* fileName, const CSerializationContext& context);
  virtual void FromJsonFile(const wchar* fileName, const CSerializationContext& context);
  virtual void FromXml(const wchar* text, const CSerializationContext& context);
  /// Takes bytes in the encoding that a byte order mark or the XML declaration names, else UTF-8.
  virtual void FromXml(const char* text, const CSerializationContext& context);
  virtual void FromJson(const wchar* text, const CSerializationContext& context);
  virtual void FromJson(const char* text, const CSerializationContext& context);
  virtual void FromXmlStream(const CBinaryData& data, const CSerializationContext& context);
  virtual void FromXmlStream(unsigned char* data, unsigned long length,
                             const CSerializationContext& context);
  virtual void FromJsonStream(const CBinaryData& data, const CSerializationContext& context);
  virtual void FromJsonStream(unsigned char* data, unsigned long length,
                              const CSerializationContext& context);
  virtual void FromXmlElement(const CElement* element, const CSerializationContext& context);
  /// Reads from a part of a document that the caller keeps.
  virtual void FromXmlElement(const CXmlElement* element, const CSerializationContext& context);

 protected:
  CXmlObjectBase();
  /// The copy takes the element name and starts with a count of its own, 0.
  CXmlObjectBase(const CXmlObjectBase& other);
  /// Takes the element name and keeps the own count.
  CXmlObjectBase& operator=(const CXmlObjectBase& other);
  virtual ~CXmlObjectBase();

  /// The namespace of this object's own element.
  virtual WString GetTargetNamespace() const = 0;
  /// The default namespace for the wildcards of this object.
  virtual WString GetNamespace() const = 0;
  virtual void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const;
  virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                         const CSerializationContext& context, bool isOptionalChoice) const = 0;
  /// Reads the object. Returns the first child element that it did not consume, null if none is
  /// left.
  virtual CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                                   const CSerializationContext& context, bool isOptionalChoice) = 0;

 public:
  long AddRef();
  /// At 0 the object deletes itself.
  long Release();
  const CXmlObjectBase* GetBase() const;

 protected:
  WString GetElementName() const { return m_elementName; }
  void SetElementName(const wchar* name);
  static void SetElementName(CXmlObjectBase* object, const wchar* name);

  // Bridges to the protected operations of another object.
  static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                        const wchar* namespaceUri, const CSerializationContext& context,
                        bool isOptionalChoice);
  static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                  CXmlElement* firstChild, const CSerializationContext& context);
  static void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                  const CSerializationContext& context);

  static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
  static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                       void* item);
  static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                               void* item);
  static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                          int index);
  static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                  int index);

  /// @name Choice helpers for generated setters
  /// `selected` is a text that the generated class keeps for each choice: the name of the element
  /// that is set at present, empty if none. All of them throw `CTovikInvalidStateException` "The
  /// Property [%s] is already set. ..." if another element of the choice is set, and then leave
  /// `selected` alone.
  /// @{
  void Choice_SelectElement(const wchar* name, CXmlObjectBase* newValue, WString& selected);
  void Choice_SetElementValid(bool valid, const wchar* name, WString& selected);
  void Choice_CollectionChanged(const wchar* name, long count, WString& selected);
  /// Reads a collection at the cursor `child` unless `count` says that it was read already.
  void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                              CXmlElement*& child, long& count,
                              const CSerializationContext& context);
  /// @}

  /// Throws `CTovikInvalidParamException` if `object` is null.
  void Throw_IfPropertyIsNull(CXmlObjectBase* object, const wchar* name);
  /// Throws `CTovikInvalidParamException` if `object` has another element name than `name`.
  void Throw_IfElementNameDiffers(CXmlObjectBase* object, const wchar* name);
  /// Throws `CTovikInvalidNamespaceException` unless `IsNamespaceValid`.
  void TestNamespace(const wchar* namespaceUri, const wchar* allowed,
                     const wchar* targetNamespace) const;
  /// Whether a wildcard's `namespace` attribute lets a namespace pass (XML Schema structures,
  /// 3.10). `allowed` is a blank-separated list of URIs, "##any", "##other", "##local" and
  /// "##targetNamespace".
  bool IsNamespaceValid(const wchar* namespaceUri, const wchar* allowed,
                        const wchar* targetNamespace) const;
  /// Whether the element has the name, by the context's settings on namespaces.
  bool DoesElementNameMatch(const CSerializationContext& context, const CXmlElement* element,
                            const wchar* name, const wchar* namespaceUri) const;

 private:
  // The records lead from one object to another; the driver uses names without copying them.
  friend class CXmlGeneratedClass;
  friend class TovikXmlLib16Data::CAttributeInfo;
  friend class TovikXmlLib16Data::CElementInfo;

  // What the entry points have in common.
  void WriteRoot(CXmlWriter& writer, const CSerializationContext& context) const;
  void WriteXml(CTextStream& stream, bool includeHeader, bool formatted, EOLType eol,
                const CSerializationContext& context) const;
  void WriteJson(CTextStream& stream, bool formatted, EOLType eol,
                 const CSerializationContext& context) const;
  void ReadRoot(const CXmlDocument& document, const CSerializationContext& context);

  WString m_elementName;
  std::atomic<std::int32_t> m_references{0};
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BINDING_OBJECT_BASE_H_
