#include "reportwindows/ReportSingle.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/DesktopDialogs.h"
#include "reportwindows/ReportViews.h"

namespace pescavo {

ReportSingle::ReportSingle(DesktopDialogs& dialogs, QWidget* reportWindow)
    : QDialog(reportWindow, Qt::Window), m_dialogs(dialogs) {
  setObjectName("ReportSingle");
  setWindowTitle(QStringLiteral("Form1"));
  setAttribute(Qt::WA_DeleteOnClose);
  setSizeGripEnabled(true);
  buildControls();
  resize(940, 600);
}

ReportSingle::~ReportSingle() = default;

void ReportSingle::buildControls() {
  m_labelRow = std::make_unique<ReportLabelRow>(this);
  m_checkWarning = std::make_unique<CheckWarning>(this);
  m_berichtNeu = std::make_unique<ReportTextBox>(this, "BerichtNeu");
  m_ergebnisGrid = new CompositionGrid(this);
  m_chart = new PieChartView(this);
  m_combo1 = makeChartChooser(this);
  const ReportViewState::Controls design = m_view.controls();
  m_command1 = makeButton(this, "Command1", QString::fromStdString(design.command1Caption));
  m_command2 = makeButton(this, "Command2", QString::fromStdString(design.command2Caption));
  m_drucken = makeButton(this, "Drucken", QStringLiteral("Print"));
  m_kopieren = makeButton(this, "Kopieren", QStringLiteral("Copy into Clipboard"));
  m_fertig = makeButton(this, "Fertig", QStringLiteral("Done"));

  auto* chooser = new QHBoxLayout;
  chooser->addWidget(m_combo1);
  chooser->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(m_command1);
  buttons->addWidget(m_command2);
  buttons->addStretch();
  for (QPushButton* button : {m_drucken, m_kopieren, m_fertig}) buttons->addWidget(button);
  auto* page = new QVBoxLayout(this);
  page->addWidget(m_labelRow->widget());
  page->addWidget(m_checkWarning->widget());
  page->addLayout(chooser);
  page->addWidget(m_berichtNeu->widget(), 1);
  page->addWidget(m_ergebnisGrid, 1);
  page->addWidget(m_chart, 1);
  page->addLayout(buttons);

  connect(m_command1, &QPushButton::clicked, this, &ReportSingle::Command1_Click);
  connect(m_command2, &QPushButton::clicked, this, &ReportSingle::Command2_Click);
  connect(m_drucken, &QPushButton::clicked, this, &ReportSingle::Drucken_Click);
  connect(m_kopieren, &QPushButton::clicked, this, &ReportSingle::Kopieren_Click);
  connect(m_fertig, &QPushButton::clicked, this, &QWidget::close);
  connect(m_combo1, &QComboBox::activated, this, &ReportSingle::Diagrammzeichnen);
}

// Every load shows the run it is given whole, so that text, table and chart never belong to
// different runs.
void ReportSingle::load(const ScenarioDetails& details) {
  m_details = details;
  setWindowTitle(QString::fromStdString(details.caption));
  m_labelRow->setLabels(details.labels);
  m_checkWarning->show(details.verdict, details.checkSentence);
  m_berichtNeu->setText(details.text);
  addChartKinds(m_combo1);
  m_combo1->setCurrentIndex(kFeedComposition);
  Diagrammzeichnen();
  m_view.openSingle();
  applyView();
  m_ergebnisGrid->setRows(details.table);
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

void ReportSingle::applyView() {
  applyReportView({m_berichtNeu->widget(), m_ergebnisGrid, m_chart, m_combo1, m_labelRow.get(),
                   nullptr, m_command1, m_command2, nullptr},
                  m_view.controls());
}

void ReportSingle::Diagrammzeichnen() {
  const int kind = m_combo1->currentIndex();
  if (kind < 0) return;
  m_chart->draw(kind == kDietaryLoad ? m_details.dietaryLoad : m_details.feedComposition);
}

void ReportSingle::Drucken_Click() {
  printReportView(m_dialogs, m_view.view(),
                  {*m_berichtNeu, *m_ergebnisGrid, *m_chart, nullptr, m_details.labels.printTitle});
}

void ReportSingle::Kopieren_Click() {
  copyReportView(m_dialogs, m_view.view(),
                 {*m_berichtNeu, *m_ergebnisGrid, *m_chart, nullptr, m_details.labels.printTitle});
}

// Escape and the frame close the window as "Done" does.
void ReportSingle::closeEvent(QCloseEvent* event) { QWidget::closeEvent(event); }

void ReportSingle::reject() { close(); }

}  // namespace pescavo
