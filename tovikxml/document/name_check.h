#ifndef TOVIKXML_DOCUMENT_NAME_CHECK_H_
#define TOVIKXML_DOCUMENT_NAME_CHECK_H_

#include <memory>
#include <string_view>

#include "tovikxml/base/wide_string.h"

struct XML_ParserStruct;

namespace TovikXmlLib16 {

/// Tells names without a colon (Namespaces in XML 1.0, NCName) from other texts. Beyond ASCII the
/// parser of XML text is asked, so that both are of one mind. Internal.
class CXmlNameCheck {
 public:
  CXmlNameCheck();
  ~CXmlNameCheck();

  bool IsName(WStringView text);

 private:
  struct FreeParser {
    void operator()(XML_ParserStruct* parser) const;
  };

  bool Parse(std::string_view utf8);

  std::unique_ptr<XML_ParserStruct, FreeParser> m_parser;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_NAME_CHECK_H_
