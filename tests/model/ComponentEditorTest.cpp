#include <gtest/gtest.h>

#include <string>

#include "model/ComponentEditor.h"
#include "tables/NumericText.h"

namespace pescavo {
namespace {

// Five components A..E; substance 1 holds residues 1..5 with STMR-P on the even ones,
// substance 2 holds a residue on C only.
class ComponentEditorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    table.addSubstance("Alpha");
    table.addSubstance("Beta");
    const char* crops[] = {"A", "B", "C", "D", "E"};
    for (int i = 1; i <= 5; ++i) {
      table.addComponent(
          {"Fat", crops[i - 1], "oil", "4-0" + std::to_string(i), 10.0 + i, 2.5, 90, 30, 20});
      table.setResidue(1, i, i);
      table.setBasis(1, i, static_cast<std::int16_t>(i % 2 == 0));
    }
    table.setResidue(2, 3, 0.75);
  }
  // Types text into a cell through the edit box and Enter, as the window does.
  void type(ComponentEditor& editor, int row, int column, const std::string& text) {
    editor.setCursor(row, column);
    ASSERT_EQ(editor.cellClicked(), ComponentEditor::GridEditor::EditBox);
    editor.setEditText(text);
    editor.editEnter();
  }
  // The marked cells as "row,column " pairs.
  static std::string marks(const ComponentEditor& editor) {
    std::string out;
    for (int r = 1; r < editor.rowCount(); ++r)
      for (int c = 0; c < 9; ++c)
        if (editor.marked(r, c)) out += std::to_string(r) + "," + std::to_string(c) + " ";
    return out;
  }
  // Crop, IFN code and residue/basis of both substances, component by component.
  std::string rows() const {
    std::string out;
    for (int i = 1; i <= table.componentCount(); ++i) {
      out += table.component(i).crop + " " + table.component(i).ifnCode;
      for (int s = 1; s <= 2; ++s)
        out +=
            " " + generalForm(table.residue(s, i), '.') + "/" + std::to_string(table.basis(s, i));
      out += "; ";
    }
    return out;
  }
  // Row r's cells, each followed by `end`.
  static std::string row(const ComponentEditor& editor, int r, const char* end = "|") {
    std::string out;
    for (int c = 0; c < 9; ++c) out += editor.cell(r, c) + end;
    return out;
  }

  ComponentTable table;
};

// Numbers and codes after a blank; the clipboard takes every row, headings first; the search
// marks hits in the text columns only. The overview adds the substance's residues.
TEST_F(ComponentEditorTest, ShowsCopiesAndSearchesTheRows) {
  table.component(2).cp = 12.25;
  table.component(4).commodity = "Olive OIL";
  ComponentEditor editor(table);
  EXPECT_EQ(row(editor, 2), "Fat|B|oil| 4-02| 12.25| 2.5| 90| 30| 20|");
  std::string copied;
  for (int r = 0; r < 6; ++r)
    copied += row(editor, r, "\t").substr(0, row(editor, r).size() - 1) + "\r\n";
  EXPECT_EQ(editor.clipboardText(), copied);

  editor.search("oil");
  EXPECT_EQ(marks(editor), "1,2 2,2 3,2 4,2 5,2 ");
  editor.search("2.5");  // every CL cell holds it
  EXPECT_EQ(marks(editor), "");
  EXPECT_TRUE(editor.Fertig());  // search hits do not keep "Done" from closing

  auto rows = componentOverview(table, 1, '.');
  ASSERT_EQ(overviewSearch(rows, "OLI"),
            (std::vector<bool>{false, false, false, false, true, false}));
  EXPECT_EQ(rows[2][1] + "|" + rows[2][2] + "|" + rows[2][3] + "|" + rows[2][8],
            "B (oil)|4-02| 12.25| STMR-P");
  EXPECT_EQ(rows[3][8] + "|" + rows[3][9], " STMR| 3");
  rows = componentOverview(table, 2, ',');
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1][9], " 0,75");
}

// Each value is stored as read, also where a check fails; 100 itself passes. Deleted and added
// rows reach the table at the read-back, residues with their components, new ones with none.
TEST_F(ComponentEditorTest, ReadBackChecksAgainstOneHundredAndTakesDeletedAndNewRows) {
  ComponentEditor editor(table);
  type(editor, 1, 4, "60");
  type(editor, 1, 5, "41");
  type(editor, 3, 6, "100.5");
  type(editor, 4, 7, "101");
  type(editor, 5, 8, "abc");  // reads as 0, which passes
  EXPECT_FALSE(editor.Fertig() || editor.databaseModified());
  EXPECT_EQ(marks(editor), "1,4 1,5 3,6 4,7 ");
  EXPECT_EQ(std::tuple(table.component(1).cl, table.component(3).dm, table.component(5).maxTrout),
            std::tuple(41, 100.5, 0));

  // A value the file could not hold (negative) is marked too; fixing all clears the marks.
  type(editor, 1, 5, "40");
  type(editor, 3, 6, "100");
  type(editor, 4, 7, "-1");
  EXPECT_EQ(editor.readBack(), 1);
  EXPECT_EQ(marks(editor), "4,7 ");
  type(editor, 4, 7, "1E2");
  EXPECT_TRUE(editor.Fertig() && editor.databaseModified());

  editor.setCursor(4, 1);
  ASSERT_TRUE(editor.Loeschen());
  editor.setCursor(2, 1);
  editor.Loeschen();
  ASSERT_TRUE(editor.Neuer_Datensatz());
  EXPECT_EQ(std::pair(editor.currentRow(), editor.currentColumn()), std::pair(4, 8));
  editor.Loeschen();  // the new record again, from the last row
  EXPECT_EQ(editor.currentRow(), 3);
  editor.Neuer_Datensatz();
  ASSERT_TRUE(editor.Fertig());
  const std::string expected =
      "A 4-01 1/0 0/0; C 4-03 3/0 0.75/0; E 4-05 5/0 0/0; new crop IFN Code 0/0 0/0; ";
  EXPECT_EQ(rows(), expected);
  const FeedComponent& c = table.component(4);
  EXPECT_EQ(std::make_tuple(c.category, c.commodity, c.cp, c.cl, c.dm, c.maxCarp, c.maxTrout),
            std::make_tuple("By-Products", "new commodity", 0, 0, 100, 100, 100));
  EXPECT_EQ(editor.readBack(), 0);  // a second read-back changes nothing more
  EXPECT_EQ(rows(), expected);
}

TEST_F(ComponentEditorTest, EditingKeys) {
  ComponentEditor editor(table);
  // Numbers take the numeric filter, texts every character.
  editor.setCursor(1, 4);
  editor.cellClicked();
  editor.setEditText("1");
  EXPECT_FALSE(editor.editKeyPress(','));
  EXPECT_EQ(editor.editText(), "1.");
  editor.setCursor(1, 3);
  EXPECT_TRUE(editor.editKeyPress('a'));

  // Enter moves down and hides on the last row; Tab moves right.
  editor.setCursor(4, 2);
  editor.cellClicked();
  editor.setEditText("x");
  EXPECT_EQ(editor.editEnter(), 5);
  EXPECT_EQ(editor.cell(4, 2) + "|" + editor.editText(), "x|oil");
  EXPECT_EQ(editor.editEnter(), std::nullopt);
  editor.setCursor(1, 7);
  editor.cellClicked();
  editor.setEditText("7");
  EXPECT_EQ(editor.editTab(), 8);
  EXPECT_EQ(editor.cell(1, 7), "7");

  // A click into the box fills the block; the chooser fills the rows.
  editor.setCursor(2, 5, 3, 6);
  editor.setEditText("9");
  editor.editClick();
  EXPECT_EQ(editor.cell(2, 5) + "|" + editor.cell(3, 6) + "|" + editor.cell(4, 6), "9|9| 90");
  editor.setCursor(4, 0, 2, 0);
  EXPECT_EQ(editor.cellClicked(), ComponentEditor::GridEditor::CategoryChooser);
  editor.chooseCategory(4);
  EXPECT_EQ(editor.cell(2, 0) + "|" + editor.cell(4, 0) + "|" + editor.cell(5, 0),
            "Roots and Tubers|Roots and Tubers|Fat");

  // Keys on the grid: digits and the point in number columns, characters in text columns.
  editor.setCursor(1, 4);
  for (int key : {46, 49, 110, 101, 65, 8}) editor.gridKeyDown(key);
  EXPECT_EQ(editor.cell(1, 4), "1.");
  EXPECT_TRUE(editor.gridKeyDown(27));
  editor.setCursor(1, 1);
  for (int key : {int{'z'}, int{'{'}, 8}) editor.gridKeyPress(key);
  EXPECT_EQ(editor.cell(1, 1), "A");
  for (int k = 0; k < 2; ++k) editor.gridKeyPress(8);
  EXPECT_EQ(editor.cell(1, 1), "");
}

}  // namespace
}  // namespace pescavo
