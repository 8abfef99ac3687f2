// Octets to a tree, from an empty and from a generated vocabulary, each leniently and to the letter
// of the format, and what could be read written again.

#include <cstddef>
#include <cstdint>

#include "tovikxml/document/binary_stream.h"
#include "tovikxml/fastinfoset/writer.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

constexpr unsigned kMaxDepth = 1000;

void WriteElement(CXmlWriter& writer, const CXmlElement& element, unsigned depth) {
  writer.WriteStartElement(element.GetLocalName(), element.GetNamespaceURI());
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    writer.WriteAttribute(attribute->GetLocalName(), attribute->GetNamespaceURI(),
                          attribute->GetValue(), it_string);
  }
  writer.WriteText(element.GetText(), it_string);
  for (const CXmlElement* child = depth < kMaxDepth ? element.GetFirstElement() : nullptr; child;
       child = child->GetNextSiblingElement()) {
    WriteElement(writer, *child, depth + 1);
  }
  writer.WriteEndElement();
}

void WriteAndRead(const CXmlDocument& document, const CSerializationContext& context) {
  if (!document.GetDocumentElement()) return;
  CBinaryStream stream;
  CFastInfosetWriter writer(context.GetFIContext(), &stream);
  writer.Open();
  writer.WriteStartDocument(fid_V10);
  WriteElement(writer, *document.GetDocumentElement(), 0);
  writer.WriteEndDocument();
  writer.Close();
  const CBinaryData octets = stream.GetData();
  CXmlDocument(context).LoadXmlStream(octets.GetData(), octets.GetLength());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (int way = 0; way < 4; ++way) {
    const bool generated = way % 2 != 0;
    const bool exact = way / 2 != 0;
    CSerializationContext context;
    context.SetMaxDecompressedSize(1 << 20);
    context.SetMaxExpandedText(1 << 22);
    CFastInfosetContext& settings = context.GetFIContext();
    settings.SetUseGeneratedVocabulary(generated);
    settings.SetReadInitialVocabulary(exact);
    settings.SetRequireWellFormed(exact);
    settings.SetQualifiedNames(exact);
    settings.GetVocabulary()->AddElement(u"p", u"urn:p", u"s");
    settings.GetVocabulary()->AddAttribute(u"", u"", u"n");
    settings.GetVocabulary()->AddAttributeValue(u"1");
    settings.GetVocabulary()->AddElementValue(u"hi");
    try {
      CXmlDocument document(context);
      document.LoadXmlStream(data, size);
      WriteAndRead(document, context);
    } catch (const CTovikException&) {
      // the only way to fail
    }
  }
  return 0;
}
