#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/binding/version_check.h"
#include "tovikxml/collections/element.h"
#include "tovikxml/document/binary_stream.h"
#include "tovikxml/document/compression.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/file_text_stream.h"
#include "tovikxml/document/text_stream.h"
#include "tovikxml/document/text_writer.h"
#include "tovikxml/document/utf_conversion.h"
#include "tovikxml/fastinfoset/writer.h"
#include "tovikxml/json/text_writer.h"
#include "tovikxml/platform/async_files.h"
#include "tovikxml/settings/json_context.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/binary_data.h"

// The entry points of `CXmlObjectBase`: the only place that knows the concrete writers, streams and
// readers. Each owns what lives for one call, on its stack.
namespace TovikXmlLib16 {
namespace {

// Zlib has no file format, so that it is refused before anything else is looked at.
void RefuseZlibFile(CompressionType compression) {
  if (compression == Compression_ZLib) {
    throw CTovikException(u"ZLIB Compression only available for To Stream methods.");
  }
}

// A compressed file holds nothing but the compressed bytes.
void SaveToFile(const wchar* fileName, XmlEncoding encoding, CompressionType compression,
                const CBinaryData& bytes) {
  CFileBinaryStream(fileName, compression == Compression_None ? encoding : Encoding_None, bytes)
      .SaveToFile();
}

}  // namespace

void CXmlObjectBase::WriteRoot(CXmlWriter& writer, const CSerializationContext& context) const {
  ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
}

void CXmlObjectBase::WriteXml(CTextStream& stream, bool includeHeader, bool formatted, EOLType eol,
                              const CSerializationContext& context) const {
  CXmlTextWriter writer(&stream);
  writer.Open();
  writer.SetFormatted(formatted);
  writer.SetIndentChars(context.GetIndentChars());
  writer.SetEOLType(eol);
  if (includeHeader) writer.WriteXmlDeclaration();
  WriteRoot(writer, context);
  writer.Close();
}

void CXmlObjectBase::WriteJson(CTextStream& stream, bool formatted, EOLType eol,
                               const CSerializationContext& context) const {
  CJsonTextWriter writer(&stream);
  writer.Open();
  writer.SetFormatted(formatted);
  writer.SetIndentChars(context.GetIndentChars());
  writer.SetEOLType(eol);
  writer.SetRoundTrip(context.GetJsonContext().GetSupportRoundtrip());
  writer.WriteStartDocument();
  WriteRoot(writer, context);
  writer.WriteEndDocument();
  writer.Close();
}

WString CXmlObjectBase::ToXml(bool includeHeader, bool formatted, EOLType eol,
                              const CSerializationContext& context) const {
  RequireGeneratorVersion();
  CTextStream stream;
  WriteXml(stream, includeHeader, formatted, eol, context);
  WString text;
  stream.GetBuffer().AppendTo(text);
  return text;
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeHeader, bool formatted, XmlEncoding encoding,
                                        EOLType eol, const CSerializationContext& context,
                                        CompressionType compression) const {
  RequireGeneratorVersion();
  CTextStream stream(encoding);
  WriteXml(stream, includeHeader, formatted, eol, context);
  CBinaryData bytes = stream.GetCheckedBytes();
  if (compression != Compression_None) CompressBinaryData(bytes, compression);
  return bytes;
}

void CXmlObjectBase::ToXmlFile(const wchar* fileName, bool includeHeader, bool formatted,
                               XmlEncoding encoding, EOLType eol,
                               const CSerializationContext& context,
                               CompressionType compression) const {
  RefuseZlibFile(compression);
  if (!IsAsyncToXmlFile() || compression != Compression_None) {
    SaveToFile(fileName, encoding, compression,
               ToXmlStream(includeHeader, formatted, encoding, eol, context, compression));
    return;
  }
  RequireGeneratorVersion();
  CFileTextStream stream(fileName, encoding);
  WriteXml(stream, includeHeader, formatted, eol, context);
}

void CXmlObjectBase::ToFastInfosetFile(const wchar* fileName, FInfoDecl declaration,
                                       const CSerializationContext& context,
                                       CompressionType compression) const {
  RefuseZlibFile(compression);
  CFileBinaryStream(fileName, Encoding_None, ToFastInfosetStream(declaration, context, compression))
      .SaveToFile();
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration,
                                                const CSerializationContext& context,
                                                CompressionType compression) const {
  RequireGeneratorVersion();
  CBinaryStream stream;
  CFastInfosetWriter writer(context.GetFIContext(), &stream);
  writer.Open();
  writer.WriteStartDocument(declaration);
  WriteRoot(writer, context);
  writer.WriteEndDocument();
  writer.Close();
  CBinaryData bytes = stream.GetData();
  if (compression != Compression_None) CompressBinaryData(bytes, compression);
  return bytes;
}

void CXmlObjectBase::ToJsonFile(const wchar* fileName, bool formatted, XmlEncoding encoding,
                                EOLType eol, const CSerializationContext& context,
                                CompressionType compression) const {
  RefuseZlibFile(compression);
  if (!IsAsyncToXmlFile() || compression != Compression_None) {
    // A file made in memory carries no byte order mark, whatever its encoding.
    SaveToFile(fileName, Encoding_UTF8, compression,
               ToJsonStream(formatted, encoding, eol, context, compression));
    return;
  }
  RequireGeneratorVersion();
  CFileTextStream stream(fileName, encoding);
  WriteJson(stream, formatted, eol, context);
}

WString CXmlObjectBase::ToJson(bool formatted, EOLType eol,
                               const CSerializationContext& context) const {
  RequireGeneratorVersion();
  CTextStream stream;
  WriteJson(stream, formatted, eol, context);
  WString text;
  stream.GetBuffer().AppendTo(text);
  return text;
}

CBinaryData CXmlObjectBase::ToJsonStream(bool formatted, XmlEncoding encoding, EOLType eol,
                                         const CSerializationContext& context,
                                         CompressionType compression) const {
  RequireGeneratorVersion();
  CTextStream stream(encoding);
  WriteJson(stream, formatted, eol, context);
  CBinaryData bytes = stream.GetCheckedBytes();
  if (compression != Compression_None) CompressBinaryData(bytes, compression);
  return bytes;
}

void CXmlObjectBase::ReadRoot(const CXmlDocument& document, const CSerializationContext& context) {
  CXmlElement* root = document.GetDocumentElement();
  if (!root) throw CTovikException(u"Invalid or empty XML document");
  FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXmlFile(const wchar* fileName, const CSerializationContext& context) {
  RequireGeneratorVersion();
  CXmlDocument document(context);
  document.Load(fileName);
  ReadRoot(document, context);
}

void CXmlObjectBase::FromXml(const wchar* text, const CSerializationContext& context) {
  RequireGeneratorVersion();
  CXmlDocument document(context);
  document.LoadXml(text);
  ReadRoot(document, context);
}

void CXmlObjectBase::FromXml(const char* text, const CSerializationContext& context) {
  RequireGeneratorVersion();
  CXmlDocument document(context);
  document.LoadXml(text);
  ReadRoot(document, context);
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CSerializationContext& context) {
  FromXmlStream(data.GetData(), data.GetLength(), context);
}

void CXmlObjectBase::FromXmlStream(unsigned char* data, unsigned long length,
                                   const CSerializationContext& context) {
  RequireGeneratorVersion();
  CXmlDocument document(context);
  document.LoadXmlStream(data, length);
  ReadRoot(document, context);
}

void CXmlObjectBase::FromXmlElement(const CElement* element, const CSerializationContext& context) {
  RequireGeneratorVersion();
  if (!element) throw CTovikInvalidParamException(u"The element to read from may not be NULL");
  FromXml(element->ToXml(false, false, EOL_LF, CSerializationContext::GetDefaultContext()).c_str(),
          context);
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* element,
                                    const CSerializationContext& context) {
  RequireGeneratorVersion();
  if (!element) throw CTovikInvalidParamException(u"The element to read from may not be NULL");
  // The drivers hand elements on without a const, and change none.
  auto* root = const_cast<CXmlElement*>(element);
  FromXml_Int(root, root->GetFirstElement(), context, false);
}

namespace {

// JSON of the modes without namespaces is compared by local names alone. The context is put back on
// every road out.
class JsonNamespaceSetting {
 public:
  explicit JsonNamespaceSetting(const CSerializationContext& context)
      : m_context(const_cast<CSerializationContext&>(context)),
        m_changes(context.GetJsonContext().GetSupportRoundtrip() != jrt_Full),
        m_before(context.GetIgnoreNamespaces()) {
    if (m_changes) m_context.SetIgnoreNamespaces(true);
  }
  JsonNamespaceSetting(const JsonNamespaceSetting&) = delete;
  JsonNamespaceSetting& operator=(const JsonNamespaceSetting&) = delete;
  ~JsonNamespaceSetting() {
    if (m_changes) m_context.SetIgnoreNamespaces(m_before);
  }

 private:
  CSerializationContext& m_context;
  bool m_changes;
  bool m_before;
};

// Reads the XML text that stands for JSON.
void FromJson_Int(CXmlObjectBase& object, const CBinaryData& xml,
                  const CSerializationContext& context) {
  const JsonNamespaceSetting setting(context);
  try {
    object.FromXmlStream(xml, context);
  } catch (const CTovikException& e) {
    const WString text = Utf8ToUtf16(xml.GetData(), xml.GetLength());
    throw CTovikException(u"Error converting JSON to XML:\n" + text, e);
  }
}

}  // namespace

void CXmlObjectBase::FromJsonFile(const wchar* fileName, const CSerializationContext& context) {
  RequireGeneratorVersion();
  FromJson_Int(*this, CXmlDocument(context).LoadJsonFile(fileName), context);
}

void CXmlObjectBase::FromJson(const wchar* text, const CSerializationContext& context) {
  RequireGeneratorVersion();
  FromJson_Int(*this, CXmlDocument(context).LoadJson(text), context);
}

void CXmlObjectBase::FromJson(const char* text, const CSerializationContext& context) {
  RequireGeneratorVersion();
  FromJson_Int(*this, CXmlDocument(context).LoadJson(text), context);
}

void CXmlObjectBase::FromJsonStream(const CBinaryData& data, const CSerializationContext& context) {
  FromJsonStream(data.GetData(), data.GetLength(), context);
}

void CXmlObjectBase::FromJsonStream(unsigned char* data, unsigned long length,
                                    const CSerializationContext& context) {
  RequireGeneratorVersion();
  FromJson_Int(*this, CXmlDocument(context).LoadJsonStream(data, length), context);
}

}  // namespace TovikXmlLib16
