#pragma once

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/InformationTexts.h"
#include "model/MainWindowModel.h"

class QAction;
class QMenu;
class QListWidget;
class QTextEdit;

namespace pescavo {

class DesktopDialogs;
class Report;
class ScreeningWindow;
class Dialog;
class HelpWindow;
class Ueber;

// The main window. It shows the model's state and forwards every event to one model
// operation; the rules live in MainWindowModel. Its member functions are split by concern:
// HauptformControls.cpp (the widgets from the model's layout), HauptformLists.cpp (substances
// and components), HauptformRuns.cpp (options, runs, result box), HauptformMenus.cpp (menus,
// save, exit, restore).
class Hauptform : public QMainWindow {
  Q_OBJECT

 public:
  Hauptform(DesktopDialogs& dialogs, char decimalSeparator, QWidget* parent = nullptr);
  ~Hauptform() override;

  // Reads the tables from inputFolder and shows their state. False when a table cannot be
  // read: its message (file, line, cell) has been shown and the program is to end.
  bool startUp(const std::string& inputFolder, bool simpleMode);

  MainWindowModel& model() { return *m_model; }
  // The folder that was current at start-up: help.chm and the report files live there.
  void setStartFolder(const std::string& folder) { m_startFolder = folder; }
  // Where "&Help" looks for the user guide, first found first; HelpWindow::guideFolders() unless
  // set.
  void setGuideFolders(std::vector<std::string> folders) { m_guideFolders = std::move(folders); }

 signals:
  void ended();  // the program is to end

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class WindowDialogs;
  using C = ControlId;

  // HauptformControls.cpp
  void buildControls();
  QWidget* makeControl(ControlId id, const ControlState& state, QWidget* parent);
  void buildMenus();
  void connectControls();
  void useHandPointers();
  // The hand pointer's file, harrow.cur in the input folder, for this window and those it opens.
  std::function<QString()> cursorFile() const;
  // Copies captions, places, shown and enabled states and the list label's colour.
  void applyLayout();
  template <typename T>
  T* control(ControlId id) const {
    return qobject_cast<T*>(m_controls[index(id)]);
  }

  // HauptformLists.cpp
  void fillSubstances();
  void fillAvailable();
  void fillChosen();
  void showAvailableSelection();
  void forwardAvailableSelection();
  void Schadstoffliste_Click(int row);
  // Rein, alle_rein, raus and alle_raus, after the list's selection reached the model.
  void moveComponents(void (ComponentSelection::*move)());
  void availablePressed();
  void availableMoved(const QPoint& position);

  // HauptformRuns.cpp
  void connectOptions();
  void showOptions();
  void showResult();
  void Optimierung_Click();

  // HauptformReports.cpp
  Report& reportWindow();
  void Optimierung2_Click();
  void ReportButton_Click();

  // HauptformAllOptions.cpp: the remembered switch that shows every option control.
  void buildAllOptionsEntry(QMenu* program);
  void allOptions_Toggled(bool on);
  QAction* m_allOptions = nullptr;

  // HauptformMenus.cpp: "Screen all substances", one window at a time.
  void buildScreeningEntry(QMenu* program);
  void showScreeningEntry();
  void screening_Click();
  QAction* m_screeningEntry = nullptr;
  QPointer<ScreeningWindow> m_screening;

  // HauptformMenus.cpp
  void save_Click();
  void exit_Click();
  void restore_Click();
  void help_Click();
  void MenuFischfutter_Click();  // the component editor
  void Command1_Click();         // the component overview
  void showAbout(bool modal);
  void showInformation(InformationImage image);
  // Everything the model may have changed: lists, options, result and layout.
  void showAll();

  // HauptformSubstances.cpp
  void connectSubstanceEditing();
  // The residue grid while a substance is added or edited.
  void showGrid();
  // A button of the substance database: its operation, then everything it may have changed.
  void substanceCommand(void (SubstanceEditing::*operation)());
  bool Schadstoffliste_KeyDown(QEvent* event);
  void schadstoffwerte_Click();
  void schadstoffwerte_KeyDown(int key, bool control);
  void schadstoffwerte_Wheel(int rotation);
  void placeEditor(SubstanceEditing::GridEditor editor);
  // An open editor stays on its cell while the grid scrolls; what lies outside the cells is
  // not shown.
  void followGridScroll();
  void clipEditors();
  bool EingabeSchadstoff_Event(QEvent* event);
  bool EingabeSchadstoff_KeyPress(QEvent* event);
  void showEditBox();
  void editBoxChanged();
  void ArtSchadstoffwertCombo_Click(int position);
  void Go_Click();
  class ResidueGridView* m_gridView = nullptr;  // the grid's child
  bool m_showingEditBox = false;  // the edit box follows the model: nothing to report back
  std::pair<int, int> m_editBoxCell{1, 5};  // row and column each editor was placed on
  std::pair<int, int> m_chooserCell{1, 4};

  DesktopDialogs& m_dialogs;
  std::unique_ptr<WindowDialogs> m_windowDialogs;
  std::unique_ptr<MainWindowModel> m_model;
  // Built once, by id; the menu entries among the controls are actions instead.
  std::array<QWidget*, kControlCount> m_controls{};
  std::array<QAction*, kControlCount> m_menuItems{};
  std::array<std::string, kControlCount> m_shownCaptions;
  QListWidget* m_available = nullptr;  // Fischfutter1
  QWidget* m_availableView = nullptr;  // its viewport, whose presses the window watches
  std::string m_startFolder = ".";
  bool m_ending = false;
  QPoint m_pressPoint;  // where the last press on the available list was
  QPointer<Ueber> m_about;
  QPointer<HelpWindow> m_help;
  QPointer<Dialog> m_information;
  std::vector<std::string> m_guideFolders;
  std::unique_ptr<Report> m_report;
};

}  // namespace pescavo
