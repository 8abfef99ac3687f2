#include "tovikxml/document/text_stream.h"

#include <optional>
#include <utility>
#include <vector>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/document/byte_array.h"

namespace TovikXmlLib16 {
namespace {

using Pieces = std::vector<WStringView>;

// The chunks of the text, the last one cut at the first zero unit.
Pieces PiecesUpToZero(const CStringBuffer& buffer) {
  Pieces pieces;
  pieces.reserve(buffer.GetChunkCount());
  for (std::size_t i = 0; i < buffer.GetChunkCount(); ++i) {
    const WStringView chunk = buffer.GetChunk(i);
    pieces.push_back(chunk.substr(0, FindUnit(chunk, 0)));
    if (pieces.back().size() < chunk.size()) break;
  }
  return pieces;
}

// Visits the text with no surrogate pair divided: a high surrogate at the end of a piece goes, with
// the first unit of the next one, into a visit of its own.
template <class Visit>
void VisitPairsWhole(const Pieces& pieces, Visit visit) {
  wchar high = 0;
  for (WStringView piece : pieces) {
    if (piece.empty()) continue;
    if (high != 0) {
      const wchar pair[] = {std::exchange(high, wchar(0)), piece.front()};
      visit(WStringView(pair, 2));
      piece.remove_prefix(1);
    }
    if (!piece.empty() && IsHighSurrogate(piece.back())) {
      high = piece.back();
      piece.remove_suffix(1);
    }
    visit(piece);
  }
  if (high != 0) visit(WStringView(&high, 1));
}

// Nothing for text that has no UTF-8 form.
std::optional<CBinaryData> EncodeUtf8(const Pieces& pieces) {
  std::uint64_t length = 0;
  for (const WStringView piece : pieces) length += Utf8Length(piece);
  ByteArray bytes = NewByteArray(length);
  unsigned char* end = bytes.data.get();
  VisitPairsWhole(pieces, [&](WStringView piece) {
    if (end) end = WriteUtf8(piece, end);
  });
  if (!end) return std::nullopt;
  return ToBinaryData(std::move(bytes));
}

std::uint64_t LengthOf(const Pieces& pieces) {
  std::uint64_t units = 0;
  for (const WStringView piece : pieces) units += piece.size();
  return units;
}

CBinaryData EncodeUtf16(const Pieces& pieces) {
  ByteArray bytes = NewByteArray(2 * LengthOf(pieces));
  unsigned char* end = bytes.data.get();
  for (const WStringView piece : pieces) {
    for (const wchar unit : piece) {
      *end++ = static_cast<unsigned char>(unit & 0xFF);
      *end++ = static_cast<unsigned char>(unit >> 8);
    }
  }
  return ToBinaryData(std::move(bytes));
}

std::optional<CBinaryData> Encode(const Pieces& pieces, XmlEncoding encoding) {
  switch (encoding) {
    case Encoding_UTF8:
      return EncodeUtf8(pieces);
    case Encoding_UTF16:
    case Encoding_UTF16_Undeclared:
      return EncodeUtf16(pieces);
    default:
      throw CTovikException(u"Unknown Encoding, select UTF-8 (contact our support team)");
  }
}

}  // namespace

CTextStream::CTextStream() : CTextStream(Encoding_None) {}

CTextStream::CTextStream(XmlEncoding encoding) : CTextStream(u"CTextStream", encoding) {}

CTextStream::CTextStream(const wchar* className, XmlEncoding encoding)
    : CInstanceMonitor(className), m_encoding(encoding) {}

void CTextStream::Open() {
  ClearText();
}

void CTextStream::Close() {}

void CTextStream::Flush() {}

CBinaryData CTextStream::GetBytes() const {
  return Encode(PiecesUpToZero(m_buffer), m_encoding).value_or(CBinaryData());
}

CBinaryData CTextStream::GetCheckedBytes() const {
  const Pieces pieces = PiecesUpToZero(m_buffer);
  if (LengthOf(pieces) != GetLength()) {
    throw CTovikInvalidValueException(u"The text has a zero unit and cannot be written as bytes");
  }
  std::optional<CBinaryData> bytes = Encode(pieces, m_encoding);
  if (!bytes) RefuseUnpairedSurrogate();
  return *std::move(bytes);
}

}  // namespace TovikXmlLib16
