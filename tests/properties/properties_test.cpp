#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/properties/all_kinds.h"
#include "tests/properties/carriers.h"
#include "tests/support/text.h"

// What an object holds comes back from every carrier, but for what one table says is lost.

using namespace TovikXmlTest;

namespace {

// Shapes of one property, for the table.

using MakeShape = void (*)(Shape& shape, ItemType type);

void AsElement(Shape& shape, ItemType type) {
  shape.Add(Plain<CElementInfoSeqPrimMnd>(u"e", 0, type));
}
void AsNillable(Shape& shape, ItemType type) {
  shape.Add(Plain<CElementInfoSeqPrimMnd>(u"e", 0, type, true));
}
void AsCollapsed(Shape& shape, ItemType type) {
  shape.Add(Prim<CElementInfoSeqPrimMnd>(u"e", 0, type));
}
void AsDefaulted(Shape& shape, ItemType type) {
  shape.Add(Prim<CElementInfoSeqPrimMnd>(u"e", 0, type, u"red"));
}
void AsAttribute(Shape& shape, ItemType type) {
  shape.Add(PlainAttribute(u"a", 0, type));
}
void AsQualifiedAttribute(Shape& shape, ItemType type) {
  shape.Add(PlainAttribute(u"a", 0, type, u"urn:q"));
}
void AsOwnText(Shape& shape, ItemType type) {
  shape.Text(0, type);
}
/// The value is XML text.
void AsOpenContent(Shape& shape, ItemType /*type*/) {
  shape.Add(new CElementInfoSeqUntpdOpt(u"AnyElement", u"", 0, u"##any", u"urn:own"));
}

// What comes back is the value itself, another one, or nothing.
constexpr const char* kept = nullptr;
constexpr const char* unwritten = "refused to write";
constexpr const char* unread = "refused to read";
constexpr const char* refused = "refused";  // by some at writing, by some at reading

/// What a carrier makes of a value; the columns are the families. A text stands for what comes
/// back instead.
struct Loss {
  Feature feature;
  MakeShape shape;
  ItemType type;
  WString value;  ///< "nil" with `AsNillable`
  const char* xml;
  const char* indentedXml;
  const char* fastInfoset;
  const char* suggested;
  const char* bareJson;
  const char* markedJson;
  const char* fullJson;

  const char* In(Family family) const {
    const char* const columns[] = {xml,      indentedXml, fastInfoset, suggested,
                                   bareJson, markedJson,  fullJson};
    return columns[family];
  }
};

// clang-format off
const Loss kLosses[] = {
    {kAttributes, AsAttribute, it_i4, u"7", kept, kept, kept, kept, unread, kept, kept},
    {kQualifiedAttributes, AsQualifiedAttribute, it_i4, u"7", kept, kept, kept, kept, unread, unread, kept},
    {kOpenNamespaces, AsOpenContent, it_string, u"<p:x xmlns:p='urn:x'/>", kept, kept, kept, kept, "{}x ''", "{}x ''", kept},
    {kOpenChildren, AsOpenContent, it_string, u"<x><y/></x>", kept, "{}x '\n\t\t\n\t'", kept, kept, unread, "{}x '\n\t\t\n\t'", "{}x '\n\t\t\n\t'"},
    {kNil, AsNillable, it_string, u"nil", kept, kept, kept, kept, "string ", "string ", "string "},
    {kNil, AsNillable, it_i4, u"nil", kept, kept, kept, kept, unread, unread, unread},
    {kNotFinite, AsElement, it_r8, u"NaN", kept, kept, kept, kept, unread, unread, unread},
    {kNotFinite, AsElement, it_r4, u"-INF", kept, kept, kept, kept, unread, unread, unread},
    {kWideUnsigned, AsElement, it_ui8, u"9223372036854775808", kept, kept, kept, unwritten, kept, kept, kept},
    {kFractionOrOffset, AsElement, it_time, u"12:00:00.5", kept, kept, kept, unwritten, kept, kept, kept},
    {kFractionOrOffset, AsElement, it_datetime, u"2001-01-31T10:00:00+01:00", kept, kept, kept, unwritten, kept, kept, kept},
    {kAttributeTab, AsAttribute, it_string, u"a\tb", "string a b", "string a b", kept, kept, unread, "string a b", "string a b"},
    {kCarriageReturn, AsElement, it_string, u"a\rb", "string ab", "string ab", "string ab", "string ab", "string ab", "string ab", "string ab"},
    {kCarriageReturn, AsAttribute, it_string, u"a\r\nb", "string a\nb", "string a\nb", kept, kept, unread, "string a\nb", "string a\nb"},
    {kControl, AsElement, it_string, u"\u0001", unread, unread, kept, kept, unread, unread, unread},
    {kCDataMarker, AsElement, it_string, u"<![CDATA[x]]>", "string x", "string x", kept, kept, "string x", "string x", "string x"},
    {kCDataMarker, AsElement, it_string, u"<![CDATA[x", unread, unread, kept, kept, kept, kept, kept},
    {kCDataMarker, AsElement, it_string, u"x<![CDATA[y]]>", kept, kept, kept, kept, kept, kept, kept},
    {kNeverRandom, AsElement, it_string, WString(u"a\0b", 3), "string a", "string a", "string a", "string a", "string a", "string a", "string a"},
    {kNeverRandom, AsElement, it_string, u"\ufffe", unread, unread, kept, kept, unread, unread, unread},
    {kNeverRandom, AsElement, it_string, WString(1, wchar(0xD800)), refused, refused, unwritten, unwritten, refused, refused, refused},
    {kNeverRandom, AsElement, it_year, u"-0001", unwritten, unwritten, unwritten, unwritten, unwritten, unwritten, unwritten},
    {kNeverRandom, AsElement, it_char, u"x", unwritten, unwritten, unwritten, unwritten, unwritten, unwritten, unwritten},
    {kNeverRandom, AsOwnText, it_char, u"x", kept, kept, kept, kept, kept, kept, kept},
    {kNeverRandom, AsCollapsed, it_string, u" a  b ", "string a b", "string a b", "string a b", "string a b", "string a b", "string a b", "string a b"},
    {kNeverRandom, AsDefaulted, it_string, u"", "string red", "string red", "string red", "string red", "string red", "string red", "string red"},
    // rounded to thirty places, whose last zero is not cut
    {kNeverRandom, AsElement, it_decimal, u"0.1000000000000000000000000000001", "decimal 0.1", "decimal 0.1", "decimal 0.1", "decimal 0.1", "decimal 0.1", "decimal 0.1", "decimal 0.1"},
    {kNeverRandom, AsElement, it_string, u"", kept, kept, kept, kept, kept, kept, kept},
    {kNeverRandom, AsAttribute, it_string, u"", kept, kept, kept, kept, unread, kept, kept},
    {kNeverRandom, AsElement, it_hexBinary, u"", kept, kept, kept, kept, kept, kept, kept},
};
// clang-format on

Features LostBy(const std::vector<Family>& families) {
  Features lost;
  for (const Loss& loss : kLosses) {
    for (const Family family : families) {
      if (loss.In(family) != kept) lost.set(loss.feature);
    }
  }
  return lost;
}

void PutValue(const Loss& loss, Bag& bag) {
  if (loss.shape == AsOpenContent) {
    const CSmartPtr<CElement> element(new CElement(u"unread", u"", u"##any", u"urn:own"));
    element->FromXml(loss.value.c_str());
    bag.Value(0).SetXmlObject(element.Get());
  } else if (loss.value == u"nil") {
    bag.Value(0).SetNil(loss.type);
  } else {
    bag.Value(0).FromString(loss.value, loss.type, CWhitespaceUtils::ws_none);
  }
}

/// What the property of a shape holds, behind its path.
std::string Held(const Bag& bag) {
  std::string all;
  for (const std::string& line : Describe(bag)) {
    if (line.starts_with("/0: ")) all += line.substr(4);
  }
  return all;
}

std::string OutcomeOf(const Carrier& carrier, const Bag& bag, const Shape& shape,
                      const TempDir& directory) {
  std::function<void(Bag&)> read;
  try {
    read = carrier.Write(bag, directory);
  } catch (const CTovikException&) {
    return unwritten;
  }
  try {
    const CSmartPtr<Bag> copy = NewBag(shape);
    read(*copy);
    return Held(*copy);
  } catch (const CTovikException&) {
    return unread;
  }
}

// Takes an object through a carrier; false, with a report, if it does not come back as described.
bool ComesBack(const Carrier& carrier, unsigned seed, const Bag& object, Bag& copy,
               const std::vector<std::string>& expected, const TempDir& directory) {
  try {
    carrier.Write(object, directory)(copy);
  } catch (const CTovikException& e) {
    ADD_FAILURE() << "seed " << seed << ", " << carrier.Name() << ": " << e.what();
    return false;
  }
  const std::string difference = FirstDifference(expected, Describe(copy));
  EXPECT_EQ(difference, "") << "seed " << seed << ", " << carrier.Name();
  return difference.empty();
}

}  // namespace

TEST(Properties, EveryCarrierGivesBackWhatItsFamilyKeeps) {
  const TempDir directory;
  const std::vector<Carrier>& carriers = AllCarriers();
  constexpr std::size_t kStep = 7;  // each seed takes every seventh carrier, from another start
  for (unsigned seed = 0; seed < 4 * kStep; ++seed) {
    for (int number = 0; number < kFamilies; ++number) {
      const auto family = static_cast<Family>(number);
      const CSmartPtr<Bag> object = RandomObject(seed, LostBy({family}));
      const std::vector<std::string> expected = Describe(*object);
      for (std::size_t i = seed % kStep; i < carriers.size(); i += kStep) {
        if (carriers[i].GetFamily() != family) continue;
        const CSmartPtr<Bag> copy = NewBag(AllKinds());
        if (!ComesBack(carriers[i], seed, *object, *copy, expected, directory)) return;
      }
    }
  }
}

// Each carrier gets what the one before it gave, so that an object goes from format to format. The
// objects that are read into hold the values of the time before.
TEST(Properties, ChainsOfCarriersGiveBackWhatAllOfThemKeep) {
  const TempDir directory;
  const Features lost =
      LostBy({kXml, kIndentedXml, kFastInfoset, kSuggestedFastInfoset, kFullJson});
  for (unsigned seed = 1000; seed < 1003; ++seed) {
    std::vector<const Carrier*> chain;
    for (const Carrier& carrier : AllCarriers()) {
      if (carrier.GetFamily() != kBareJson && carrier.GetFamily() != kMarkedJson) {
        chain.push_back(&carrier);
      }
    }
    std::shuffle(chain.begin(), chain.end(), std::mt19937(seed));
    CSmartPtr<Bag> from = RandomObject(seed, lost);
    CSmartPtr<Bag> to = RandomObject(seed + 1, Features());
    const std::vector<std::string> expected = Describe(*from);
    for (const Carrier* carrier : chain) {
      if (!ComesBack(*carrier, seed, *from, *to, expected, directory)) return;
      std::swap(from, to);
    }
  }
}

TEST(Properties, TheTableOfLossesIsTrue) {
  const TempDir directory;
  for (const Loss& loss : kLosses) {
    Shape shape(xgt_Sequence, xet_Element, u"root");
    loss.shape(shape, loss.type);
    const CSmartPtr<Bag> bag = NewBag(shape);
    try {
      PutValue(loss, *bag);
    } catch (const CTovikException&) {
      EXPECT_STREQ(loss.xml, unwritten) << DisplayUtf8(loss.value);
      continue;
    }
    for (const Carrier& carrier : AllCarriers()) {
      if (carrier.IsCompressed()) continue;  // so little does not shrink
      const char* const expected = loss.In(carrier.GetFamily());
      std::string outcome = OutcomeOf(carrier, *bag, shape, directory);
      if (expected == refused) outcome = outcome.substr(0, std::string(refused).size());
      EXPECT_EQ(outcome, expected ? expected : Held(*bag))
          << "row " << &loss - kLosses << ", " << carrier.Name();
      if (HasFailure()) break;
    }
  }
}

// A pair of surrogates at every place in the parser's buffers, which are full now and then, in text
// and in values, from text and from bytes of either order.
TEST(Properties, PairsOfSurrogatesPassEveryBorder) {
  Shape shape(xgt_Sequence);
  shape.Add(PlainAttribute(u"a", 0, it_string))
      .Add(Plain<CElementInfoSeqPrimOpt>(u"e", 1, it_string));
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = NewBag(shape);
  const CSmartPtr<Bag> copy = NewBag(shape);
  for (unsigned length = 1000; length < 2100; ++length) {
    const WString value = WString(length, u'x') + u"\U0001F600";
    bag->Value(0).SetString(value);
    bag->Value(1).SetString(value);
    CBinaryData bytes =
        bag->ToXmlStream(true, false, Encoding_UTF16, EOL_LF, context, Compression_None);
    std::string swapped(bytes.GetData(), bytes.GetData() + bytes.GetLength());
    for (std::size_t i = 0; i < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
    const std::function<void()> reads[] = {
        [&] { copy->FromXml(bag->ToXml(false, false, EOL_LF, context).c_str(), context); },
        [&] { copy->FromXmlStream(bytes, context); },
        [&] {
          copy->FromXmlStream(reinterpret_cast<unsigned char*>(swapped.data()), swapped.size(),
                              context);
        }};
    for (const auto& read : reads) {
      read();
      ASSERT_EQ(FirstDifference(Describe(*bag), Describe(*copy)), "")
          << "road " << &read - reads << ", length " << length;
    }
  }
}

TEST(Properties, Utf16IsReadAndRefusedAsTheParserDoesIt) {
  const auto utf16 = [](const WString& text, bool highFirst) {
    std::string bytes;
    for (const wchar unit : text) {
      const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
      bytes += highFirst ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
  };
  const std::string incorrect = "encoding specified in XML declaration is incorrect at line 1";
  const struct {
    std::string bytes;
    std::string outcome;  ///< "" if it is read
  } rows[] = {
      {utf16(u"<a/>", false), ""},
      {utf16(u"<a/>", true), ""},
      {utf16(u"\ufeff<a\U0001F600/>", true), "not well-formed (invalid token) at line 1"},
      {utf16(u"<?xml version='1.0' encoding='utf-16'?><a/>", true), ""},
      {utf16(u"<?xml version='1.0' encoding='UTF-16BE'?><a/>", true), ""},
      {utf16(u"<?xml version='1.0' encoding='UTF-16LE'?><a/>", true), incorrect},
      {utf16(u"<?xml version='1.0' encoding='UTF-8'?><a/>", false), incorrect},
      {utf16(u"<?xml version='1.0' encoding='x'?><a/>", false), "unknown encoding at line 1"},
      {utf16(u"<a>\n", false) + utf16({wchar(0xD800), u'<'}, false) + utf16(u"/a>", false),
       "not well-formed (invalid token) at line 2"},
      {utf16(u"<a/>", false) + "x", "unclosed token at line 1"},
      {utf16(u"\ufeff\ufeff<a/>", false), "not well-formed (invalid token) at line 1"},
  };
  for (const auto& row : rows) {
    const TempDir directory;
    MakeFile(directory.Path() / "f", row.bytes);
    for (const bool overlapped : {false, true}) {
      std::string outcome;
      AsyncFromXmlFile(overlapped);
      try {
        CXmlDocument().Load((directory / u"f").c_str());
      } catch (const CTovikException& e) {
        outcome = e.what();
      }
      AsyncFromXmlFile(false);
      EXPECT_EQ(outcome, row.outcome) << "row " << &row - rows;
    }
  }
}
