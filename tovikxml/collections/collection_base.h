#ifndef TOVIKXML_COLLECTIONS_COLLECTION_BASE_H_
#define TOVIKXML_COLLECTIONS_COLLECTION_BASE_H_

#include <cstdint>
#include <vector>

#include "tovikxml/binding/object_base.h"

namespace TovikXmlLib16 {

/// What all collections have in common: the name and namespace of their items' elements, the
/// occurrence limits of the schema, and listeners. A collection writes no element of its own.
///
/// Limits are checked when a collection is written and after it has been read, never when an item
/// is added. Listeners are not owned and must leave before they die.
class TOVIKXML_EXPORT CXmlCollectionBase : public CXmlObjectBase {
 public:
  CXmlObjectBase* GetBase() override;
  using CXmlObjectBase::GetBase;

  virtual int GetCount() const = 0;
  virtual void Clear() = 0;
  virtual void Remove(int index) = 0;
  /// Throws `CTovikValidationException` "The Maximum number of [%s] elements allowed in this
  /// collection is %d" or its twin for the minimum. Silent if the context ignores counts.
  virtual void ValidateCount(const CSerializationContext& context) const;
  virtual bool IsValidCount(const CSerializationContext& context) const;

  int GetMinOccurs() const { return m_minOccurs; }
  /// -1 means unbounded.
  int GetMaxOccurs() const { return m_maxOccurs; }

  /// A listener added twice hears everything twice. Listeners may come and go while they are being
  /// told: who comes hears of the present event too, who has gone hears nothing more.
  void AddEventListener(IEventSink* listener);
  /// Ends every subscription of the listener.
  void RemoveEventListener(IEventSink* listener);

 protected:
  CXmlCollectionBase() = default;
  CXmlCollectionBase(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                     int maxOccurs);

  WString GetNamespace() const override;
  /// A collection has no element of its own; throws `CTovikException`.
  WString GetTargetNamespace() const override;

  // Each fires its event to every listener in the order in which they were added.
  void FireOnCollectionChange();
  void FireOnCollectionAdd(void* item);
  void FireOnCollectionAddComplete(void* item);
  void FireOnCollectionRemove(int index);
  void FireOnCollectionRemoveComplete(int index);

 private:
  enum class CountState { kValid, kAboveMaximum, kBelowMinimum };

  // Those who listen to one collection; a copy of the collection has none.
  class Listeners {
   public:
    Listeners() = default;
    Listeners(const Listeners& /*other*/) {}
    Listeners& operator=(const Listeners& /*other*/) { return *this; }
    void Add(IEventSink* listener) { m_sinks.push_back(listener); }
    void Remove(IEventSink* listener);
    template <class Fire>
    void Tell(Fire fire);

   private:
    void DropGone();

    std::vector<IEventSink*> m_sinks;  // null where one has gone while being told
    int m_telling = 0;
  };

  CountState CheckCount(const CSerializationContext& context) const;

  WString m_namespace;
  Listeners m_listeners;
  std::int32_t m_minOccurs = 0;
  std::int32_t m_maxOccurs = -1;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_COLLECTION_BASE_H_
