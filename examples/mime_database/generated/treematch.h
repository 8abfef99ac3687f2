#ifndef EXAMPLES_MIME_DATABASE_GENERATED_TREEMATCH_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_TREEMATCH_H_

#include "examples/mime_database/generated/enumerations.h"
#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

class CTreematch;
class CTreematchCol;

/// A file in a directory, and matches that must hold besides.
class CTreematch : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CTreematch(const TovikXmlLib16::wchar* elementName = u"treematch");
  ~CTreematch() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetPath() const { return m_path; }
  void SetPath(const TovikXmlLib16::WString& value);
  TreematchType GetType() const { return m_type; }
  void SetType(TreematchType value);
  bool IsValidType() const { return m_typeValid; }
  void SetValidType(bool valid) { m_typeValid = valid; }
  bool GetMatchCase() const { return m_matchCase; }
  void SetMatchCase(bool value);
  bool IsValidMatchCase() const { return m_matchCaseValid; }
  void SetValidMatchCase(bool valid) { m_matchCaseValid = valid; }
  bool GetExecutable() const { return m_executable; }
  void SetExecutable(bool value);
  bool IsValidExecutable() const { return m_executableValid; }
  void SetValidExecutable(bool valid) { m_executableValid = valid; }
  bool GetNonEmpty() const { return m_nonEmpty; }
  void SetNonEmpty(bool value);
  bool IsValidNonEmpty() const { return m_nonEmptyValid; }
  void SetValidNonEmpty(bool valid) { m_nonEmptyValid = valid; }
  const TovikXmlLib16::WString& GetMimetype() const { return m_mimetype; }
  void SetMimetype(const TovikXmlLib16::WString& value);
  bool IsValidMimetype() const { return m_mimetypeValid; }
  void SetValidMimetype(bool valid) { m_mimetypeValid = valid; }
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

  TovikXmlLib16::WString m_path;
  TreematchType m_type{};
  bool m_typeValid = false;
  bool m_matchCase{};
  bool m_matchCaseValid = false;
  bool m_executable{};
  bool m_executableValid = false;
  bool m_nonEmpty{};
  bool m_nonEmptyValid = false;
  TovikXmlLib16::WString m_mimetype;
  bool m_mimetypeValid = false;
  TovikXmlLib16::CSmartPtr<CTreematchCol> m_matches;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_TREEMATCH_H_
