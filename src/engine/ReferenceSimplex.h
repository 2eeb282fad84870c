#pragma once

// The fixed-pass two-phase method in its plain form: the whole tableau of Simplex.h, every row
// and column stored, every sign repair over all rows, no shortcut. It is the readable statement
// of what Rechnen computes; Rechnen is the same arithmetic in the same order on a tableau that
// stores only what a pivot can change, and gives the same bits (the engine tests compare the
// two on thousands of programmes). Use Rechnen in the program: this one is slower by far.

#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo {

class ReferenceSimplex {
 public:
  ReferenceSimplex(const OptimisationProblem& problem, Criterion criterion);

  // All steps; the result of a run that is not solvable holds no burden or composition.
  OptimisationResult Rechnen();

  // Row i's basic column (1-based rows 1..n + 3) and any cell, after Rechnen.
  int basis(int i) const { return m_basis[i]; }
  double cell(int i, int k) const { return m_cells[index(i, k)]; }

 private:
  // The steps, named as the method names them.
  void ErstelleEinheitsmatrix();
  void ErstelleSimplextableau1();
  bool Hilfsproblemloesen();
  void ErstelleSimplextableau2();
  bool Pivotsuche(int c, int objectiveRow, int rhsColumn, const char* failure);

  // 2n - 1 passes over columns 1..lastColumn, pivoting on every column whose entry in the
  // objective row is above 0 when it is visited.
  bool passes(int objectiveRow, int lastColumn, int rhsColumn, const char* failure);
  // A constraint row with a negative right-hand side is turned over, up to that column.
  void repairSigns(int rhsColumn);
  void readOut();

  std::size_t index(int i, int k) const {
    return static_cast<std::size_t>(i - 1) * static_cast<std::size_t>(m_columns) +
           static_cast<std::size_t>(k - 1);
  }
  double& T(int i, int k) { return m_cells[index(i, k)]; }

  const OptimisationProblem& m_problem;
  bool m_minimum;
  int m_n;
  int m_columns;                // 2n + 4, the last the phase-1 right-hand side
  std::vector<double> m_cells;  // rows 1..n + 5, row-major
  std::vector<int> m_basis;     // [i] for rows 1..n + 3; [0] unused
  std::vector<double> m_unit;   // diagonal of the unit matrix, 1 up to its order
  OptimisationResult m_result;
};

}  // namespace pescavo
