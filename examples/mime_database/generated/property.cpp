#include "examples/mime_database/generated/property.h"

#include "examples/mime_database/generated/class_factory.h"
#include "examples/mime_database/generated/generic_icon.h"
#include "examples/mime_database/generated/glob.h"
#include "examples/mime_database/generated/icon.h"
#include "examples/mime_database/generated/magic.h"
#include "examples/mime_database/generated/root_xml.h"
#include "examples/mime_database/generated/treemagic.h"
#include "examples/mime_database/generated/type_reference.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property {
  prop_Icon,
  prop_GenericIcon,
  prop_Glob,
  prop_Magic,
  prop_Treemagic,
  prop_RootXml,
  prop_Alias,
  prop_SubClassOf
};

}  // namespace

struct CProperty::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Choice, xet_PseudoElementNoAttributes, u"properties",
                                       kNamespace, false, false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[9]();
    elements[0] = new CElementInfoChoiceClsOpt(u"icon", kNamespace, prop_Icon, xet_Element,
                                               &CClassFactory::Create, CClassFactory::ct_Icon);
    elements[1] =
        new CElementInfoChoiceClsOpt(u"generic-icon", kNamespace, prop_GenericIcon, xet_Element,
                                     &CClassFactory::Create, CClassFactory::ct_GenericIcon);
    elements[2] = new CElementInfoChoiceClsOpt(u"glob", kNamespace, prop_Glob, xet_Element,
                                               &CClassFactory::Create, CClassFactory::ct_Glob);
    elements[3] = new CElementInfoChoiceClsOpt(u"magic", kNamespace, prop_Magic, xet_Element,
                                               &CClassFactory::Create, CClassFactory::ct_Magic);
    elements[4] =
        new CElementInfoChoiceClsOpt(u"treemagic", kNamespace, prop_Treemagic, xet_Element,
                                     &CClassFactory::Create, CClassFactory::ct_Treemagic);
    elements[5] = new CElementInfoChoiceClsOpt(u"root-XML", kNamespace, prop_RootXml, xet_Element,
                                               &CClassFactory::Create, CClassFactory::ct_RootXml);
    elements[6] =
        new CElementInfoChoiceClsOpt(u"alias", kNamespace, prop_Alias, xet_Element,
                                     &CClassFactory::Create, CClassFactory::ct_TypeReference);
    elements[7] =
        new CElementInfoChoiceClsOpt(u"sub-class-of", kNamespace, prop_SubClassOf, xet_Element,
                                     &CClassFactory::Create, CClassFactory::ct_TypeReference);
    attributes = new CAttributeInfo*[1]();
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

CProperty::CProperty(const wchar* elementName) {
  SetElementName(elementName);
  CProperty::Init();
}

CProperty::~CProperty() = default;

CSmartPtr<CIcon> CProperty::GetIcon() const {
  return m_icon;
}

void CProperty::SetIcon(CIcon* value) {
  Throw_IfElementNameDiffers(value, u"icon");
  Choice_SelectElement(u"icon", value, m_selected);
  m_icon = value;
}

CSmartPtr<CGenericIcon> CProperty::GetGenericIcon() const {
  return m_genericIcon;
}

void CProperty::SetGenericIcon(CGenericIcon* value) {
  Throw_IfElementNameDiffers(value, u"generic-icon");
  Choice_SelectElement(u"generic-icon", value, m_selected);
  m_genericIcon = value;
}

CSmartPtr<CGlob> CProperty::GetGlob() const {
  return m_glob;
}

void CProperty::SetGlob(CGlob* value) {
  Throw_IfElementNameDiffers(value, u"glob");
  Choice_SelectElement(u"glob", value, m_selected);
  m_glob = value;
}

CSmartPtr<CMagic> CProperty::GetMagic() const {
  return m_magic;
}

void CProperty::SetMagic(CMagic* value) {
  Throw_IfElementNameDiffers(value, u"magic");
  Choice_SelectElement(u"magic", value, m_selected);
  m_magic = value;
}

CSmartPtr<CTreemagic> CProperty::GetTreemagic() const {
  return m_treemagic;
}

void CProperty::SetTreemagic(CTreemagic* value) {
  Throw_IfElementNameDiffers(value, u"treemagic");
  Choice_SelectElement(u"treemagic", value, m_selected);
  m_treemagic = value;
}

CSmartPtr<CRootXml> CProperty::GetRootXml() const {
  return m_rootXml;
}

void CProperty::SetRootXml(CRootXml* value) {
  Throw_IfElementNameDiffers(value, u"root-XML");
  Choice_SelectElement(u"root-XML", value, m_selected);
  m_rootXml = value;
}

CSmartPtr<CTypeReference> CProperty::GetAlias() const {
  return m_alias;
}

void CProperty::SetAlias(CTypeReference* value) {
  Throw_IfElementNameDiffers(value, u"alias");
  Choice_SelectElement(u"alias", value, m_selected);
  m_alias = value;
}

CSmartPtr<CTypeReference> CProperty::GetSubClassOf() const {
  return m_subClassOf;
}

void CProperty::SetSubClassOf(CTypeReference* value) {
  Throw_IfElementNameDiffers(value, u"sub-class-of");
  Choice_SelectElement(u"sub-class-of", value, m_selected);
  m_subClassOf = value;
}

WString CProperty::GetTargetNamespace() const {
  return kNamespace;
}

WString CProperty::GetNamespace() const {
  return kNamespace;
}

void CProperty::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Icon:
      if (read) {
        value.SetXmlObject(m_icon);
      } else {
        SetIcon(static_cast<CIcon*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_GenericIcon:
      if (read) {
        value.SetXmlObject(m_genericIcon);
      } else {
        SetGenericIcon(static_cast<CGenericIcon*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_Glob:
      if (read) {
        value.SetXmlObject(m_glob);
      } else {
        SetGlob(static_cast<CGlob*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_Magic:
      if (read) {
        value.SetXmlObject(m_magic);
      } else {
        SetMagic(static_cast<CMagic*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_Treemagic:
      if (read) {
        value.SetXmlObject(m_treemagic);
      } else {
        SetTreemagic(static_cast<CTreemagic*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_RootXml:
      if (read) {
        value.SetXmlObject(m_rootXml);
      } else {
        SetRootXml(static_cast<CRootXml*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_Alias:
      if (read) {
        value.SetXmlObject(m_alias);
      } else {
        SetAlias(static_cast<CTypeReference*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_SubClassOf:
      if (read) {
        value.SetXmlObject(m_subClassOf);
      } else {
        SetSubClassOf(static_cast<CTypeReference*>(value.GetXmlObject().Get()));
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CProperty::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CProperty::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CProperty::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CProperty::Init() {
  m_icon = nullptr;
  m_genericIcon = nullptr;
  m_glob = nullptr;
  m_magic = nullptr;
  m_treemagic = nullptr;
  m_rootXml = nullptr;
  m_alias = nullptr;
  m_subClassOf = nullptr;
  m_selected.clear();
}

}  // namespace MimeDatabase
