#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/DesktopDialogs.h"
#include "model/MainWindowModel.h"
#include "model/ScenarioSweep.h"
#include "reportwindows/Report.h"
#include "reportwindows/ReportSingle.h"
#include "reportwindows/ReportViews.h"
#include "reportwindows/ScenarioGrid.h"

namespace pescavo {

void Report::openAllScenarios() {
  const bool shown = Optimierung2_Click(m_model);
  emit modelChanged();
  if (!shown) {
    // A sweep that stopped has changed the table of a window left open: it shows what is left.
    if (isVisible()) m_allScnErgebnis->fill(m_model.report());
    return;
  }
  if (!isVisible()) load();
  m_view.openAllScenarios();
  m_checkWarning->widget()->hide();
  m_allScnErgebnis->fill(m_model.report());
  activate();
  applyMainWindowState();
  keepAboveMainWindow();
  show();
  raise();
  activateWindow();
}

// The full report is written and opened each time it comes on screen.
void Report::Command3_Click() {
  if (!m_view.toggleFullReport()) {
    applyView();
    return;
  }
  const std::string path = openFullReportFile(m_model);
  m_bericht->setText(m_model.report().bericht);
  applyView();
  if (!m_dialogs.openWithDesktop(path)) m_dialogs.information(cannotOpenReportFile(path));
}

void Report::Command4_Click(int index) {
  const ScenarioDetails details = runScenarioDetails(m_model, index);
  emit modelChanged();
  if (!details.shown) return;
  QPointer<ReportSingle>& window = m_scenarioWindows[index];
  if (!window) window = new ReportSingle(m_dialogs, this);
  window->load(details);
  window->show();
  window->raise();
  window->activateWindow();
}

void Report::closeScenarioWindows() {
  for (QPointer<ReportSingle>& window : m_scenarioWindows) {
    delete window.data();
    window = nullptr;
  }
}

}  // namespace pescavo
