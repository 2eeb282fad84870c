#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "tables/ComponentViews.h"

namespace pescavo {

// a == b without a library call: list texts are a few words long and compared often.
inline bool sameText(const std::string& a, const std::string& b) {
  const std::size_t size = a.size();
  if (size != b.size()) return false;
  std::size_t k = 0;
  for (; k + 8 <= size; k += 8) {
    std::uint64_t x, y;
    std::memcpy(&x, a.data() + k, 8);
    std::memcpy(&y, b.data() + k, 8);
    if (x != y) return false;
  }
  for (; k < size; ++k)
    if (a[k] != b[k]) return false;
  return true;
}

// Where a chosen entry's figures come from: the last of a list's entries that shows its text.
// Built for every run; runs mostly repeat with the same list, so the index keeps a copy of the
// texts it was made from and is made again only when one of them differs.
class LastTextPosition {
 public:
  // Indexes entries [0, count) of the list, which must outlive the lookups.
  void build(const std::vector<ListEntry>& entries, std::size_t count);
  // The last position with the text, or -1 when none has it.
  int find(const std::string& text) const;
  // The same, trying first the position an earlier run found: if that entry shows the text
  // and no later one shows it too, the answer needs no hashing.
  int find(const std::string& text, int hint) const {
    if (hint >= 0 && static_cast<std::size_t>(hint) < m_last.size() && m_last[hint] &&
        sameText((*m_entries)[hint].text, text))
      return hint;
    return find(text);
  }

 private:
  const std::vector<ListEntry>* m_entries = nullptr;
  std::vector<int> m_slots;          // positions + 1; 0 is an empty slot
  std::vector<char> m_last;          // per position: no later entry shows the same text
  std::vector<std::string> m_texts;  // the texts the index was made from
};

}  // namespace pescavo
