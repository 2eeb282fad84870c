#include "reportwindows/Report.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWindow>

#include "desktop/DesktopDialogs.h"
#include "desktop/HandPointer.h"
#include "model/Explanation.h"
#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "reportwindows/CompositionGrid.h"
#include "reportwindows/PieChartView.h"
#include "reportwindows/ReportPage.h"
#include "reportwindows/ReportSingle.h"
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
  m_page = std::make_unique<ReportPage>(this, ReportViewState::Window::Report);
  const auto cursorFile = [this] {
    return QString::fromStdString(m_model.database().folder() + "/harrow.cur");
  };
  for (QPushButton* button : {m_page->command1, m_page->command2, m_page->command3, m_page->explain,
                              m_page->drucken, m_page->kopieren, m_page->fertig})
    useHandPointer(button, cursorFile);
  for (int i = 0; i < 16; ++i) useHandPointer(m_page->scenarioTable->detailsButton(i), cursorFile);
}

void Report::connectControls() {
  connect(m_page->command1, &QPushButton::clicked, this, &Report::Command1_Click);
  connect(m_page->command2, &QPushButton::clicked, this, &Report::Command2_Click);
  connect(m_page->command3, &QPushButton::clicked, this, &Report::Command3_Click);
  connect(m_page->explain, &QPushButton::clicked, this, &Report::Explain_Click);
  connect(m_page->drucken, &QPushButton::clicked, this, &Report::Drucken_Click);
  connect(m_page->kopieren, &QPushButton::clicked, this, &Report::Kopieren_Click);
  connect(m_page->fertig, &QPushButton::clicked, this, &Report::Fertig_Click);
  connect(m_page->chartKinds, &QComboBox::activated, this, &Report::Diagrammzeichnen);
  m_page->scenarioTable->onDetails = [this](int index) { Command4_Click(index); };
}

// The window as it is loaded, before an activation: the text on screen, nothing else.
void Report::load() {
  m_view.load();
  m_page->checkWarning.widget()->hide();
  m_page->text.setText(std::string());
  m_page->explanation->setText(std::string());
  m_page->chartKinds->setCurrentIndex(-1);
  applyView();
}

// Runs when the window is opened, not at every change of focus: coming back from a scenario
// window or the text editor keeps the view the user left.
void Report::activate() {
  m_labels = reportLabels(m_model);
  m_page->labelRow.setLabels(m_labels);
  applyView();
  if (m_view.mode() != ReportViewState::Mode::Single) return;
  addChartKinds(m_page->chartKinds);
  m_page->text.widget()->setFocus();
}

void Report::applyView() { m_page->apply(m_view.controls()); }

void Report::openSingle() {
  if (isVisible()) close();  // the all-scenario window goes as if closed by its frame
  Berichtschreiben(m_model);
  applyMainWindowState();
  load();
  const Explanation explanation = explainRun(m_model.lastRun());
  m_view.openSingle(explanation.available);
  m_page->explanation->setText(explanationText(explanation, m_model.decimalSeparator()));
  const ReportState& report = m_model.report();
  m_page->text.setText(report.bericht);
  m_page->table->setRows(report.ergebnisGrid);
  m_page->checkWarning.show(m_model.lastRun().check().verdict, m_model.lastRun().checkSentence());
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
    m_page->chartKinds->setCurrentIndex(*kind);
    Diagrammzeichnen();
  }
  applyView();
}

void Report::Explain_Click() {
  m_view.toggleExplanation();
  applyView();
}

void Report::Diagrammzeichnen() {
  const int kind = m_page->chartKinds->currentIndex();
  if (kind < 0) return;
  m_page->chart->draw(pescavo::Diagrammzeichnen(m_model, kind));
}

void Report::Drucken_Click() { m_page->print(m_dialogs, m_view.view(), m_labels.printTitle); }

void Report::Kopieren_Click() { m_page->copy(m_dialogs, m_view.view()); }

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
