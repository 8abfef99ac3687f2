#ifndef EXAMPLES_MIME_DATABASE_GENERATED_COMMENT_COL_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_COMMENT_COL_H_

#include "examples/mime_database/generated/comment.h"

namespace MimeDatabase {

class CCommentCol : public TovikXmlLib16::CXmlCollection {
 public:
  CCommentCol(const TovikXmlLib16::wchar* elementName, const TovikXmlLib16::wchar* namespaceUri,
              int minOccurs, int maxOccurs);

  TovikXmlLib16::CSmartPtr<CComment> Add();
  void Add(CComment* item);
  TovikXmlLib16::CSmartPtr<CComment> Item(int index) const;
  TovikXmlLib16::CTovikIterator<CComment> begin() const;
  TovikXmlLib16::CTovikIterator<CComment> end() const;

 protected:
  void ToXml_Int(TovikXmlLib16::CXmlWriter* writer, bool isRoot,
                 const TovikXmlLib16::wchar* namespaceUri,
                 const TovikXmlLib16::CSerializationContext& context,
                 bool isOptionalChoice) const override;
  TovikXmlLib16::CXmlElement* FromXml_Int(TovikXmlLib16::CXmlElement* parent,
                                          TovikXmlLib16::CXmlElement* firstChild,
                                          const TovikXmlLib16::CSerializationContext& context,
                                          bool isOptionalChoice) override;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_COMMENT_COL_H_
