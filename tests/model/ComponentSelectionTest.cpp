#include <gtest/gtest.h>

#include <string>

#include "model/ComponentSelection.h"

namespace pescavo {
namespace {

// Substance 1 has residues on Wheat, Maize, Soybean and Rape; substance 2 on Maize alone.
class ComponentSelectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    table.addSubstance("Example A");
    table.addSubstance("Example B");
    const char* crops[] = {"Wheat", "Maize", "Oats", "Soybean", "Rape"};
    for (int i = 0; i < 5; ++i)
      table.addComponent({"By-Products", crops[i], "feed", "", 13.0 + i, 2, 88, 40, 30.5});
    const double residues[2][5] = {{1.2, 0.5, 0, 0.8, 0.02}, {0, 0.3, -1, 0, 0}};
    for (int s = 1; s <= 2; ++s)
      for (int i = 1; i <= 5; ++i) table.setResidue(s, i, residues[s - 1][i - 1]);
    selection.reset(table, 0);
  }
  void choose(std::initializer_list<int> positions) {
    selection.clearSelection();
    for (int p : positions) selection.setSelected(p, true);
    selection.Rein();
  }
  // The chosen texts, the current entry and, where enabled, "<---".
  std::string state() const {
    std::string texts;
    for (const ListEntry& entry : selection.chosen()) texts += entry.text + ";";
    return texts + " @" + std::to_string(selection.currentChosen()) +
           (selection.removeEnabled() ? " <---" : "");
  }

  ComponentTable table;
  ComponentSelection selection;
};

TEST_F(ComponentSelectionTest, MovingInAndOut) {
  EXPECT_EQ(state(), " @-1");
  choose({1});
  EXPECT_EQ(state(), "Maize (feed); @-1 <---");
  selection.alle_rein();  // Maize is there already: the others in list order
  EXPECT_EQ(state(), "Maize (feed);Wheat (feed);Soybean (feed);Rape (feed); @-1 <---");

  // Removing keeps the current position in range: 1 of 4 stays 1, the last goes one up.
  selection.setCurrentChosen(1);
  selection.raus();
  EXPECT_EQ(state(), "Maize (feed);Soybean (feed);Rape (feed); @1 <---");
  selection.setCurrentChosen(2);
  selection.raus();
  EXPECT_EQ(state(), "Maize (feed);Soybean (feed); @1 <---");
  selection.setCurrentChosen(-1);
  selection.raus();  // no current entry: nothing
  EXPECT_EQ(state(), "Maize (feed);Soybean (feed); @-1 <---");
  for (int left = 2; left > 0; --left) selection.setCurrentChosen(0), selection.raus();
  EXPECT_EQ(state(), " @-1");

  choose({0, 1});
  selection.alle_raus();
  EXPECT_EQ(state(), " @-1");
}

// Another substance empties the chosen list but leaves "<---" as it was; loading a table
// switches it off.
TEST_F(ComponentSelectionTest, ARefreshKeepsTheRemoveButtonsAndAResetDoesNot) {
  table.setBasis(2, 2, 1);
  choose({0});
  selection.setCurrentChosen(0);
  selection.refresh(table, 1);
  ASSERT_EQ(selection.available().size(), 1u);
  EXPECT_EQ(selection.available()[0].text + selection.available()[0].artSchadstoffwert,
            "Maize (feed)1");
  EXPECT_EQ(selection.workingSet()[0].residue, 0.3);
  EXPECT_EQ(state(), " @-1 <---");
  EXPECT_FALSE(selection.isSelected(0));
  selection.reset(table, 0);
  EXPECT_EQ(selection.available().size(), 4u);
  EXPECT_EQ(state(), " @-1");

  choose({3});
  selection.chooseAllAvailable();
  EXPECT_EQ(state(), "Wheat (feed);Maize (feed);Soybean (feed);Rape (feed); @-1 <---");
}

// The tooltip names the carp's limit (the trout's is the model's test); a press sets it, and it
// stays while the pointer keeps one of the press point's coordinates.
TEST_F(ComponentSelectionTest, TheTooltipStaysUntilThePointerLeavesInBothDirections) {
  EXPECT_EQ(selection.tooltipText(2, 0, '.'),
            "Protein content: 16 %, Lipid content: 2 %  Testicide content: 0.8 mg/kg. "
            "Max. content in food: 40 %");
  EXPECT_EQ(selection.tooltipText(-1, 0, '.') + selection.tooltipText(4, 0, '.'), "");
  selection.showTooltip("figures", 10, 20);
  selection.Fischfutter1_MouseMove(10, 40);
  selection.Fischfutter1_MouseMove(30, 20);
  EXPECT_EQ(selection.availableTooltip(), "figures");
  selection.Fischfutter1_MouseMove(11, 21);
  EXPECT_EQ(selection.availableTooltip(), "");
}

}  // namespace
}  // namespace pescavo
