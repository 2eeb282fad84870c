#pragma once

// Fixed-pass two-phase simplex on the dense tableau (1-based, n variables):
//
//   rows 1, 2, 3      lipid, protein and sum equalities
//   rows 4..n + 3     x(i) + s(i) = maxInclusion(i) / 100
//   row n + 4         objective: residue(j), reduced by every pivot
//   row n + 5         phase-1 objective: column sums of rows 1..3
//   columns 1..n      x(j);  n + 1..2n slacks;  2n + 1..2n + 3 artificials;  2n + 4 right-hand side
//
// Each phase makes 2n - 1 passes over the columns in ascending order and pivots on every
// column whose objective entry is above 0 when it is visited; there is no optimality test.
// Phase 2 moves the right-hand side onto column 2n + 1 and works on rows 1..n + 4 and
// columns 1..2n + 1 only. Every cell is computed as x + (-f) * y in a fixed order, so the
// results are the same bit for bit on every machine built without fused multiply-add.
// ReferenceSimplex.h is the method in its plain form; SimplexTableau.h states how the tuned
// form below keeps the tableau and why it gives the same bits.

#include <vector>

#include "engine/OptimisationProblem.h"
#include "engine/SimplexTableau.h"

namespace pescavo {

// Solves the problem Laden built with the fixed-pass two-phase simplex method. When phase 1
// ends infeasible (or a ratio test finds no row), result.solvable is false and burden and
// composition keep their previous values.
void Rechnen(const OptimisationProblem& problem, Criterion criterion, SimplexTableau& tableau,
             OptimisationResult& result);

// The steps of Rechnen, callable one by one so that tests can look at the tableau between
// them. The object only holds references; the tableau and the result outlive it.
class Simplex {
 public:
  static constexpr double kRatioBound = 10000;  // a ratio must be below it to be chosen
  static constexpr double kFeasibilityTolerance = 1e-10;
  static constexpr double kPercent = 100;
  static constexpr const char* kPhase1Failure = "geht nicht";
  static constexpr const char* kPhase2Failure = "geht nicht 2";

  Simplex(const OptimisationProblem& problem, Criterion criterion, SimplexTableau& tableau,
          OptimisationResult& result);

  // Fixes the order of the unit matrix the tableau is built from: problem.unitOrder, or no
  // limit when it is 0 (problems made by hand). Beyond that order the unit entries are 0.
  void ErstelleEinheitsmatrix();
  // Sizes the tableau to the problem and fills the phase-1 tableau and basis. The reports read
  // the objective coefficients from the problem, so the tableau keeps no copy of them.
  void ErstelleSimplextableau1();
  // Phase 1; sets result.solvable and goes on to phase 2 when the problem is feasible.
  void Hilfsproblemloesen();
  // Phase-2 layout, phase 2 in the direction of the criterion, composition and burden.
  void ErstelleSimplextableau2();

  // Ratio test and pivot on the non-basic column c. False (and the run marked not solvable with the
  // failure text) when no row qualifies; no pivot is made then.
  bool Pivotsuche(int c);   // phase-1 layout, sign repair before and after
  bool Pivotsuche2(int c);  // phase-2 layout, either criterion (the objective row is oriented)

  // Row chosen by the last ratio test (1 when none qualified).
  int pivotRow() const { return m_pivotRow; }

 private:
  // The phase-1 passes alone (no feasibility decision); false when a pivot search failed.
  bool phase1Passes();
  double unit(int i, int k) const { return i == k && i <= m_unitOrder ? 1.0 : 0.0; }
  // Minimum-ratio test of column c over rows 1..n + 3; 0 when no row qualifies.
  int ratioTest(int c);
  void eliminate(int r, int c, int lastRow);
  void negateRow(int i);
  void repairSigns();
  // Ratio test, pivot and sign repair after it on rows 1..lastRow.
  bool pivot(int c, int lastRow, const char* failure);
  bool pivotPhase1(int c);
  // Cell `slot` of constraint row i, pending pivots included.
  double current(int i, int slot) const;
  // Writes every pending pivot into the rows, so that the tableau can be read.
  void writePending();
  bool phase2Passes();
  void readOut(bool minimum);
  void fail(const char* text);

  const OptimisationProblem& m_problem;
  Criterion m_criterion;
  SimplexTableau& m_tableau;
  OptimisationResult& m_result;
  int m_n;
  int m_unitOrder;
  int m_pivotRow = 1;
  bool m_rhsNonNegative = false;  // no constraint row has a right-hand side below 0
  // Rows of the last ratio test with a non-zero entry: the first m_factorCount, ascending; the
  // pivot puts the objective rows with one after them.
  std::vector<int>& m_factorRows;
  int m_factorCount = 0;
  std::vector<double*>& m_rowCells;  // the rows a pivot updates, and their -f
  std::vector<double>& m_minusF;
};

}  // namespace pescavo
