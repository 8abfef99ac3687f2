// Fast Infoset documents of the library read by the independent implementation, and the other way
// round. See FastInfosetPeer.java for what it is asked to do.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tests/fastinfoset/octets.h"
#include "tests/support/data_rows.h"
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
  const WString order = RowsOf("interop/documents.txt", "order").at(0).fields[0];
  WString text = WString(u"<orders xmlns='") + kOrders + u"'>";
  for (int i = 0; i < count; ++i) {
    const WString street(static_cast<std::size_t>(i) * 30, u'k');
    text += FormatString(order.c_str(), 100001 + i, street.c_str());
  }
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  list->FromXml((text + u"</orders>").c_str(), CSerializationContext());
  return list;
}

CSmartPtr<MimeDatabase::CMimeInfo> MimeTypes() {
  CSmartPtr<MimeDatabase::CMimeInfo> info(new MimeDatabase::CMimeInfo);
  info->FromXmlFile(Wide(kMimeFile).c_str(), CSerializationContext());
  return info;
}

struct Setting {
  std::string name;
  bool suggested;
  unsigned maxAddLength;
  FInfoDecl declaration;
};

const Setting kSettings[] = {{"plain", false, 6, fid_None},
                             {"suggested", true, 6, fid_V10StandaloneYes},
                             {"indexed", true, 400, fid_Encoding},
                             {"unindexed", false, 0, fid_V11StandaloneNo}};

// All with a declared namespace: the peer takes the prefix of a name only from the table, where the
// declarations put it, and so refuses an alias that the writer generates and does not declare.
CSerializationContext ContextOf(const Setting& setting, const wchar* namespaceUri) {
  CSerializationContext context;
  if (setting.suggested) {
    context.SetDefaultNamespaceURI(namespaceUri);
    context.GetFIContext().SetSuggestedValues();
  } else {
    context.GetNamespaceAliases().Add(u"o", namespaceUri);
  }
  context.GetFIContext().SetElementMaxAddLength(setting.maxAddLength);
  context.GetFIContext().SetAttributeMaxAddLength(setting.maxAddLength);
  return context;
}

// The objects as Fast Infoset in all settings, decoded by the peer with each of its parsers.
template <class Object>
void ExpectPeerReads(const Object& object, const wchar* namespaceUri) {
  Peer peer;
  for (const Setting& setting : kSettings) {
    object.ToFastInfosetFile(peer.Name(setting.name).c_str(), setting.declaration,
                             ContextOf(setting, namespaceUri), Compression_None);
    for (const char* parser : {"sax", "dom"}) {
      peer.Ask(std::string("decode-") + parser, setting.name, setting.name + parser);
    }
  }
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  for (const Setting& setting : kSettings) {
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

TEST(FastInfosetExchange, CarriesOrders) {
  const CSmartPtr<Orders::COrderList> orders = MakeOrders(40);
  ExpectPeerReads(*orders, kOrders);
  ExpectReadsPeer(*orders,
                  {"encode-utf8", "encode-utf16", "encode-indexed", "encode-dom",
                   "encode-typed:id=int,date=dateTime,notes=cdata,quantity=short,price=numeric,"
                   "weight=double,shipDate=dateTime,inStock=boolean"});
}

TEST(FastInfosetExchange, CarriesTheMimeDatabase) {
  if (!std::filesystem::exists(kMimeFile)) GTEST_SKIP() << kMimeFile;
  const CSmartPtr<MimeDatabase::CMimeInfo> types = MimeTypes();
  ExpectPeerReads(*types, u"http://www.freedesktop.org/standards/shared-mime-info");
  ExpectReadsPeer(*types, {"encode-utf8", "encode-utf16", "encode-indexed", "encode-dom",
                           "encode-typed:priority=int,weight=long,comment=cdata"});
}

// Values in every algorithm and alphabet, alone in elements and in attributes, by the library; the
// peer must give the same lexical values.
TEST(FastInfosetExchange, PeerReadsEncodedValues) {
  using Context = CFastInfosetContext;
  Peer peer;
  Context context;
  WString expected = u"r";
  const auto write = [&](CFastInfosetWriter& w, Context::EncodingKind kind, int index,
                         const WString& text, bool inAttribute) {
    context.SetEncoding(it_string, {kind, static_cast<std::uint32_t>(index)});
    RunScript(w, (inAttribute ? u"<e @a='" : u"<e '") + text + u"' >");
    expected += inAttribute ? u"(e a=" + text + u")" : u"(e'" + text + u"')";
  };
  CBinaryStream stream;
  CFastInfosetWriter writer(context, &stream);
  writer.Open();
  writer.WriteStartDocument(fid_None);
  RunScript(writer, u"<r");
  ForEachRow("interop/documents.txt", "encoded values", [&](int algorithm, const WString& text) {
    write(writer, Context::ces_EncodingAlgorithm, algorithm, text, false);
    // CDATA sections are of elements only.
    if (algorithm != 10) write(writer, Context::ces_EncodingAlgorithm, algorithm, text, true);
  });
  for (const bool inAttribute : {false, true}) {
    for (std::size_t length = 1; length < 600; length += length < 12 ? 1 : 97) {
      const WString repeated = WString(length - 1, u'7') + u"+";
      write(writer, Context::ces_RestrictedAlphabet, 1, repeated, inAttribute);
      write(writer, Context::ces_RestrictedAlphabet, 2,
            u"Z" + repeated.substr(1, length - 2) + u":", inAttribute);
    }
  }
  RunScript(writer, u">");
  writer.WriteEndDocument();
  writer.Close();
  MakeFile(peer.File("fi"), FromBytes(stream.GetData()));
  for (const std::string parser : {"sax", "dom"}) peer.Ask("decode-" + parser, "fi", parser);
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  EXPECT_EQ(TreeOfFile(peer.Name("sax")), expected);
  EXPECT_EQ(TreeOfFile(peer.Name("dom")), expected);
}

// Lists too, which only the peer writes.
TEST(FastInfosetExchange, ReadsEncodedValuesOfPeer) {
  Peer peer;
  std::string xml = "<r>", tree = "r", mode = "encode-typed:cdata=cdata";
  ForEachRow("interop/documents.txt", "lists",
             [&](const std::string& kind, const std::string& text, const std::string& read) {
               mode += "," + kind + "=" + kind;
               xml += "<" + kind + " " + kind + "='" + text + "'>" + text + "</" + kind + ">";
               tree += "(" + kind + " " + kind + "=" + read + "'" + read + "')";
             });
  MakeFile(peer.File("xml"), xml + "<cdata>&lt;\xE2\x82\xAC</cdata></r>");
  peer.Ask(mode, "xml", "fi");
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  EXPECT_EQ(TreeOfFile(peer.Name("fi")), Wide(tree + "(cdata'<\xE2\x82\xAC')"));
}

// What the library passes over, prefixes declared at several levels, and strings of every length
// form.
TEST(FastInfosetExchange, ReadsGeneralDocumentsOfPeer) {
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

// Documents that bring their own vocabulary, which neither writes.
TEST(FastInfosetExchange, AgreesOnInitialVocabularies) {
  Peer peer;
  CSerializationContext context;
  context.GetFIContext().SetReadInitialVocabulary(true);
  int count = 0;
  ForEachRow("interop/documents.txt", "initial vocabularies", [&](const std::string& octets) {
    const std::string name = std::to_string(count++);
    MakeFile(peer.File(name), FromHex(octets));
    peer.Ask("decode-sax", name, name + "sax");
  });
  ASSERT_NO_FATAL_FAILURE(peer.Run());
  for (int i = 0; i < count; ++i) {
    const std::string name = std::to_string(i);
    EXPECT_EQ(TreeOfFile(peer.Name(name), context), TreeOfFile(peer.Name(name + "sax")));
  }
}

// The vocabulary that FastInfosetPeer.java has under the same name.
TEST(FastInfosetExchange, SharesAVocabulary) {
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
