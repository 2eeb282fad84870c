#pragma once

#include <QDialog>
#include <memory>

#include "model/ReportViewState.h"
#include "model/ScenarioSweep.h"

class QComboBox;
class QPushButton;

namespace pescavo {

class CheckWarning;
class CompositionGrid;
class DesktopDialogs;
class PieChartView;
class ReportLabelRow;
class ReportTextBox;

// A scenario window ("Form1" until the report window names it): the text, composition table
// and pie charts of one run of the sweep, repeated by its "Details" button.
class ReportSingle : public QDialog {
  Q_OBJECT

 public:
  // A window of the report window; it goes when that one closes.
  ReportSingle(DesktopDialogs& dialogs, QWidget* reportWindow);
  ~ReportSingle() override;

  // Loads the run: caption, labels, text, table and both charts, with the text on screen.
  void load(const ScenarioDetails& details);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  void buildControls();
  void Command1_Click();
  void Command2_Click();
  void Diagrammzeichnen();
  void Drucken_Click();
  void Kopieren_Click();
  void applyView();

  DesktopDialogs& m_dialogs;
  ScenarioDetails m_details;
  ReportViewState m_view{ReportViewState::Window::Scenario};

  std::unique_ptr<ReportLabelRow> m_labelRow;
  std::unique_ptr<CheckWarning> m_checkWarning;
  std::unique_ptr<ReportTextBox> m_berichtNeu;
  CompositionGrid* m_ergebnisGrid = nullptr;
  PieChartView* m_chart = nullptr;
  QComboBox* m_combo1 = nullptr;
  QPushButton* m_command1 = nullptr;
  QPushButton* m_command2 = nullptr;
  QPushButton* m_drucken = nullptr;
  QPushButton* m_kopieren = nullptr;
  QPushButton* m_fertig = nullptr;
};

}  // namespace pescavo
