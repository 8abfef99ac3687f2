#ifndef TESTS_COLLECTIONS_LISTENER_H_
#define TESTS_COLLECTIONS_LISTENER_H_

#include <string>
#include <utility>

#include "tovikxml/tovikxml.h"

namespace TovikXmlTest {

using namespace TovikXmlLib16;

/// Writes what it hears as a line: A, a for adding with the number of items then stored, R, r for
/// removing with the index, C for a change.
class Listener : public IEventSink {
 public:
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override {
    m_heard += "CAaRr"[type];
    if (type == CollectionRemove || type == CollectionRemoveComplete) {
      m_heard += data ? std::to_string(*static_cast<int*>(data)) : "-";
    } else if (data) {
      m_heard += std::to_string(static_cast<CXmlCollectionBase*>(sender)->GetCount());
    }
    if (refuses && type == CollectionAdd) throw CTovikInvalidValueException(u"no");
  }
  /// What was heard since the last call.
  std::string Heard() { return std::exchange(m_heard, std::string()); }

  bool refuses = false;

 private:
  std::string m_heard;
};

}  // namespace TovikXmlTest

#endif  // TESTS_COLLECTIONS_LISTENER_H_
