#include "tovikxml/collections/element_col.h"

#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/namespace_rule.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {

CElementCol::CElementCol(const wchar* namespaceUri, const wchar* restriction,
                         const wchar* targetNamespace, int minOccurs, int maxOccurs)
    : CXmlCollection(u"", u"", minOccurs, maxOccurs),
      CInstanceMonitor(u"CElementCol"),
      m_restriction(u"##any"),
      m_namespaceOfNew(NamespaceOfNewItems(ViewOf(namespaceUri), ViewOf(restriction))),
      m_targetNamespace(ViewOf(targetNamespace)) {
  TestNamespace(namespaceUri, restriction, targetNamespace);
}

CElementCol::~CElementCol() = default;

CSmartPtr<CElement> CElementCol::Add(const wchar* name, const wchar* namespaceUri) {
  TestNamespace(namespaceUri, m_restriction.c_str(), m_targetNamespace.c_str());
  return AddNew(name, namespaceUri);
}

CSmartPtr<CElement> CElementCol::Add(const wchar* name) {
  if (m_namespaceOfNew.empty()) {
    throw CTovikInvalidStateException(u"A Namespace has not been set for this Collection");
  }
  return AddNew(name, m_namespaceOfNew.c_str());
}

void CElementCol::Add(CElement* element) {
  if (element) {
    TestNamespace(element->m_namespace.c_str(), m_restriction.c_str(), m_targetNamespace.c_str());
  }
  AppendItem(element);
}

void CElementCol::AddAfter(const CElement* existing, CElement* element) {
  AddAfterItem(existing, element);
}

void CElementCol::AddBefore(const CElement* existing, CElement* element) {
  AddBeforeItem(existing, element);
}

CSmartPtr<CElement> CElementCol::AddNew(const wchar* name, const wchar* namespaceUri) {
  CSmartPtr<CElement> element(
      new CElement(name, namespaceUri, m_restriction.c_str(), m_targetNamespace.c_str()));
  AppendItem(element);
  return element;
}

CSmartPtr<CElement> CElementCol::Item(int index) const {
  return static_cast<CElement*>(GetNodeAtIndex(index)->item.Get());
}

CSmartPtr<CElementCol> CElementCol::Clone() const {
  return Clone(CSerializationContext::GetDefaultContext());
}

CSmartPtr<CElementCol> CElementCol::Clone(const CSerializationContext& context) const {
  CSmartPtr<CElementCol> copy(new CElementCol(m_namespaceOfNew.c_str(), m_restriction.c_str(),
                                              m_targetNamespace.c_str(), GetMinOccurs(),
                                              GetMaxOccurs()));
  for (const CElement* element : *this) copy->Add(element->Clone(context));
  return copy;
}

WString CElementCol::GetTargetNamespace() const {
  return m_targetNamespace;
}

WString CElementCol::GetNamespace() const {
  return m_targetNamespace;
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                            const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CElement* element : *this) {
    ToXml_Int(element, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                                      const CSerializationContext& context,
                                      bool /*isOptionalChoice*/) {
  CXmlElement* current = firstChild;
  while (current &&
         IsNamespaceAllowed(current->GetNamespaceURI(), m_restriction, m_targetNamespace)) {
    CXmlElement* next = ReadOne(parent, current, m_restriction.c_str(), context);
    if (next == current) break;
    current = next;
  }
  return current;
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(const wchar* name, const wchar* namespaceUri,
                                                     CXmlElement* parent, CXmlElement* current,
                                                     const CSerializationContext& context) {
  while (current && EqualText(current->GetLocalName(), ViewOf(name)) &&
         EqualText(current->GetNamespaceURI(), ViewOf(namespaceUri))) {
    CXmlElement* next = ReadOne(parent, current, u"##any", context);
    if (next == current) break;
    current = next;
  }
  return current;
}

// Adds the element at the cursor once it is read; gives the cursor behind it.
CXmlElement* CElementCol::ReadOne(CXmlElement* parent, CXmlElement* current,
                                  const wchar* restriction, const CSerializationContext& context) {
  const CSmartPtr<CElement> element(new CElement(current->GetLocalName().c_str(),
                                                 current->GetNamespaceURI().c_str(), restriction,
                                                 m_targetNamespace.c_str()));
  CXmlElement* next = FromXml_Int(element, parent, current, context);
  if (next != current) Add(element);
  return next;
}

// Lists released inside the release of another wait until that is done, so that a deep tree is
// freed level by level instead of recursively. A list belongs to one element, hence waits but once.
void CElementCol::ReleaseFlat(CSmartPtr<CElementCol> elements) {
  thread_local CElementCol* t_waiting = nullptr;
  thread_local bool t_isReleasing = false;
  if (!elements || elements->GetCount() == 0) return;
  elements->AddRef();
  elements->m_nextToRelease = std::exchange(t_waiting, elements.Get());
  elements = nullptr;
  if (t_isReleasing) return;
  t_isReleasing = true;
  while (CElementCol* next = t_waiting) {
    t_waiting = next->m_nextToRelease;
    next->Release();
  }
  t_isReleasing = false;
}

}  // namespace TovikXmlLib16
