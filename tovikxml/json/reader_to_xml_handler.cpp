#include "tovikxml/json/reader_to_xml_handler.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/document/text_stream.h"
#include "tovikxml/document/text_writer.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::uint64_t kExpectedGrowth = 8;

// More elements than values can be nested are open only where empty arrays left theirs behind.
// These are not indented, so that the text does not grow with the square of their number.
constexpr std::size_t kMaxIndentedElements = CJsonTextReader::kDepthLimit;

// Keeps everything in memory, up to a limit that is looked at whenever a writer asks for a flush.
class CLimitedTextStream final : public CTextStream {
 public:
  explicit CLimitedTextStream(std::uint64_t limit) : CTextStream(Encoding_UTF8), m_limit(limit) {}

  void Flush() override {
    if (GetLength() <= m_limit) return;
    throw CTovikException(
        FormatString(u"The XML text of the JSON document exceeds the limit of %llu units",
                     static_cast<unsigned long long>(m_limit)));
  }

 private:
  std::uint64_t m_limit;
};

CTovikInvalidStateException ConversionFailure(const wchar* format, const WString& what,
                                              const CTovikException& cause) {
  return CTovikInvalidStateException(FormatString(format, what.c_str()), cause);
}

constexpr const wchar* kNameFailure = u"Failed to convert name '%s' to Element name in XML.";
constexpr const wchar* kAttributeFailure =
    u"Failed to convert value '%s' to Attribute string value in XML.";
constexpr const wchar* kTextFailure =
    u"Failed to convert value '%s' to Element string value in XML.";

}  // namespace

std::uint64_t XmlTextLimit(std::size_t length, const CSerializationContext& context) {
  return std::max(kExpectedGrowth * length, context.GetMaxDecompressedSize());
}

CBinaryData ConvertJsonToXml(const WString& source, const CSerializationContext& context) {
  const CJsonContext& settings = context.GetJsonContext();
  CLimitedTextStream stream(XmlTextLimit(source.size(), context));
  CXmlTextWriter writer(&stream);
  CJsonTextReader reader(source);
  reader.SetHandler(std::make_unique<CJsonReaderToXmlHandler>(
      &writer, settings.GetSupportRoundtrip(), &reader.GetPathProvider()));
  reader.SetAllowComments(settings.GetAllowComments());
  reader.SetRootElementName(settings.GetRootElementName());
  reader.Parse();
  writer.Close();
  return stream.GetCheckedBytes();
}

CJsonReaderToXmlHandler::CJsonReaderToXmlHandler(CXmlTextWriter* writer, JsonRoundTrip roundTrip,
                                                 const IErrorPathProvider* pathProvider)
    : m_writer(writer), m_roundTrip(roundTrip), m_pathProvider(pathProvider) {}

void CJsonReaderToXmlHandler::StartDocument() {
  m_openElements = 0;
  m_openArrays.clear();
  m_writer->WriteXmlDeclaration();
}

void CJsonReaderToXmlHandler::EndDocument() {}

void CJsonReaderToXmlHandler::Name(const WString& name) {
  if (name.empty()) {
    throw CTovikValidationException(u"JSON item has an empty Name.",
                                    m_pathProvider->GetErrorPath());
  }
  if (m_roundTrip != jrt_Bare && name == u"#text") {
    m_textMember = true;
    m_attributePending = false;
  } else if (m_roundTrip != jrt_Bare && name.front() == u'@') {
    m_attributePending = true;
    m_currentName.assign(name, 1);
  } else {
    StartItem(name);
  }
}

void CJsonReaderToXmlHandler::StringValue(const WString& text) {
  WriteValue(text);
}

void CJsonReaderToXmlHandler::NumberValue(const WString& text) {
  WriteValue(text);
}

void CJsonReaderToXmlHandler::BooleanValue(bool value) {
  WriteValue(value ? u"true" : u"false");
}

void CJsonReaderToXmlHandler::NullValue() {
  StartNextArrayItem();
  CloseItem();
}

// The element of an object was started by the name in front of it; only later items of an array
// have none.
void CJsonReaderToXmlHandler::StartObject() {
  if (m_currentName.empty() && !m_openArrays.empty()) StartItem(WString(m_openArrays.back()));
}

void CJsonReaderToXmlHandler::EndObject() {
  m_attributePending = false;
  if (!m_textMember) CloseItem();
  m_textMember = false;
}

void CJsonReaderToXmlHandler::StartArray() {
  if (m_currentName.empty()) {
    throw CTovikValidationException(u"JSON Array has no Name.", m_pathProvider->GetErrorPath());
  }
  m_openArrays.push_back(m_currentName);
}

void CJsonReaderToXmlHandler::EndArray() {
  m_openArrays.pop_back();
}

void CJsonReaderToXmlHandler::StartItem(const WString& name) {
  m_attributePending = false;
  m_currentName = name;
  ++m_openElements;
  LimitIndentation();
  try {
    m_writer->WriteStartElement(name, WString());
  } catch (const CTovikException& e) {
    throw ConversionFailure(kNameFailure, name, e);
  }
}

void CJsonReaderToXmlHandler::CloseItem() {
  m_currentName.clear();
  if (m_attributePending || m_openElements == 0) return;
  m_writer->WriteEndElement();
  --m_openElements;
  LimitIndentation();
}

void CJsonReaderToXmlHandler::StartNextArrayItem() {
  if (m_currentName.empty() && !m_attributePending && !m_textMember && !m_openArrays.empty()) {
    StartItem(WString(m_openArrays.back()));
  }
}

void CJsonReaderToXmlHandler::WriteValue(const WString& text) {
  StartNextArrayItem();
  try {
    if (m_openElements == 0) throw CTovikInvalidStateException(u"No element is open for the value");
    if (m_attributePending) {
      m_writer->WriteAttribute(m_currentName, WString(), text, it_string);
    } else {
      WriteElementText(text);
    }
  } catch (const CTovikException& e) {
    throw ConversionFailure(m_attributePending ? kAttributeFailure : kTextFailure, text, e);
  }
  CloseItem();
}

// The writer passes a text that begins with a CDATA section as it stands, which must not let a JSON
// text bring in markup of its own: one that is more than a section is written in two pieces.
void CJsonReaderToXmlHandler::WriteElementText(const WString& text) {
  const bool isMarked = text.compare(0, kCDataStart.size(), kCDataStart) == 0;
  if (!isMarked || text.find(kCDataEnd) == text.size() - kCDataEnd.size()) {
    m_writer->WriteText(text, it_string);
  } else {
    m_writer->WriteText(text.substr(0, 1), it_string);
    m_writer->WriteText(text.substr(1), it_string);
  }
}

void CJsonReaderToXmlHandler::LimitIndentation() {
  m_writer->SetFormatted(m_openElements <= kMaxIndentedElements);
}

}  // namespace TovikXmlLib16
