#ifndef TESTS_FASTINFOSET_OCTETS_H_
#define TESTS_FASTINFOSET_OCTETS_H_

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/text.h"
#include "tests/support/tree_text.h"
#include "tests/support/writer_script.h"
#include "tovikxml/document/binary_stream.h"
#include "tovikxml/fastinfoset/writer.h"
#include "tovikxml/tovikxml.h"

/// Documents as rows of hexadecimal digits, in which blanks do not count, and trees as one line.
namespace TovikXmlTest {

using namespace TovikXmlLib16;

inline WString Digits(std::string_view hex) {
  WString digits;
  for (const char c : hex) {
    if (c != ' ') digits.push_back(static_cast<wchar>(c));
  }
  return digits;
}

inline CBinaryData Octets(std::string_view hex) {
  return ToBytes(FromHex(hex));
}

/// What the writer makes of some steps, complete with the end of the document.
inline CBinaryData WriteDocument(const std::function<void(CFastInfosetWriter&)>& steps,
                                 const CFastInfosetContext& context = {},
                                 FInfoDecl declaration = fid_None) {
  CBinaryStream stream;
  CFastInfosetWriter writer(context, &stream);
  writer.Open();
  writer.WriteStartDocument(declaration);
  steps(writer);
  writer.WriteEndDocument();
  writer.Close();
  return stream.GetData();
}

inline WString TreeOf(const CBinaryData& octets,
                      const CSerializationContext& context = CSerializationContext()) {
  CXmlDocument document(context);
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  return Describe(document);
}

inline WString TreeOf(std::string_view hex) {
  return TreeOf(Octets(hex));
}

}  // namespace TovikXmlTest

#endif  // TESTS_FASTINFOSET_OCTETS_H_
