// Hand-solvable feeds and hand-built tableaux for the fixed-pass two-phase simplex.

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "engine/Simplex.h"
#include "engine/SimplexOracles.h"

namespace pescavo {
namespace {

struct Variable {
  double lipid;
  double protein;
  double residue;
  double maxInclusion;
};

OptimisationProblem makeProblem(const std::vector<Variable>& variables, double lipidTarget,
                                double proteinTarget) {
  OptimisationProblem problem;
  for (const Variable& v : variables) {
    problem.lipid.push_back(v.lipid);
    problem.protein.push_back(v.protein);
    problem.residue.push_back(v.residue);
    problem.maxInclusion.push_back(v.maxInclusion);
  }
  problem.n = static_cast<int>(variables.size());
  problem.chosenCount = problem.n;
  problem.lipidTarget = lipidTarget;
  problem.proteinTarget = proteinTarget;
  problem.unitOrder = problem.n + 2;
  return problem;
}

// PC (fish meal of the default grade), CC and F as the set-up adds them: uncontaminated, 100 %.
void addPseudoComponents(OptimisationProblem& problem) {
  for (const Variable& v :
       {Variable{10, 65, 0, 100}, Variable{0.1, 0.1, 0, 100}, Variable{100, 0, 0, 100}}) {
    problem.lipid.push_back(v.lipid);
    problem.protein.push_back(v.protein);
    problem.residue.push_back(v.residue);
    problem.maxInclusion.push_back(v.maxInclusion);
  }
  problem.pc = problem.cc = problem.f = true;
  problem.n += 3;
  problem.unitOrder = problem.n + 2;
}

OptimisationResult solve(const OptimisationProblem& problem, Criterion criterion) {
  SimplexTableau tableau;
  OptimisationResult result;
  Rechnen(problem, criterion, tableau, result);
  return result;
}

void expectRow(const SimplexTableau& tableau, int i, const std::vector<double>& cells) {
  ASSERT_EQ(static_cast<int>(cells.size()), tableau.columns());
  for (int k = 1; k <= tableau.columns(); ++k) {
    EXPECT_EQ(tableau(i, k), cells[k - 1]) << "row " << i << ", column " << k;
  }
}

constexpr Criterion kBoth[] = {Criterion::Maximum, Criterion::Minimum};

TEST(Simplex, OneComponentMeetingBothTargetsIsTheWholeFeed) {
  const OptimisationProblem problem = makeProblem({{7, 30, 2.5, 100}}, 7, 30);
  for (Criterion criterion : kBoth) {
    const OptimisationResult result = solve(problem, criterion);
    ASSERT_TRUE(result.solvable);
    EXPECT_EQ(result.burden, 2.5);
    // Positions 1..n + 3: the share, then the slack and the artificial left basic at 0.
    EXPECT_EQ(result.composition, (std::vector<double>{100, 0, 0, 0}));
    EXPECT_EQ(result.pivots, 1);  // one phase-1 pivot, nothing left to improve
    EXPECT_TRUE(result.pivotFailure.empty());
  }
}

TEST(Simplex, TargetMissedByLessThanTheToleranceIsMet) {
  const OptimisationProblem problem = makeProblem({{7, 30, 2.5, 100}}, 7 + 7e-12, 30);
  const OptimisationResult result = solve(problem, Criterion::Maximum);
  ASSERT_TRUE(result.solvable);
  EXPECT_EQ(result.composition[0], 100);
}

TEST(Simplex, FiftyFiftyMixIsTheOnlyFeed) {
  const OptimisationProblem problem = makeProblem({{5, 30, 1.2, 100}, {10, 40, 2.0, 100}}, 7.5, 35);
  for (Criterion criterion : kBoth) {
    const OptimisationResult result = solve(problem, criterion);
    ASSERT_TRUE(result.solvable);
    EXPECT_NEAR(result.burden, 1.6, 1e-12);
    EXPECT_NEAR(result.composition[0], 50, 1e-10);
    EXPECT_NEAR(result.composition[1], 50, 1e-10);
  }
}

TEST(Simplex, UnreachableTargetsKeepThePreviousResult) {
  const std::vector<OptimisationProblem> problems = {
      makeProblem({{5, 30, 1, 100}, {10, 40, 2, 100}}, 7.5, 45),  // protein above both
      makeProblem({{7, 30, 2.5, 60}}, 7, 30),                     // n = 1 held below the whole feed
      makeProblem({{8, 30, 2.5, 100}}, 7, 30),                    // n = 1 with the wrong lipid
      makeProblem({{7, 30, 2.5, 100}}, 7 + 7e-8, 30),  // missed by more than the tolerance
  };
  for (const OptimisationProblem& problem : problems) {
    for (Criterion criterion : kBoth) {
      SimplexTableau tableau;
      OptimisationResult result;
      result.solvable = true;
      result.burden = 9.87;
      result.composition = {1, 2, 3};
      Rechnen(problem, criterion, tableau, result);
      EXPECT_FALSE(result.solvable);
      EXPECT_EQ(result.burden, 9.87);
      EXPECT_EQ(result.composition, (std::vector<double>{1, 2, 3}));
      EXPECT_TRUE(result.pivotFailure.empty());
    }
  }
}

TEST(Simplex, PhaseOneTableauOfTwoComponents) {
  const OptimisationProblem problem = makeProblem({{4, 25, 0.3, 40}, {12, 40, 0.9, 100}}, 7, 30);
  SimplexTableau tableau;
  OptimisationResult result;
  Simplex simplex(problem, Criterion::Maximum, tableau, result);
  simplex.ErstelleEinheitsmatrix();
  simplex.ErstelleSimplextableau1();
  ASSERT_EQ(tableau.rows(), 7);
  ASSERT_EQ(tableau.columns(), 8);
  expectRow(tableau, 1, {4, 12, 0, 0, 1, 0, 0, 7});
  expectRow(tableau, 2, {25, 40, 0, 0, 0, 1, 0, 30});
  expectRow(tableau, 3, {1, 1, 0, 0, 0, 0, 1, 1});
  expectRow(tableau, 4, {1, 0, 1, 0, 0, 0, 0, 0.4});
  expectRow(tableau, 5, {0, 1, 0, 1, 0, 0, 0, 1});
  expectRow(tableau, 6, {0.3, 0.9, 0, 0, 0, 0, 0, 0});
  expectRow(tableau, 7, {4 + 25 + 1, 12 + 40 + 1, 0, 0, 0, 0, 0, 38});
  EXPECT_EQ(std::vector<int>(tableau.basis.begin() + 1, tableau.basis.end()),
            (std::vector<int>{5, 6, 7, 3, 4}));
  EXPECT_EQ(tableau.residueCopy, (std::vector<double>{0.3, 0.9}));
}

TEST(Simplex, UnitMatrixOrderLeavesLaterUpperBoundRowsEmpty) {
  OptimisationProblem problem = makeProblem({{5, 30, 1, 80}}, 7, 30);
  addPseudoComponents(problem);  // n = 4, F last
  problem.unitOrder = 3;
  SimplexTableau tableau;
  OptimisationResult result;
  Simplex simplex(problem, Criterion::Maximum, tableau, result);
  simplex.ErstelleEinheitsmatrix();
  simplex.ErstelleSimplextableau1();
  expectRow(tableau, 6, {0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0, 1});
  expectRow(tableau, 7, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});  // only the right-hand side
  expectRow(tableau, 3, {1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 1});

  // Not set (problems made by hand): no limit.
  problem.unitOrder = 0;
  simplex.ErstelleEinheitsmatrix();
  simplex.ErstelleSimplextableau1();
  expectRow(tableau, 7, {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1});

  // F's limit of 100 % is implied by the sum row, so the optimum is the same either way.
  for (int order : {3, 6}) {
    problem.unitOrder = order;
    const testing::VertexOptimum vertices = testing::enumerateVertices(problem);
    ASSERT_TRUE(vertices.feasible);
    EXPECT_NEAR(solve(problem, Criterion::Maximum).burden, vertices.maximum, 1e-12);
    EXPECT_NEAR(solve(problem, Criterion::Minimum).burden, vertices.minimum, 1e-12);
  }
}

TEST(Simplex, RatioTestTakesTheLowestRowOfATieAndSkipsRowsWithoutPositiveEntry) {
  struct Case {
    Variable variable;
    double lipidTarget;
    double proteinTarget;
    int row;
  };
  // Column 1 of n = 1 holds lipid, protein, 1 and 1 against lipid target, protein target, 1
  // and limit / 100.
  const Case cases[] = {
      {{10, 30, 1, 100}, 10, 60, 1},  // rows 1, 3 and 4 all at ratio 1
      {{5, 30, 1, 100}, 10, 60, 3},   // rows 3 and 4 at ratio 1
      {{5, 30, 1, 50}, 10, 60, 4},    // row 4 alone at 0.5
      {{-5, 0, 1, 100}, 10, 60, 3},   // rows 1 and 2 have no positive entry
  };
  for (const Case& c : cases) {
    const OptimisationProblem problem = makeProblem({c.variable}, c.lipidTarget, c.proteinTarget);
    SimplexTableau tableau;
    OptimisationResult result;
    Simplex simplex(problem, Criterion::Maximum, tableau, result);
    simplex.ErstelleEinheitsmatrix();
    simplex.ErstelleSimplextableau1();
    ASSERT_TRUE(simplex.Pivotsuche(1));
    EXPECT_EQ(simplex.pivotRow(), c.row);
    EXPECT_EQ(tableau.basis[c.row], 1);
  }
}

TEST(Simplex, PhaseOnePivotEliminatesEveryRowIncludingBothObjectives) {
  // Columns: x, slack, three artificials, right-hand side. The pivot is row 3 (see above).
  const OptimisationProblem problem = makeProblem({{5, 30, 0.75, 100}}, 10, 60);
  SimplexTableau tableau;
  OptimisationResult result;
  Simplex simplex(problem, Criterion::Maximum, tableau, result);
  simplex.ErstelleEinheitsmatrix();
  simplex.ErstelleSimplextableau1();
  ASSERT_TRUE(simplex.Pivotsuche(1));
  expectRow(tableau, 1, {0, 0, 1, 0, -5, 5});
  expectRow(tableau, 2, {0, 0, 0, 1, -30, 30});
  expectRow(tableau, 3, {1, 0, 0, 0, 1, 1});
  expectRow(tableau, 4, {0, 1, 0, 0, -1, 0});
  expectRow(tableau, 5, {0, 0, 0, 0, -0.75, -0.75});
  expectRow(tableau, 6, {0, 0, 0, 0, -36, 35});
  EXPECT_EQ(result.pivots, 1);
}

TEST(Simplex, PhaseOneTurnsNegativeRightHandSidesBeforeTheRatioTest) {
  // Lipid target -5: row 1 is turned over first, so its entry -5 no longer qualifies and the
  // protein row (ratio 1, lowest of the tie with rows 3 and 4) is the pivot.
  const OptimisationProblem problem = makeProblem({{5, 30, 0, 100}}, -5, 30);
  SimplexTableau tableau;
  OptimisationResult result;
  Simplex simplex(problem, Criterion::Maximum, tableau, result);
  simplex.ErstelleEinheitsmatrix();
  simplex.ErstelleSimplextableau1();
  ASSERT_TRUE(simplex.Pivotsuche(1));
  EXPECT_EQ(simplex.pivotRow(), 2);
  const double sixth = 5.0 * (1.0 / 30.0);
  expectRow(tableau, 1, {0, 0, -1, sixth, 0, 10});
  expectRow(tableau, 2, {1, 0, 0, 1.0 / 30.0, 0, 1});
}

// Phase-2 layout of n = 1 written by hand: columns x, slack, right-hand side.
void writePhaseTwo(SimplexTableau& tableau, const std::vector<std::vector<double>>& rows) {
  tableau.reset(1);
  for (int i = 1; i <= 5; ++i) {
    for (int k = 1; k <= 3; ++k) tableau(i, k) = rows[i - 1][k - 1];
  }
}

TEST(Simplex, PhaseTwoRepairsSignsOnlyAfterThePivot) {
  const OptimisationProblem problem = makeProblem({{0, 0, 0, 100}}, 0, 0);
  SimplexTableau tableau;
  OptimisationResult result;
  Simplex simplex(problem, Criterion::Maximum, tableau, result);
  // Row 2 turned over first would win the ratio test (1 < 2); unturned it is skipped.
  writePhaseTwo(tableau, {{2, 0, 4}, {-1, 0, -1}, {-1, 5, -3}, {0, 0, 0}, {3, 0, 0}});
  ASSERT_TRUE(simplex.Pivotsuche2(1));
  EXPECT_EQ(simplex.pivotRow(), 1);
  EXPECT_EQ(tableau.basis[1], 1);
  expectRow(tableau, 1, {1, 0, 2, 0, 0, 0});
  expectRow(tableau, 2, {0, 0, 1, 0, 0, 0});
  expectRow(tableau, 3, {0, -5, 1, 0, 0, 0});  // -1 after the pivot, turned over
  expectRow(tableau, 5, {0, 0, -6, 0, 0, 0});
}

TEST(Simplex, RatioTestWithoutAQualifyingRowMakesTheRunNotSolvable) {
  {
    // The first artificial column has 1 in row 1 only, at ratio 20000: not below 10000.
    const OptimisationProblem problem = makeProblem({{5, 30, 0, 100}}, 20000, 30);
    SimplexTableau tableau;
    OptimisationResult result;
    result.solvable = true;
    result.burden = 4.5;
    result.composition = {7};
    Simplex simplex(problem, Criterion::Maximum, tableau, result);
    simplex.ErstelleEinheitsmatrix();
    simplex.ErstelleSimplextableau1();
    EXPECT_FALSE(simplex.Pivotsuche(3));
    EXPECT_FALSE(result.solvable);
    EXPECT_EQ(result.pivotFailure, "geht nicht");
    EXPECT_EQ(result.burden, 4.5);
    EXPECT_EQ(result.composition, std::vector<double>{7});
    EXPECT_EQ(tableau.basis[1], 3);
    EXPECT_EQ(tableau(1, 6), 20000);
  }
  {
    const OptimisationProblem problem = makeProblem({{0, 0, 0, 100}}, 0, 0);
    SimplexTableau tableau;
    OptimisationResult result;
    Simplex simplex(problem, Criterion::Minimum, tableau, result);
    writePhaseTwo(tableau, {{0, 1, 1}, {-2, 0, 1}, {0, 0, 0}, {-1, 1, 0}, {1, 0, 0}});
    EXPECT_FALSE(simplex.PivotsucheMin(1));
    EXPECT_EQ(result.pivotFailure, "geht nicht 2");
    expectRow(tableau, 2, {-2, 0, 1, 0, 0, 0});
  }
  {
    // Found by search: negative limits leave phase 2 a column whose entries are all negative.
    const OptimisationProblem problem =
        makeProblem({{-4, -22, -2, -67}, {-3, -25, -4, -91}}, -4, 3);
    SimplexTableau tableau;
    OptimisationResult result;
    result.burden = 1.25;
    Rechnen(problem, Criterion::Minimum, tableau, result);
    EXPECT_FALSE(result.solvable);
    EXPECT_EQ(result.pivotFailure, "geht nicht 2");
    EXPECT_EQ(result.burden, 1.25);
    // A following run starts clean.
    Rechnen(makeProblem({{7, 30, 2.5, 100}}, 7, 30), Criterion::Minimum, tableau, result);
    EXPECT_TRUE(result.solvable);
    EXPECT_TRUE(result.pivotFailure.empty());
    EXPECT_EQ(result.pivots, 1);
  }
}

TEST(Simplex, PseudoComponentsWithAndWithoutLimitsReachTheVertexOptimum) {
  const std::vector<Variable> chosen = {
      {2.1, 9.8, 0.05, 40}, {4.4, 45.6, 0.8, 30}, {1.9, 11.2, 1.7, 60}};
  for (bool limits : {true, false}) {
    for (auto [lipid, protein] : {std::pair{7.0, 30.0}, std::pair{18.0, 42.0}}) {
      OptimisationProblem problem = makeProblem(chosen, lipid, protein);
      if (!limits) {
        for (double& limit : problem.maxInclusion) limit = 100;
      }
      addPseudoComponents(problem);
      const testing::VertexOptimum vertices = testing::enumerateVertices(problem);
      ASSERT_TRUE(vertices.feasible);
      ASSERT_EQ(vertices.minimum, 0);  // PC, CC and F alone meet the targets
      const OptimisationResult maximum = solve(problem, Criterion::Maximum);
      const OptimisationResult minimum = solve(problem, Criterion::Minimum);
      ASSERT_TRUE(maximum.solvable && minimum.solvable);
      EXPECT_NEAR(maximum.burden, vertices.maximum, 1e-12);
      EXPECT_NEAR(minimum.burden, 0, 1e-12);
      for (int j = 0; j < 3; ++j) EXPECT_NEAR(minimum.composition[j], 0, 1e-10);
    }
  }
}

TEST(Simplex, MinimumFromAPhaseOneBasisOfPseudoComponentsOnly) {
  // After phase 1 only PC, CC, F and slacks are basic and the burden is a round-off value
  // above 0; judged by its sign, the row would stay as it is and Minimum would maximise.
  OptimisationProblem problem = makeProblem({{12.9, 14.1, 0.48, 34}, {14.2, 42, 0.37, 63}}, 18, 42);
  addPseudoComponents(problem);
  {
    SimplexTableau tableau;
    OptimisationResult result;
    Simplex simplex(problem, Criterion::Minimum, tableau, result);
    simplex.ErstelleEinheitsmatrix();
    simplex.ErstelleSimplextableau1();
    ASSERT_TRUE(simplex.phase1Passes());
    for (int i = 1; i <= problem.n + 3; ++i) {
      EXPECT_GT(tableau.basis[i], problem.chosenCount) << "row " << i;
    }
    ASSERT_LT(std::fabs(tableau(problem.n + 5, 2 * problem.n + 4)), 1e-10);
    ASSERT_GT(tableau(problem.n + 4, 2 * problem.n + 4), 0);
    ASSERT_LT(tableau(problem.n + 4, 2 * problem.n + 4), 1e-12);
  }
  const testing::VertexOptimum vertices = testing::enumerateVertices(problem);
  const OptimisationResult minimum = solve(problem, Criterion::Minimum);
  ASSERT_TRUE(minimum.solvable);
  EXPECT_NEAR(minimum.burden, 0, 1e-12);
  EXPECT_NEAR(minimum.composition[0], 0, 1e-10);
  EXPECT_NEAR(minimum.composition[1], 0, 1e-10);
  const OptimisationResult maximum = solve(problem, Criterion::Maximum);
  EXPECT_NEAR(maximum.burden, vertices.maximum, 1e-12);
  EXPECT_GT(maximum.burden, 0.1);
}

}  // namespace
}  // namespace pescavo
