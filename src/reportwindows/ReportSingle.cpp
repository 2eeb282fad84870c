#include "reportwindows/ReportSingle.h"

#include <QComboBox>
#include <QPushButton>

#include "desktop/DesktopDialogs.h"
#include "reportwindows/CompositionGrid.h"
#include "reportwindows/PieChartView.h"
#include "reportwindows/ReportPage.h"

namespace pescavo {

ReportSingle::ReportSingle(DesktopDialogs& dialogs, QWidget* reportWindow)
    : QDialog(reportWindow, Qt::Window), m_dialogs(dialogs) {
  setObjectName("ReportSingle");
  setWindowTitle(QStringLiteral("Form1"));
  setAttribute(Qt::WA_DeleteOnClose);
  setSizeGripEnabled(true);
  m_page = std::make_unique<ReportPage>(this, ReportViewState::Window::Scenario);
  connectControls();
  resize(940, 600);
}

ReportSingle::~ReportSingle() = default;

void ReportSingle::connectControls() {
  connect(m_page->command1, &QPushButton::clicked, this, &ReportSingle::Command1_Click);
  connect(m_page->command2, &QPushButton::clicked, this, &ReportSingle::Command2_Click);
  connect(m_page->drucken, &QPushButton::clicked, this, &ReportSingle::Drucken_Click);
  connect(m_page->kopieren, &QPushButton::clicked, this, &ReportSingle::Kopieren_Click);
  connect(m_page->fertig, &QPushButton::clicked, this, &QWidget::close);
  connect(m_page->chartKinds, &QComboBox::activated, this, &ReportSingle::Diagrammzeichnen);
}

// Every load shows the run it is given whole, so that text, table and chart never belong to
// different runs.
void ReportSingle::load(const ScenarioDetails& details) {
  m_details = details;
  setWindowTitle(QString::fromStdString(details.caption));
  m_page->labelRow.setLabels(details.labels);
  m_page->checkWarning.show(details.verdict, details.checkSentence);
  m_page->text.setText(details.text);
  addChartKinds(m_page->chartKinds);
  m_page->chartKinds->setCurrentIndex(kFeedComposition);
  Diagrammzeichnen();
  m_view.openSingle();
  applyView();
  m_page->table->setRows(details.table);
}

void ReportSingle::Command1_Click() {
  m_view.toggleTable();
  applyView();
}

// The chart last drawn comes back; the chosen kind stays as it was.
void ReportSingle::Command2_Click() {
  m_view.toggleChart();
  applyView();
}

void ReportSingle::applyView() { m_page->apply(m_view.controls()); }

void ReportSingle::Diagrammzeichnen() {
  const int kind = m_page->chartKinds->currentIndex();
  if (kind < 0) return;
  m_page->chart->draw(kind == kDietaryLoad ? m_details.dietaryLoad : m_details.feedComposition);
}

void ReportSingle::Drucken_Click() {
  m_page->print(m_dialogs, m_view.view(), m_details.labels.printTitle);
}

void ReportSingle::Kopieren_Click() { m_page->copy(m_dialogs, m_view.view()); }

// Escape and the frame close the window as "Done" does.
void ReportSingle::closeEvent(QCloseEvent* event) { QWidget::closeEvent(event); }

void ReportSingle::reject() { close(); }

}  // namespace pescavo
