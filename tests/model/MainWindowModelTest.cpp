#include <functional>
#include <string>
#include <vector>

#include "support/ModelFixture.h"

namespace pescavo {
namespace {

FeedComponent component(const std::string& crop, double cp, double cl, double dm, double maxCarp,
                        double maxTrout) {
  return {"By-Products", crop, "feed", "IFN-" + crop, cp, cl, dm, maxCarp, maxTrout};
}

// Five components; substance A has residues on all but Oats, substance B on Maize and Rape
// (and a negative one on Oats, which is not offered either).
class ModelTest : public ModelFixture {
 protected:
  void SetUp() override {
    table.addSubstance("Example A");
    table.addSubstance("Example B");
    for (const FeedComponent& c :
         {component("Wheat", 13, 2, 88, 40, 30), component("Maize", 9, 4, 86, 50, 20),
          component("Oats", 12, 5, 89, 30, 10), component("Soybean", 50, 2, 89, 35, 25),
          component("Rape", 0, 100, 100, 10, 15)})
      table.addComponent(c);
    const double residues[2][5] = {{1.2, 0.5, 0, 0.8, 0.02}, {0, 0.3, -1, 0, 0.4}};
    for (int s = 1; s <= 2; ++s)
      for (int i = 1; i <= 5; ++i) table.setResidue(s, i, residues[s - 1][i - 1]);
    table.setBasis(1, 4, 1);
    load();
  }
  void choose(std::initializer_list<int> positions) {
    model.selection().clearSelection();
    for (int p : positions) model.selection().setSelected(p, true);
    model.selection().Rein();
  }
  bool resultShown() const {
    return model.visible(ControlId::Ergebnis) && model.visible(ControlId::ReportButton);
  }
  // The chosen texts, the current entry and, where enabled, "<---".
  std::string state() const {
    std::string texts;
    for (const ListEntry& entry : model.selection().chosen()) texts += entry.text + ";";
    return texts + " @" + std::to_string(model.selection().currentChosen()) +
           (model.selection().removeEnabled() ? " <---" : "");
  }
};

// Removing keeps the current position in range. Another substance empties the chosen list but
// leaves "<---" as it was; loading a table switches it off.
TEST_F(ModelTest, MovingInAndOutAndAnotherSubstance) {
  table.setBasis(2, 5, 1);
  load();
  ComponentSelection& selection = model.selection();
  choose({1});
  EXPECT_EQ(state(), "Maize (feed); @-1 <---");
  selection.alle_rein();  // Maize is there already: the others in list order
  EXPECT_EQ(state(), "Maize (feed);Wheat (feed);Soybean (feed);Rape (feed); @-1 <---");

  selection.setCurrentChosen(1);
  selection.raus();  // 1 of 4 stays 1
  EXPECT_EQ(state(), "Maize (feed);Soybean (feed);Rape (feed); @1 <---");
  selection.setCurrentChosen(2);
  selection.raus();  // the last goes one up
  EXPECT_EQ(state(), "Maize (feed);Soybean (feed); @1 <---");
  selection.setCurrentChosen(-1);
  selection.raus();  // no current entry: nothing
  EXPECT_EQ(state(), "Maize (feed);Soybean (feed); @-1 <---");
  for (int left = 2; left > 0; --left) selection.setCurrentChosen(0), selection.raus();
  EXPECT_EQ(state(), " @-1");

  choose({0});
  selection.setCurrentChosen(0);
  model.selectSubstance(1);
  ASSERT_EQ(selection.available().size(), 2u);
  EXPECT_EQ(selection.available()[1].text + selection.available()[1].artSchadstoffwert,
            "Rape (feed)1");
  EXPECT_EQ(selection.workingSet()[1].residue, 0.4);
  EXPECT_EQ(state(), " @-1 <---");
  EXPECT_FALSE(selection.isSelected(0));
  load();
  EXPECT_EQ(selection.available().size(), 4u);
  EXPECT_EQ(state(), " @-1");

  choose({3});
  selection.chooseAllAvailable();
  EXPECT_EQ(state(), "Wheat (feed);Maize (feed);Soybean (feed);Rape (feed); @-1 <---");
}

// The tooltip names the limit of the species chosen, in the window's decimal separator.
TEST_F(ModelTest, TooltipTexts) {
  model.options().setSpecies(1);
  model.setDecimalSeparator(',');
  model.Fischfutter1_MouseDown(0, 10, 20);
  EXPECT_EQ(model.selection().availableTooltip(),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1,2 mg/kg. "
            "Max. content in food: 30 %");
}

// A component that meets the carp targets alone; DM 0 keeps its residue unconverted, so the
// burden is exactly the residue set.
class SingleRunTest : public ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    table.addComponent(component("Target", 35, 8, 0, 100, 100));
  }
  void runWithResidue(double residue) {
    table.setResidue(1, 6, residue);
    load();
    model.options().setPseudoComponents({false, false, false});
    choose({4});
    model.Optimierung_Click();
  }
};

// Each change of the options or the lists withdraws the result; selecting, and "<---" with no
// current entry, change nothing that ran.
TEST_F(SingleRunTest, EveryChangeWithdrawsTheResult) {
  const std::vector<std::function<void()>> changes = {
      [&] { model.options().setMrbdLimits(false); }, [&] { model.selectSubstance(0); },
      [&] { choose({0}); }, [&] { model.selection().raus(); },
      [&] { model.selection().alle_raus(); }};
  for (size_t i = 0; i < changes.size(); ++i) {
    runWithResidue(0.5);
    ASSERT_TRUE(resultShown());
    model.selection().setCurrentChosen(0);
    changes[i]();
    EXPECT_FALSE(model.visible(ControlId::Ergebnis) || model.visible(ControlId::ReportButton))
        << "change " << i;
  }
  runWithResidue(0.5);
  model.selection().setSelected(0, true);
  model.selection().clearSelection();
  model.selection().setCurrentChosen(-1);
  model.selection().raus();
  EXPECT_TRUE(resultShown());
}

TEST_F(SingleRunTest, StatementColourAndRefusals) {
  runWithResidue(0.1);
  ASSERT_TRUE(resultShown());
  EXPECT_EQ(model.result().text,
            "Maximum content dietary burden based on Example A is 0.100 mg/kg.");
  EXPECT_FALSE(model.result().red);
  model.setDecimalSeparator(',');
  runWithResidue(0.1001);  // shown as the limit, but above it
  EXPECT_EQ(model.result().text,
            "Maximum content dietary burden based on Example A is 0,100 mg/kg.");
  EXPECT_TRUE(model.result().red);
  model.options().setAllScenariosMode(true);  // repeated from the report window: no statement
  model.EinfacheOptimierung();
  EXPECT_FALSE(model.visible(ControlId::Ergebnis));

  // A refusal shows its message, the chosen list's caption red meanwhile, and hides the result.
  bool redWhileShown = false;
  dialogs.onMessage = [&] { redWhileShown = model.chosenCaptionRed(); };
  runWithResidue(0.2);
  ASSERT_TRUE(resultShown());
  model.selection().alle_raus();
  model.options().setPseudoComponents({true, false, false});  // alone they are no components
  model.Optimierung_Click();
  EXPECT_TRUE(redWhileShown);
  EXPECT_FALSE(model.chosenCaptionRed() || model.visible(ControlId::Ergebnis));

  load();
  model.options().setPseudoComponents({false, false, false});
  choose({0});  // wheat alone cannot reach 35 % protein
  dialogs.messages.clear();
  model.Optimierung_Click();
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"The problem is not solvable. Add more or try different "
                                     "components."});
}

}  // namespace
}  // namespace pescavo
