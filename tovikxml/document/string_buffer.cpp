#include "tovikxml/document/string_buffer.h"

#include <algorithm>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
void CStringBuffer::AppendAcrossChunks(WStringView text) {
  while (!text.empty()) {
    if (m_used == m_capacity) AddChunk();
    const WStringView slice = text.substr(0, m_capacity - m_used);
    CopyUnits(slice);
    text.remove_prefix(slice.size());
  }
}

void CStringBuffer::Append(const wchar* text) {
  Append(ViewOf(text));
}

const wchar* CStringBuffer::GetString() {
  if (m_chunks.empty()) return u"";
  if (m_chunks.size() > 1) Merge();
  m_current[m_used] = 0;
  return m_current;
}

WStringView CStringBuffer::GetChunk(std::size_t index) const {
  const Chunk& chunk = m_chunks[index];
  const bool isCurrent = index + 1 == m_chunks.size();
  return {chunk.units.get(), isCurrent ? m_used : chunk.capacity};
}

void CStringBuffer::AppendTo(WString& text) const {
  text.reserve(text.size() + GetLength());
  for (std::size_t i = 0; i < GetChunkCount(); ++i) text.append(GetChunk(i));
}

void CStringBuffer::Clear() {
  m_full = 0;
  m_used = 0;
  if (m_chunks.size() == 1) return;
  m_chunks.clear();
  m_capacity = 0;
  m_current = nullptr;
}

// The last chunk is cut to what the limit leaves, so no chunk ever takes a length beyond it.
void CStringBuffer::AddChunk() {
  const std::uint32_t capacity = std::min(kDefaultChunkSize, m_maxLength - GetLength());
  if (capacity == 0) {
    throw CTovikException(FormatString(u"The text exceeds the limit of %u units", m_maxLength));
  }
  Adopt({std::unique_ptr<wchar[]>(new wchar[std::size_t{capacity} + 1]), capacity});
}

// Makes an empty chunk the current one.
void CStringBuffer::Adopt(Chunk chunk) {
  m_chunks.push_back(std::move(chunk));
  m_full += m_used;
  m_used = 0;
  m_capacity = m_chunks.back().capacity;
  m_current = m_chunks.back().units.get();
}

void CStringBuffer::Merge() {
  const std::uint32_t total = GetLength();
  Chunk merged{std::unique_ptr<wchar[]>(new wchar[std::size_t{total} + 1]), total};
  wchar* end = merged.units.get();
  for (std::size_t i = 0; i < GetChunkCount(); ++i) {
    const WStringView chunk = GetChunk(i);
    end = std::copy_n(chunk.data(), chunk.size(), end);
  }
  m_chunks.clear();
  m_full = 0;
  m_used = 0;
  Adopt(std::move(merged));
  m_used = total;
}

}  // namespace TovikXmlLib16
