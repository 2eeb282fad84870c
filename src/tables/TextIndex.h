#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "tables/ComponentViews.h"

namespace pescavo {

// Where a chosen entry's figures come from: the last of a list's entries that shows its text.
// Built anew for every run, so it keeps its storage from one build to the next.
class LastTextPosition {
 public:
  // Indexes entries [0, count) of the list, which must outlive the lookups.
  void build(const std::vector<ListEntry>& entries, std::size_t count);
  // The last position with the text, or -1 when none has it.
  int find(const std::string& text) const;

 private:
  const std::vector<ListEntry>* m_entries = nullptr;
  std::vector<int> m_slots;  // positions + 1; 0 is an empty slot
};

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

}  // namespace pescavo
