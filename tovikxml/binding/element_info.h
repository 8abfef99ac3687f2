#ifndef TOVIKXML_BINDING_ELEMENT_INFO_H_
#define TOVIKXML_BINDING_ELEMENT_INFO_H_

#include <type_traits>

#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/binding/class_info.h"

/// @file
/// The element records. The name of a record class spells out what it stands for:
///
///     CElementInfo + group + kind + occurrence
///
///     group        Seq, All, Choice   the content model that the record stands in
///     kind         Prim               a primitive value
///                  Enum               an enumeration
///                  Cls                an object of one known class
///                  AbsCls             an object whose class is chosen by looking at the element
///                  Untpd              a wildcard (xs:any)
///     occurrence   Mnd, Opt, Col      exactly one; at most one; repeated, held in a collection
///
/// All constructors begin with name, namespace and property index; the kind adds the arguments
/// that its class below takes. `Choice` has no `Mnd`.
namespace TovikXmlLib16Data {

/// Makes the object of a class record, from the record's factory argument and element name.
using ClassFactory = CSmartPtr<CXmlObjectBase> (*)(int factoryArgument, const wchar* elementName);
/// Chooses and makes an object by looking at the element; null if none suits.
using AbstractClassFactory = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);

namespace tovikxml_detail {

/// One attempt to read a record: the arguments of `ElementFromXml`.
struct Reading {
  const CSerializationContext& context;
  CXmlGeneratedClass* owner;
  CXmlElement* parent;
  CXmlElement** child;
  const wchar* defaultNamespace;
  XmlElementType parentType;

  bool IsInRealElement() const { return parentType == xet_Element; }
};

// The kinds: what a record of one occurrence holds, how it writes its property (`Write` tells
// whether there was something to write), and how it reads in each place.

/// A value that is written as text.
class TOVIKXML_EXPORT SimpleKind : public CElementInfo {
 protected:
  using CElementInfo::CElementInfo;
  bool Write(const CSerializationContext& context, const CXmlGeneratedClass* owner,
             CXmlWriter* writer, bool isOptionalChoice) const;
  bool ReadSeqMnd(const Reading& reading) const;
  bool ReadSeqOpt(const Reading& reading) const;
  bool ReadAllMnd(const Reading& reading) const { return ReadIfMatching(reading); }
  bool ReadAllOpt(const Reading& reading) const { return ReadIfMatching(reading); }
  bool ReadChoiceOpt(const Reading& reading) const { return ReadIfMatching(reading); }

 private:
  bool ReadIfMatching(const Reading& reading) const;
  void ReadValue(const Reading& reading) const;
};

/// A primitive value. `defaultValue` and `formatOverride` may be null.
class TOVIKXML_EXPORT PrimKind : public SimpleKind {
 public:
  PrimKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex, bool nillable,
           ItemType itemType, const wchar* formatOverride,
           CWhitespaceUtils::WhitespaceRule whitespaceRule,
           const CPrimitiveRestrictions& restrictions, const wchar* defaultValue);
};

/// An enumeration, which a property holds as a number.
class TOVIKXML_EXPORT EnumKind : public SimpleKind {
 public:
  EnumKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex, bool nillable,
           EnumToText enumToText, TextToEnum textToEnum, const wchar* defaultValue);
};

/// What records of objects share: whether the object has tags of its own, and its attributes.
class TOVIKXML_EXPORT ObjectKind : public CElementInfo {
 public:
  void PseudoChildAttributeToXml(const CSerializationContext& context,
                                 const CXmlGeneratedClass* owner,
                                 CXmlWriter* writer) const override;

 protected:
  ObjectKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
             XmlElementType elementType);

  bool Write(const CSerializationContext& context, const CXmlGeneratedClass* owner,
             CXmlWriter* writer, bool isOptionalChoice) const;
  /// Reads the object from the element at the cursor and moves the cursor behind it.
  void ReadReal(CXmlObjectBase* object, const Reading& reading, bool isOptionalChoice) const;
  /// Lets the object read on at the cursor; gives the cursor behind what it took.
  CXmlElement* ReadPseudo(CXmlObjectBase* object, const Reading& reading) const;
  void Store(CXmlObjectBase* object, const Reading& reading) const;
  bool HasOwnElement() const { return m_elementType == xet_Element; }
  XmlElementType GetElementType() const { return m_elementType; }

 private:
  XmlElementType m_elementType;
};

/// An object of one known class.
class TOVIKXML_EXPORT ClsKind : public ObjectKind {
 public:
  /// `mustConsume`: a pseudo element with mandatory content, whose reading must move the cursor.
  /// It counts for mandatory records, which never call the factory.
  ClsKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
          XmlElementType elementType, ClassFactory factory, int factoryArgument,
          bool mustConsume = false);

 protected:
  bool ReadSeqMnd(const Reading& reading) const;
  bool ReadSeqOpt(const Reading& reading) const;
  bool ReadAllMnd(const Reading& reading) const;
  bool ReadAllOpt(const Reading& reading) const { return ReadOptional(reading); }
  bool ReadChoiceOpt(const Reading& reading) const;
  bool ValidateMnd(bool seen, bool parentIsElement) const;

 private:
  CSmartPtr<CXmlObjectBase> Make() const;
  CSmartPtr<CXmlObjectBase> GetObject(const CXmlGeneratedClass* owner) const;
  bool ReadOptional(const Reading& reading) const;
  bool ReadMandatoryPseudo(CXmlObjectBase* object, const Reading& reading) const;

  ClassFactory m_factory;
  int m_factoryArgument;
  bool m_mustConsume;
};

/// An object whose class is chosen by looking at the element.
class TOVIKXML_EXPORT AbsClsKind : public ObjectKind {
 public:
  /// `unused` is there for generated code and is not read.
  AbsClsKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
             XmlElementType elementType, AbstractClassFactory factory, int unused = 0);

 protected:
  bool ReadSeqMnd(const Reading& reading) const;
  bool ReadSeqOpt(const Reading& reading) const;
  bool ReadAllMnd(const Reading& reading) const { return ReadAll(reading); }
  bool ReadAllOpt(const Reading& reading) const { return ReadAll(reading); }
  bool ReadChoiceOpt(const Reading& reading) const;

 private:
  /// The object for the element at the cursor; null if it does not match or none suits.
  CSmartPtr<CXmlObjectBase> MakeIfMatching(const Reading& reading) const;
  void ReadAndStore(CXmlObjectBase* object, const Reading& reading) const;
  bool ReadAll(const Reading& reading) const;

  AbstractClassFactory m_factory;
};

/// A wildcard: an object of open content, which has tags of its own.
class TOVIKXML_EXPORT UntpdKind : public ObjectKind {
 public:
  /// `anyNamespaces` is the wildcard's `namespace` attribute. The name "AnyElement" takes any local
  /// name.
  UntpdKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
            const wchar* anyNamespaces, const wchar* targetNamespace);

 protected:
  bool ReadSeqMnd(const Reading& reading) const;
  bool ReadSeqOpt(const Reading& reading) const;
  bool ReadAllMnd(const Reading& reading) const;
  bool ReadAllOpt(const Reading& reading) const { return ReadOptional(reading); }
  bool ReadChoiceOpt(const Reading& reading) const;

 private:
  bool UsesDefaultNamespace() const final { return true; }
  CSmartPtr<CXmlObjectBase> Make(const Reading& reading) const;
  /// Lets the object read the element at the cursor, if its name suits; gives the cursor behind
  /// what it took.
  CXmlElement* Read(CXmlObjectBase* object, const Reading& reading) const;
  bool ReadOptional(const Reading& reading) const;
  bool ReadMandatory(const Reading& reading) const;

  WString m_anyNamespaces;
  WString m_targetNamespace;
};

// Group and occurrence, joined with a kind.

/// What must be there once.
template <class Kind>
class MndRecord : public Kind {
 public:
  using Kind::Kind;
  bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                    CXmlWriter* writer) const override {
    this->RequirePresent(Kind::Write(context, owner, writer, false));
    return true;
  }

 private:
  bool IsMandatory() const final { return true; }
};

/// What may be there once.
template <class Kind>
class OptRecord : public Kind {
 public:
  using Kind::Kind;
  bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                    CXmlWriter* writer) const override {
    return Kind::Write(context, owner, writer, false);
  }
};

/// A mandatory record of a sequence.
template <class Kind>
class SeqMnd : public MndRecord<Kind> {
 public:
  using MndRecord<Kind>::MndRecord;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override {
    return Kind::ReadSeqMnd({context, owner, parent, child, defaultNamespace, parentType});
  }
};

/// An optional record of a sequence.
template <class Kind>
class SeqOpt : public OptRecord<Kind> {
 public:
  using OptRecord<Kind>::OptRecord;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override {
    return Kind::ReadSeqOpt({context, owner, parent, child, defaultNamespace, parentType});
  }
};

/// A mandatory record of an all group.
template <class Kind>
class AllMnd : public MndRecord<Kind> {
 public:
  using MndRecord<Kind>::MndRecord;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override {
    return Kind::ReadAllMnd({context, owner, parent, child, defaultNamespace, parentType});
  }
  bool Validate(const CSerializationContext& /*context*/, const CXmlGeneratedClass* /*owner*/,
                bool seen, bool parentIsElement) const override {
    return Kind::ValidateMnd(seen, parentIsElement);
  }
};

/// An optional record of an all group.
template <class Kind>
class AllOpt : public OptRecord<Kind> {
 public:
  using OptRecord<Kind>::OptRecord;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override {
    return Kind::ReadAllOpt({context, owner, parent, child, defaultNamespace, parentType});
  }
  bool Validate(const CSerializationContext& /*context*/, const CXmlGeneratedClass* /*owner*/,
                bool /*seen*/, bool /*parentIsElement*/) const override {
    return true;
  }
};

/// A record of a choice.
template <class Kind>
class ChoiceOpt : public Kind {
 public:
  using Kind::Kind;
  /// An empty choice inside an optional object of a known class is let through.
  bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                    CXmlWriter* writer) const override {
    return Kind::Write(context, owner, writer, std::is_same_v<Kind, ClsKind>);
  }
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override {
    return Kind::ReadChoiceOpt({context, owner, parent, child, defaultNamespace, parentType});
  }

 private:
  bool MayLeaveChoiceEmpty(const CXmlGeneratedClass* /*owner*/) const final { return true; }
};

}  // namespace tovikxml_detail

/// Base of the repeated records. The property of a repeated record is a collection that exists from
/// the start and knows its limits.
class TOVIKXML_EXPORT CElementInfoCol : public CElementInfo {
 protected:
  CElementInfoCol(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex);
  /// Lets the collection take its items from the cursor on; gives the cursor behind them.
  virtual CXmlElement* ReadItems(const CSerializationContext& context,
                                 CXmlCollectionBase* collection, CXmlElement* parent,
                                 CXmlElement* child) const;
};

/// Base of the repeated records of a sequence.
class TOVIKXML_EXPORT CElementInfoSeqCol : public CElementInfoCol {
 public:
  CElementInfoSeqCol(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex);
  bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                    CXmlWriter* writer) const override;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override;
};

/// Base of the repeated records of an all group.
class TOVIKXML_EXPORT CElementInfoAllCol : public CElementInfoCol {
 public:
  CElementInfoAllCol(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex);
  bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                    CXmlWriter* writer) const override;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override;
};

/// Base of the repeated records of a choice.
class TOVIKXML_EXPORT CElementInfoChoiceCol : public CElementInfoCol {
 public:
  CElementInfoChoiceCol(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex);
  bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                    CXmlWriter* writer) const override;
  bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                      CXmlElement* parent, CXmlElement** child, const wchar* defaultNamespace,
                      XmlElementType parentType) override;

 private:
  bool MayLeaveChoiceEmpty(const CXmlGeneratedClass* owner) const final;
};

namespace tovikxml_detail {

/// A repeated object: the attributes of pseudo items go on the enclosing element.
template <class GroupCol>
class ObjectCol : public GroupCol {
 public:
  ObjectCol(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
            XmlElementType elementType)
      : GroupCol(name, namespaceUri, propertyIndex), m_elementType(elementType) {}
  void PseudoChildAttributeToXml(const CSerializationContext& context,
                                 const CXmlGeneratedClass* owner,
                                 CXmlWriter* writer) const override {
    if (m_elementType == xet_PseudoElement) this->ItemAttributesToXml(context, owner, writer);
  }

 private:
  XmlElementType m_elementType;
};

/// A repeated wildcard: under a fixed name the collection takes only elements of that name.
template <class GroupCol>
class UntpdCol : public GroupCol {
 public:
  using GroupCol::GroupCol;

 protected:
  CXmlElement* ReadItems(const CSerializationContext& context, CXmlCollectionBase* collection,
                         CXmlElement* parent, CXmlElement* child) const override {
    return this->UntpdColFromXml(context, collection, parent, child);
  }
};

}  // namespace tovikxml_detail

// clang-format off
class TOVIKXML_EXPORT CElementInfoSeqPrimMnd       final : public tovikxml_detail::SeqMnd<tovikxml_detail::PrimKind>      { using SeqMnd::SeqMnd; };
class TOVIKXML_EXPORT CElementInfoSeqEnumMnd       final : public tovikxml_detail::SeqMnd<tovikxml_detail::EnumKind>      { using SeqMnd::SeqMnd; };
class TOVIKXML_EXPORT CElementInfoSeqClsMnd        final : public tovikxml_detail::SeqMnd<tovikxml_detail::ClsKind>       { using SeqMnd::SeqMnd; };
class TOVIKXML_EXPORT CElementInfoSeqAbsClsMnd     final : public tovikxml_detail::SeqMnd<tovikxml_detail::AbsClsKind>    { using SeqMnd::SeqMnd; };
class TOVIKXML_EXPORT CElementInfoSeqUntpdMnd      final : public tovikxml_detail::SeqMnd<tovikxml_detail::UntpdKind>     { using SeqMnd::SeqMnd; };
class TOVIKXML_EXPORT CElementInfoSeqPrimOpt       final : public tovikxml_detail::SeqOpt<tovikxml_detail::PrimKind>      { using SeqOpt::SeqOpt; };
class TOVIKXML_EXPORT CElementInfoSeqEnumOpt       final : public tovikxml_detail::SeqOpt<tovikxml_detail::EnumKind>      { using SeqOpt::SeqOpt; };
class TOVIKXML_EXPORT CElementInfoSeqClsOpt        final : public tovikxml_detail::SeqOpt<tovikxml_detail::ClsKind>       { using SeqOpt::SeqOpt; };
class TOVIKXML_EXPORT CElementInfoSeqAbsClsOpt     final : public tovikxml_detail::SeqOpt<tovikxml_detail::AbsClsKind>    { using SeqOpt::SeqOpt; };
class TOVIKXML_EXPORT CElementInfoSeqUntpdOpt      final : public tovikxml_detail::SeqOpt<tovikxml_detail::UntpdKind>     { using SeqOpt::SeqOpt; };
class TOVIKXML_EXPORT CElementInfoAllPrimMnd       final : public tovikxml_detail::AllMnd<tovikxml_detail::PrimKind>      { using AllMnd::AllMnd; };
class TOVIKXML_EXPORT CElementInfoAllEnumMnd       final : public tovikxml_detail::AllMnd<tovikxml_detail::EnumKind>      { using AllMnd::AllMnd; };
class TOVIKXML_EXPORT CElementInfoAllClsMnd        final : public tovikxml_detail::AllMnd<tovikxml_detail::ClsKind>       { using AllMnd::AllMnd; };
class TOVIKXML_EXPORT CElementInfoAllAbsClsMnd     final : public tovikxml_detail::AllMnd<tovikxml_detail::AbsClsKind>    { using AllMnd::AllMnd; };
class TOVIKXML_EXPORT CElementInfoAllUntpdMnd      final : public tovikxml_detail::AllMnd<tovikxml_detail::UntpdKind>     { using AllMnd::AllMnd; };
class TOVIKXML_EXPORT CElementInfoAllPrimOpt       final : public tovikxml_detail::AllOpt<tovikxml_detail::PrimKind>      { using AllOpt::AllOpt; };
class TOVIKXML_EXPORT CElementInfoAllEnumOpt       final : public tovikxml_detail::AllOpt<tovikxml_detail::EnumKind>      { using AllOpt::AllOpt; };
class TOVIKXML_EXPORT CElementInfoAllClsOpt        final : public tovikxml_detail::AllOpt<tovikxml_detail::ClsKind>       { using AllOpt::AllOpt; };
class TOVIKXML_EXPORT CElementInfoAllAbsClsOpt     final : public tovikxml_detail::AllOpt<tovikxml_detail::AbsClsKind>    { using AllOpt::AllOpt; };
class TOVIKXML_EXPORT CElementInfoAllUntpdOpt      final : public tovikxml_detail::AllOpt<tovikxml_detail::UntpdKind>     { using AllOpt::AllOpt; };
class TOVIKXML_EXPORT CElementInfoChoicePrimOpt    final : public tovikxml_detail::ChoiceOpt<tovikxml_detail::PrimKind>   { using ChoiceOpt::ChoiceOpt; };
class TOVIKXML_EXPORT CElementInfoChoiceEnumOpt    final : public tovikxml_detail::ChoiceOpt<tovikxml_detail::EnumKind>   { using ChoiceOpt::ChoiceOpt; };
class TOVIKXML_EXPORT CElementInfoChoiceClsOpt     final : public tovikxml_detail::ChoiceOpt<tovikxml_detail::ClsKind>    { using ChoiceOpt::ChoiceOpt; };
class TOVIKXML_EXPORT CElementInfoChoiceAbsClsOpt  final : public tovikxml_detail::ChoiceOpt<tovikxml_detail::AbsClsKind> { using ChoiceOpt::ChoiceOpt; };
class TOVIKXML_EXPORT CElementInfoChoiceUntpdOpt   final : public tovikxml_detail::ChoiceOpt<tovikxml_detail::UntpdKind>  { using ChoiceOpt::ChoiceOpt; };

class TOVIKXML_EXPORT CElementInfoSeqPrimCol       final : public CElementInfoSeqCol                    { using CElementInfoSeqCol::CElementInfoSeqCol; };
class TOVIKXML_EXPORT CElementInfoSeqEnumCol       final : public CElementInfoSeqCol                    { using CElementInfoSeqCol::CElementInfoSeqCol; };
class TOVIKXML_EXPORT CElementInfoSeqClsCol        final : public tovikxml_detail::ObjectCol<CElementInfoSeqCol> { using ObjectCol::ObjectCol; };
class TOVIKXML_EXPORT CElementInfoSeqAbsClsCol     final : public tovikxml_detail::ObjectCol<CElementInfoSeqCol> { using ObjectCol::ObjectCol; };
class TOVIKXML_EXPORT CElementInfoSeqUntpdCol      final : public tovikxml_detail::UntpdCol<CElementInfoSeqCol>  { using UntpdCol::UntpdCol; };
class TOVIKXML_EXPORT CElementInfoAllPrimCol       final : public CElementInfoAllCol                    { using CElementInfoAllCol::CElementInfoAllCol; };
class TOVIKXML_EXPORT CElementInfoAllClsCol        final : public tovikxml_detail::ObjectCol<CElementInfoAllCol> { using ObjectCol::ObjectCol; };
class TOVIKXML_EXPORT CElementInfoAllAbsClsCol     final : public tovikxml_detail::ObjectCol<CElementInfoAllCol> { using ObjectCol::ObjectCol; };
class TOVIKXML_EXPORT CElementInfoAllUntpdCol      final : public CElementInfoAllCol                       { using CElementInfoAllCol::CElementInfoAllCol; };
class TOVIKXML_EXPORT CElementInfoChoicePrimCol    final : public CElementInfoChoiceCol                 { using CElementInfoChoiceCol::CElementInfoChoiceCol; };
class TOVIKXML_EXPORT CElementInfoChoiceEnumCol    final : public CElementInfoChoiceCol                 { using CElementInfoChoiceCol::CElementInfoChoiceCol; };
class TOVIKXML_EXPORT CElementInfoChoiceClsCol     final : public tovikxml_detail::ObjectCol<CElementInfoChoiceCol> { using ObjectCol::ObjectCol; };
class TOVIKXML_EXPORT CElementInfoChoiceAbsClsCol  final : public tovikxml_detail::ObjectCol<CElementInfoChoiceCol> { using ObjectCol::ObjectCol; };
class TOVIKXML_EXPORT CElementInfoChoiceUntpdCol   final : public tovikxml_detail::UntpdCol<CElementInfoChoiceCol> { using UntpdCol::UntpdCol; };
// clang-format on

/// A repeated enumeration in an all group has no body and cannot be made.
class TOVIKXML_EXPORT CElementInfoAllEnumCol : public CElementInfo {
 protected:
  CElementInfoAllEnumCol(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex);
};

}  // namespace TovikXmlLib16Data

#endif  // TOVIKXML_BINDING_ELEMENT_INFO_H_
