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
  void pseudos(bool pc, bool cc, bool f) { model.options().setPseudoComponents({pc, cc, f}); }
  bool resultShown() const {
    return model.visible(ControlId::Ergebnis) && model.visible(ControlId::ReportButton);
  }
};

// Another substance empties the chosen list but leaves "<---" as it was.
TEST_F(ModelTest, AnotherSubstanceEmptiesTheChosenList) {
  choose({0});
  model.selectSubstance(1);
  EXPECT_EQ(model.selection().available().size(), 2u);
  EXPECT_TRUE(model.selection().chosen().empty() && model.enabled(ControlId::raus));
}

TEST_F(ModelTest, GridAndTooltipTexts) {
  const auto rows = lade_Schadstoffwerte(model.database().table(), 1);
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[4], (std::array<std::string, 6>{"By-Products", "Soybean", "feed", "IFN-Soybean",
                                                 "STMR-P", ""}));
  EXPECT_EQ(lade_Schadstoffwerte(model.database().table(), 2)[4][4], "STMR");
  model.Fischfutter1_MouseDown(-1, 5, 5);  // no current item: nothing
  EXPECT_EQ(model.selection().availableTooltip(), "");
  // The tooltip names the limit of the species the hidden chooser holds.
  model.options().setSpecies(1);
  model.setDecimalSeparator(',');
  model.Fischfutter1_MouseDown(0, 0, 0);
  EXPECT_EQ(model.selection().availableTooltip(),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1,2 mg/kg. "
            "Max. content in food: 30 %");
}

// A feed that meets the carp targets, so that a run shows its result before each change.
TEST_F(ModelTest, EveryChangeWithdrawsTheResult) {
  table.addComponent(component("Target", 35, 8, 0, 100, 100));
  table.setResidue(1, 6, 0.5);
  const std::vector<std::function<void()>> changes = {
      [&] { model.options().setMrbdLimits(false); }, [&] { model.selectSubstance(0); },
      [&] { choose({0}); }, [&] { model.selection().raus(); },
      [&] { model.selection().alle_raus(); }};
  for (size_t i = 0; i < changes.size(); ++i) {
    load();
    pseudos(false, false, false);
    model.options().setCriterionOption(Criterion::Maximum);
    model.options().setSpeciesOption(Species::CommonCarp);
    model.options().setMrbdLimits(true);
    choose({4});
    model.Optimierung_Click();
    ASSERT_TRUE(resultShown()) << dialogs.messages.back();
    model.selection().setCurrentChosen(0);
    changes[i]();
    EXPECT_FALSE(model.visible(ControlId::Ergebnis) || model.visible(ControlId::ReportButton))
        << "change " << i;
  }
  // Selecting, and "<---" with no current entry, change nothing that ran.
  choose({4});
  model.Optimierung_Click();
  ASSERT_TRUE(resultShown());
  model.selection().setSelected(0, true);
  model.selection().clearSelection();
  model.selection().setCurrentChosen(-1);
  model.selection().raus();
  EXPECT_TRUE(resultShown());
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
    pseudos(false, false, false);
    choose({4});
    model.Optimierung_Click();
  }
};

TEST_F(SingleRunTest, StatementAndColour) {
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
}

TEST_F(SingleRunTest, ARefusalShowsItsMessageAndHidesTheResult) {
  bool redWhileShown = false;
  dialogs.onMessage = [&] { redWhileShown = model.chosenCaptionRed(); };
  runWithResidue(0.2);
  ASSERT_TRUE(resultShown());
  model.selection().alle_raus();
  pseudos(true, false, false);  // pseudo-components alone are no components
  model.Optimierung_Click();
  EXPECT_TRUE(redWhileShown);
  EXPECT_FALSE(model.chosenCaptionRed() || model.visible(ControlId::Ergebnis));

  load();
  pseudos(false, false, false);
  choose({0});  // wheat alone cannot reach 35 % protein
  dialogs.messages.clear();
  model.Optimierung_Click();
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"The problem is not solvable. Add more or try different "
                                     "components."});
  EXPECT_FALSE(model.visible(ControlId::Ergebnis) || model.visible(ControlId::ReportButton));
}

}  // namespace
}  // namespace pescavo
