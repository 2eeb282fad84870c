#pragma once

#include <QString>
#include <memory>
#include <string>

#include "model/ReportViewState.h"
#include "reportwindows/ReportViews.h"

class QComboBox;
class QDialog;
class QPushButton;

namespace pescavo {

class CompositionGrid;
class DesktopDialogs;
class PieChartView;
class ScenarioGrid;

// The controls of a report window, built and laid out once for both kinds: the labels, the
// check's warning, the chart chooser, the text, the composition table, the chart and the
// buttons. The report window adds the scenario table with Command3 and the explanation with
// its button; a scenario window has neither (null).
class ReportPage {
 public:
  ReportPage(QDialog* window, ReportViewState::Window kind);
  ~ReportPage();

  // Shows what the core's view state says, each control and caption.
  void apply(const ReportViewState::Controls& controls);
  // "Print" and "Copy into Clipboard": the view on screen.
  void print(DesktopDialogs& dialogs, ReportViewState::View view, const std::string& title) const;
  void copy(DesktopDialogs& dialogs, ReportViewState::View view) const;

  ReportLabelRow labelRow;
  CheckWarning checkWarning;
  ReportTextBox text;
  std::unique_ptr<ReportTextBox> explanation;
  CompositionGrid* table;
  ScenarioGrid* scenarioTable = nullptr;
  PieChartView* chart;
  QComboBox* chartKinds;
  QPushButton* command1;
  QPushButton* command2;
  QPushButton* command3 = nullptr;
  QPushButton* explain = nullptr;
  QPushButton* drucken;
  QPushButton* kopieren;
  QPushButton* fertig;

 private:
  void layOut(QDialog* window);
};

}  // namespace pescavo
