#ifndef EXAMPLES_ORDERS_GENERATED_ORDER_COL_H_
#define EXAMPLES_ORDERS_GENERATED_ORDER_COL_H_

#include "examples/orders/generated/order.h"

namespace Orders {

class COrderCol : public TovikXmlLib16::CXmlCollection {
 public:
  COrderCol(const TovikXmlLib16::wchar* elementName, const TovikXmlLib16::wchar* namespaceUri,
            int minOccurs, int maxOccurs);

  TovikXmlLib16::CSmartPtr<COrder> Add();
  void Add(COrder* item);
  TovikXmlLib16::CSmartPtr<COrder> Item(int index) const;
  TovikXmlLib16::CTovikIterator<COrder> begin() const;
  TovikXmlLib16::CTovikIterator<COrder> end() const;

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

#endif  // EXAMPLES_ORDERS_GENERATED_ORDER_COL_H_
