#ifndef TOVIKXML_DOCUMENT_ENCODING_H_
#define TOVIKXML_DOCUMENT_ENCODING_H_

/// @file
/// How text output becomes lines, bytes and compressed bytes. The integer values are part of the
/// exported interface.
namespace TovikXmlLib16 {

/// The line end that text output uses.
enum EOLType : int { EOL_CRLF = 0, EOL_LF = 1 };

/// How 16-bit text becomes bytes, and what an XML declaration says of it.
enum XmlEncoding : int {
  /// No bytes: the text stays 16-bit text. Asking for bytes fails.
  Encoding_None = 0,
  /// UTF-8, declared as such, no byte order mark.
  Encoding_UTF8 = 1,
  /// UTF-16, low byte first, declared; a byte order mark in files.
  Encoding_UTF16 = 2,
  /// UTF-16, low byte first, not declared; a byte order mark in files.
  Encoding_UTF16_Undeclared = 3
};

/// The wrapper of compressed output.
enum CompressionType : int {
  Compression_None = 0,
  /// RFC 1952.
  Compression_GZip = 1,
  /// RFC 1950.
  Compression_ZLib = 2
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_ENCODING_H_
