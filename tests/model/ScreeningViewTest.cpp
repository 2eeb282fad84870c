#include <atomic>
#include <string>
#include <tuple>
#include <vector>

#include "model/ScreeningView.h"
#include "support/ModelFixture.h"

namespace pescavo {
namespace {

// A run with a result, or refused when why is given.
ScreeningRow run(int substance, double burden, CheckVerdict verdict = CheckVerdict::Agrees,
                 const std::string& why = "") {
  ScreeningRow row;
  row.substance = substance;
  row.burden = burden;
  row.above = aboveBurdenLimit(burden);
  row.checked = why.empty();
  row.verdict = verdict;
  if (!why.empty()) row.stop = RunStop::AllZero;
  row.refusal = why;
  return row;
}
ScreeningRow refused(int substance, const std::string& why) {
  return run(substance, 0, CheckVerdict::CouldNotRun, why);
}

// Burdens sort by value, refused runs after them either way, ties keep their order.
TEST(ScreeningOrderTest, BurdensSortByValueWithRefusedRunsLastEitherWay) {
  const std::vector<ScreeningRow> rows = {run(10, 0.2), refused(2, "zero"), run(9, 10.0),
                                          run(1, 0.05), run(3, 0.2),        refused(4, "a")};
  // By value, where "10.000" would come before "0.200" by its characters; refusals by their text.
  EXPECT_EQ(screeningOrder(rows, 4, false, false), (std::vector<int>{3, 0, 4, 2, 5, 1}));
  EXPECT_EQ(screeningOrder(rows, 4, true, false), (std::vector<int>{2, 0, 4, 3, 1, 5}));
}

TEST(ScreeningStyleTest, RowsAboveTheLimitAreRedAndDisputedRunsMarkedAsInTheScenarioTable) {
  const Rgb red{255, 0, 0};
  const ScreeningCellStyle plain = screeningCellStyle(run(1, 0.1), 4, false);
  EXPECT_FALSE(plain.text || plain.background);
  EXPECT_EQ(screeningCellStyle(run(1, 0.1001), 1, false).text, red);

  const ScreeningRow differs = run(1, 0.5, CheckVerdict::Differs);
  const RunMark mark = *scenarioRunMark(CheckVerdict::Differs, true);
  for (int column = 0; column < 8; ++column) {
    const ScreeningCellStyle style = screeningCellStyle(differs, column, false);
    EXPECT_EQ(style.background, mark.background) << column;
    // The check's two cells take the scenario table's text; the rest stays red.
    EXPECT_EQ(style.text, column >= 6 ? mark.checkText : red) << column;
    EXPECT_EQ(style.bold, column >= 6) << column;
  }
  EXPECT_FALSE(screeningCellStyle(differs, 6, true).bold);  // the scenario column moved it
  EXPECT_TRUE(screeningCellStyle(differs, 7, true).bold);
  // A refused run never reached the check: nothing to mark.
  EXPECT_FALSE(screeningCellStyle(refused(1, "zero"), 0, false).background);
  ScreeningRow notChecked = run(1, 0.01, CheckVerdict::CouldNotRun);
  EXPECT_EQ(screeningCellStyle(notChecked, 0, false).background,
            scenarioRunMark(CheckVerdict::CouldNotRun, true)->background);
}

// The sample tables, with every option at hand.
class ScreeningSelectTest : public ModelFixture {
 protected:
  void SetUp() override {
    table = readComponentTable(PESCAVO_SAMPLE_INPUT "/feedstuff.tab");
    model.setAllOptions(true);
    load();
  }
  std::vector<ScreeningRow> screen(const ScreeningRequest& request) {
    const std::atomic<bool> cancel{false};
    return Screening(model.database().table(), species, fishmeal, '.')
        .run(request, {}, cancel)
        .rows;
  }
};

// "Optimize" after the double click makes the row's run again, whatever the window showed.
TEST_F(ScreeningSelectTest, SelectedRunRepeatsAsASingleRun) {
  ScreeningRequest request;
  request.species = {0, 1};
  request.criteria = {Criterion::Minimum};
  request.scenarios = true;
  request.base.fishmealGrade = 0;
  int repeated = 0;
  for (const ScreeningRow& row : screen(request)) {
    if (row.stop != RunStop::None || (row.scenario % 5 != 3 && row.scenario != 16)) continue;
    model.selectSubstance(1);  // elsewhere, with other options, before the double click
    model.options().setSpeciesOption(row.species == 0 ? Species::RainbowTrout
                                                      : Species::CommonCarp);
    model.options().setPseudoComponents({!row.options.pseudo.pc, true, false});
    ASSERT_TRUE(selectScreeningRun(model, row));
    model.Optimierung_Click();
    const RunOptions& took = model.lastRun().options();
    const RunOptions& asked = row.options;
    EXPECT_EQ(
        std::tuple(model.substancePosition() + 1, took.criterion, took.species, took.fishmealGrade,
                   took.mrbd, took.pseudo.pc, took.pseudo.f, model.lastRun().result().burden),
        std::tuple(row.substance, asked.criterion, asked.species, asked.fishmealGrade, asked.mrbd,
                   asked.pseudo.pc, asked.pseudo.f, row.burden))
        << row.name << " " << row.scenario;
    ++repeated;
  }
  EXPECT_GE(repeated, 12);
  EXPECT_TRUE(dialogs.messages.empty());
}

// The entry goes with the edit menu (when that shows is the all-options switch's test).
TEST_F(ScreeningSelectTest, EditingOrAChangedSubstanceListRefusesTheRun) {
  const std::vector<ScreeningRow> rows = screen(ScreeningRequest());
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_TRUE(screeningEntryShown(model));
  model.substances().Add_Click();  // editing: the main window has no place for a run now
  EXPECT_FALSE(selectScreeningRun(model, rows[2]) || screeningEntryShown(model));
  EXPECT_TRUE(dialogs.messages.empty());
  model.substances().Abbrechen_Click();

  model.selectSubstance(0);
  model.substances().Loeschen_Click();  // the first goes; the third moves up to place 2
  ASSERT_EQ(model.database().table().substanceCount(), 4);
  EXPECT_FALSE(selectScreeningRun(model, rows[2]));
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{kScreeningListChanged});
}

}  // namespace
}  // namespace pescavo
