#include <gtest/gtest.h>

#include "model/ResidueEditor.h"
#include "tables/ComponentViews.h"

namespace pescavo {
namespace {

using C = ControlId;

// Substance 1 of three components edited, with basis codes 0, 1, 0.
class ResidueEditorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    table.addSubstance("Alpha");
    for (const char* crop : {"Wheat", "Maize", "Oats"}) {
      const int i = table.addComponent({"By-Products", crop, "feed", "", 12, 3, 88, 40, 20});
      table.setResidue(1, i, i + 0.5);
      table.setBasis(1, i, static_cast<std::int16_t>((i + 1) % 2));
    }
    editor.grid().startEditing(lade_Schadstoffwerte(table, 1), table, 1);
    layout.at(C::Ende).caption = "Done";
  }
  bool visible(ControlId id) const { return layout.at(id).visible; }

  ComponentTable table;
  MainWindowLayout layout;
  ResidueEditor editor{layout};
};

// Each in-place editor sits inside the grid's border over its cell; opening one hides the
// other, and a click outside columns 4 and 5 opens none.
TEST_F(ResidueEditorTest, TheEditorsSitOnTheirCellAndHideEachOther) {
  editor.setGridCursor(1, 5, 1);
  ASSERT_EQ(editor.schadstoffwerte_Click(), ResidueEditor::GridEditor::EditBox);
  EXPECT_EQ(editor.Eingabefeld_platzieren(240, 600, {1200, 480, 1500, 240}),
            TwipsRect({1455, 1095, 1500, 240}));
  const ControlState& box = layout.at(C::EingabeSchadstoff);
  EXPECT_TRUE(box.visible);
  EXPECT_EQ(TwipsRect({box.left, box.top, box.width, box.height}),
            TwipsRect({1455, 1095, 1500, 240}));

  editor.setGridCursor(2, 4, 2);
  EXPECT_EQ(editor.schadstoffwerte_Click(), ResidueEditor::GridEditor::BasisChooser);
  EXPECT_FALSE(box.visible);
  EXPECT_EQ(editor.grid().basisChoice(), 1);  // row 2 reads STMR-P
  // The drop-down keeps its own height.
  EXPECT_EQ(editor.Auswahlfeld_platzieren(240, 600, {1000, 480, 1200, 240}),
            TwipsRect({1255, 1095, 1200, 315}));
  EXPECT_TRUE(visible(C::ArtSchadstoffwertCombo));
  editor.chooseBasis(0, table, 1);
  EXPECT_EQ(editor.grid().text(2, 4), "STMR");
  EXPECT_FALSE(visible(C::ArtSchadstoffwertCombo) || visible(C::EingabeSchadstoff));

  editor.setGridCursor(1, 0, 1);
  EXPECT_EQ(editor.schadstoffwerte_Click(), ResidueEditor::GridEditor::None);
  layout.at(C::Ende).caption = "Exit";  // outside editing the grid opens nothing
  editor.setGridCursor(1, 5, 1);
  EXPECT_EQ(editor.schadstoffwerte_Click(), ResidueEditor::GridEditor::None);
}

// What closes the edit box and what its text does then.
TEST_F(ResidueEditorTest, TheEditBoxClosesOnEnterAtTheEndAndDoubleClick) {
  const auto openOn = [&](int row) {
    editor.setGridCursor(row, 5, row);
    ASSERT_EQ(editor.schadstoffwerte_Click(), ResidueEditor::GridEditor::EditBox);
    editor.Eingabefeld_platzieren(0, 0, {0, 0, 10, 10});
  };
  openOn(3);
  editor.setEditBox("7", 1, 0);
  EXPECT_EQ(editor.EingabeSchadstoff_Enter(), std::nullopt);  // the last row: the box hides
  EXPECT_EQ(editor.grid().text(3, 5), "7");
  EXPECT_FALSE(visible(C::EingabeSchadstoff));

  openOn(2);
  editor.setEditBox("6", 1, 0);
  editor.EingabeSchadstoff_DblClick();
  EXPECT_EQ(editor.grid().text(2, 5), "6");
  EXPECT_FALSE(visible(C::EingabeSchadstoff));
}

}  // namespace
}  // namespace pescavo
