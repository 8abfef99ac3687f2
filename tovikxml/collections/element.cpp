#include "tovikxml/collections/element.h"

#include <algorithm>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/nesting_guard.h"
#include "tovikxml/collections/attribute_col.h"
#include "tovikxml/collections/element_col.h"
#include "tovikxml/document/borrowed_text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/namespace_rule.h"
#include "tovikxml/document/text_stream.h"
#include "tovikxml/document/text_writer.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/binary_data.h"

namespace TovikXmlLib16 {
namespace {

constexpr WStringView kKeywords[] = {u"##any", u"##other", u"##local", u"##targetNamespace"};
constexpr WStringView kXmlns = u"xmlns";

void RefuseKeyword(const wchar* namespaceUri) {
  const WStringView uri = ViewOf(namespaceUri);
  if (std::find(std::begin(kKeywords), std::end(kKeywords), uri) == std::end(kKeywords)) return;
  throw CTovikInvalidNamespaceException(FormatString(u"Invalid Namespace [%s].", namespaceUri),
                                        WString());
}

void RequireText(const wchar* text, const wchar* message) {
  if (!text) throw CTovikInvalidNamespaceException(message, WString());
}

}  // namespace

CElement::CElement(const wchar* name) : CInstanceMonitor(u"CElement") {
  Init(name, u"", u"##any", u"");
}

CElement::CElement(const wchar* name, const wchar* namespaceUri) : CInstanceMonitor(u"CElement") {
  RefuseKeyword(namespaceUri);
  Init(name, namespaceUri, namespaceUri, u"");
}

CElement::CElement(const wchar* name, const wchar* namespaceUri, const wchar* restriction,
                   const wchar* targetNamespace)
    : CInstanceMonitor(u"CElement") {
  Init(name, namespaceUri, restriction, targetNamespace);
}

CElement::CElement(CXmlObjectBase* object, const wchar* defaultNamespace)
    : CInstanceMonitor(u"CElement") {
  if (!object) throw CTovikInvalidParamException(u"The object to turn into an element is NULL");
  Init(u"", u"", u"##any", u"");
  m_defaultNamespace = ViewOf(defaultNamespace);
  CSerializationContext context;
  context.SetDefaultNamespaceURI(defaultNamespace);
  const CBinaryData bytes =
      object->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, context, Compression_None);
  CXmlDocument document(context);
  document.LoadXmlStream(bytes.GetData(), bytes.GetLength());
  CopyXmlElement(document.GetDocumentElement());
}

CElement::~CElement() {
  CElementCol::ReleaseFlat(std::move(m_childElements));
}

void CElement::Init(const wchar* name, const wchar* namespaceUri, const wchar* restriction,
                    const wchar* targetNamespace) {
  RequireText(name, u"Element Name must have a value");
  RequireText(restriction, u"Namespace Restriction must have a value");
  RequireText(targetNamespace, u"Target Namespace must have a value");
  TestNamespace(namespaceUri, restriction, targetNamespace);
  m_name = name;
  m_namespace = ViewOf(namespaceUri);
  m_restriction = restriction;
  m_targetNamespace = targetNamespace;
  m_attributes = new CAttributeCol(namespaceUri, u"##any", targetNamespace);
  m_childElements = new CElementCol(namespaceUri, u"##any", targetNamespace, 0, -1);
}

CXmlObjectBase* CElement::GetBase() {
  return this;
}

void CElement::SetName(const wchar* name) {
  FireOnChangeName(name);
  m_name = ViewOf(name);
}

WString CElement::GetNamespace() const {
  return m_namespace;
}

void CElement::SetNamespace(const wchar* namespaceUri) {
  FireOnChangeNamespace(namespaceUri);
  m_namespace = ViewOf(namespaceUri);
}

void CElement::SetText(const wchar* text) {
  FireOnChangeText(text);
  m_text = ViewOf(text);
}

void CElement::FireOnChangeName(const wchar* /*name*/) {}

void CElement::FireOnChangeNamespace(const wchar* /*namespaceUri*/) {}

void CElement::FireOnChangeText(const wchar* /*text*/) {}

CSmartPtr<CAttributeCol> CElement::GetAttributes() const {
  return m_attributes;
}

CSmartPtr<CElementCol> CElement::GetChildElements() const {
  return m_childElements;
}

WString CElement::GetTargetNamespace() const {
  return m_namespace;
}

CSmartPtr<CElement> CElement::Clone() const {
  return Clone(CSerializationContext::GetDefaultContext());
}

CSmartPtr<CElement> CElement::Clone(const CSerializationContext& context) const {
  const NestingGuard guard(context.GetMaxNesting());
  CSmartPtr<CElement> copy(new CElement(m_name.c_str(), m_namespace.c_str(), m_restriction.c_str(),
                                        m_targetNamespace.c_str()));
  copy->m_attributes = m_attributes->Clone();
  copy->m_childElements = m_childElements->Clone(context);
  copy->m_text = m_text;
  return copy;
}

void CElement::SetNamespaceRestrictions(const wchar* restriction, const wchar* targetNamespace) {
  SetNamespaceRestrictions(restriction, targetNamespace,
                           CSerializationContext::GetDefaultContext());
}

void CElement::SetNamespaceRestrictions(const wchar* restriction, const wchar* targetNamespace,
                                        const CSerializationContext& context) {
  const NestingGuard guard(context.GetMaxNesting());
  try {
    TestNamespace(m_namespace.c_str(), restriction, targetNamespace);
    for (const CAttribute* attribute : *m_attributes) {
      TestNamespace(attribute->GetNamespace().c_str(), restriction, targetNamespace);
    }
    for (CElement* child : *m_childElements) {
      child->SetNamespaceRestrictions(restriction, targetNamespace, context);
    }
  } catch (const CTovikException& e) {
    throw CTovikInvalidNamespaceException(
        FormatString(u"The namespace %s in the class %s is invalid against restriction %s",
                     m_namespace.c_str(), m_name.c_str(), TextOf(restriction).c_str()),
        WString(), e);
  }
}

void CElement::CopyXmlElement(CXmlElement* source) {
  const NestingGuard guard(CSerializationContext::GetDefaultContext().GetMaxNesting());
  m_name = source->GetLocalName();
  m_namespace = source->GetNamespaceURI();
  m_text = source->GetTextView();
  m_attributes->Clear();
  m_childElements->Clear();
  for (const CXmlAttribute* attribute : source->GetAttributes()) {
    const WString& name = attribute->GetLocalName();
    const WString& value = BorrowValue(*attribute);
    m_attributes->Add(name.c_str(), value.c_str(), attribute->GetNamespaceURI().c_str());
    if (EqualText(name, kXmlns)) m_defaultNamespace = value;
  }
  for (CXmlElement* child = source->GetFirstElement(); child;
       child = child->GetNextSiblingElement()) {
    const CSmartPtr<CElement> copy(new CElement(child->GetLocalName().c_str()));
    copy->CopyXmlElement(child);
    m_childElements->Add(copy);
  }
}

void CElement::FromXml(const wchar* text) {
  CXmlDocument document;
  document.LoadXml(text);
  CXmlElement* root = document.GetDocumentElement();
  FromXml_Int(root, root, CSerializationContext::GetDefaultContext(), false);
}

CXmlElement* CElement::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* current,
                                   const CSerializationContext& context,
                                   bool /*isOptionalChoice*/) {
  if (!current) return nullptr;
  if (!IsNamespaceAllowed(current->GetNamespaceURI(), m_restriction, m_targetNamespace)) {
    return current;
  }
  const NestingGuard guard(context.GetMaxNesting());
  FromXml_Int(m_attributes, current, nullptr, context);
  if (FromXml_Int(m_childElements, current, current->GetFirstElement(), context)) {
    throw CTovikValidationException(
        FormatString(u"Invalid Element [%s] found.", current->GetLocalName().c_str()),
        current->GetXPath());
  }
  m_text = current->GetTextView();
  m_name = current->GetLocalName();
  m_namespace = current->GetNamespaceURI();
  return current->GetNextSiblingElement();
}

void CElement::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                         const CSerializationContext& context, bool isOptionalChoice) const {
  const NestingGuard guard(context.GetMaxNesting());
  // Only XML text can be spliced; other writers take the element like any other.
  auto* textWriter = m_defaultNamespace.empty() ? nullptr : dynamic_cast<CXmlTextWriter*>(writer);
  if (textWriter) {
    WriteNested(*textWriter, namespaceUri, context, isOptionalChoice);
    return;
  }
  writer->WriteStartElement(m_name, m_namespace);
  ToXml_Int(m_attributes, writer, false, namespaceUri, context, false);
  WriteContent(writer, namespaceUri, context, isOptionalChoice);
}

// A writer declares a default namespace on its root alone, so that this element becomes the root of
// a writer of its own, whose text goes into the outer one.
void CElement::WriteNested(CXmlTextWriter& outer, const wchar* namespaceUri,
                           const CSerializationContext& context, bool isOptionalChoice) const {
  CTextStream stream(Encoding_None);
  CXmlTextWriter inner(&stream);
  inner.SetEOLType(outer.GetEOLType());
  inner.SetFormatted(outer.GetFormatted());
  inner.SetDefaultNamespace(m_defaultNamespace);
  inner.WriteStartElement(m_name, m_namespace);
  CSerializationContext nested;
  nested.SetDefaultNamespaceURI(m_defaultNamespace.c_str());
  nested.SetMaxNesting(context.GetMaxNesting());
  for (const CAttribute* attribute : *m_attributes) {
    const bool isDeclared = attribute->GetNamespace().empty() && attribute->GetName() == kXmlns;
    if (!isDeclared) ToXml_Int(attribute, &inner, false, namespaceUri, nested, false);
  }
  WriteContent(&inner, namespaceUri, nested, isOptionalChoice);
  outer.CloseStartTag();
  WString text;
  stream.GetBuffer().AppendTo(text);
  outer.WriteRawText(text);
}

// Everything behind the attributes.
void CElement::WriteContent(CXmlWriter* writer, const wchar* namespaceUri,
                            const CSerializationContext& context, bool isOptionalChoice) const {
  ToXml_Int(m_childElements, writer, false, namespaceUri, context, isOptionalChoice);
  writer->WriteText(m_text, it_string);
  writer->WriteEndElement();
}

}  // namespace TovikXmlLib16
