#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>

#include "desktop/Styles.h"
#include "mainwindow/HauptformFixture.h"
#include "model/ScreeningView.h"
#include "screening/ScreeningPrint.h"
#include "screening/ScreeningTable.h"
#include "screening/ScreeningWindow.h"
#include "tables/FishTables.h"

namespace pescavo {
namespace {

const std::string kSample = PESCAVO_SAMPLE_INPUT;

// As many substances as a table may hold, each with residues on a third of 300 components:
// with scenarios far more work than a test waits for.
ComponentTable largeTable() {
  ComponentTable table;
  for (int s = 1; s <= ComponentTable::kMaxSubstances; ++s)
    table.addSubstance("Substance " + std::to_string(s));
  for (int i = 1; i <= 300; ++i) {
    table.addComponent({"By-Products", "Crop " + std::to_string(i), "feed", "4-00", 5.0 + (i % 60),
                        1 + (i % 20) * 0.5, 85 + (i % 10) * 0.5, 5.0 * (1 + i % 8),
                        2.5 * (1 + i % 8)});
    for (int s = 1; s <= ComponentTable::kMaxSubstances; ++s)
      if ((i * 7 + s * 3) % 3 == 0) table.setResidue(s, i, ((i + s) % 997) * 0.001 + 0.005);
  }
  return table;
}

class ScreeningWindowTest : public ::testing::Test {
 protected:
  void open(const ComponentTable& table) {
    ScreeningRequest request;
    request.scenarios = true;
    window = std::make_unique<ScreeningWindow>(table, species, fishmeal, '.', request, dialogs,
                                               folder.string());
    spy = std::make_unique<QSignalSpy>(window.get(), &ScreeningWindow::finished);
    window->show();
    view = child<QTableView>(*window, "ScreeningGrid");
  }
  QString cell(int row, int column) const {
    return view->model()->index(row, column).data().toString();
  }
  // Waits until the workers have made some runs; the window's timer must get its turn meanwhile.
  void waitForProgress() {
    auto* progress = child<QProgressBar>(*window, "Progress");
    QTRY_VERIFY_WITH_TIMEOUT(progress->value() > 0, 20000);
    EXPECT_LT(progress->value(), progress->maximum());
  }

  const std::vector<FishSpecies> species = readSpeciesTable(kSample + "/Species.tab");
  const std::vector<FishMealGrade> fishmeal = readFishmealTable(kSample + "/Fishmeal.tab");
  const ComponentTable sample = readComponentTable(kSample + "/feedstuff.tab");
  const QTemporaryDir scratch;  // its own: ctest runs the tests of this file side by side
  const std::filesystem::path folder = scratch.path().toStdString();
  ScriptedDialogs dialogs;
  std::unique_ptr<ScreeningWindow> window;
  std::unique_ptr<QSignalSpy> spy;
  QTableView* view = nullptr;
};

// Cancel and closing the window both stop the workers within a second; the rows done stay.
TEST_F(ScreeningWindowTest, CancelStopsTheScreeningWithinASecondAndShowsTheRowsDone) {
  open(largeTable());
  waitForProgress();
  EXPECT_FALSE(child(*window, "Copy")->isEnabled());
  QElapsedTimer clock;
  clock.start();
  click(*window, "Cancel");
  ASSERT_TRUE(spy->count() == 1 || spy->wait(1000));
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_FALSE(window->running());
  const int total = ComponentTable::kMaxSubstances * 16, done = view->model()->rowCount();
  EXPECT_LT(done, total);
  EXPECT_EQ(child<QLabel>(*window, "Status")->text(),
            QString("Cancelled after %1 of %2 runs").arg(done).arg(total));
  EXPECT_TRUE(child(*window, "Copy")->isEnabled());

  click(*window, "Start");
  waitForProgress();
  clock.restart();
  window->close();
  EXPECT_FALSE(window->running());
  EXPECT_LT(clock.elapsed(), 1000);
}

TEST_F(ScreeningWindowTest, HeaderClicksSortAndTheOutputsFollowTheOrderShown) {
  open(sample);
  ASSERT_TRUE(spy->wait(20000));
  const int rows = view->model()->rowCount();
  ASSERT_EQ(rows, sample.substanceCount() * 16);
  EXPECT_EQ(child<QLabel>(*window, "Status")->text(), QString("%1 runs screened").arg(rows));
  QHeaderView* header = view->horizontalHeader();
  const QPoint burden(header->sectionViewportPosition(5) + 5, header->height() / 2);
  for (int twice = 0; twice < 2; ++twice)  // largest first on the second click
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, burden);
  EXPECT_GE(cell(0, 5).toDouble(), cell(1, 5).toDouble());
  // Above the limit in red, as the core says, on screen; below it in the view's own colour.
  ASSERT_EQ(cell(0, 6), "yes");
  EXPECT_EQ(view->model()->index(0, 1).data(Qt::ForegroundRole).value<QBrush>().color(),
            QColor(255, 0, 0));
  EXPECT_FALSE(view->model()->index(rows - 1, 1).data(Qt::ForegroundRole).isValid());

  // Copied, saved and printed in the order shown.
  click(*window, "Copy");
  QStringList shown;
  for (int c = 0; c < view->model()->columnCount(); ++c) shown << cell(0, c);
  const std::size_t second = dialogs.clipboard.find('\n') + 1;
  EXPECT_EQ(dialogs.clipboard.substr(second, dialogs.clipboard.find('\n', second) - second),
            shown.join('\t').toStdString());
  click(*window, "Save");  // cancelled: nothing written
  EXPECT_EQ(dialogs.proposedNames,
            std::vector<std::string>{(folder / kScreeningFileName).string()});
  dialogs.saveNames = {(folder / "chosen.csv").string()};
  click(*window, "Save");
  std::ifstream csv(folder / "chosen.csv");
  const std::string text(std::istreambuf_iterator<char>(csv), {});
  EXPECT_EQ(text.substr(0, text.find('\n') + 1), screeningHeaderLine(true, ScreeningFormat::Csv));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), rows + 1);
  dialogs.printPdf = (folder / "screening.pdf").string();
  click(*window, "Print");
  EXPECT_GT(std::filesystem::file_size(dialogs.printPdf), 1000u);
}

TEST_F(ScreeningWindowTest, RowsAreThoseOfTheCommandLineForTheChoicesShown) {
  const auto cli = [](const QStringList& arguments) {
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(kSample + "/.."));
    process.start(PESCAVO_CLI, QStringList{"screen"} + arguments);
    EXPECT_TRUE(process.waitForFinished(20000));
    return process.readAllStandardOutput().toStdString();
  };
  open(sample);
  ASSERT_TRUE(spy->wait(20000));
  click(*window, "Copy");
  EXPECT_EQ(dialogs.clipboard, cli({"--scenarios"}));
  child<QComboBox>(*window, "SpeciesChoice")->setCurrentIndex(2);  // both
  child<QComboBox>(*window, "CriterionChoice")->setCurrentIndex(1);
  child<QCheckBox>(*window, "Scenarios")->setChecked(false);
  click(*window, "Start");
  ASSERT_TRUE(spy->wait(20000));
  click(*window, "Copy");
  EXPECT_EQ(dialogs.clipboard, cli({"--species", "both", "--criterion", "min"}));
}

// On paper nothing is cut: the columns fit the page, a long refusal wraps in a taller row, and
// the cells keep the colours they have on screen.
TEST_F(ScreeningWindowTest, PrintedTableFitsThePageAndKeepsTheColours) {
  std::vector<ScreeningRow> rows(3);
  for (ScreeningRow& row : rows) row.name = "Substance with a name of some length";
  rows[0].above = rows[0].checked = true;
  rows[0].verdict = CheckVerdict::Agrees;
  rows[1].stop = RunStop::NotSolvable;
  rows[1].burdenCell = rows[1].refusal = FeedRun::kNotSolvable;
  rows[2].checked = true;
  rows[2].verdict = CheckVerdict::Differs;
  ScreeningTable model(species, nullptr);
  model.setRows(rows, false);
  QTableView table;
  table.setModel(&model);
  for (double page : {2000.0, 700.0}) {
    const PrintTable printed = screeningPrintTable(model, table, page);
    ASSERT_EQ(printed.rows.size(), 4u);
    EXPECT_LE(std::accumulate(printed.widths.begin(), printed.widths.end(), 0), page);
    const QFontMetrics metrics(printed.font);
    for (std::size_t r = 0; r < printed.rows.size(); ++r)
      for (std::size_t c = 0; c < printed.widths.size(); ++c) {
        const QRect room(0, 0, printed.widths[c] - 4, 10000);
        EXPECT_LE(metrics.boundingRect(room, Qt::TextWordWrap, printed.rows[r][c].text).height(),
                  printed.heights[r])
            << page << " " << r << " " << c;
      }
    EXPECT_EQ(printed.heights[2] > printed.heights[1], page < 1000) << page;
    EXPECT_EQ(printed.rows[1][1].foreground, QColor(255, 0, 0));
    EXPECT_FALSE(printed.rows[2][1].foreground.isValid());
    EXPECT_EQ(printed.rows[3][0].background,
              qcolor(scenarioRunMark(CheckVerdict::Differs, true)->background));
  }
}

TEST_F(HauptformTest, ScreeningEntryOpensTheWindowAndADoubleClickSelectsTheRun) {
  QSettings().setValue(kAllOptionsSetting, true);
  ASSERT_TRUE(start());
  QAction* entry = find<QAction>("screening");
  EXPECT_TRUE(entry->isVisible());
  entry->trigger();
  auto* screening = find<ScreeningWindow>("Screening");
  ASSERT_NE(screening, nullptr);
  QSignalSpy finished(screening, &ScreeningWindow::finished);
  ASSERT_TRUE(finished.wait(20000));
  // The third substance, screened for carp at the maximum: the main window shows it so.
  find<QRadioButton>("Option4")->click();  // trout, to see the run's species come back
  auto* view = child<QTableView>(*screening, "ScreeningGrid");
  const QPoint third = view->visualRect(view->model()->index(2, 1)).center();
  // A double click is a press and release first, as from a mouse.
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, third);
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(find<QListWidget>("Schadstoffliste")->currentRow(), 2);
  EXPECT_EQ(items("Fischfutter2").size(), items("Fischfutter1").size());
  EXPECT_TRUE(find<QRadioButton>("Option3")->isChecked());
  entry->trigger();  // the same window comes to the front
  EXPECT_EQ(window->findChildren<ScreeningWindow*>().size(), 1);
  trigger("allOptions");
  EXPECT_FALSE(entry->isVisible());
}

}  // namespace
}  // namespace pescavo
