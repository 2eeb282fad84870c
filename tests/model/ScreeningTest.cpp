#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "model/MainWindowModel.h"
#include "model/ScenarioSweep.h"
#include "model/Screening.h"
#include "support/RecordingDialogs.h"
#include "support/TempFolder.h"

namespace pescavo::test {
namespace {

struct Tables {
  ComponentTable table;
  std::vector<FishSpecies> species;
  std::vector<FishMealGrade> fishmeal;
};

// A table fixed by its seed: some residues 0, so that substances differ in what is available,
// and feeds that cannot meet every target; the last substance has no residue at all.
Tables seededTables(std::uint64_t seed, int substances, int components) {
  std::uint64_t state = seed;
  const auto next = [&](double low, double high) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return low + (high - low) * static_cast<double>(state >> 11) / 9007199254740992.0;
  };
  Tables tables;
  for (int s = 1; s <= substances; ++s) tables.table.addSubstance("Substance " + std::to_string(s));
  for (int i = 1; i <= components; ++i) {
    const int c = tables.table.addComponent({"Forages/Fodders", "Crop " + std::to_string(i), "feed",
                                             "", next(2, 60), next(0, 30), next(20, 95),
                                             next(5, 100), next(5, 100)});
    for (int s = 1; s <= substances; ++s)
      if (s < substances && next(0, 1) < 0.7) tables.table.setResidue(s, c, next(0, 2));
  }
  tables.species = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
  tables.fishmeal = {{60, 8}, {65, 9}, {70, 10}};
  return tables;
}

ScreeningResult screen(const Tables& tables, const ScreeningRequest& request,
                       unsigned threads = 0) {
  const std::atomic<bool> cancel{false};
  return Screening(tables.table, tables.species, tables.fishmeal, '.')
      .run(request, Screening::Progress(), cancel, threads);
}

ScreeningRequest everyway(bool scenarios) {
  ScreeningRequest request;
  request.species = {0, 1};
  request.criteria = {Criterion::Maximum, Criterion::Minimum};
  request.scenarios = scenarios;
  return request;
}

// Every row is the run the main window makes by hand: the single run of "Optimize" (the same figure
// to the bit, verdict and refusal) or the sweep's run. Where the sweep stops at a refused run, so
// does the screening, with that run's row; the seeded table's last substance is refused at once.
TEST(Screening, RowsAreTheRunsMadeByHandInOrder) {
  const Tables tables = seededTables(7, 12, 8);
  const ScreeningResult single = screen(tables, everyway(false));
  const ScreeningResult result = screen(tables, everyway(true));
  const int runs = tables.table.substanceCount() * 4;
  ASSERT_EQ(std::tuple(single.total, static_cast<int>(single.rows.size()), single.cancelled,
                       result.total),
            std::tuple(runs, runs, false, runs * kScenarioRuns));
  // The main window as a user screening by hand: the full layout, "---->>", the option buttons.
  RecordingDialogs dialogs;
  MainWindowModel model(dialogs, '.');
  const TempFolder folder;
  model.load(tables.table, tables.species, tables.fishmeal);
  model.report().reportFolder = folder.file();
  size_t k = 0, next = 0;
  for (int s = 0; s < tables.table.substanceCount(); ++s) {
    for (const int species : {0, 1}) {
      for (const Criterion criterion : {Criterion::Maximum, Criterion::Minimum}) {
        SCOPED_TRACE("substance " + std::to_string(s + 1) + " species " + std::to_string(species));
        const ScreeningRow& row = single.rows[k++];
        ASSERT_EQ(std::tuple(row.substance, row.name, row.species, row.criterion, row.scenario),
                  std::tuple(s + 1, tables.table.substanceName(s + 1), species, criterion, 0));
        model.selectSubstance(s);
        model.selection().alle_rein();
        model.options().setSpeciesOption(static_cast<Species>(species));
        model.options().setCriterionOption(criterion);
        model.Optimierung_Click();
        const FeedRun& run = model.lastRun();
        if (model.selection().chosen().empty()) {  // refused before any run is made
          EXPECT_EQ(std::tuple(row.stop, row.burdenCell, row.checked, row.verdictCell),
                    std::tuple(RunStop::NoComponents, dialogs.messages.back(), false, ""));
        } else {
          ASSERT_EQ(row.stop, run.lastStop());
          EXPECT_EQ(std::tuple(row.options.fishmealGrade, row.checked, row.verdictCell),
                    std::tuple(run.options().fishmealGrade, run.solverRan(),
                               run.solverRan() ? verdictCell(run.check()) : ""));
          if (row.stop == RunStop::None) {
            EXPECT_EQ(row.burden, run.result().burden);
            EXPECT_NE(model.result().text.find(" is " + row.burdenCell + " mg/kg."),
                      std::string::npos);
            EXPECT_EQ(row.above, run.result().burden > 0.1);
          } else {
            EXPECT_EQ(row.burdenCell, run.message(row.stop, false));
          }
        }

        const bool swept = Optimierung2_Click(model);
        const ReportState& report = model.report();
        const bool refusedFirst = !swept && model.selection().chosen().empty();
        for (int r = 1; r <= kScenarioRuns; ++r) {
          SCOPED_TRACE("run " + std::to_string(r));
          ASSERT_LT(next, result.rows.size());
          const ScreeningRow& row = result.rows[next++];
          ASSERT_EQ(std::tuple(row.substance, row.species, row.criterion, row.scenario),
                    std::tuple(s + 1, species, criterion, r));
          if (refusedFirst || (!swept && report.scenarioCells[r][2].empty())) {
            // The sweep stopped at this run: so does the screening, with its message.
            EXPECT_NE(row.stop, RunStop::None);
            EXPECT_EQ(row.refusal, dialogs.messages.back());
            break;
          }
          if (report.scenarioCells[r][2] == "-") {
            EXPECT_EQ(row.stop, RunStop::NotSolvable);
            EXPECT_EQ(row.burdenCell, FeedRun::kNotSolvable);
          } else {
            EXPECT_EQ(row.burdenCell, report.scenarioCells[r][2]);
          }
          EXPECT_EQ(row.verdictCell, report.scenarioVerdicts[r - 1]);
          EXPECT_EQ(row.trueOptimumCell,
                    row.verdict == CheckVerdict::Differs ? report.scenarioTrueOptima[r - 1] : "");
        }
      }
    }
  }
  EXPECT_EQ(next, result.rows.size());
  // Both kinds of run are compared, not only results.
  for (const RunStop stop : {RunStop::None, RunStop::NotSolvable})
    EXPECT_TRUE(std::any_of(result.rows.begin(), result.rows.end(),
                            [&](const ScreeningRow& row) { return row.stop == stop; }));
}

// Whatever the threads did, the rows are the same, in the same order, and the progress reaches the
// total. A cancel stops before the next run, keeping every row done exactly where it was told.
TEST(Screening, ThreadsChangeNothingAndACancelKeepsTheRowsDone) {
  const Tables tables = seededTables(5, 30, 12);
  const Screening screening(tables.table, tables.species, tables.fishmeal, '.');
  const std::atomic<bool> never{false};
  ScreeningResult one;
  for (const bool scenarios : {false, true}) {
    int last = 0;
    const ScreeningResult many = screening.run(
        everyway(scenarios), [&](int done, int) { last = done; }, never, 4);
    one = screen(tables, everyway(scenarios), 1);
    EXPECT_EQ(last, many.total);
    ASSERT_EQ(many.rows.size(), one.rows.size());
    for (size_t k = 0; k < one.rows.size(); ++k) {
      const ScreeningRow &a = many.rows[k], &b = one.rows[k];
      EXPECT_EQ(std::tuple(a.substance, a.scenario, a.burdenCell, a.verdictCell),
                std::tuple(b.substance, b.scenario, b.burdenCell, b.verdictCell));
    }
  }
  std::atomic<bool> stop{false};
  const ScreeningResult part = screening.run(
      everyway(true), [&](int done, int) { stop = stop || done >= 100; }, stop, 1);
  EXPECT_EQ(std::tuple(part.cancelled, part.total, part.rows.size()),
            std::tuple(true, one.total, size_t{100}));
  for (size_t k = 0; k < part.rows.size(); ++k)
    EXPECT_EQ(std::tuple(part.rows[k].substance, part.rows[k].scenario, part.rows[k].burdenCell),
              std::tuple(one.rows[k].substance, one.rows[k].scenario, one.rows[k].burdenCell));
}

TEST(Screening, TextFormsQuoteWhatTheirSeparatorsWouldBreak) {
  ScreeningRow row;
  std::tie(row.substance, row.name, row.species, row.criterion, row.scenario, row.burdenCell) =
      std::tuple(12, "Acid, \"technical\"", 1, Criterion::Minimum, 3, "0,125");
  std::tie(row.above, row.checked, row.verdictCell, row.trueOptimumCell) =
      std::tuple(true, true, "differs", "0,100");
  const std::vector<FishSpecies> species = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
  EXPECT_EQ(
      screeningLine(row, true, species, ScreeningFormat::Csv),
      "12,\"Acid, \"\"technical\"\"\",Rainbow trout,Minimum,3,\"0,125\",yes,differs,\"0,100\"\n");
  EXPECT_EQ(screeningLine(row, false, species, ScreeningFormat::Tsv),
            "12\tAcid, \"technical\"\tRainbow trout\tMinimum\t0,125\tyes\tdiffers\t0,100\n");
  row.name = "Two\tcells\non two lines";
  row.stop = RunStop::NotSolvable;
  row.burdenCell = FeedRun::kNotSolvable;
  EXPECT_EQ(screeningLine(row, false, species, ScreeningFormat::Tsv),
            "12\tTwo cells on two lines\tRainbow trout\tMinimum\t" +
                std::string(FeedRun::kNotSolvable) + "\t\tdiffers\t0,100\n");
  EXPECT_EQ(screeningHeaderLine(true, ScreeningFormat::Csv),
            "Number,Substance,Species,Criterion,Scenario,Burden (mg/kg feed DM),Above 0.1,"
            "Independent check,True optimum\n");
}

}  // namespace
}  // namespace pescavo::test
