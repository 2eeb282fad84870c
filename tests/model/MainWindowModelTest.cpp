#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "engine/MainWindowModel.h"

namespace pescavo {
namespace {

class ScriptedDialogs : public Dialogs {
 public:
  void information(const std::string& text) override {
    messages.push_back(text);
    if (onMessage) onMessage();
  }
  bool askYesNo(const std::string&) override { return false; }
  std::vector<std::string> messages;
  std::function<void()> onMessage;
};

FeedComponent component(const std::string& crop, double cp, double cl, double dm, double maxCarp,
                        double maxTrout) {
  return {"By-Products", crop, "feed", "IFN-" + crop, cp, cl, dm, maxCarp, maxTrout};
}

// Five components; substance A has residues on all but Oats, substance B on Maize and Rape
// (and a negative one on Oats, which is not offered either).
class ModelTest : public ::testing::Test {
 protected:
  ModelTest() : model(dialogs, '.') {}
  void SetUp() override {
    ComponentTable& table = model.table;
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
  std::string chosen() const {
    std::string texts;
    for (const ListEntry& entry : model.fischfutter2) texts += entry.text + ";";
    return texts;
  }
  void pseudos(bool pc, bool cc, bool f) {
    model.setCheck1(pc);
    model.setCheck4(cc);
    model.setCheck5(f);
  }

  ScriptedDialogs dialogs;
  MainWindowModel model;
};

TEST_F(ModelTest, AvailableListFollowsTheSubstance) {
  EXPECT_EQ(model.fischfutter1.size(), 4u);
  EXPECT_EQ(model.fischfutter1[2].text, "Soybean (feed)");
  EXPECT_EQ(model.fischfutter1[2].artSchadstoffwert, "1");
  choose({0});
  model.selectSubstance(1);
  ASSERT_EQ(model.fischfutter1.size(), 2u);
  EXPECT_EQ(model.fischfutter1[1].text, "Rape (feed)");
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_TRUE(model.rausEnabled);  // left as it was
}

TEST_F(ModelTest, GridAndTooltipTexts) {
  const auto rows = lade_Schadstoffwerte(model.table, 1);
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[0], (std::array<std::string, 6>{"Category", "Crop", "Commodity", "IFN Code",
                                                 "residue input value", "residue value (mg/kg)"}));
  EXPECT_EQ(rows[4], (std::array<std::string, 6>{"By-Products", "Soybean", "feed", "IFN-Soybean",
                                                 "STMR-P", ""}));
  EXPECT_EQ(lade_Schadstoffwerte(model.table, 2)[4][4], "STMR");
  EXPECT_EQ(model.tooltipText(0),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1.2 mg/kg. "
            "Max. content in food: 40 %");
  model.setFischarten(1);
  model.decimalSeparator = ',';
  EXPECT_EQ(model.tooltipText(0),
            "Protein content: 13 %, Lipid content: 2 %  Testicide content: 1,2 mg/kg. "
            "Max. content in food: 30 %");
  EXPECT_EQ(model.tooltipText(-1), "");
}

TEST_F(ModelTest, MovingInAndOut) {
  EXPECT_FALSE(model.rausEnabled || model.alleRausEnabled);
  choose({1});
  EXPECT_TRUE(model.rausEnabled && model.alleRausEnabled);
  choose({3, 0, 1});  // Maize is there already: two more, in list order
  EXPECT_EQ(chosen(), "Maize (feed);Wheat (feed);Rape (feed);");
  model.alle_rein();
  model.fischfutter2.push_back({"Ghost (feed)", "feed", "Fat", "0"});
  EXPECT_EQ(model.fischfutter2.size(), 5u);

  // Removing keeps the current position in range: 2 of 5 stays 2, the last goes one up.
  model.setCurrent2(2);
  model.raus();
  EXPECT_EQ(chosen(), "Maize (feed);Wheat (feed);Soybean (feed);Ghost (feed);");
  EXPECT_EQ(model.current2, 2);
  model.setCurrent2(3);
  model.raus();
  EXPECT_EQ(model.current2, 2);
  model.setCurrent2(-1);
  model.raus();
  EXPECT_EQ(model.fischfutter2.size(), 3u);

  model.reinEnabled = false;
  for (int left = 3; left > 0; --left) model.setCurrent2(0), model.raus();
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_TRUE(model.reinEnabled);
  EXPECT_FALSE(model.rausEnabled || model.alleRausEnabled);

  choose({0, 1});
  model.alle_raus();
  EXPECT_TRUE(model.fischfutter2.empty());
  EXPECT_FALSE(model.rausEnabled || model.alleRausEnabled);
}

TEST_F(ModelTest, EveryChangeWithdrawsTheResult) {
  const std::vector<std::function<void()>> changes = {[&] { model.setOption1(true); },
                                                      [&] { model.setOption3(false); },
                                                      [&] { model.setCheck1(false); },
                                                      [&] { model.setCheck2(false); },
                                                      [&] { model.setCheck4(false); },
                                                      [&] { model.setCheck5(false); },
                                                      [&] { model.setFischmehl(1); },
                                                      [&] { model.setFischarten(1); },
                                                      [&] { model.setMinMax(1); },
                                                      [&] { model.selectSubstance(0); },
                                                      [&] { choose({0}); },
                                                      [&] { model.alle_rein(); },
                                                      [&] { model.raus(); },
                                                      [&] { model.alle_raus(); }};
  for (size_t i = 0; i < changes.size(); ++i) {
    model.ergebnisVisible = model.reportButtonVisible = true;
    model.setCurrent2(0);
    changes[i]();
    EXPECT_FALSE(model.ergebnisVisible || model.reportButtonVisible) << "change " << i;
  }
}

TEST_F(ModelTest, LadenBuildsTheProgrammeFromTheLists) {
  choose({3, 0, 2});  // Wheat, Soybean, Rape
  model.fischfutter2[1].commodity = "stale";
  model.fischfutter2.push_back({"Ghost (feed)", "feed", "Fat", "0"});  // matches nothing
  model.setFischmehl(4);
  model.Laden();
  const OptimisationProblem& p = model.problem;
  ASSERT_EQ(p.n, 7);
  EXPECT_EQ(p.chosenCount, 4);
  EXPECT_EQ(model.fischfutter2[1].commodity, "feed");
  EXPECT_EQ(p.residue[0], 1.2 / 88 * 100);    // divide first, then multiply
  EXPECT_EQ(p.residueSum, 1.2 + 0.8 + 0.02);  // as read, in list order
  EXPECT_EQ(p.maxInclusion[1], 35);
  EXPECT_EQ(p.maxInclusion[3], 0);
  EXPECT_EQ(p.ifnCode[2], "IFN-Rape");
  const double pseudo[3][2] = {{8, 70}, {0.1, 0.1}, {100, 0}};  // PC of grade 4, CC, F
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(p.lipid[4 + k], pseudo[k][0]);
    EXPECT_EQ(p.protein[4 + k], pseudo[k][1]);
    EXPECT_EQ(p.residue[4 + k], 0);
    EXPECT_EQ(p.maxInclusion[4 + k], 100);
  }
  EXPECT_EQ(p.proteinTarget, 35);
  EXPECT_EQ(p.unitOrder, 7);

  model.setCheck2(false);
  model.setCheck4(false);
  model.setFischarten(1);
  model.Laden();
  ASSERT_EQ(model.problem.n, 6);
  EXPECT_EQ(model.problem.lipid[5], 100);  // F follows PC directly
  for (double limit : model.problem.maxInclusion) EXPECT_EQ(limit, 100);
  EXPECT_EQ(model.problem.proteinTarget, 42);
}

// Many available entries, texts alike at both ends and some repeated: each chosen entry takes
// the values of the last available entry with its text, as a scan from the end finds it, also
// when the lists change between runs (the lookup is kept from run to run).
TEST_F(ModelTest, LadenTakesTheLastAvailableEntryOfEachText) {
  const auto text = [](int k) { return "Crop " + std::to_string(k % 211) + " (by-product)"; };
  model.fischfutter1.clear(), model.workingSet.clear(), model.fischfutter2.clear();
  for (int q = 0; q < 600; ++q) {
    model.fischfutter1.push_back({text(q), "feed", "Forages", "0"});
    model.workingSet.push_back({double(q), 1, 1, 100, 100, 90, ""});
  }
  for (int k : {0, 5, 210, 211, 399, 577}) model.fischfutter2.push_back({text(k), "", "", "0"});
  model.fischfutter2.push_back({"Crop 9999 (by-product)", "", "", "0"});
  model.check1 = model.check4 = model.check5 = false;
  const auto expectLastEntries = [&](const std::string& run) {
    model.Laden();
    const int chosen = static_cast<int>(model.fischfutter2.size());
    ASSERT_EQ(model.problem.n, chosen) << run;
    for (int p = 0; p < chosen; ++p) {
      double expected = -1;  // no match keeps zeros
      for (int q = static_cast<int>(model.fischfutter1.size()) - 1; q >= 0 && expected < 0; --q)
        if (model.fischfutter1[q].text == model.fischfutter2[p].text) expected = q;
      EXPECT_EQ(model.problem.lipid[p], expected < 0 ? 0 : expected)
          << run << ": " << model.fischfutter2[p].text;
      EXPECT_EQ(model.problem.maxInclusion[p], expected < 0 ? 0 : 100) << run;
    }
  };
  expectLastEntries("first run");
  expectLastEntries("same lists again");
  model.fischfutter1[590].text = text(5);  // a later entry now shows a chosen text
  expectLastEntries("later duplicate");
  model.fischfutter1[577].text[5] = 'X';  // the match of "Crop 155 (...)", edited in place
  expectLastEntries("edited entry");
  model.fischfutter1.resize(500), model.workingSet.resize(500);
  model.fischfutter2[0].text = model.fischfutter1[499].text;
  expectLastEntries("shorter list");
}

// A component that meets the carp targets alone; DM 0 keeps its residue unconverted, so the
// burden is exactly the residue set.
class SingleRunTest : public ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    model.table.addComponent(component("Target", 35, 8, 0, 100, 100));
    pseudos(false, false, false);
  }
  void runWithResidue(double residue) {
    model.table.setResidue(1, 6, residue);
    model.Futterliste_aktualisieren();
    choose({4});
    model.Optimierung_Click();
  }
};

TEST_F(SingleRunTest, StatementRoundingAndColour) {
  const struct {
    double residue;
    bool minimum;
    char separator;
    const char* statement;
    bool red;
  } cases[] = {
      {0.1, false, '.', "Maximum content dietary burden based on Example A is 0.100 mg/kg.", false},
      {0.1001, false, '.', "Maximum content dietary burden based on Example A is 0.100 mg/kg.",
       true},
      {0.0004, false, '.', "Maximum content dietary burden based on Example A is 0.000 mg/kg.",
       false},
      {0.0005, true, ',', "Minimum content dietary burden based on Example A is 0,001 mg/kg.",
       false},
  };
  for (const auto& c : cases) {
    model.setOption1(c.minimum);
    model.decimalSeparator = c.separator;
    runWithResidue(c.residue);
    ASSERT_TRUE(model.ergebnisVisible && model.reportButtonVisible) << c.residue;
    EXPECT_EQ(model.ergebnisText, c.statement);
    EXPECT_EQ(model.ergebnisRed, c.red) << c.residue;
  }
}

TEST_F(SingleRunTest, RefusalsShowTheirMessageAndHideTheResult) {
  bool redWhileShown = false;
  dialogs.onMessage = [&] { redWhileShown = model.label1Red; };
  model.setCheck1(true);  // pseudo-components alone are no components
  model.ergebnisVisible = true;
  model.Optimierung_Click();
  EXPECT_TRUE(redWhileShown);
  EXPECT_FALSE(model.label1Red || model.ergebnisVisible);

  model.fischfutter2.push_back({"Ghost (feed)", "feed", "Fat", "0"});
  model.Optimierung_Click();
  model.alle_raus();
  model.setCheck1(false);
  choose({0});  // wheat alone cannot reach 35 % protein
  model.ergebnisVisible = true;
  model.Optimierung_Click();
  EXPECT_EQ(dialogs.messages,
            (std::vector<std::string>{
                "Please add components.",
                "The residue values of substances are possiblibly all zero. Check the "
                "pollutants value and try again.",
                "The problem is not solvable. Add more or try different components."}));
  EXPECT_FALSE(model.ergebnisVisible || model.reportButtonVisible);
}

TEST_F(SingleRunTest, RunSetsTheHiddenChoosersFromTheOptions) {
  runWithResidue(0.2);
  model.setOption3(false);
  model.setFischmehl(0);
  model.setCheck1(true);
  model.Optimierung_Click();
  EXPECT_EQ(model.fischarten, 1);
  EXPECT_EQ(model.problem.protein[1], 65);  // PC is always the third grade
  EXPECT_EQ(model.problem.lipidTarget, 15);

  model.setOption3(true);
  model.allScenariosMode = true;  // repeated from the report window: no statement
  model.EinfacheOptimierung();
  EXPECT_TRUE(model.result.solvable);
  EXPECT_FALSE(model.ergebnisVisible);

  model.simpleMode = true;  // every available component takes part
  model.alle_raus();
  model.Optimierung_Click();
  EXPECT_EQ(model.fischfutter2.size(), model.fischfutter1.size());
}

// Only 100 % of the second component meets both targets; the method reports the first
// one's residue, and the check says so beside the statement.
TEST_F(ModelTest, EveryRunIsCheckedIndependently) {
  model.table.addComponent(component("First", 20, 10, 100, 100, 100));
  model.table.addComponent(component("Second", 35, 10, 100, 100, 100));
  model.table.setResidue(2, 6, 3);
  model.table.setResidue(2, 7, 5);
  model.species[0] = {"Common carp", 10, 35};
  model.selectSubstance(1);
  choose({2, 3});
  pseudos(false, false, false);
  model.setCheck2(false);
  model.setOption1(true);
  model.Optimierung_Click();
  EXPECT_EQ(model.ergebnisText,
            "Minimum content dietary burden based on Example B is 3.000 mg/kg.");
  EXPECT_EQ(model.check.verdict, CheckVerdict::Differs);
  EXPECT_EQ(model.checkSentence.rfind("Independent check: the true minimum is 5.000 mg/kg; the "
                                      "optimisation reported 3.000 mg/kg",
                                      0),
            0u)
      << model.checkSentence;
  model.setOption1(false);
  model.Optimierung_Click();
  EXPECT_EQ(model.checkSentence, "Independent check: agrees.");
}

TEST(MinimumTest, ReturnsTheSmallerOrTheFirst) {
  EXPECT_EQ(MainWindowModel::Minimum(3, 5), 3);
  EXPECT_EQ(MainWindowModel::Minimum(5, 3), 3);
  EXPECT_EQ(MainWindowModel::Minimum(-1, 0), -1);
}

}  // namespace
}  // namespace pescavo
