#pragma once

#include <cstdint>
#include <vector>

#include "engine/PendingPivots.h"

namespace pescavo {

// The two-phase tableau of n variables: rows 1..n + 5, columns 1..2n + 4 (see Simplex.h), as
// the tuned solver keeps it. Its invariants, which every step of Simplex.cpp relies on:
//
// 1. Only what a pivot can change is stored. A basic column is 0 outside its own row, so it
//    keeps just that one value (basicValue); the n non-basic columns sit in slots 0..n - 1 of a
//    row, and a leaving column takes the entering column's slot. The right-hand side is a
//    column of its own; phase 2's column 2n + 1 is that column, and columns 2n + 1..2n + 3 and
//    row n + 5 are never read in phase 2.
// 2. An upper-bound row that no pivot or sign repair has reached still reads
//    x(j) + s(j) = maxInclusion(j) / 100; its slots are written out when one first does. The
//    ratio test reads the stored rows and the one untouched row that holds the entering column.
// 3. Rows start on 64-byte lines and are whole lines long; cells past slot n - 1 are 0. The
//    pivot works on whole lines, and skips rows with a factor of 0 and lines in which the pivot
//    row holds only zeros: there x + (-f) * 0 is x but for the sign of a zero, and a zero's sign
//    reaches no comparison, no divisor and no value read out.
// 4. Every cell is computed as ReferenceSimplex computes it, x + (-f) * y or x / p, one IEEE
//    operation per lane whatever the vector width, in the same order of pivots: the results
//    are the same bits as the plain form's (the engine tests compare them).
// 5. On a tableau of delayFromBytes or more, a constraint row's cells may lag behind the
//    pivots made: what they still need is in `pending`, and whoever reads a cell of such a row
//    takes it from there. Right-hand sides, basic values and the objective rows are always up
//    to date.
// 6. Once no constraint row has a right-hand side below 0, a sign repair can only be needed in
//    the rows a pivot has just changed. A pass without a pivot ends the phase: every later pass
//    would find the same tableau.
class SimplexTableau {
 public:
  // Sizes the tableau for n variables: x(1..n) in slots 0..n - 1, the slacks and artificials
  // basic, no row stored. Cells, right-hand sides, basic values and bound units are left as
  // they are; the caller writes them.
  void reset(int n);

  int rows() const { return m_n + 5; }
  int columns() const { return 2 * m_n + 4; }
  // Cell (i, k) of the whole phase-1 tableau, 1-based, as the stored form implies it.
  double operator()(int i, int k) const;

  // Row i's slots, from a 64-byte boundary. A row has stride() cells; those past slot n - 1
  // are kept at 0 so that whole lines can be worked on.
  double* row(int i) { return &m_cells[m_offset + static_cast<std::size_t>(i - 1) * m_stride]; }
  const double* row(int i) const {
    return &m_cells[m_offset + static_cast<std::size_t>(i - 1) * m_stride];
  }
  int stride() const { return m_stride; }
  bool stored(int i) const { return i > m_n + 3 || (m_stored[i >> 6] >> (i & 63) & 1); }
  void markStored(int i) { m_stored[i >> 6] |= std::uint64_t{1} << (i & 63); }
  // Writes the slots of upper-bound row i out as they were laid out.
  void store(int i);
  // Words of the stored-row bit set, bit i for row i (rows 1..n + 3).
  const std::vector<std::uint64_t>& storedRows() const { return m_stored; }

  std::vector<int> basis;          // basis[i], i = 1..n + 3: column basic in row i; [0] unused
  std::vector<int> slotOf;         // slotOf[k]: slot of column k, -1 while k is basic
  std::vector<double> basicValue;  // basicValue[i]: the basic column's value in row i
  std::vector<double> rhs;         // rhs[i]: right-hand side of row i; [0] unused
  // Upper-bound row of variable j, index j - 1, as laid out: the coefficient of x(j) and s(j).
  std::vector<double> boundUnit;

  // Working lists of the pivots (see Simplex), kept here so that they keep their storage from
  // run to run.
  std::vector<int> factorRows;
  std::vector<double*> rowCells;
  std::vector<double> minusF;
  PendingPivots pending;
  // Pivots wait in `pending` only on a tableau larger than the nearer caches (measured on the
  // full layout: quicker from about 500 variables, slower at 340). Tests lower it to take that
  // path on small feeds.
  static constexpr std::size_t kDelayFromBytes = 3 << 19;
  std::size_t delayFromBytes = kDelayFromBytes;

 private:
  int m_n = 0;
  int m_stride = 0;
  std::size_t m_offset = 0;  // cells before the first 64-byte boundary
  std::vector<double> m_cells;
  std::vector<std::uint64_t> m_stored;
};

}  // namespace pescavo
