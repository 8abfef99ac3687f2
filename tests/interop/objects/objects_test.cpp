// Fast Infoset documents of the library read by the independent implementation, and the other way
// round. See FastInfosetPeer.java for what it is asked to do.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tests/fastinfoset/octets.h"
#include "tests/support/temp_dir.h"

using namespace TovikXmlTest;

namespace {

constexpr const wchar* kOrders = u"urn:example:bench:orders";
constexpr const char* kMimeFile = "/usr/share/mime/packages/freedesktop.org.xml";

/// A conversation with the other implementation through files, many documents to one start of it.
class Peer {
 public:
  std::filesystem::path File(const std::string& name) const { return m_directory.Path() / name; }
  WString Name(const std::string& name) const { return File(name).u16string(); }

  void Ask(const std::string& mode, const std::string& from, const std::string& to) {
    m_command += " " + mode + " '" + File(from).string() + "' '" + File(to).string() + "'";
  }
  void Run() {
    const std::filesystem::path log = File("log");
    const int status = std::system((m_command + " >'" + log.string() + "' 2>&1").c_str());
    m_command = TOVIKXML_PEER;
    ASSERT_EQ(status, 0) << FileBytes(log);
  }

 private:
  TempDir m_directory;
  std::string m_command = TOVIKXML_PEER;
};

template <class Object>
WString TextOf(const Object& object) {
  return object.ToXml(false, false, EOL_LF, CSerializationContext());
}

CSmartPtr<Orders::COrderList> MakeOrders(int count) {
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  for (int i = 0; i < count; ++i) {
    const CSmartPtr<Orders::COrder> order = list->GetOrders()->Add();
    order->SetId(100001 + i);
    order->SetDate(CDateTime(2024, 2, 29));
    order->SetStatus(Orders::Status_confirmed);
    order->GetCustomer()->SetName(u"Zo\u00eb M\u00fcller \U0001F600");
    order->GetCustomer()->SetStreet(WString(static_cast<std::size_t>(i) * 30, u'k'));
    order->GetCustomer()->SetCity(u"\u0395\u03bb\u03bb\u03ac\u03b4\u03b1");
    order->GetCustomer()->SetPostalCode(u"08001");
    order->GetCustomer()->SetCountry(u"CH");
    order->SetNotes(u"a < b & c\nd\t\"e\"");
    for (int line = 0; line < 3; ++line) {
      const CSmartPtr<Orders::CItem> item = order->GetItems()->Add();
      item->SetSku(u"042-AB7");
      item->SetDescription(u"valve <DN 25>");
      item->SetQuantity(line - 1);
      item->SetPrice(CDecimal(u"19.95"));
      // No integer: the peer reads a double of 1 as "1.0", also where a later int refers to it.
      item->SetWeight(line * 0.25 + 0.125);
      item->SetShipDate(CDateTime(2024, 3, line == 0 ? 4 : 31));
      item->SetInStock(line != 1);
    }
  }
  return list;
}

CSmartPtr<MimeDatabase::CMimeInfo> MimeTypes() {
  CSmartPtr<MimeDatabase::CMimeInfo> info(new MimeDatabase::CMimeInfo);
  info->FromXmlFile(Wide(kMimeFile).c_str(), CSerializationContext());
  return info;
}

struct Setting {
  std::string name;
  CSerializationContext context;
  FInfoDecl declaration = fid_None;
};

// All with a declared namespace: the peer takes the prefix of a name only from the table, where the
// declarations put it, and so refuses an alias that the writer generates and does not declare.
std::vector<Setting> Settings(const WString& namespaceUri) {
  std::vector<Setting> settings(5);
  for (Setting& setting : settings) {
    if (&setting == &settings[2]) {
      setting.context.SetDefaultNamespaceURI(namespaceUri.c_str());
    } else {
      setting.context.GetNamespaceAliases().Add(u"o", namespaceUri.c_str());
    }
  }
  settings[0].name = "plain";
  settings[1].name = "suggested";
  settings[1].context.GetFIContext().SetSuggestedValues();
  settings[2].name = "default-namespace";
  settings[2].declaration = fid_V10StandaloneYes;
  settings[3].name = "indexed";
  settings[3].context.GetFIContext().SetSuggestedValues();
  settings[3].context.GetFIContext().SetElementMaxAddLength(400);
  settings[3].context.GetFIContext().SetAttributeMaxAddLength(400);
  settings[3].declaration = fid_Encoding;
  settings[4].name = "unindexed";
  settings[4].context.GetFIContext().SetElementMaxAddLength(0);
  settings[4].context.GetFIContext().SetAttributeMaxAddLength(0);
  settings[4].declaration = fid_V11StandaloneNo;
  return settings;
}

// The objects as Fast Infoset in all settings, decoded by the peer with each of its parsers.
template <class Object>
void ExpectPeerReads(const Object& object, const WString& namespaceUri) {
  Peer peer;
  const std::vector<Setting> settings = Settings(namespaceUri);
  for (const Setting& setting : settings) {
    object.ToFastInfosetFile(peer.Name(setting.name).c_str(), setting.declaration, setting.context,
                             Compression_None);
    for (const char* parser : {"sax", "dom"}) {
      peer.Ask(std::string("decode-") + parser, setting.name, setting.name + parser);
    }
  }
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  for (const Setting& setting : settings) {
    for (const char* parser : {"sax", "dom"}) {
      SCOPED_TRACE(setting.name + " " + parser);
      const CSmartPtr<Object> copy(new Object);
      copy->FromXmlFile(peer.Name(setting.name + parser).c_str(), CSerializationContext());
      EXPECT_TRUE(TextOf(*copy) == TextOf(object));
    }
  }
}

// The objects as XML, encoded by the peer in all its ways.
template <class Object>
void ExpectReadsPeer(const Object& object, const std::vector<std::string>& modes) {
  Peer peer;
  object.ToXmlFile(peer.Name("xml").c_str(), true, false, Encoding_UTF8, EOL_LF,
                   CSerializationContext(), Compression_None);
  for (std::size_t i = 0; i < modes.size(); ++i) peer.Ask(modes[i], "xml", std::to_string(i));
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  for (std::size_t i = 0; i < modes.size(); ++i) {
    SCOPED_TRACE(modes[i]);
    const CSmartPtr<Object> copy(new Object);
    copy->FromXmlFile(peer.Name(std::to_string(i)).c_str(), CSerializationContext());
    EXPECT_TRUE(TextOf(*copy) == TextOf(object));
  }
}

WString TreeOfFile(const WString& file, const CSerializationContext& context = {}) {
  CXmlDocument document(context);
  document.Load(file.c_str());
  return Describe(document);
}

}  // namespace

TEST(FastInfosetInteropObjects, PeerReadsOrders) {
  ExpectPeerReads(*MakeOrders(40), kOrders);
}

TEST(FastInfosetInteropObjects, ReadsOrdersOfPeer) {
  ExpectReadsPeer(*MakeOrders(40),
                  {"encode-utf8", "encode-utf16", "encode-indexed", "encode-dom",
                   "encode-typed:id=int,date=dateTime,notes=cdata,quantity=short,price=numeric,"
                   "weight=double,shipDate=dateTime,inStock=boolean"});
}

TEST(FastInfosetInteropObjects, PeerReadsTheMimeDatabase) {
  if (!std::filesystem::exists(kMimeFile)) GTEST_SKIP() << kMimeFile;
  ExpectPeerReads(*MimeTypes(), u"http://www.freedesktop.org/standards/shared-mime-info");
}

TEST(FastInfosetInteropObjects, ReadsTheMimeDatabaseOfPeer) {
  if (!std::filesystem::exists(kMimeFile)) GTEST_SKIP() << kMimeFile;
  ExpectReadsPeer(*MimeTypes(), {"encode-utf8", "encode-utf16", "encode-indexed", "encode-dom",
                                 "encode-typed:priority=int,weight=long,comment=cdata"});
}

// Values in every algorithm and alphabet, alone in elements and in attributes, by the library; the
// peer must give the same lexical values.
TEST(FastInfosetInteropObjects, PeerReadsEncodedValues) {
  struct {
    std::uint32_t index;
    const wchar* text;
  } constexpr rows[] = {
      {1, u"00FF7A"}, {2, u"TWFuTQ=="},       {3, u"-32768"},
      {3, u"32767"},  {4, u"-2147483648"},    {5, u"-9223372036854775808"},
      {6, u"true"},   {6, u"false"},          {7, u"0.5"},
      {8, u"-1.25"},  {10, u"a < \u20ac]]&"},
  };
  WString expected = u"r";
  const auto write = [&](CFastInfosetWriter& w, CFastInfosetContext& context,
                         CFastInfosetContext::EncodedCharacterString encoding, const WString& text,
                         bool inAttribute) {
    context.SetEncoding(it_string, encoding);
    w.WriteStartElement(u"e", u"");
    if (inAttribute) w.WriteAttribute(u"a", u"", text, it_string);
    if (!inAttribute) w.WriteText(text, it_string);
    w.WriteEndElement();
    expected += inAttribute ? u"(e a=" + text + u")" : u"(e'" + text + u"')";
  };
  Peer peer;
  CFastInfosetContext context;
  CBinaryStream stream;
  CFastInfosetWriter writer(context, &stream);
  writer.Open();
  writer.WriteStartDocument(fid_None);
  writer.WriteStartElement(u"r", u"");
  for (const auto& row : rows) {
    const CFastInfosetContext::EncodedCharacterString encoding{
        CFastInfosetContext::ces_EncodingAlgorithm, row.index};
    write(writer, context, encoding, row.text, false);
    // CDATA sections are of elements only.
    if (row.index != 10) write(writer, context, encoding, row.text, true);
  }
  for (const bool inAttribute : {false, true}) {
    for (std::size_t length = 1; length < 600; length += length < 12 ? 1 : 97) {
      const WString repeated = WString(length - 1, u'7') + u"+";
      write(writer, context, {CFastInfosetContext::ces_RestrictedAlphabet, 1}, repeated,
            inAttribute);
      write(writer, context, {CFastInfosetContext::ces_RestrictedAlphabet, 2},
            u"Z" + repeated.substr(1, length - 2) + u":", inAttribute);
    }
  }
  writer.WriteEndElement();
  writer.WriteEndDocument();
  writer.Close();
  const CBinaryData octets = stream.GetData();
  MakeFile(peer.File("fi"), {reinterpret_cast<const char*>(octets.GetData()), octets.GetLength()});
  peer.Ask("decode-sax", "fi", "sax");
  peer.Ask("decode-dom", "fi", "dom");
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  EXPECT_EQ(TreeOfFile(peer.Name("sax")), expected);
  EXPECT_EQ(TreeOfFile(peer.Name("dom")), expected);
}

// Lists too, which only the peer writes.
TEST(FastInfosetInteropObjects, ReadsEncodedValuesOfPeer) {
  Peer peer;
  const std::string uuid = "00112233-4455-6677-8899-aabbccddeeff";
  const std::pair<const char*, std::string> rows[] = {
      {"short", "-32768 0 32767"},
      {"int", "-2147483648 7 2147483647"},
      {"long", "-9223372036854775808 9223372036854775807"},
      {"boolean", "true false true true false"},
      {"boolean", "false"},
      // Not 13 or 14: of those the peer loses the last octet, when it writes them.
      {"boolean", "true false true true true true true true true true true true"},
      {"boolean",
       "true false false true false true true true false true true true false true true "
       "true true false true false"},
      {"float", "0.5 -1.25"},
      {"double", "0.1 -2.5"},
      {"hex", "00FF7A"},
      {"base64", "TWFuTQ=="},
      // Not with an exponent: the peer has "E" where the alphabet of X.891, 9.1 has "e".
      {"numeric", "-12.5 +3"},
      {"dateTime", "2024-02-29T10:00:00Z"},
      {"uuid", uuid + " " + uuid},
  };
  std::string xml = "<r>";
  std::string tree = "r";
  std::string mode = "encode-typed:cdata=cdata";
  for (const auto& [kind, text] : rows) {
    const std::string name = kind;
    mode += "," + name + "=" + name;
    xml += "<" + name + " " + name + "='" + text + "'>" + text + "</" + name + ">";
    std::string read = text;
    if (name == "uuid") read = "00112233445566778899AABBCCDDEEFF 00112233445566778899AABBCCDDEEFF";
    tree += "(" + name + " " + name + "=" + read + "'" + read + "')";
  }
  MakeFile(peer.File("xml"), xml + "<cdata>&lt;\xE2\x82\xAC</cdata></r>");
  peer.Ask(mode, "xml", "fi");
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  EXPECT_EQ(TreeOfFile(peer.Name("fi")), Wide(tree + "(cdata'<\xE2\x82\xAC')"));
}

// What the library passes over, prefixes declared at several levels, and strings of every length
// form.
TEST(FastInfosetInteropObjects, ReadsGeneralDocumentsOfPeer) {
  Peer peer;
  std::string body;
  for (const std::size_t length : {1, 2, 3, 8, 9, 63, 64, 65, 66, 263, 264, 265, 320, 321, 70000}) {
    body += "<p:s p:t='" + std::string(length, 'v') + "' u='\xC3\xA9'>" + std::string(length, 'w') +
            "\xF0\x9F\x98\x80</p:s>";
  }
  for (int i = 0; i < 5000; ++i) {
    const std::string number = std::to_string(i);
    body += "<n" + number + " a" + number + "='" + number + "'>" + number + "</n" + number + ">";
  }
  body += body;
  const std::string root =
      "<r xmlns='urn:r' xmlns:p='urn:p' xml:lang='de'><!-- in --><?pi in?>" + body +
      "a<!-- between -->b<q xmlns='' p:x=''/><q xmlns='urn:q' xmlns:p='urn:p2' p:x='1'/></r>";
  MakeFile(peer.File("xml"), "<?xml version='1.0'?><!-- before --><?pi before?>" + root +
                                 "<!-- after --><?pi after?>");
  MakeFile(peer.File("dtd"), "<!DOCTYPE r PUBLIC 'public' 'system.dtd'>" + root);
  const char* const modes[] = {"encode-utf8", "encode-utf16", "encode-indexed", "encode-dom"};
  for (const std::string mode : modes) {
    peer.Ask(mode, "xml", "xml" + mode);
    peer.Ask(mode, "dtd", "dtd" + mode);
  }
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  const WString expected = TreeOfFile(peer.Name("xml"));
  for (const std::string mode : modes) {
    EXPECT_TRUE(TreeOfFile(peer.Name("xml" + mode)) == expected) << mode;
    EXPECT_TRUE(TreeOfFile(peer.Name("dtd" + mode)) == expected) << mode;
  }
}

// The vocabulary that FastInfosetPeer.java has under the same name.
TEST(FastInfosetInteropObjects, SharesAVocabulary) {
  CSerializationContext context;
  context.SetDefaultNamespaceURI(kOrders);
  CFastInfosetContext& settings = context.GetFIContext();
  settings.SetUseGeneratedVocabulary(true);
  settings.SetExternalVocabularyURI(u"urn:interop:vocabulary");
  settings.GetVocabulary()->AddNamespaceName(kOrders);
  settings.GetVocabulary()->AddLocalName(u"orders");
  settings.GetVocabulary()->AddLocalName(u"item");
  settings.GetVocabulary()->AddAttribute(u"", u"", u"sku");
  settings.GetVocabulary()->AddAttributeValue(u"042-AB7");
  settings.GetVocabulary()->AddElementValue(u"true");

  Peer peer;
  const CSmartPtr<Orders::COrderList> orders = MakeOrders(3);
  const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
  orders->ToFastInfosetFile(peer.Name("fi").c_str(), fid_None, context, Compression_None);
  orders->ToXmlFile(peer.Name("xml").c_str(), true, false, Encoding_UTF8, EOL_LF, context,
                    Compression_None);
  peer.Ask("decode-external", "fi", "decoded");
  peer.Ask("encode-external", "xml", "encoded");
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  copy->FromXmlFile(peer.Name("decoded").c_str(), CSerializationContext());
  EXPECT_EQ(TextOf(*copy), TextOf(*orders));
  copy->FromXmlFile(peer.Name("encoded").c_str(), context);
  EXPECT_EQ(TextOf(*copy), TextOf(*orders));
}
