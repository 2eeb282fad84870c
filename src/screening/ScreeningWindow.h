#pragma once

#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "model/Screening.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;
class QTimer;

namespace pescavo {

class DesktopDialogs;
class ScreeningTable;

// "Screen all substances": every substance of the table screened on worker threads while the
// window stays responsive, the rows in a sortable table. The window screens its own copy of
// the tables, so the main window may go on editing meanwhile.
class ScreeningWindow : public QWidget {
  Q_OBJECT

 public:
  // request: what the first screening asks for, screened as soon as the window is shown.
  // folder: where "Save as CSV" proposes its file. cursorFile names the hand pointer's file
  // for the buttons; none: the usual pointer.
  ScreeningWindow(const ComponentTable& table, std::vector<FishSpecies> species,
                  std::vector<FishMealGrade> fishmeal, char decimalSeparator,
                  const ScreeningRequest& request, DesktopDialogs& dialogs, std::string folder,
                  QWidget* parent = nullptr, std::function<QString()> cursorFile = {});
  ~ScreeningWindow() override;

  // Screens with the choices the window shows; nothing while a screening runs.
  void start();
  // The workers stop after the run each is making; the rows done are shown.
  void cancel();
  bool running() const { return m_worker.joinable(); }
  // Rows of the screening, unsorted, with the columns fitted to them.
  void showRows(std::vector<ScreeningRow> rows, bool scenarios);

  void copy_Click();
  void print_Click();
  void save_Click();

  // A double click on a row: its run, to be selected in the main window.
  std::function<void(const ScreeningRow& row)> onRunChosen;

 signals:
  void finished();  // a screening ended, done or cancelled, and its rows are shown

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildControls(const ScreeningRequest& request);
  QPushButton* makeButton(const char* name, const char* caption);
  ScreeningRequest chosenRequest() const;
  void showProgress();
  void showRunning(bool running);
  void done(ScreeningResult result, bool scenarios);
  // Waits for the worker; the window never outlives its screening.
  void stopAndJoin();

  const ComponentTable m_table;
  const std::vector<FishSpecies> m_species;
  const std::vector<FishMealGrade> m_fishmeal;
  const Screening m_screening;
  const RunOptions m_base;
  DesktopDialogs& m_dialogs;
  const std::string m_folder;
  const std::function<QString()> m_cursorFile;
  bool m_started = false;
  bool m_cancelled = false;

  std::thread m_worker;
  std::atomic<bool> m_cancel{false};
  std::atomic<int> m_done{0};
  int m_total = 0;

  ScreeningTable* m_rows = nullptr;
  QTableView* m_view = nullptr;
  QComboBox* m_speciesChoice = nullptr;
  QComboBox* m_criterionChoice = nullptr;
  QCheckBox* m_scenarios = nullptr;
  QProgressBar* m_progress = nullptr;
  QLabel* m_status = nullptr;
  QPushButton* m_start = nullptr;
  QPushButton* m_cancelButton = nullptr;
  QPushButton* m_copy = nullptr;
  QPushButton* m_print = nullptr;
  QPushButton* m_save = nullptr;
  QTimer* m_poll = nullptr;
};

}  // namespace pescavo
