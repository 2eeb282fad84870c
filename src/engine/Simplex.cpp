#include "engine/Simplex.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

namespace pescavo {

namespace {

// Entry j (1-based) of a per-variable vector; a vector that is too short reads as 0.
double entry(const std::vector<double>& values, int j) {
  return j - 1 < static_cast<int>(values.size()) ? values[j - 1] : 0.0;
}

// row = row + (-f) * pivotRow over columns [first, last), exactly in that form. Each cell is
// one IEEE multiply and one add whatever the vector width, so every clone gives the same bits.
__attribute__((target_clones("avx512f", "avx2", "default"))) void addMultiple(
    double* __restrict row, const double* __restrict pivotRow, double minusF, int first, int last) {
  for (int k = first; k < last; ++k) row[k] = row[k] + minusF * pivotRow[k];
}

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
      m_unitOrder(INT_MAX) {}

void Simplex::ErstelleEinheitsmatrix() {
  m_unitOrder = m_problem.unitOrder > 0 ? m_problem.unitOrder : INT_MAX;
}

void Simplex::ErstelleSimplextableau1() {
  const int n = m_n;
  const int rhs = 2 * n + 4;
  SimplexTableau& t = m_tableau;
  t.reset(n);
  m_rhsNonNegative = false;
  m_factorRows.reserve(n + 5);
  m_pivotColumns.reserve(2 * n + 4);
  for (int j = 1; j <= n; ++j) {
    t(1, j) = entry(m_problem.lipid, j);
    t(2, j) = entry(m_problem.protein, j);
  }
  for (int j = 1; j <= n; ++j) t(3, j) = 1;
  for (int i = 1; i <= 3; ++i) {
    for (int k = 1; k <= 3; ++k) t(i, 2 * n + k) = unit(i, k);
  }
  // The unit matrix is diagonal: only the diagonal of the n-by-n blocks can be non-zero.
  for (int i = 1; i <= n; ++i) {
    t(3 + i, i) = unit(i, i);
    t(3 + i, n + i) = unit(i, i);
  }
  for (int i = 1; i <= 3; ++i) t.basis[i] = 2 * n + i;
  for (int i = 4; i <= n + 3; ++i) t.basis[i] = n + i - 3;
  t(1, rhs) = m_problem.lipidTarget;
  t(2, rhs) = m_problem.proteinTarget;
  t(3, rhs) = 1;
  for (int i = 1; i <= n; ++i) t(3 + i, rhs) = entry(m_problem.maxInclusion, i) / 100;
  for (int j = 1; j <= n; ++j) t(n + 4, j) = entry(m_problem.residue, j);
  for (int j = 1; j <= n; ++j) {
    for (int i = 1; i <= 3; ++i) t(n + 5, j) = t(n + 5, j) + t(i, j);
  }
  for (int i = 1; i <= 3; ++i) t(n + 5, rhs) = t(n + 5, rhs) + t(i, rhs);
  for (int j = 1; j <= n; ++j) t.residueCopy[j - 1] = entry(m_problem.residue, j);
}

void Simplex::Hilfsproblemloesen() {
  m_result.solvable = true;
  if (!phase1Passes()) return;
  if (std::fabs(m_tableau(m_n + 5, 2 * m_n + 4)) < kFeasibilityTolerance) {
    ErstelleSimplextableau2();
  } else {
    m_result.solvable = false;
  }
}

bool Simplex::phase1Passes() {
  const int n = m_n;
  const double* objective = m_tableau.row(n + 5);
  for (int pass = 1; pass <= 2 * n - 1; ++pass) {
    bool pivoted = false;
    for (int c = 1; c <= 2 * n + 3; ++c) {
      if (objective[c - 1] > 0) {
        if (!Pivotsuche(c)) return false;
        pivoted = true;
      }
    }
    // A pass without a pivot leaves the tableau as it was, so every later pass would too.
    if (!pivoted) break;
  }
  return true;
}

bool Simplex::Pivotsuche(int c) {
  const int n = m_n;
  const int rhs = 2 * n + 4;
  // Sign repair before: after the first repair every later one finds nothing to turn.
  if (!m_rhsNonNegative) repairSigns(rhs);
  return pivot(c, rhs, n + 5, kPhase1Failure);
}

void Simplex::ErstelleSimplextableau2() {
  const int n = m_n;
  const int rhs = 2 * n + 1;
  for (int i = 1; i <= n + 4; ++i) m_tableau(i, rhs) = m_tableau(i, 2 * n + 4);
  // The row is oriented by the criterion, not by the sign of its right-hand side: when only
  // uncontaminated variables are basic that sign is 0 or round-off and says nothing.
  const bool minimum = m_criterion == Criterion::Minimum;
  if (minimum) negate(m_tableau.row(n + 4), rhs);
  if (!phase2Passes(minimum)) return;
  readOut(minimum);
}

bool Simplex::phase2Passes(bool minimum) {
  const int n = m_n;
  const double* objective = m_tableau.row(n + 4);
  for (int pass = 1; pass <= 2 * n - 1; ++pass) {
    bool pivoted = false;
    for (int c = 1; c <= 2 * n; ++c) {
      if (objective[c - 1] > 0) {
        if (!(minimum ? PivotsucheMin(c) : Pivotsuche2(c))) return false;
        pivoted = true;
      }
    }
    if (!pivoted) break;
  }
  return true;
}

bool Simplex::Pivotsuche2(int c) { return phase2Search(c); }

bool Simplex::PivotsucheMin(int c) { return phase2Search(c); }

bool Simplex::phase2Search(int c) { return pivot(c, 2 * m_n + 1, m_n + 4, kPhase2Failure); }

bool Simplex::pivot(int c, int rhs, int lastRow, const char* failure) {
  const int r = ratioTest(c, rhs);
  if (r == 0) {
    fail(failure);
    return false;
  }
  eliminate(r, c, lastRow, rhs);
  m_tableau.basis[r] = c;
  repairSignsAfterPivot(rhs);
  ++m_result.pivots;
  return true;
}

void Simplex::readOut(bool minimum) {
  const int n = m_n;
  const int rhs = 2 * n + 1;
  // A basis entry can name any column up to 2n + 3 (slacks, and artificials left basic at 0),
  // so the working vector covers them all; readers use positions 1..n, kept are 1..n + 3.
  std::vector<double> composition(2 * n + 3, 0.0);
  for (int i = 1; i <= n + 3; ++i) {
    const int column = m_tableau.basis[i];
    if (column >= 1 && column <= 2 * n + 3) {
      composition[column - 1] = m_tableau(i, rhs) * kPercent;
    }
  }
  composition.resize(n + 3);
  m_result.composition = std::move(composition);
  const double objective = m_tableau(n + 4, rhs);
  m_result.burden = minimum ? objective : -objective;
}

int Simplex::ratioTest(int c, int rhs) {
  const int n = m_n;
  const int stride = m_tableau.columns();
  const double* cell = m_tableau.row(1);
  double best = kRatioBound;
  m_pivotRow = 1;
  int chosen = 0;
  m_factorRows.resize(n + 5);
  int* factorRows = m_factorRows.data();
  int factors = 0;
  for (int i = 1; i <= n + 3; ++i, cell += stride) {
    const double a = cell[c - 1];
    factorRows[factors] = i;
    factors += a != 0;  // without a branch: zeros fall at random
    if (a > 0) {
      const double q = cell[rhs - 1] / a;
      if (q < best) {
        best = q;
        m_pivotRow = i;
        chosen = i;
      }
    }
  }
  m_factorRows.resize(factors);
  return chosen;
}

namespace {

// x != 0 on the bits, so that counting loops vectorise: -0.0 counts as zero, NaN does not.
inline int isNonZero(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return (bits << 1) != 0;
}

// pivot = pivot / p over columns [first, last); a zero stays a zero of some sign.
__attribute__((target_clones("avx512f", "avx2", "default"))) void divideRange(
    double* __restrict pivot, double p, int first, int last) {
  for (int k = first; k < last; ++k) pivot[k] = pivot[k] / p;
}

}  // namespace

// Rows whose factor is 0 are left alone, and so are the columns where the pivot row holds 0:
// there x + (-f) * 0 equals x except for the sign of a zero, and a zero's sign reaches no
// comparison, no divisor and no value read out (the right-hand side is always computed).
void Simplex::eliminate(int r, int c, int lastRow, int width) {
  double* pivot = m_tableau.row(r);
  const double p = pivot[c - 1];
  const int rhs = width - 1;  // 0-based
  // The pivot row's non-zero cells lie in [first, last); the pivot cell itself is one.
  int first = 0;
  while (first < rhs && pivot[first] == 0) ++first;
  int last = rhs;
  while (last > first && pivot[last - 1] == 0) --last;
  int count = 0;
  for (int k = first; k < last; ++k) count += isNonZero(pivot[k]);
  // A full pivot row is worked over its whole span, with vectors; a thin one cell by cell.
  const bool dense = 4 * (count + 1) > last - first;
  if (dense) {
    divideRange(pivot, p, first, last);
  } else {
    m_pivotColumns.resize(count + 1);
    int* columns = m_pivotColumns.data();
    int m = 0;
    for (int k = first; k < last; ++k) {
      columns[m] = k;
      m += pivot[k] != 0;
    }
    for (int j = 0; j < count; ++j) pivot[columns[j]] = pivot[columns[j]] / p;
  }
  pivot[rhs] = pivot[rhs] / p;
  // The constraint rows with a factor were noted by the ratio test; the objective rows follow.
  for (int i = m_n + 4; i <= lastRow; ++i) {
    if (m_tableau(i, c) != 0) m_factorRows.push_back(i);
  }
  const int* columns = m_pivotColumns.data();
  for (int i : m_factorRows) {
    if (i == r) continue;
    double* row = m_tableau.row(i);
    const double minusF = -row[c - 1];
    if (dense) {
      addMultiple(row, pivot, minusF, first, last);
    } else {
      for (int j = 0; j < count; ++j) {
        const int k = columns[j];
        row[k] = row[k] + minusF * pivot[k];
      }
    }
    row[rhs] = row[rhs] + minusF * pivot[rhs];
  }
}

void Simplex::repairSigns(int rhs) {
  const int n = m_n;
  for (int i = 1; i <= n + 3; ++i) {
    double* row = m_tableau.row(i);
    if (row[rhs - 1] < 0) negate(row, rhs);
  }
  m_rhsNonNegative = true;
}

// With no right-hand side below 0 before the pivot, only the rows just changed can need a turn:
// the pivot row is divided by a positive p.
void Simplex::repairSignsAfterPivot(int rhs) {
  if (!m_rhsNonNegative) {
    repairSigns(rhs);
    return;
  }
  for (int i : m_factorRows) {
    if (i > m_n + 3) break;
    double* row = m_tableau.row(i);
    if (row[rhs - 1] < 0) negate(row, rhs);
  }
}

void Simplex::fail(const char* text) {
  m_result.solvable = false;
  m_result.pivotFailure = text;
}

}  // namespace pescavo
