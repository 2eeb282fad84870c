#pragma once

// Programmes in one line, and the fixed-pass method transcribed literally: the full tableau,
// every row and column, every sign repair over all rows, no shortcut.

#include <array>
#include <cmath>
#include <vector>

#include "engine/OptimisationProblem.h"
#include "engine/Simplex.h"

namespace pescavo::testing {

// Variables {lipid, protein, residue, maxInclusion}, then PC, CC and F (bits 1, 2 and 4 of
// pseudo) as the set-up adds them: uncontaminated, limit 100 %.
inline OptimisationProblem feed(const std::vector<std::array<double, 4>>& variables,
                                double lipidTarget, double proteinTarget, int pseudo = 0) {
  OptimisationProblem p;
  p.chosenCount = static_cast<int>(variables.size());
  std::vector<std::array<double, 4>> all = variables;
  if ((p.pc = pseudo & 1)) all.push_back({10, 65, 0, 100});
  if ((p.cc = pseudo & 2)) all.push_back({0.1, 0.1, 0, 100});
  if ((p.f = pseudo & 4)) all.push_back({100, 0, 0, 100});
  for (const auto& v : all) {
    p.lipid.push_back(v[0]), p.protein.push_back(v[1]);
    p.residue.push_back(v[2]), p.maxInclusion.push_back(v[3]);
  }
  p.n = static_cast<int>(p.lipid.size());
  p.lipidTarget = lipidTarget, p.proteinTarget = proteinTarget, p.unitOrder = p.n + 2;
  return p;
}

inline OptimisationResult solve(const OptimisationProblem& problem, Criterion criterion) {
  SimplexTableau tableau;
  OptimisationResult result;
  Rechnen(problem, criterion, tableau, result);
  return result;
}

struct LiteralRun : OptimisationResult {
  std::vector<int> basis;
};

inline LiteralRun literalSimplex(const OptimisationProblem& p, bool minimum) {
  const int n = p.n, w = 2 * n + 4;
  std::vector<double> cells((n + 5) * w, 0.0);
  auto T = [&](int i, int k) -> double& { return cells[(i - 1) * w + k - 1]; };
  auto phase1Objective = [&](int k) {
    for (int i = 1; i <= 3; ++i) T(n + 5, k) = T(n + 5, k) + T(i, k);
  };
  LiteralRun run;
  run.solvable = true, run.basis.assign(n + 4, 0);
  for (int i = 1; i <= 3; ++i) T(i, 2 * n + i) = i <= p.unitOrder, run.basis[i] = 2 * n + i;
  for (int j = 1; j <= n; ++j) {
    T(1, j) = p.lipid[j - 1], T(2, j) = p.protein[j - 1], T(3, j) = 1;
    T(3 + j, j) = T(3 + j, n + j) = j <= p.unitOrder;
    T(3 + j, w) = p.maxInclusion[j - 1] / 100, run.basis[3 + j] = n + j;
    T(n + 4, j) = p.residue[j - 1];
    phase1Objective(j);
  }
  T(1, w) = p.lipidTarget, T(2, w) = p.proteinTarget, T(3, w) = 1;
  phase1Objective(w);
  auto repair = [&](int rhs) {
    for (int i = 1; i <= n + 3; ++i)
      if (T(i, rhs) < 0)
        for (int k = 1; k <= rhs; ++k) T(i, k) = -T(i, k);
  };
  // Pivots on every column whose objective entry is above 0, 2n - 1 times over.
  auto passes = [&](int objective, int columns, int rhs, const char* failure) {
    for (int pass = 1; pass < 2 * n; ++pass) {
      for (int c = 1; c <= columns; ++c) {
        if (!(T(objective, c) > 0)) continue;
        if (objective == n + 5) repair(rhs);
        int r = 0;
        double best = 10000;
        for (int i = 1; i <= n + 3; ++i)
          if (T(i, c) > 0 && T(i, rhs) / T(i, c) < best) best = T(i, rhs) / T(i, c), r = i;
        if (r == 0) return run.solvable = false, run.pivotFailure = failure, false;
        const double pivot = T(r, c);
        for (int k = 1; k <= rhs; ++k) T(r, k) = T(r, k) / pivot;
        for (int i = 1; i <= objective; ++i) {
          const double f = T(i, c);
          if (i != r && f != 0)
            for (int k = 1; k <= rhs; ++k) T(i, k) = T(i, k) + (-f) * T(r, k);
        }
        run.basis[r] = c, ++run.pivots;
        repair(rhs);
      }
    }
    return true;
  };
  if (!passes(n + 5, 2 * n + 3, w, "geht nicht")) return run;
  if (!(std::fabs(T(n + 5, w)) < 1e-10)) return run.solvable = false, run;
  const int rhs = 2 * n + 1;
  for (int i = 1; i <= n + 4; ++i) T(i, rhs) = T(i, w);
  if (minimum)
    for (int k = 1; k <= rhs; ++k) T(n + 4, k) = -T(n + 4, k);
  if (!passes(n + 4, 2 * n, rhs, "geht nicht 2")) return run;
  std::vector<double> composition(2 * n + 4, 0.0);
  for (int i = 1; i <= n + 3; ++i) composition[run.basis[i]] = T(i, rhs) * 100;
  run.composition.assign(composition.begin() + 1, composition.begin() + n + 4);
  run.burden = minimum ? T(n + 4, rhs) : -T(n + 4, rhs);
  return run;
}

}  // namespace pescavo::testing
