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
  m_allScenarios = true;
  m_checkWarning->widget()->hide();
  showScenarios();
  activate();
  applyMainWindowState();
  keepAboveMainWindow();
  show();
  raise();
  activateWindow();
}

void Report::showScenarios() {
  m_allScnErgebnis->fill(m_model.report());
  m_allScnErgebnis->setButtonsShown(true);
}

void Report::Command3_Click() {
  if (!m_scenarioTableShown) {
    m_bericht->widget()->hide();
    m_allScnErgebnis->show();
    m_scenarioTableShown = true;
    setCaption(m_command3, QStringLiteral("Open Full Report File"));
    m_allScnErgebnis->setButtonsShown(true);
    return;
  }
  m_allScnErgebnis->hide();
  m_scenarioTableShown = false;
  setCaption(m_command3, QStringLiteral("Back"));
  m_allScnErgebnis->setButtonsShown(false);
  const std::string path = openFullReportFile(m_model);
  m_bericht->setText(m_model.report().bericht);
  m_bericht->widget()->show();
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
