#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/Simplex.h"
#include "engine/SimplexOracles.h"

namespace pescavo {
namespace {

using testing::feed;
constexpr Criterion kMax = Criterion::Maximum, kMin = Criterion::Minimum;

// Components {lipid, protein, residue as the table gives it, dry matter, limit}, residues
// turned to the dry-matter basis as Laden does; then the pseudo-components of feed().
OptimisationProblem programme(const std::vector<std::array<double, 5>>& components,
                              double lipidTarget, double proteinTarget, int pseudo = 0) {
  std::vector<std::array<double, 4>> variables;
  for (const auto& c : components) variables.push_back({c[0], c[1], c[2] / c[3] * 100, c[4]});
  return feed(variables, lipidTarget, proteinTarget, pseudo);
}

CheckResult checked(const OptimisationProblem& problem, Criterion criterion) {
  return checkOptimum(problem, criterion, testing::solve(problem, criterion));
}

OptimisationResult reported(double burden, std::vector<double> composition) {
  return {true, burden, std::move(composition), "", 0};
}

// Only the 50/50 feed is feasible; burden 3.
const OptimisationProblem kHalf = feed({{5, 30, 2, 100}, {10, 40, 4, 100}}, 7.5, 35);
// No component reaches 35 % protein and there is no PC.
const OptimisationProblem kNoFeed = feed({{8, 20, 1, 100}, {6, 30, 2, 100}}, 8, 35);

// The method where it goes wrong on ties, each found by the cross-check.
TEST(IndependentCheck, PinnedTiesWhereTheMethodGoesWrong) {
  const std::tuple<OptimisationProblem, Criterion, const char*> cases[] = {
      {programme({{10, 20, 3, 100, 100}, {10, 35, 5, 100, 100}}, 10, 35), kMin,
       "the true minimum is 5.000 mg/kg; the optimisation reported 3.000 mg/kg; its feed misses "
       "the crude protein target by 15.000 %"},
      // An oil (F) beside a component meeting both trout targets on its own.
      {programme({{15, 42, 3.93, 91.9, 100}}, 15, 42, 4), kMin,
       "the true minimum is 4.276 mg/kg; the optimisation reported 0.000 mg/kg; its feed misses "
       "the crude protein target by 42.000 %"},
      // Three components carry the protein target: an improving column is left after the passes.
      {programme({{15, 14.8, 0.38, 89.4, 100},
                  {16.4, 42, 2.84, 94.3, 100},
                  {21.1, 42, 0.1, 92.1, 100},
                  {6.8, 42, 2.02, 90.2, 100}},
                 15, 42, 4),
       kMax, "the true maximum is 2.899 mg/kg; the optimisation reported 1.464 mg/kg"},
      // Both meet the protein target, only the uncontaminated one the lipid target.
      {programme({{19.2, 42, 3.93, 85.3, 100}, {15, 42, 0, 88.6, 100}}, 15, 42, 4), kMax,
       "the true maximum is 0.000 mg/kg; the optimisation reported 3.599 mg/kg; its feed misses "
       "the crude protein target by 9.188 %"},
      // Carp with MRBD limits; three components at 8 % lipid, two with the same protein; PC of
      // grade 12/60 written as a component, then CC and F.
      {programme({{8, 39.2, 0.28, 91.8, 25},
                  {8, 39.2, 4.22, 92, 65},
                  {8, 11.1, 1.12, 90, 100},
                  {5.2, 13.8, 0, 91, 40},
                  {12, 60, 0, 100, 100}},
                 8, 35, 6),
       kMax,
       "the problem is solvable; the true maximum is 3.229 mg/kg; the optimisation found it not "
       "solvable"},
  };
  for (const auto& [problem, criterion, cli] : cases) {
    const CheckResult check = checked(problem, criterion);
    EXPECT_TRUE(check.exactConfirmed);
    EXPECT_EQ(cliLine(check, criterion, '.'), std::string("Independent check: differs: ") + cli);
    EXPECT_EQ(verdictCell(check), "differs");
  }
  // The first case: the method feeds 100 % of the first component, the true optimum none.
  const CheckResult check = checked(std::get<0>(cases[0]), kMin);
  EXPECT_NEAR(check.trueComposition[1], 100, 1e-9);
  EXPECT_EQ(mainWindowSentence(check, kMin, ','),
            "Independent check: the true minimum is 5,000 mg/kg; the optimisation reported "
            "3,000 mg/kg; its feed misses the crude protein target by 15,000 %.");
  EXPECT_EQ(trueOptimumCell(check, '.'), "5.000");
}

TEST(IndependentCheck, AgreesOnHandSolvableFeedsAndOnNoFeed) {
  for (Criterion criterion : {kMax, kMin}) {
    const CheckResult check = checked(kHalf, criterion);
    EXPECT_EQ(check.verdict, CheckVerdict::Agrees);
    EXPECT_EQ(mainWindowSentence(check, criterion, '.'), "Independent check: agrees.");
    EXPECT_EQ(verdictCell(check), "agrees");
  }
  EXPECT_EQ(cliLine(checked(kHalf, kMin), kMin, ','),
            "Independent check: agrees: the true minimum is 3,000 mg/kg; the optimisation "
            "reported 3,000 mg/kg");
  EXPECT_EQ(verdictTooltip(checked(kHalf, kMax), kMax, '.'),
            "Agrees with an independent LP solver: the true maximum is 3.000 mg/kg; the "
            "optimisation reported 3.000 mg/kg.");
  const CheckResult neither = checked(kNoFeed, kMax);
  EXPECT_EQ(cliLine(neither, kMax, '.'), "Independent check: agrees: the problem is not solvable");
  EXPECT_EQ(trueOptimumCell(neither, '.'), "not solvable");
}

TEST(IndependentCheck, FeasibilityDisagreementsBuiltByHand) {
  // Called not solvable, with the composition of an earlier run left behind (never read).
  OptimisationResult result{false, 7, {0, 0}, "", 0};
  const CheckResult check = checkOptimum(kHalf, kMax, result);
  EXPECT_EQ(mainWindowSentence(check, kMax, '.'),
            "Independent check: the problem is solvable; the true maximum is 3.000 mg/kg; the "
            "optimisation found it not solvable.");
  result.pivotFailure = "geht nicht 2";
  EXPECT_EQ(verdictTooltip(checkOptimum(kHalf, kMax, result), kMax, '.'),
            "Differs from an independent LP solver: the problem is solvable; the true maximum "
            "is 3.000 mg/kg; the optimisation stopped at \"geht nicht 2\".");

  // A feed reported for a programme without one.
  const CheckResult fed = checkOptimum(kNoFeed, kMax, reported(1.5, {50, 50}));
  EXPECT_TRUE(fed.exactConfirmed);
  EXPECT_EQ(cliLine(fed, kMax, '.'),
            "Independent check: differs: the problem is not solvable; the optimisation reported "
            "1.500 mg/kg; its feed misses the crude protein target by 10.000 %");
}

TEST(IndependentCheck, NamesTheConstraintTheFeedMissesMost) {
  auto expectWorst = [](const OptimisationProblem& problem, std::vector<double> shares,
                        ConstraintKind kind, const char* constraint, double percent) {
    const ConstraintViolation v = largestViolation(problem, shares, {"Wheat grain", "Soy"});
    EXPECT_EQ(v.kind, kind);
    EXPECT_EQ(v.constraint, constraint);
    EXPECT_NEAR(v.percent, percent, 1e-9);
  };
  expectWorst(feed({{8, 35, 1, 100}, {8, 35, 2, 40}}, 8, 35), {40, 60},
              ConstraintKind::MaxInclusion, "maximum inclusion of Soy", 20);
  const auto equal = feed({{8, 35, 1, 100}, {8, 35, 2, 100}, {8, 35, 1.5, 100}}, 8, 35);
  expectWorst(feed({{13, 35, 1, 200}, {8, 35, 1, 100}}, 8.65, 36.75, 4), {105, 0, -5},
              ConstraintKind::NonNegative, "share of F", 5);
  expectWorst(feed({{8, 35, 1, 100}}, 8, 35, 7), {90, 0, 0, 0}, ConstraintKind::Protein,
              "crude protein", 3.5);  // not sum
  EXPECT_EQ(cliLine(checkOptimum(equal, kMax, reported(0.9, {50, 60, -10})), kMax, '.'),
            "Independent check: differs: the true maximum is 2.000 mg/kg; the optimisation "
            "reported 0.900 mg/kg; its feed has a negative share of variable 3 (10.000 % below "
            "0)");
}

TEST(IndependentCheck, ProgrammeWithoutNumberIsNotChecked) {
  OptimisationProblem problem = kHalf;
  problem.residue[1] = std::nan("");
  const CheckResult check = checkOptimum(problem, kMax, reported(3, {50, 50}));
  EXPECT_EQ(check.verdict, CheckVerdict::CouldNotRun);
  EXPECT_FALSE(solveWithGlpk(problem, kMax).ran);
  EXPECT_EQ(mainWindowSentence(check, kMax, '.'), "Independent check: could not run.");
  EXPECT_EQ(cliLine(check, kMax, '.'),
            "Independent check: could not run: the programme holds a value that is not a number");
  EXPECT_EQ(verdictCell(check), "not checked");
  EXPECT_EQ(trueOptimumCell(check, '.'), "");
}

TEST(IndependentCheck, ToleranceEdges) {
  const OptimisationProblem clean = feed({{5, 30, 0, 100}, {10, 40, 0, 100}}, 7.5, 35);
  // Equal protein: moving d % of the feed between the two shifts only lipid, by d % of DM.
  const OptimisationProblem lipidOnly = feed({{10, 35, 2, 100}, {9, 35, 4, 100}}, 9.5, 35);
  // Neither lipid nor protein: a surplus share moves only the sum row.
  const OptimisationProblem sumOnly = feed({{0, 0, 2, 100}, {0, 0, 4, 100}}, 0, 0);
  auto verdict = [](const OptimisationProblem& problem, Criterion criterion, double burden,
                    std::vector<double> shares, ConstraintKind kind) {
    const CheckResult check = checkOptimum(problem, criterion, reported(burden, shares));
    EXPECT_EQ(check.largestViolation.kind, kind) << burden;
    return check.verdict;
  };
  for (double f : {0.9, 2.0}) {  // within and beyond each tolerance
    const CheckVerdict expected = f < 1 ? CheckVerdict::Agrees : CheckVerdict::Differs;
    const auto none = ConstraintKind::None;
    EXPECT_EQ(verdict(kHalf, kMax, 3 * (1 + f * 1e-7), {50, 50}, none), expected);  // relative
    EXPECT_EQ(verdict(kHalf, kMax, 3 * (1 - f * 1e-7), {50, 50}, none), expected);
    EXPECT_EQ(verdict(clean, kMin, f * 1e-9, {50, 50}, none), expected);  // absolute near 0
    EXPECT_EQ(verdict(lipidOnly, kMax, 3, {50 + f * 1e-4, 50 - f * 1e-4}, ConstraintKind::Lipid),
              expected);
    EXPECT_EQ(verdict(sumOnly, kMin, 2, {100, f * 1e-4}, ConstraintKind::Sum), expected);
  }
}

}  // namespace
}  // namespace pescavo
