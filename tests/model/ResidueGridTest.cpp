#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "model/ResidueGrid.h"
#include "tables/ComponentViews.h"
#include "tables/NumericText.h"

namespace pescavo {
namespace {

// Four components, two substances: the second has the codes 1, 0, 1, 0.
ComponentTable smallTable() {
  ComponentTable table;
  table.addSubstance("Alpha");
  table.addSubstance("Beta");
  const char* crops[4] = {"Maize", "Wheat", "Sweet MAIZE", "Rape"};
  const char* categories[4] = {"Cereal Grains/ Crop Seeds", "Cereal Grains/ Crop Seeds",
                               "Roots and Tubers", "By-Products"};
  for (int i = 0; i < 4; ++i) {
    table.addComponent({categories[i], crops[i], i == 3 ? "meal of maize" : "grain",
                        "4-00-" + std::to_string(i), 10, 2, 88, 40, 20});
    table.setResidue(1, i + 1, 0.5 * (i + 1));
    table.setResidue(2, i + 1, 0.1 * (i + 1));
    table.setBasis(2, i + 1, static_cast<std::int16_t>((i + 1) % 2));
  }
  return table;
}

class GridTest : public ::testing::Test {
 protected:
  void SetUp() override { grid.startEditing(lade_Schadstoffwerte(table, 2), table, 2); }
  // The rows marked in each column, column after column.
  std::string marks() const {
    std::string rows;
    for (int c = 0; c < 6; ++c) {
      for (int r = 0; r < grid.rowCount(); ++r)
        if (grid.marked(r, c)) rows += std::to_string(r) + " ";
      rows += "|";
    }
    return rows;
  }
  std::string column(int c) const {
    std::string texts;
    for (int r = 1; r < grid.rowCount(); ++r) texts += grid.text(r, c) + ";";
    return texts;
  }

  ComponentTable table = smallTable();
  ResidueGrid grid;
};

// The comma's point goes to the end whatever the caret; a typed key replaces the selection.
TEST(EditBoxKeys, NumericFilterOnTextCaretAndSelection) {
  const auto after = [](const std::string& text, int caret, int typed) {
    const EditBoxKey k = NumericEditBox::filter(text, caret, typed);
    return k.text + " " + std::to_string(k.caret) + (k.taken ? "" : " dropped");
  };
  EXPECT_EQ(after("25", 0, ','), "25. 3");
  EXPECT_EQ(after("25", 1, '7'), "275 2");
  EXPECT_EQ(after("275", 2, VirtualKey::kBackspace), "25 1");
  EXPECT_EQ(after("1.2", 1, VirtualKey::kEnter), "1.2 1 dropped");

  NumericEditBox box;
  box.set("0.4", 0, 3);  // as placing the box leaves it
  EXPECT_TRUE(box.type('7'));
  EXPECT_EQ(box.text(), "7");
  box.set("123", 1, 1);  // Backspace takes the selection only
  EXPECT_TRUE(box.type(VirtualKey::kBackspace));
  EXPECT_EQ(box.text() + " " + std::to_string(box.selectionStart()), "13 1");
  box.set("123", 0, 2);  // a comma leaves the selection and appends
  EXPECT_TRUE(box.type(','));
  EXPECT_EQ(std::tuple(box.text(), box.selectionStart(), box.selectionLength()),
            std::tuple("123.", 4, 0));
}

// A selection fills and copies whichever end is active; Enter and a paste write column 5 top
// to bottom.
TEST_F(GridTest, SelectionEnterAndPasteWriteColumnFive) {
  grid.setCursor(2, 5, 2);
  EXPECT_EQ(grid.copyText(), "0.2");  // one cell: its text alone

  grid.setCursor(4, 5, 2);  // selected from row 4 upwards
  EXPECT_EQ(grid.copyText(), "0.2\r\n0.30000000000000004\r\n0.4\r\n");
  grid.editBox().set("2.5", 0, 3);
  grid.fillSelectionFromEditBox();
  EXPECT_EQ(column(5), "0.1;2.5;2.5;2.5;");

  grid.setCursor(1, 4, 3);
  grid.chooseBasis(1, table, 2);
  EXPECT_EQ(grid.basisChoice(), 1);
  grid.setCursor(3, 4, 2);
  grid.chooseBasis(0, table, 2);
  grid.chooseBasis(2, table, 2);  // no such item
  EXPECT_EQ(column(4), "STMR-P;STMR;STMR;STMR;");

  grid.setCursor(1, 4, 1);  // a click on column 4 shows the cell's item in the drop-down
  grid.showBasisOfCurrentCell();
  EXPECT_EQ(grid.basisChoice(), 1);

  grid.setCursor(3, 5, 3);
  grid.editBox().set("7", 1, 0);
  EXPECT_EQ(grid.enterEditBox(), 4);
  EXPECT_EQ(
      std::tuple(grid.editBox().text(), grid.editBox().selectionLength(), grid.selectionEnd()),
      std::tuple("2.5", 3, 4));  // the next cell, all selected
  grid.editBox().set("8", 1, 0);
  EXPECT_EQ(grid.enterEditBox(), std::nullopt);  // last row: written, then the box hides
  EXPECT_EQ(column(5), "0.1;2.5;7;8;");

  grid.setCursor(3, 5, 3);  // a paste writes complete lines down column 5
  grid.paste("0.1\r\n0.2\r\n");
  EXPECT_EQ(column(5), "0.1;2.5;0.1;0.2;");

  grid.setCursor(1, 2, 1);  // column 5 whatever the current column; the tail is not written
  grid.paste("5\r\n\r\n9");
  EXPECT_EQ(column(5), "5;;0.1;0.2;");
  EXPECT_EQ(grid.text(1, 2), "grain");

  grid.setCursor(3, 5, 3);  // beyond the last row dropped; a bare line feed ends a line too
  grid.paste("1\n2\r\n3\r\n4\r\n");
  EXPECT_EQ(column(5), "5;;1;2;");
}

TEST_F(GridTest, KeysOnTheGridEditColumnFive) {
  grid.setCursor(2, 1, 2);  // letters, Escape and C without Ctrl change no text
  for (int key : {VirtualKey::kDelete, int{'1'}, 188, 98, 65, 190, 110, VirtualKey::kKeyC, 57,
                  VirtualKey::kEscape, VirtualKey::kBackspace})
    EXPECT_EQ(grid.gridKey(key, false), std::nullopt);
  EXPECT_EQ(grid.text(2, 5) + "|" + grid.text(2, 1), "1.2..|Wheat");
  EXPECT_EQ(grid.gridKey(VirtualKey::kKeyC, true), "1.2..");

  grid.setCursor(4, 0, 4);
  grid.gridKey(VirtualKey::kDelete, false);
  grid.gridKey(VirtualKey::kBackspace, false);  // empty stays empty
  EXPECT_EQ(grid.text(4, 5), "");
}

// A search marks the cells holding the text in any case; the values the table cannot hold are
// marked in column 5.
TEST_F(GridTest, SearchHitsAndValuesTheTableCannotHoldAreMarked) {
  grid.search("mAiZe");
  EXPECT_EQ(marks(), "|1 3 |4 ||||");
  grid.search("-");  // a new search clears the earlier marks; the first and fourth columns too
  EXPECT_EQ(marks(), "4 |||1 2 3 4 |||");
  grid.home();  // every start of editing clears them
  EXPECT_EQ(marks(), "||||||");

  grid.setCursor(1, 5, 1);
  grid.paste("1000000\r\n1000000.5\r\n1E999\r\n-1\r\n");
  EXPECT_EQ(grid.markUnstorableValues(), 2);
  EXPECT_EQ(marks(), "|||||2 3 |");  // negative: no value, as in the file
  grid.paste("1\r\n2\r\n3\r\n");
  EXPECT_EQ(grid.markUnstorableValues(), 0);
  EXPECT_EQ(marks(), "||||||");
  // A pasted decimal comma is the value it shows, not the 0 before it.
  grid.paste("0,5\r\n");
  EXPECT_EQ(grid.value(1), 0.5);
}

TEST(BasisCopyTest, ReadsThroughUntilSetAndFreezesBeforeTheTableChanges) {
  ComponentTable table = smallTable();
  BasisCopy copy;
  copy.setCode(table, 2, 3, 0);
  EXPECT_EQ(copy.code(table, 2, 3), 0);
  EXPECT_EQ(copy.code(table, 2, 1), 1);  // the rest of the substance as copied
  EXPECT_EQ(copy.code(table, 3, 1), 0);  // no such substance yet

  copy.freeze(table);
  table.deleteSubstance(1);
  // Substance 1 as copied, not the one moved there.
  EXPECT_EQ((std::array{copy.code(table, 1, 1), copy.code(table, 2, 1), copy.code(table, 2, 3),
                        copy.code(table, 2, 4)}),
            (std::array<std::int16_t, 4>{0, 1, 0, 0}));
  copy.copyAll();  // a new copy
  EXPECT_EQ(copy.code(table, 1, 1), 1);
}

// The wheel steps by a page of rows; the columns take sixths and sevenths, the IFN code the rest.
TEST(GridGeometry, WheelStepsAndColumnWidths) {
  EXPECT_EQ(ResidueGrid::wheelTopRow(1, -120, 4935, 240, 1001), 21);   // 4935 / 240: 20 rows
  EXPECT_EQ(ResidueGrid::wheelTopRow(30, 120, 4935, 1000, 1001), 20);  // at least 10 rows
  EXPECT_EQ(ResidueGrid::wheelTopRow(1, -1, 4935, 0, 1001), std::nullopt);
  EXPECT_EQ(ResidueGrid::columnWidths(15135, 14850),  // 2522.5 rounds to the even 2522
            (std::array<int, 6>{2522, 2522, 2522, 2960, 2162, 2162}));
}

}  // namespace
}  // namespace pescavo
