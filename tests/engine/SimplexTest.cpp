#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>
#include <tuple>

#include "engine/ReferenceSimplex.h"
#include "engine/Simplex.h"
#include "support/RandomProblems.h"

namespace pescavo {
namespace {

using testing::feed;
constexpr Criterion kBoth[] = {Criterion::Maximum, Criterion::Minimum};
const std::vector<double> kEarlier = {1, 2, 3};  // an earlier run's, kept when not solvable

std::pair<OptimisationResult, SimplexTableau> afterEarlierRun(
    const OptimisationProblem& problem, Criterion criterion,
    std::size_t delayFromBytes = SimplexTableau::kDelayFromBytes) {
  std::pair<OptimisationResult, SimplexTableau> run{{true, 9.87, kEarlier, "", 0}, {}};
  run.second.delayFromBytes = delayFromBytes;
  Rechnen(problem, criterion, run.second, run.first);
  return run;
}

TEST(Simplex, HandSolvableAndUnreachableFeedsForBothCriteria) {
  // Problem, burden and shares; a burden of 9.87 means not solvable, the earlier result kept.
  const std::tuple<OptimisationProblem, double, std::vector<double>> cases[] = {
      {feed({{7, 30, 2.5, 100}}, 7, 30), 2.5, {100, 0, 0, 0}},  // meets both targets
      {feed({{7, 30, 2.5, 100}}, 7 + 7e-12, 30), 2.5, {100}},   // within the tolerance
      {feed({{5, 30, 1.2, 100}, {10, 40, 2.0, 100}}, 7.5, 35), 1.6, {50, 50}},  // 50/50
      {feed({{5, 30, 1, 100}, {10, 40, 2, 100}}, 7.5, 45), 9.87, kEarlier},     // protein
      {feed({{7, 30, 2.5, 60}}, 7, 30), 9.87, kEarlier},          // n = 1 held below 100 %
      {feed({{7, 30, 2.5, 100}}, 7 + 7e-8, 30), 9.87, kEarlier},  // beyond the tolerance
  };
  for (const auto& [problem, burden, shares] : cases) {
    for (Criterion criterion : kBoth) {
      const OptimisationResult result = afterEarlierRun(problem, criterion).first;
      EXPECT_EQ(result.solvable, burden != 9.87);
      EXPECT_NEAR(result.burden, burden, 1e-12);
      for (std::size_t j = 0; j < shares.size(); ++j)
        EXPECT_NEAR(result.composition.at(j), shares[j], 1e-10);
    }
  }
}

// The fast paths may skip work, never change a value. Realistic problems alternate with small
// whole numbers of either sign: negative right-hand sides, ratio tests without a row.
TEST(SimplexReference, EveryOutputMatchesThePlainFormBitForBit) {
  // Ratio tests without a row are rare; these, found by search, keep both failure paths covered.
  std::vector<OptimisationProblem> problems = {
      feed({{-12, 29, 4, -99}, {10, -27, 1, -54}, {1, -6, 5, 56}}, -2, 29),  // "geht nicht"
      feed({{-4, -22, -2, -67}, {-3, -25, -4, -91}}, -4, 3),  // "geht nicht 2", Minimum
      feed({{13, -16, 2, -65}, {-20, 6, 3, -17}}, 7, -8),     // "geht nicht 2", Maximum
      feed({{-8, -2, 4, 89}, {-7, -13, -2, -2}, {-4, -34, -5, -91}}, -4, 3)};
  std::mt19937 random(20240611);
  std::uniform_int_distribution<int> f(-100, 100);
  testing::RandomProblems realistic(20240611);
  for (int t = 0; t < 3000; ++t) {
    std::vector<std::array<double, 4>> v(t % 2 ? 1 + random() % 3 : 0);
    for (auto& c : v)
      c = {double(f(random) / 5), double(f(random) * 2 / 5), double(f(random) / 20),
           double(f(random))};
    const double lipid = f(random) / 10;  // drawn first
    problems.push_back(v.empty() ? realistic.next().problem : feed(v, lipid, f(random) * 3 / 10));
  }
  for (std::size_t t = 4; t < problems.size(); t += 8) problems[t].unitOrder = problems[t].n - 1;
  std::map<std::string, int> outcomes;
  // Both ways of writing the rows: at once, and after the pivots have waited (as on large feeds).
  for (std::size_t t = 0; t < problems.size() && !HasFailure(); ++t) {
    for (const auto& [criterion, delayFrom] :
         {std::pair{Criterion::Maximum, SimplexTableau::kDelayFromBytes},
          {Criterion::Minimum, SimplexTableau::kDelayFromBytes},
          {Criterion::Maximum, 0ul},
          {Criterion::Minimum, 0ul}}) {
      SCOPED_TRACE("problem " + std::to_string(t) + " " + std::to_string(int(criterion)) +
                   (delayFrom == 0 ? " delayed" : ""));
      ReferenceSimplex reference(problems[t], criterion);
      const OptimisationResult expected = reference.Rechnen();
      const auto [result, tableau] = afterEarlierRun(problems[t], criterion, delayFrom);
      if (delayFrom != 0) ++outcomes[result.solvable ? "solved" : result.pivotFailure];
      ASSERT_EQ(result.solvable, expected.solvable);
      EXPECT_EQ(result.pivotFailure, expected.pivotFailure);
      EXPECT_EQ(result.pivots, expected.pivots);
      const double burden = expected.solvable ? expected.burden : 9.87;
      const auto& composition = expected.solvable ? expected.composition : kEarlier;
      ASSERT_EQ(result.composition.size(), composition.size());
      EXPECT_EQ(std::memcmp(&result.burden, &burden, sizeof burden), 0);
      EXPECT_EQ(std::memcmp(result.composition.data(), composition.data(),
                            composition.size() * sizeof burden),
                0);
      for (int i = 1; expected.solvable && i <= problems[t].n + 3; ++i)
        EXPECT_EQ(tableau.basis[i], reference.basis(i));
    }
  }
  // The seeds must reach every outcome, or the comparison proves less than it claims.
  EXPECT_GT(std::min(outcomes["solved"], outcomes[""]), 1000);
  EXPECT_GE(std::min(outcomes["geht nicht"], outcomes["geht nicht 2"]), 2);
}

}  // namespace
}  // namespace pescavo
