#pragma once

#include <vector>

namespace pescavo {

// Dense two-phase tableau sized to the problem: rows 1..n + 5, columns 1..2n + 4
// (1-based at this interface, row-major storage).
class SimplexTableau {
 public:
  // Sizes the tableau for n variables and sets every cell, the basis and the residue copy to 0.
  void reset(int n);

  int rows() const { return m_rows; }
  int columns() const { return m_columns; }
  double& operator()(int i, int k) { return m_cells[(i - 1) * m_columns + (k - 1)]; }
  double operator()(int i, int k) const { return m_cells[(i - 1) * m_columns + (k - 1)]; }
  double* row(int i) { return &m_cells[(i - 1) * m_columns]; }

  std::vector<int> basis;           // basis[i], i = 1..n + 3: column basic in row i; [0] unused
  std::vector<double> residueCopy;  // index j - 1: objective coefficient of variable j

 private:
  int m_rows = 0;
  int m_columns = 0;
  std::vector<double> m_cells;
};

}  // namespace pescavo
