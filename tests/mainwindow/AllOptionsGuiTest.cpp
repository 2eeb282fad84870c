// The "All options" switch on the real main window: remembered between starts, and what it
// brings into sight.

#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QTableWidget>

#include "HauptformFixture.h"
#include "model/AllOptionsLayout.h"

namespace pescavo {
namespace {

class AllOptionsGuiTest : public HauptformTest {
 protected:
  // Every test begins with the switch off, as on a first start.
  void SetUp() override {
    HauptformTest::SetUp();
    QSettings().remove(kAllOptionsSetting);
  }
  void TearDown() override {
    QSettings().remove(kAllOptionsSetting);
    HauptformTest::TearDown();
  }
  QAction* allOptions() const { return find<QAction>("allOptions"); }
  bool revealed() const {
    bool all = true, none = true;
    for (const char* name : {"Frame1", "Option1", "Check2", "Check1", "Check4", "Check5",
                             "Fischmehl", "FischmehlCaption", "Optimierung2"}) {
      all = all && shown(name);
      none = none && !shown(name);
    }
    EXPECT_TRUE(all || none) << "some of the options shown";
    return all;
  }
};

TEST_F(AllOptionsGuiTest, TheSwitchShowsTheOptionsAndSurvivesARestart) {
  ASSERT_TRUE(start());
  EXPECT_FALSE(allOptions()->isChecked());
  EXPECT_EQ(allOptions()->shortcut(), QKeySequence("Ctrl+Shift+O"));
  EXPECT_TRUE(find<QMenu>("MenuProgramm")->actions().contains(allOptions()));
  EXPECT_FALSE(revealed());
  allOptions()->trigger();
  EXPECT_TRUE(revealed());
  const int height = window->height();
  // A new start, as after closing the program: still on, shown from the first layout; off is
  // remembered too.
  for (bool on : {true, false}) {
    window.reset();
    ASSERT_TRUE(start());
    EXPECT_EQ(allOptions()->isChecked(), on);
    EXPECT_EQ(revealed(), on);
    if (!on) break;
    EXPECT_EQ(window->height(), height);
    allOptions()->trigger();
    EXPECT_FALSE(revealed());
  }
}

TEST_F(AllOptionsGuiTest, TheSweepOpensTheScenarioTable) {
  ASSERT_TRUE(start());
  allOptions()->trigger();
  window->model().report().reportFolder = input().parent_path().string();
  click("alle_rein");
  click("Optimierung2");
  QWidget* report = nullptr;
  for (QWidget* top : QApplication::topLevelWidgets())
    if (top->objectName() == "Report" && top->isVisible()) report = top;
  ASSERT_NE(report, nullptr);
  EXPECT_EQ(child<QTableWidget>(*report, "AllScnErgebnis")->rowCount(), 16);
  EXPECT_EQ(child<QLineEdit>(*report, "TextSubstanz")->text(), "Example substance A (fungicide)");
  // "Details" sets the main window's options, which are now in sight.
  click(*report, "Command4_7");  // run 8: F alone, MRBD on
  EXPECT_TRUE(find<QCheckBox>("Check2")->isChecked());
  EXPECT_TRUE(find<QCheckBox>("Check5")->isChecked());
  EXPECT_FALSE(find<QCheckBox>("Check1")->isChecked() || find<QCheckBox>("Check4")->isChecked());
}

// The switch shows "&Edit"; the editor it opens changes the table, and the main window's lists
// follow it once "Done" closed the editor.
TEST_F(AllOptionsGuiTest, TheEditMenuOpensTheComponentEditor) {
  ASSERT_TRUE(start());
  EXPECT_FALSE(find<QAction>("MenuEdit")->isVisible());
  allOptions()->trigger();
  EXPECT_TRUE(find<QAction>("MenuEdit")->isVisible());
  const int available = find<QListWidget>("Fischfutter1")->count();
  const int components = window->model().database().table().componentCount();
  whileModal([&] { trigger("MenuFischfutter"); },
             [&](QWidget& editor) {
               EXPECT_EQ(editor.objectName(), "Komponentenliste");
               child<QTableWidget>(editor, "Kompomenteneigenschaften")->setCurrentCell(0, 1);
               dialogs.answers = {true};
               click(editor, "Loeschen");
               click(editor, "Fertig");
               EXPECT_FALSE(editor.isVisible());
             });
  EXPECT_EQ(window->model().database().table().componentCount(), components - 1);
  // The first component carried residues of the first substance, so the list lost it.
  EXPECT_EQ(find<QListWidget>("Fischfutter1")->count(), available - 1);
  whileModal([&] { click("Command1"); },
             [&](QWidget& overview) {
               EXPECT_EQ(overview.findChild<QTableWidget*>()->rowCount(), available - 1);
             });
}

}  // namespace
}  // namespace pescavo
