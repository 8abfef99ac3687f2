#ifndef TOVIKXML_VALUES_BINARY_DATA_H_
#define TOVIKXML_VALUES_BINARY_DATA_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

/// @file
/// The byte buffer of the library: the value of hexBinary and base64Binary of XML Schema datatypes,
/// the result of entry points that produce a stream, and the input of those that read one.
///
///     CBinaryData document;
///     document.SetAsBase64(u"TWFu");            // the bytes of "Man"
///     CBinaryData copy = document;              // shares the bytes
///     copy.Append(static_cast<unsigned char>('!'));   // copies them first; document is untouched
///
/// A value without a buffer and a value with an empty buffer are different and compare unequal.
namespace TovikXmlLib16 {

class CBinaryBuffer;

/// A handle on a buffer that is shared between copies and copied on the first write through one of
/// several handles. Handles on one buffer may be copied, changed and dropped on several threads;
/// one handle belongs to one thread at a time, and the bytes behind `GetData` are not guarded.
/// Lengths are limited to 32 bits: more raises `CTovikException` "Binary data is too long [%llu]".
/// A null array with a length raises `CTovikInvalidParamException`.
class TOVIKXML_EXPORT CBinaryData {
 public:
  /// A value without a buffer.
  CBinaryData() noexcept = default;
  /// Copies the bytes, or with `attach` takes the array, which must come from `new unsigned char[]`
  /// and is then freed with the buffer. Length 0 gives no buffer and leaves the array to the
  /// caller; so does a constructor that throws.
  CBinaryData(unsigned char* const data, unsigned long length, bool attach);
  /// Copies the code units as bytes in memory order, without the terminator. An empty or null text
  /// gives no buffer.
  CBinaryData(const wchar* text);
  CBinaryData(const CBinaryData& other);
  CBinaryData(CBinaryData&& other) noexcept;
  CBinaryData& operator=(const CBinaryData& other);
  CBinaryData& operator=(CBinaryData&& other) noexcept;
  virtual ~CBinaryData();

  /// Lets go of the buffer.
  void Clear();

  /// Replaces the value by a copy of the bytes; no buffer if there are none.
  void SetBuffer(const unsigned char* data, unsigned long length);
  void SetBuffer(const wchar* text);

  /// Adds bytes at the end, also when they are the value's own. Room grows to twice the need. Texts
  /// are added up to the first terminator, two bytes for a code unit. Raises `CTovikException`
  /// "Failed to append. [RefCount=%d]" if another thread copies this very handle meanwhile.
  void Append(const unsigned char* data, unsigned long length);
  void Append(unsigned char byte);
  void Append(wchar unit);
  void Append(const wchar* text);
  void Append(const WString& text);
  void Append(const CBinaryData& other);

  /// The bytes, valid until the handle changes; null without a buffer. Writing through the pointer
  /// of a shared buffer changes all handles on it.
  unsigned char* GetData() const;
  /// Number of bytes; 0 without a buffer.
  unsigned long GetLength() const;

  /// One byte; the second form stops sharing first. Raises `CTovikException` "Index Out of range
  /// [%d]" with the index if there is no such byte.
  unsigned char const& operator[](unsigned long index) const;
  unsigned char& operator[](unsigned long index);

  /// Hands out the bytes, or a copy if they are shared, and becomes a value without a buffer. The
  /// caller frees the array with `delete[]`. Null without a buffer. Raises `CTovikException`
  /// "Failed to release data. [RefCount=%d]" if another thread copies this very handle meanwhile.
  unsigned char* ReleaseData();

  /// Two upper case digits for each byte. A null array gives an empty text.
  WString GetAsHexString() const;
  static WString GetAsHexString(const unsigned char* data, unsigned long length);
  /// Base64 with the standard alphabet and padding and without line breaks (RFC 4648, section 4).
  WString GetAsBase64() const;

  /// Takes digits of either case; an empty text gives no buffer. Raises `CTovikException` "Invalid
  /// length in hex string" or "Invalid char in hex string [%c]" and is then without a buffer.
  void SetAsHexString(const wchar* text);
  /// Takes base64, skipping "=", blanks, tabs and line ends wherever they stand. Any other unit
  /// outside the alphabet gives an empty buffer; an empty text gives no buffer.
  void SetAsBase64(const wchar* text);

  /// Equal when both have no buffer, or both have one with the same bytes.
  bool operator==(const CBinaryData& other) const;
  bool operator!=(const CBinaryData& other) const { return !(*this == other); }

 protected:
  /// Stores in `out` a new array with the bytes of a hexadecimal text, which the caller frees with
  /// `delete[]`, and returns their number. Fails as `SetAsHexString` does, with null in `out`.
  static unsigned long ConvertToHexData(const wchar* text, unsigned char** out);

 private:
  void MakePrivate();

  CBinaryBuffer* m_buffer = nullptr;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_BINARY_DATA_H_
