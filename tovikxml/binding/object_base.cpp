#include "tovikxml/binding/object_base.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/version_check.h"
#include "tovikxml/collections/collection_base.h"

namespace TovikXmlLib16 {
namespace {

void FireIndexed(IEventSink* sink, CXmlCollectionBase* collection, IEventSink::MsgType type,
                 int index) {
  sink->OnEvent(collection->GetBase(), type, index == -1 ? nullptr : &index);
}

}  // namespace

CXmlObjectBase::CXmlObjectBase() {
  CheckVersionAtFirstObject();
}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other)
    : IEventSink(other), m_elementName(other.m_elementName) {}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other) {
  m_elementName = other.m_elementName;
  return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

void CXmlObjectBase::OnEvent(CXmlObjectBase* /*sender*/, MsgType /*type*/, void* /*data*/) {}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter* /*writer*/,
                                         const CSerializationContext& /*context*/) const {}

long CXmlObjectBase::AddRef() {
  return m_references.fetch_add(1, std::memory_order_relaxed) + 1;
}

long CXmlObjectBase::Release() {
  const long left = m_references.fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (left == 0) delete this;
  return left;
}

const CXmlObjectBase* CXmlObjectBase::GetBase() const {
  return const_cast<CXmlObjectBase*>(this)->GetBase();
}

void CXmlObjectBase::SetElementName(const wchar* name) {
  m_elementName = ViewOf(name);
}

void CXmlObjectBase::SetElementName(CXmlObjectBase* object, const wchar* name) {
  object->SetElementName(name);
}

void CXmlObjectBase::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const wchar* namespaceUri, const CSerializationContext& context,
                               bool isOptionalChoice) {
  object->ToXml_Int(writer, isRoot, namespaceUri, context, isOptionalChoice);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                         CXmlElement* firstChild,
                                         const CSerializationContext& context) {
  return object->FromXml_Int(parent, firstChild, context, false);
}

void CXmlObjectBase::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                         const CSerializationContext& context) {
  object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection) {
  sink->OnEvent(collection->GetBase(), CollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                              void* item) {
  sink->OnEvent(collection->GetBase(), CollectionAdd, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink,
                                                      CXmlCollectionBase* collection, void* item) {
  sink->OnEvent(collection->GetBase(), CollectionAddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 int index) {
  FireIndexed(sink, collection, CollectionRemove, index);
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink,
                                                         CXmlCollectionBase* collection,
                                                         int index) {
  FireIndexed(sink, collection, CollectionRemoveComplete, index);
}

}  // namespace TovikXmlLib16
