#include "engine/SimplexTableau.h"

#include <algorithm>
#include <cstdint>

namespace pescavo {

void SimplexTableau::reset(int n) {
  if (n < 0) n = 0;
  m_n = n;
  // Whole 64-byte lines per row, the first on a line boundary, so no vector load or store
  // straddles two lines.
  m_stride = (n + 7) / 8 * 8;
  m_cells.resize(static_cast<std::size_t>(n + 5) * m_stride + 7);
  m_offset = (64 - reinterpret_cast<std::uintptr_t>(m_cells.data()) % 64) % 64 / sizeof(double);
  m_stored.assign((n + 4 + 63) / 64, 0);
  pending.reset(n + 3, n, m_stride, m_cells.size() * sizeof(double) >= delayFromBytes);
  for (int i = 1; i <= 3; ++i) markStored(i);
  basis.resize(n + 4);
  basis[0] = 0;
  for (int i = 1; i <= 3; ++i) basis[i] = 2 * n + i;
  for (int j = 1; j <= n; ++j) basis[3 + j] = n + j;
  slotOf.assign(2 * n + 4, -1);
  for (int j = 1; j <= n; ++j) slotOf[j] = j - 1;
  // Written in full by the caller, as the stored rows are.
  basicValue.resize(n + 4);
  rhs.resize(n + 6);
  boundUnit.resize(n);
}

void SimplexTableau::store(int i) {
  double* cells = row(i);
  std::fill(cells, cells + m_stride, 0.0);
  const int j = i - 3;
  // While the row is untouched x(j) cannot have entered: its pivot would have reached the row.
  if (boundUnit[j - 1] != 0) cells[slotOf[j]] = boundUnit[j - 1];
  markStored(i);
}

double SimplexTableau::operator()(int i, int k) const {
  if (k == 2 * m_n + 4) return rhs[i];
  const int slot = slotOf[k];
  if (slot < 0) return i <= m_n + 3 && basis[i] == k ? basicValue[i] : 0.0;
  if (stored(i)) return row(i)[slot];
  return k == i - 3 ? boundUnit[k - 1] : 0.0;
}

}  // namespace pescavo
