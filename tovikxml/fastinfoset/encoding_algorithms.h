#ifndef TOVIKXML_FASTINFOSET_ENCODING_ALGORITHMS_H_
#define TOVIKXML_FASTINFOSET_ENCODING_ALGORITHMS_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/binary_data.h"

namespace TovikXmlLib16 {

/// The built-in encoding algorithms of Fast Infoset (ITU-T X.891, clause 10): the octets of a value
/// and its lexical form.
///
///     CFastInfosetBinaryData data;
///     data.SetAsEncodedString(4, u"300");         // 00 00 01 2C
///     data.GetAsString(4);                        // "300"
///
/// | Index | Algorithm   | Octets of one value               |
/// |-------|-------------|-----------------------------------|
/// | 1, 2  | hex, base64 | the bytes                         |
/// | 3     | short       | 2, high byte first                |
/// | 4     | int         | 4, high byte first                |
/// | 5     | long        | 8, high byte first                |
/// | 6     | boolean     | bits, behind four bits that count the unused ones at the end |
/// | 7, 8  | float, double | 4 or 8 of IEEE 754, high byte first |
/// | 9     | uuid        | 16; as text 32 upper case digits  |
/// | 10    | cdata       | the text in UTF-8; written only   |
class TOVIKXML_EXPORT CFastInfosetBinaryData : public CBinaryData {
 public:
  CFastInfosetBinaryData() = default;
  CFastInfosetBinaryData(const CFastInfosetBinaryData& other) = default;
  CFastInfosetBinaryData(const CBinaryData& other) : CBinaryData(other) {}
  CFastInfosetBinaryData(unsigned char* const data, unsigned long length, bool attach)
      : CBinaryData(data, length, attach) {}
  CFastInfosetBinaryData(const wchar* text) : CBinaryData(text) {}
  CFastInfosetBinaryData& operator=(const CFastInfosetBinaryData& other) = default;
  ~CFastInfosetBinaryData() override = default;

  /// The octets as text; several values of the algorithms 3 to 9 with a blank between. Empty
  /// without a buffer. Throws `CTovikException` "Invalid value for INT byte encoding." (SHORT,
  /// LONG, FLOAT, DOUBLE, UUID) for octets that are no whole number of values, and "Unknown byte
  /// encoding." for any other algorithm, 10 included.
  WString GetAsString(unsigned long algorithm) const;
  /// Replaces the content by the octets of one value. Throws "Unknown byte encoding." for an
  /// unknown algorithm and what the conversion throws for a text that does not fit; the content is
  /// then empty.
  void SetAsEncodedString(unsigned long algorithm, const wchar* text);
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_ENCODING_ALGORITHMS_H_
