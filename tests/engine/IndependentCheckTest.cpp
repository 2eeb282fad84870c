#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "engine/IndependentCheck.h"
#include "engine/LpWriter.h"
#include "support/RandomProblems.h"

namespace pescavo {
namespace {

using testing::feed;
constexpr Criterion kMax = Criterion::Maximum, kMin = Criterion::Minimum;
using Shares = std::vector<double>;

// Components "lipid protein residue-as-in-the-table dry-matter limit, ...", then feed()'s.
OptimisationProblem programme(const char* rows, double lipid, double protein, int pseudo = 0) {
  std::vector<std::array<double, 4>> variables;
  std::istringstream in(rows);
  for (double l, p, r, dm, limit; in >> l >> p >> r >> dm >> limit; in.ignore())
    variables.push_back({l, p, r / dm * 100, limit});
  return feed(variables, lipid, protein, pseudo);
}

CheckResult checked(const OptimisationProblem& problem, Criterion criterion) {
  return checkOptimum(problem, criterion, testing::solve(problem, criterion));
}

CheckResult reported(OptimisationProblem problem, Criterion criterion, double burden, Shares shares,
                     std::vector<std::string> names = {}, bool solvable = true,
                     const char* failure = "") {
  if (!names.empty()) problem.name = std::move(names);
  return checkOptimum(problem, criterion, {solvable, burden, std::move(shares), failure, 0});
}

// Only the 50/50 feed is feasible; burden 3.
const OptimisationProblem kHalf = feed({{5, 30, 2, 100}, {10, 40, 4, 100}}, 7.5, 35);
// No component reaches 35 % protein and there is no PC.
const OptimisationProblem kNoFeed = feed({{8, 20, 1, 100}, {6, 30, 2, 100}}, 8, 35);

TEST(IndependentCheck, PinnedTiesWhereTheMethodGoesWrong) {
  const OptimisationProblem tie = programme("10 20 3 100 100, 10 35 5 100 100", 10, 35);
  // Problem, criterion, true optimum, reported burden (-1: no feed found).
  const std::tuple<OptimisationProblem, Criterion, double, double> cases[] = {
      {tie, kMin, 5, 3},
      // An oil (F) beside a component meeting both trout targets on its own.
      {programme("15 42 3.93 91.9 100", 15, 42, 4), kMin, 4.276, 0},
      // Both meet the protein target, only the uncontaminated one the lipid target.
      {programme("19.2 42 3.93 85.3 100, 15 42 0 88.6 100", 15, 42, 4), kMax, 0, 3.599},
      // Carp, MRBD; three at 8 % lipid, two with one protein; PC 12/60 as a component, CC, F.
      {programme("8 39.2 0.28 91.8 25, 8 39.2 4.22 92 65, 8 11.1 1.12 90 100, 5.2 13.8 0 91 40, 12 "
                 "60 0 100 100",
                 8, 35, 6),
       kMax, 3.229, -1},
  };
  for (const auto& [problem, criterion, truth, burden] : cases) {
    const CheckResult check = checked(problem, criterion);
    EXPECT_TRUE(check.exactConfirmed);
    EXPECT_EQ(verdictCell(check), "differs");
    EXPECT_NEAR(check.trueOptimum, truth, 5e-4);
    EXPECT_NEAR(check.reportedSolvable ? check.reportedBurden : -1, burden, 5e-4);
  }
  // The first tie: the method feeds 100 % of the first component, the true optimum none.
  const CheckResult check = checked(tie, kMin);
  EXPECT_NEAR(check.trueComposition[1], 100, 1e-9);
  EXPECT_EQ(cliLine(check, kMin, '.'),
            "Independent check: differs: the true minimum is 5.000 mg/kg; the optimisation "
            "reported 3.000 mg/kg; its feed misses the crude protein target by 15.000 %");
  EXPECT_EQ(mainWindowSentence(check, kMin, ','),
            "Independent check: the true minimum is 5,000 mg/kg; the optimisation reported 3,000 "
            "mg/kg; its feed misses the crude protein target by 15,000 %.");
  EXPECT_EQ(trueOptimumCell(check, '.'), "5.000");
}

TEST(IndependentCheck, AgreementsAndDisagreementsAsTheyArePrinted) {
  OptimisationProblem nan = kHalf;
  nan.residue[1] = std::nan("");
  const auto limited = feed({{8, 35, 1, 100}, {8, 35, 2, 40}}, 8, 35);
  const auto withF = feed({{13, 35, 1, 200}, {8, 35, 1, 100}}, 8.65, 36.75, 4);
  // Runs called not solvable leave an earlier run's composition behind, never read.
  const std::pair<CheckResult, std::string> lines[] = {
      {checked(kHalf, kMax),
       "agrees: the true maximum is 3.000 mg/kg; the optimisation reported 3.000 mg/kg"},
      {checked(kNoFeed, kMax), "agrees: the problem is not solvable"},
      {reported(kHalf, kMax, 7, {0, 0}, {}, false),
       "differs: the problem is solvable; the true maximum is 3.000 mg/kg; the optimisation found "
       "it not solvable"},
      {reported(kHalf, kMax, 7, {0, 0}, {}, false, "geht nicht 2"),
       "differs: the problem is solvable; the true maximum is 3.000 mg/kg; the optimisation "
       "stopped at \"geht nicht 2\""},
      {reported(limited, kMax, 1.6, {40, 60}, {"Wheat grain", "Soy"}),
       "differs: the true maximum is 1.400 mg/kg; the optimisation reported 1.600 mg/kg; its feed "
       "exceeds the maximum inclusion of Soy by 20.000 %"},
      {reported(withF, kMax, 1, {105, 0, -5}),
       "differs: the problem is not solvable; the optimisation reported 1.000 mg/kg; its feed has "
       "a negative share of F (5.000 % below 0)"},
      {reported(feed({{8, 35, 1, 100}}, 8, 35, 7), kMax, 0.9, {90, 0, 0, 0}),
       "differs: the true maximum is 1.000 mg/kg; the optimisation reported 0.900 mg/kg; its feed "
       "misses the crude protein target by 3.500 %"},  // not the sum
      {reported(nan, kMax, 3, {50, 50}),
       "could not run: the programme holds a value that is not a number"}};
  for (const auto& [check, line] : lines) {
    EXPECT_EQ(cliLine(check, kMax, '.'), "Independent check: " + line);
    EXPECT_TRUE(check.exactConfirmed || check.verdict != CheckVerdict::Differs);
  }
  const CheckResult &agrees = lines[0].first, &unchecked = lines[7].first;
  EXPECT_EQ(std::tuple(mainWindowSentence(agrees, kMax, '.'), verdictCell(agrees),
                       mainWindowSentence(unchecked, kMax, '.'), verdictCell(unchecked),
                       trueOptimumCell(unchecked, '.'), trueOptimumCell(lines[1].first, '.')),
            std::tuple("Independent check: agrees.", "agrees", "Independent check: could not run.",
                       "not checked", "", "not solvable"));
  EXPECT_EQ(verdictTooltip(checked(kHalf, kMin), kMin, ','),
            "Agrees with an independent LP solver: the true minimum is 3,000 mg/kg; the "
            "optimisation reported 3,000 mg/kg.");
}

TEST(IndependentCheck, ToleranceEdges) {
  const OptimisationProblem clean = feed({{5, 30, 0, 100}, {10, 40, 0, 100}}, 7.5, 35);
  // Equal protein: moving d % of the feed between the two shifts only lipid, by d % of DM.
  const OptimisationProblem lipidOnly = feed({{10, 35, 2, 100}, {9, 35, 4, 100}}, 9.5, 35);
  // Neither lipid nor protein: a surplus share moves only the sum row.
  const OptimisationProblem sumOnly = feed({{0, 0, 2, 100}, {0, 0, 4, 100}}, 0, 0);
  for (double f : {0.9, 1.1}) {  // within and just beyond each tolerance
    const CheckVerdict expected = f < 1 ? CheckVerdict::Agrees : CheckVerdict::Differs;
    const std::tuple<CheckResult, ConstraintKind> cases[] = {
        {reported(kHalf, kMax, 3 * (1 + f * 1e-7), {50, 50}), ConstraintKind::None},  // relative
        {reported(kHalf, kMax, 3 * (1 - f * 1e-7), {50, 50}), ConstraintKind::None},
        {reported(clean, kMin, f * 1e-9, {50, 50}), ConstraintKind::None},  // absolute near 0
        {reported(lipidOnly, kMax, 3, {50 + f * 1e-4, 50 - f * 1e-4}), ConstraintKind::Lipid},
        {reported(sumOnly, kMin, 2, {100, f * 1e-4}), ConstraintKind::Sum}};
    for (const auto& [check, kind] : cases)
      EXPECT_EQ(std::tuple(check.verdict, check.largestViolation.kind), std::tuple(expected, kind));
  }
}

// The method keeps its quirks, so it may disagree, but seldom.
TEST(CrossCheck, EngineAgainstGlpkOnSeededProblems) {
  constexpr int kProblems = 20000;
  testing::RandomProblems problems(20240611);
  int agrees = 0;
  for (int k = 0; k < kProblems; ++k) {
    const auto [problem, criterion] = problems.next();
    const OptimisationResult result = testing::solve(problem, criterion);
    const CheckResult check = checkOptimum(problem, criterion, result);
    agrees += check.verdict == CheckVerdict::Agrees;
    SCOPED_TRACE("problem " + std::to_string(k) + ": " + cliLine(check, criterion, '.'));
    // A disagreement rests on the exact rational simplex, never on round-off alone.
    EXPECT_TRUE(check.verdict == CheckVerdict::Agrees || check.exactConfirmed);
    // Started from the method's basis, GLPK still ends where it ends from its own.
    const GlpkSolution cold = solveWithGlpk(problem, criterion);
    EXPECT_EQ(check.trueFeasible, cold.feasible);
    EXPECT_NEAR(check.trueOptimum, cold.optimum,
                kBurdenRelative * std::fabs(cold.optimum) + kBurdenAbsolute);
    // A feed that meets every constraint proves the programme feasible, its burden is the one
    // stated, whatever basis the method ends in, and it cannot beat the true optimum.
    if (!result.solvable || check.largestViolation.amount > kConstraintTolerance) continue;
    EXPECT_TRUE(check.trueFeasible);
    double burden = 0;
    for (int j = 0; j < problem.n; ++j) burden += problem.residue[j] * result.composition[j] / 100;
    EXPECT_NEAR(result.burden, burden, kBurdenRelative * std::fabs(burden) + kBurdenAbsolute);
    EXPECT_TRUE(check.verdict == CheckVerdict::Agrees ||
                (result.burden < check.trueOptimum) == (criterion == kMax));
  }
  // The method's quirks need ties; on realistic tables it finds the optimum almost always.
  EXPECT_GE(agrees, kProblems * 98 / 100);
}

TEST(LpWriter, LegalNamesThatSayWhichComponentAndRoundTripNumbers) {
  EXPECT_EQ(lpVariableName(12, "Maize, gluten meal (dry) 60%"), "x12_Maize_gluten_meal_dry_60");
  EXPECT_EQ(lpVariableName(3, "R\u00fcben-Schnitzel"), "x3_R_ben_Schnitzel");
  EXPECT_EQ(lpVariableName(5, "  ~~  "), "x5");
  EXPECT_EQ(lpVariableName(103, std::string(300, 'a')), "x103_" + std::string(43, 'a'));  // cut
  // Without names the pseudo-components still say what they are.
  OptimisationProblem p = feed({{10, 20, 3.25, 40}, {10, 35, -0.1, 100}}, 10, 35, 4);
  p.name.clear();
  std::string lp = writeLp(p, kMax);
  p.name = {"Wheat grain", "Soybean meal"};
  lp = writeLp(p, kMin) + lp;
  for (const char* line : {"Minimize\n burden: 3.25 x1_Wheat_grain - 0.10000000000000001 "
                           "x2_Soybean_meal + 0 x3_F\nSubject To\n lipid: 10 x1_Wheat_grain",
                           "Bounds\n 0 <= x1_Wheat_grain <= 0.40000000000000002\n",
                           "Maximize\n burden: 3.25 x1 - 0.10000000000000001 x2 + 0 x3_F\n"})
    EXPECT_NE(lp.find(line), std::string::npos) << line << "\n" << lp;
}

TEST(LpWriter, GlpsolReadsItBackAndFindsTheOptimumOfTheCheck) {
  std::string folder = (std::filesystem::temp_directory_path() / "pescavo-lp-XXXXXX").string();
  ASSERT_TRUE(::mkdtemp(folder.data()));
  const std::string lp = folder + "/run.lp", out = folder + "/run.txt";
  testing::RandomProblems problems(11);
  int solved = 0;
  for (int k = 0; k < 6; ++k) {
    const auto [problem, criterion] = problems.next(k < 3 ? 5 : 40);  // 40: wrapped lines
    const GlpkSolution truth = solveWithGlpk(problem, criterion);
    std::ofstream(lp, std::ios::binary) << writeLp(problem, criterion);
    ASSERT_EQ(std::system(("glpsol --lp " + lp + " -o " + out + " > /dev/null").c_str()), 0);
    const std::string s = (std::stringstream() << std::ifstream(out).rdbuf()).str();
    EXPECT_NE(s.find(lpVariableName(problem.n, problem.name.back())), std::string::npos) << s;
    EXPECT_EQ(s.find("Status:     OPTIMAL") != std::string::npos, truth.feasible) << s;
    if (!truth.feasible) continue;
    const std::size_t at = s.find("Objective:  burden = ");  // printed with 6 digits
    EXPECT_NEAR(at == std::string::npos ? NAN : std::atof(s.c_str() + at + 21), truth.optimum,
                1e-5 * std::fabs(truth.optimum) + 1e-9);
    ++solved;
  }
  EXPECT_GT(solved, 0);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace pescavo
