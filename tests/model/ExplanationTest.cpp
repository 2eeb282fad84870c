#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/Explanation.h"
#include "model/FeedRun.h"
#include "support/HandMadeLists.h"

namespace pescavo {
namespace {

class ExplanationTest : public HandMadeLists {
 protected:
  void add(const std::string& text, WorkingSetEntry entry) {
    addAvailable(text, "Cereal", std::move(entry));
    chosen = available;
  }
  Explanation runAndExplain(const RunOptions& options = RunOptions()) {
    EXPECT_EQ(run.run(input(), options), RunStop::None);
    return explainRun(run);
  }
};

// {lipid, protein, residue, carp, trout, dm, IFN} with PC, CC and F, residues per dry matter:
// each binding maximum raised by 1 % in the table moves the rerun's burden by its rate.
TEST_F(ExplanationTest, RelaxingABindingLimitInTheTableMovesTheBurdenByItsRate) {
  add("Wheat (bran)", {4, 17, 0.05, 20, 20, 88, ""});
  add("Maize (grain)", {4, 9, 0.02, 30, 25, 86, ""});
  add("Soybean (meal)", {2, 50, 0.01, 25, 25, 89, ""});
  const Explanation before = runAndExplain();
  ASSERT_TRUE(before.available && !before.reportDiffers);
  EXPECT_NEAR(before.optimum, run.result().burden, 1e-9);
  std::string relaxed;
  for (std::size_t k = 0; k < before.lines.size(); ++k) {
    const LimitSensitivity& limit = before.lines[k].limit;
    if (limit.kind != LimitKind::MaxInclusion || !limit.binding) continue;
    ASSERT_GE(limit.highest, limit.limit + 1) << before.lines[k].constraint;
    EXPECT_GT(limit.rate, 0);  // more of a contaminated component can only raise the worst case
    working[limit.variable - 1].maxCarp += 1;
    EXPECT_NEAR(runAndExplain().lines[k].limit.limit, limit.limit + 1, 1e-12);
    working[limit.variable - 1].maxCarp -= 1;
    EXPECT_NEAR(run.result().burden - before.optimum, limit.rate, 1e-9)
        << before.lines[k].constraint;
    relaxed += before.lines[k].constraint + ";";
  }
  EXPECT_EQ(relaxed, "Wheat (bran);Soybean (meal);");  // maize gives way to the PC
}

// Three components, one per nutrient: the targets alone fix the feed, so the rates are
// differences of dry-matter residues per percent (1, 3 and 2 mg/kg).
TEST_F(ExplanationTest, OnlyTheTargetsBindInWords) {
  add("Starch (feed)", {0, 0, 1, 100, 100, 100, ""});
  add("Rape (oil)", {100, 0, 3, 100, 100, 100, ""});
  add("Pea (protein)", {0, 100, 2, 100, 100, 100, ""});
  RunOptions options;
  options.pseudo = {false, false, false};
  const Explanation e = runAndExplain(options);
  EXPECT_EQ(explanationSentences(e, ','),
            (std::vector<std::string>{
                "The maximum dietary burden is 1,510 mg/kg.",
                "The feed must hold 8 % crude lipid in its dry matter: each further percent would "
                "raise the burden by 0,020 mg/kg (while the target stays between 0 % and 65 %).",
                "The feed must hold 35 % crude protein in its dry matter: each further percent "
                "would raise the burden by 0,010 mg/kg (while the target stays between 0 % and "
                "92 %).",
                "The shares add up to 100 %: each further percent would raise the burden by 0,010 "
                "mg/kg (while the sum stays between 43 % and 143 %).",
                "Starch (feed), Rape (oil) and Pea (protein) stay below their maximum: a little "
                "more or less of those maxima would not change the burden."}));
  EXPECT_EQ(explanationTsv(e, '.'),
            "constraint\tbinding\tlimit\trate\tfrom\tto\n"
            "lipid\tyes\t8\t0.02\t0\t65\n"
            "protein\tyes\t35\t0.01\t0\t92\n"
            "sum\tyes\t100\t0.01\t43\t143\n"
            "Starch (feed)\tno\t100\t0\t57\t100\n"
            "Rape (oil)\tno\t100\t0\t8\t100\n"
            "Pea (protein)\tno\t100\t0\t35\t100\n");
}

// A result the fixed-pass method got wrong is not explained: the true optimum is, and says so.
TEST_F(ExplanationTest, BindingMaximaAndAWrongResultInWordsAndTable) {
  // Both at the same make-up as the targets: every percent of the bran's maximum takes a
  // percent of the grain's place, (0.25 - 0.05) / 100 mg/kg a percent up to 100 %.
  add("Wheat (bran)", {8, 35, 0.25, 20, 20, 100, ""});
  add("Maize (grain)", {8, 35, 0.05, 100, 100, 100, ""});
  RunOptions options;
  options.pseudo = {false, true, true};
  const std::vector<std::string> worst = explanationSentences(runAndExplain(options), '.');
  ASSERT_EQ(worst.size(), 6u);
  EXPECT_EQ(worst[0], "The maximum dietary burden is 0.090 mg/kg.");
  EXPECT_EQ(worst[4],
            "Wheat (bran) is at its maximum of 20 %: each further percent would raise the burden "
            "by 0.002 mg/kg (while the maximum stays between 0 % and 100 %).");
  EXPECT_EQ(worst[5],
            "Maize (grain) stays below its maximum: a little more or less of that maximum would "
            "not change the burden.");
  OptimisationResult reported = run.result();
  reported.burden = 0.05;
  reported.composition = {0, 100, 0, 0};
  const auto opening = [&] {
    const CheckResult check = checkOptimum(run.problem(), Criterion::Maximum, reported);
    const Explanation e = explainOptimum(run.problem(), Criterion::Maximum, reported, check);
    return explanationSentences(e, '.').front();
  };
  EXPECT_EQ(opening(),
            "The optimisation reported 0.050 mg/kg, but the true maximum is 0.090 mg/kg; what "
            "follows explains the true maximum.");
  reported.solvable = false;
  EXPECT_EQ(opening(),
            "The optimisation found no result, but the true maximum is 0.090 mg/kg; what follows "
            "explains the true maximum.");
  EXPECT_EQ(explanationText(Explanation(), '.'), "There is no optimum to explain.\n");

  options.criterion = Criterion::Minimum;
  working[0].residue = 0.01;
  const Explanation best = runAndExplain(options);
  EXPECT_EQ(explanationSentences(best, '.')[4],
            "Wheat (bran) is at its maximum of 20 %: each further percent would lower the burden "
            "by less than 0.001 mg/kg (while the maximum stays between 0 % and 100 %).");
  EXPECT_EQ(explanationTable(best, '.'),
            "Constraint     Binding  Limit %  Rate mg/kg per %     Range %\n"
            "lipid          yes            8            0.0000      8 to 8\n"
            "protein        yes           35            0.0014  7.07 to 35\n"
            "sum            yes          100            0.0000  100 to 100\n"
            "Wheat (bran)   yes           20           -0.0004    0 to 100\n"
            "Maize (grain)  no           100            0.0000   80 to 100\n");
  // Neither target can rise: only wheat and maize carry protein, at the targets' own ratio.
  EXPECT_EQ(explanationSentences(best, '.')[1],
            "The feed must hold 8 % crude lipid in its dry matter: with these components it can "
            "be neither higher nor lower.");
  EXPECT_EQ(explanationSentences(best, '.')[2],
            "The feed must hold 35 % crude protein in its dry matter: it cannot rise with these "
            "components; each percent less would lower the burden by 0.001 mg/kg (down to 7.07 "
            "%).");
}

}  // namespace
}  // namespace pescavo
