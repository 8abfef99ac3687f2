#include "tests/support/tree_text.h"

namespace TovikXmlTest {

using namespace TovikXmlLib16;

namespace {

void AppendDescription(WString& out, const CXmlElement& element, BlankTexts blankTexts) {
  const auto append = [&](const WString& uri, const WString& name) {
    if (!uri.empty()) out.append(u"{" + uri + u"}");
    out.append(name);
  };
  append(element.GetNamespaceURI(), element.GetLocalName());
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    out.append(u" ");
    append(attribute->GetNamespaceURI(), attribute->GetLocalName());
    out.append(u"=" + attribute->GetValue());
  }
  const bool isBlank = element.GetText().find_first_not_of(u" \t\r\n") == WString::npos;
  const bool isShown = !isBlank || blankTexts == BlankTexts::kKept;
  if (isShown && !element.GetText().empty()) out.append(u"'" + element.GetText() + u"'");
  for (const CXmlElement* child = element.GetFirstElement(); child;
       child = child->GetNextSiblingElement()) {
    out.append(u"(");
    AppendDescription(out, *child, blankTexts);
    out.append(u")");
  }
}

}  // namespace

WString Describe(const CXmlDocument& document, BlankTexts blankTexts) {
  WString out;
  if (document.GetDocumentElement())
    AppendDescription(out, *document.GetDocumentElement(), blankTexts);
  return out;
}

}  // namespace TovikXmlTest
