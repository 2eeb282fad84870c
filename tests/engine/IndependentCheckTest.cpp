#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/Simplex.h"

namespace pescavo {
namespace {

struct Figures {
  double lipid;
  double protein;
  double residue;  // as the table gives it
  double dryMatter;
  double maxInclusion = 100;
};

// The programme as Laden builds it: chosen components, then PC, CC and F, residues on the
// dry-matter basis.
OptimisationProblem programme(const std::vector<Figures>& components, double lipidTarget,
                              double proteinTarget, bool pc = false, bool cc = false,
                              bool f = false, double pcLipid = 10, double pcProtein = 65) {
  OptimisationProblem p;
  p.lipidTarget = lipidTarget;
  p.proteinTarget = proteinTarget;
  p.pc = pc;
  p.cc = cc;
  p.f = f;
  p.unitOrder = 200;
  for (const Figures& c : components) {
    p.lipid.push_back(c.lipid);
    p.protein.push_back(c.protein);
    p.residue.push_back(c.residue);
    p.residueSum += c.residue;
    p.maxInclusion.push_back(c.maxInclusion);
    p.dryMatter.push_back(c.dryMatter);
    p.ifnCode.push_back("");
  }
  p.chosenCount = static_cast<int>(components.size());
  auto pseudo = [&](bool on, double lipid, double protein) {
    if (!on) return;
    p.lipid.push_back(lipid);
    p.protein.push_back(protein);
    p.residue.push_back(0);
    p.maxInclusion.push_back(100);
    p.dryMatter.push_back(0);
    p.ifnCode.push_back("");
  };
  pseudo(pc, pcLipid, pcProtein);
  pseudo(cc, 0.1, 0.1);
  pseudo(f, 100, 0);
  p.n = static_cast<int>(p.lipid.size());
  for (int j = 0; j < p.chosenCount; ++j)
    if (p.dryMatter[j] != 0) p.residue[j] = p.residue[j] / p.dryMatter[j] * 100;
  return p;
}

OptimisationResult solved(const OptimisationProblem& problem, Criterion criterion) {
  SimplexTableau tableau;
  OptimisationResult result;
  Rechnen(problem, criterion, tableau, result);
  return result;
}

OptimisationResult reported(double burden, std::vector<double> composition) {
  OptimisationResult result;
  result.solvable = true;
  result.burden = burden;
  result.composition = std::move(composition);
  return result;
}

// Lipid 5 and 10, protein 30 and 40, targets 7.5 and 35: only the 50/50 feed is feasible.
OptimisationProblem halfAndHalf() {
  return programme({{5, 30, 2, 100}, {10, 40, 4, 100}}, 7.5, 35);
}

// -- The method where it goes wrong (each found by the cross-check) --------------------------

TEST(IndependentCheckRegression, TieOnLipidTargetReportsBurdenOfInfeasibleFeed) {
  // Both components meet the lipid target; the artificial of the protein row stays basic at
  // zero after phase 1 and phase 2 moves it: the method feeds 100 % of the first component.
  const OptimisationProblem problem = programme({{10, 20, 3, 100}, {10, 35, 5, 100}}, 10, 35);
  const OptimisationResult result = solved(problem, Criterion::Minimum);
  ASSERT_TRUE(result.solvable);
  EXPECT_DOUBLE_EQ(result.burden, 3);

  const CheckResult check = checkOptimum(problem, Criterion::Minimum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_TRUE(check.exactConfirmed);
  ASSERT_TRUE(check.trueFeasible);
  EXPECT_NEAR(check.trueOptimum, 5, 1e-12);
  EXPECT_NEAR(check.trueComposition[0], 0, 1e-9);
  EXPECT_NEAR(check.trueComposition[1], 100, 1e-9);
  EXPECT_EQ(check.largestViolation.kind, ConstraintKind::Protein);
  EXPECT_NEAR(check.largestViolation.amount, 15, 1e-9);
  EXPECT_EQ(cliLine(check, Criterion::Minimum, '.'),
            "Independent check: differs: the true minimum is 5.000 mg/kg; the optimisation "
            "reported 3.000 mg/kg; its feed misses the crude protein target by 15.000 %");
  EXPECT_EQ(mainWindowSentence(check, Criterion::Minimum, ','),
            "Independent check: the true minimum is 5,000 mg/kg; the optimisation reported "
            "3,000 mg/kg; its feed misses the crude protein target by 15,000 %.");
}

TEST(IndependentCheckRegression, OilBesideComponentMeetingBothTargetsGivesZeroMinimum) {
  // Trout: the first component meets 15 % lipid and 42 % protein on its own, the oil is F.
  const OptimisationProblem problem = programme({{15, 42, 3.93, 91.9}}, 15, 42, false, false, true);
  const OptimisationResult result = solved(problem, Criterion::Minimum);
  const CheckResult check = checkOptimum(problem, Criterion::Minimum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_NEAR(check.trueOptimum, 3.93 / 91.9 * 100, 1e-12);
  EXPECT_NEAR(result.burden, 0, 1e-12);
  EXPECT_EQ(check.largestViolation.kind, ConstraintKind::Protein);
  EXPECT_EQ(cliLine(check, Criterion::Minimum, '.'),
            "Independent check: differs: the true minimum is 4.276 mg/kg; the optimisation "
            "reported 0.000 mg/kg; its feed misses the crude protein target by 42.000 %");
}

TEST(IndependentCheckRegression, EqualProteinStopsShortOfMaximum) {
  // Three components carry the trout protein target; the feed the method ends with is
  // feasible, but an improving column is left after the fixed passes.
  const OptimisationProblem problem = programme({{15, 14.8, 0.38, 89.4},
                                                 {16.4, 42, 2.84, 94.3},
                                                 {21.1, 42, 0.1, 92.1},
                                                 {6.8, 42, 2.02, 90.2}},
                                                15, 42, false, false, true);
  const OptimisationResult result = solved(problem, Criterion::Maximum);
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_LE(check.largestViolation.amount, kConstraintTolerance);
  EXPECT_LT(result.burden, check.trueOptimum - 1);
  EXPECT_NEAR(check.trueComposition[1], 85.4167, 1e-4);
  EXPECT_NEAR(check.trueComposition[3], 14.5833, 1e-4);
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: differs: the true maximum is 2.899 mg/kg; the optimisation "
            "reported 1.464 mg/kg");
}

TEST(IndependentCheckRegression, MaximumBeyondOptimumFromFeedMissingProtein) {
  // Both components meet the trout protein target; only the uncontaminated one can meet
  // the lipid target, so the true maximum is 0.
  const OptimisationProblem problem =
      programme({{19.2, 42, 3.93, 85.3}, {15, 42, 0, 88.6}}, 15, 42, false, false, true);
  const OptimisationResult result = solved(problem, Criterion::Maximum);
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_NEAR(check.trueOptimum, 0, 1e-12);
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: differs: the true maximum is 0.000 mg/kg; the optimisation "
            "reported 3.599 mg/kg; its feed misses the crude protein target by 9.188 %");
}

TEST(IndependentCheckRegression, EqualFiguresCallSolvableProblemNotSolvable) {
  // Carp with MRBD limits and PC (grade 12/60), CC and F; three components carry 8 % lipid,
  // two of them with the same protein.
  const OptimisationProblem problem = programme({{8, 39.2, 0.28, 91.8, 25},
                                                 {8, 39.2, 4.22, 92, 65},
                                                 {8, 11.1, 1.12, 90, 100},
                                                 {5.2, 13.8, 0, 91, 40}},
                                                8, 35, true, true, true, 12, 60);
  const OptimisationResult result = solved(problem, Criterion::Maximum);
  EXPECT_FALSE(result.solvable);
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_TRUE(check.trueFeasible);
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: differs: the problem is solvable; the true maximum is 3.229 "
            "mg/kg; the optimisation found it not solvable");
  EXPECT_EQ(verdictCell(check), "differs");
  EXPECT_EQ(trueOptimumCell(check, '.'), "3.229");
}

// -- Agreement ----------------------------------------------------------------------------------

TEST(IndependentCheck, AgreesOnHandSolvableFeedsForBothCriteria) {
  for (Criterion criterion : {Criterion::Maximum, Criterion::Minimum}) {
    const OptimisationProblem problem = halfAndHalf();
    const CheckResult check = checkOptimum(problem, criterion, solved(problem, criterion));
    EXPECT_EQ(check.verdict, CheckVerdict::Agrees);
    EXPECT_FALSE(check.exactConfirmed);
    EXPECT_NEAR(check.trueOptimum, 3, 1e-12);
    EXPECT_EQ(check.largestViolation.kind, ConstraintKind::None);
    EXPECT_EQ(mainWindowSentence(check, criterion, '.'), "Independent check: agrees.");
    EXPECT_EQ(verdictCell(check), "agrees");
  }
  const OptimisationProblem problem = halfAndHalf();
  const CheckResult check =
      checkOptimum(problem, Criterion::Maximum, solved(problem, Criterion::Maximum));
  EXPECT_EQ(cliLine(check, Criterion::Maximum, ','),
            "Independent check: agrees: the true maximum is 3,000 mg/kg; the optimisation "
            "reported 3,000 mg/kg");
  EXPECT_EQ(verdictTooltip(check, Criterion::Maximum, '.'),
            "Agrees with an independent LP solver: the true maximum is 3.000 mg/kg; the "
            "optimisation reported 3.000 mg/kg.");
}

TEST(IndependentCheck, AgreesWhenBothFindNoFeed) {
  // No component reaches 35 % protein and there is no PC.
  const OptimisationProblem problem = programme({{8, 20, 1, 90}, {6, 30, 2, 90}}, 8, 35);
  const OptimisationResult result = solved(problem, Criterion::Maximum);
  ASSERT_FALSE(result.solvable);
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Agrees);
  EXPECT_FALSE(check.trueFeasible);
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: agrees: the problem is not solvable");
  EXPECT_EQ(trueOptimumCell(check, '.'), "not solvable");
}

// -- Disagreements built by hand ----------------------------------------------------------------

TEST(IndependentCheck, SolvableProblemCalledNotSolvableDiffers) {
  OptimisationResult result;
  result.burden = 7;  // left from an earlier run: never read
  result.composition = {0, 0};
  const CheckResult check = checkOptimum(halfAndHalf(), Criterion::Maximum, result);
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_EQ(check.largestViolation.kind, ConstraintKind::None);
  EXPECT_EQ(mainWindowSentence(check, Criterion::Maximum, '.'),
            "Independent check: the problem is solvable; the true maximum is 3.000 mg/kg; the "
            "optimisation found it not solvable.");

  result.pivotFailure = "geht nicht 2";
  const CheckResult stopped = checkOptimum(halfAndHalf(), Criterion::Maximum, result);
  EXPECT_EQ(stopped.verdict, CheckVerdict::Differs);
  EXPECT_EQ(verdictTooltip(stopped, Criterion::Maximum, '.'),
            "Differs from an independent LP solver: the problem is solvable; the true maximum "
            "is 3.000 mg/kg; the optimisation stopped at \"geht nicht 2\".");
}

TEST(IndependentCheck, FeedForUnsolvableProblemDiffers) {
  const OptimisationProblem problem = programme({{8, 20, 1, 100}, {6, 30, 2, 100}}, 8, 35);
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, reported(1.5, {50, 50}));
  EXPECT_EQ(check.verdict, CheckVerdict::Differs);
  EXPECT_TRUE(check.exactConfirmed);
  EXPECT_FALSE(check.trueFeasible);
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: differs: the problem is not solvable; the optimisation reported "
            "1.500 mg/kg; its feed misses the crude protein target by 10.000 %");
}

TEST(IndependentCheck, NamesTheConstraintTheFeedMissesMost) {
  // Limit of the second component 40 %; the feed takes 60 % of it.
  OptimisationProblem problem = programme({{8, 35, 1, 100}, {8, 35, 2, 100, 40}}, 8, 35);
  ConstraintViolation v = largestViolation(problem, {40, 60}, {"Wheat grain", "Soybean meal"});
  EXPECT_EQ(v.kind, ConstraintKind::MaxInclusion);
  EXPECT_EQ(v.variable, 2);
  EXPECT_EQ(v.constraint, "maximum inclusion of Soybean meal");
  EXPECT_NEAR(v.percent, 20, 1e-9);

  // Three equal components: a negative share breaks only its own bound.
  problem = programme({{8, 35, 1, 100}, {8, 35, 2, 100}, {8, 35, 1.5, 100}}, 8, 35);
  v = largestViolation(problem, {50, 60, -10});
  EXPECT_EQ(v.kind, ConstraintKind::NonNegative);
  EXPECT_EQ(v.constraint, "share of variable 3");
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, reported(0.9, {50, 60, -10}));
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: differs: the true maximum is 2.000 mg/kg; the optimisation "
            "reported 0.900 mg/kg; its feed has a negative share of variable 3 (10.000 % below "
            "0)");

  // Pseudo-components are named after what they are.
  problem = programme({{13, 35, 1, 100, 200}}, 8.65, 36.75, false, false, true);
  v = largestViolation(problem, {105, -5});
  EXPECT_EQ(v.kind, ConstraintKind::NonNegative);
  EXPECT_EQ(v.constraint, "share of F");

  problem = programme({{8, 35, 1, 100}}, 8, 35, true, true, true);
  v = largestViolation(problem, {90, 0, 0, 0});
  EXPECT_EQ(v.kind, ConstraintKind::Protein);  // 3.5 % of DM outweighs 0.1 of the sum
  EXPECT_EQ(largestViolation(problem, {100, 0, 0, 0}).kind, ConstraintKind::None);
}

TEST(IndependentCheck, ProgrammeWithoutNumberIsNotChecked) {
  OptimisationProblem problem = halfAndHalf();
  problem.residue[1] = std::nan("");
  const CheckResult check = checkOptimum(problem, Criterion::Maximum, reported(3, {50, 50}));
  EXPECT_EQ(check.verdict, CheckVerdict::CouldNotRun);
  EXPECT_FALSE(solveWithGlpk(problem, Criterion::Maximum).ran);
  EXPECT_EQ(mainWindowSentence(check, Criterion::Maximum, '.'),
            "Independent check: could not run.");
  EXPECT_EQ(cliLine(check, Criterion::Maximum, '.'),
            "Independent check: could not run: the programme holds a value that is not a number");
  EXPECT_EQ(verdictCell(check), "not checked");
  EXPECT_EQ(trueOptimumCell(check, '.'), "");
}

// -- The check's own tolerances ------------------------------------------------------------------

TEST(IndependentCheckTolerance, BurdenAgreesWithinOneTenMillionth) {
  const OptimisationProblem problem = halfAndHalf();  // burden 3
  auto verdict = [&](double burden) {
    return checkOptimum(problem, Criterion::Maximum, reported(burden, {50, 50})).verdict;
  };
  EXPECT_EQ(verdict(3 * (1 + 0.5e-7)), CheckVerdict::Agrees);
  EXPECT_EQ(verdict(3 * (1 - 0.5e-7)), CheckVerdict::Agrees);
  EXPECT_EQ(verdict(3 * (1 + 2e-7)), CheckVerdict::Differs);
  EXPECT_EQ(verdict(3 * (1 - 2e-7)), CheckVerdict::Differs);

  // Near a burden of 0 the absolute part decides.
  const OptimisationProblem clean = programme({{5, 30, 0, 100}, {10, 40, 0, 100}}, 7.5, 35);
  EXPECT_EQ(checkOptimum(clean, Criterion::Minimum, reported(0.5e-9, {50, 50})).verdict,
            CheckVerdict::Agrees);
  EXPECT_EQ(checkOptimum(clean, Criterion::Minimum, reported(2e-9, {50, 50})).verdict,
            CheckVerdict::Differs);
}

TEST(IndependentCheckTolerance, FeedMeetsConstraintsWithinOneMillionth) {
  // Lipid 10 and 9, equal protein: moving d from one share to the other shifts only the
  // lipid row, by d percent of DM.
  const OptimisationProblem lipidOnly = programme({{10, 35, 2, 100}, {9, 35, 4, 100}}, 9.5, 35);
  auto lipidVerdict = [&](double d) {
    const CheckResult check =
        checkOptimum(lipidOnly, Criterion::Maximum, reported(3, {50 + d * 100, 50 - d * 100}));
    EXPECT_EQ(check.largestViolation.kind, ConstraintKind::Lipid);
    return check.verdict;
  };
  EXPECT_EQ(lipidVerdict(0.9e-6), CheckVerdict::Agrees);
  EXPECT_EQ(lipidVerdict(2e-6), CheckVerdict::Differs);

  // Components without lipid or protein: a surplus share moves only the sum row.
  const OptimisationProblem sumOnly = programme({{0, 0, 2, 100}, {0, 0, 4, 100}}, 0, 0);
  auto sumVerdict = [&](double surplus) {
    const CheckResult check =
        checkOptimum(sumOnly, Criterion::Minimum, reported(2, {100, surplus * 100}));
    EXPECT_EQ(check.largestViolation.kind, ConstraintKind::Sum);
    return check.verdict;
  };
  EXPECT_EQ(sumVerdict(0.9e-6), CheckVerdict::Agrees);
  EXPECT_EQ(sumVerdict(2e-6), CheckVerdict::Differs);
}

}  // namespace
}  // namespace pescavo
