#include "engine/Sensitivity.h"

#include <glpk.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>

#include "engine/GlpkProgramme.h"

namespace pescavo {

namespace {

constexpr double kUnlimited = std::numeric_limits<double>::infinity();
// Duals below this are rounding left by the factorisation, not a rate.
constexpr double kNoRate = 1e-12;
constexpr double kAtLimit = 1e-9;
constexpr int kRows = 3;
// Percent; far above GLPK's feasibility tolerance, far below any limit an assessor sets.
constexpr double kNudge = 1e-3;

double rounded(double rate) { return std::fabs(rate) < kNoRate ? 0.0 : rate; }

// GLPK's range of an active bound, scaled to percent; DBL_MAX stands for no end.
void boundRange(glp_prob* lp, int k, double scale, LimitSensitivity& limit) {
  double low = 0, high = 0;
  int lowVar = 0, highVar = 0;
  glp_analyze_bound(lp, k, &low, &lowVar, &high, &highVar);
  limit.lowest = low <= -DBL_MAX ? -kUnlimited : low * scale;
  limit.highest = high >= DBL_MAX ? kUnlimited : high * scale;
}

// A percentage of the feed or of its dry matter cannot leave 0 to 100.
void keepToPercent(LimitSensitivity& limit, bool upTo100) {
  limit.lowest = std::max(limit.lowest, 0.0);
  if (upTo100) limit.highest = std::min(limit.highest, 100.0);
}

LimitSensitivity rowLimit(glp_prob* lp, int row, LimitKind kind, double value, double scale) {
  LimitSensitivity limit;
  limit.kind = kind;
  limit.binding = true;  // an equation always holds
  limit.limit = value * scale;
  limit.rate = rounded(glp_get_row_dual(lp, row) / scale);
  if (glp_get_row_stat(lp, row) == GLP_BS) {
    // A degenerate basis that keeps the equation basic vouches for its value alone.
    limit.lowest = limit.highest = limit.limit;
  } else {
    boundRange(lp, row, scale, limit);
  }
  keepToPercent(limit, kind != LimitKind::Sum);
  return limit;
}

LimitSensitivity columnLimit(glp_prob* lp, const OptimisationProblem& problem, int j) {
  LimitSensitivity limit;
  limit.kind = LimitKind::MaxInclusion;
  limit.variable = j;
  limit.limit = problem.maxInclusion[j - 1];
  const double share = glp_get_col_prim(lp, j);
  const int status = glp_get_col_stat(lp, j);
  limit.binding = status == GLP_NU || status == GLP_NS ||
                  (status == GLP_BS && share >= limit.limit / 100 - kAtLimit);
  if (status == GLP_NU || status == GLP_NS) {
    limit.rate = rounded(glp_get_col_dual(lp, j) / 100);
    boundRange(lp, kRows + j, 100, limit);
  } else {
    // A share below its limit, or on it in a degenerate basis, leaves the burden as it is
    // while the limit does not fall below the share.
    limit.lowest = share * 100;
    limit.highest = kUnlimited;
  }
  keepToPercent(limit, true);
  return limit;
}

// The optimum and its rates in the basis GLPK ends on.
Sensitivity analyseBasis(const OptimisationProblem& problem, Criterion criterion,
                         const std::vector<double>& startPercent) {
  Sensitivity result;
  if (!GlpkProgramme::accepts(problem)) return result;
  GlpkProgramme programme(problem, criterion);
  if (!startPercent.empty()) programme.startFrom(problem, startPercent);
  const GlpkSolution solution = programme.solve(false);
  glp_prob* lp = programme.solved();
  if (!solution.feasible || !lp) return result;
  if (!glp_bf_exists(lp) && glp_factorize(lp) != 0) return result;
  result.solved = true;
  result.optimum = solution.optimum;
  result.composition = solution.composition;
  result.limits.push_back(rowLimit(lp, 1, LimitKind::Lipid, problem.lipidTarget, 1));
  result.limits.push_back(rowLimit(lp, 2, LimitKind::Protein, problem.proteinTarget, 1));
  result.limits.push_back(rowLimit(lp, 3, LimitKind::Sum, 1, 100));
  for (int j = 1; j <= problem.chosenCount && j <= problem.n; ++j)
    result.limits.push_back(columnLimit(lp, problem, j));
  return result;
}

// The limit raised by a step the solver cannot mistake for rounding, or false for the sum,
// which the programme fixes at 100 %.
bool raise(OptimisationProblem& problem, const LimitSensitivity& limit) {
  switch (limit.kind) {
    case LimitKind::Lipid:
      problem.lipidTarget += kNudge;
      return true;
    case LimitKind::Protein:
      problem.proteinTarget += kNudge;
      return true;
    case LimitKind::MaxInclusion:
      problem.maxInclusion[limit.variable - 1] += kNudge;
      return true;
    case LimitKind::Sum:
      break;
  }
  return false;
}

}  // namespace

Sensitivity analyseSensitivity(const OptimisationProblem& problem, Criterion criterion,
                               const std::vector<double>& startPercent) {
  Sensitivity result = analyseBasis(problem, criterion, startPercent);
  // At a degenerate optimum the basis GLPK ends on may hold its rate for the limit's present
  // value alone. A basis optimal just above it holds the rate a further percent brings.
  for (LimitSensitivity& limit : result.limits) {
    if (!limit.binding || limit.highest > limit.limit + kNudge / 2 || limit.limit >= 100) continue;
    OptimisationProblem raised = problem;
    if (!raise(raised, limit)) continue;
    const Sensitivity above = analyseBasis(raised, criterion, result.composition);
    if (!above.solved) continue;
    for (const LimitSensitivity& other : above.limits) {
      if (other.kind != limit.kind || other.variable != limit.variable) continue;
      limit.rate = other.rate;
      limit.lowest = std::min(other.lowest, limit.limit);
      limit.highest = other.highest;
    }
  }
  return result;
}

}  // namespace pescavo
