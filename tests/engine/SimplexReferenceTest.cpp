// The solver against answers it cannot influence: bit for bit against the literal method on
// seeded problems (the fast paths may skip work, never change a value), and against the
// enumerated vertices of small feeds.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "engine/Simplex.h"
#include "engine/SimplexOracles.h"

namespace pescavo {
namespace {

using testing::enumerateVertices;
using testing::LiteralSimplex;

bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Feeds in realistic ranges; odd ones (negative figures, limits of 0) now and then so that the
// sign repairs and the failed ratio tests are exercised too.
OptimisationProblem randomProblem(std::mt19937& random, int chosen, bool odd) {
  std::uniform_real_distribution<double> unit(0, 1);
  auto rounded = [&](double scale, double step) { return std::round(unit(random) * scale) / step; };
  OptimisationProblem problem;
  problem.chosenCount = chosen;
  for (int j = 0; j < chosen; ++j) {
    double lipid = rounded(200, 10);
    double protein = rounded(500, 10);
    double residue = random() % 13 == 0 ? 0.0 : rounded(300, 100);
    double limit = random() % 3 == 0 ? 100.0 : rounded(100, 1);
    if (odd && random() % 3 == 0) lipid = -lipid;
    if (odd && random() % 4 == 0) protein = -protein;
    if (odd && random() % 5 == 0) residue = -residue;
    if (odd && random() % 3 == 0) limit = -limit;
    problem.lipid.push_back(lipid);
    problem.protein.push_back(protein);
    problem.residue.push_back(residue);
    problem.maxInclusion.push_back(limit);
  }
  auto add = [&](double lipid, double protein) {
    problem.lipid.push_back(lipid);
    problem.protein.push_back(protein);
    problem.residue.push_back(0);
    problem.maxInclusion.push_back(100);
  };
  problem.pc = random() % 2 == 0;
  problem.cc = random() % 2 == 0;
  problem.f = random() % 2 == 0;
  if (problem.pc) add(10, 65);
  if (problem.cc) add(0.1, 0.1);
  if (problem.f) add(100, 0);
  problem.n = static_cast<int>(problem.lipid.size());
  const bool trout = random() % 2 == 0;
  problem.lipidTarget = trout ? 18 : 7;
  problem.proteinTarget = trout ? 42 : 30;
  if (odd && random() % 3 == 0) problem.lipidTarget = -problem.lipidTarget;
  if (odd && random() % 3 == 0) problem.proteinTarget = -problem.proteinTarget;
  problem.unitOrder = random() % 4 == 0 ? problem.n - 1 : problem.n + 2;
  return problem;
}

// Small whole numbers of either sign: where the ratio tests can find no row.
OptimisationProblem wildProblem(std::mt19937& random) {
  std::uniform_int_distribution<int> figure(-100, 100);
  OptimisationProblem problem;
  problem.n = problem.chosenCount = 1 + static_cast<int>(random() % 3);
  for (int j = 0; j < problem.n; ++j) {
    problem.lipid.push_back(figure(random) / 5);
    problem.protein.push_back(figure(random) * 2 / 5);
    problem.residue.push_back(figure(random) / 20);
    problem.maxInclusion.push_back(figure(random));
  }
  problem.lipidTarget = figure(random) / 10;
  problem.proteinTarget = figure(random) * 3 / 10;
  problem.unitOrder = problem.n + 2;
  return problem;
}

TEST(SimplexReference, EveryOutputMatchesTheLiteralMethodBitForBit) {
  std::mt19937 random(20240611);
  int solved = 0;
  int infeasible = 0;
  for (int t = 0; t < 3000; ++t) {
    const int chosen = 1 + static_cast<int>(random() % (t % 25 == 0 ? 100 : 12));
    const OptimisationProblem problem =
        t % 3 == 2 ? wildProblem(random) : randomProblem(random, chosen, t % 3 == 1);
    for (Criterion criterion : {Criterion::Maximum, Criterion::Minimum}) {
      const bool minimum = criterion == Criterion::Minimum;
      const testing::LiteralRun expected = LiteralSimplex().run(problem, minimum);
      SimplexTableau tableau;
      OptimisationResult result;
      Rechnen(problem, criterion, tableau, result);
      SCOPED_TRACE("problem " + std::to_string(t) + (minimum ? " Minimum" : " Maximum"));
      ASSERT_EQ(result.solvable, expected.solvable);
      ASSERT_EQ(result.pivotFailure, expected.failure);
      ASSERT_EQ(result.pivots, expected.pivots);
      if (!expected.solvable) {
        ++infeasible;
        continue;
      }
      ++solved;
      ASSERT_TRUE(sameBits(result.burden, expected.burden))
          << result.burden << " vs " << expected.burden;
      ASSERT_EQ(result.composition.size(), expected.composition.size());
      for (std::size_t j = 0; j < expected.composition.size(); ++j) {
        ASSERT_TRUE(sameBits(result.composition[j], expected.composition[j]))
            << "position " << j + 1;
      }
      for (int i = 1; i <= problem.n + 3; ++i) ASSERT_EQ(tableau.basis[i], expected.basis[i]);
    }
  }
  // The seeds must reach both usual outcomes, or the comparison proves less than it claims.
  EXPECT_GT(solved, 1000);
  EXPECT_GT(infeasible, 1000);
}

// A ratio test without a row is rare (about one in 20,000 wild problems); these were found
// by search and are kept so that both failure paths are compared on every run.
TEST(SimplexReference, RunsEndingInAFailedRatioTestMatchTheLiteralMethod) {
  struct Pinned {
    std::vector<std::array<double, 4>> variables;  // lipid, protein, residue, limit
    double lipidTarget;
    double proteinTarget;
    Criterion criterion;
    const char* failure;
  };
  const Pinned pinned[] = {
      {{{-12, 29, 4, -99}, {10, -27, 1, -54}, {1, -6, 5, 56}},
       -2,
       29,
       Criterion::Maximum,
       "geht nicht"},
      {{{-12, 29, 4, -99}, {10, -27, 1, -54}, {1, -6, 5, 56}},
       -2,
       29,
       Criterion::Minimum,
       "geht nicht"},
      {{{-4, -22, -2, -67}, {-3, -25, -4, -91}}, -4, 3, Criterion::Minimum, "geht nicht 2"},
      {{{13, -16, 2, -65}, {-20, 6, 3, -17}}, 7, -8, Criterion::Maximum, "geht nicht 2"},
      {{{-8, -2, 4, 89}, {-7, -13, -2, -2}, {-4, -34, -5, -91}},
       -4,
       3,
       Criterion::Minimum,
       "geht nicht 2"},
  };
  for (const Pinned& p : pinned) {
    OptimisationProblem problem;
    for (const auto& v : p.variables) {
      problem.lipid.push_back(v[0]);
      problem.protein.push_back(v[1]);
      problem.residue.push_back(v[2]);
      problem.maxInclusion.push_back(v[3]);
    }
    problem.n = problem.chosenCount = static_cast<int>(p.variables.size());
    problem.lipidTarget = p.lipidTarget;
    problem.proteinTarget = p.proteinTarget;
    problem.unitOrder = problem.n + 2;
    const testing::LiteralRun expected =
        LiteralSimplex().run(problem, p.criterion == Criterion::Minimum);
    ASSERT_EQ(expected.failure, p.failure);
    SimplexTableau tableau;
    OptimisationResult result;
    result.solvable = true;
    result.burden = 3.25;
    Rechnen(problem, p.criterion, tableau, result);
    EXPECT_FALSE(result.solvable);
    EXPECT_EQ(result.pivotFailure, p.failure);
    EXPECT_EQ(result.pivots, expected.pivots);
    EXPECT_EQ(result.burden, 3.25);
  }
}

TEST(SimplexReference, SmallRealisticFeedsReachTheOptimumOfTheirVertices) {
  std::mt19937 random(7);
  int feasible = 0;
  for (int t = 0; t < 1500; ++t) {
    const int chosen = 1 + static_cast<int>(random() % 3);
    const OptimisationProblem problem = randomProblem(random, chosen, false);
    const testing::VertexOptimum vertices = enumerateVertices(problem);
    feasible += vertices.feasible;
    for (Criterion criterion : {Criterion::Maximum, Criterion::Minimum}) {
      SimplexTableau tableau;
      OptimisationResult result;
      Rechnen(problem, criterion, tableau, result);
      SCOPED_TRACE("problem " + std::to_string(t));
      ASSERT_EQ(result.solvable, vertices.feasible);
      if (!vertices.feasible) continue;
      const double best = criterion == Criterion::Maximum ? vertices.maximum : vertices.minimum;
      EXPECT_NEAR(result.burden, best, 1e-9 * std::max(1.0, std::fabs(best)));
      double share = 0;
      for (int j = 0; j < problem.n; ++j) {
        EXPECT_GE(result.composition[j], -1e-9);
        share += result.composition[j];
      }
      EXPECT_NEAR(share, 100, 1e-9);
    }
  }
  EXPECT_GT(feasible, 300);
}

}  // namespace
}  // namespace pescavo
