// The report window in single mode, opened by "Report" after a run: the views it switches
// between, what it copies and prints, and how it leaves the main window and Report.txt.

#include <QAbstractButton>
#include <QGraphicsView>
#include <QImage>
#include <QPieSeries>
#include <QPieSlice>
#include <QPlainTextEdit>

#include "ReportTestSupport.h"
#include "model/ReportRun.h"
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
    ASSERT_TRUE(model.reportButtonVisible());
  }
  // Opens the report as the "Report" button does and runs body while it is on screen.
  void withReport(const std::function<void()>& body) {
    whileModal([&] { report.openSingle(); }, body);
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

TEST_F(SingleModeTest, TextTableAndChartTakeTurnsAndTheChartOpensOnTheFeedComposition) {
  withReport([&] {
    EXPECT_TRUE(report.isModal());
    EXPECT_FALSE(mainWindow.isEnabled());
    EXPECT_EQ(report.windowTitle(), "Report");
    auto* text = child<QPlainTextEdit>(report, "Bericht");
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->isVisible());
    EXPECT_EQ(report.focusWidget(), text);
    EXPECT_EQ(text->toPlainText(), QString::fromStdString(model.report().bericht).remove('\r'));
    EXPECT_TRUE(text->toPlainText().contains("Pescavo concerning Example substance A"));
    for (const char* hidden : {"ErgebnisGrid", "AllScnErgebnis", "MSChart1", "Combo1", "Command3",
                               "Label1", "TextSubstanz", "Command4_0"})
      EXPECT_FALSE(shown(report, hidden)) << hidden;
    EXPECT_EQ(caption(report, "Command1"), "Convert into table");
    EXPECT_EQ(caption(report, "Command2"), "Draw pie chart");

    // The table hides the chart button and brings the labels.
    click(report, "Command1");
    EXPECT_TRUE(shown(report, "ErgebnisGrid") && shown(report, "Label1") &&
                shown(report, "TextFischname2"));
    EXPECT_FALSE(shown(report, "Bericht") || shown(report, "Command2"));
    EXPECT_EQ(caption(report, "Command1"), "Back");
    EXPECT_EQ(child<QLineEdit>(report, "TextFischname2")->text(), "(8.00% Lipid; 35.00% Protein)");
    auto* grid = child<QTableWidget>(report, "ErgebnisGrid");
    const auto& rows = model.report().ergebnisGrid;
    ASSERT_EQ(grid->rowCount() + 1, static_cast<int>(rows.size()));
    EXPECT_EQ(grid->horizontalHeaderItem(8)->text(), "Dietary load (%)");
    EXPECT_EQ(grid->item(0, 1)->text().toStdString(), rows[1][1]);
    EXPECT_EQ(grid->item(rows.size() - 2, 0)->text(), "F");
    EXPECT_EQ(grid->item(0, 7)->textAlignment(), int(Qt::AlignCenter));
    EXPECT_NE(grid->item(0, 1)->textAlignment(), int(Qt::AlignCenter));
    click(report, "Command1");
    EXPECT_TRUE(shown(report, "Bericht") && shown(report, "Command2"));
    EXPECT_FALSE(shown(report, "ErgebnisGrid") || shown(report, "Label1"));
    EXPECT_EQ(caption(report, "Command1"), "Convert into table");

    // The chart hides the table button; it opens on the feed composition every time.
    click(report, "Command2");
    auto* combo = child<QComboBox>(report, "Combo1");
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->itemText(0), "Dietary Load");
    EXPECT_EQ(combo->itemText(1), "Feed composition");
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_TRUE(shown(report, "MSChart1") && shown(report, "Combo1"));
    EXPECT_FALSE(shown(report, "Command1") || shown(report, "Bericht"));
    EXPECT_EQ(caption(report, "Command2"), "Back");
    const PieChart feed = Diagrammzeichnen(model, kFeedComposition);
    EXPECT_EQ(chartTitle(), "Worst case feed composition regarding Common carp");
    EXPECT_EQ(child<PieChartView>(report, "MSChart1")->footnote().toStdString(), feed.footnote);
    ASSERT_EQ(sliceLabels().size(), static_cast<int>(feed.slices.size()));
    EXPECT_EQ(sliceLabels().front().toStdString(), feed.slices.front().label);
    chooseChart(report, kDietaryLoad);
    EXPECT_EQ(chartTitle(), "Dietary load regarding Common carp");
    EXPECT_EQ(sliceLabels().front().toStdString(),
              Diagrammzeichnen(model, kDietaryLoad).slices.front().label);
    click(report, "Command2");
    EXPECT_TRUE(shown(report, "Bericht") && shown(report, "Command1"));
    EXPECT_FALSE(shown(report, "MSChart1") || shown(report, "Combo1"));
    click(report, "Command2");
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(chartTitle(), "Worst case feed composition regarding Common carp");
    click(report, "Fertig");
  });
  EXPECT_FALSE(report.isVisible());
  EXPECT_TRUE(mainWindow.isEnabled());
  EXPECT_EQ(reportFile(), " \r\n");

  // A second report: the chart kinds are there once, the text starts afresh with its title.
  withReport([&] {
    EXPECT_EQ(child<QComboBox>(report, "Combo1")->count(), 2);
    EXPECT_EQ(child<QComboBox>(report, "Combo1")->currentIndex(), -1);
    EXPECT_TRUE(shown(report, "Bericht"));
    EXPECT_FALSE(shown(report, "ErgebnisGrid") || shown(report, "MSChart1"));
    EXPECT_EQ(QString::fromStdString(model.report().bericht).count("Pescavo concerning"), 1);
  });
  EXPECT_TRUE(mainWindow.isEnabled());
  report.openAllScenarios();  // the same window after a sweep: beside the main window
  EXPECT_TRUE(report.isVisible());
  EXPECT_FALSE(report.isModal());
  report.close();
}

TEST_F(SingleModeTest, CopiesWhatIsOnScreen) {
  withReport([&] {
    const std::string text = model.report().bericht;
    click(report, "Kopieren");
    EXPECT_EQ(dialogs.clipboard, text);  // CR LF as written

    click(report, "Command1");
    click(report, "Kopieren");
    const QStringList lines = QString::fromStdString(dialogs.clipboard).split("\r\n");
    EXPECT_EQ(lines.front(),
              "Category\tCrop (Commodity)\tCP (%)\tCL (%)\tmax (%)\tResidue input value\t"
              "Residue value (mg/kg)\tFeed composition (%)\tDietary load (%)");
    const auto& rows = model.report().ergebnisGrid;
    ASSERT_EQ(lines.size(), static_cast<int>(rows.size()) + 1);  // the last CR LF ends the text
    EXPECT_TRUE(lines.back().isEmpty());
    EXPECT_EQ(lines[1].toStdString(), rows[1][0] + "\t" + rows[1][1] + "\t" + rows[1][2] + "\t" +
                                          rows[1][3] + "\t" + rows[1][4] + "\t" + rows[1][5] +
                                          "\t" + rows[1][6] + "\t" + rows[1][7] + "\t" +
                                          rows[1][8]);
    click(report, "Command1");

    click(report, "Command2");
    click(report, "Kopieren");
    EXPECT_FALSE(dialogs.clipboardImage.isNull());
    EXPECT_TRUE(dialogs.clipboard.empty());  // the picture alone
    const QImage picture = dialogs.clipboardImage;
    EXPECT_GT(picture.width(), picture.height());
    // Not a blank picture: the slices are drawn in colour.
    bool coloured = false;
    for (int y = 0; y < picture.height() && !coloured; y += 4)
      for (int x = 0; x < picture.width() && !coloured; x += 4) {
        const QColor pixel = picture.pixelColor(x, y);
        coloured = pixel.saturation() > 100;
      }
    EXPECT_TRUE(coloured);
  });
}

TEST_F(SingleModeTest, PrintsTextTableAndChartAndNothingWhenCancelled) {
  withReport([&] {
    click(report, "Drucken");  // no printer chosen: Cancel
    EXPECT_EQ(dialogs.printDialogs, 1);
    EXPECT_FALSE(std::filesystem::exists(file("text.pdf")));

    dialogs.printPdf = file("text.pdf");
    click(report, "Drucken");
    const std::string text = pdfPageText(dialogs.printPdf, 1);
    EXPECT_NE(text.find("Pescavo concerning Example substance A"), std::string::npos) << text;
    std::string all;
    for (int page = 1; page <= pdfPages(dialogs.printPdf); ++page)
      all += pdfPageText(dialogs.printPdf, page);
    EXPECT_NE(all.find("The dietary load of Example substance A (fungicide)"), std::string::npos);

    click(report, "Command1");
    dialogs.printPdf = file("table.pdf");
    click(report, "Drucken");
    // Wider than a page: every page names the rows by category and crop.
    const int pages = pdfPages(dialogs.printPdf);
    EXPECT_GT(pages, 1);
    std::string headings;
    for (int page = 1; page <= pages; ++page) {
      const std::string table = pdfPageText(dialogs.printPdf, page);
      EXPECT_NE(table.find("Pescavo - Substance: Example substance A"), std::string::npos);
      EXPECT_NE(table.find("Common carp(8.00% Lipid; 35.00% Protein)"), std::string::npos);
      EXPECT_NE(table.find("Crop (Commodity)"), std::string::npos) << page;
      EXPECT_NE(table.find("Barley (brewers grains, dried)"), std::string::npos) << page;
      headings += table;
    }
    for (const char* heading : {"CP (%)", "Residue input value", "Dietary load (%)"})
      EXPECT_NE(headings.find(heading), std::string::npos) << heading;
    click(report, "Command1");

    click(report, "Command2");
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
    EXPECT_EQ(child<QLabel>(report, "CheckWarning")->text().toStdString(),
              model.lastRun().checkSentence());
    click(report, "Command1");
    EXPECT_TRUE(shown(report, "CheckWarning"));  // over the table as well
  });
}

// A window closed by its frame switches the main window on and leaves Report.txt alone.
TEST_F(SingleModeTest, ClosingByTheFrameLeavesReportTxt) {
  txt_WriteAll(file("Report.txt"), "kept");
  withReport([&] { report.close(); });
  EXPECT_TRUE(mainWindow.isEnabled());
  EXPECT_EQ(reportFile(), "kept\r\n");
  EXPECT_TRUE(model.report().bericht.empty());
}

}  // namespace
}  // namespace pescavo::test
