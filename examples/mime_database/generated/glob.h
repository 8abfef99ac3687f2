#ifndef EXAMPLES_MIME_DATABASE_GENERATED_GLOB_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_GLOB_H_

#include <cstdint>

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// A pattern of file names.
class CGlob : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CGlob(const TovikXmlLib16::wchar* elementName = u"glob");
  ~CGlob() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetPattern() const { return m_pattern; }
  void SetPattern(const TovikXmlLib16::WString& value);
  std::int32_t GetWeight() const { return m_weight; }
  void SetWeight(std::int32_t value);
  bool IsValidWeight() const { return m_weightValid; }
  void SetValidWeight(bool valid) { m_weightValid = valid; }
  bool GetCaseSensitive() const { return m_caseSensitive; }
  void SetCaseSensitive(bool value);
  bool IsValidCaseSensitive() const { return m_caseSensitiveValid; }
  void SetValidCaseSensitive(bool valid) { m_caseSensitiveValid = valid; }

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

  TovikXmlLib16::WString m_pattern;
  std::int32_t m_weight{};
  bool m_weightValid = false;
  bool m_caseSensitive{};
  bool m_caseSensitiveValid = false;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_GLOB_H_
