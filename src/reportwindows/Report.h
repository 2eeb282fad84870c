#pragma once

#include <QDialog>
#include <QPointer>
#include <array>
#include <memory>

#include "model/ReportRun.h"
#include "model/ReportViewState.h"

namespace pescavo {

class DesktopDialogs;
class MainWindowModel;
class ReportPage;
class ReportSingle;

// The report window ("Report"). Single mode: the report text of the last run, its composition
// table and its pie charts; modal. All-scenario mode: the scenario table of the last sweep
// with a "Details" button per run, and the full report; beside the main window. The window
// shows what the core hands it and forwards every event to one core operation.
//
// It is a window of its own, not a child of the main window: the report switches the main
// window off (disables it), which would switch off its children too. Its members are split:
// Report.cpp (opening, closing, text, table, chart and explanation), ReportScenarios.cpp (the
// scenario table, the full report and the scenario windows).
class Report : public QDialog {
  Q_OBJECT

 public:
  Report(MainWindowModel& model, DesktopDialogs& dialogs, QWidget* mainWindow);
  ~Report() override;

  // "Report" button: writes the report section of the current result (Berichtschreiben) and
  // shows the window modal in single mode, with the run's explanation a button away; returns
  // when it is closed.
  void openSingle();
  // "Optimize all Scenarios": runs the sweep (Optimierung2_Click) and, when the core says so,
  // shows the window in all-scenario mode, not modal.
  void openAllScenarios();

 signals:
  // A "Details" run or the window's closing changed the model; the main window shows it anew.
  void modelChanged();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  // Report.cpp
  void buildControls();
  void connectControls();
  void load();
  void activate();
  void applyView();
  void Command1_Click();
  void Command2_Click();
  void Explain_Click();
  void Diagrammzeichnen();
  void Drucken_Click();
  void Kopieren_Click();
  void Fertig_Click();
  void unload(bool done);
  void applyMainWindowState();
  void keepAboveMainWindow();

  // ReportScenarios.cpp
  void Command3_Click();
  void Command4_Click(int index);
  void placeScenarioWindow(QWidget& window);
  void closeScenarioWindows();

  MainWindowModel& m_model;
  DesktopDialogs& m_dialogs;
  QPointer<QWidget> m_mainWindow;

  // The mode the window was opened in, and what it shows.
  ReportViewState m_view{ReportViewState::Window::Report};
  bool m_unloading = false;
  ReportLabels m_labels;  // as shown; the printouts are titled with them

  std::unique_ptr<ReportPage> m_page;
  std::array<QPointer<ReportSingle>, 16> m_scenarioWindows;
};

}  // namespace pescavo
