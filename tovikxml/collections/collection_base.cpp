#include "tovikxml/collections/collection_base.h"

#include <algorithm>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

// Listeners may come and go while they are being told.
template <class Fire>
void ForEach(const std::vector<IEventSink*>& listeners, Fire fire) {
  for (std::size_t i = 0; i < listeners.size(); ++i) fire(listeners[i]);
}

}  // namespace

CXmlCollectionBase::CXmlCollectionBase(const wchar* elementName, const wchar* namespaceUri,
                                       int minOccurs, int maxOccurs)
    : m_namespace(ViewOf(namespaceUri)), m_minOccurs(minOccurs), m_maxOccurs(maxOccurs) {
  SetElementName(elementName);
}

CXmlObjectBase* CXmlCollectionBase::GetBase() {
  return this;
}

WString CXmlCollectionBase::GetNamespace() const {
  return m_namespace;
}

WString CXmlCollectionBase::GetTargetNamespace() const {
  throw CTovikException(
      u"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
      u"(program logic error)");
}

CXmlCollectionBase::CountState CXmlCollectionBase::CheckCount(
    const CSerializationContext& context) const {
  if (context.GetIgnoreInvalidCollectionCounts()) return CountState::kValid;
  const int count = GetCount();
  if (m_maxOccurs != -1 && count > m_maxOccurs) return CountState::kAboveMaximum;
  if (count < m_minOccurs) return CountState::kBelowMinimum;
  return CountState::kValid;
}

bool CXmlCollectionBase::IsValidCount(const CSerializationContext& context) const {
  return CheckCount(context) == CountState::kValid;
}

void CXmlCollectionBase::ValidateCount(const CSerializationContext& context) const {
  const CountState state = CheckCount(context);
  if (state == CountState::kValid) return;
  const bool above = state == CountState::kAboveMaximum;
  throw CTovikValidationException(
      FormatString(above ? u"The Maximum number of [%s] elements allowed in this collection is %d"
                         : u"The Minimum number of [%s] elements allowed in this collection is %d",
                   GetElementName().c_str(), above ? m_maxOccurs : m_minOccurs),
      WString());
}

void CXmlCollectionBase::AddEventListener(IEventSink* listener) {
  if (!listener) throw CTovikInvalidParamException(u"An event listener may not be NULL");
  m_listeners.push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* listener) {
  m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), listener),
                    m_listeners.end());
}

void CXmlCollectionBase::FireOnCollectionChange() {
  ForEach(m_listeners, [&](IEventSink* sink) { FireOnCollectionChangeEvent(sink, this); });
}

void CXmlCollectionBase::FireOnCollectionAdd(void* item) {
  ForEach(m_listeners, [&](IEventSink* sink) { FireOnCollectionAddEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item) {
  ForEach(m_listeners,
          [&](IEventSink* sink) { FireOnCollectionAddCompleteEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(int index) {
  ForEach(m_listeners, [&](IEventSink* sink) { FireOnCollectionRemoveEvent(sink, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(int index) {
  ForEach(m_listeners,
          [&](IEventSink* sink) { FireOnCollectionRemoveCompleteEvent(sink, this, index); });
}

}  // namespace TovikXmlLib16
