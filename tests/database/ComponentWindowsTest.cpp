#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "ScriptedDialogs.h"
#include "WidgetLookup.h"
#include "database/Futterkomponenten.h"
#include "database/Komponentenliste.h"

namespace pescavo {
namespace {

// Five components A..E with residues of substance Alpha on all but D.
class ComponentWindowsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    table.addSubstance("Alpha");
    table.addSubstance("Beta");
    const char* crops[] = {"A", "B", "C", "D", "E"};
    for (int i = 1; i <= 5; ++i) {
      table.addComponent(
          {"Fat", crops[i - 1], i == 3 ? "Olive oil" : "meal", "4-0", 10.0 + i, 2, 90, 30, 20});
      table.setResidue(1, i, i == 4 ? 0 : i);
    }
  }
  // A click on the grid cell, as the user does it.
  static void clickCell(QTableWidget* grid, int row, int column) {
    grid->setCurrentCell(row, column);
    const QRect cell = grid->visualItemRect(grid->item(row, column));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
  }
  static bool green(QTableWidget* grid, int row, int column) {
    return grid->item(row, column)->background().color() == QColor(0, 255, 0);
  }

  ComponentTable table;
  ScriptedDialogs dialogs;
};

TEST_F(ComponentWindowsTest, EditBoxEnterTabAndChecksKeepTheWindowOpen) {
  Komponentenliste window(table, dialogs);
  window.show();
  auto* grid = child<QTableWidget>(window, "Kompomenteneigenschaften");
  auto* edit = child<QLineEdit>(window, "EingabeText");
  ASSERT_EQ(grid->rowCount(), 5);
  EXPECT_EQ(grid->item(0, 4)->text(), " 11");

  clickCell(grid, 0, 4);
  ASSERT_TRUE(edit->isVisible());
  EXPECT_EQ(edit->text(), " 11");
  edit->clear();
  QTest::keyClicks(edit, "6x0");  // the letter is dropped in a number column
  EXPECT_EQ(edit->text(), "60");
  QTest::keyClick(edit, Qt::Key_Tab);
  EXPECT_EQ(grid->item(0, 4)->text(), "60");
  EXPECT_EQ(grid->currentColumn(), 5);
  EXPECT_TRUE(edit->isVisible());
  edit->setText("41");
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(grid->item(0, 5)->text(), "41");
  EXPECT_EQ(grid->currentRow(), 1);
  EXPECT_EQ(edit->text(), " 2");

  click(window, "Fertig");
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{"Please check your changes."});
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(green(grid, 0, 4));
  EXPECT_TRUE(green(grid, 0, 5));
  EXPECT_FALSE(green(grid, 0, 6));

  clickCell(grid, 0, 5);
  edit->setText("40");
  QTest::keyClick(edit, Qt::Key_Return);
  click(window, "Fertig");
  EXPECT_EQ(dialogs.messages.size(), 1u);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(table.component(1).cp, 60);
  EXPECT_EQ(table.component(1).cl, 40);
}

TEST_F(ComponentWindowsTest, NewRecordDeleteAndCancel) {
  {
    Komponentenliste window(table, dialogs);
    window.show();
    auto* grid = child<QTableWidget>(window, "Kompomenteneigenschaften");
    grid->setCurrentCell(2, 1);
    dialogs.answers = {false, true};
    click(window, "Loeschen");
    EXPECT_EQ(grid->rowCount(), 5);
    click(window, "Loeschen");
    EXPECT_EQ(dialogs.questions.back(), "Do you really want to delete the selected record?");
    ASSERT_EQ(grid->rowCount(), 4);
    EXPECT_EQ(grid->item(2, 1)->text(), "D");
    EXPECT_EQ(grid->currentRow(), 2);
    click(window, "Neuer_Datensatz");
    ASSERT_EQ(grid->rowCount(), 5);
    EXPECT_EQ(grid->item(4, 1)->text(), "new crop");
    EXPECT_EQ(grid->currentRow(), 4);
    EXPECT_EQ(grid->currentColumn(), 8);
    click(window, "Abbrechen");
    EXPECT_EQ(window.result(), QDialog::Rejected);
  }
  EXPECT_EQ(table.componentCount(), 5);
  EXPECT_EQ(table.component(3).crop, "C");
}

TEST_F(ComponentWindowsTest, GridKeysCategoryCopyAndSearch) {
  Komponentenliste window(table, dialogs);
  window.show();
  auto* grid = child<QTableWidget>(window, "Kompomenteneigenschaften");
  auto* category = child<QComboBox>(window, "KategorieCombo");
  ASSERT_EQ(category->count(), 5);

  grid->setFocus();
  grid->setCurrentCell(1, 6);
  QTest::keyClick(grid, Qt::Key_Delete);
  QTest::keyClick(grid, Qt::Key_8);
  QTest::keyClick(grid, Qt::Key_Comma);
  QTest::keyClick(grid, Qt::Key_5, Qt::KeypadModifier);
  EXPECT_EQ(grid->item(1, 6)->text(), "8.5");
  grid->setCurrentCell(1, 1);
  QTest::keyClicks(grid, "x");
  EXPECT_EQ(grid->item(1, 1)->text(), "Bx");

  clickCell(grid, 3, 0);
  ASSERT_TRUE(category->isVisible());
  EXPECT_EQ(category->currentText(), "Fat");
  category->setCurrentIndex(3);
  emit category->activated(3);
  EXPECT_EQ(grid->item(3, 0)->text(), "Forages/Fodders");
  EXPECT_FALSE(category->isVisible());

  click(window, "Command1");
  EXPECT_EQ(dialogs.clipboard, window.editor().clipboardText());

  // Which cells the search marks is the editor's rule; the window shows its marks.
  auto* search = child<QLineEdit>(window, "Suche2");
  search->setText("OLIVE");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_TRUE(green(grid, 2, 2));
  EXPECT_FALSE(green(grid, 1, 2));

  QTest::keyClick(grid, Qt::Key_Escape);
  EXPECT_EQ(window.result(), QDialog::Rejected);
  EXPECT_EQ(table.component(2).crop, "B");
}

TEST_F(ComponentWindowsTest, OverviewShowsTheAvailableComponents) {
  Futterkomponenten window(table, 1, '.', dialogs);
  window.show();
  auto* grid = child<QTableWidget>(window, "Kompomenteneigenschaften");
  auto* substances = child<QComboBox>(window, "SchadstoffCombo");
  EXPECT_FALSE(substances->isEnabled());
  EXPECT_EQ(substances->currentText(), "Alpha");
  ASSERT_EQ(grid->rowCount(), 4);
  EXPECT_EQ(grid->item(2, 1)->text(), "C (Olive oil)");
  EXPECT_EQ(grid->item(2, 8)->text(), " STMR");

  auto* search = child<QLineEdit>(window, "Suche3");
  search->setText("meal");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_TRUE(green(grid, 0, 1));
  EXPECT_FALSE(green(grid, 2, 1));

  click(window, "Command2");
  EXPECT_EQ(std::count(dialogs.clipboard.begin(), dialogs.clipboard.end(), '\n'), 5);
  click(window, "Fertig");
  EXPECT_FALSE(window.isVisible());

  Futterkomponenten empty(table, 2, '.', dialogs);
  EXPECT_EQ(child<QTableWidget>(empty, "Kompomenteneigenschaften")->rowCount(), 0);
  EXPECT_EQ(child<QComboBox>(empty, "SchadstoffCombo")->currentText(), "Beta");
}

// The mouse comes in and moves over the control; true when it then shows the file's pointer.
bool handOver(QWidget* control) {
  QEvent enter(QEvent::Enter);
  QCoreApplication::sendEvent(control, &enter);
  QMouseEvent move(QEvent::MouseMove, QPointF(4, 4), QPointF(4, 4), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(control, &move);
  return control->testAttribute(Qt::WA_SetCursor) && control->cursor().shape() == Qt::BitmapCursor;
}

TEST_F(ComponentWindowsTest, ButtonsShowTheHandAndTheCategoryChooserOnceClicked) {
  const auto cursorFile = [] { return QString(PESCAVO_SAMPLE_INPUT "/harrow.cur"); };
  Komponentenliste editor(table, dialogs, nullptr, cursorFile);
  editor.show();
  EXPECT_TRUE(handOver(child<QPushButton>(editor, "go2")));
  EXPECT_TRUE(handOver(child<QPushButton>(editor, "Neuer_Datensatz")));
  EXPECT_FALSE(handOver(child<QLineEdit>(editor, "Suche2")));
  clickCell(child<QTableWidget>(editor, "Kompomenteneigenschaften"), 0, 0);
  auto* category = child<QComboBox>(editor, "KategorieCombo");
  ASSERT_TRUE(category->isVisible());
  EXPECT_FALSE(handOver(category));
  QTest::mousePress(category, Qt::LeftButton);
  if (QWidget* popup = QApplication::activePopupWidget()) QTest::keyClick(popup, Qt::Key_Escape);
  EXPECT_TRUE(handOver(category));

  Futterkomponenten overview(table, 1, '.', dialogs, nullptr, cursorFile);
  EXPECT_TRUE(handOver(child<QPushButton>(overview, "Go3")));
  EXPECT_FALSE(handOver(child<QComboBox>(overview, "SchadstoffCombo")));
  Futterkomponenten without(table, 1, '.', dialogs);  // no file named: the usual pointer
  EXPECT_FALSE(handOver(child<QPushButton>(without, "Go3")));
}

// Each heading fits its column within the header's height, in two lines where it must, and
// each cell's text fits its column.
void expectWholeTexts(QTableWidget* grid) {
  QHeaderView* header = grid->horizontalHeader();
  QFont bold = header->font();
  bold.setBold(true);
  const QFontMetrics headerFont(bold);
  for (int c = 0; c < grid->columnCount(); ++c) {
    const QString heading = grid->horizontalHeaderItem(c)->text();
    const int width = grid->columnWidth(c);
    const QRect needs = headerFont.boundingRect(QRect(0, 0, width - 8, 1000),
                                                Qt::AlignCenter | Qt::TextWordWrap, heading);
    EXPECT_LE(needs.width(), width - 8) << heading.toStdString();
    EXPECT_LE(needs.height(), header->height()) << heading.toStdString();
    for (int r = 0; r < grid->rowCount(); ++r) {
      const QString text = grid->item(r, c)->text();
      EXPECT_LE(grid->fontMetrics().horizontalAdvance(text), width - 4) << text.toStdString();
    }
  }
}

TEST_F(ComponentWindowsTest, EveryHeadingAndCellIsWhole) {
  table.component(1).category = "Cereal Grains/ Crop Seeds";
  table.component(2).commodity = "brewers grains, dried and pelleted";
  Komponentenliste editor(table, dialogs);
  editor.show();
  expectWholeTexts(child<QTableWidget>(editor, "Kompomenteneigenschaften"));
  Futterkomponenten overview(table, 1, '.', dialogs);
  overview.show();
  expectWholeTexts(child<QTableWidget>(overview, "Kompomenteneigenschaften"));
}

TEST_F(ComponentWindowsTest, EveryControlHasAnAccessibleName) {
  Komponentenliste editor(table, dialogs);
  Futterkomponenten overview(table, 1, '.', dialogs);
  for (QWidget* window : {static_cast<QWidget*>(&editor), static_cast<QWidget*>(&overview)}) {
    for (QWidget* w : window->findChildren<QWidget*>()) {
      if (w->objectName().isEmpty() || w->objectName().startsWith("qt_")) continue;
      EXPECT_FALSE(w->accessibleName().isEmpty()) << w->objectName().toStdString();
    }
  }
}

}  // namespace
}  // namespace pescavo
