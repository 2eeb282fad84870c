#include "reportwindows/Report.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include "desktop/DesktopDialogs.h"
#include "desktop/HandPointer.h"
#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "reportwindows/ReportSingle.h"
#include "reportwindows/ReportViews.h"
#include "reportwindows/ScenarioGrid.h"

namespace pescavo {

Report::Report(MainWindowModel& model, DesktopDialogs& dialogs, QWidget* mainWindow)
    : QDialog(nullptr), m_model(model), m_dialogs(dialogs), m_mainWindow(mainWindow) {
  setObjectName("Report");
  setWindowTitle(QStringLiteral("Report"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setSizeGripEnabled(true);
  buildControls();
  connectControls();
  resize(1000, 660);
  load();
}

Report::~Report() = default;

void Report::buildControls() {
  m_labelRow = std::make_unique<ReportLabelRow>(this);
  m_checkWarning = std::make_unique<CheckWarning>(this);
  m_bericht = std::make_unique<ReportTextBox>(this, "Bericht");
  m_ergebnisGrid = new CompositionGrid(this);
  m_allScnErgebnis = new ScenarioGrid(this);
  m_chart = new PieChartView(this);
  m_combo1 = makeChartChooser(this);
  const ReportViewState::Controls design = m_view.controls();
  m_command1 = makeButton(this, "Command1", QString::fromStdString(design.command1Caption));
  m_command2 = makeButton(this, "Command2", QString::fromStdString(design.command2Caption));
  m_command3 = makeButton(this, "Command3", QString::fromStdString(design.command3Caption));
  m_drucken = makeButton(this, "Drucken", QStringLiteral("Print"));
  m_kopieren = makeButton(this, "Kopieren", QStringLiteral("Copy into Clipboard"));
  m_fertig = makeButton(this, "Fertig", QStringLiteral("Done"));

  auto* chooser = new QHBoxLayout;
  chooser->addWidget(m_combo1);
  chooser->addStretch();
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {m_command1, m_command2, m_command3}) buttons->addWidget(button);
  buttons->addStretch();
  for (QPushButton* button : {m_drucken, m_kopieren, m_fertig}) buttons->addWidget(button);
  auto* page = new QVBoxLayout(this);
  page->addWidget(m_labelRow->widget());
  page->addWidget(m_checkWarning->widget());
  page->addLayout(chooser);
  page->addWidget(m_bericht->widget(), 1);
  page->addWidget(m_ergebnisGrid, 1);
  page->addWidget(m_allScnErgebnis, 1);
  page->addWidget(m_chart, 1);
  page->addLayout(buttons);

  const auto cursorFile = [this] {
    return QString::fromStdString(m_model.database().folder() + "/harrow.cur");
  };
  for (QPushButton* button : {m_command1, m_command2, m_command3, m_drucken, m_kopieren, m_fertig})
    useHandPointer(button, cursorFile);
  for (int i = 0; i < 16; ++i) useHandPointer(m_allScnErgebnis->detailsButton(i), cursorFile);
}

void Report::connectControls() {
  connect(m_command1, &QPushButton::clicked, this, &Report::Command1_Click);
  connect(m_command2, &QPushButton::clicked, this, &Report::Command2_Click);
  connect(m_command3, &QPushButton::clicked, this, &Report::Command3_Click);
  connect(m_drucken, &QPushButton::clicked, this, &Report::Drucken_Click);
  connect(m_kopieren, &QPushButton::clicked, this, &Report::Kopieren_Click);
  connect(m_fertig, &QPushButton::clicked, this, &Report::Fertig_Click);
  connect(m_combo1, &QComboBox::activated, this, &Report::Diagrammzeichnen);
  m_allScnErgebnis->onDetails = [this](int index) { Command4_Click(index); };
}

// The window as it is loaded, before an activation: the text on screen, nothing else.
void Report::load() {
  m_view.load();
  m_checkWarning->widget()->hide();
  m_bericht->setText(std::string());
  m_combo1->setCurrentIndex(-1);
  applyView();
}

// Runs when the window is opened, not at every change of focus: coming back from a scenario
// window or the text editor keeps the view the user left.
void Report::activate() {
  m_labels = reportLabels(m_model);
  m_labelRow->setLabels(m_labels);
  applyView();
  if (m_view.mode() != ReportViewState::Mode::Single) return;
  addChartKinds(m_combo1);
  m_bericht->widget()->setFocus();
}

void Report::applyView() {
  applyReportView({m_bericht->widget(), m_ergebnisGrid, m_chart, m_combo1, m_labelRow.get(),
                   m_allScnErgebnis, m_command1, m_command2, m_command3},
                  m_view.controls());
}

void Report::openSingle() {
  if (isVisible()) close();  // the all-scenario window goes as if closed by its frame
  Berichtschreiben(m_model);
  applyMainWindowState();
  load();
  m_view.openSingle();
  const ReportState& report = m_model.report();
  m_bericht->setText(report.bericht);
  m_ergebnisGrid->setRows(report.ergebnisGrid);
  m_checkWarning->show(m_model.lastRun().check().verdict, m_model.lastRun().checkSentence());
  activate();
  keepAboveMainWindow();
  exec();
}

void Report::Command1_Click() {
  m_view.toggleTable();
  applyView();
}

void Report::Command2_Click() {
  if (const std::optional<int> kind = m_view.toggleChart()) {
    m_combo1->setCurrentIndex(*kind);
    Diagrammzeichnen();
  }
  applyView();
}

void Report::Diagrammzeichnen() {
  const int kind = m_combo1->currentIndex();
  if (kind < 0) return;
  m_chart->draw(pescavo::Diagrammzeichnen(m_model, kind));
}

void Report::Drucken_Click() {
  printReportView(m_dialogs, m_view.view(),
                  {*m_bericht, *m_ergebnisGrid, *m_chart, m_allScnErgebnis, m_labels.printTitle});
}

void Report::Kopieren_Click() {
  copyReportView(m_dialogs, m_view.view(),
                 {*m_bericht, *m_ergebnisGrid, *m_chart, m_allScnErgebnis, m_labels.printTitle});
}

void Report::Fertig_Click() {
  unload(true);
  hide();
}

void Report::closeEvent(QCloseEvent* event) {
  if (isVisible()) unload(false);
  event->accept();
  QWidget::closeEvent(event);
}

// Escape closes the window as its frame does.
void Report::reject() { close(); }

// "Done" resets Report.txt to a single blank line; any other way of closing leaves it alone.
void Report::unload(bool done) {
  if (m_unloading) return;
  m_unloading = true;
  if (done)
    reportDone(m_model);
  else
    reportWindowUnloaded(m_model);
  closeScenarioWindows();
  applyMainWindowState();
  m_unloading = false;
  emit modelChanged();
}

void Report::applyMainWindowState() {
  if (m_mainWindow) m_mainWindow->setEnabled(m_model.report().mainWindowEnabled);
}

// Not a child of the main window, yet kept in front of it by the window manager.
void Report::keepAboveMainWindow() {
  if (!m_mainWindow || !m_mainWindow->windowHandle()) return;
  winId();
  windowHandle()->setTransientParent(m_mainWindow->windowHandle());
}

}  // namespace pescavo
