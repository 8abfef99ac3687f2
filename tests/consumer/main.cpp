// Uses the installed package from C++17: a class of its own, the records, the values.

#include <iostream>

#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace {

class CGreeting : public CXmlGeneratedClass {
 public:
  CGreeting() { SetElementName(u"greeting"); }
  CXmlObjectBase* GetBase() override { return this; }
  WString text;

 protected:
  WString GetTargetNamespace() const override { return u""; }
  WString GetNamespace() const override { return u""; }
  void AccessProperty(int, bool read, TovikVariant& value) override {
    if (read) {
      value.SetString(text);
    } else {
      text = value.GetString();
    }
  }
  CParentElementInfo* GetClassInfo() const override { return &Info(); }
  CElementInfo** GetClassElementInfo() const override {
    static CElementInfoSeqPrimMnd record(u"text", u"", 0, false, it_string, nullptr,
                                         CWhitespaceUtils::ws_preserve, {}, nullptr);
    static CElementInfo* records[] = {&record, nullptr};
    return records;
  }
  CAttributeInfo** GetClassAttributeInfo() const override {
    static CAttributeInfo* records[] = {nullptr};
    return records;
  }
  void Init() override { text.clear(); }

 private:
  static CParentElementInfo& Info() {
    static CParentElementInfo info(xgt_Sequence, xet_Element, u"greeting", u"", true, false, -1,
                                   it_invalid, nullptr, false);
    return info;
  }
};

}  // namespace

// What an application reaches beside its classes must be exported too. The name of the namespace is
// the application's own.
namespace detail {

bool ValuesWork() {
  const CDecimal total = CDecimal(u"0.1") + CDecimal(u"0.2");
  const CDateTime date(2024, 2, 29);
  const CSmartPtr<CdecimalCol> list(new CdecimalCol(u"d", u"", 0, -1, u"", -1, -1, u"", u"", u"",
                                                    u"", -1, -1, -1, CWhitespaceUtils::ws_collapse,
                                                    u""));
  list->Add(total);
  CNamespaceAliasMap aliases;
  aliases.Add(u"p", u"urn:p");
  CXmlDocument document;
  document.LoadXml("<a><b/></a>");
  const CSmartPtr<CAttributeCol> attributes(new CAttributeCol(u"", u"##any", u""));
  attributes->Add(u"name");
  return list->Item(0) == CDecimal(u"0.3") && date.ToString() == u"2024-02-29" &&
         aliases.DoesAliasExist(u"p") &&
         document.GetDocumentElement()->GetFirstElement()->GetXPath() == u"/a/b" &&
         TovikVariant().IsValid() == false && 2u + total > 2 && CBigInteger(1) + 1 == 2;
}

}  // namespace detail

// A class of exceptions must be the same one on both sides of a shared library.
bool TextWorks() {
  try {
    FromUtf8("\xff");
  } catch (const CTovikInvalidValueException&) {
    return FromUtf8(ToUtf8(u"\u00e4")) == u"\u00e4";
  }
  return false;
}

// Another family of lists, with a template of its own.
bool DatesWork() {
  const CSmartPtr<CdateCol> list(new CdateCol(u"d", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1,
                                              -1, -1, CWhitespaceUtils::ws_collapse, u""));
  list->Add(CDateTime(2024, 2, 29));
  return list->Item(0).GetDay() == 29;
}

int main() {
  SetGeneratorVersion(16, 1);
  if (!detail::ValuesWork() || !TextWorks() || !DatesWork()) return 1;
  const CSerializationContext context;
  const CSmartPtr<CGreeting> greeting(new CGreeting);
  greeting->FromXml("<greeting><text>Hello</text></greeting>", context);
  greeting->text += u", world";
  const WString xml = greeting->ToXml(false, false, EOL_LF, context);
  greeting->FromJson(greeting->ToJson(false, EOL_LF, context).c_str(), context);
  std::cout << DisplayUtf8(xml) << '\n';
  try {
    greeting->FromXml("<greeting/>", context);
    return 1;
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
  return xml == u"<greeting><text>Hello, world</text></greeting>" ? 0 : 1;
}
