// The "All options" switch on the real main window: remembered between starts, and the
// sweep started from it gives the command line's table.

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTableWidget>
#include <QTextEdit>
#include <QTimer>
#include <functional>

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
  QAction* allOptions() const { return window->findChild<QAction*>("allOptions"); }
  // What pescavo-cli prints for the first substance with every component moved in.
  std::string cli(QStringList args) const {
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(input().parent_path().string()));
    args =
        QStringList{"--decimal", ".", args.takeFirst(), "--substance-number", "1", "--all"} + args;
    process.start(PESCAVO_CLI, args);
    EXPECT_TRUE(process.waitForFinished(60000));
    return process.readAllStandardOutput().toStdString();
  }
  static constexpr const char* kRevealed[] = {"Frame1",    "Option1",          "Check2",
                                              "Check1",    "Check4",           "Check5",
                                              "Fischmehl", "FischmehlCaption", "Optimierung2"};
};

TEST_F(AllOptionsGuiTest, TheSwitchShowsTheOptionsAndSurvivesARestart) {
  ASSERT_TRUE(start());
  QAction* action = allOptions();
  ASSERT_NE(action, nullptr);
  EXPECT_TRUE(action->isCheckable());
  EXPECT_FALSE(action->isChecked());
  EXPECT_EQ(action->shortcut(), QKeySequence("Ctrl+Shift+O"));
  EXPECT_EQ(action->toolTip().toStdString(), kAllOptionsTooltip);
  EXPECT_TRUE(find<QMenu>("MenuProgramm")->actions().contains(action));
  for (const char* name : kRevealed) EXPECT_FALSE(shown(name)) << name;

  action->trigger();
  for (const char* name : kRevealed) EXPECT_TRUE(shown(name)) << name;
  const int height = window->height();

  // A new start, as after closing the program: still on, shown from the first layout.
  window.reset();
  ASSERT_TRUE(start());
  EXPECT_TRUE(allOptions()->isChecked());
  for (const char* name : kRevealed) EXPECT_TRUE(shown(name)) << name;
  EXPECT_EQ(window->height(), height);

  // Off is remembered too.
  window.reset();
  ASSERT_TRUE(start());
  allOptions()->trigger();
  for (const char* name : kRevealed) EXPECT_FALSE(shown(name)) << name;
  window.reset();
  ASSERT_TRUE(start());
  EXPECT_FALSE(allOptions()->isChecked());
  EXPECT_FALSE(shown("Frame1"));
}

// "Optimize all Scenarios" from the window: the table equals the command line's sweep, and a
// screen reader finds the sixteen "Details" buttons by their name.
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
  auto* grid = report->findChild<QTableWidget*>("AllScnErgebnis");
  ASSERT_NE(grid, nullptr);
  ASSERT_EQ(grid->rowCount(), 16);
  std::string rows;
  for (int r = 0; r < 16; ++r) {
    rows += grid->item(r, 0)->text().toStdString() + "\t" + grid->item(r, 1)->text().toStdString() +
            "\t" + grid->item(r, 2)->text().toStdString() + "\n";
  }
  EXPECT_EQ(rows, cli({"sweep", "--report-folder", QDir::tempPath()}));

  std::vector<QPushButton*> buttons;
  for (QPushButton* button : report->findChildren<QPushButton*>())
    if (button->accessibleName() == "Details") buttons.push_back(button);
  ASSERT_EQ(buttons.size(), 16u);
  for (QPushButton* button : buttons) {
    EXPECT_TRUE(button->isVisible());
    EXPECT_TRUE(button->accessibleDescription().startsWith("Scenario "));
  }
  // On the accessibility tree too, where a screen reader looks for them.
  std::function<int(QAccessibleInterface*)> named = [&](QAccessibleInterface* node) {
    if (!node) return 0;
    int found = node->role() == QAccessible::Button && node->text(QAccessible::Name) == "Details" &&
                node->text(QAccessible::Description).startsWith("Scenario ");
    for (int i = 0; i < node->childCount(); ++i) found += named(node->child(i));
    return found;
  };
  EXPECT_EQ(named(QAccessible::queryAccessibleInterface(report)), 16);
  // "Details" sets the main window's options, which are now in sight.
  const auto run8 = std::find_if(buttons.begin(), buttons.end(), [](QPushButton* button) {
    return button->accessibleDescription().startsWith("Scenario 8:");
  });
  ASSERT_NE(run8, buttons.end());
  QTest::mouseClick(*run8, Qt::LeftButton);  // F alone, MRBD on
  EXPECT_TRUE(find<QCheckBox>("Check2")->isChecked());
  EXPECT_TRUE(find<QCheckBox>("Check5")->isChecked());
  EXPECT_FALSE(find<QCheckBox>("Check1")->isChecked() || find<QCheckBox>("Check4")->isChecked());
}

// The switch shows "&Edit"; the editor it opens changes the table, and the main window's lists
// follow it once "Done" closed the editor.
TEST_F(AllOptionsGuiTest, TheEditMenuOpensTheComponentEditor) {
  ASSERT_TRUE(start());
  QAction* edit = window->findChild<QAction*>("MenuEdit");
  EXPECT_FALSE(edit->isVisible());
  allOptions()->trigger();
  EXPECT_TRUE(edit->isVisible());
  const int available = find<QListWidget>("Fischfutter1")->count();
  const int components = window->model().database().table().componentCount();
  QTimer::singleShot(0, [&] {
    QWidget* editor = QApplication::activeModalWidget();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->objectName(), "Komponentenliste");
    auto* grid = editor->findChild<QTableWidget*>("Kompomenteneigenschaften");
    grid->setCurrentCell(0, 1);
    dialogs.answers = {true};
    editor->findChild<QPushButton*>("Loeschen")->click();
    editor->findChild<QPushButton*>("Fertig")->click();
  });
  window->findChild<QAction*>("MenuFischfutter")->trigger();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(window->model().database().table().componentCount(), components - 1);
  // The first component carried residues of the first substance, so the list lost it.
  EXPECT_EQ(find<QListWidget>("Fischfutter1")->count(), available - 1);

  QTimer::singleShot(0, [&] {
    QWidget* overview = QApplication::activeModalWidget();
    ASSERT_NE(overview, nullptr);
    EXPECT_EQ(overview->findChild<QTableWidget*>()->rowCount(), available - 1);
    overview->findChild<QPushButton*>("Fertig")->click();
  });
  find<QPushButton>("Command1")->click();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace pescavo
