#ifndef TOVIKXML_FASTINFOSET_WELL_FORMEDNESS_H_
#define TOVIKXML_FASTINFOSET_WELL_FORMEDNESS_H_

#include <utility>
#include <vector>

#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/name_check.h"

namespace TovikXmlLib16 {

class CXmlElement;

/// What the format lets through and XML text could not say. Each operation throws "Failed to parse
/// FastInfoset. ...". Internal.
class CFIWellFormedness {
 public:
  /// "Invalid name [%s]." unless the text is a name without a colon.
  void RequireName(WStringView text);
  /// "Invalid character [U+%04X]." for a character that XML 1.0 has not.
  static void RequireText(WStringView text);
  /// "Two attributes of the name [%s]."; a prefix in a local name does not count.
  void RequireDistinctAttributes(const CXmlElement& element);

 private:
  CXmlNameCheck m_names;
  std::vector<std::pair<WStringView, WStringView>> m_attributes;  // room that is kept
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_WELL_FORMEDNESS_H_
