#ifndef TOVIKXML_DOCUMENT_BORROWED_TEXT_H_
#define TOVIKXML_DOCUMENT_BORROWED_TEXT_H_

#include "tovikxml/document/document.h"

/// The texts of nodes for operations that take a `WString`, without one for each node: the document
/// lends its own until the next such call for any node of it. Internal.
namespace TovikXmlLib16 {

struct CBorrowedText {
  static const WString& Of(const CXmlElement& element) {
    return element.m_text.CopyTo(element.m_document->m_lentText);
  }
  static const WString& Of(const CXmlAttribute& attribute) {
    return attribute.m_value.CopyTo(attribute.m_element->m_document->m_lentText);
  }
};

inline const WString& BorrowText(const CXmlElement& element) {
  return CBorrowedText::Of(element);
}

inline const WString& BorrowValue(const CXmlAttribute& attribute) {
  return CBorrowedText::Of(attribute);
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_BORROWED_TEXT_H_
