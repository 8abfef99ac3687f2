#include <vector>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/binding/generated_class.h"
#include "tovikxml/binding/nesting_guard.h"
#include "tovikxml/binding/nil_attribute.h"
#include "tovikxml/document/borrowed_text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/variant.h"

// The driver that fills an object from an element. It keeps a cursor over the sibling elements and
// offers it to the records in the order that the group demands; each record looks at the element
// under the cursor, takes what it can and moves the cursor on.
namespace TovikXmlLib16 {

using namespace TovikXmlLib16Data;

namespace {

// One flag for each record of a table; the heap only for unusually long tables.
class SeenFlags {
 public:
  template <class Record>
  explicit SeenFlags(Record** table) {
    while (table[m_count]) ++m_count;
    if (m_count > kInPlace) m_more.resize(m_count);
  }
  std::size_t GetCount() const { return m_count; }
  char& operator[](std::size_t index) { return m_more.empty() ? m_inPlace[index] : m_more[index]; }

 private:
  static constexpr std::size_t kInPlace = 32;

  std::size_t m_count = 0;
  char m_inPlace[kInPlace] = {};
  std::vector<char> m_more;
};

[[noreturn]] void ThrowLeftOver(const CXmlElement& parent, const CXmlElement& child) {
  throw CTovikValidationException(
      FormatString(u"Failed read all the elements held within the element [%s]. The unexpected "
                   u"element [%s] remains un processed",
                   parent.GetLocalName().c_str(), child.GetLocalName().c_str()),
      parent.GetXPath());
}

[[noreturn]] void ThrowEmptyChoice(const CXmlElement& parent) {
  throw CTovikValidationException(
      FormatString(u"No child elements within the element [%s] were populated. The element "
                   u"represents a choice, so one and only one element should be populated. The "
                   u"element contained no sutable child elements",
                   parent.GetLocalName().c_str()),
      parent.GetXPath());
}

}  // namespace

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                                             const CSerializationContext& context,
                                             bool isOptionalChoice) {
  try {
    const NestingGuard guard(context.GetMaxNesting());
    return ReadObject(parent, firstChild, context, isOptionalChoice);
  } catch (CTovikException& e) {
    // The innermost element that knows a path fixes it.
    if (!e.GetPath().empty()) throw CTovikException(e);
    throw CTovikValidationException(u"Failed to process the element.", parent->GetXPath(), e);
  }
}

CXmlElement* CXmlGeneratedClass::ReadObject(CXmlElement* parent, CXmlElement* firstChild,
                                            const CSerializationContext& context,
                                            bool isOptionalChoice) {
  const CParentElementInfo& info = *GetClassInfo();
  Init();
  if (info.GetElementType() == xet_Element) m_elementName = parent->GetLocalName();
  ProcessAttributesFromXml(context, parent, info.GetFromXmlFailIfAttributeUnknown());
  if (IsNilObject()) return firstChild;
  CXmlElement* next = ReadContent(parent, firstChild, context, isOptionalChoice);
  ReadOwnText(*parent);
  return next;
}

CXmlElement* CXmlGeneratedClass::ReadContent(CXmlElement* parent, CXmlElement* firstChild,
                                             const CSerializationContext& context,
                                             bool isOptionalChoice) {
  const CParentElementInfo& info = *GetClassInfo();
  const XmlElementType type = info.GetElementType();
  switch (info.GetElementGroupType()) {
    case xgt_Sequence:
      return ProcessElementSeqFromXml(context, parent, firstChild, type);
    case xgt_Choice:
      return ProcessElementChoiceFromXml(context, parent, firstChild, type, isOptionalChoice);
    case xgt_All:
      return ProcessElementAllFromXml(context, parent, firstChild, type);
    default:
      throw CTovikException(u"Unknown Group Type");
  }
}

void CXmlGeneratedClass::ReadOwnText(const CXmlElement& element) {
  const CParentElementInfo& info = *GetClassInfo();
  const int index = info.GetPrimitiveValuePropertyIndex();
  if (index == -1 || info.GetPrimitiveDataType() == it_invalid) return;
  TovikVariant value;
  if (info.GetOutputPrimitiveClassAsTextProperty()) {
    value.SetString(WString(element.GetTextView()));
  } else {
    value.FromString(BorrowText(element), info.GetPrimitiveDataType(), CWhitespaceUtils::ws_none);
  }
  AccessProperty(index, false, value);
}

bool CXmlGeneratedClass::IsNilObject() const {
  const INillable* nillable = dynamic_cast<const INillable*>(this);
  return nillable && nillable->IsNil();
}

void CXmlGeneratedClass::ReadNilAttribute(const CXmlElement& element,
                                          const CXmlAttribute& attribute) {
  INillable* nillable = dynamic_cast<INillable*>(this);
  if (!nillable) ThrowNotNillable(element);
  const bool isTrue = IsXsiTrue(attribute.GetValueView());
  if (!isTrue && !IsXsiFalse(attribute.GetValueView())) ThrowBadNilValue(attribute);
  nillable->SetNil(isTrue);
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CSerializationContext& context,
                                                  CXmlElement* element, bool failIfUnknown) {
  CAttributeInfo** records = GetClassAttributeInfo();
  SeenFlags seen(records);
  const auto offer = [&](CXmlAttribute* attribute) {
    for (std::size_t i = 0; i < seen.GetCount(); ++i) {
      if (records[i]->AttributeFromXml(context, this, attribute)) {
        seen[i] = 1;
        return true;
      }
    }
    return false;
  };
  for (CXmlAttribute* attribute : element->GetAttributes()) {
    if (attribute->IsNamespaceAttribute()) continue;
    if (attribute->IsNilAttribute()) {
      ReadNilAttribute(*element, *attribute);
    } else if (!offer(attribute) && failIfUnknown && !context.GetIgnoreUnknownAttributes()) {
      ThrowUnexpectedAttribute(*attribute);
    }
  }
  for (std::size_t i = 0; i < seen.GetCount(); ++i) records[i]->Validate(context, seen[i] != 0);
}

bool CXmlGeneratedClass::ReadRecord(CElementInfo* record, const CSerializationContext& context,
                                    CXmlElement* parent, CXmlElement** child,
                                    XmlElementType elementType) {
  if (!record->UsesDefaultNamespace()) {
    return record->ElementFromXml(context, this, parent, child, u"", elementType);
  }
  return record->ElementFromXml(context, this, parent, child, GetNamespace().c_str(), elementType);
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CSerializationContext& context,
                                                          CXmlElement* parent, CXmlElement* child,
                                                          XmlElementType elementType) {
  CElementInfo** records = GetClassElementInfo();
  CXmlElement* const start = child;
  std::size_t index = 0;
  std::size_t last = 0;
  for (;;) {
    for (; records[index]; ++index) {
      last = index;
      while (!ReadRecord(records[index], context, parent, &child, elementType)) {
        if (!context.GetIgnoreUnknownElements() || !child) return start;
        child = child->GetNextSiblingElement();
      }
    }
    if (elementType != xet_Element || !child) return child;
    if (!context.GetIgnoreUnknownElements()) ThrowLeftOver(*parent, *child);
    // An unknown element among the items of a final collection does not end that collection, while
    // a mandatory record has all that it takes.
    if (index > last && records[last]->IsMandatory()) return nullptr;
    child = child->GetNextSiblingElement();
    if (!child) return nullptr;
    index = last;
  }
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CSerializationContext& context,
                                                          CXmlElement* parent, CXmlElement* child,
                                                          XmlElementType elementType) {
  CElementInfo** records = GetClassElementInfo();
  CXmlElement* const start = child;
  SeenFlags seen(records);
  for (CXmlElement* passStart = nullptr; child && child != passStart;) {
    passStart = child;
    for (std::size_t i = 0; i < seen.GetCount(); ++i) {
      if (!seen[i]) seen[i] = ReadRecord(records[i], context, parent, &child, elementType) ? 1 : 0;
    }
  }
  for (std::size_t i = 0; i < seen.GetCount(); ++i) {
    if (!records[i]->Validate(context, this, seen[i] != 0, elementType == xet_Element))
      return start;
  }
  if (elementType != xet_Element || !child || context.GetIgnoreUnknownElements()) return child;
  ThrowLeftOver(*parent, *child);
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(const CSerializationContext& context,
                                                             CXmlElement* parent,
                                                             CXmlElement* child,
                                                             XmlElementType elementType,
                                                             bool isOptionalChoice) {
  CElementInfo** records = GetClassElementInfo();
  CXmlElement* const start = child;
  const bool skips = context.GetIgnoreUnknownElements() && elementType == xet_Element;
  bool found = false;
  for (;;) {
    for (CElementInfo** record = records; *record && !found; ++record) {
      found = ReadRecord(*record, context, parent, &child, elementType);
    }
    if (found || !skips || !child) break;
    child = child->GetNextSiblingElement();
    if (!child) break;
  }
  if (!found && !isOptionalChoice) {
    if (elementType == xet_PseudoElement && context.GetIgnoreUnknownElements()) return start;
    if (elementType != xet_Element) return child;
    if (!DoesElementContainOptionalElements() && !context.GetIgnoreMissingChoice()) {
      ThrowEmptyChoice(*parent);
    }
  }
  if (elementType != xet_Element || !child || context.GetIgnoreUnknownElements()) return child;
  ThrowLeftOver(*parent, *child);
}

}  // namespace TovikXmlLib16
