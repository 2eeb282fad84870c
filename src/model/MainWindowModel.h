#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/ComponentSelection.h"
#include "model/Dialogs.h"
#include "model/FeedRun.h"
#include "model/MainWindowLayout.h"
#include "model/ReportState.h"
#include "model/ResidueEditor.h"
#include "model/RunOptions.h"
#include "model/SubstanceDatabase.h"
#include "model/WindowOptions.h"
#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"
#include "tables/FishTables.h"
#include "tables/TextIndex.h"

namespace pescavo {

// The main window's state as a plain model. It maps the substance database, the component
// selection, the run options and the last run onto the window's layout; a window shows it
// through the read accessors and forwards the user's actions to the operations; the reports get
// values, never the model. List positions are 0-based as in the list controls; -1 means no
// current item.
//
// The window's controls and what the model calls them:
//   Schadstoffliste      substancePosition()        Fischfutter1, Fischfutter2  selection()
//   Label1 red           chosenCaptionRed()         Option1 to 4, Check1 to 5   options()
//   MinMax, Fischarten, Fischmehl   options()       the residue grid and its boxes  editor()
//   Ergebnis             visible(ControlId::Ergebnis), resultText()
//   ReportButton         visible(ControlId::ReportButton)
//   every control        layout(), visible(), enabled()
class MainWindowModel {
 public:
  using PseudoComponents = pescavo::PseudoComponents;

  MainWindowModel(Dialogs& dialogs, char decimalSeparator);

  // Reads Species.tab, feedstuff.tab and Fishmeal.tab from inputFolder in that order and
  // sets every control to its state after loading. Throws TableError.
  void startUp(const std::string& inputFolder, bool simpleMode = false);
  // Equal components or substance names in feedstuff.tab as start-up found them: a face shows
  // each once, since only the last of equal components takes part in a run.
  // The same with tables already read.
  void load(ComponentTable table, std::vector<FishSpecies> species,
            std::vector<FishMealGrade> fishmeal, bool simpleMode = false);

  // Tables. The database's folder, warnings and whether it changed are database()'s.
  const SubstanceDatabase& database() const { return m_database; }
  const ComponentTable& table() const { return m_database.table(); }
  const std::vector<FishSpecies>& speciesTable() const { return m_speciesTable; }
  const std::vector<FishMealGrade>& fishmealTable() const { return m_fishmealTable; }

  // The component editor works on the table itself: the result is withdrawn before it opens;
  // after it closed (done: by "Done") the lists are rebuilt from the table.
  ComponentTable& beginComponentEditing();
  void endComponentEditing(bool done);

  // Substance list.
  int substancePosition() const { return m_substance; }
  std::string substanceName() const;
  void selectSubstance(int position);

  // Substance database and editing. Schadstoffliste's Click is selectSubstance. While a
  // substance is added or edited Ende reads "Done", and the window forwards the events of the
  // residue grid and the boxes on it to editor(); the buttons and the keys below change the
  // database and the layout as well.
  using GridEditor = ResidueEditor::GridEditor;
  ResidueEditor& editor() { return m_editor; }
  const ResidueEditor& editor() const { return m_editor; }
  // EditMode: an existing substance is edited (false while adding and outside editing).
  bool editMode() const { return m_editMode && m_editor.editing(); }
  void Schadstoffliste_DblClick();
  void Schadstoffliste_KeyDown(int key, bool control);  // Delete: "Del"; Ctrl+C: "Copy "
  void Add_Click();
  void Edit_Click();
  void Kopieren_Click();
  void Loeschen_Click();
  void Abbrechen_Click();
  // "Done": stores the grid and returns to the normal view. False when nothing was stored
  // (a value the table can't hold, or no room for another substance): editing goes on.
  bool leaveEditing();
  // Keys on the grid, Escape cancelling; the text for the clipboard after Ctrl+C.
  std::optional<std::string> schadstoffwerte_KeyDown(int key, bool control);
  // The basis drop-down's choice, for the substance being added or edited.
  void ArtSchadstoffwertCombo_Click(int position);

  // Component lists and their buttons. A move withdraws the result shown.
  const ComponentSelection& selection() const { return m_selection; }
  ComponentSelection& selection() { return m_selection; }
  bool chosenCaptionRed() const { return m_chosenCaptionRed; }
  // Fischfutter1's information tooltip: set by a press on the list (position is the current
  // item then), dropped once the pointer has left the press point in both directions.
  void Fischfutter1_MouseDown(int position, int x, int y);
  void Fischfutter1_MouseMove(int x, int y);
  const std::string& availableTooltip() const { return m_availableTooltip; }

  // Options; a change withdraws the result shown.
  const WindowOptions& options() const { return m_options; }
  WindowOptions& options() { return m_options; }
  // What a run made now from the window's state would take.
  RunInput runInput() const;

  // Flags and the result box.
  bool simpleMode() const { return m_simpleMode; }
  // "All options": the full layout shows every option control, and a single run takes the
  // fish-meal grade the chooser shows. Off, the hidden options go back to their start-up
  // values. The simple layout stays as it is.
  bool allOptions() const { return m_allOptions; }
  void setAllOptions(bool on);
  // A single run takes the fish-meal grade set instead of the third.
  void setKeepFishmealGrade(bool keep) { m_keepFishmealGrade = keep; }
  bool allScenariosMode() const { return m_allScenariosMode; }
  void setAllScenariosMode(bool on) { m_allScenariosMode = on; }
  const std::string& resultText() const { return m_resultText; }
  bool resultRed() const { return m_resultRed; }
  void Ergebnis_ausblenden();

  // Captions, places and shown and enabled states of every control; visible() and enabled()
  // are the ones to read, since some states follow from the database, the lists and the
  // options.
  const MainWindowLayout& layout() const { return m_layout; }
  bool visible(ControlId control) const;
  bool enabled(ControlId control) const;

  // "&save": writes feedstuff.tab; a failed write is shown with the file and the reason.
  void save();
  // "Exit" and "e&xit": the save and sort questions. True when the program is to end now;
  // false when it stays open (a failed write loses nothing).
  bool Ende_Click();
  // "&restore original data base": the question, then feedstuff1.tab over feedstuff.tab.
  void restore();

  // Runs.
  void Optimierung_Click();
  void EinfacheOptimierung();
  // The first steps of a single run: in SimpleMode every available component takes part;
  // criterion and species follow the option buttons; PC is the third fish-meal grade.
  void prepareSingleRun();
  // With nothing chosen: "Please add components." while Label1 is red; true then.
  bool pleaseAddComponents();

  // The last run and what the report text, the composition table and the charts are written
  // from.
  const FeedRun& lastRun() const { return m_run; }
  FeedRun& lastRun() { return m_run; }
  void fillReportValues(ReportValues& values) const {
    m_run.fillReportValues(runInput(), substanceName(), values);
  }

  // The report windows' state, which they change themselves.
  ReportState& report() { return m_report; }
  const ReportState& report() const { return m_report; }

  char decimalSeparator() const { return m_decimalSeparator; }
  void setDecimalSeparator(char separator) { m_decimalSeparator = separator; }
  Dialogs& dialogs() { return m_dialogs; }

 private:
  // Shows why the run stops there and withdraws the result.
  void stopRun(const std::string& message);
  void setEnabled(ControlId control, bool enabled) { m_layout.at(control).enabled = enabled; }
  // The tables read, shown as start-up shows them.
  void showLoaded(std::vector<FishSpecies> species, std::vector<FishMealGrade> fishmeal,
                  bool simple);
  // Counts the changes of the lists and the options: a result belongs to the count it was
  // shown at.
  int inputChanges() const { return m_selection.changes() + m_options.changes(); }

  SubstanceDatabase m_database;
  MainWindowLayout m_layout;
  ResidueEditor m_editor;
  std::vector<FishSpecies> m_speciesTable;
  std::vector<FishMealGrade> m_fishmealTable;

  int m_substance = -1;
  ComponentSelection m_selection;
  bool m_chosenCaptionRed = false;
  std::string m_availableTooltip;
  int m_pressX = 0;
  int m_pressY = 0;

  WindowOptions m_options;
  int m_resultChanges = 0;  // inputChanges() when the result was shown

  bool m_simpleMode = false;
  bool m_allScenariosMode = false;
  bool m_allOptions = false;
  bool m_keepFishmealGrade = false;
  std::string m_resultText;
  bool m_resultRed = false;
  FeedRun m_run;

  // The available components of the current substance; the chosen list is emptied.
  void Futterliste_aktualisieren();
  // Stores the grid into the table: the substance added or edited. False when nothing was
  // stored (a value the table can't hold, or no room for another substance).
  bool uebernehme_Werte();

  // Substance editing state.
  void showEditingLayout();
  void showNormalLayout();
  // The simple layout as leaving the editing mode applies it: fish meal lower, second grade.
  void applySimpleLayoutAfterEditing();
  // The substance uebernehme_Werte stores into and a basis choice goes to.
  int targetSubstance() const;
  // A substance just added becomes the current one.
  void selectAddedSubstance();
  bool tableFull();  // shows why another substance can't be added
  bool m_editMode = false;
  ReportState m_report;
  char m_decimalSeparator;
  Dialogs& m_dialogs;
};

}  // namespace pescavo
