#ifndef EXAMPLES_MIME_DATABASE_GENERATED_TREEMAGIC_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_TREEMAGIC_H_

#include <cstdint>

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

class CTreematch;
class CTreematchCol;

/// Files by which a directory is recognised.
class CTreemagic : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CTreemagic(const TovikXmlLib16::wchar* elementName = u"treemagic");
  ~CTreemagic() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  std::int32_t GetPriority() const { return m_priority; }
  void SetPriority(std::int32_t value);
  bool IsValidPriority() const { return m_priorityValid; }
  void SetValidPriority(bool valid) { m_priorityValid = valid; }
  TovikXmlLib16::CSmartPtr<CTreematchCol> GetMatches() const;

 protected:
  TovikXmlLib16::WString GetTargetNamespace() const override;
  TovikXmlLib16::WString GetNamespace() const override;
  void AccessProperty(int propertyIndex, bool read, TovikXmlLib16::TovikVariant& value) override;
  TovikXmlLib16::CParentElementInfo* GetClassInfo() const override;
  TovikXmlLib16::CElementInfo** GetClassElementInfo() const override;
  TovikXmlLib16::CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  struct MetaData;

  std::int32_t m_priority{};
  bool m_priorityValid = false;
  TovikXmlLib16::CSmartPtr<CTreematchCol> m_matches;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_TREEMAGIC_H_
