#include "tovikxml/binding/generated_class.h"

#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/variant.h"

// What writing and reading share; the two drivers are in generated_class_write.cpp and
// generated_class_read.cpp.
namespace TovikXmlLib16 {
namespace {

template <class Record>
void DeleteTable(Record**& table) {
  if (!table) return;
  for (Record** record = table; *record; ++record) {
    delete *record;
    *record = nullptr;
  }
  delete[] table;
  table = nullptr;
}

}  // namespace

CTovikCriticalSection CXmlGeneratedClass::m_csInit;

CXmlGeneratedClass::CXmlGeneratedClass() = default;

CXmlGeneratedClass::~CXmlGeneratedClass() = default;

void CXmlGeneratedClass::ReadProperty(int propertyIndex, TovikVariant& value) const {
  const_cast<CXmlGeneratedClass*>(this)->AccessProperty(propertyIndex, true, value);
}

int CXmlGeneratedClass::GetClassElementInfoCount() const {
  int count = 0;
  for (CElementInfo** record = GetClassElementInfo(); *record; ++record) ++count;
  return count;
}

bool CXmlGeneratedClass::IsElementInList(const CSerializationContext& context,
                                         CXmlElement* element) const {
  for (CElementInfo** record = GetClassElementInfo(); *record; ++record) {
    if ((*record)->IsThisElement(context, element)) return true;
  }
  return false;
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const {
  for (CElementInfo** record = GetClassElementInfo(); *record; ++record) {
    if ((*record)->MayLeaveChoiceEmpty(this)) return true;
  }
  return false;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& classInfo, CElementInfo**& elements,
                                       CAttributeInfo**& attributes) {
  delete classInfo;
  classInfo = nullptr;
  DeleteTable(elements);
  DeleteTable(attributes);
}

}  // namespace TovikXmlLib16
