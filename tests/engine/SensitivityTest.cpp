#include <gtest/gtest.h>

#include <cmath>

#include "engine/Sensitivity.h"
#include "support/RandomProblems.h"

namespace pescavo {
namespace {

using testing::feed;
constexpr double kTight = 1e-9;

const LimitSensitivity& limitOf(const Sensitivity& s, LimitKind kind, int variable = 0) {
  for (const LimitSensitivity& limit : s.limits)
    if (limit.kind == kind && limit.variable == variable) return limit;
  throw std::runtime_error("no such limit");
}

void expectLimit(const LimitSensitivity& limit, bool binding, double value, double rate,
                 double lowest, double highest) {
  EXPECT_EQ(limit.binding, binding);
  EXPECT_NEAR(limit.limit, value, kTight);
  EXPECT_NEAR(limit.rate, rate, kTight);
  EXPECT_NEAR(limit.lowest, lowest, 1e-7);
  EXPECT_NEAR(limit.highest, highest, 1e-7);
}

// Two components of the same make-up as the targets, with CC and F at hand. Every percent of
// A's limit takes a percent of B's place, so the burden moves by (rA - rB) / 100 per percent
// until one of them runs out: A's limit holds its rate from 0 % to 100 %.
OptimisationProblem twoComponents(double residueA, double residueB) {
  return feed({{10, 40, residueA, 25}, {10, 40, residueB, 100}}, 10, 40, 2 | 4);
}

TEST(SensitivityTest, OneMaximumInclusionBinds) {
  const Sensitivity worst = analyseSensitivity(twoComponents(3, 1), Criterion::Maximum, {});
  ASSERT_TRUE(worst.solved);
  EXPECT_NEAR(worst.optimum, 0.25 * 3 + 0.75 * 1, kTight);
  ASSERT_EQ(worst.limits.size(), 5u);
  expectLimit(limitOf(worst, LimitKind::MaxInclusion, 1), true, 25, 0.02, 0, 100);
  expectLimit(limitOf(worst, LimitKind::MaxInclusion, 2), false, 100, 0, 75, 100);
  for (LimitKind target : {LimitKind::Lipid, LimitKind::Protein, LimitKind::Sum})
    EXPECT_TRUE(limitOf(worst, target).binding);
  EXPECT_NEAR(limitOf(worst, LimitKind::Sum).limit, 100, kTight);

  // The best case fills A, the cleaner one, to its limit: more of it lowers the burden.
  const Sensitivity best = analyseSensitivity(twoComponents(0.5, 1), Criterion::Minimum, {});
  ASSERT_TRUE(best.solved);
  EXPECT_NEAR(best.optimum, 0.25 * 0.5 + 0.75, kTight);
  expectLimit(limitOf(best, LimitKind::MaxInclusion, 1), true, 25, -0.005, 0, 100);

  // A limit a share cannot reach still binds at 0 %, as a share fixed there.
  OptimisationProblem shut = twoComponents(3, 1);
  shut.maxInclusion[0] = 0;
  const Sensitivity closed = analyseSensitivity(shut, Criterion::Maximum, {});
  ASSERT_TRUE(closed.solved);
  expectLimit(limitOf(closed, LimitKind::MaxInclusion, 1), true, 0, 0.02, 0, 100);
}

// Starch, oil and a pure protein: the targets alone fix the feed at 50 / 10 / 40 %, so every
// rate is a difference of residues. Lipid takes oil's place from starch, protein the protein's;
// a further percent of the sum is starch. Starch running out ends each range.
TEST(SensitivityTest, OnlyTheTargetsBind) {
  const OptimisationProblem problem =
      feed({{0, 0, 1, 100}, {100, 0, 3, 100}, {0, 100, 2, 100}}, 10, 40);
  for (Criterion criterion : {Criterion::Maximum, Criterion::Minimum}) {
    const Sensitivity s = analyseSensitivity(problem, criterion, {});
    ASSERT_TRUE(s.solved);
    EXPECT_NEAR(s.optimum, 0.5 * 1 + 0.1 * 3 + 0.4 * 2, kTight);
    expectLimit(limitOf(s, LimitKind::Lipid), true, 10, 0.02, 0, 60);
    expectLimit(limitOf(s, LimitKind::Protein), true, 40, 0.01, 0, 90);
    expectLimit(limitOf(s, LimitKind::Sum), true, 100, 0.01, 50, 150);
    expectLimit(limitOf(s, LimitKind::MaxInclusion, 1), false, 100, 0, 50, 100);
    expectLimit(limitOf(s, LimitKind::MaxInclusion, 2), false, 100, 0, 10, 100);
    expectLimit(limitOf(s, LimitKind::MaxInclusion, 3), false, 100, 0, 40, 100);
  }
}

TEST(SensitivityTest, NothingToAnalyseWithoutAnOptimum) {
  // No mix of these meets 40 % protein.
  EXPECT_FALSE(analyseSensitivity(feed({{10, 20, 1, 100}}, 10, 40), Criterion::Maximum, {}).solved);
  OptimisationProblem broken = feed({{10, 40, 1, 100}}, 10, 40);
  broken.residue[0] = NAN;
  EXPECT_FALSE(analyseSensitivity(broken, Criterion::Maximum, {}).solved);
}

// Raising a limit within its range moves GLPK's optimum by the rate, on seeded programmes as
// Laden builds them (ties and degenerate optima included).
TEST(SensitivityTest, RatesPredictTheNextOptimum) {
  testing::RandomProblems problems(31);
  int stepped = 0;
  for (int k = 0; k < 300; ++k) {
    const testing::RandomProblem made = problems.next();
    const Sensitivity s = analyseSensitivity(made.problem, made.criterion, {});
    if (!s.solved) continue;
    for (const LimitSensitivity& limit : s.limits) {
      const double step = 0.5;
      if (limit.kind == LimitKind::Sum || limit.limit + step > limit.highest) continue;
      OptimisationProblem relaxed = made.problem;
      if (limit.kind == LimitKind::Lipid) relaxed.lipidTarget += step;
      if (limit.kind == LimitKind::Protein) relaxed.proteinTarget += step;
      if (limit.kind == LimitKind::MaxInclusion) relaxed.maxInclusion[limit.variable - 1] += step;
      const Sensitivity next = analyseSensitivity(relaxed, made.criterion, {});
      ASSERT_TRUE(next.solved);
      EXPECT_NEAR(next.optimum - s.optimum, limit.rate * step, 1e-7 * (1 + std::fabs(s.optimum)))
          << "programme " << k << ", limit " << static_cast<int>(limit.kind) << " "
          << limit.variable;
      ++stepped;
    }
  }
  EXPECT_GT(stepped, 50);
}

}  // namespace
}  // namespace pescavo
