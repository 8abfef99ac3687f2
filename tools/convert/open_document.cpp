#include "tools/convert/open_document.h"

#include "tools/convert/value_types.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr WStringView kCDataStart = u"<![CDATA[";

ItemType Untyped(const WString& /*value*/) {
  return it_string;
}

bool IsBlank(const WString& text) {
  return text.find_first_not_of(u" \t\r\n") == WString::npos;
}

bool HaveSameName(const CElement& a, const CElement& b) {
  return a.GetName() == b.GetName() && a.GetNamespace() == b.GetNamespace();
}

}  // namespace

COpenDocument::COpenDocument(const Options& options)
    : CElement(u""),
      m_typeOf(options.typed             ? &JsonTypeOf
               : options.suggestedValues ? &FastInfosetTypeOf
                                         : &Untyped),
      m_isXmlText(options.to == Format::kXml) {}

// Open content reads the element at the cursor; here that is the root itself.
CXmlElement* COpenDocument::FromXml_Int(CXmlElement* parent, CXmlElement* /*firstChild*/,
                                        const CSerializationContext& context,
                                        bool isOptionalChoice) {
  CElement::FromXml_Int(parent, parent, context, isOptionalChoice);
  return nullptr;
}

void COpenDocument::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* /*namespaceUri*/,
                              const CSerializationContext& context,
                              bool /*isOptionalChoice*/) const {
  writer->SetDefaultNamespace(context.GetDefaultNamespaceURI());
  const CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
  for (int i = 0; i < aliases.GetNamespaceCount(); ++i) {
    const WString uri = aliases.GetNamespaceAt(i);
    writer->AddNamespaceAlias(aliases.GetAliasFromNamespace(uri.c_str()), uri);
  }
  Write(*writer, *this);
}

// No deeper than reading let the document be.
void COpenDocument::Write(CXmlWriter& writer, const CElement& element) const {
  writer.WriteStartElement(element.GetName(), element.GetNamespace());
  const CSmartPtr<CAttributeCol> attributes = element.GetAttributes();
  for (const CAttribute* attribute : *attributes) {
    const WString value = attribute->GetValue();
    writer.WriteAttribute(attribute->GetName(), attribute->GetNamespace(), value, m_typeOf(value));
  }
  const CSmartPtr<CElementCol> children = element.GetChildElements();
  WriteChildren(writer, *children);
  const WString text = element.GetText();
  if (!text.empty() && (children->GetCount() == 0 || !IsBlank(text))) WriteText(writer, text);
  writer.WriteEndElement();
}

void COpenDocument::WriteChildren(CXmlWriter& writer, const CElementCol& children) const {
  const CElement* previous = nullptr;
  bool isRepeated = false;
  for (auto at = children.begin(); at != children.end(); ++at) {
    const CElement* child = *at;
    if (isRepeated && !HaveSameName(*previous, *child)) {
      writer.SetCollectionState(3);
      isRepeated = false;
    }
    auto next = at;
    ++next;
    if (!isRepeated && next != children.end() && HaveSameName(*child, **next)) {
      writer.SetCollectionState(1);
      isRepeated = true;
    }
    Write(writer, *child);
    previous = child;
  }
  if (isRepeated) writer.SetCollectionState(3);
}

// A text that begins like a CDATA section would be written as one.
void COpenDocument::WriteText(CXmlWriter& writer, const WString& text) const {
  if (!m_isXmlText || !WStringView(text).starts_with(kCDataStart)) {
    writer.WriteText(text, m_typeOf(text));
    return;
  }
  writer.WriteText(text.substr(0, 1), it_string);
  writer.WriteText(text.substr(1), it_string);
}

}  // namespace TovikXmlConvert
