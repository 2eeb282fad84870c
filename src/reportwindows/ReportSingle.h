#pragma once

#include <QDialog>
#include <memory>

#include "model/ReportViewState.h"
#include "model/ScenarioSweep.h"

namespace pescavo {

class DesktopDialogs;
class ReportPage;

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
  void connectControls();
  void Command1_Click();
  void Command2_Click();
  void Diagrammzeichnen();
  void Drucken_Click();
  void Kopieren_Click();
  void applyView();

  DesktopDialogs& m_dialogs;
  ScenarioDetails m_details;
  ReportViewState m_view{ReportViewState::Window::Scenario};

  std::unique_ptr<ReportPage> m_page;
};

}  // namespace pescavo
