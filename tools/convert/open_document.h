#ifndef TOVIKXML_TOOLS_CONVERT_OPEN_DOCUMENT_H_
#define TOVIKXML_TOOLS_CONVERT_OPEN_DOCUMENT_H_

#include "tools/convert/options.h"
#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// A whole document as open content: the entry points read and write its root, with the prefixes
/// that the context names.
///
/// Other than plain open content it drops the white space between elements, lets siblings of one
/// name be an array in JSON, and tells the kinds of values where the options ask for that.
class COpenDocument : public TovikXmlLib16::CElement {
 public:
  explicit COpenDocument(const Options& options);

 protected:
  ~COpenDocument() override = default;

  void ToXml_Int(TovikXmlLib16::CXmlWriter* writer, bool isRoot,
                 const TovikXmlLib16::wchar* namespaceUri,
                 const TovikXmlLib16::CSerializationContext& context,
                 bool isOptionalChoice) const override;
  TovikXmlLib16::CXmlElement* FromXml_Int(TovikXmlLib16::CXmlElement* parent,
                                          TovikXmlLib16::CXmlElement* firstChild,
                                          const TovikXmlLib16::CSerializationContext& context,
                                          bool isOptionalChoice) override;

 private:
  using TypeOf = TovikXmlLib16::ItemType (*)(const TovikXmlLib16::WString& value);

  void Write(TovikXmlLib16::CXmlWriter& writer, const TovikXmlLib16::CElement& element) const;
  void WriteChildren(TovikXmlLib16::CXmlWriter& writer,
                     const TovikXmlLib16::CElementCol& children) const;
  void WriteText(TovikXmlLib16::CXmlWriter& writer, const TovikXmlLib16::WString& text) const;

  TypeOf m_typeOf;
  bool m_isXmlText;
};

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_OPEN_DOCUMENT_H_
