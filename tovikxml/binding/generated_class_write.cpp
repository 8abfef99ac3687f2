#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/generated_class.h"
#include "tovikxml/binding/nesting_guard.h"
#include "tovikxml/collections/attribute_col.h"
#include "tovikxml/document/writer.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/variant.h"

// The driver that turns an object into calls on a writer.
namespace TovikXmlLib16 {

using namespace TovikXmlLib16Data;

namespace {

void AnnounceNamespaces(CXmlWriter* writer, const CSerializationContext& context) {
  for (const WString& instruction : context.GetProcessingInstructions()) {
    writer->WriteProcessingInstruction(instruction);
  }
  for (const auto& [uri, alias] : context.GetNamespaceAliases().GetEntries()) {
    writer->AddNamespaceAlias(alias, uri);
  }
  const WString defaultNamespace = context.GetDefaultNamespaceURI();
  if (!defaultNamespace.empty()) writer->SetDefaultNamespace(defaultNamespace);
}

}  // namespace

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                                   const CSerializationContext& context,
                                   bool isOptionalChoice) const {
  try {
    const NestingGuard guard(context.GetMaxNesting());
    WriteObject(writer, isRoot, namespaceUri, context, isOptionalChoice);
  } catch (CTovikException& e) {
    throw CTovikValidationException(
        FormatString(u"Failed to convert the element [%s] to XML", m_elementName.c_str()),
        WString(), std::move(e));
  }
}

void CXmlGeneratedClass::WriteObject(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                                     const CSerializationContext& context,
                                     bool isOptionalChoice) const {
  const bool hasElement = GetClassInfo()->GetElementType() == xet_Element;
  if (hasElement) WriteStart(writer, isRoot, namespaceUri, context, isOptionalChoice);
  if (IsNilObject()) {
    writer->WriteXsiNil();
  } else {
    WriteContent(writer, context, isOptionalChoice);
  }
  if (hasElement) writer->WriteEndElement();
}

void CXmlGeneratedClass::WriteStart(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                                    const CSerializationContext& context,
                                    bool isOptionalChoice) const {
  if (isRoot) AnnounceNamespaces(writer, context);
  const WString& ownNamespace = GetClassInfo()->GetElementNamespace();
  if (EqualText(ownNamespace, ViewOf(namespaceUri))) {
    writer->WriteStartElement(m_elementName, ownNamespace);
  } else {
    writer->WriteStartElement(m_elementName, TextOf(namespaceUri));
  }
  if (isRoot) {
    const CSmartPtr<CAttributeCol> attributes = context.GetAdditionalRootAttributes();
    CXmlObjectBase::ToXml_Int(attributes, writer, false, namespaceUri, context, isOptionalChoice);
  }
  AttributesToXml_Int(writer, context);
  if (isRoot && !context.GetInLineSchema().empty()) {
    writer->WriteInlineSchema(context.GetInLineSchema());
  }
}

void CXmlGeneratedClass::WriteContent(CXmlWriter* writer, const CSerializationContext& context,
                                      bool isOptionalChoice) const {
  CElementInfo** records = GetClassElementInfo();
  switch (GetClassInfo()->GetElementGroupType()) {
    case xgt_Sequence:
      ProcessElementSeqToXml(context, records, writer);
      break;
    case xgt_Choice:
      ProcessElementChoiceToXml(context, records, writer, isOptionalChoice);
      break;
    case xgt_All:
      ProcessElementAllToXml(context, records, writer);
      break;
    default:
      throw CTovikException(u"Unknown XML Group Type");
  }
  WriteOwnText(writer);
}

void CXmlGeneratedClass::WriteOwnText(CXmlWriter* writer) const {
  const CParentElementInfo& info = *GetClassInfo();
  if (info.GetPrimitiveValuePropertyIndex() == -1 || info.GetPrimitiveDataType() == it_invalid) {
    return;
  }
  TovikVariant value;
  ReadProperty(info.GetPrimitiveValuePropertyIndex(), value);
  if (value.IsNil()) {
    writer->WriteXsiNil();
    return;
  }
  WString scratch;
  writer->WriteText(value.GetText(info.GetPrimitiveFormatOverride().c_str(), scratch),
                    value.GetTypeAsEnum());
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer,
                                             const CSerializationContext& context) const {
  try {
    const CParentElementInfo& info = *GetClassInfo();
    if (context.GetWriteTypeAttribute() && info.GetHasBaseClasses() &&
        !EqualText(m_elementName, info.GetElementName())) {
      writer->WriteXsiType(info.GetElementNamespace(), info.GetElementName(), it_string);
    }
    ProcessAttributesToXml(context, GetClassElementInfo(), GetClassAttributeInfo(), writer);
  } catch (CTovikException& e) {
    throw CTovikException(u"Failed to convert attributes to XML", std::move(e));
  }
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CSerializationContext& context,
                                                CElementInfo** elements,
                                                CAttributeInfo** attributes,
                                                CXmlWriter* writer) const {
  for (; *attributes; ++attributes) (*attributes)->AttributeToXml(context, this, writer);
  for (; *elements; ++elements) (*elements)->PseudoChildAttributeToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CSerializationContext& context,
                                                CElementInfo** elements, CXmlWriter* writer) const {
  for (; *elements; ++elements) (*elements)->ElementToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementAllToXml(const CSerializationContext& context,
                                                CElementInfo** elements, CXmlWriter* writer) const {
  ProcessElementSeqToXml(context, elements, writer);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(const CSerializationContext& context,
                                                   CElementInfo** elements, CXmlWriter* writer,
                                                   bool isOptionalChoice) const {
  for (; *elements; ++elements) {
    if ((*elements)->ElementToXml(context, this, writer)) return;
  }
  if (DoesElementContainOptionalElements() || isOptionalChoice ||
      context.GetIgnoreMissingChoice()) {
    return;
  }
  throw CTovikValidationException(
      u"This element is a choice, and as such must have at one (and only one) valid item, "
      u"currently there are none set",
      WString());
}

}  // namespace TovikXmlLib16
