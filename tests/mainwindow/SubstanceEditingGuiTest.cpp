#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>
#include <QWheelEvent>

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
  bool green(int row, int column) const {
    return item(row, column)->background().color() == kGreen &&
           item(row, column)->background().style() != Qt::NoBrush;
  }
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
  void replaceText(const char* box, const QString& text) {
    find<QLineEdit>(box)->selectAll();
    QTest::keyClick(find<QLineEdit>(box), Qt::Key_Backspace);
    QTest::keyClicks(find<QLineEdit>(box), text);
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
  void wheel(int rotation) {
    QWidget* cells = grid()->viewport();
    const QPointF at(cells->width() / 2.0, cells->height() / 2.0);
    QWheelEvent turn(at, cells->mapToGlobal(at), QPoint(), QPoint(0, rotation), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(cells, &turn);
  }
};

// Delete and Ctrl+C on the substance list are "Del" and "Copy ".
TEST_F(SubstanceGuiTest, DeleteAndCtrlCOnTheSubstanceList) {
  ASSERT_TRUE(start());
  auto* list = find<QListWidget>("Schadstoffliste");
  chooseSubstance(4);
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_TRUE(dialogs.questions.empty());
  EXPECT_EQ(items("Schadstoffliste").size(), 4);
  EXPECT_EQ(list->currentRow(), 3);
  QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(items("Schadstoffliste").size(), 5);
  EXPECT_EQ(list->currentRow(), 4);
}

TEST_F(SubstanceGuiTest, DoubleClickEditsAndTheEditBoxFollowsEnterDownTheColumn) {
  ASSERT_TRUE(start());
  auto* list = find<QListWidget>("Schadstoffliste");
  chooseSubstance(1);
  doubleClick(list->viewport(), list->visualItemRect(list->item(1)).center());
  ASSERT_TRUE(shown("schadstoffwerte"));
  EXPECT_EQ(find<QLineEdit>("Schadstoffname")->text(), "Example substance B (herbicide)");
  EXPECT_EQ(cell(1, 5), "0.02");

  clickCell(2, 5);
  QTest::keyClicks(editBox(), "0.5");
  QTest::keyClick(editBox(), Qt::Key_Return);
  EXPECT_EQ(cell(2, 5), "0.5");
  EXPECT_EQ(grid()->currentRow(), 2);  // on down the column, the box with it
  EXPECT_EQ(editBox()->text(), "0.02");
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(3, 5));

  QTest::keyClicks(editBox(), "0.023");
  replaceText("Schadstoffname", "Herbicide B");

  // "Done" takes over what the widgets hold, the name box's text among it.
  click("Ende");
  EXPECT_FALSE(shown("schadstoffwerte"));
  EXPECT_EQ(items("Schadstoffliste")[1], "Herbicide B");
  EXPECT_EQ(window->model().database().table().residue(2, 3), 0.023);
}

// The box takes numbers only and a comma as the point; Ctrl+C copies its whole text and Ctrl+V
// pastes lines down the column, as Ctrl+C on the grid's selected rows gives them back.
TEST_F(SubstanceGuiTest, TheEditBoxTakesNumbersCopiesAndPastes) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(1, 5);
  QTest::keyClicks(editBox(), "1,5x-e 25");
  EXPECT_EQ(editBox()->text(), "1.525");
  keys(editBox(), {Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete});
  QTest::keyClicks(editBox(), "3");  // where the box itself moved the caret
  EXPECT_EQ(editBox()->text(), "3.52");
  QTest::keyClick(editBox(), Qt::Key_Return);
  EXPECT_EQ(cell(1, 5), "3.52");

  clickCell(4, 5);
  QTest::keyClick(editBox(), Qt::Key_End);
  QTest::keyClick(editBox(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "0.05");
  clickCell(3, 5);
  dialogs.clipboard = "0.1\r\n0.2\r\n";
  QTest::keyClick(editBox(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(column(5, 5), QStringList({"3.52", "0", "0.1", "0.2", "0"}));
  clickCell(4, 2, Qt::ShiftModifier);
  dialogs.clipboard.clear();
  QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "0.1\r\n0.2\r\n");
  click("Ende");
  EXPECT_EQ(residue(1), 3.52);
  EXPECT_EQ(residue(4), 0.2);
}

TEST_F(SubstanceGuiTest, ABlockOfRowsTakesOneValueAndOneBasis) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(2, 5);
  clickCell(4, 5, Qt::ShiftModifier);  // rows 2 to 4; the box over row 4
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(4, 5));
  QTest::keyClicks(editBox(), "9");
  QTest::mouseClick(editBox(), Qt::LeftButton);
  EXPECT_EQ(column(5, 5), QStringList({"0.21", "9", "9", "9", "0"}));
  // A click inside the block makes that cell the whole selection once the button is up.
  clickCell(3, 5);
  EXPECT_EQ(grid()->selectedItems(), QList<QTableWidgetItem*>{item(3, 5)});
  QTest::keyClicks(editBox(), "1");
  doubleClick(editBox(), editBox()->rect().center());
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(column(5, 5), QStringList({"0.21", "9", "1", "9", "0"}));

  clickCell(6, 4);
  clickCell(3, 4, Qt::ShiftModifier);
  ASSERT_TRUE(shown("ArtSchadstoffwertCombo"));
  EXPECT_EQ(basisChooser()->currentText(), "STMR");
  QTest::keyClick(basisChooser(), Qt::Key_Down);
  EXPECT_FALSE(shown("ArtSchadstoffwertCombo"));
  EXPECT_EQ(column(4, 7),
            QStringList({"STMR", "STMR", "STMR-P", "STMR-P", "STMR-P", "STMR-P", "STMR"}));
  click("Ende");
  EXPECT_EQ(window->model().database().table().basis(1, 6), 1);
  EXPECT_EQ(residue(3), 1);
}

TEST_F(SubstanceGuiTest, TheEditorsSitExactlyOverTheirCellsInGreen) {
  ASSERT_TRUE(start());
  editSubstance(2);
  for (int row : {1, 30, 61}) {
    clickCell(row, 5);
    const QRect over = cellOnWindow(row, 5);
    EXPECT_EQ(editBox()->geometry(), over) << row;
    EXPECT_EQ(window->centralWidget()->childAt(over.center()), editBox()) << row;
    EXPECT_EQ(window->focusWidget(), editBox());
    EXPECT_EQ(editBox()->selectedText(), cell(row, 5));
  }
  const QImage box = editBox()->grab().toImage();
  EXPECT_EQ(box.pixelColor(box.width() - 4, box.height() / 2), kGreen);
  clickCell(18, 4);  // Soybean meal; columns 0 to 3 open no editor
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  const QRect over = cellOnWindow(18, 4);
  EXPECT_EQ(basisChooser()->geometry().topLeft(), over.topLeft());
  EXPECT_EQ(basisChooser()->width(), over.width());
  EXPECT_EQ(basisChooser()->currentText(), "STMR-P");
  const QImage chooser = basisChooser()->grab().toImage();
  EXPECT_EQ(chooser.pixelColor(chooser.width() - 30, chooser.height() / 2), kGreen);
  QWidget* onTop = window->centralWidget()->childAt(basisChooser()->geometry().center());
  EXPECT_TRUE(onTop == basisChooser() || basisChooser()->isAncestorOf(onTop));

  // The search's marks are painted in green too, where the grid stands; Escape cancels.
  const int top = grid()->verticalScrollBar()->value();
  replaceText("Suche", "mAiZE");
  QTest::keyClick(find<QLineEdit>("Suche"), Qt::Key_Return);
  EXPECT_TRUE(green(2, 1) && !green(1, 1));
  replaceText("Suche", "GRAIN");
  click("Go");
  EXPECT_TRUE(green(2, 2) && !green(2, 1));
  EXPECT_EQ(grid()->verticalScrollBar()->value(), top);
  grid()->setFocus();
  QTest::keyClick(grid(), Qt::Key_Escape);
  EXPECT_FALSE(shown("schadstoffwerte"));
}

TEST_F(SubstanceGuiTest, TheGridShowsItsHeaderBoldAndCellsCentredInColumnsThatFillIt) {
  ASSERT_TRUE(start());
  editSubstance(0);
  QApplication::processEvents();  // the scroll bar takes its place
  int width = 0;
  for (int c = 0; c < 6; ++c) {
    EXPECT_TRUE(grid()->horizontalHeaderItem(c)->font().bold());
    EXPECT_EQ(item(7, c)->textAlignment(), Qt::AlignCenter) << c;
    EXPECT_FALSE(item(7, c)->flags() & Qt::ItemIsEditable);
    width += grid()->columnWidth(c);
  }
  EXPECT_EQ(width, grid()->viewport()->width());
  EXPECT_EQ(grid()->geometry(), QRect(16, 40, 1009, 329));
}

// The window turns Qt's keys into the codes the editing takes, keypad and all.
TEST_F(SubstanceGuiTest, KeysOnTheGridEditColumnFive) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(2, 0);
  QTest::keyClick(grid(), Qt::Key_Delete);
  EXPECT_EQ(cell(2, 5), "");
  QTest::keyClick(grid(), Qt::Key_4, Qt::KeypadModifier);
  keys(grid(), {Qt::Key_Comma, Qt::Key_2});
  QTest::keyClick(grid(), Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(cell(2, 5), "4.2.");
  keys(grid(), {Qt::Key_Backspace, Qt::Key_Period, Qt::Key_5, Qt::Key_X, Qt::Key_Return});
  EXPECT_EQ(cell(2, 5), "4.2.5");
  EXPECT_EQ(grid()->currentRow(), 1);
  QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "4.2.5");
  QTest::keyClick(grid(), Qt::Key_Down);  // arrow keys still move the current cell
  EXPECT_EQ(grid()->currentRow(), 2);
  EXPECT_EQ(grid()->currentColumn(), 5);
  click("Ende");
  EXPECT_EQ(residue(2), 4.2);  // the leading number
}

TEST_F(SubstanceGuiTest, TheWheelTurnsAPageOfRows) {
  ASSERT_TRUE(start());
  editSubstance(0);
  const int page = std::max(grid()->height() / grid()->horizontalHeader()->height(), 10);
  wheel(-120);  // towards the user
  EXPECT_EQ(grid()->rowAt(0), page);
  wheel(120);
  EXPECT_EQ(grid()->rowAt(0), 0);

  // An open edit box keeps its cell and what was typed; out of view it is not shown.
  clickCell(4, 5);
  QTest::keyClicks(editBox(), "12");
  wheel(-120);
  EXPECT_TRUE(editBox()->mask().intersected(editBox()->rect()).isEmpty());
  wheel(120);
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(4, 5));
  EXPECT_TRUE(editBox()->mask().isEmpty());
  QTest::keyClicks(editBox(), "3");
  EXPECT_EQ(editBox()->text(), "123");
  // Partly in view: clipped at the grid's lower edge.
  grid()->verticalScrollBar()->setValue(5);
  const int last = grid()->rowAt(grid()->viewport()->height() - 1) + 1;
  const QRect cells(grid()->viewport()->mapTo(window->centralWidget(), QPoint(0, 0)),
                    grid()->viewport()->size());
  ASSERT_GT(cellOnWindow(last, 5).bottom(), cells.bottom());
  clickCell(last, 5);  // wholly into view
  EXPECT_TRUE(editBox()->mask().isEmpty());
  grid()->verticalScrollBar()->setValue(5);
  const QRect box = editBox()->geometry();
  EXPECT_EQ(box, cellOnWindow(last, 5));
  EXPECT_EQ(editBox()->mask(), QRegion(cells.intersected(box).translated(-box.topLeft())));
}

}  // namespace
}  // namespace pescavo
