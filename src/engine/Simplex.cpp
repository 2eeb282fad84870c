#include "engine/Simplex.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <utility>

namespace pescavo {

namespace {

// Entry j (1-based) of a per-variable vector; a vector that is too short reads as 0.
double entry(const std::vector<double>& values, int j) {
  return j - 1 < static_cast<int>(values.size()) ? values[j - 1] : 0.0;
}

// Two lanes of doubles: each lane is the same IEEE multiply and add as the scalar code.
typedef double Lanes __attribute__((vector_size(16)));

// row = row + (-f) * pivotRow over columns [first, last), exactly in that form.
void addMultiple(double* __restrict row, const double* __restrict pivotRow, double minusF,
                 int first, int last) {
  const Lanes factor = {minusF, minusF};
  int k = first;
  for (; k + 2 <= last; k += 2) {
    Lanes a;
    Lanes b;
    std::memcpy(&a, row + k, sizeof a);
    std::memcpy(&b, pivotRow + k, sizeof b);
    a = a + factor * b;
    std::memcpy(row + k, &a, sizeof a);
  }
  for (; k < last; ++k) row[k] = row[k] + minusF * pivotRow[k];
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
  const int r = ratioTest(c, rhs);
  if (r == 0) {
    fail(kPhase1Failure);
    return false;
  }
  eliminate(r, c, n + 5, rhs);
  m_tableau.basis[r] = c;
  repairSignsAfterPivot(rhs);
  ++m_result.pivots;
  return true;
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

bool Simplex::phase2Search(int c) {
  const int n = m_n;
  const int rhs = 2 * n + 1;
  const int r = ratioTest(c, rhs);
  if (r == 0) {
    fail(kPhase2Failure);
    return false;
  }
  eliminate(r, c, n + 4, rhs);
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
  m_factorRows.clear();
  for (int i = 1; i <= n + 3; ++i, cell += stride) {
    const double a = cell[c - 1];
    if (a != 0) m_factorRows.push_back(i);
    if (a > 0) {
      const double q = cell[rhs - 1] / a;
      if (q < best) {
        best = q;
        m_pivotRow = i;
        chosen = i;
      }
    }
  }
  return chosen;
}

// Rows whose factor is 0 are left alone, and so are the columns where the pivot row holds 0:
// there x + (-f) * 0 equals x except for the sign of a zero, and a zero's sign reaches no
// comparison, no divisor and no value read out (the right-hand side is always computed).
void Simplex::eliminate(int r, int c, int lastRow, int width) {
  double* pivot = m_tableau.row(r);
  const double p = pivot[c - 1];
  m_pivotColumns.clear();
  for (int k = 0; k < width - 1; ++k) {
    if (pivot[k] != 0) {
      pivot[k] = pivot[k] / p;
      m_pivotColumns.push_back(k);
    }
  }
  pivot[width - 1] = pivot[width - 1] / p;
  m_pivotColumns.push_back(width - 1);
  // The constraint rows with a factor were noted by the ratio test; the objective rows follow.
  for (int i = m_n + 4; i <= lastRow; ++i) {
    if (m_tableau(i, c) != 0) m_factorRows.push_back(i);
  }
  // A pivot row with few non-zero cells is applied cell by cell; a fuller one over the span
  // from its first to its last non-zero cell, two cells at a time.
  const int* columns = m_pivotColumns.data();
  const int count = static_cast<int>(m_pivotColumns.size());
  const int first = columns[0];
  const int last = count > 1 ? columns[count - 2] + 1 : first;
  const bool dense = 4 * count > last - first;
  for (int i : m_factorRows) {
    if (i == r) continue;
    double* row = m_tableau.row(i);
    const double minusF = -row[c - 1];
    if (dense) {
      addMultiple(row, pivot, minusF, first, last);
      row[width - 1] = row[width - 1] + minusF * pivot[width - 1];
    } else {
      for (int m = 0; m < count; ++m) {
        const int k = columns[m];
        row[k] = row[k] + minusF * pivot[k];
      }
    }
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
