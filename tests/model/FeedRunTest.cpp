#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "model/FeedRun.h"
#include "support/HandMadeLists.h"

namespace pescavo {
namespace {

class FeedRunTest : public HandMadeLists {
 protected:
  void choose(const std::vector<int>& positions) {
    chosen.clear();
    for (int p : positions) chosen.push_back(available.at(p));
  }
  static RunOptions options(bool pc, bool cc, bool f, bool mrbd = true) {
    RunOptions o;
    o.pseudo = {pc, cc, f};
    o.mrbd = mrbd;
    return o;
  }
};

// The components, then PC (of the grade asked for), CC and F, uncontaminated and without a limit.
// Residues per dry matter: divided first, then multiplied; their sum as read, in list order.
TEST_F(FeedRunTest, LadenBuildsTheProgrammeFromTheLists) {
  addAvailable("Wheat (feed)", "Cereal", {2, 13, 1.2, 40, 30, 88, "IFN-Wheat"});
  addAvailable("Soybean (feed)", "By-Products", {2, 50, 0.8, 35, 25, 89, "IFN-Soybean"});
  addAvailable("Rape (feed)", "By-Products", {100, 0, 0.02, 10, 15, 100, "IFN-Rape"});
  choose({0, 1, 2});
  RunOptions o = options(true, true, true);
  o.fishmealGrade = 4;
  run.Laden(input(), o);
  const OptimisationProblem& p = run.problem();
  EXPECT_EQ(p.name, (std::vector<std::string>{"Wheat (feed)", "Soybean (feed)", "Rape (feed)", "PC",
                                              "CC", "F"}));
  EXPECT_EQ(p.lipid, (std::vector<double>{2, 2, 100, 8, 0.1, 100}));
  EXPECT_EQ(p.protein, (std::vector<double>{13, 50, 0, 70, 0.1, 0}));
  EXPECT_EQ(p.residue, (std::vector<double>{1.2 / 88 * 100, 0.8 / 89 * 100, 0.02, 0, 0, 0}));
  EXPECT_EQ(p.maxInclusion, (std::vector<double>{40, 35, 10, 100, 100, 100}));
  EXPECT_EQ(std::tuple(p.residueSum, p.n, p.chosenCount, p.ifnCode[2], p.kind[0], p.kind[5],
                       p.proteinTarget, p.unitOrder),
            std::tuple(1.2 + 0.8 + 0.02, 6, 3, "IFN-Rape", VariableKind::Component, VariableKind::F,
                       35.0, 9));

  o = options(true, false, true, false);
  o.species = 1;
  run.Laden(input(), o);
  // F follows PC directly; without the limits every share may reach 100 %.
  EXPECT_EQ(std::tuple(p.n, p.name[4], p.kind[4], p.lipid[4], p.proteinTarget),
            std::tuple(5, "F", VariableKind::F, 100.0, 42.0));
  EXPECT_EQ(p.maxInclusion, std::vector<double>(5, 100));
}

// Each stop as the run meets it, and what the single run and the sweep show for it.
TEST_F(FeedRunTest, StopsInTheOrderTheRunMeetsThem) {
  // "Target" meets the carp targets alone; DM 0 keeps its residue unconverted.
  addAvailable("Target (feed)", "By-Products", {8, 35, 0.5, 100, 100, 0, ""});
  addAvailable("Wheat (feed)", "Cereal", {2, 13, 1.2, 100, 100, 88, ""});
  addAvailable("Clean (feed)", "Cereal", {8, 35, 0, 100, 100, 88, ""});
  addAvailable("Huge (feed)", "Cereal", {8, 35, 1e6, 100, 100, 1e-300, ""});
  const std::string allZero =
      "The residue values of substances are possiblibly all zero. Check the pollutants value "
      "and try again.";
  const std::string pollutantsZero =
      "Values of pollutants are possiblibly all zero. Check the pollutants value and try again.";
  const std::string huge =
      "The residue value of Huge (feed) is too large to compute with on the dry-matter basis "
      "(dry matter 1E-300 %). Check its residue value and its dry matter.";
  const std::string notSolvable =
      "The problem is not solvable. Add more or try different components.";
  const struct {
    std::vector<int> chosen;
    bool f;  // oil joins the feed
    RunStop stop;
    std::string single;
    std::string sweep;
  } cases[] = {
      {{2}, true, RunStop::AllZero, allZero, pollutantsZero},
      {{3, 0}, false, RunStop::UnusableFigures, huge, huge},
      {{1}, false, RunStop::NotSolvable, notSolvable, notSolvable},  // wheat alone: too little
      {{0}, false, RunStop::None, "", ""},
      {{}, true, RunStop::NoComponents, "Please add components.", "Please add components."},
  };
  for (const auto& c : cases) {
    choose(c.chosen);
    const RunStop stop = run.run(input(), options(false, false, c.f));
    EXPECT_EQ(std::tuple(stop, run.lastStop(), run.message(stop, false), run.message(stop, true),
                         run.solverRan(), run.pivotFailure()),
              std::tuple(c.stop, c.stop, c.single, c.sweep,
                         c.stop == RunStop::None || c.stop == RunStop::NotSolvable, ""));
  }
  chosen = {available[0]};
  run.run(input(','), options(false, false, false));
  EXPECT_EQ(run.statement("Example A"),
            "Maximum content dietary burden based on Example A is 0,500 mg/kg.");
}

// Texts that repeat: each chosen entry takes the lipid of the last available entry with its text,
// also when the lists change between runs (the lookup and each entry's last match are kept).
TEST_F(FeedRunTest, EachChosenEntryTakesTheLastAvailableEntryOfItsText) {
  const auto text = [](int k) { return std::to_string(k % 211) + " (by-product)"; };
  const auto fill = [&](bool fewer) {  // fewer: as for a substance without some of them
    available.clear();
    working.clear();
    for (int q = 0; q < 600; ++q)
      if (!fewer || q % 7 != 3)
        addAvailable(text(q), "Forages", {q / 10.0, 1, 1, 100, 100, 90, ""});
  };
  const auto expectLastEntries = [&](const std::string& label) {
    run.Laden(input(), options(false, false, false));
    ASSERT_EQ(run.problem().n, static_cast<int>(chosen.size())) << label;
    for (std::size_t p = 0; p < chosen.size(); ++p) {
      double expected = -1;
      for (int q = static_cast<int>(available.size()) - 1; q >= 0 && expected < 0; --q)
        if (available[q].text == chosen[p].text) expected = working[q].lipid;
      EXPECT_EQ(run.problem().lipid[p], expected) << label << ": " << chosen[p].text;
    }
  };
  const auto chooseTexts = [&](std::initializer_list<int> ks) {
    chosen.clear();
    for (int k : ks) chosen.push_back({text(k), "by-product", "Forages", "0"});
  };
  fill(false);
  chooseTexts({0, 5, 210, 399, 577});
  expectLastEntries("first run");
  expectLastEntries("same lists again");
  fill(true);  // other positions, and some entries no longer there
  chooseTexts({577, 5, 3, 210});
  expectLastEntries("other lists");
  chosen.erase(chosen.begin());
  chosen.erase(chosen.begin());
  expectLastEntries("shorter chosen list");
  // As many entries, one of them renamed after the match: a later one now has the text.
  fill(false);
  chooseTexts({0, 5});
  expectLastEntries("before the rename");
  available[599].text = text(5);
  expectLastEntries("a later entry with the text");
}

// The report shows the category and basis of the entry the run matched: the last available
// one with the chosen text, whatever the chosen entry itself carried.
TEST_F(FeedRunTest, ReportValuesComeFromTheMatchedEntryAndTheRunsOptions) {
  addAvailable("Target (feed)", "First", {8, 35, 0.5, 100, 100, 0, ""});
  addAvailable("Target (feed)", "Second", {8, 35, 0.25, 100, 90, 0, ""});
  available[1].artSchadstoffwert = "1";
  choose({0});
  RunOptions o = options(true, false, false);
  o.species = 1;
  o.fishmealGrade = 3;
  o.criterion = Criterion::Minimum;
  run.run(input(), o);
  ReportValues values;
  run.fillReportValues(input(), "Example A", values);
  ASSERT_EQ(values.components.size(), 1u);
  ASSERT_EQ(values.pseudos.size(), 1u);
  const ReportComponent& c = values.components[0];
  EXPECT_EQ(std::make_tuple(c.category, c.basisLabel, c.storedResidue, c.maxInclusion,
                            values.speciesName, values.criterionText, values.fishmealProtein,
                            values.pseudos[0].kind, values.substance),
            std::make_tuple("Second", "STMR-P", 0.25, 90, "Rainbow trout", "Minimum content", 68,
                            VariableKind::PC, "Example A"));
}

}  // namespace
}  // namespace pescavo
