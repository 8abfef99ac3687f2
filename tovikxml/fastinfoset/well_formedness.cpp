#include "tovikxml/fastinfoset/well_formedness.h"

#include <algorithm>

#include "tovikxml/base/format_string.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/fastinfoset/octet_input.h"

namespace TovikXmlLib16 {
namespace {

// Surrogates stand in pairs: that is seen to where octets become text.
bool IsForbidden(wchar unit) {
  return unit >= 0xFFFE || (unit < u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r');
}

}  // namespace

void CFIWellFormedness::RequireName(WStringView text) {
  if (m_names.IsName(text)) return;
  RequireText(text);
  ThrowParseFailure(FormatString(u"Invalid name [%s].", WString(text).c_str()));
}

void CFIWellFormedness::RequireText(WStringView text) {
  const auto forbidden = std::find_if(text.begin(), text.end(), IsForbidden);
  if (forbidden == text.end()) return;
  ThrowParseFailure(
      FormatString(u"Invalid character [U+%04X].", static_cast<unsigned>(*forbidden)));
}

void CFIWellFormedness::RequireDistinctAttributes(const CXmlElement& element) {
  m_attributes.clear();
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    const WStringView uri = attribute->GetNamespaceURI();
    WStringView name = attribute->GetLocalName();
    // Of a declaration the prefix is the name.
    if (uri != kXmlnsNamespace) name.remove_prefix(name.find(u':') + 1);
    m_attributes.emplace_back(name, uri);
  }
  std::sort(m_attributes.begin(), m_attributes.end());
  const auto twin = std::adjacent_find(m_attributes.begin(), m_attributes.end());
  if (twin == m_attributes.end()) return;
  ThrowParseFailure(
      FormatString(u"Two attributes of the name [%s].", WString(twin->first).c_str()));
}

}  // namespace TovikXmlLib16
