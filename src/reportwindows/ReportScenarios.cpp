#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>

#include "desktop/DesktopDialogs.h"
#include "model/MainWindowModel.h"
#include "model/ScenarioSweep.h"
#include "model/WindowPlacement.h"
#include "reportwindows/Report.h"
#include "reportwindows/ReportPage.h"
#include "reportwindows/ReportSingle.h"
#include "reportwindows/ScenarioGrid.h"

namespace pescavo {

void Report::openAllScenarios() {
  const bool shown = Optimierung2_Click(m_model);
  emit modelChanged();
  if (!shown) {
    // A sweep that stopped has changed the table of a window left open: it shows what is left.
    if (isVisible()) m_page->scenarioTable->fill(m_model.report());
    return;
  }
  if (!isVisible()) load();
  m_view.openAllScenarios();
  m_page->checkWarning.widget()->hide();
  m_page->scenarioTable->fill(m_model.report());
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
  m_page->text.setText(m_model.report().bericht);
  applyView();
  if (!m_dialogs.openWithDesktop(path)) m_dialogs.information(cannotOpenReportFile(path));
}

void Report::Command4_Click(int index) {
  const ScenarioDetails details = runScenarioDetails(m_model, index);
  emit modelChanged();
  if (!details.shown) return;
  QPointer<ReportSingle>& window = m_scenarioWindows[index];
  const bool opened = !window;
  if (!window) window = new ReportSingle(m_dialogs, this);
  window->load(details);
  if (opened) placeScenarioWindow(*window);
  window->show();
  window->raise();
  window->activateWindow();
}

// Beside the report window, so that the scenario table stays in sight; a window already open
// stays where the user has put it.
void Report::placeScenarioWindow(QWidget& window) {
  const QScreen* screen = this->screen();
  if (!screen) return;
  const QRect frame = frameGeometry();
  const QRect available = screen->availableGeometry();
  int open = 0;
  for (const QPointer<ReportSingle>& other : m_scenarioWindows)
    if (other && other->isVisible()) ++open;
  // The new window's frame is not known before it is shown: it takes the report window's.
  const QSize decoration = frame.size() - geometry().size();
  const WindowRect placed =
      besideReportWindow({frame.x(), frame.y(), frame.width(), frame.height()},
                         window.width() + decoration.width(), window.height() + decoration.height(),
                         {available.x(), available.y(), available.width(), available.height()},
                         open, window.minimumSizeHint().width() + decoration.width());
  window.resize(placed.width - decoration.width(), placed.height - decoration.height());
  window.move(placed.left, placed.top);
}

void Report::closeScenarioWindows() {
  for (QPointer<ReportSingle>& window : m_scenarioWindows) {
    delete window.data();
    window = nullptr;
  }
}

}  // namespace pescavo
