#include <QComboBox>
#include <QLabel>
#include <QTextEdit>

#include "HauptformFixture.h"

namespace pescavo {
namespace {

TEST_F(HauptformTest, FullLayoutShowsTheListsAndNamesEveryControl) {
  ASSERT_TRUE(start(false));
  EXPECT_EQ(window->windowTitle(), "Pescavo");
  EXPECT_EQ(window->centralWidget()->width(), 1184);
  for (const char* visible : {"Fischfutter2", "alle_rein", "Optimierung", "Image1"})
    EXPECT_TRUE(shown(visible)) << visible;
  for (const char* hidden : {"Check1", "Frame1", "Fischmehl", "Ergebnis", "schadstoffwerte"})
    EXPECT_FALSE(shown(hidden)) << hidden;
  EXPECT_TRUE(enabled("Loeschen"));  // the sample holds five substances
  EXPECT_FALSE(enabled("raus"));
  EXPECT_EQ(find("Fischfutter2")->geometry(), QRect(560, 56, 177, 310));
  EXPECT_EQ(find("alle_rein")->toolTip(), "Add all available components to optimization.");
  EXPECT_TRUE(find<QAction>("restore")->isVisible());
  EXPECT_FALSE(find<QAction>("MenuEdit")->isVisible());
  EXPECT_EQ(find<QAction>("save")->shortcut(), QKeySequence("Ctrl+S"));
  EXPECT_EQ(find<QAction>("exit")->shortcut(), QKeySequence("Ctrl+E"));
  EXPECT_EQ(find<QAction>("menuHilfe")->shortcut(), QKeySequence(Qt::Key_F1));
  EXPECT_EQ(find<QListWidget>("Schadstoffliste")->currentRow(), 0);
  // Every control has a name a screen reader can say; not the parts Qt builds inside them.
  for (QWidget* widget : window->centralWidget()->findChildren<QWidget*>()) {
    if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
    if (widget->parentWidget() == window->centralWidget() ||
        widget->parentWidget()->inherits("QGroupBox")) {
      EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
  }
  EXPECT_EQ(find("Fischfutter2")->accessibleName(), "Components in optimization");
}

// Narrow, with the fish-meal grade in the list's column; editing a substance borrows the full
// width and gives it back.
TEST_F(HauptformTest, SimpleLayoutIsNarrowAndOffersTheFishmealGrade) {
  ASSERT_TRUE(start(true));
  EXPECT_EQ(window->width(), 600);
  EXPECT_TRUE(shown("Fischmehl"));
  EXPECT_FALSE(shown("Fischfutter2") || shown("Check1") || shown("Optimierung2"));
  EXPECT_EQ(find("Optimierung")->geometry(), QRect(467, 40, 113, 41));
  EXPECT_EQ(find("Fischmehl")->geometry().topLeft(), QPoint(267, 227));
  EXPECT_LT(find("Fischfutter1")->geometry().bottom(), find("FischmehlCaption")->y());
  EXPECT_EQ(find<QComboBox>("Fischmehl")->currentIndex(), 2);
  EXPECT_FALSE(find<QAction>("restore")->isVisible());

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
  for (int p : {1, 3}) find<QListWidget>("Fischfutter1")->item(p)->setSelected(true);
  click("Rein");
  EXPECT_EQ(items("Fischfutter2"), QStringList({available[1], available[3]}));
  EXPECT_TRUE(enabled("raus") && enabled("alle_raus"));
  auto* chosen = find<QListWidget>("Fischfutter2");
  chosen->setCurrentRow(0);
  click("raus");
  EXPECT_EQ(items("Fischfutter2"), QStringList{available[3]});
  EXPECT_EQ(chosen->currentRow(), 0);
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
  QTest::mouseMove(list->viewport(), barley + QPoint(9, 4));
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
  EXPECT_FALSE(shown("Ergebnis") || shown("ReportButton"));

  dialogs.messages.clear();
  click("alle_rein");
  click("Optimierung");
  auto* box = find<QTextEdit>("Ergebnis");
  ASSERT_TRUE(shown("Ergebnis"));
  EXPECT_TRUE(shown("ReportButton"));
  EXPECT_EQ(box->toPlainText(),
            "Maximum content dietary burden based on Example substance A (fungicide) is 0.204 "
            "mg/kg.");
  EXPECT_EQ(statementColour(box), QColor(255, 0, 0));
  EXPECT_EQ(find<QLabel>("Gegenpruefung")->text(), "Independent check: agrees.");
  EXPECT_TRUE(dialogs.messages.empty());

  chooseSubstance(1);  // the lists are rebuilt and the result withdrawn
  EXPECT_FALSE(shown("Ergebnis") || shown("Gegenpruefung"));
  EXPECT_TRUE(items("Fischfutter2").isEmpty());
  click("alle_rein");
  click("Optimierung");
  EXPECT_EQ(box->toPlainText(),
            "Maximum content dietary burden based on Example substance B (herbicide) is 0.065 "
            "mg/kg.");
  EXPECT_EQ(statementColour(box), QColor(0, 0, 0));
  click("Option4");  // any option click withdraws the result
  EXPECT_FALSE(shown("Ergebnis") || shown("ReportButton"));
}

}  // namespace
}  // namespace pescavo
