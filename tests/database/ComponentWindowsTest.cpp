#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>

#include "ScriptedDialogs.h"
#include "WidgetLookup.h"
#include "database/Futterkomponenten.h"
#include "database/Komponentenliste.h"

namespace pescavo {
namespace {

// Five components A..E with residues of substance Alpha on all but D; the editor open on them.
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
    window = std::make_unique<Komponentenliste>(table, dialogs);
    window->show();
    grid = child<QTableWidget>(*window, "Kompomenteneigenschaften");
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
  static void search(QWidget& window, const char* box, const QString& text) {
    auto* line = child<QLineEdit>(window, box);
    line->setText(text);
    QTest::keyClick(line, Qt::Key_Return);
  }

  ComponentTable table;
  ScriptedDialogs dialogs;
  std::unique_ptr<Komponentenliste> window;
  QTableWidget* grid = nullptr;
};

TEST_F(ComponentWindowsTest, EditBoxEnterTabAndChecksKeepTheWindowOpen) {
  auto* edit = child<QLineEdit>(*window, "EingabeText");
  clickCell(grid, 0, 4);
  ASSERT_TRUE(edit->isVisible());
  edit->clear();
  QTest::keyClicks(edit, "6x0");  // the letter is dropped in a number column
  QTest::keyClick(edit, Qt::Key_Tab);
  EXPECT_EQ(grid->item(0, 4)->text(), "60");
  EXPECT_EQ(grid->currentColumn(), 5);
  edit->setText("41");
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(grid->currentRow(), 1);
  EXPECT_EQ(edit->text(), " 2");

  click(*window, "Fertig");
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{"Please check your changes."});
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(green(grid, 0, 4) && green(grid, 0, 5));
  EXPECT_FALSE(green(grid, 0, 6));

  clickCell(grid, 0, 5);
  edit->setText("40");
  QTest::keyClick(edit, Qt::Key_Return);
  click(*window, "Fertig");
  EXPECT_EQ(window->result(), QDialog::Accepted);
  EXPECT_EQ(table.component(1).cl, 40);
}

TEST_F(ComponentWindowsTest, NewRecordDeleteAndCancel) {
  grid->setCurrentCell(2, 1);
  dialogs.answers = {false, true};
  click(*window, "Loeschen");
  EXPECT_EQ(grid->rowCount(), 5);
  click(*window, "Loeschen");
  EXPECT_EQ(dialogs.questions.back(), "Do you really want to delete the selected record?");
  ASSERT_EQ(grid->rowCount(), 4);
  EXPECT_EQ(grid->item(2, 1)->text(), "D");
  click(*window, "Neuer_Datensatz");
  ASSERT_EQ(grid->rowCount(), 5);
  EXPECT_EQ(grid->item(4, 1)->text(), "new crop");
  EXPECT_EQ(grid->currentItem(), grid->item(4, 8));
  click(*window, "Abbrechen");
  EXPECT_EQ(window->result(), QDialog::Rejected);
  EXPECT_EQ(table.componentCount(), 5);
}

TEST_F(ComponentWindowsTest, GridKeysCategoryChooserCopyAndSearch) {
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
  auto* category = child<QComboBox>(*window, "KategorieCombo");
  ASSERT_TRUE(category->isVisible());
  EXPECT_EQ(category->currentText(), "Fat");
  category->setCurrentIndex(3);
  emit category->activated(3);
  EXPECT_EQ(grid->item(3, 0)->text(), "Forages/Fodders");
  EXPECT_FALSE(category->isVisible());

  click(*window, "Command1");
  EXPECT_EQ(dialogs.clipboard, window->editor().clipboardText());
  // Which cells the search marks is the editor's rule; the window shows its marks.
  search(*window, "Suche2", "OLIVE");
  EXPECT_TRUE(green(grid, 2, 2));
  EXPECT_FALSE(green(grid, 1, 2));
  QTest::keyClick(grid, Qt::Key_Escape);
  EXPECT_EQ(window->result(), QDialog::Rejected);
  EXPECT_EQ(table.component(2).crop, "B");
}

TEST_F(ComponentWindowsTest, OverviewShowsTheAvailableComponents) {
  Futterkomponenten overview(table, 1, '.', dialogs);
  overview.show();
  auto* rows = child<QTableWidget>(overview, "Kompomenteneigenschaften");
  auto* substances = child<QComboBox>(overview, "SchadstoffCombo");
  EXPECT_FALSE(substances->isEnabled());
  EXPECT_EQ(substances->currentText(), "Alpha");
  ASSERT_EQ(rows->rowCount(), 4);
  EXPECT_EQ(rows->item(2, 1)->text(), "C (Olive oil)");
  search(overview, "Suche3", "meal");
  EXPECT_TRUE(green(rows, 0, 1));
  EXPECT_FALSE(green(rows, 2, 1));
  click(overview, "Command2");
  EXPECT_EQ(std::count(dialogs.clipboard.begin(), dialogs.clipboard.end(), '\n'), 5);
  click(overview, "Fertig");
  EXPECT_FALSE(overview.isVisible());
}

}  // namespace
}  // namespace pescavo
