#include "engine/SimplexTableau.h"

#include <cstring>

namespace pescavo {

void SimplexTableau::reset(int n) {
  if (n < 0) n = 0;
  m_rows = n + 5;
  m_columns = 2 * n + 4;
  m_cells.resize(static_cast<std::size_t>(m_rows) * m_columns);
  // All bits 0 is +0.0; memset clears the cells faster than an element-wise fill.
  std::memset(m_cells.data(), 0, m_cells.size() * sizeof(double));
  basis.assign(n + 4, 0);
  residueCopy.assign(n, 0.0);
}

}  // namespace pescavo
