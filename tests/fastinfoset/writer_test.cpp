#include "tovikxml/fastinfoset/writer.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"

using namespace TovikXmlTest;

namespace {

using Steps = std::function<void(CFastInfosetWriter&)>;

WString Write(const Steps& steps, const CFastInfosetContext& context = {}) {
  return WriteDocument(steps, context).GetAsHexString();
}

void Element(CFastInfosetWriter& w, const WString& name, const WString& text = u"",
             ItemType type = it_string, const WString& uri = u"") {
  w.WriteStartElement(name, uri);
  w.WriteText(text, type);
  w.WriteEndElement();
}

// An element "a" around what `content` writes.
WString WriteInside(const Steps& content, const CFastInfosetContext& context = {}) {
  return Write(
      [&](CFastInfosetWriter& w) {
        w.WriteStartElement(u"a", u"");
        content(w);
        w.WriteEndElement();
      },
      context);
}

CFastInfosetContext Suggested() {
  CFastInfosetContext context;
  context.SetSuggestedValues();
  return context;
}

const std::string kHead = "E0000001 00 ";

}  // namespace

TEST(FastInfosetWriter, WritesDocuments) {
  const struct {
    Steps steps;
    std::string octets;
  } rows[] = {
      {[](auto& w) { Element(w, u"a"); }, "38F0 3C0061 FF"},
      {[](auto& w) {
         w.SetDefaultNamespace(u"urn:d");
         w.AddNamespaceAlias(u"p", u"urn:p");
         w.WriteStartElement(u"r", u"urn:d");
         w.WriteAttribute(u"i", u"urn:p", u"1", it_i4);
         Element(w, u"s", u"hi", it_string, u"urn:p");
         Element(w, u"s", u"hi", it_string, u"urn:p");
         w.WriteEndElement();
       },
       "78 CD0475726E3A64 CF00700475726E3A70 F0 3D810072 7B81820069 4031 F0 3F81820073 916869 F0 "
       "01 A0 FF F0"},
      // What the drivers hand over beside elements, attributes and text leaves no trace.
      {[](auto& w) {
         w.WriteProcessingInstruction(u"<?x?>");
         w.WriteComment(u"c");
         w.WriteStartElement(u"a", u"");
         w.WriteInlineSchema(u"<s/>");
         w.WriteComment(u"c");
         w.WriteAttribute(u"b", u"", u"", it_string);
         w.WriteEndElement();
       },
       "78F0 3C0061 780062 FF F0 FF"},
      // A namespace without an alias: generated anew at the sibling, with the same text.
      {[](auto& w) {
         w.WriteStartElement(u"a", u"");
         Element(w, u"b", u"", it_string, u"urn:q");
         Element(w, u"b", u"", it_string, u"urn:q");
         w.WriteStartElement(u"c", u"urn:q");
         w.WriteAttribute(u"b", u"urn:r", u"", it_string);
         w.WriteEndElement();
         w.WriteEndElement();
       },
       "38F0 3C0061 3F 014141 0475726E3A71 0062 F0 01 F0 7F81 81 0063 7B 014142 0475726E3A72 81 FF "
       "F0 FF F0"},
      // No namespace below a default one; an attribute in the default namespace has a prefix.
      {[](auto& w) {
         w.SetDefaultNamespace(u"d");
         w.WriteStartElement(u"a", u"d");
         w.WriteAttribute(u"b", u"d", u"", it_string);
         Element(w, u"a");
         w.WriteEndElement();
       },
       "78 CD0064 F0 3D810061 7B 014141 81 0062 FF F0 3C80 FF F0"},
  };
  for (const auto& row : rows) EXPECT_EQ(Write(row.steps), Digits(kHead + row.octets));
}

TEST(FastInfosetWriter, PacksTerminators) {
  const struct {
    Steps content;
    std::string octets;
  } rows[] = {
      {[](auto& w) { Element(w, u"b"); }, "3C0062 FF F0"},
      {[](auto& w) { Element(w, u"b"), Element(w, u"c"); }, "3C0062 F0 3C0063 FF F0"},
      {[](auto& w) { Element(w, u"b"), w.WriteText(u"x", it_string); }, "3C0062 F0 9078 FF"},
      {[](auto& w) { Element(w, u"b"), w.WriteText(u"", it_string); }, "3C0062 FF F0"},
      {[](auto& w) {
         w.WriteStartElement(u"b", u"");
         Element(w, u"c");
         w.WriteEndElement();
         Element(w, u"c");
       },
       "3C0062 3C0063 FF 02 FF F0"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(WriteInside(row.content), Digits(kHead + "38F0 3C0061 " + row.octets));
  }
}

TEST(FastInfosetWriter, PutsShortStringsIntoTables) {
  const auto twice = [](const WString& value) {
    return [value](CFastInfosetWriter& w) {
      w.WriteAttribute(u"b", u"", value, it_string);
      w.WriteAttribute(u"c", u"", value, it_i4);
      Element(w, u"d", value);
      Element(w, u"d", value, it_i4);
    };
  };
  const std::string head = kHead + "78F0 3C0061 ";
  EXPECT_EQ(WriteInside(twice(u"12345"), Suggested()),
            Digits(head + "780062 443132333435 780063 80 F0 3C0064 92023132333435 F0 01 A0 FF F0"));
  CFastInfosetContext context;
  context.SetAttributeMaxAddLength(3);
  context.SetElementMaxAddLength(0);
  EXPECT_EQ(WriteInside(twice(u"123"), context),
            Digits(head + "780062 02313233 780063 02313233 F0 3C0064 8200313233 F0 01 8200313233 "
                          "FF F0"));
}

TEST(FastInfosetWriter, WritesTypesAndNil) {
  const WString xsi = u"http://www.w3.org/2001/XMLSchema-instance";
  const std::string xsiName =
      "28687474703A2F2F7777772E77332E6F72672F323030312F584D4C536368656D612D69"
      "6E7374616E6365";
  EXPECT_EQ(WriteInside([](auto& w) {
              w.WriteXsiType(u"urn:t", u"T", it_string);
              w.WriteXsiNil();
            }),
            Digits(kHead + "78F0 3C0061 7B 014141 " + xsiName +
                   " 0374797065 4341413A54 7B 014142 81 "
                   "026E696C 4374727565 F0 FF"));
  EXPECT_EQ(WriteInside([](auto& w) { w.WriteXsiType(u"", u"T", it_string); }),
            Digits(kHead + "78F0 3C0061 7B 014141 " + xsiName + " 0374797065 4054 F0 FF"));
}

TEST(FastInfosetWriter, EncodesValuesAsTheContextSays) {
  EXPECT_EQ(WriteInside(
                [](auto& w) {
                  w.WriteAttribute(u"n", u"", u"300", it_i4);
                  w.WriteAttribute(u"f", u"", u"true", it_boolean);
                  Element(w, u"d", u"2001-01-31", it_date);
                  Element(w, u"x", u"-1.5", it_decimal);
                },
                Suggested()),
            Digits(kHead + "78F0 3C0061 78006E 703300 00012C 780066 705038 F0 3C0064 8806 02 "
                           "2001A01A31 F0 3C0078 9801A1C5 FF F0"));
  CFastInfosetContext context;
  context.SetEncoding(it_string, {CFastInfosetContext::ces_EncodingAlgorithm, 10});
  EXPECT_EQ(WriteInside([](auto& w) { w.WriteText(u"\u00e9", it_string); }, context),
            Digits(kHead + "38F0 3C0061 9C25C3A9 FF"));
}

TEST(FastInfosetWriter, RefusesValuesThatTheEncodingCannotHold) {
  const struct {
    ItemType type;
    const wchar* value;
    const wchar* message;
  } rows[] = {
      {it_datetime, u"2001-01-31T10:00:00.5",
       u"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."},
      {it_datetime, u"2001-01-31T10:00:00+01:00",
       u"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."},
      {it_base64Binary, u"=",
       u"Failed to write FastInfoset. A string without octets has no encoding."},
  };
  for (const auto& row : rows) {
    const Steps steps = [&](auto& w) { w.WriteText(row.value, row.type); };
    EXPECT_EQ(MessageOf<CTovikException>([&] { WriteInside(steps, Suggested()); }), row.message);
  }
  for (const auto& [type, value] :
       {std::pair(it_ui8, u"18446744073709551615"), {it_i4, u"x"}, {it_string, u"\xD800"}}) {
    MessageOf<CTovikInvalidValueException>([&, t = type, v = value] {
      WriteInside([&](auto& w) { w.WriteAttribute(u"b", u"", v, t); }, Suggested());
    });
  }
  const WString start = u"Failed to write FastInfoset. ";
  const struct {
    int kind;
    unsigned index;
    WString message;
  } settings[] = {{1, 0, u"Invalid Restricted Alphabet value [0]"},
                  {1, 3, u"Invalid Restricted Alphabet value [3]"},
                  {2, 0, u"Invalid Encoding Algorithm value [0]"},
                  {2, 11, u"Invalid Encoding Algorithm value [11]"},
                  {3, 1, u"Unknown encoding in EncodedCharacterStringBit7."}};
  for (const auto& row : settings) {
    CFastInfosetContext context;
    context.SetEncoding(it_i4,
                        {static_cast<CFastInfosetContext::EncodingKind>(row.kind), row.index});
    EXPECT_EQ(MessageOf<CTovikException>(
                  [&] { WriteInside([](auto& w) { w.WriteText(u"1", it_i4); }, context); }),
              start + row.message);
  }
}

TEST(FastInfosetWriter, DeclaresTheDocument) {
  const auto begin = [](int declaration, const CFastInfosetContext& context = {}) {
    const CBinaryData octets = WriteDocument([](auto& w) { Element(w, u"a"); }, context,
                                             static_cast<FInfoDecl>(declaration));
    return std::string(octets.GetData(), octets.GetData() + octets.GetLength());
  };
  const std::string document = begin(fid_None);
  const char* attributes[] = {"",
                              "encoding='finf'",
                              "encoding='finf' standalone='yes'",
                              "encoding='finf' standalone='no'",
                              "version='1.0' encoding='finf'",
                              "version='1.0' encoding='finf' standalone='yes'",
                              "version='1.0' encoding='finf' standalone='no'",
                              "version='1.1' encoding='finf'",
                              "version='1.1' encoding='finf' standalone='yes'",
                              "version='1.1' encoding='finf' standalone='no'"};
  for (int i = 1; i < 10; ++i) {
    const std::string octets = begin(i);
    EXPECT_EQ(octets, "<?xml " + std::string(attributes[i]) + "?>" + document);
    CBinaryData bytes;
    bytes.SetBuffer(reinterpret_cast<const unsigned char*>(octets.data()), octets.size());
    EXPECT_EQ(TreeOf(bytes), u"a");
  }
  for (const int wrong : {-1, 10}) MessageOf<CTovikInvalidParamException>([&] { begin(wrong); });
  CFastInfosetContext context;
  context.SetUseGeneratedVocabulary(true);
  EXPECT_EQ(begin(fid_None, context).substr(4, 36),
            std::string("\x20\x10\0\x1F", 4) + "urn:tovikxml:external-vocabulary");
}

TEST(FastInfosetWriter, ReportsMisuse) {
  const Steps late[] = {[](auto& w) { w.WriteAttribute(u"b", u"", u"", it_string); },
                        [](auto& w) { w.WriteXsiNil(); },
                        [](auto& w) { w.WriteXsiType(u"u", u"t", it_string); }};
  const Steps before[] = {[](auto& w) { w.WriteText(u"", it_string); },
                          [](auto& w) { w.WriteProcessingInstruction(u"<?x?>"); },
                          [](auto& w) { Element(w, u"c"); }};
  for (const Steps& first : before) {
    for (const Steps& second : late) {
      EXPECT_EQ(
          MessageOf<CTovikException>([&] { WriteInside([&](auto& w) { first(w), second(w); }); }),
          u"Attributes must be added before elements");
    }
  }
  EXPECT_EQ(
      MessageOf<CTovikException>([] { Write([](auto& w) { w.WriteStartElement(u"a", u""); }); }),
      u"An Element has not been closed.");
  EXPECT_EQ(MessageOf<CTovikException>([] { Write([](auto& w) { Element(w, u""); }); }),
            u"Failed to write FastInfoset. A string without octets has no encoding.");
}
