#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"

using namespace TovikXmlTest;

namespace {

const std::string kRoot = "E0000001 00 3C0061 ";

// A document with every form of name, value and item that the reader knows.
const CBinaryData& Sample() {
  static const CBinaryData octets = Octets(
      "E0000001 7F 00 0075 0078 1FFF 0075 00 016162 00 0075 00 0070 00 0075 00 006C 00 006E 00 "
      "0075 "
      "00 2000 12 00 0078 00 0079 00 03 80 80 80 00 00 80 C3006E 0073 0070 F0 D1006E 0073 0070 "
      "006E F0 045554462D38 01 02312E30 E10070 0078 C6 0073 E1007080 F0 "
      "78 CD0475726E3A64 CF00700475726E3A70 F0 3D810072 7B81820069 4031 00 80 780064 703300 00012C "
      "780065 FF F0 3F81820073 916869 F0 01 A0 E20063 C80065 8C0E050000000100000002 98001F "
      "8601D83D "
      "DE00 8C1438 8806022001A01A31 7C0076 00 0078 FF FF F0");
  return octets;
}

bool IsExpectedFailure(const WString& message) {
  const auto ends = [&](WStringView end) {
    return message.size() >= end.size() && message.substr(message.size() - end.size()) == end;
  };
  return message.find(u"Failed to parse FastInfoset. ") == 0 || ends(u" byte encoding.") ||
         message.find(u" at line ") != WString::npos;
}

void ReadOrRefuse(const std::string& octets) {
  // Of just the size, so that a sanitizer sees every look beyond it.
  const std::vector<unsigned char> exact(octets.begin(), octets.end());
  for (const bool readsVocabulary : {false, true}) {
    CSerializationContext context;
    context.GetFIContext().SetReadInitialVocabulary(readsVocabulary);
    context.GetFIContext().SetUseGeneratedVocabulary(readsVocabulary);
    context.GetFIContext().SetExternalVocabularyURI(u"u");
    try {
      CXmlDocument(context).LoadXmlStream(exact.data(), exact.size());
    } catch (const CTovikException& e) {
      EXPECT_TRUE(IsExpectedFailure(e.GetMessage())) << e.what();
    }
  }
}

WString FailureOf(const CBinaryData& octets, std::uint64_t maxText = 1 << 20) {
  CSerializationContext context;
  context.SetMaxExpandedText(maxText);
  return MessageOf<CTovikException>([&] { TreeOf(octets, context); });
}

CBinaryData Repeated(const std::string& head, const std::string& item, int count,
                     const std::string& end = "") {
  CBinaryData octets = Octets(head);
  const CBinaryData one = Octets(item);
  for (int i = 0; i < count; ++i) octets.Append(one);
  octets.Append(Octets(end));
  return octets;
}

}  // namespace

TEST(HostileFastInfoset, IsCutAnywhere) {
  ASSERT_NE(TreeOf(Sample()), u"");
  // The last octet is the end of the document behind the root's.
  for (unsigned long size = 5; size + 1 < Sample().GetLength(); ++size) {
    const WString message = FailureOf(ToBytes(FromBytes(Sample()).substr(0, size)));
    EXPECT_TRUE(message == u"Failed to parse FastInfoset. Unexpected End of File." ||
                message ==
                    u"Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 "
                    u"type  on the second bit of an octet.")
        << size << DisplayUtf8(message);
  }
}

TEST(HostileFastInfoset, HasAnyOctetChanged) {
  std::string octets = FromBytes(Sample());
  for (char& octet : octets) {
    const char original = octet;
    for (int value = 0; value < 256; ++value) {
      octet = static_cast<char>(value);
      ReadOrRefuse(octets);
    }
    octet = original;
  }
}

TEST(HostileFastInfoset, RefersToOneLongTextAgainAndAgain) {
  std::string text;
  for (int i = 0; i < 0xFFF + 259; ++i) text += "78";
  const WString limit =
      u"Failed to parse FastInfoset. The text exceeds the limit of 1048576 bytes.";
  const std::string length = "60 00000FC1";  // of the same text on the second bit
  const CBinaryData rows[] = {
      Repeated(kRoot + "93 00000FFF" + text, "A0", 100000, "F0"),
      Repeated("E0000001 00 7C0061 780062 4C 00000FF9" + text, "0080", 100000, "F0F0"),
      Repeated("E0000001 00 38 CF 0070 " + length + text, "CF8181", 100000, "F03C0061FF"),
      // The same name with other parts, each of which would be kept.
      Repeated(kRoot + "3C " + length + text, "3C81F0", 100000, "F0F0"),
      // Bits that become words.
      Repeated(kRoot + "8C17 0001859D", "FFFF", 50000, "F0"),
  };
  for (const CBinaryData& octets : rows) EXPECT_EQ(FailureOf(octets), limit);
  CSerializationContext context;
  context.SetMaxExpandedText(10);
  EXPECT_EQ(TreeOf(Octets(kRoot + "917878 A0 F0"), context), u"a'xxxx'");
  EXPECT_EQ(FailureOf(Octets(kRoot + "917878 A0 A0 F0"), 10),
            u"Failed to parse FastInfoset. The text exceeds the limit of 10 bytes.");
}

TEST(HostileFastInfoset, IsAMillionElementsDeep) {
  constexpr int kLevels = 1000000;
  const CBinaryData closed = Repeated(kRoot, "00", kLevels, std::string(kLevels + 2, 'F'));
  CXmlDocument document;
  document.LoadXmlStream(closed.GetData(), closed.GetLength());
  int depth = 0;
  for (const CXmlElement* e = document.GetDocumentElement(); e; e = e->GetFirstElement()) ++depth;
  EXPECT_EQ(depth, kLevels + 1);
  EXPECT_EQ(FailureOf(Repeated(kRoot, "00", kLevels), std::uint64_t{1} << 30),
            u"Failed to parse FastInfoset. Unexpected End of File.");
}
