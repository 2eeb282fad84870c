#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>

#include "HauptformFixture.h"

namespace pescavo {
namespace {

const QColor kGreen(0, 255, 0);

// The sample database (61 components, substances A to E) driven through the real widgets. The
// grid's rows are the model's rows 1.. under its header; the helpers take model rows.
class SubstanceGuiTest : public HauptformTest {
 protected:
  QTableWidget* grid() const { return find<QTableWidget>("schadstoffwerte"); }
  QLineEdit* editBox() const { return find<QLineEdit>("EingabeSchadstoff"); }
  QComboBox* basisChooser() const { return find<QComboBox>("ArtSchadstoffwertCombo"); }
  QTableWidgetItem* item(int row, int column) const { return grid()->item(row - 1, column); }
  QString cell(int row, int column) const { return item(row, column)->text(); }
  double residue(int row) const { return window->model().database().table().residue(1, row); }
  QStringList column(int c, int rows) const {
    QStringList texts;
    for (int r = 1; r <= rows; ++r) texts.append(cell(r, c));
    return texts;
  }
  void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
    grid()->scrollToItem(item(row, column));
    const QPoint at = grid()->visualItemRect(item(row, column)).center();
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, modifiers, at);
  }
  // The cell's rectangle in the coordinates of the controls' parent.
  QRect cellOnWindow(int row, int column) const {
    const QRect cell = grid()->visualItemRect(item(row, column));
    return cell.translated(grid()->viewport()->mapTo(window->centralWidget(), QPoint(0, 0)));
  }
  void editSubstance(int position) {
    chooseSubstance(position);
    click("Edit");
    ASSERT_TRUE(shown("schadstoffwerte"));
  }
  void keys(QWidget* target, std::initializer_list<Qt::Key> keys) {
    for (Qt::Key key : keys) QTest::keyClick(target, key);
  }
  // What a user's double-click sends; QTest's sends the double-click event alone.
  void doubleClick(QWidget* widget, QPoint at) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
  }
};

// Delete and Ctrl+C on the substance list are "Del" and "Copy "; a double click edits, and the
// edit box follows Enter down the column; "Done" takes over the name box's text as well.
TEST_F(SubstanceGuiTest, ListKeysAndDoubleClickEditAndTheBoxFollowsEnter) {
  ASSERT_TRUE(start());
  auto* list = find<QListWidget>("Schadstoffliste");
  chooseSubstance(4);
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_EQ(items("Schadstoffliste").size(), 4);
  EXPECT_EQ(list->currentRow(), 3);
  QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(items("Schadstoffliste").size(), 5);
  EXPECT_EQ(list->currentRow(), 4);

  chooseSubstance(1);
  doubleClick(list->viewport(), list->visualItemRect(list->item(1)).center());
  ASSERT_TRUE(shown("schadstoffwerte"));
  EXPECT_EQ(find<QLineEdit>("Schadstoffname")->text(), "Example substance B (herbicide)");
  clickCell(2, 5);
  QTest::keyClicks(editBox(), "0.5");
  QTest::keyClick(editBox(), Qt::Key_Return);
  EXPECT_EQ(cell(2, 5), "0.5");
  EXPECT_EQ(grid()->currentRow(), 2);
  EXPECT_EQ(editBox()->text(), "0.02");
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(3, 5));
  QTest::keyClicks(editBox(), "0.023");
  find<QLineEdit>("Schadstoffname")->selectAll();
  QTest::keyClicks(find<QLineEdit>("Schadstoffname"), "Herbicide B");
  click("Ende");
  EXPECT_FALSE(shown("schadstoffwerte"));
  EXPECT_EQ(items("Schadstoffliste")[1], "Herbicide B");
  EXPECT_EQ(window->model().database().table().residue(2, 3), 0.023);
}

// The grid's keys edit column 5, keypad and all, and arrows move the current cell. The box hands
// its keys and caret to the editing and copies its whole text; Ctrl+V pastes lines down the
// column, which Ctrl+C on the grid's selected rows gives back; a click into the box fills the
// block, a double click closes it; the chooser's key fills its block too.
TEST_F(SubstanceGuiTest, TheGridAndEditorsTakeKeysClicksAndTheClipboardForABlockOfRows) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(2, 0);
  QTest::keyClick(grid(), Qt::Key_Delete);
  EXPECT_EQ(cell(2, 5), "");
  QTest::keyClick(grid(), Qt::Key_4, Qt::KeypadModifier);
  keys(grid(), {Qt::Key_Comma, Qt::Key_2});
  QTest::keyClick(grid(), Qt::Key_Period, Qt::KeypadModifier);
  keys(grid(), {Qt::Key_Backspace, Qt::Key_Period, Qt::Key_5, Qt::Key_X, Qt::Key_Return});
  EXPECT_EQ(cell(2, 5), "4.2.5");
  QTest::keyClick(grid(), Qt::Key_Down);
  EXPECT_EQ(grid()->currentRow(), 2);
  EXPECT_EQ(grid()->currentColumn(), 5);

  clickCell(1, 5);
  QTest::keyClicks(editBox(), "1,5x25");
  EXPECT_EQ(editBox()->text(), "1.525");
  keys(editBox(), {Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete});
  QTest::keyClicks(editBox(), "3");  // where the box itself moved the caret
  QTest::keyClick(editBox(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "3.52");
  QTest::keyClick(editBox(), Qt::Key_Return);
  clickCell(3, 5);
  dialogs.clipboard = "0.1\r\n0.2\r\n";
  QTest::keyClick(editBox(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  clickCell(4, 2, Qt::ShiftModifier);
  dialogs.clipboard.clear();
  QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "0.1\r\n0.2\r\n");

  clickCell(2, 5);
  clickCell(4, 5, Qt::ShiftModifier);  // rows 2 to 4; the box over row 4
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(4, 5));
  QTest::keyClicks(editBox(), "9");
  QTest::mouseClick(editBox(), Qt::LeftButton);
  EXPECT_EQ(column(5, 5), QStringList({"3.52", "9", "9", "9", "0"}));
  // A click inside the block makes that cell the whole selection once the button is up.
  clickCell(3, 5);
  EXPECT_EQ(grid()->selectedItems(), QList<QTableWidgetItem*>{item(3, 5)});
  QTest::keyClicks(editBox(), "1");
  doubleClick(editBox(), editBox()->rect().center());
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(column(5, 5), QStringList({"3.52", "9", "1", "9", "0"}));

  clickCell(6, 4);
  clickCell(3, 4, Qt::ShiftModifier);
  EXPECT_EQ(basisChooser()->currentText(), "STMR");
  QTest::keyClick(basisChooser(), Qt::Key_Down);
  EXPECT_FALSE(shown("ArtSchadstoffwertCombo"));
  EXPECT_EQ(column(4, 7),
            QStringList({"STMR", "STMR", "STMR-P", "STMR-P", "STMR-P", "STMR-P", "STMR"}));
  click("Ende");
  EXPECT_EQ(residue(1), 3.52);
  EXPECT_EQ(window->model().database().table().basis(1, 6), 1);
}

// An editor sits exactly over its cell, on top, focused and green, and scrolled away and back
// keeps its cell and what was typed; the search's marks are painted green where the grid stands;
// the cells take no typing of their own; Escape cancels.
TEST_F(SubstanceGuiTest, TheEditorsSitOverTheirCellsAndTheSearchMarksInGreen) {
  ASSERT_TRUE(start());
  editSubstance(2);
  clickCell(61, 5);
  const QRect over = cellOnWindow(61, 5);
  EXPECT_EQ(editBox()->geometry(), over);
  EXPECT_EQ(window->centralWidget()->childAt(over.center()), editBox());
  EXPECT_EQ(window->focusWidget(), editBox());
  EXPECT_EQ(editBox()->selectedText(), cell(61, 5));
  const QImage box = editBox()->grab().toImage();
  EXPECT_EQ(box.pixelColor(box.width() - 4, box.height() / 2), kGreen);
  clickCell(18, 4);  // Soybean meal
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(basisChooser()->currentText(), "STMR-P");
  clickCell(4, 5);
  QTest::keyClicks(editBox(), "12");
  grid()->verticalScrollBar()->setValue(20);
  const QRegion hidden = editBox()->mask();  // none at all would show it whole
  EXPECT_TRUE(!hidden.isEmpty() && hidden.intersected(editBox()->rect()).isEmpty());
  grid()->verticalScrollBar()->setValue(0);
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(4, 5));
  EXPECT_TRUE(editBox()->mask().isEmpty());
  QTest::keyClicks(editBox(), "3");
  EXPECT_EQ(editBox()->text(), "123");

  const int top = grid()->verticalScrollBar()->value();
  find<QLineEdit>("Suche")->selectAll();
  QTest::keyClicks(find<QLineEdit>("Suche"), "mAiZE");
  QTest::keyClick(find<QLineEdit>("Suche"), Qt::Key_Return);
  EXPECT_EQ(item(2, 1)->background().color(), kGreen);
  find<QLineEdit>("Suche")->selectAll();
  QTest::keyClicks(find<QLineEdit>("Suche"), "GRAIN");
  click("Go");
  EXPECT_EQ(item(2, 2)->background().color(), kGreen);
  EXPECT_EQ(item(2, 1)->background().style(), Qt::NoBrush);
  EXPECT_EQ(grid()->verticalScrollBar()->value(), top);
  for (int c = 0; c < 6; ++c) EXPECT_FALSE(item(7, c)->flags() & Qt::ItemIsEditable) << c;
  grid()->setFocus();
  QTest::keyClick(grid(), Qt::Key_Escape);
  EXPECT_FALSE(shown("schadstoffwerte"));
}

}  // namespace
}  // namespace pescavo
