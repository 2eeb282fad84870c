#pragma once

// A second opinion on every optimum. The fixed-pass method can end with an artificial
// variable still basic, stop before the optimum or call a solvable programme not solvable;
// assessors file these figures, so each result is set beside the optimum of an independent
// LP solver (GLPK's primal simplex, a disagreement confirmed by its exact rational simplex).
// GLPK starts from the basis the reported composition implies; it factorises, prices and
// pivots on its own from there: a right result costs it no pivot, a wrong one is pivoted away.
//
// Agreement: both call the programme infeasible, or both find it feasible, the burdens
// agree to kBurdenRelative * |true| + kBurdenAbsolute, and the reported composition meets
// every constraint of the programme to kConstraintTolerance (in the row's own units: percent
// of DM for lipid and protein, fractions for the sum and the bounds).

#include <string>
#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo {

constexpr double kBurdenRelative = 1e-7;
constexpr double kBurdenAbsolute = 1e-9;
constexpr double kConstraintTolerance = 1e-6;

enum class CheckVerdict { Agrees, Differs, CouldNotRun };

enum class ConstraintKind { None, Lipid, Protein, Sum, MaxInclusion, NonNegative };

struct ConstraintViolation {
  ConstraintKind kind = ConstraintKind::None;
  int variable = 0;          // 1-based, for MaxInclusion and NonNegative
  std::string variableName;  // what that variable stands for
  std::string constraint;    // "crude lipid", "sum of shares", "maximum inclusion of F", ...
  double amount = 0;         // in the row's own units, as the tolerance sees it
  double percent = 0;        // the same in percent (of DM or of the feed)
};

// What GLPK finds for a programme.
struct GlpkSolution {
  bool ran = false;  // false when the solver gave up
  bool feasible = false;
  double optimum = 0;               // mg/kg of feed DM
  std::vector<double> composition;  // percent per variable, index j - 1
};

struct CheckResult {
  CheckVerdict verdict = CheckVerdict::CouldNotRun;
  std::string failure;  // why the check could not run
  bool reportedSolvable = false;
  double reportedBurden = 0;
  std::string reportedPivotFailure;  // "geht nicht" / "geht nicht 2" or empty
  bool trueFeasible = false;
  double trueOptimum = 0;
  std::vector<double> trueComposition;  // percent per variable, index j - 1
  bool exactConfirmed = false;          // the exact rational simplex settled the true values
  // The constraint the reported composition misses most (kind None when it meets all, or
  // when the method reported no composition).
  ConstraintViolation largestViolation;
};

// The same programme solved by GLPK: primal simplex with presolve off, or with exact = true
// the exact rational simplex. No terminal output.
GlpkSolution solveWithGlpk(const OptimisationProblem& problem, Criterion criterion,
                           bool exact = false);

// The largest violation of the programme's constraints by a composition in percent.
// Bounds are named after their variable, or "variable j" in a problem that names none.
ConstraintViolation largestViolation(const OptimisationProblem& problem,
                                     const std::vector<double>& compositionPercent);

CheckResult checkOptimum(const OptimisationProblem& problem, Criterion criterion,
                         const OptimisationResult& result);

// GLPK keeps its memory per thread: a worker thread that checked runs frees it before it ends.
void endCheckThread();

// Texts for the windows and the command line; numbers in the form "0.000".
// "Independent check: agrees." or what differs, as one sentence for the main window.
std::string mainWindowSentence(const CheckResult& check, Criterion criterion,
                               char decimalSeparator);
// "Independent check: agrees: ..." / "Independent check: differs: ..." for pescavo-cli verify.
std::string cliLine(const CheckResult& check, Criterion criterion, char decimalSeparator);
// Scenario table: the verdict cell ("agrees", "differs", "not checked"), its tooltip and the
// true optimum cell ("0.000" or "not solvable").
std::string verdictCell(const CheckResult& check);
std::string verdictTooltip(const CheckResult& check, Criterion criterion, char decimalSeparator);
std::string trueOptimumCell(const CheckResult& check, char decimalSeparator);

}  // namespace pescavo
