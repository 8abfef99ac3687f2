#ifndef TESTS_FASTINFOSET_RANDOM_INFOSET_H_
#define TESTS_FASTINFOSET_RANDOM_INFOSET_H_

#include <random>
#include <set>
#include <utility>

#include "tests/fastinfoset/octets.h"

namespace TovikXmlTest {

/// A random tree, written and told at the same time. Its prefixes are all declared or all but one
/// generated.
class RandomInfoset {
 public:
  explicit RandomInfoset(unsigned seed) : m_random(seed) {}

  CBinaryData Write(const CFastInfosetContext& context, bool declared) {
    m_expected.clear();
    return WriteDocument(
        [&](CFastInfosetWriter& w) {
          if (!declared && Below(2)) w.SetDefaultNamespace(u"urn:0");
          for (const WString number : {u"0", u"1", u"2", u"3"}) {
            if (declared || number == u"1") w.AddNamespaceAlias(u"p" + number, u"urn:" + number);
          }
          Element(w, 0);
        },
        context);
  }
  const WString& Expected() const { return m_expected; }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
  WString Name() { return WString(1 + Below(3), static_cast<wchar>(u'a' + Below(12))); }
  WString Uri() {
    return Below(3) ? WString() : u"urn:" + WString(1, static_cast<wchar>(u'0' + Below(4)));
  }
  WString Qualified(const WString& uri, const WString& name) {
    return uri.empty() ? name : u"{" + uri + u"}" + name;
  }
  std::pair<WString, ItemType> Value() {
    switch (Below(4)) {
      case 0:
        return {CConversions::i4ToString(static_cast<std::int32_t>(m_random())), it_i4};
      case 1:
        return {CConversions::booleanToString(Below(2) == 0), it_boolean};
      case 2:
        return {FormatString(u"2%03d-0%d-1%d", Below(1000), 1 + Below(9), Below(10)), it_date};
      default:
        return {Text(), it_string};
    }
  }
  WString Text() {
    static const WString pieces[] = {u"x", u"\u00e9", u"\u20ac", u"\U0001F600", u" ", u"\n"};
    WString text;
    for (unsigned left = Below(8) == 0 ? Below(400) : Below(10); left > 0; --left) {
      text += pieces[Below(6)];
    }
    return text;
  }
  void Element(CFastInfosetWriter& w, unsigned depth) {
    const WString name = Name();
    const WString uri = Uri();
    w.WriteStartElement(name, uri);
    m_expected += Qualified(uri, name);
    std::set<WString> written;
    for (unsigned left = Below(4); left > 0; --left) {
      const WString attributeName = Name();
      const WString attributeUri = Uri();
      if (!written.insert(Qualified(attributeUri, attributeName)).second) continue;
      const auto [value, type] = Value();
      w.WriteAttribute(attributeName, attributeUri, value, type);
      m_expected += u" " + Qualified(attributeUri, attributeName) + u"=" + value;
    }
    const auto [text, type] = Value();
    w.WriteText(text, type);
    if (!text.empty()) m_expected += u"'" + text + u"'";
    for (unsigned left = depth > 6 ? 0 : Below(6); left > 0; --left) {
      m_expected += u"(";
      Element(w, depth + 1);
      m_expected += u")";
    }
    w.WriteEndElement();
  }

  std::mt19937 m_random;
  WString m_expected;
};

}  // namespace TovikXmlTest

#endif  // TESTS_FASTINFOSET_RANDOM_INFOSET_H_
