#include "tovikxml/values/binary_data.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/platform/critical_section.h"
#include "tovikxml/values/base64.h"

namespace TovikXmlLib16 {
namespace {

using Bytes = std::unique_ptr<unsigned char[]>;

constexpr std::uint64_t kMaxLength = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMinCapacity = 8192;

std::uint32_t CheckedLength(std::uint64_t length) {
  if (length > kMaxLength) {
    throw CTovikException(FormatString(u"Binary data is too long [%llu]", length));
  }
  return static_cast<std::uint32_t>(length);
}

std::uint32_t CheckedLength(const unsigned char* data, std::uint64_t length) {
  if (!data) throw CTovikInvalidParamException(u"Binary data is null");
  return CheckedLength(length);
}

std::uint32_t DoubleOf(std::uint32_t length) {
  return static_cast<std::uint32_t>(std::min(kMaxLength, 2 * std::uint64_t{length}));
}

Bytes NewBytes(std::size_t count) {
  return Bytes(new unsigned char[count]);
}

const unsigned char* BytesOf(WStringView text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned long ByteCount(WStringView text) {
  return CheckedLength(std::uint64_t{text.size()} * sizeof(wchar));
}

unsigned HexDigit(wchar unit) {
  if (IsAsciiDigit(unit)) return static_cast<unsigned>(unit - u'0');
  const wchar upper = ToAsciiUpper(unit);
  if (upper >= u'A' && upper <= u'F') return static_cast<unsigned>(upper - u'A' + 10);
  throw CTovikException(FormatString(u"Invalid char in hex string [%c]", unit));
}

// Holds a lock for the length of a block.
class Guard {
 public:
  explicit Guard(CTovikCriticalSection& lock) : m_lock(lock) { m_lock.Enter(); }
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;
  ~Guard() { m_lock.Leave(); }

 private:
  CTovikCriticalSection& m_lock;
};

}  // namespace

/// The bytes that handles share. The lock guards `m_refCount` and the exchange of the array; the
/// array changes only while there is a single handle.
class CBinaryBuffer {
 public:
  static CBinaryBuffer* Copy(const unsigned char* data, std::uint32_t length);
  static CBinaryBuffer* Attach(unsigned char* data, std::uint32_t length) {
    return new CBinaryBuffer(data, length, length);
  }

  void Share();
  void Release();
  /// This buffer if its holder is the only one, else a copy on which the holder's count moves.
  CBinaryBuffer* Unshared();
  void Append(const unsigned char* data, std::uint32_t length);
  /// The array; the buffer itself is gone afterwards.
  unsigned char* Dissolve();

  unsigned char* Data() const { return m_data.get(); }
  std::uint32_t Length() const { return m_length; }

 private:
  CBinaryBuffer(unsigned char* data, std::uint32_t length, std::uint32_t capacity)
      : m_data(data), m_length(length), m_capacity(capacity) {}

  Bytes m_data;
  std::uint32_t m_length;
  std::uint32_t m_capacity;
  std::int32_t m_refCount = 1;
  CTovikCriticalSection m_lock;
};

CBinaryBuffer* CBinaryBuffer::Copy(const unsigned char* data, std::uint32_t length) {
  const auto capacity = std::max(DoubleOf(length), static_cast<std::uint32_t>(kMinCapacity));
  Bytes bytes = NewBytes(capacity);
  std::memcpy(bytes.get(), data, length);
  auto* const buffer = new CBinaryBuffer(bytes.get(), length, capacity);
  bytes.release();
  return buffer;
}

void CBinaryBuffer::Share() {
  const Guard guard(m_lock);
  ++m_refCount;
}

void CBinaryBuffer::Release() {
  bool last;
  {
    const Guard guard(m_lock);
    last = --m_refCount == 0;
  }
  if (last) delete this;
}

CBinaryBuffer* CBinaryBuffer::Unshared() {
  const Guard guard(m_lock);
  if (m_refCount < 2) return this;
  CBinaryBuffer* const copy = Copy(m_data.get(), m_length);
  --m_refCount;
  return copy;
}

void CBinaryBuffer::Append(const unsigned char* data, std::uint32_t length) {
  const Guard guard(m_lock);
  if (m_refCount != 1) {
    throw CTovikException(FormatString(u"Failed to append. [RefCount=%d]", m_refCount));
  }
  const std::uint32_t newLength = CheckedLength(std::uint64_t{m_length} + length);
  // The old array lives until the new bytes are copied, since they may stand in it.
  Bytes old;
  if (newLength > m_capacity) {
    const std::uint32_t capacity = DoubleOf(newLength);
    old = std::exchange(m_data, NewBytes(capacity));
    m_capacity = capacity;
    std::memcpy(m_data.get(), old.get(), m_length);
  }
  std::memcpy(m_data.get() + m_length, data, length);
  m_length = newLength;
}

unsigned char* CBinaryBuffer::Dissolve() {
  unsigned char* data;
  {
    const Guard guard(m_lock);
    if (m_refCount != 1) {
      throw CTovikException(FormatString(u"Failed to release data. [RefCount=%d]", m_refCount));
    }
    data = m_data.release();
  }
  delete this;
  return data;
}

CBinaryData::CBinaryData(unsigned char* const data, unsigned long length, bool attach) {
  if (length == 0) return;
  const std::uint32_t checked = CheckedLength(data, length);
  m_buffer = attach ? CBinaryBuffer::Attach(data, checked) : CBinaryBuffer::Copy(data, checked);
}

CBinaryData::CBinaryData(const wchar* text) {
  SetBuffer(text);
}

CBinaryData::CBinaryData(const CBinaryData& other) : m_buffer(other.m_buffer) {
  if (m_buffer) m_buffer->Share();
}

CBinaryData::CBinaryData(CBinaryData&& other) noexcept
    : m_buffer(std::exchange(other.m_buffer, nullptr)) {}

CBinaryData& CBinaryData::operator=(const CBinaryData& other) {
  CBinaryData copy(other);
  std::swap(m_buffer, copy.m_buffer);
  return *this;
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept {
  CBinaryData moved(std::move(other));
  std::swap(m_buffer, moved.m_buffer);
  return *this;
}

CBinaryData::~CBinaryData() {
  if (m_buffer) m_buffer->Release();
}

void CBinaryData::Clear() {
  const CBinaryData old(std::move(*this));
}

void CBinaryData::SetBuffer(const unsigned char* data, unsigned long length) {
  const CBinaryData old(std::move(*this));
  if (length != 0) m_buffer = CBinaryBuffer::Copy(data, CheckedLength(data, length));
}

void CBinaryData::SetBuffer(const wchar* text) {
  const WStringView view = ViewOf(text);
  SetBuffer(BytesOf(view), ByteCount(view));
}

void CBinaryData::Append(const unsigned char* data, unsigned long length) {
  if (length == 0) return;
  const std::uint32_t checked = CheckedLength(data, length);
  if (!m_buffer) {
    m_buffer = CBinaryBuffer::Copy(data, checked);
    return;
  }
  MakePrivate();
  m_buffer->Append(data, checked);
}

void CBinaryData::Append(unsigned char byte) {
  Append(&byte, 1);
}

void CBinaryData::Append(wchar unit) {
  Append(BytesOf(WStringView(&unit, 1)), sizeof unit);
}

void CBinaryData::Append(const wchar* text) {
  const WStringView view = ViewOf(text);
  Append(BytesOf(view), ByteCount(view));
}

void CBinaryData::Append(const WString& text) {
  Append(text.c_str());
}

void CBinaryData::Append(const CBinaryData& other) {
  // A second handle keeps the bytes alive and in place while this one changes its buffer.
  const CBinaryData source(other);
  Append(source.GetData(), source.GetLength());
}

unsigned char* CBinaryData::GetData() const {
  return m_buffer ? m_buffer->Data() : nullptr;
}

unsigned long CBinaryData::GetLength() const {
  return m_buffer ? m_buffer->Length() : 0;
}

unsigned char const& CBinaryData::operator[](unsigned long index) const {
  if (index >= GetLength()) {
    throw CTovikException(FormatString(u"Index Out of range [%lu]", index));
  }
  return m_buffer->Data()[index];
}

unsigned char& CBinaryData::operator[](unsigned long index) {
  std::as_const(*this)[index];
  MakePrivate();
  return m_buffer->Data()[index];
}

unsigned char* CBinaryData::ReleaseData() {
  if (!m_buffer) return nullptr;
  MakePrivate();
  unsigned char* const data = m_buffer->Dissolve();
  m_buffer = nullptr;
  return data;
}

WString CBinaryData::GetAsHexString() const {
  return GetAsHexString(GetData(), GetLength());
}

WString CBinaryData::GetAsHexString(const unsigned char* data, unsigned long length) {
  if (!data) return WString();
  WString text(std::size_t{length} * 2, u'0');
  wchar* out = text.data();
  for (unsigned long i = 0; i < length; ++i) {
    *out++ = u"0123456789ABCDEF"[data[i] >> 4];
    *out++ = u"0123456789ABCDEF"[data[i] & 0xF];
  }
  return text;
}

WString CBinaryData::GetAsBase64() const {
  return CBase64::Encode(GetData(), GetLength());
}

void CBinaryData::SetAsHexString(const wchar* text) {
  const CBinaryData old(std::move(*this));
  unsigned char* data = nullptr;
  const unsigned long length = ConvertToHexData(text, &data);
  Bytes bytes(data);
  if (length == 0) return;
  m_buffer = CBinaryBuffer::Attach(data, CheckedLength(length));
  bytes.release();
}

void CBinaryData::SetAsBase64(const wchar* text) {
  const CBinaryData old(std::move(*this));
  const WStringView view = ViewOf(text);
  if (view.empty()) return;
  Bytes bytes = NewBytes(CBase64::DecodedCapacity(view.size()));
  const std::size_t length = CBase64::Decode(view, bytes.get());
  m_buffer = CBinaryBuffer::Attach(bytes.get(), CheckedLength(length));
  bytes.release();
}

bool CBinaryData::operator==(const CBinaryData& other) const {
  if (m_buffer == other.m_buffer) return true;
  if (!m_buffer || !other.m_buffer || GetLength() != other.GetLength()) return false;
  return std::memcmp(GetData(), other.GetData(), GetLength()) == 0;
}

unsigned long CBinaryData::ConvertToHexData(const wchar* text, unsigned char** out) {
  *out = nullptr;
  const WStringView view = ViewOf(text);
  if (view.size() % 2 != 0) throw CTovikException(u"Invalid length in hex string");
  const std::uint32_t length = CheckedLength(view.size() / 2);
  Bytes bytes = NewBytes(length);
  for (std::size_t i = 0; i < length; ++i) {
    const unsigned high = HexDigit(view[2 * i]);
    bytes[i] = static_cast<unsigned char>(high << 4 | HexDigit(view[2 * i + 1]));
  }
  *out = bytes.release();
  return length;
}

void CBinaryData::MakePrivate() {
  m_buffer = m_buffer->Unshared();
}

}  // namespace TovikXmlLib16
