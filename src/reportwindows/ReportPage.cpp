#include "reportwindows/ReportPage.h"

#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DesktopDialogs.h"
#include "desktop/PrintGrid.h"
#include "desktop/PrintPicture.h"
#include "reportwindows/CompositionGrid.h"
#include "reportwindows/PieChartView.h"
#include "reportwindows/ScenarioGrid.h"

namespace pescavo {

namespace {

// The report windows print their tables with these margins (mm) and the date as second line.
constexpr float kGridLeft = 10, kGridTop = 15, kGridRight = 10, kGridBottom = 10;
// Printed charts are drawn at this multiple of their size on screen, sharp on paper.
constexpr double kPrintScale = 4;

QString qtext(const std::string& value) { return QString::fromStdString(value); }

void copyChart(DesktopDialogs& dialogs, const PieChartView& chart) {
  dialogs.setClipboardText(std::string());  // the clipboard holds the picture alone
  dialogs.setClipboardImage(chart.picture(chart.devicePixelRatioF()));
}

// The grid's first repeatedColumns columns open every page, naming the rows of a wide table.
void printGrid(DesktopDialogs& dialogs, const QTableWidget& grid, const std::string& title,
               int repeatedColumns) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!dialogs.choosePrinter(printer)) return;
  PrintTable table = printTable(grid);
  table.fixedColumns = repeatedColumns;
  if (const auto* composition = dynamic_cast<const CompositionGrid*>(&grid)) {
    table.widths = composition->printWidths();
  }
  PrintGrid(printer, table, kGridLeft, kGridTop, kGridRight, kGridBottom, qtext(title), QString(),
            0);
}

void printChart(DesktopDialogs& dialogs, const PieChartView& chart) {
  QPrinter printer(QPrinter::HighResolution);
  if (!dialogs.choosePrinter(printer)) return;
  // The chart goes through the clipboard on its way to the printer.
  copyChart(dialogs, chart);
  PrintPictureToFitPage(printer, chart.picture(kPrintScale));
}

void copyGrid(DesktopDialogs& dialogs, const QTableWidget& grid) {
  dialogs.setClipboardText(gridClipboardText(grid).toStdString());
}

}  // namespace

ReportPage::ReportPage(QDialog* window, ReportViewState::Window kind)
    : labelRow(window),
      checkWarning(window),
      text(window, kind == ReportViewState::Window::Report ? "Bericht" : "BerichtNeu",
           QStringLiteral("Report text")),
      table(new CompositionGrid(window)),
      chart(new PieChartView(window)),
      chartKinds(makeChartChooser(window)) {
  const ReportViewState::Controls design = ReportViewState(kind).controls();
  command1 = makeButton(window, "Command1", qtext(design.command1Caption));
  command2 = makeButton(window, "Command2", qtext(design.command2Caption));
  if (kind == ReportViewState::Window::Report) {
    scenarioTable = new ScenarioGrid(window);
    command3 = makeButton(window, "Command3", qtext(design.command3Caption));
    explanation =
        std::make_unique<ReportTextBox>(window, "Explanation", QStringLiteral("Explanation"));
    // Sentences, not a report laid out in lines: they wrap at the box's edge.
    explanation->widget()->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    explain = makeButton(window, "Explain", qtext(design.explainCaption));
  }
  drucken = makeButton(window, "Drucken", QStringLiteral("Print"));
  kopieren = makeButton(window, "Kopieren", QStringLiteral("Copy into Clipboard"));
  fertig = makeButton(window, "Fertig", QStringLiteral("Done"));
  layOut(window);
}

ReportPage::~ReportPage() = default;

void ReportPage::layOut(QDialog* window) {
  auto* chooser = new QHBoxLayout;
  chooser->addWidget(chartKinds);
  chooser->addStretch();
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {command1, command2, command3, explain})
    if (button) buttons->addWidget(button);
  buttons->addStretch();
  for (QPushButton* button : {drucken, kopieren, fertig}) buttons->addWidget(button);
  auto* page = new QVBoxLayout(window);
  page->addWidget(labelRow.widget());
  page->addWidget(checkWarning.widget());
  page->addLayout(chooser);
  page->addWidget(text.widget(), 1);
  if (explanation) page->addWidget(explanation->widget(), 1);
  page->addWidget(table, 1);
  if (scenarioTable) page->addWidget(scenarioTable, 1);
  page->addWidget(chart, 1);
  page->addLayout(buttons);
}

void ReportPage::apply(const ReportViewState::Controls& controls) {
  text.widget()->setVisible(controls.text);
  table->setVisible(controls.table);
  chart->setVisible(controls.chart);
  chartKinds->setVisible(controls.chartKinds);
  labelRow.setShown(controls.labels);
  command1->setVisible(controls.command1);
  command2->setVisible(controls.command2);
  setCaption(command1, qtext(controls.command1Caption));
  setCaption(command2, qtext(controls.command2Caption));
  if (scenarioTable) {
    scenarioTable->setVisible(controls.scenarioTable);
    scenarioTable->setButtonsShown(controls.detailsButtons);
    command3->setVisible(controls.command3);
    setCaption(command3, qtext(controls.command3Caption));
  }
  if (explanation) {
    explanation->widget()->setVisible(controls.explanation);
    explain->setVisible(controls.explain);
    setCaption(explain, qtext(controls.explainCaption));
  }
}

void ReportPage::print(DesktopDialogs& dialogs, ReportViewState::View view,
                       const std::string& title) const {
  switch (view) {
    case ReportViewState::View::Chart:
      printChart(dialogs, *chart);
      return;
    case ReportViewState::View::Table:
      printGrid(dialogs, *table, title, CompositionGrid::kRepeatedColumns);
      return;
    case ReportViewState::View::ScenarioTable:
      if (scenarioTable) return printGrid(dialogs, *scenarioTable, title, 1);  // the run number
      break;
    case ReportViewState::View::Explain:
      if (explanation) return explanation->print(dialogs);
      break;
    case ReportViewState::View::Text:
      break;
  }
  text.print(dialogs);
}

void ReportPage::copy(DesktopDialogs& dialogs, ReportViewState::View view) const {
  switch (view) {
    case ReportViewState::View::Chart:
      copyChart(dialogs, *chart);
      return;
    case ReportViewState::View::Table:
      copyGrid(dialogs, *table);
      return;
    case ReportViewState::View::ScenarioTable:
      if (scenarioTable) return copyGrid(dialogs, *scenarioTable);
      break;
    case ReportViewState::View::Explain:
      if (explanation) return dialogs.setClipboardText(explanation->text());
      break;
    case ReportViewState::View::Text:
      break;
  }
  dialogs.setClipboardText(text.text());
}

}  // namespace pescavo
