#ifndef TOVIKXML_JSON_READER_TO_XML_HANDLER_H_
#define TOVIKXML_JSON_READER_TO_XML_HANDLER_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tovikxml/json/text_reader.h"
#include "tovikxml/settings/json_context.h"

/// JSON is read as the XML text that it stands for: a member becomes an element, "@name" an
/// attribute, "#text" the text of its element, and the items of an array elements of one name.
///
///     {"note": {"@lang": "en", "p": ["a", "b"]}}
///     <note lang="en"><p>a</p><p>b</p></note>
///
/// Names pass as they stand, so that "@xmlns:p" declares a prefix and "p:note" uses it; whether
/// they are XML names shows when the text is parsed. Internal.
namespace TovikXmlLib16 {

class CBinaryData;
class CSerializationContext;
class CXmlTextWriter;

/// How many units the XML text of a JSON text of so many may have: eight times its length, or what
/// the context lets compressed input expand to, if that is more.
std::uint64_t XmlTextLimit(std::size_t length, const CSerializationContext& context);

/// Converts a JSON text to XML text in UTF-8. Throws what `CJsonTextReader` and the handler below
/// throw, "An Element has not been closed." where empty arrays leave elements open, and
/// `CTovikInvalidValueException` for a surrogate without its pair.
///
/// XML text beyond `XmlTextLimit` is refused with `CTovikException` "The XML text of the JSON
/// document exceeds the limit of %llu units": repeated names can make it grow with the square of
/// the input.
CBinaryData ConvertJsonToXml(const WString& source, const CSerializationContext& context);

/// Turns the events of a reader into calls on a writer of XML text.
///
/// Throws `CTovikValidationException` "JSON item has an empty Name." and "JSON Array has no Name."
/// with the path, and `CTovikInvalidStateException` "Failed to convert ..." for what the writer
/// refuses and for a value outside any element.
class CJsonReaderToXmlHandler final : public IJsonReaderHandler {
 public:
  /// The writer and the provider outlive the handler. In `jrt_Bare` every member is an element.
  CJsonReaderToXmlHandler(CXmlTextWriter* writer, JsonRoundTrip roundTrip,
                          const IErrorPathProvider* pathProvider);

  void StartDocument() override;
  void EndDocument() override;
  void Name(const WString& name) override;
  void StringValue(const WString& text) override;
  void NumberValue(const WString& text) override;
  void StartObject() override;
  void EndObject() override;
  void StartArray() override;
  void EndArray() override;
  void BooleanValue(bool value) override;
  void NullValue() override;

 private:
  void StartItem(const WString& name);
  void CloseItem();
  void StartNextArrayItem();
  void WriteValue(const WString& text);
  void WriteElementText(const WString& text);
  void LimitIndentation();

  CXmlTextWriter* m_writer;
  JsonRoundTrip m_roundTrip;
  const IErrorPathProvider* m_pathProvider;
  std::size_t m_openElements = 0;
  std::vector<WString> m_openArrays;  // the names of their items
  // The element just started, or the attribute whose value comes next; empty behind a value.
  WString m_currentName;
  bool m_attributePending = false;
  bool m_textMember = false;  // "#text" was seen in the current object
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_JSON_READER_TO_XML_HANDLER_H_
