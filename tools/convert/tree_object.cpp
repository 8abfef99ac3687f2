#include "tools/convert/tree_object.h"

#include "tools/convert/value_types.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr WStringView kCDataStart = u"<![CDATA[";

const WString kNone;

using TypeOf = ItemType (*)(const WString& value);

ItemType Untyped(const WString& /*value*/) {
  return it_string;
}

TypeOf TypesFor(const Options& options) {
  return options.typed ? &JsonTypeOf : options.suggestedValues ? &FastInfosetTypeOf : &Untyped;
}

bool IsBlank(WStringView text) {
  return text.find_first_not_of(u" \t\r\n") == WStringView::npos;
}

bool HaveSameName(const CXmlElement* a, const CXmlElement* b) {
  return a && b && a->GetLocalName() == b->GetLocalName() &&
         a->GetNamespaceURI() == b->GetNamespaceURI();
}

// One walk over the tree. Fast Infoset has a place for the namespace of a name; text has the
// prefixes alone, and JSON without namespaces neither.
class TreeWriter {
 public:
  TreeWriter(CXmlWriter& writer, Namespaces::Source source, const Options& options)
      : m_writer(writer),
        m_namespaces(source),
        m_typeOf(TypesFor(options)),
        m_maxNesting(options.maxNesting),
        m_isXmlText(options.to == Format::kXml),
        m_isFastInfoset(options.to == Format::kFastInfoset),
        m_hasNamespaces(options.to != Format::kJson || options.jsonMode == jrt_Full) {}

  void Write(const CXmlElement& element) {
    if (++m_depth > m_maxNesting) {
      throw CTovikException(FormatString(
          u"The elements are nested deeper than the limit of %d levels", m_maxNesting));
    }
    WriteStartTag(m_namespaces.Enter(element));
    WriteChildren(element);
    const WStringView text = element.GetTextView();
    const bool hasChildren = element.GetFirstElement() != nullptr;
    if (!text.empty() && !(hasChildren && IsBlank(text))) {
      WriteText(text);
      m_hasMixedContent = m_hasMixedContent || hasChildren;
    }
    m_writer.WriteEndElement();
    m_namespaces.Leave();
    --m_depth;
  }

  bool HasMixedContent() const { return m_hasMixedContent; }

 private:
  void WriteStartTag(const Namespaces::StartTag& tag) {
    m_writer.WriteStartElement(Spelled(*tag.name.qualified), UriIn(tag.name));
    for (const Namespaces::Declaration& declaration : tag.declarations) {
      if (!m_hasNamespaces) break;
      m_name.assign(declaration.prefix.empty() ? u"xmlns" : u"xmlns:").append(declaration.prefix);
      m_writer.WriteAttribute(m_name, m_isFastInfoset ? kXmlnsNamespace : kNone, declaration.uri,
                              it_string);
    }
    for (const Namespaces::Attribute& attribute : tag.attributes) {
      m_value.assign(attribute.node->GetValueView());
      m_writer.WriteAttribute(Spelled(*attribute.name.qualified), UriIn(attribute.name), m_value,
                              m_typeOf(m_value));
    }
  }

  const WString& Spelled(const WString& qualified) {
    if (m_hasNamespaces) return qualified;
    return m_name.assign(qualified, qualified.find(u':') + 1);
  }

  const WString& UriIn(const Namespaces::Name& name) const {
    return m_isFastInfoset ? *name.uri : kNone;
  }

  void WriteChildren(const CXmlElement& element) {
    bool isRepeated = false;
    const CXmlElement* previous = nullptr;
    for (const CXmlElement* child = element.GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
      if (isRepeated && !HaveSameName(previous, child)) {
        m_writer.SetCollectionState(3);
        isRepeated = false;
      }
      if (!isRepeated && HaveSameName(child, child->GetNextSiblingElement())) {
        m_writer.SetCollectionState(1);
        isRepeated = true;
      }
      Write(*child);
      previous = child;
    }
    if (isRepeated) m_writer.SetCollectionState(3);
  }

  // A text that begins like a CDATA section would be written as one.
  void WriteText(WStringView text) {
    if (m_isXmlText && text.substr(0, kCDataStart.size()) == kCDataStart) {
      m_writer.WriteText(WString(text.substr(0, 1)), it_string);
      text.remove_prefix(1);
    }
    m_value.assign(text);
    m_writer.WriteText(m_value, m_typeOf(m_value));
  }

  CXmlWriter& m_writer;
  Namespaces m_namespaces;
  TypeOf m_typeOf;
  int m_maxNesting;
  bool m_isXmlText;
  bool m_isFastInfoset;
  bool m_hasNamespaces;
  bool m_hasMixedContent = false;
  int m_depth = 0;
  WString m_name;
  WString m_value;
};

}  // namespace

CTreeObject::CTreeObject(CXmlDocument& document, Namespaces::Source source, const Options& options)
    : m_document(document), m_source(source), m_options(options) {}

CXmlElement* CTreeObject::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                      const CSerializationContext& /*context*/,
                                      bool /*isOptionalChoice*/) {
  return firstChild;
}

void CTreeObject::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* /*namespaceUri*/,
                            const CSerializationContext& /*context*/,
                            bool /*isOptionalChoice*/) const {
  TreeWriter walk(*writer, m_source, m_options);
  walk.Write(*m_document.GetDocumentElement());
  m_hasMixedContent = walk.HasMixedContent();
  m_document.Cleanup();
}

}  // namespace TovikXmlConvert
