#pragma once

// Answers for the solver tests that do not come from the solver: the vertices of a small
// feed programme enumerated one by one, and a literal, unoptimised transcription of the
// fixed-pass method (every row, every column, every repair over all rows).

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo::testing {

struct VertexOptimum {
  bool feasible = false;
  double maximum = -1e300;
  double minimum = 1e300;
};

// Every vertex of {lipid.x = L, protein.x = P, sum x = 1, 0 <= x <= maxInclusion / 100}: each
// variable at 0, at its limit or free, with at most three free ones solved for. Small n only.
inline VertexOptimum enumerateVertices(const OptimisationProblem& problem) {
  const int n = problem.n;
  VertexOptimum result;
  int combinations = 1;
  for (int j = 0; j < n; ++j) combinations *= 3;
  for (int code = 0; code < combinations; ++code) {
    std::vector<int> state(n);
    std::vector<int> free;
    int rest = code;
    for (int j = 0; j < n; ++j) {
      state[j] = rest % 3;
      rest /= 3;
      if (state[j] == 2) free.push_back(j);
    }
    const int k = static_cast<int>(free.size());
    if (k > 3) continue;
    std::vector<double> x(n, 0.0);
    double b[3] = {problem.lipidTarget, problem.proteinTarget, 1};
    for (int j = 0; j < n; ++j) {
      if (state[j] != 1) continue;
      x[j] = problem.maxInclusion[j] / 100;
      b[0] -= problem.lipid[j] * x[j];
      b[1] -= problem.protein[j] * x[j];
      b[2] -= x[j];
    }
    double a[3][4];
    for (int r = 0; r < 3; ++r) {
      for (int m = 0; m < k; ++m) {
        const int j = free[m];
        a[r][m] = r == 0 ? problem.lipid[j] : r == 1 ? problem.protein[j] : 1.0;
      }
      a[r][k] = b[r];
    }
    bool ok = true;
    int row = 0;
    for (int m = 0; m < k && ok; ++m) {
      int best = row;
      for (int r = row; r < 3; ++r) {
        if (std::fabs(a[r][m]) > std::fabs(a[best][m])) best = r;
      }
      if (std::fabs(a[best][m]) < 1e-12) {
        ok = false;
        break;
      }
      for (int q = 0; q <= k; ++q) std::swap(a[row][q], a[best][q]);
      for (int r = 0; r < 3; ++r) {
        if (r == row) continue;
        const double f = a[r][m] / a[row][m];
        for (int q = 0; q <= k; ++q) a[r][q] -= f * a[row][q];
      }
      ++row;
    }
    for (int r = row; r < 3 && ok; ++r) ok = std::fabs(a[r][k]) < 1e-9;
    if (!ok) continue;
    for (int m = 0; m < k; ++m) x[free[m]] = a[m][k] / a[m][m];
    for (int j = 0; j < n; ++j) {
      if (x[j] < -1e-9 || x[j] > problem.maxInclusion[j] / 100 + 1e-9) ok = false;
    }
    if (!ok) continue;
    double burden = 0;
    for (int j = 0; j < n; ++j) burden += problem.residue[j] * x[j];
    result.feasible = true;
    if (burden > result.maximum) result.maximum = burden;
    if (burden < result.minimum) result.minimum = burden;
  }
  return result;
}

struct LiteralRun {
  bool solvable = false;
  std::string failure;
  int pivots = 0;
  double burden = 0;
  std::vector<double> composition;  // positions 1..n + 3 at index j - 1
  std::vector<int> basis;
};

// The method exactly as written, on a full tableau without any shortcut.
class LiteralSimplex {
 public:
  LiteralRun run(const OptimisationProblem& problem, bool minimum) {
    m_n = problem.n;
    const int n = m_n;
    m_columns = 2 * n + 4;
    m_cells.assign((n + 5) * m_columns, 0.0);
    m_run = LiteralRun();
    m_run.basis.assign(n + 4, 0);
    const int order = problem.unitOrder;
    auto unit = [order](int i, int k) { return i == k && i <= order ? 1.0 : 0.0; };
    const int rhs = 2 * n + 4;
    for (int j = 1; j <= n; ++j) {
      T(1, j) = problem.lipid[j - 1];
      T(2, j) = problem.protein[j - 1];
    }
    for (int j = 1; j <= n; ++j) T(3, j) = 1;
    for (int i = 1; i <= 3; ++i)
      for (int k = 1; k <= 3; ++k) T(i, 2 * n + k) = unit(i, k);
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j <= n; ++j) {
        T(3 + i, j) = unit(i, j);
        T(3 + i, n + j) = unit(i, j);
      }
    for (int i = 1; i <= 3; ++i) m_run.basis[i] = 2 * n + i;
    for (int i = 4; i <= n + 3; ++i) m_run.basis[i] = n + i - 3;
    T(1, rhs) = problem.lipidTarget;
    T(2, rhs) = problem.proteinTarget;
    T(3, rhs) = 1;
    for (int i = 1; i <= n; ++i) T(3 + i, rhs) = problem.maxInclusion[i - 1] / 100;
    for (int j = 1; j <= n; ++j) T(n + 4, j) = problem.residue[j - 1];
    for (int j = 1; j <= n; ++j)
      for (int i = 1; i <= 3; ++i) T(n + 5, j) = T(n + 5, j) + T(i, j);
    for (int i = 1; i <= 3; ++i) T(n + 5, rhs) = T(n + 5, rhs) + T(i, rhs);

    m_run.solvable = true;
    for (int pass = 1; pass <= 2 * n - 1; ++pass)
      for (int c = 1; c <= 2 * n + 3; ++c)
        if (T(n + 5, c) > 0 && !search(c, rhs, n + 5, true, "geht nicht")) return m_run;
    if (!(std::fabs(T(n + 5, rhs)) < 1e-10)) {
      m_run.solvable = false;
      return m_run;
    }
    const int rhs2 = 2 * n + 1;
    for (int i = 1; i <= n + 4; ++i) T(i, rhs2) = T(i, rhs);
    if (minimum)
      for (int k = 1; k <= rhs2; ++k) T(n + 4, k) = -T(n + 4, k);
    for (int pass = 1; pass <= 2 * n - 1; ++pass)
      for (int c = 1; c <= 2 * n; ++c)
        if (T(n + 4, c) > 0 && !search(c, rhs2, n + 4, false, "geht nicht 2")) return m_run;
    std::vector<double> composition(2 * n + 4, 0.0);
    for (int i = 1; i <= n + 3; ++i) composition[m_run.basis[i]] = T(i, rhs2) * 100;
    m_run.composition.assign(composition.begin() + 1, composition.begin() + n + 4);
    m_run.burden = minimum ? T(n + 4, rhs2) : -T(n + 4, rhs2);
    return m_run;
  }

 private:
  double& T(int i, int k) { return m_cells[(i - 1) * m_columns + (k - 1)]; }

  void repair(int rhs) {
    for (int i = 1; i <= m_n + 3; ++i)
      if (T(i, rhs) < 0)
        for (int k = 1; k <= rhs; ++k) T(i, k) = -T(i, k);
  }

  bool search(int c, int rhs, int lastRow, bool repairBefore, const char* failure) {
    if (repairBefore) repair(rhs);
    int r = 1;
    double best = 10000;
    for (int i = 1; i <= m_n + 3; ++i) {
      if (T(i, c) > 0) {
        const double q = T(i, rhs) / T(i, c);
        if (q < best) {
          best = q;
          r = i;
        }
      }
    }
    if (best == 10000) {
      m_run.solvable = false;
      m_run.failure = failure;
      return false;
    }
    const double p = T(r, c);
    for (int k = 1; k <= rhs; ++k) T(r, k) = T(r, k) / p;
    for (int i = 1; i <= lastRow; ++i) {
      if (i == r) continue;
      const double f = T(i, c);
      if (f != 0)
        for (int k = 1; k <= rhs; ++k) T(i, k) = T(i, k) + (-f) * T(r, k);
    }
    m_run.basis[r] = c;
    repair(rhs);
    ++m_run.pivots;
    return true;
  }

  int m_n = 0;
  int m_columns = 0;
  std::vector<double> m_cells;
  LiteralRun m_run;
};

}  // namespace pescavo::testing
