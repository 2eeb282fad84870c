#include "engine/Simplex.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace pescavo {

namespace {

// Entry j (1-based) of a per-variable vector; a vector that is too short reads as 0.
double entry(const std::vector<double>& values, int j) {
  return j - 1 < static_cast<int>(values.size()) ? values[j - 1] : 0.0;
}

constexpr int kLine = 8;  // cells per 64-byte line

void negate(double* row, int width) {
  for (int k = 0; k < width; ++k) row[k] = -row[k];
}

}  // namespace

void Rechnen(const OptimisationProblem& problem, Criterion criterion, SimplexTableau& tableau,
             OptimisationResult& result) {
  result.pivotFailure.clear();
  result.pivots = 0;
  Simplex simplex(problem, criterion, tableau, result);
  simplex.ErstelleEinheitsmatrix();
  simplex.ErstelleSimplextableau1();
  simplex.Hilfsproblemloesen();
}

Simplex::Simplex(const OptimisationProblem& problem, Criterion criterion, SimplexTableau& tableau,
                 OptimisationResult& result)
    : m_problem(problem),
      m_criterion(criterion),
      m_tableau(tableau),
      m_result(result),
      m_n(problem.n > 0 ? problem.n : 0),
      m_unitOrder(INT_MAX),
      m_factorRows(tableau.factorRows),
      m_rowCells(tableau.rowCells),
      m_minusF(tableau.minusF) {}

void Simplex::ErstelleEinheitsmatrix() {
  m_unitOrder = m_problem.unitOrder > 0 ? m_problem.unitOrder : INT_MAX;
}

void Simplex::ErstelleSimplextableau1() {
  const int n = m_n;
  SimplexTableau& t = m_tableau;
  t.reset(n);
  m_rhsNonNegative = false;
  m_factorRows.resize(n + 5);
  m_rowCells.resize(n + 5);
  m_minusF.resize(n + 5);
  double* lipid = t.row(1);
  double* protein = t.row(2);
  double* sum = t.row(3);
  double* residue = t.row(n + 4);
  double* phase1 = t.row(n + 5);
  for (double* row : {lipid, protein, sum, residue, phase1})
    std::fill(row + n, row + t.stride(), 0.0);
  for (int j = 1; j <= n; ++j) {
    lipid[j - 1] = entry(m_problem.lipid, j);
    protein[j - 1] = entry(m_problem.protein, j);
    sum[j - 1] = 1;
    residue[j - 1] = entry(m_problem.residue, j);
  }
  double* rhs = t.rhs.data();
  rhs[1] = m_problem.lipidTarget;
  rhs[2] = m_problem.proteinTarget;
  rhs[3] = 1;
  rhs[n + 4] = 0;
  // The phase-1 objective sums rows 1..3 from 0, in that order.
  for (int k = 0; k < n; ++k) phase1[k] = ((0.0 + lipid[k]) + protein[k]) + sum[k];
  rhs[n + 5] = ((0.0 + rhs[1]) + rhs[2]) + rhs[3];
  for (int i = 1; i <= 3; ++i) t.basicValue[i] = unit(i, i);
  for (int j = 1; j <= n; ++j) {
    t.boundUnit[j - 1] = unit(j, j);
    rhs[3 + j] = entry(m_problem.maxInclusion, j) / 100;
    t.basicValue[3 + j] = unit(j, j);
  }
}

void Simplex::Hilfsproblemloesen() {
  m_result.solvable = true;
  if (!phase1Passes()) return;
  if (std::fabs(m_tableau.rhs[m_n + 5]) < kFeasibilityTolerance) {
    ErstelleSimplextableau2();
  } else {
    m_result.solvable = false;
  }
}

bool Simplex::phase1Passes() {
  const int n = m_n;
  const double* objective = m_tableau.row(n + 5);
  const int* slotOf = m_tableau.slotOf.data();
  for (int pass = 1; pass <= 2 * n - 1; ++pass) {
    bool pivoted = false;
    // A basic column's objective entry is 0, so only non-basic columns can qualify.
    for (int c = 1; c <= 2 * n + 3; ++c) {
      if (slotOf[c] >= 0 && objective[slotOf[c]] > 0) {
        if (!pivotPhase1(c)) return writePending(), false;
        pivoted = true;
      }
    }
    // A pass without a pivot leaves the tableau as it was, so every later pass would too.
    if (!pivoted) break;
  }
  writePending();
  return true;
}

bool Simplex::Pivotsuche(int c) {
  const bool pivoted = pivotPhase1(c);
  writePending();
  return pivoted;
}

bool Simplex::pivotPhase1(int c) {
  // Sign repair before: after the first repair every later one finds nothing to turn.
  if (!m_rhsNonNegative) repairSigns();
  return pivot(c, m_n + 5, kPhase1Failure);
}

// Phase 2's right-hand side column 2n + 1 is the stored one already (invariant 1).
void Simplex::ErstelleSimplextableau2() {
  const int n = m_n;
  // The row is oriented by the criterion, not by the sign of its right-hand side: when only
  // uncontaminated variables are basic that sign is 0 or round-off and says nothing.
  const bool minimum = m_criterion == Criterion::Minimum;
  if (minimum) {
    negate(m_tableau.row(n + 4), n);
    m_tableau.rhs[n + 4] = -m_tableau.rhs[n + 4];
  }
  if (!phase2Passes()) return;
  readOut(minimum);
}

bool Simplex::phase2Passes() {
  const int n = m_n;
  const double* objective = m_tableau.row(n + 4);
  const int* slotOf = m_tableau.slotOf.data();
  for (int pass = 1; pass <= 2 * n - 1; ++pass) {
    bool pivoted = false;
    for (int c = 1; c <= 2 * n; ++c) {
      if (slotOf[c] >= 0 && objective[slotOf[c]] > 0) {
        if (!pivot(c, n + 4, kPhase2Failure)) return writePending(), false;
        pivoted = true;
      }
    }
    if (!pivoted) break;
  }
  writePending();
  return true;
}

bool Simplex::Pivotsuche2(int c) {
  const bool pivoted = pivot(c, m_n + 4, kPhase2Failure);
  writePending();
  return pivoted;
}

double Simplex::current(int i, int slot) const {
  const double* cells = m_tableau.row(i);
  return m_tableau.pending.pending(i) ? m_tableau.pending.current(cells, i, slot) : cells[slot];
}

void Simplex::writePending() {
  PendingPivots& pending = m_tableau.pending;
  if (pending.empty()) return;
  for (const int i : pending.rows())
    if (pending.pending(i)) pending.write(i, m_tableau.row(i));
  pending.clear();
}

bool Simplex::pivot(int c, int lastRow, const char* failure) {
  const int r = ratioTest(c);
  if (r == 0) {
    fail(failure);
    return false;
  }
  eliminate(r, c, lastRow);
  if (!m_rhsNonNegative) repairSigns();
  ++m_result.pivots;
  if (m_tableau.pending.full()) writePending();
  return true;
}

void Simplex::readOut(bool minimum) {
  const int n = m_n;
  const SimplexTableau& t = m_tableau;
  // A basis entry can name any column up to 2n + 3 (slacks, and artificials left basic at 0),
  // so the working vector covers them all; readers use positions 1..n, kept are 1..n + 3. It
  // is the result's own, which keeps its storage from run to run.
  std::vector<double>& composition = m_result.composition;
  composition.assign(2 * n + 3, 0.0);
  for (int i = 1; i <= n + 3; ++i) {
    const int column = t.basis[i];
    if (column >= 1 && column <= 2 * n + 3) {
      composition[column - 1] = t.rhs[i] * kPercent;
    }
  }
  composition.resize(n + 3);
  const double objective = t.rhs[n + 4];
  m_result.burden = minimum ? objective : -objective;
}

// Rows 1..n + 3 in ascending order, the stored ones and the one upper-bound row still as laid
// out that holds column c: every other such row holds 0 there.
int Simplex::ratioTest(int c) {
  SimplexTableau& t = m_tableau;
  const int n = m_n;
  const int slot = t.slotOf[c];
  const int unstored = c <= n && !t.stored(3 + c) ? 3 + c : 0;
  double best = kRatioBound;
  m_pivotRow = 1;
  int chosen = 0;
  int* factorRows = m_factorRows.data();
  int factors = 0;
  const std::vector<std::uint64_t>& words = t.storedRows();
  for (std::size_t w = 0; w < words.size(); ++w) {
    std::uint64_t bits = words[w];
    if (unstored != 0 && static_cast<std::size_t>(unstored >> 6) == w)
      bits |= std::uint64_t{1} << (unstored & 63);
    while (bits != 0) {
      const int i = static_cast<int>(w * 64) + __builtin_ctzll(bits);
      bits &= bits - 1;
      const double a = i == unstored ? t.boundUnit[c - 1] : current(i, slot);
      factorRows[factors] = i;
      factors += a != 0;
      if (a > 0) {
        const double q = t.rhs[i] / a;
        if (q < best) {
          best = q;
          m_pivotRow = i;
          chosen = i;
        }
      }
    }
  }
  m_factorCount = factors;
  // The row takes part from now on, as pivot row or factor row.
  if (unstored != 0 && t.boundUnit[c - 1] != 0) t.store(unstored);
  return chosen;
}

namespace {

// A line of cells at a time, written out so that the code does not depend on what the
// optimiser makes of a loop: each lane is one IEEE operation, as a plain double would be. The
// compiler splits a line into the vectors the clone's machine has.
typedef double Lanes __attribute__((vector_size(64), aligned(64), may_alias));
static_assert(kLine * sizeof(double) == sizeof(Lanes), "a line is one vector of lanes");

// The pivot row divided by p, and every other row with a factor given row = row + (-f) * pivot,
// line by line: the divisions of one line overlap the updates of the line before. Each cell is
// one IEEE division, or one multiply and one add, whatever the vector width, so every clone
// gives the same bits.
__attribute__((target_clones("avx512f", "avx2", "default"))) void pivotLines(
    double* __restrict pivot, double p, double* const* rows, const double* minusF, int count,
    int first, int last) {
  const Lanes divisor = {p, p, p, p, p, p, p, p};
  int k = first;
  // Two lines at a time where there are two: each row's address and factor are read once.
  for (; k + 2 * kLine <= last; k += 2 * kLine) {
    Lanes* cells = reinterpret_cast<Lanes*>(pivot + k);
    const Lanes a = cells[0] / divisor, b = cells[1] / divisor;
    cells[0] = a, cells[1] = b;
    for (int j = 0; j < count; ++j) {
      Lanes* to = reinterpret_cast<Lanes*>(rows[j] + k);
      const double m = minusF[j];
      const Lanes f = {m, m, m, m, m, m, m, m};
      to[0] = to[0] + f * a;
      to[1] = to[1] + f * b;
    }
  }
  if (k < last) {
    Lanes* cells = reinterpret_cast<Lanes*>(pivot + k);
    const Lanes a = cells[0] / divisor;
    cells[0] = a;
    for (int j = 0; j < count; ++j) {
      Lanes* to = reinterpret_cast<Lanes*>(rows[j] + k);
      const double m = minusF[j];
      const Lanes f = {m, m, m, m, m, m, m, m};
      to[0] = to[0] + f * a;
    }
  }
}

}  // namespace

// Rows with a factor of 0 and lines where the pivot row holds only zeros are skipped
// (invariant 3 of SimplexTableau.h; the right-hand side is always computed). The entering column c
// becomes a unit column and leaves its slot to the leaving column, whose cells are 0 outside the
// pivot row before the pivot: there 0 + (-f) * y is (-f) * y.
void Simplex::eliminate(int r, int c, int lastRow) {
  SimplexTableau& t = m_tableau;
  PendingPivots& pending = t.pending;
  const int slot = t.slotOf[c];
  double* rhs = t.rhs.data();
  double* pivot = t.row(r);
  if (pending.pending(r)) pending.write(r, pivot);
  const double p = pivot[slot];
  // The pivot row's non-zero cells lie in the lines [first, last); the pivot cell itself is
  // one. A row still as laid out holds just that cell.
  int first = 0;
  while (pivot[first] == 0) ++first;
  first -= first % kLine;
  int last = m_n;
  while (pivot[last - 1] == 0) --last;
  last = (last + kLine - 1) / kLine * kLine;
  // The constraint rows with a factor were noted by the ratio test. On a large tableau their
  // updates wait in `pending`; the objective rows, read at every column of a pass, and the
  // constraint rows of a small tableau are updated at once.
  const bool delay = pending.enabled();
  int objectiveRows[2];
  int* updated = delay ? objectiveRows : m_factorRows.data();  // the rows updated at once
  int count = 0;
  if (!delay) {
    for (int k = 0; k < m_factorCount; ++k) {
      const int i = m_factorRows[k];
      if (i == r) continue;
      double* cells = t.row(i);
      m_rowCells[count] = cells;
      m_minusF[count] = -cells[slot];
      updated[count++] = i;
    }
  }
  for (int i = m_n + 4; i <= lastRow; ++i) {
    double* cells = t.row(i);
    if (cells[slot] == 0) continue;
    m_rowCells[count] = cells;
    m_minusF[count] = -cells[slot];
    updated[count++] = i;
  }
  pivotLines(pivot, p, m_rowCells.data(), m_minusF.data(), count, first, last);
  rhs[r] = rhs[r] / p;
  const double leaving = t.basicValue[r] / p;
  for (int k = 0; k < count; ++k) {
    const int i = updated[k];
    rhs[i] = rhs[i] + m_minusF[k] * rhs[r];
    m_rowCells[k][slot] = m_minusF[k] * leaving;
    // The sign repair after the pivot: with no right-hand side below 0 before, only the rows
    // just changed can need a turn (the pivot row is divided by p > 0).
    if (m_rhsNonNegative && i <= m_n + 3 && rhs[i] < 0) negateRow(i);
  }
  if (delay) {
    const int number = pending.addPivot(pivot, first, last, slot, leaving);
    for (int k = 0; k < m_factorCount; ++k) {
      const int i = m_factorRows[k];
      if (i == r) continue;
      const double minusF = -current(i, slot);
      pending.addUpdate(i, number, minusF);
      rhs[i] = rhs[i] + minusF * rhs[r];
      if (m_rhsNonNegative && rhs[i] < 0) negateRow(i);
    }
  }
  pivot[slot] = leaving;
  t.basicValue[r] = p / p;
  const int left = t.basis[r];
  t.basis[r] = c;
  t.slotOf[c] = -1;
  t.slotOf[left] = slot;
}

void Simplex::negateRow(int i) {
  if (i <= m_n + 3 && m_tableau.pending.pending(i))
    m_tableau.pending.addTurn(i);
  else
    negate(m_tableau.row(i), m_n);
  m_tableau.rhs[i] = -m_tableau.rhs[i];
  m_tableau.basicValue[i] = -m_tableau.basicValue[i];
}

void Simplex::repairSigns() {
  SimplexTableau& t = m_tableau;
  for (int i = 1; i <= m_n + 3; ++i) {
    if (t.rhs[i] < 0) {
      if (!t.stored(i)) t.store(i);
      negateRow(i);
    }
  }
  m_rhsNonNegative = true;
}

void Simplex::fail(const char* text) {
  m_result.solvable = false;
  m_result.pivotFailure = text;
}

}  // namespace pescavo
