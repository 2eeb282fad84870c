// The report window in single mode, opened by "Report" after a run: the views it switches
// between, what it copies and prints, and how it leaves the main window and Report.txt.

#include <QPieSeries>
#include <QPlainTextEdit>

#include "ReportTestSupport.h"
#include "desktop/Styles.h"
#include "model/Explanation.h"
#include "model/ReportRun.h"
#include "reports/ResultTables.h"
#include "reportwindows/PieChartView.h"
#include "reportwindows/Report.h"
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
  std::string bericht() const { return model.report().bericht; }

  Report report{model, dialogs, &mainWindow};
};

// Every press brings the view the core's state gives, filled with what the core hands over;
// copying and printing take the view on screen, and a cancelled print dialog prints nothing.
TEST_F(SingleModeTest, EachViewShowsCopiesAndPrintsWhatTheCoreHandsOver) {
  ReportViewState expected(ReportViewState::Window::Report);
  expected.openSingle(true);
  const auto press = [&](const char* button, auto toggle) {
    click(report, button);
    (expected.*toggle)();
    expectView(report, expected.controls());
    click(report, "Kopieren");
  };
  const auto print = [&](const char* name) {
    dialogs.printPdf = file(name);
    click(report, "Drucken");
    return pdfPageText(dialogs.printPdf, 1);
  };
  withReport([&] {
    EXPECT_FALSE(mainWindow.isEnabled());
    auto* text = child<QPlainTextEdit>(report, "Bericht");
    EXPECT_EQ(report.focusWidget(), text);
    EXPECT_EQ(text->toPlainText(), QString::fromStdString(bericht()).remove('\r'));
    expectView(report, expected.controls());
    click(report, "Kopieren");
    EXPECT_EQ(dialogs.clipboard, bericht());  // CR LF as written
    click(report, "Drucken");                 // no printer chosen: Cancel
    EXPECT_EQ(dialogs.printDialogs, 1);
    EXPECT_NE(print("text.pdf").find("Pescavo concerning Example substance A"), std::string::npos);

    press("Command1", &ReportViewState::toggleTable);
    EXPECT_EQ(child<QLineEdit>(report, "TextFischname2")->text().toStdString(),
              reportLabels(model).speciesTargets);
    auto* grid = child<QTableWidget>(report, "ErgebnisGrid");
    const auto& rows = model.report().ergebnisGrid;
    ASSERT_EQ(grid->rowCount() + 1, static_cast<int>(rows.size()));
    for (int c = 0; c < 9; ++c) {
      EXPECT_EQ(grid->horizontalHeaderItem(c)->text().toStdString(), rows[0][c]);
      EXPECT_EQ(grid->item(0, c)->text().toStdString(), rows[1][c]);
    }
    const QStringList lines = QString::fromStdString(dialogs.clipboard).split("\r\n");
    EXPECT_EQ(lines.size(), static_cast<int>(rows.size()) + 1);
    EXPECT_EQ(lines.front().split('\t').size(), 9);
    print("table.pdf");
    // Wider than a page: every page has the title and names the rows by category and crop.
    EXPECT_GT(pdfPages(dialogs.printPdf), 1);
    for (int page = 1; page <= pdfPages(dialogs.printPdf); ++page) {
      const std::string table = pdfPageText(dialogs.printPdf, page);
      EXPECT_NE(table.find("Pescavo - Substance: Example substance A"), std::string::npos);
      EXPECT_NE(table.find("Barley (brewers grains, dried)"), std::string::npos) << page;
    }
    press("Command1", &ReportViewState::toggleTable);

    // The explanation of this run, the report text left as it was.
    press("Explain", &ReportViewState::toggleExplanation);
    EXPECT_EQ(child<QPlainTextEdit>(report, "Explanation")->toPlainText().toStdString(),
              explanationText(explainRun(model.lastRun()), '.'));
    EXPECT_EQ(dialogs.clipboard.rfind("The maximum dietary burden is ", 0), 0u);
    EXPECT_NE(print("explanation.pdf").find("is at its maximum of"), std::string::npos);
    press("Explain", &ReportViewState::toggleExplanation);
    EXPECT_EQ(text->toPlainText(), QString::fromStdString(bericht()).remove('\r'));

    // The chart opens on the kind the core chose, drawn from the core's slices; it is copied
    // as a picture alone and printed through the clipboard.
    dialogs.clipboard = "before";
    press("Command2", &ReportViewState::toggleChart);
    EXPECT_EQ(child<QComboBox>(report, "Combo1")->currentIndex(), kFeedComposition);
    auto* chart = child<PieChartView>(report, "MSChart1");
    const PieChart feed = Diagrammzeichnen(model, kFeedComposition);
    EXPECT_EQ(chart->title().toStdString(), feed.title);
    EXPECT_EQ(chart->footnote().toStdString(), feed.footnote);
    ASSERT_EQ(chart->series()->count(), static_cast<int>(feed.slices.size()));
    for (std::size_t i = 0; i < feed.slices.size(); ++i)
      EXPECT_EQ(chart->series()->slices()[i]->label().toStdString(), feed.slices[i].label);
    EXPECT_TRUE(dialogs.clipboard.empty());
    EXPECT_GT(dialogs.clipboardImage.width(), dialogs.clipboardImage.height());
    dialogs.clipboardImage = QImage();
    print("chart.pdf");
    EXPECT_EQ(pdfPages(dialogs.printPdf), 1);
    EXPECT_TRUE(pdfLandscape(dialogs.printPdf));
    EXPECT_FALSE(dialogs.clipboardImage.isNull());
    chooseChart(report, kDietaryLoad);
    EXPECT_EQ(chart->title().toStdString(), Diagrammzeichnen(model, kDietaryLoad).title);
    click(report, "Fertig");
  });
  EXPECT_FALSE(report.isVisible());
  EXPECT_TRUE(mainWindow.isEnabled());
  EXPECT_EQ(reportFile(), " \r\n");

  // A second report: the chart kinds are there once.
  withReport([&] { EXPECT_EQ(child<QComboBox>(report, "Combo1")->count(), 2); });
  report.openAllScenarios();  // the same window after a sweep: beside the main window
  EXPECT_TRUE(report.isVisible() && !report.isModal());
  report.close();
}

TEST_F(SingleModeTest, AWarningWhenTheCheckDiffers) {
  withReport([&] { EXPECT_FALSE(shown(report, "CheckWarning")); });
  loadErringTables(model);
  model.options().setPseudoComponents({false, false, false});
  model.Optimierung_Click();
  ASSERT_EQ(model.lastRun().check().verdict, CheckVerdict::Differs);
  withReport([&] {
    auto* warning = child<QLabel>(report, "CheckWarning");
    EXPECT_TRUE(warning->isVisible());
    EXPECT_EQ(warning->text().toStdString(), model.lastRun().checkSentence());
    EXPECT_EQ(warning->palette().color(QPalette::WindowText),
              qcolor(reportCheckWarningStyle().text));
    click(report, "Command1");
    EXPECT_TRUE(warning->isVisible());  // over the table as well
  });
}

}  // namespace
}  // namespace pescavo::test
