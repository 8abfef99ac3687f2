#ifndef EXAMPLES_ORDERS_GENERATED_ITEM_COL_H_
#define EXAMPLES_ORDERS_GENERATED_ITEM_COL_H_

#include "examples/orders/generated/item.h"

namespace Orders {

class CItemCol : public TovikXmlLib16::CXmlCollection {
 public:
  CItemCol(const TovikXmlLib16::wchar* elementName, const TovikXmlLib16::wchar* namespaceUri,
           int minOccurs, int maxOccurs);

  TovikXmlLib16::CSmartPtr<CItem> Add();
  void Add(CItem* item);
  TovikXmlLib16::CSmartPtr<CItem> Item(int index) const;
  TovikXmlLib16::CTovikIterator<CItem> begin() const;
  TovikXmlLib16::CTovikIterator<CItem> end() const;

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

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_ITEM_COL_H_
