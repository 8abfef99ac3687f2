#include <gtest/gtest.h>

#include <filesystem>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tests/fastinfoset/octets.h"
#include "tests/fastinfoset/random_infoset.h"
#include "tests/support/bag.h"
#include "tests/support/temp_dir.h"

using namespace TovikXmlTest;

namespace {

// The settings that documents are taken through.
void ForEachContext(const std::function<void(const CSerializationContext&)>& action,
                    const std::function<void(CFIVocabulary&)>& fill = {}) {
  for (const bool suggested : {false, true}) {
    for (const bool generated : {false, true}) {
      CSerializationContext context;
      CFastInfosetContext& settings = context.GetFIContext();
      if (suggested) settings.SetSuggestedValues();
      settings.SetUseGeneratedVocabulary(generated);
      if (fill) fill(*settings.GetVocabulary());
      settings.SetElementMaxAddLength(suggested ? 20 : 6);
      SCOPED_TRACE(testing::Message() << "suggested " << suggested << " generated " << generated);
      action(context);
    }
  }
}

template <class Object>
WString TextOf(const Object& object) {
  return object.ToXml(false, false, EOL_LF, CSerializationContext());
}

template <class Object>
void ExpectSameBehindFastInfoset(const Object& object, Object& copy,
                                 const CSerializationContext& context) {
  for (const CompressionType compression : {Compression_None, Compression_GZip, Compression_ZLib}) {
    copy.FromXmlStream(object.ToFastInfosetStream(fid_V10, context, compression), context);
    EXPECT_EQ(TextOf(copy), TextOf(object));
  }
}

// An object with a property of each of many kinds.
const Shape& Record() {
  static Shape shape(xgt_Sequence, xet_Element, u"root", u"urn:r");
  static const ItemType types[] = {it_i4,           it_boolean, it_decimal, it_datetime,
                                   it_base64Binary, it_r8,      it_ui8};
  static const bool built = [] {
    int property = 0;
    for (const ItemType type : types) {
      static const wchar* const names[] = {u"a", u"b", u"c", u"d", u"e", u"f", u"g"};
      shape.Add(Prim<CElementInfoSeqPrimOpt>(names[property], property, type, u"", true, u"urn:p"));
      ++property;
    }
    shape.Add(Attribute(u"h", 7, true, it_hexBinary));
    return true;
  }();
  (void)built;
  return shape;
}

}  // namespace

TEST(FastInfosetRoundTrip, KeepsRandomInfosets) {
  for (unsigned seed = 0; seed < 25; ++seed) {
    SCOPED_TRACE(seed);
    ForEachContext(
        [&](const CSerializationContext& context) {
          RandomInfoset infoset(seed);
          const CBinaryData octets = infoset.Write(context.GetFIContext(), seed % 2 == 0);
          EXPECT_EQ(TreeOf(octets, context), infoset.Expected());
        },
        [](CFIVocabulary& vocabulary) {
          vocabulary.AddElement(u"p", u"urn:1", u"a");
          vocabulary.AddElement(u"", u"", u"b");
          vocabulary.AddAttribute(u"AA", u"urn:2", u"a");
          vocabulary.AddAttributeValue(u"x");
          vocabulary.AddElementValue(u"true");
        });
  }
}

// So many names and values that every form of an index comes, on both sides of its borders.
TEST(FastInfosetRoundTrip, KeepsManyNames) {
  WString expected = u"a";
  const CBinaryData octets = WriteDocument([&](CFastInfosetWriter& w) {
    w.WriteStartElement(u"a", u"");
    for (unsigned i = 0; i < 2 * 9000; ++i) {
      const WString text = FormatString(u"n%u", i % 9000);
      w.WriteStartElement(text, u"");
      w.WriteAttribute(text, u"", text, it_string);
      w.WriteText(text, it_string);
      w.WriteEndElement();
      expected += u"(" + text + u" " + text + u"=" + text + u"'" + text + u"')";
    }
    w.WriteEndElement();
  });
  EXPECT_EQ(TreeOf(octets), expected);
}

TEST(FastInfosetRoundTrip, KeepsObjects) {
  const CSmartPtr<Bag> bag = NewBag(Record());
  const CSmartPtr<Bag> copy = NewBag(Record());
  for (const char* text :
       {"<r:root xmlns:r='urn:r'/>",
        "<r:root xmlns:r='urn:r' xmlns='urn:p' h='00FF'><a>-7</a><b>true</b><c>12.50</c>"
        "<d>2001-01-31T10:00:00Z</d><e>TWFu</e><f>0.1</f><g>18446744073709551</g></r:root>",
        "<r:root xmlns:r='urn:r' xmlns='urn:p' xmlns:i='http://www.w3.org/2001/XMLSchema-instance'>"
        "<a i:nil='true'/><c i:nil='true'/></r:root>"}) {
    bag->FromXml(text, CSerializationContext());
    ForEachContext([&](const CSerializationContext& context) {
      copy->FromXmlStream(bag->ToFastInfosetStream(fid_None, context, Compression_None), context);
      EXPECT_EQ(TextOf(*copy), TextOf(*bag)) << text;
    });
  }
}

TEST(FastInfosetRoundTrip, KeepsOrders) {
  const CSmartPtr<Orders::COrderList> orders(new Orders::COrderList);
  const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
  orders->FromXmlFile(Wide(TOVIKXML_SEEDS "/xml_objects/orders.xml").c_str(),
                      CSerializationContext());
  ForEachContext([&](const CSerializationContext& context) {
    ExpectSameBehindFastInfoset(*orders, *copy, context);
  });
}

TEST(FastInfosetRoundTrip, KeepsTheMimeDatabase) {
  const char* const file = "/usr/share/mime/packages/freedesktop.org.xml";
  if (!std::filesystem::exists(file)) GTEST_SKIP() << file;
  const CSmartPtr<MimeDatabase::CMimeInfo> info(new MimeDatabase::CMimeInfo);
  const CSmartPtr<MimeDatabase::CMimeInfo> copy(new MimeDatabase::CMimeInfo);
  info->FromXmlFile(Wide(file).c_str(), CSerializationContext());
  ForEachContext([&](const CSerializationContext& context) {
    copy->FromXmlStream(info->ToFastInfosetStream(fid_None, context, Compression_None), context);
    EXPECT_TRUE(TextOf(*copy) == TextOf(*info));
  });
}

TEST(FastInfosetRoundTrip, GoesThroughFiles) {
  const TempDir directory;
  const WString name = directory / u"\u00fcber.fi";
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = NewBag(Record());
  bag->FromXml("<root xmlns='urn:r' h='00FF'/>", context);
  bag->ToFastInfosetFile(name.c_str(), fid_None, context, Compression_None);
  const CBinaryData octets = bag->ToFastInfosetStream(fid_None, context, Compression_None);
  EXPECT_EQ(FileBytes(directory.Path() / u"\u00fcber.fi"),
            std::string(octets.GetData(), octets.GetData() + octets.GetLength()));
  const CSmartPtr<Bag> copy = NewBag(Record());
  copy->FromXmlFile(name.c_str(), context);
  EXPECT_EQ(TextOf(*copy), TextOf(*bag));
  EXPECT_EQ(MessageOf<CTovikException>([&] {
              bag->ToFastInfosetFile(u"", static_cast<FInfoDecl>(10), context, Compression_ZLib);
            }),
            u"ZLIB Compression only available for To Stream methods.");
  const CBinaryData rootless = Octets("E0000001 00 F0");
  EXPECT_EQ(MessageOf<CTovikException>([&] { copy->FromXmlStream(rootless, context); }),
            u"Invalid or empty XML document");
}
