// The "All options" switch on the real main window: remembered between starts, what it brings
// into sight, and the component editor its "&Edit" menu opens.

#include <QMenu>
#include <QTableWidget>

#include "HauptformFixture.h"

namespace pescavo {
namespace {

class AllOptionsGuiTest : public HauptformTest {
 protected:
  QAction* allOptions() const { return find<QAction>("allOptions"); }
  bool revealed() const { return shown("Frame1") && shown("Optimierung2") && shown("Fischmehl"); }
};

TEST_F(AllOptionsGuiTest, TheSwitchShowsTheOptionsAndTheEditorAndSurvivesARestart) {
  ASSERT_TRUE(start());
  EXPECT_FALSE(allOptions()->isChecked());
  EXPECT_TRUE(find<QMenu>("MenuProgramm")->actions().contains(allOptions()));
  EXPECT_FALSE(shown("Frame1") || shown("Optimierung2"));
  allOptions()->trigger();
  EXPECT_TRUE(revealed());
  // A new start, as after closing the program: still on; off is remembered too.
  window.reset();
  ASSERT_TRUE(start());
  EXPECT_TRUE(allOptions()->isChecked() && revealed());
  EXPECT_TRUE(find<QAction>("MenuEdit")->isVisible());
  // The main window's lists follow the editor's changes once "Done" closed it.
  const int available = find<QListWidget>("Fischfutter1")->count();
  whileModal([&] { trigger("MenuFischfutter"); },
             [&](QWidget& editor) {
               EXPECT_EQ(editor.objectName(), "Komponentenliste");
               child<QTableWidget>(editor, "Kompomenteneigenschaften")->setCurrentCell(0, 1);
               dialogs.answers = {true};
               click(editor, "Loeschen");
               click(editor, "Fertig");
             });
  // The first component carried residues of the first substance, so the list lost it.
  EXPECT_EQ(find<QListWidget>("Fischfutter1")->count(), available - 1);
  whileModal([&] { click("Command1"); },
             [&](QWidget& overview) {
               EXPECT_EQ(overview.findChildren<QTableWidget*>()[0]->rowCount(), available - 1);
             });
  allOptions()->trigger();
  EXPECT_FALSE(shown("Frame1") || shown("Optimierung2"));
  window.reset();
  ASSERT_TRUE(start());
  EXPECT_FALSE(allOptions()->isChecked() || shown("Frame1"));
}

}  // namespace
}  // namespace pescavo
