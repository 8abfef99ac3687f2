#include "tovikxml/fastinfoset/name_memory.h"

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {

std::uint32_t CFINameMemory::Recall(WStringView prefix, WStringView namespaceUri,
                                    WStringView localName) {
  Name* name = m_last ? m_last->successor : nullptr;
  if (!name || !EqualText(name->localName, localName) ||
      !EqualText(name->namespaceUri, namespaceUri) || !EqualText(name->prefix, prefix)) {
    return 0;
  }
  m_last = name;
  return name->index;
}

void CFINameMemory::Remember(std::uint32_t index, const WString& prefix,
                             const WString& namespaceUri, const WString& localName) {
  if (m_names.size() <= index) m_names.resize(index + 1);
  std::unique_ptr<Name>& name = m_names[index];
  if (!name) name.reset(new Name{prefix, namespaceUri, localName, index, nullptr});
  if (m_last) m_last->successor = name.get();
  m_last = name.get();
}

}  // namespace TovikXmlLib16
