#ifndef TOVIKXML_SETTINGS_JSON_CONTEXT_H_
#define TOVIKXML_SETTINGS_JSON_CONTEXT_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// How much of the XML infoset JSON output keeps.
enum JsonRoundTrip : int {
  /// Attributes and text become members with bare names. No namespaces.
  jrt_Bare = 0,
  /// Attributes are marked with "@", text is "#text". No namespaces.
  jrt_Marked = 1,
  /// As `jrt_Marked`, with namespaces and `xsi:type` kept, so that reading compares namespaces.
  jrt_Full = 2
};

/// The JSON settings of a `CSerializationContext`, reached through its `GetJsonContext()`.
class TOVIKXML_EXPORT CJsonContext {
 public:
  CJsonContext() = default;
  CJsonContext(const CJsonContext&) = default;
  CJsonContext& operator=(const CJsonContext&) = default;
  virtual ~CJsonContext() = default;

  JsonRoundTrip GetSupportRoundtrip() const { return m_supportRoundtrip; }
  void SetSupportRoundtrip(JsonRoundTrip mode) { m_supportRoundtrip = mode; }

  /// A name that is not empty makes JSON input read as if it stood in an object with that one
  /// member.
  WString GetRootElementName() const { return m_rootElementName; }
  void SetRootElementName(const wchar* name) { m_rootElementName = name ? name : u""; }

  bool GetAllowComments() const { return m_allowComments; }
  /// Sets whether the reader skips comments; the name is that of the getter.
  void GetAllowComments(bool allow) { m_allowComments = allow; }

 private:
  JsonRoundTrip m_supportRoundtrip = jrt_Full;
  WString m_rootElementName;
  bool m_allowComments = true;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_SETTINGS_JSON_CONTEXT_H_
