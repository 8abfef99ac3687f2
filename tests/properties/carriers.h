#ifndef TESTS_PROPERTIES_CARRIERS_H_
#define TESTS_PROPERTIES_CARRIERS_H_

#include <string>
#include <vector>

#include "tests/support/bag.h"
#include "tests/support/temp_dir.h"

namespace TovikXmlTest {

/// Carriers of one family keep the same things.
enum Family {
  kXml,
  kIndentedXml,
  kFastInfoset,
  kSuggestedFastInfoset,  ///< with the suggested encodings of values
  kBareJson,
  kMarkedJson,
  kFullJson,
  kFamilies
};

/// One way of an object into text, bytes or a file, and back.
class Carrier {
 public:
  enum Target { kText, kBytes, kFile, kOverlappedFile };

  Carrier(Family family, Target target, XmlEncoding encoding, CompressionType compression,
          bool formatted, EOLType eol, bool header, bool aliases);

  /// Writes the object, and gives a function that reads what was written into another.
  std::function<void(Bag&)> Write(const Bag& object, const TempDir& directory) const;

  Family GetFamily() const { return m_family; }
  bool IsCompressed() const { return m_compression != Compression_None; }
  std::string Name() const;

 private:
  bool IsJson() const { return m_family >= kBareJson; }
  bool IsFastInfoset() const {
    return m_family == kFastInfoset || m_family == kSuggestedFastInfoset;
  }
  WString ToText(const Bag& object) const;
  CBinaryData ToBytes(const Bag& object) const;
  void ToFile(const Bag& object, const wchar* name) const;

  Family m_family;
  Target m_target;
  XmlEncoding m_encoding;
  CompressionType m_compression;
  bool m_formatted;
  EOLType m_eol;
  bool m_header;  ///< a declaration, of XML text or Fast Infoset
  bool m_aliases;
  CSerializationContext m_context;
};

/// Every combination that can be written and read.
const std::vector<Carrier>& AllCarriers();

}  // namespace TovikXmlTest

#endif  // TESTS_PROPERTIES_CARRIERS_H_
