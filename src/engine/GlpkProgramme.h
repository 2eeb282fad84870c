#pragma once

#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/OptimisationProblem.h"

struct glp_prob;

namespace pescavo {

// The programme as GLPK holds it: rows 1 to 3 the lipid, protein and sum equations, column j
// the share of variable j (a fraction) bounded by its maximum inclusion.
class GlpkProgramme {
 public:
  // GLPK stops the process on values it cannot take: a programme is built only when this
  // holds.
  static bool accepts(const OptimisationProblem& problem);

  GlpkProgramme(const OptimisationProblem& problem, Criterion criterion);
  ~GlpkProgramme();
  GlpkProgramme(const GlpkProgramme&) = delete;
  GlpkProgramme& operator=(const GlpkProgramme&) = delete;

  // Sets the starting basis a reported composition implies: shares strictly between their
  // bounds basic, the others at the bound they sit on, rows basic while fewer than three
  // shares are. Only the start changes: GLPK prices and pivots on its own from there, and a
  // start it cannot factorise gives way to its standard basis.
  void startFrom(const OptimisationProblem& problem, const std::vector<double>& percent);

  // Later calls start from the basis the earlier ones left.
  GlpkSolution solve(bool exact);

  // The programme after a solve, for reading its basis and duals; null when GLPK never held
  // a column (no variable, or a bound no share can meet).
  glp_prob* solved() const { return m_triviallyInfeasible ? nullptr : m_lp; }

 private:
  glp_prob* m_lp = nullptr;
  int m_n = 0;
  bool m_triviallyInfeasible = false;
  bool m_warm = false;  // the next solve starts from a basis of our making
};

}  // namespace pescavo
