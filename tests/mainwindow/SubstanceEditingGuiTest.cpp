#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QWheelEvent>
#include <algorithm>
#include <set>

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
  int components() const { return window->model().database().table().componentCount(); }

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
    auto* line = find<QLineEdit>(box);
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Backspace);
    QTest::keyClicks(line, text);
  }
  QStringList column(int c) const {
    QStringList texts;
    for (int r = 1; r <= components(); ++r) texts.append(cell(r, c));
    return texts;
  }
  // What a user's double-click sends; QTest's sends the double-click event alone.
  void doubleClick(QWidget* widget, QPoint at) {
    QTest::mousePress(widget, Qt::LeftButton, {}, at);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
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

// Delete and Ctrl+C on the substance list are "Del" and "Copy "; "Del" shows whether it can act.
TEST_F(SubstanceGuiTest, DeleteAndCtrlCOnTheSubstanceList) {
  ASSERT_TRUE(start());
  auto* list = find<QListWidget>("Schadstoffliste");
  chooseSubstance(4);
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_TRUE(dialogs.questions.empty());
  EXPECT_EQ(items("Schadstoffliste").size(), 4);
  EXPECT_EQ(list->currentRow(), 3);
  for (int k = 0; k < 3; ++k) click("Loeschen");
  EXPECT_EQ(items("Schadstoffliste"), QStringList{"Example substance A (fungicide)"});
  EXPECT_FALSE(enabled("Loeschen"));
  list->setFocus();
  QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(items("Schadstoffliste").size(), 2);
  EXPECT_EQ(list->currentRow(), 1);
  EXPECT_TRUE(enabled("Loeschen"));
}

TEST_F(SubstanceGuiTest, DoubleClickEditsAndTheEditBoxFollowsEnterDownTheColumn) {
  ASSERT_TRUE(start());
  auto* list = find<QListWidget>("Schadstoffliste");
  chooseSubstance(1);
  doubleClick(list->viewport(), list->visualItemRect(list->item(1)).center());
  ASSERT_TRUE(shown("schadstoffwerte"));
  EXPECT_EQ(find<QLineEdit>("Schadstoffname")->text(), "Example substance B (herbicide)");
  EXPECT_EQ(cell(1, 5), "0.02");
  EXPECT_EQ(cell(18, 4), "STMR-P");  // Soybean meal
  EXPECT_EQ(cell(18, 5), "0.06");

  clickCell(2, 5);
  ASSERT_TRUE(shown("EingabeSchadstoff"));
  EXPECT_EQ(editBox()->text(), "0.01");
  EXPECT_EQ(editBox()->selectedText(), "0.01");  // typing replaces it
  QTest::keyClicks(editBox(), "0.5");
  QTest::keyClick(editBox(), Qt::Key_Return);
  EXPECT_EQ(cell(2, 5), "0.5");
  EXPECT_EQ(grid()->currentRow(), 2);  // on down the column, the box with it
  EXPECT_EQ(editBox()->text(), "0.02");
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(3, 5));

  // Typed on the grid itself, in any column: the digits go to column 5.
  clickCell(5, 1);
  QTest::keyClick(grid(), Qt::Key_3);
  EXPECT_EQ(cell(5, 5), "0.023");
  EXPECT_EQ(grid()->currentColumn(), 5);
  replaceText("Schadstoffname", "Herbicide B");

  // "Done" takes over what the widgets hold, the name box's text among it.
  click("Ende");
  EXPECT_FALSE(shown("schadstoffwerte"));
  EXPECT_EQ(items("Schadstoffliste")[1], "Herbicide B");
  EXPECT_EQ(window->model().database().table().residue(2, 5), 0.023);
}

TEST_F(SubstanceGuiTest, TheEditBoxTakesNumbersOnlyAndACommaAsThePoint) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(1, 5);
  QTest::keyClicks(editBox(), "1,5");
  QTest::keyClicks(editBox(), "x-e ");
  EXPECT_EQ(editBox()->text(), "1.5");
  QTest::keyClick(editBox(), Qt::Key_Backspace);
  QTest::keyClicks(editBox(), "25");
  EXPECT_EQ(editBox()->text(), "1.25");
  // A caret moved by the box itself is where the next key goes.
  QTest::keyClick(editBox(), Qt::Key_Home);
  QTest::keyClick(editBox(), Qt::Key_Delete);
  QTest::keyClicks(editBox(), "3");
  EXPECT_EQ(editBox()->text(), "3.25");
  QTest::keyClick(editBox(), Qt::Key_Return);
  EXPECT_EQ(cell(1, 5), "3.25");

  // Ctrl+C in the box puts its whole text on the clipboard.
  clickCell(4, 5);
  QTest::keyClick(editBox(), Qt::Key_End);
  QTest::keyClick(editBox(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "0.05");
  EXPECT_EQ(editBox()->text(), "0.05");
  click("Ende");
  EXPECT_EQ(window->model().database().table().residue(1, 1), 3.25);
}

TEST_F(SubstanceGuiTest, PastingTwoLinesFillsRowsThreeAndFour) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(3, 5);
  dialogs.clipboard = "0.1\r\n0.2\r\n";
  QTest::keyClick(editBox(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(column(5).mid(0, 5), QStringList({"0.21", "0", "0.1", "0.2", "0"}));

  // Rows 3 and 4 selected, Ctrl+C on the grid: the same two lines.
  clickCell(4, 2, Qt::ShiftModifier);
  dialogs.clipboard.clear();
  grid()->setFocus();
  QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "0.1\r\n0.2\r\n");
  click("Ende");
  EXPECT_EQ(window->model().database().table().residue(1, 3), 0.1);
  EXPECT_EQ(window->model().database().table().residue(1, 4), 0.2);
}

TEST_F(SubstanceGuiTest, ABlockOfRowsTakesOneValueAndOneBasis) {
  ASSERT_TRUE(start());
  const ComponentTable before = window->model().database().table();
  editSubstance(0);
  clickCell(2, 5);
  clickCell(4, 5, Qt::ShiftModifier);  // rows 2 to 4; the box over row 4
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(4, 5));
  QTest::keyClicks(editBox(), "9");
  QTest::mouseClick(editBox(), Qt::LeftButton);
  EXPECT_EQ(column(5).mid(0, 5), QStringList({"0.21", "9", "9", "9", "0"}));
  EXPECT_TRUE(shown("EingabeSchadstoff"));
  // A click inside the block makes that cell the whole selection once the button is up.
  clickCell(3, 5);
  EXPECT_EQ(grid()->selectedItems(), QList<QTableWidgetItem*>{item(3, 5)});
  EXPECT_EQ(editBox()->geometry(), cellOnWindow(3, 5));
  QTest::keyClicks(editBox(), "1");
  doubleClick(editBox(), editBox()->rect().center());
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(column(5).mid(0, 5), QStringList({"0.21", "9", "1", "9", "0"}));

  clickCell(6, 4);
  clickCell(3, 4, Qt::ShiftModifier);
  ASSERT_TRUE(shown("ArtSchadstoffwertCombo"));
  EXPECT_EQ(basisChooser()->currentText(), "STMR");
  const QRect over = cellOnWindow(3, 4);
  EXPECT_EQ(basisChooser()->geometry().topLeft(), over.topLeft());
  EXPECT_EQ(basisChooser()->width(), over.width());
  QTest::keyClick(basisChooser(), Qt::Key_Down);
  EXPECT_FALSE(shown("ArtSchadstoffwertCombo"));
  EXPECT_EQ(column(4).mid(0, 7),
            QStringList({"STMR", "STMR", "STMR-P", "STMR-P", "STMR-P", "STMR-P", "STMR"}));
  EXPECT_FALSE(window->model().database().modified());
  click("Ende");
  const ComponentTable& table = window->model().database().table();
  for (int i = 1; i <= 7; ++i) {
    EXPECT_EQ(table.basis(1, i), i >= 3 && i <= 6 ? 1 : 0) << i;
    EXPECT_EQ(table.residue(1, i), i == 3 ? 1 : i == 2 || i == 4 ? 9 : before.residue(1, i)) << i;
  }
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
  clickCell(18, 4);  // Soybean meal
  EXPECT_FALSE(shown("EingabeSchadstoff"));
  EXPECT_EQ(basisChooser()->geometry().topLeft(), cellOnWindow(18, 4).topLeft());
  EXPECT_EQ(basisChooser()->currentText(), "STMR-P");
  const QImage chooser = basisChooser()->grab().toImage();
  EXPECT_EQ(chooser.pixelColor(chooser.width() - 30, chooser.height() / 2), kGreen);
  QWidget* onTop = window->centralWidget()->childAt(basisChooser()->geometry().center());
  EXPECT_TRUE(onTop == basisChooser() || basisChooser()->isAncestorOf(onTop));
  // Columns 0 to 3 open no editor.
  clickCell(21, 2);
  EXPECT_TRUE(shown("ArtSchadstoffwertCombo"));
  EXPECT_FALSE(shown("EingabeSchadstoff"));
}

TEST_F(SubstanceGuiTest, TheGridShowsItsHeaderBoldAndCellsCentredInColumnsThatFillIt) {
  ASSERT_TRUE(start());
  editSubstance(0);
  int width = 0;
  for (int c = 0; c < 6; ++c) {
    EXPECT_TRUE(grid()->horizontalHeaderItem(c)->font().bold());
    EXPECT_EQ(item(7, c)->textAlignment(), Qt::AlignCenter) << c;
    EXPECT_FALSE(item(7, c)->flags() & Qt::ItemIsEditable);
    width += grid()->columnWidth(c);
  }
  QApplication::processEvents();  // the scroll bar takes its place
  // A sixth and a seventh of the grid's 15135 twips; the IFN code takes the rest.
  EXPECT_EQ(grid()->columnWidth(0), 168);
  EXPECT_EQ(grid()->columnWidth(5), 144);
  EXPECT_EQ(width, grid()->viewport()->width());
  EXPECT_EQ(grid()->geometry(), QRect(16, 40, 1009, 329));
}

TEST_F(SubstanceGuiTest, KeysOnTheGridEditColumnFive) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(2, 0);
  QTest::keyClick(grid(), Qt::Key_Delete);
  EXPECT_EQ(cell(2, 5), "");
  QTest::keyClick(grid(), Qt::Key_4, Qt::KeypadModifier);
  QTest::keyClick(grid(), Qt::Key_Comma);
  QTest::keyClick(grid(), Qt::Key_2);
  QTest::keyClick(grid(), Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(cell(2, 5), "4.2.");
  QTest::keyClick(grid(), Qt::Key_Backspace);
  QTest::keyClick(grid(), Qt::Key_Period);
  QTest::keyClick(grid(), Qt::Key_5);
  QTest::keyClick(grid(), Qt::Key_X);  // nothing
  QTest::keyClick(grid(), Qt::Key_Return);
  EXPECT_EQ(cell(2, 5), "4.2.5");
  EXPECT_EQ(grid()->currentRow(), 1);
  QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(dialogs.clipboard, "4.2.5");
  // Arrow keys still move the current cell, from column 5.
  QTest::keyClick(grid(), Qt::Key_Down);
  EXPECT_EQ(grid()->currentRow(), 2);
  EXPECT_EQ(grid()->currentColumn(), 5);
  click("Ende");
  EXPECT_EQ(window->model().database().table().residue(1, 2), 4.2);  // the leading number
}

TEST_F(SubstanceGuiTest, SearchMarksMaizeInAnyCaseWithoutMoving) {
  ASSERT_TRUE(start());
  editSubstance(0);
  clickCell(5, 5);
  const int top = grid()->verticalScrollBar()->value();
  replaceText("Suche", "mAiZE");
  QTest::keyClick(find<QLineEdit>("Suche"), Qt::Key_Return);
  int marked = 0;
  for (int r = 1; r <= components(); ++r) {
    for (int c = 0; c < 6; ++c) {
      const bool hit = c < 4 && cell(r, c).contains("maize", Qt::CaseInsensitive);
      EXPECT_EQ(green(r, c), hit) << r << " " << c;
      marked += hit;
    }
  }
  EXPECT_EQ(marked, 6);  // grain, gluten meal, gluten feed, distillers grains, oil, silage
  EXPECT_TRUE(green(2, 1));
  EXPECT_EQ(grid()->currentRow(), 4);
  EXPECT_EQ(grid()->selectedItems().size(), 1);
  EXPECT_EQ(grid()->verticalScrollBar()->value(), top);

  replaceText("Suche", "GRAIN");
  click("Go");
  EXPECT_FALSE(green(2, 1));
  EXPECT_TRUE(green(2, 2));
  EXPECT_TRUE(green(1, 0));  // "Cereal Grains/ Crop Seeds"
  // Escape on the grid cancels; a new editing starts without marks and with "Search..." again.
  grid()->setFocus();
  QTest::keyClick(grid(), Qt::Key_Escape);
  EXPECT_FALSE(shown("schadstoffwerte"));
  editSubstance(1);
  EXPECT_EQ(find<QLineEdit>("Suche")->text(), "Search...");
  for (int r = 1; r <= components(); ++r) EXPECT_FALSE(green(r, 0) || green(r, 2)) << r;
}

TEST_F(SubstanceGuiTest, TheWheelTurnsAPageOfRows) {
  ASSERT_TRUE(start());
  editSubstance(0);
  const int page = std::max(grid()->height() / grid()->horizontalHeader()->height(), 10);
  EXPECT_EQ(grid()->rowAt(0), 0);
  wheel(-120);  // towards the user
  EXPECT_EQ(grid()->rowAt(0), page);
  wheel(-120);
  EXPECT_EQ(grid()->rowAt(0), 2 * page);
  wheel(120);
  wheel(120);
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
  EXPECT_FALSE(editBox()->mask().isEmpty());
}

TEST_F(SubstanceGuiTest, SimpleModeEditsInTheFullWidthAndReturns) {
  ASSERT_TRUE(start(true));
  EXPECT_EQ(window->centralWidget()->width(), 600);
  editSubstance(0);
  EXPECT_EQ(window->centralWidget()->width(), 1184);
  click("Ende");
  EXPECT_EQ(window->centralWidget()->width(), 600);
  EXPECT_EQ(window->width(), 600);
  EXPECT_EQ(find<QComboBox>("Fischmehl")->currentIndex(), 1);  // as leaving the editing sets it
}

}  // namespace
}  // namespace pescavo
