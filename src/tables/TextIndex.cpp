#include "tables/TextIndex.h"

#include <cstdint>
#include <cstring>

namespace pescavo {

namespace {

// Eight bytes at a time, and a final mix so that every byte reaches the low bits the table
// uses.
std::uint64_t textHash(const std::string& text) {
  const char* bytes = text.data();
  const std::size_t size = text.size();
  std::uint64_t hash = size * 0x9E3779B97F4A7C15ULL;
  const auto mix = [&hash](std::uint64_t word) { hash = (hash ^ word) * 0xC2B2AE3D27D4EB4FULL; };
  const auto final = [&hash] {
    hash ^= hash >> 33;
    hash *= 0xFF51AFD7ED558CCDULL;
    return hash ^ (hash >> 33);
  };
  std::uint64_t word = 0;
  if (size < 8) {
    for (std::size_t k = 0; k < size; ++k) word = word << 8 | static_cast<unsigned char>(bytes[k]);
    mix(word);
    return final();
  }
  std::size_t k = 0;
  for (; k + 8 <= size; k += 8) {
    std::memcpy(&word, bytes + k, 8);
    mix(word);
  }
  // The last eight bytes, overlapping the words before when the size is not a multiple of 8.
  if (k < size) {
    std::memcpy(&word, bytes + size - 8, 8);
    mix(word);
  }
  return final();
}

}  // namespace

// Open addressing in at least twice as many slots as entries; a later entry with a text
// already there takes its slot.
void LastTextPosition::build(const std::vector<ListEntry>& entries, std::size_t count) {
  m_entries = &entries;
  bool same = m_texts.size() == count && !m_slots.empty();
  for (std::size_t q = 0; q < count && same; ++q) same = sameText(m_texts[q], entries[q].text);
  if (same) return;

  m_texts.resize(count);
  for (std::size_t q = 0; q < count; ++q) m_texts[q] = entries[q].text;
  std::size_t capacity = 16;
  while (capacity < 2 * count) capacity *= 2;
  m_slots.assign(capacity, 0);
  m_last.assign(count, 0);
  const std::size_t mask = capacity - 1;
  for (std::size_t q = 0; q < count; ++q) {
    const std::string& text = entries[q].text;
    std::size_t slot = textHash(text) & mask;
    while (m_slots[slot] != 0 && !sameText(entries[m_slots[slot] - 1].text, text))
      slot = (slot + 1) & mask;
    m_slots[slot] = static_cast<int>(q) + 1;
  }
  for (const int position : m_slots)
    if (position != 0) m_last[position - 1] = 1;
}

int LastTextPosition::find(const std::string& text) const {
  if (m_slots.empty()) return -1;
  const std::size_t mask = m_slots.size() - 1;
  for (std::size_t slot = textHash(text) & mask; m_slots[slot] != 0; slot = (slot + 1) & mask) {
    const int q = m_slots[slot] - 1;
    if (sameText((*m_entries)[q].text, text)) return q;
  }
  return -1;
}

}  // namespace pescavo
