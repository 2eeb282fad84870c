#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTextEdit>

#include "HauptformFixture.h"

namespace pescavo {
namespace {

// The full layout in pixels; the simple one narrow, with the fish-meal grade in the list's
// column: editing a substance borrows the full width and gives it back.
TEST_F(HauptformTest, BothLayoutsPlaceAndShowTheControlsAsTheLayoutSays) {
  ASSERT_TRUE(start(false));
  EXPECT_EQ(window->centralWidget()->width(), 1184);
  EXPECT_EQ(find("Fischfutter2")->geometry(), QRect(560, 56, 177, 310));
  EXPECT_TRUE(shown("Fischfutter2") && !shown("Fischmehl"));
  EXPECT_TRUE(enabled("Loeschen") && !enabled("raus"));
  EXPECT_TRUE(find<QAction>("restore")->isVisible());
  EXPECT_FALSE(find<QAction>("MenuEdit")->isVisible());

  ASSERT_TRUE(start(true));
  EXPECT_EQ(window->width(), 600);
  EXPECT_TRUE(shown("Fischmehl") && !shown("Fischfutter2"));
  chooseSubstance(0);
  click("Edit");
  EXPECT_EQ(window->centralWidget()->width(), 1184);
  click("Ende");
  EXPECT_EQ(window->width(), 600);
  EXPECT_EQ(find<QComboBox>("Fischmehl")->currentIndex(), 1);  // as leaving the editing sets it
}

TEST_F(HauptformTest, TheComponentListsForwardTheirSelectionAndShowTheFigures) {
  ASSERT_TRUE(start());
  const QStringList available = items("Fischfutter1");
  for (int p : {1, 3, 5}) find<QListWidget>("Fischfutter1")->item(p)->setSelected(true);
  click("Rein");
  EXPECT_EQ(items("Fischfutter2"), QStringList({available[1], available[3], available[5]}));
  auto* chosen = find<QListWidget>("Fischfutter2");
  chosen->setCurrentRow(1);
  click("raus");
  EXPECT_EQ(items("Fischfutter2"), QStringList({available[1], available[5]}));
  EXPECT_EQ(chosen->currentRow(), 1);
  click("alle_rein");
  EXPECT_EQ(find<QListWidget>("Fischfutter1")->selectedItems().size(), available.size());
  click("alle_raus");
  EXPECT_TRUE(items("Fischfutter2").isEmpty());
  EXPECT_FALSE(enabled("raus") || enabled("alle_raus"));

  // Pressing an available component shows its figures until the pointer leaves it.
  auto* list = find<QListWidget>("Fischfutter1");
  const QPoint barley = list->visualItemRect(list->item(0)).center();
  QTest::mousePress(list->viewport(), Qt::LeftButton, {}, barley);
  QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, barley);
  EXPECT_EQ(list->toolTip(),
            "Protein content: 12.4 %, Lipid content: 2.1 %  Testicide content: 0.21 mg/kg. "
            "Max. content in food: 30 %");
  moveTo(list->viewport(), barley + QPoint(9, 4));
  EXPECT_EQ(list->toolTip(), "");
}

// The statement's colour is that of its text, bold throughout.
QColor statementColour(QTextEdit* box) {
  QTextCursor cursor(box->document());
  cursor.movePosition(QTextCursor::NextCharacter);
  EXPECT_EQ(cursor.charFormat().fontWeight(), QFont::Bold);
  return cursor.charFormat().foreground().color();
}

// An empty list is refused with its caption red while the message is up; a run shows the
// statement, red above a tenth and black otherwise, until anything changes.
TEST_F(HauptformTest, AnEmptyListIsRefusedAndARunShowsTheStatementRedAboveATenth) {
  ASSERT_TRUE(start());
  auto* caption = find<QLabel>("Label1");
  QColor whileShown;
  dialogs.onMessage = [&](const std::string&) {
    whileShown = caption->palette().color(QPalette::WindowText);
  };
  click("Optimierung");
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{"Please add components."});
  EXPECT_EQ(whileShown, QColor(255, 0, 0));
  EXPECT_EQ(caption->palette().color(QPalette::WindowText), QColor(0, 0, 0));

  click("alle_rein");
  click("Optimierung");
  auto* box = find<QTextEdit>("Ergebnis");
  ASSERT_TRUE(shown("Ergebnis") && shown("ReportButton"));
  EXPECT_EQ(box->toPlainText(),
            "Maximum content dietary burden based on Example substance A (fungicide) is 0.204 "
            "mg/kg.");
  EXPECT_EQ(statementColour(box), QColor(255, 0, 0));
  EXPECT_EQ(find<QLabel>("Gegenpruefung")->text(), "Independent check: agrees.");

  chooseSubstance(1);
  EXPECT_FALSE(shown("Ergebnis") || shown("Gegenpruefung"));
  click("alle_rein");
  click("Optimierung");
  EXPECT_EQ(statementColour(box), QColor(0, 0, 0));  // 0.065 mg/kg
  click("Option4");
  EXPECT_FALSE(shown("Ergebnis") || shown("ReportButton"));
}

// Our controls carry a name a screen reader can say; the toolkit's parts of them do not.
void expectControlsNamed(QWidget& window) {
  int controls = 0;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const QString name = control->objectName();
    if (name.isEmpty() || name.startsWith("qt_")) continue;
    if (qobject_cast<QAbstractButton*>(control) || qobject_cast<QLineEdit*>(control) ||
        qobject_cast<QComboBox*>(control) || qobject_cast<QAbstractScrollArea*>(control) ||
        qobject_cast<QProgressBar*>(control)) {
      EXPECT_FALSE(control->accessibleName().isEmpty())
          << window.objectName().toStdString() << ": " << name.toStdString();
      ++controls;
    }
  }
  EXPECT_GT(controls, 0) << window.objectName().toStdString();
}

// Every window the main window opens names its controls and takes the hand from the input
// folder (without the file the pointer stays as it was); the report and the menu's About are
// modal, and a scenario's "Details" set the main window's options.
TEST_F(HauptformTest, EveryWindowOpenedNamesItsControlsShowsTheHandAndTalksBack) {
  QSettings().setValue(kAllOptionsSetting, true);
  ASSERT_TRUE(start());
  expectControlsNamed(*window);
  window->model().report().reportFolder = input().parent_path().string();
  const auto modal = [&](const char* opener, const char* button, bool hand = true) {
    whileModal([&] { opener[0] == 'M' ? trigger(opener) : click(opener); },
               [&](QWidget& shown) {
                 expectControlsNamed(shown);
                 EXPECT_EQ(handOver(child(shown, button)), hand) << button;
               });
  };
  modal("M_About", "Command1");
  modal("MenuFischfutter", "Neuer_Datensatz");
  modal("Command1", "Go3");
  click("alle_rein");
  click("Optimierung");
  whileModal([&] { click("ReportButton"); },
             [&](QWidget& shown) {
               expectControlsNamed(shown);
               EXPECT_TRUE(handOver(child(shown, "Command1")));
               EXPECT_FALSE(window->isEnabled());
             });
  EXPECT_TRUE(window->isEnabled());
  click("Optimierung2");
  QWidget* report = nullptr;
  for (QWidget* top : QApplication::topLevelWidgets())
    if (top->objectName() == "Report" && top->isVisible()) report = top;
  ASSERT_NE(report, nullptr);
  click(*report, "Command4_7");  // run 8: F alone, MRBD on
  EXPECT_TRUE(find<QCheckBox>("Check2")->isChecked() && find<QCheckBox>("Check5")->isChecked());
  EXPECT_FALSE(find<QCheckBox>("Check1")->isChecked() || find<QCheckBox>("Check4")->isChecked());
  click(*report, "Command4_2");  // a scenario window of its own
  click("Image1");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);  // the logo's About leaves it usable
  click("Image2");
  trigger("screening");
  window->setGuideFolders({PESCAVO_GUIDE});
  trigger("menuHilfe");
  int windows = 0;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (!top->isVisible() || top == window.get()) continue;
    expectControlsNamed(*top);
    ++windows;
  }
  EXPECT_EQ(windows, 6);  // about, information, screening, help, report and scenario
  for (const char* button : {"OKButton", "Copy"})
    EXPECT_TRUE(handOver(window->findChild<QWidget*>(button))) << button;
  EXPECT_TRUE(handOver(child(*report, "Command4_15")));
  std::filesystem::remove(input() / "harrow.cur");
  modal("Command1", "PrintButton", false);
  EXPECT_FALSE(handOver(child(*report, "Fertig")));
}

// A missing cursor file leaves the pointer as it is; the file is read again at the next move.
TEST_F(HauptformTest, TheChosenListShowsTheHandOnceItHoldsComponents) {
  ASSERT_TRUE(start());
  QWidget* chosen = find<QAbstractScrollArea>("Fischfutter2")->viewport();
  EXPECT_FALSE(handOver(chosen));
  click("alle_rein");
  EXPECT_TRUE(handOver(chosen));
  std::filesystem::remove(input() / "harrow.cur");
  EXPECT_FALSE(handOver(find("Add")));
  write(input() / "harrow.cur", read(std::filesystem::path(PESCAVO_SAMPLE_INPUT) / "harrow.cur"));
  EXPECT_TRUE(handOver(find("Add")));
}

}  // namespace
}  // namespace pescavo
