// The report window in single mode, opened by "Report" after a run: the views it switches
// between, what it copies and prints, and how it leaves the main window and Report.txt.

#include <QAbstractButton>
#include <QGraphicsView>
#include <QImage>
#include <QPieSeries>
#include <QPieSlice>
#include <QPlainTextEdit>

#include "ReportTestSupport.h"
#include "desktop/Styles.h"
#include "model/Explanation.h"
#include "model/ReportRun.h"
#include "model/ReportViewState.h"
#include "reportwindows/CompositionGrid.h"
#include "reportwindows/PieChartView.h"
#include "reportwindows/Report.h"
#include "reportwindows/ReportSingle.h"
#include "reportwindows/ReportViews.h"
#include "support/ErringTables.h"

namespace pescavo::test {
namespace {

class SingleModeTest : public ReportWindowTest {
 protected:
  void SetUp() override {
    ReportWindowTest::SetUp();
    model.selection().alle_rein();
    model.Optimierung_Click();
    ASSERT_TRUE(model.visible(ControlId::ReportButton));
  }
  // Opens the report as the "Report" button does and runs body while it is on screen.
  void withReport(const std::function<void()>& body) {
    whileModal([&] { report.openSingle(); }, [&](QWidget&) { body(); });
  }
  QStringList sliceLabels() {
    QStringList labels;
    if (auto* chart = child<PieChartView>(report, "MSChart1"))
      for (QPieSlice* slice : chart->series()->slices()) labels << slice->label();
    return labels;
  }
  QString chartTitle() {
    auto* chart = child<PieChartView>(report, "MSChart1");
    return chart ? chart->title() : QString();
  }

  Report report{model, dialogs, &mainWindow};
};

// Every press brings the view the core's state gives, filled with what the core hands over;
// the chart view always opens on the feed composition.
TEST_F(SingleModeTest, EachPressShowsTheCoresViewFilledFromTheCore) {
  ReportViewState expected(ReportViewState::Window::Report);
  expected.openSingle(true);
  const auto press = [&](const char* button, auto toggle) {
    click(report, button);
    (expected.*toggle)();
    expectView(report, expected.controls());
  };
  withReport([&] {
    EXPECT_FALSE(mainWindow.isEnabled());
    auto* text = child<QPlainTextEdit>(report, "Bericht");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(report.focusWidget(), text);
    EXPECT_EQ(text->toPlainText(), QString::fromStdString(model.report().bericht).remove('\r'));
    expectView(report, expected.controls());

    press("Command1", &ReportViewState::toggleTable);
    EXPECT_EQ(child<QLineEdit>(report, "TextFischname2")->text().toStdString(),
              reportLabels(model).speciesTargets);
    auto* grid = child<QTableWidget>(report, "ErgebnisGrid");
    const auto& rows = model.report().ergebnisGrid;
    ASSERT_EQ(grid->rowCount() + 1, static_cast<int>(rows.size()));
    for (int c = 0; c < 9; ++c) {
      EXPECT_EQ(grid->horizontalHeaderItem(c)->text().toStdString(), rows[0][c]);
      EXPECT_EQ(grid->item(0, c)->text().toStdString(), rows[1][c]);
      EXPECT_EQ(grid->item(0, c)->textAlignment() == int(Qt::AlignCenter),
                compositionCellCentred(1, c));
    }
    press("Command1", &ReportViewState::toggleTable);

    // The explanation of this run, the report text left as it was.
    press("Explain", &ReportViewState::toggleExplanation);
    EXPECT_EQ(child<QPlainTextEdit>(report, "Explanation")->toPlainText().toStdString(),
              explanationText(explainRun(model.lastRun()), '.'));
    press("Explain", &ReportViewState::toggleExplanation);
    EXPECT_EQ(text->toPlainText(), QString::fromStdString(model.report().bericht).remove('\r'));

    press("Command2", &ReportViewState::toggleChart);
    auto* combo = child<QComboBox>(report, "Combo1");
    EXPECT_EQ(combo->currentIndex(), kFeedComposition);
    const PieChart feed = Diagrammzeichnen(model, kFeedComposition);
    EXPECT_EQ(chartTitle().toStdString(), feed.title);
    EXPECT_EQ(child<PieChartView>(report, "MSChart1")->footnote().toStdString(), feed.footnote);
    QStringList labels;
    for (const PieSlice& slice : feed.slices) labels << QString::fromStdString(slice.label);
    EXPECT_EQ(sliceLabels(), labels);
    chooseChart(report, kDietaryLoad);
    EXPECT_EQ(chartTitle().toStdString(), Diagrammzeichnen(model, kDietaryLoad).title);
    press("Command2", &ReportViewState::toggleChart);
    press("Command2", &ReportViewState::toggleChart);
    EXPECT_EQ(combo->currentIndex(), kFeedComposition);
    EXPECT_EQ(chartTitle().toStdString(), feed.title);
    click(report, "Fertig");
  });
  EXPECT_FALSE(report.isVisible());
  EXPECT_TRUE(mainWindow.isEnabled());
  EXPECT_EQ(reportFile(), " \r\n");

  // A second report: the chart kinds are there once.
  withReport([&] { EXPECT_EQ(child<QComboBox>(report, "Combo1")->count(), 2); });
  report.openAllScenarios();  // the same window after a sweep: beside the main window
  EXPECT_TRUE(report.isVisible());
  EXPECT_FALSE(report.isModal());
  report.close();
}

// Copying and printing take the view on screen; a cancelled print dialog prints nothing.
TEST_F(SingleModeTest, CopiesAndPrintsWhatIsOnScreen) {
  withReport([&] {
    click(report, "Kopieren");
    EXPECT_EQ(dialogs.clipboard, model.report().bericht);  // CR LF as written
    click(report, "Drucken");                              // no printer chosen: Cancel
    EXPECT_EQ(dialogs.printDialogs, 1);
    dialogs.printPdf = file("text.pdf");
    click(report, "Drucken");
    std::string all;  // the whole text, over every page
    for (int page = 1; page <= pdfPages(dialogs.printPdf); ++page)
      all += pdfPageText(dialogs.printPdf, page);
    EXPECT_NE(all.find("Pescavo concerning Example substance A"), std::string::npos);
    EXPECT_NE(all.find("The dietary load of Example substance A (fungicide)"), std::string::npos);

    click(report, "Command1");
    click(report, "Kopieren");
    const QStringList lines = QString::fromStdString(dialogs.clipboard).split("\r\n");
    QStringList header;  // the core's heading row, as the grid shows it
    for (const std::string& cell : model.report().ergebnisGrid.front())
      header << QString::fromStdString(cell);
    EXPECT_EQ(lines.front(), header.join('\t'));
    EXPECT_EQ(lines.size(), static_cast<int>(model.report().ergebnisGrid.size()) + 1);
    dialogs.printPdf = file("table.pdf");
    click(report, "Drucken");
    // Wider than a page: every page has the title and names the rows by category and crop.
    const int pages = pdfPages(dialogs.printPdf);
    EXPECT_GT(pages, 1);
    for (int page = 1; page <= pages; ++page) {
      const std::string table = pdfPageText(dialogs.printPdf, page);
      EXPECT_NE(table.find("Pescavo - Substance: Example substance A"), std::string::npos);
      EXPECT_NE(table.find("Barley (brewers grains, dried)"), std::string::npos) << page;
    }
    click(report, "Command1");

    click(report, "Explain");
    click(report, "Kopieren");
    EXPECT_EQ(dialogs.clipboard.rfind("The maximum dietary burden is ", 0), 0u);
    dialogs.printPdf = file("explanation.pdf");
    click(report, "Drucken");
    EXPECT_NE(pdfPageText(dialogs.printPdf, 1).find("is at its maximum of"), std::string::npos);
    click(report, "Explain");

    click(report, "Command2");
    click(report, "Kopieren");
    EXPECT_TRUE(dialogs.clipboard.empty());  // the picture alone
    const QImage picture = dialogs.clipboardImage;
    EXPECT_GT(picture.width(), picture.height());
    bool coloured = false;  // not a blank picture: the slices are drawn in colour
    for (int y = 0; y < picture.height() && !coloured; y += 4)
      for (int x = 0; x < picture.width() && !coloured; x += 4)
        coloured = picture.pixelColor(x, y).saturation() > 100;
    EXPECT_TRUE(coloured);
    dialogs.printPdf = file("chart.pdf");
    dialogs.clipboardImage = QImage();
    click(report, "Drucken");
    EXPECT_EQ(pdfPages(dialogs.printPdf), 1);
    EXPECT_TRUE(pdfLandscape(dialogs.printPdf));
    EXPECT_FALSE(dialogs.clipboardImage.isNull());  // on its way through the clipboard
  });
}

// Every control can be found by a screen reader, in both windows.
TEST_F(SingleModeTest, EveryControlHasAnAccessibleName) {
  const auto expectNamed = [](QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
      const bool isControl =
          qobject_cast<QAbstractButton*>(control) || qobject_cast<QLineEdit*>(control) ||
          qobject_cast<QComboBox*>(control) || qobject_cast<QAbstractItemView*>(control) ||
          qobject_cast<QPlainTextEdit*>(control) || qobject_cast<QGraphicsView*>(control);
      // Our controls carry names; the toolkit's parts of them (headers, scroll bars) do not.
      const QString name = control->objectName();
      if (isControl && !name.isEmpty() && !name.startsWith("qt_")) {
        EXPECT_FALSE(control->accessibleName().isEmpty()) << name.toStdString();
      }
    }
  };
  expectNamed(report);
  report.openAllScenarios();
  QTest::mouseClick(report.findChild<QPushButton*>("Command4_2"), Qt::LeftButton);
  ASSERT_EQ(report.findChildren<ReportSingle*>().size(), 1);
  expectNamed(*report.findChildren<ReportSingle*>().front());
  report.close();
}

// The independent check's verdict stands above a report whose run it does not agree with.
TEST_F(SingleModeTest, AWarningWhenTheCheckDiffers) {
  withReport([&] { EXPECT_FALSE(shown(report, "CheckWarning")); });

  loadErringTables(model);
  model.options().setPseudoComponents({false, false, false});
  model.Optimierung_Click();
  ASSERT_EQ(model.lastRun().check().verdict, CheckVerdict::Differs);
  withReport([&] {
    EXPECT_TRUE(shown(report, "CheckWarning"));
    auto* warning = child<QLabel>(report, "CheckWarning");
    EXPECT_EQ(warning->text().toStdString(), model.lastRun().checkSentence());
    EXPECT_EQ(warning->palette().color(QPalette::WindowText),
              qcolor(reportCheckWarningStyle().text));
    click(report, "Command1");
    EXPECT_TRUE(shown(report, "CheckWarning"));  // over the table as well
  });
}

}  // namespace
}  // namespace pescavo::test
