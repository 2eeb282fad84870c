#include "engine/ReferenceSimplex.h"

#include <cmath>

#include "engine/Simplex.h"

namespace pescavo {

ReferenceSimplex::ReferenceSimplex(const OptimisationProblem& problem, Criterion criterion)
    : m_problem(problem),
      m_minimum(criterion == Criterion::Minimum),
      m_n(problem.n),
      m_columns(2 * problem.n + 4) {}

OptimisationResult ReferenceSimplex::Rechnen() {
  m_result = OptimisationResult();
  m_result.solvable = true;
  ErstelleEinheitsmatrix();
  ErstelleSimplextableau1();
  if (Hilfsproblemloesen()) ErstelleSimplextableau2();
  return m_result;
}

// Unit entries beyond the matrix's order are 0; the order only falls short of the rows when
// every component of the table is chosen together with PC, CC and F.
void ReferenceSimplex::ErstelleEinheitsmatrix() {
  const int order = m_problem.unitOrder > 0 ? m_problem.unitOrder : m_n + 3;
  m_unit.assign(m_n + 4, 0.0);
  for (int i = 1; i <= m_n + 3; ++i) m_unit[i] = i <= order ? 1.0 : 0.0;
}

// Rows 1..3: lipid, protein and sum equalities with an artificial variable each; rows
// 4..n + 3: x(j) + s(j) = maxInclusion(j) / 100; row n + 4 the burden, row n + 5 the sum of
// rows 1..3 over the variables and the right-hand side.
void ReferenceSimplex::ErstelleSimplextableau1() {
  const int n = m_n, w = m_columns;
  const OptimisationProblem& p = m_problem;
  m_cells.assign(static_cast<std::size_t>(n + 5) * static_cast<std::size_t>(w), 0.0);
  m_basis.assign(n + 4, 0);
  for (int i = 1; i <= 3; ++i) {
    T(i, 2 * n + i) = m_unit[i];
    m_basis[i] = 2 * n + i;
  }
  for (int j = 1; j <= n; ++j) {
    T(1, j) = p.lipid[j - 1];
    T(2, j) = p.protein[j - 1];
    T(3, j) = 1;
    T(3 + j, j) = T(3 + j, n + j) = m_unit[j];
    T(3 + j, w) = p.maxInclusion[j - 1] / Simplex::kPercent;
    T(n + 4, j) = p.residue[j - 1];
    m_basis[3 + j] = n + j;
  }
  T(1, w) = p.lipidTarget;
  T(2, w) = p.proteinTarget;
  T(3, w) = 1;
  for (int k = 1; k <= w; ++k)
    if (k <= n || k == w) T(n + 5, k) = T(1, k) + T(2, k) + T(3, k);
}

// Phase 1 drives the artificial variables out; the programme is feasible when the phase-1
// objective ends at 0.
bool ReferenceSimplex::Hilfsproblemloesen() {
  const int n = m_n;
  if (!passes(n + 5, 2 * n + 3, m_columns, Simplex::kPhase1Failure)) return false;
  if (!(std::fabs(T(n + 5, m_columns)) < Simplex::kFeasibilityTolerance)) {
    m_result.solvable = false;
    return false;
  }
  return true;
}

// Phase 2 drops the artificial columns: the right-hand side moves to column 2n + 1, and the
// burden row is turned over for the minimum.
void ReferenceSimplex::ErstelleSimplextableau2() {
  const int n = m_n, rhs = 2 * n + 1;
  for (int i = 1; i <= n + 4; ++i) T(i, rhs) = T(i, m_columns);
  if (m_minimum)
    for (int k = 1; k <= rhs; ++k) T(n + 4, k) = -T(n + 4, k);
  if (!passes(n + 4, 2 * n, rhs, Simplex::kPhase2Failure)) return;
  readOut();
}

bool ReferenceSimplex::passes(int objectiveRow, int lastColumn, int rhsColumn,
                              const char* failure) {
  for (int pass = 1; pass < 2 * m_n; ++pass) {
    for (int c = 1; c <= lastColumn; ++c) {
      if (!(T(objectiveRow, c) > 0)) continue;
      if (!Pivotsuche(c, objectiveRow, rhsColumn, failure)) return false;
    }
  }
  return true;
}

// Minimum-ratio test over the constraint rows (the first of equal ratios wins, and a ratio
// must be below kRatioBound), then the pivot on every row up to the objective row.
bool ReferenceSimplex::Pivotsuche(int c, int objectiveRow, int rhsColumn, const char* failure) {
  if (objectiveRow == m_n + 5) repairSigns(rhsColumn);
  int r = 0;
  double best = Simplex::kRatioBound;
  for (int i = 1; i <= m_n + 3; ++i) {
    if (T(i, c) > 0 && T(i, rhsColumn) / T(i, c) < best) {
      best = T(i, rhsColumn) / T(i, c);
      r = i;
    }
  }
  if (r == 0) {
    m_result.solvable = false;
    m_result.pivotFailure = failure;
    return false;
  }
  const double pivot = T(r, c);
  for (int k = 1; k <= rhsColumn; ++k) T(r, k) = T(r, k) / pivot;
  for (int i = 1; i <= objectiveRow; ++i) {
    const double f = T(i, c);
    if (i == r || f == 0) continue;
    for (int k = 1; k <= rhsColumn; ++k) T(i, k) = T(i, k) + (-f) * T(r, k);
  }
  m_basis[r] = c;
  ++m_result.pivots;
  repairSigns(rhsColumn);
  return true;
}

void ReferenceSimplex::repairSigns(int rhsColumn) {
  for (int i = 1; i <= m_n + 3; ++i) {
    if (!(T(i, rhsColumn) < 0)) continue;
    for (int k = 1; k <= rhsColumn; ++k) T(i, k) = -T(i, k);
  }
}

// Shares in percent from the basic rows; the burden is the right-hand side of the objective.
void ReferenceSimplex::readOut() {
  const int n = m_n, rhs = 2 * n + 1;
  m_result.composition.assign(n + 3, 0.0);
  for (int i = 1; i <= n + 3; ++i)
    if (m_basis[i] <= n + 3) m_result.composition[m_basis[i] - 1] = T(i, rhs) * Simplex::kPercent;
  m_result.burden = m_minimum ? T(n + 4, rhs) : -T(n + 4, rhs);
}

}  // namespace pescavo
