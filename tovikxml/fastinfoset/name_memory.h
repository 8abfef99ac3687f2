#ifndef TOVIKXML_FASTINFOSET_NAME_MEMORY_H_
#define TOVIKXML_FASTINFOSET_NAME_MEMORY_H_

#include <cstdint>
#include <memory>
#include <vector>

#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// The indexes of names in the order in which they were written. Documents repeat, so the name that
/// last came behind the present one is looked at before any table. Internal.
class CFINameMemory {
 public:
  /// The index of the name if it comes where it came before, otherwise 0.
  std::uint32_t Recall(WStringView prefix, WStringView namespaceUri, WStringView localName);
  /// Tells the index of a name that could not be recalled.
  void Remember(std::uint32_t index, const WString& prefix, const WString& namespaceUri,
                const WString& localName);

 private:
  struct Name {
    WString prefix;
    WString namespaceUri;
    WString localName;
    std::uint32_t index;
    Name* successor;
  };

  std::vector<std::unique_ptr<Name>> m_names;  // by index
  Name* m_last = nullptr;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_NAME_MEMORY_H_
