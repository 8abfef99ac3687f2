#ifndef EXAMPLES_MIME_DATABASE_GENERATED_MATCH_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_MATCH_H_

#include "examples/mime_database/generated/enumerations.h"
#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

class CMatch;
class CMatchCol;

/// Bytes at an offset, and matches that must hold besides.
class CMatch : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CMatch(const TovikXmlLib16::wchar* elementName = u"match");
  ~CMatch() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetOffset() const { return m_offset; }
  void SetOffset(const TovikXmlLib16::WString& value);
  MatchType GetType() const { return m_type; }
  void SetType(MatchType value);
  const TovikXmlLib16::WString& GetValue() const { return m_value; }
  void SetValue(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetMask() const { return m_mask; }
  void SetMask(const TovikXmlLib16::WString& value);
  bool IsValidMask() const { return m_maskValid; }
  void SetValidMask(bool valid) { m_maskValid = valid; }
  TovikXmlLib16::CSmartPtr<CMatchCol> GetMatches() const;

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

  TovikXmlLib16::WString m_offset;
  MatchType m_type{};
  TovikXmlLib16::WString m_value;
  TovikXmlLib16::WString m_mask;
  bool m_maskValid = false;
  TovikXmlLib16::CSmartPtr<CMatchCol> m_matches;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_MATCH_H_
