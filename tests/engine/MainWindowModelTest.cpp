#include "engine/MainWindowModel.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace pescavo {
namespace {

class ScriptedDialogs : public Dialogs {
 public:
  void information(const std::string& text) override {
    messages.push_back(text);
    if (onMessage) onMessage(text);
  }
  bool askYesNo(const std::string& text) override {
    messages.push_back(text);
    return false;
  }
  std::vector<std::string> messages;
  std::function<void(const std::string&)> onMessage;
};

FeedComponent component(const std::string& crop, const std::string& commodity, double cp,
                        double cl, double dm, double maxCarp, double maxTrout) {
  FeedComponent c;
  c.category = "Cereal Grains/ Crop Seeds";
  c.crop = crop;
  c.commodity = commodity;
  c.ifnCode = "4-00-" + crop.substr(0, 3);
  c.cp = cp;
  c.cl = cl;
  c.dm = dm;
  c.maxCarp = maxCarp;
  c.maxTrout = maxTrout;
  return c;
}

class ModelTest : public ::testing::Test {
 protected:
  ModelTest() : model(dialogs, '.') {}

  // Five components; substance 1 has residues on all but "Oats", substance 2 only on two.
  void SetUp() override {
    ComponentTable& table = model.table;
    table.addSubstance("Example A");
    table.addSubstance("Example B");
    table.addComponent(component("Wheat", "grain", 13, 2, 88, 40, 30));
    table.addComponent(component("Maize", "grain", 9, 4, 86, 50, 20));
    table.addComponent(component("Oats", "grain", 12, 5, 89, 30, 10));
    table.addComponent(component("Soybean", "meal", 50, 2, 89, 35, 25));
    table.addComponent(component("Rape", "oil", 0, 100, 100, 10, 15));
    const double residuesA[] = {1.2, 0.5, 0, 0.8, 0.02};
    for (int i = 1; i <= 5; ++i) table.setResidue(1, i, residuesA[i - 1]);
    table.setBasis(1, 4, 1);
    table.setResidue(2, 2, 0.3);
    table.setResidue(2, 3, -1);
    table.setResidue(2, 5, 0.4);
    model.species = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
    model.fishmeal = {{60, 12}, {62, 11}, {65, 10}, {68, 9}, {70, 8}};
    model.schadstoff = 0;
    model.Futterliste_aktualisieren();
  }

  void choose(std::initializer_list<int> positions) {
    model.selected1.assign(model.fischfutter1.size(), false);
    for (int p : positions) model.setSelected1(p, true);
    model.Rein();
  }

  std::vector<std::string> chosenTexts() const {
    std::vector<std::string> texts;
    for (const ListEntry& entry : model.fischfutter2) texts.push_back(entry.text);
    return texts;
  }

  ScriptedDialogs dialogs;
  MainWindowModel model;
};

TEST_F(ModelTest, AvailableListFollowsTheSubstance) {
  ASSERT_EQ(model.fischfutter1.size(), 4u);
  EXPECT_EQ(model.fischfutter1[0].text, "Wheat (grain)");
  EXPECT_EQ(model.fischfutter1[2].text, "Soybean (meal)");
  EXPECT_EQ(model.fischfutter1[2].artSchadstoffwert, "1");
  choose({0});
  model.selectSubstance(1);
  // Zero and negative residues are not offered; the chosen list is emptied, the buttons stay.
  ASSERT_EQ(model.fischfutter1.size(), 2u);
  EXPECT_EQ(model.fischfutter1[0].text, "Maize (grain)");
  EXPECT_EQ(model.fischfutter1[1].text, "Rape (oil)");
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_TRUE(model.rausEnabled);
}

TEST_F(ModelTest, MovingInSkipsEntriesAlreadyChosen) {
  EXPECT_FALSE(model.rausEnabled);
  EXPECT_FALSE(model.alleRausEnabled);
  choose({1});
  EXPECT_TRUE(model.rausEnabled);
  EXPECT_TRUE(model.alleRausEnabled);
  choose({0, 1, 3});
  EXPECT_EQ(chosenTexts(),
            (std::vector<std::string>{"Maize (grain)", "Wheat (grain)", "Rape (oil)"}));
  EXPECT_EQ(model.fischfutter2[2].commodity, "oil");

  model.ergebnisVisible = model.reportButtonVisible = true;
  model.alle_rein();
  EXPECT_EQ(model.fischfutter2.size(), 4u);
  EXPECT_FALSE(model.ergebnisVisible);
  EXPECT_FALSE(model.reportButtonVisible);
}

TEST_F(ModelTest, MovingAllOfAnEmptyListOnlyWithdrawsTheResult) {
  model.selectSubstance(1);
  model.table.setResidue(2, 2, 0);
  model.table.setResidue(2, 5, 0);
  model.selectSubstance(1);
  ASSERT_TRUE(model.fischfutter1.empty());
  model.ergebnisVisible = true;
  model.alle_rein();
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_FALSE(model.ergebnisVisible);
  EXPECT_FALSE(model.rausEnabled);
}

TEST_F(ModelTest, RemovingKeepsTheCurrentPositionInRange) {
  // Five entries: the available four plus one the engine will not find.
  model.alle_rein();
  model.fischfutter2.push_back({"Ghost (grain)", "grain", "Fat", "0"});
  model.setCurrent2(2);
  model.raus();
  EXPECT_EQ(model.fischfutter2.size(), 4u);
  EXPECT_EQ(model.current2, 2);
  EXPECT_EQ(model.fischfutter2[2].text, "Rape (oil)");
  model.setCurrent2(3);
  model.raus();
  EXPECT_EQ(model.current2, 2);

  model.setCurrent2(-1);
  model.raus();
  EXPECT_EQ(model.fischfutter2.size(), 3u);

  model.setCurrent2(2);
  model.reinEnabled = false;
  for (int left = 3; left > 0; --left) model.raus();
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_EQ(model.current2, -1);
  EXPECT_TRUE(model.reinEnabled);
  EXPECT_FALSE(model.rausEnabled);
  EXPECT_FALSE(model.alleRausEnabled);
  model.raus();  // nothing current: no effect, no error
}

TEST_F(ModelTest, RemovingAllDisablesTheRemoveButtons) {
  model.alle_rein();
  model.ergebnisVisible = true;
  model.alle_raus();
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_FALSE(model.ergebnisVisible);
  EXPECT_FALSE(model.rausEnabled);
  EXPECT_FALSE(model.alleRausEnabled);
}

TEST_F(ModelTest, TooltipUsesTheSpeciesChooser) {
  EXPECT_EQ(model.tooltipText(0),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1.2 mg/kg. "
            "Max. content in food: 40 %");
  model.setFischarten(1);
  EXPECT_EQ(model.tooltipText(0),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1.2 mg/kg. "
            "Max. content in food: 30 %");
  EXPECT_EQ(model.tooltipText(-1), "");
  MainWindowModel comma(dialogs, ',');
  comma.table = model.table;
  comma.species = model.species;
  comma.schadstoff = 0;
  comma.Futterliste_aktualisieren();
  EXPECT_EQ(comma.tooltipText(0),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1,2 mg/kg. "
            "Max. content in food: 40 %");
}

TEST_F(ModelTest, OptionChangesWithdrawTheResult) {
  const std::vector<std::function<void()>> changes = {
      [&] { model.setOption1(true); },  [&] { model.setOption3(false); },
      [&] { model.setCheck1(false); },  [&] { model.setCheck2(false); },
      [&] { model.setCheck4(false); },  [&] { model.setCheck5(false); },
      [&] { model.setFischmehl(1); },   [&] { model.setFischarten(1); },
      [&] { model.setMinMax(1); },      [&] { model.selectSubstance(0); }};
  for (size_t i = 0; i < changes.size(); ++i) {
    model.ergebnisVisible = model.reportButtonVisible = true;
    changes[i]();
    EXPECT_FALSE(model.ergebnisVisible) << "change " << i;
    EXPECT_FALSE(model.reportButtonVisible) << "change " << i;
  }
}

TEST_F(ModelTest, LadenBuildsTheProgrammeFromTheLists) {
  choose({3, 0, 2});  // in list order: Wheat, Soybean, Rape
  model.fischfutter2[1].commodity = "stale";
  model.setFischmehl(4);
  model.Laden();
  const OptimisationProblem& p = model.problem;
  ASSERT_EQ(p.n, 6);
  EXPECT_EQ(p.chosenCount, 3);
  EXPECT_EQ(model.fischfutter2[1].commodity, "meal");
  EXPECT_EQ(p.lipid[1], 2);
  EXPECT_EQ(p.protein[1], 50);
  EXPECT_EQ(p.lipid[2], 100);
  EXPECT_EQ(p.residue[0], 1.2 / 88 * 100);  // divide first, then multiply
  EXPECT_EQ(p.maxInclusion[1], 35);
  EXPECT_EQ(p.ifnCode[2], "4-00-Rap");
  EXPECT_EQ(p.residueSum, 1.2 + 0.8 + 0.02);
  // PC from the chosen grade, CC, F: uncontaminated, limit 100.
  EXPECT_EQ(p.lipid[3], 8);
  EXPECT_EQ(p.protein[3], 70);
  EXPECT_EQ(p.lipid[4], 0.1);
  EXPECT_EQ(p.protein[4], 0.1);
  EXPECT_EQ(p.lipid[5], 100);
  EXPECT_EQ(p.protein[5], 0);
  for (int j = 3; j < 6; ++j) {
    EXPECT_EQ(p.residue[j], 0);
    EXPECT_EQ(p.maxInclusion[j], 100);
  }
  EXPECT_EQ(p.lipidTarget, 8);
  EXPECT_EQ(p.proteinTarget, 35);
  EXPECT_EQ(p.unitOrder, 7);

  model.setCheck2(false);
  model.setCheck4(false);
  model.setFischarten(1);
  model.Laden();
  ASSERT_EQ(model.problem.n, 5);
  EXPECT_EQ(model.problem.lipid[4], 100);  // F follows PC directly
  for (int j = 0; j < 5; ++j) EXPECT_EQ(model.problem.maxInclusion[j], 100);
  EXPECT_EQ(model.problem.proteinTarget, 42);
}

TEST_F(ModelTest, LadenKeepsZerosForAnEntryWithoutMatch) {
  model.fischfutter2.push_back({"Ghost (grain)", "grain", "Fat", "0"});
  model.setCheck1(false);
  model.setCheck4(false);
  model.setCheck5(false);
  model.Laden();
  ASSERT_EQ(model.problem.n, 1);
  EXPECT_EQ(model.problem.residue[0], 0);
  EXPECT_EQ(model.problem.maxInclusion[0], 0);
  EXPECT_EQ(model.problem.residueSum, 0);
}

// A component that meets the carp targets alone, with a residue chosen per test.
class SingleRunTest : public ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    // DM 0 keeps the residue unconverted, so the burden is exactly the value set.
    model.table.addComponent(component("Target", "feed", 35, 8, 0, 100, 100));
    model.table.setResidue(1, 6, 0.1);
    model.Futterliste_aktualisieren();
    model.setCheck1(false);
    model.setCheck4(false);
    model.setCheck5(false);
  }
  void runWithResidue(double residue) {
    model.table.setResidue(1, 6, residue);
    model.Futterliste_aktualisieren();
    choose({4});
    model.Optimierung_Click();
  }
};

TEST_F(SingleRunTest, StatementIsRedOnlyAboveOneTenth) {
  runWithResidue(0.1);
  ASSERT_TRUE(model.ergebnisVisible);
  EXPECT_TRUE(model.reportButtonVisible);
  EXPECT_EQ(model.ergebnisText,
            "Maximum content dietary burden based on Example A is 0.100 mg/kg.");
  EXPECT_FALSE(model.ergebnisRed);
  runWithResidue(0.1001);
  EXPECT_EQ(model.ergebnisText,
            "Maximum content dietary burden based on Example A is 0.100 mg/kg.");
  EXPECT_TRUE(model.ergebnisRed);
}

TEST_F(SingleRunTest, StatementRoundsHalfAwayFromZero) {
  runWithResidue(0.0004);
  EXPECT_EQ(model.ergebnisText,
            "Maximum content dietary burden based on Example A is 0.000 mg/kg.");
  runWithResidue(0.0005);
  EXPECT_EQ(model.ergebnisText,
            "Maximum content dietary burden based on Example A is 0.001 mg/kg.");
  model.setOption1(true);
  model.decimalSeparator = ',';
  model.Optimierung_Click();
  EXPECT_EQ(model.ergebnisText,
            "Minimum content dietary burden based on Example A is 0,001 mg/kg.");
  EXPECT_EQ(model.minMax, 1);
}

TEST_F(SingleRunTest, RefusalsShowTheirMessageAndHideTheResult) {
  bool redWhileShown = false;
  dialogs.onMessage = [&](const std::string&) { redWhileShown = model.label1Red; };
  model.ergebnisVisible = true;
  model.Optimierung_Click();
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0], "Please add components.");
  EXPECT_TRUE(redWhileShown);
  EXPECT_FALSE(model.label1Red);
  EXPECT_FALSE(model.ergebnisVisible);

  // Pseudo-components alone are no components.
  model.setCheck1(true);
  model.Optimierung_Click();
  EXPECT_EQ(dialogs.messages.size(), 2u);

  dialogs.onMessage = nullptr;
  model.fischfutter2.push_back({"Ghost (grain)", "grain", "Fat", "0"});
  model.Optimierung_Click();
  EXPECT_EQ(dialogs.messages.back(),
            "The residue values of substances are possiblibly all zero. Check the pollutants "
            "value and try again.");

  model.alle_raus();
  model.setCheck1(false);
  choose({0});  // wheat alone cannot reach 35 % protein
  model.Optimierung_Click();
  EXPECT_EQ(dialogs.messages.back(),
            "The problem is not solvable. Add more or try different components.");
  EXPECT_FALSE(model.ergebnisVisible);
  EXPECT_FALSE(model.reportButtonVisible);
}

TEST_F(SingleRunTest, RunSetsTheHiddenChoosersFromTheOptions) {
  runWithResidue(0.2);
  model.setOption3(false);
  model.setFischmehl(0);
  model.setCheck1(true);
  model.Optimierung_Click();
  EXPECT_EQ(model.fischarten, 1);
  EXPECT_EQ(model.fischmehl, 2);
  EXPECT_EQ(model.problem.protein[1], 65);  // PC is always the third grade
  EXPECT_EQ(model.problem.lipidTarget, 15);

  // Repeated from the report window: solved, but no statement.
  model.setOption3(true);
  model.allScenariosMode = true;
  model.EinfacheOptimierung();
  EXPECT_TRUE(model.result.solvable);
  EXPECT_FALSE(model.ergebnisVisible);
}

TEST_F(SingleRunTest, SimpleModeTakesEveryAvailableComponent) {
  model.simpleMode = true;
  choose({1});
  model.Optimierung_Click();
  ASSERT_EQ(model.fischfutter2.size(), model.fischfutter1.size());
  for (size_t p = 0; p < model.fischfutter1.size(); ++p)
    EXPECT_EQ(model.fischfutter2[p].text, model.fischfutter1[p].text);
}

// The example of two components where only 100 % of the second meets both targets: the
// method reports the first one's residue; the check says so beside the statement.
TEST_F(ModelTest, EveryRunIsCheckedIndependently) {
  ComponentTable& table = model.table;
  table.addComponent(component("First", "feed", 20, 10, 100, 100, 100));
  table.addComponent(component("Second", "feed", 35, 10, 100, 100, 100));
  table.setResidue(2, 6, 3);
  table.setResidue(2, 7, 5);
  model.species[0] = {"Common carp", 10, 35};
  model.selectSubstance(1);
  model.alle_raus();
  choose({2, 3});
  model.setCheck1(false);
  model.setCheck4(false);
  model.setCheck5(false);
  model.setCheck2(false);
  model.setOption1(true);
  model.Optimierung_Click();
  ASSERT_TRUE(model.ergebnisVisible);
  EXPECT_EQ(model.ergebnisText,
            "Minimum content dietary burden based on Example B is 3.000 mg/kg.");
  EXPECT_EQ(model.check.verdict, CheckVerdict::Differs);
  EXPECT_EQ(model.checkSentence.rfind(
                "Independent check: the true minimum is 5.000 mg/kg; the optimisation reported "
                "3.000 mg/kg",
                0),
            0u)
      << model.checkSentence;

  model.setOption1(false);
  model.Optimierung_Click();
  EXPECT_EQ(model.check.verdict, CheckVerdict::Agrees);
  EXPECT_EQ(model.checkSentence, "Independent check: agrees.");
}

TEST(MinimumTest, ReturnsTheSmallerOrTheFirst) {
  EXPECT_EQ(MainWindowModel::Minimum(3, 5), 3);
  EXPECT_EQ(MainWindowModel::Minimum(5, 3), 3);
  EXPECT_EQ(MainWindowModel::Minimum(-1, 0), -1);
}

}  // namespace
}  // namespace pescavo
