#include "tovikxml/collections/collection_base.h"

#include <algorithm>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
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

void CXmlCollectionBase::Listeners::Remove(IEventSink* listener) {
  std::replace(m_sinks.begin(), m_sinks.end(), listener, static_cast<IEventSink*>(nullptr));
  if (m_telling == 0) DropGone();
}

template <class Fire>
void CXmlCollectionBase::Listeners::Tell(Fire fire) {
  struct Ending {
    Listeners& listeners;
    ~Ending() {
      if (--listeners.m_telling == 0) listeners.DropGone();
    }
  };
  if (m_sinks.empty()) return;
  ++m_telling;
  const Ending ending{*this};
  for (std::size_t i = 0; i < m_sinks.size(); ++i) {
    if (m_sinks[i]) fire(m_sinks[i]);
  }
}

void CXmlCollectionBase::Listeners::DropGone() {
  m_sinks.erase(std::remove(m_sinks.begin(), m_sinks.end(), nullptr), m_sinks.end());
}

void CXmlCollectionBase::AddEventListener(IEventSink* listener) {
  if (!listener) throw CTovikInvalidParamException(u"An event listener may not be NULL");
  m_listeners.Add(listener);
}

void CXmlCollectionBase::RemoveEventListener(IEventSink* listener) {
  m_listeners.Remove(listener);
}

void CXmlCollectionBase::FireOnCollectionChange() {
  m_listeners.Tell([&](IEventSink* sink) { FireOnCollectionChangeEvent(sink, this); });
}

void CXmlCollectionBase::FireOnCollectionAdd(void* item) {
  m_listeners.Tell([&](IEventSink* sink) { FireOnCollectionAddEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionAddComplete(void* item) {
  m_listeners.Tell([&](IEventSink* sink) { FireOnCollectionAddCompleteEvent(sink, this, item); });
}

void CXmlCollectionBase::FireOnCollectionRemove(int index) {
  m_listeners.Tell([&](IEventSink* sink) { FireOnCollectionRemoveEvent(sink, this, index); });
}

void CXmlCollectionBase::FireOnCollectionRemoveComplete(int index) {
  m_listeners.Tell(
      [&](IEventSink* sink) { FireOnCollectionRemoveCompleteEvent(sink, this, index); });
}

}  // namespace TovikXmlLib16
