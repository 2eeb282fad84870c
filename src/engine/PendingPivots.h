#pragma once

#include <cstdint>
#include <vector>

namespace pescavo {

// Pivots whose updates of the constraint rows are not written yet. A pass over the columns of a
// large feed pivots hundreds of times on a tableau larger than the processor's nearer caches,
// and writing every factor row at every pivot costs more in memory traffic than in arithmetic.
// So a constraint row's updates and sign turns are kept as a list, and the row is written out
// with all of them while it is in the nearest cache: when it becomes a pivot row, when kDepth
// pivots are pending, or when the tableau is to be read. A cell read meanwhile (the ratio
// test's column) is computed from the list without writing. Every cell gets the operations it
// would have got, in the same order and with the same operands, so the bits are those of
// writing at once (invariant 4 of SimplexTableau.h).
class PendingPivots {
 public:
  static constexpr int kDepth = 4;

  // For constraint rows 1..rows of n slots, stride cells apart; nothing pending. Unless
  // `enabled`, no pivot is ever kept and the rows are written at once.
  void reset(int rows, int n, int stride, bool enabled);
  bool enabled() const { return m_enabled; }
  bool empty() const { return m_pivots == 0; }
  bool full() const { return m_pivots == kDepth; }
  bool pending(int i) const { return m_count[static_cast<std::size_t>(i)] != 0; }

  // The pivot row after its division, its lines [first, last), the slot the leaving column
  // takes and that column's value in the pivot row; returns the pivot's number.
  int addPivot(const double* pivot, int first, int last, int slot, double leaving);
  // Row i += minusF * pivot over the pivot's lines, then its cell in the pivot's slot :=
  // minusF * leaving.
  void addUpdate(int i, int pivot, double minusF);
  // Row i := -row i over slots 0..n - 1.
  void addTurn(int i);

  // Cell k of row i, whose cells as written are at `cells`, with row i's pending operations.
  double current(const double* cells, int i, int k) const;
  // Writes out row i's pending operations.
  void write(int i, double* cells);
  // Rows that have had pending operations since the last clear().
  const std::vector<int>& rows() const { return m_rows; }
  // After every row is written: the pivots' storage is free again.
  void clear();

 private:
  struct Pivot {
    int first, last, slot;
    double leaving;
  };
  static constexpr int kTurn = -1;
  static constexpr int kOps = 2 * kDepth;  // an update and a turn per pivot at most

  bool m_enabled = false;
  int m_n = 0;
  int m_stride = 0;
  int m_pivots = 0;
  Pivot m_pivot[kDepth] = {};
  std::vector<double> m_cells;         // the pivot rows, kDepth rows of stride cells
  std::size_t m_offset = 0;            // to the first 64-byte boundary
  std::vector<std::uint8_t> m_count;   // per row
  std::vector<std::int8_t> m_opPivot;  // per row kOps: a pivot's number or kTurn
  std::vector<double> m_opFactor;      // per row kOps: its -f
  std::vector<int> m_rows;
};

}  // namespace pescavo
