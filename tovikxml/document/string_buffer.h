#ifndef TOVIKXML_DOCUMENT_STRING_BUFFER_H_
#define TOVIKXML_DOCUMENT_STRING_BUFFER_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// A long text in chunks, so that appending never moves what is already there. The text can be
/// walked chunk by chunk, or merged into one by `GetString`.
///
/// The length is a 32-bit number of units; text beyond that is refused with a `CTovikException`
/// "The text exceeds the limit of %u units". Internal.
class CStringBuffer {
 public:
  static constexpr std::uint32_t kDefaultChunkSize = 4095;

  CStringBuffer() = default;
  /// A buffer that refuses to grow beyond `maxLength` units.
  explicit CStringBuffer(std::uint32_t maxLength) : m_maxLength(maxLength) {}
  CStringBuffer(const CStringBuffer&) = delete;
  CStringBuffer& operator=(const CStringBuffer&) = delete;
  virtual ~CStringBuffer() = default;

  void Append(wchar unit) {
    if (m_used == m_capacity) AddChunk();
    m_current[m_used++] = unit;
  }
  /// The text may lie in this buffer.
  void Append(WStringView text) {
    if (text.size() > m_capacity - m_used) return AppendAcrossChunks(text);
    CopyUnits(text);
  }
  /// Null counts as empty.
  void Append(const wchar* text);
  void Append(const WString& text) { Append(WStringView(text)); }

  /// Units in all chunks.
  std::uint32_t GetLength() const { return m_full + m_used; }
  /// The text, zero-terminated, merged into one chunk if there are more. Owned by the buffer and
  /// valid until the next `Append`, `Clear` or merge; never null.
  const wchar* GetString();

  /// The chunks in order, for a walk that merges nothing. A surrogate pair may lie across a border.
  std::size_t GetChunkCount() const { return m_chunks.size(); }
  WStringView GetChunk(std::size_t index) const;
  void AppendTo(WString& text) const;

  /// Empties the text. A lone chunk is kept for what comes next.
  void Clear();

 private:
  // A block of one unit more than its capacity, for the terminator. All but the last are full.
  struct Chunk {
    std::unique_ptr<wchar[]> units;
    std::uint32_t capacity;
  };

  void AppendAcrossChunks(WStringView text);
  void CopyUnits(WStringView text) {
    if (!text.empty()) std::memcpy(m_current + m_used, text.data(), text.size() * sizeof(wchar));
    m_used += static_cast<std::uint32_t>(text.size());
  }
  void AddChunk();
  void Adopt(Chunk chunk);
  void Merge();

  std::vector<Chunk> m_chunks;
  std::uint32_t m_maxLength = std::numeric_limits<std::uint32_t>::max();
  std::uint32_t m_used = 0;
  std::uint32_t m_capacity = 0;
  wchar* m_current = nullptr;
  std::uint32_t m_full = 0;  // units in the chunks before the current one
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_STRING_BUFFER_H_
