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
#include "model/SubstanceEditing.h"
#include "model/WindowOptions.h"
#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"
#include "tables/FishTables.h"
#include "tables/TextIndex.h"

namespace pescavo {

// Ergebnis: the statement of the last single run; red above the limit.
struct ResultBox {
  std::string text;
  bool red = false;
};

// The main window's state as a plain model. It maps the substance database, the component
// selection, the run options and the last run onto the window's layout; a window shows it
// through the read accessors and forwards the user's actions to the operations; the reports get
// values, never the model. List positions are 0-based as in the list controls; -1 means no
// current item.
//
// The window's controls and what the model calls them:
//   Schadstoffliste      substancePosition()        Fischfutter1, Fischfutter2  selection()
//   Label1 red           chosenCaptionRed()         Option1 to 4, Check1 to 5   options()
//   MinMax, Fischarten, Fischmehl   options()       the residue grid   substances().editor()
//   Ergebnis             visible(ControlId::Ergebnis), result()
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

  // Substance list.
  int substancePosition() const { return m_substance; }
  std::string substanceName() const;
  void selectSubstance(int position);

  // Adding, editing, copying and deleting substances, the component editor and the file
  // commands. Schadstoffliste's Click is selectSubstance.
  SubstanceEditing& substances() { return m_substances; }
  const SubstanceEditing& substances() const { return m_substances; }

  // Component lists and their buttons. A move withdraws the result shown.
  const ComponentSelection& selection() const { return m_selection; }
  ComponentSelection& selection() { return m_selection; }
  bool chosenCaptionRed() const { return m_chosenCaptionRed; }
  // Fischfutter1's information tooltip, with the limit of the species chosen: set by a press
  // on the list (position is the current item then); selection() drops it on a move.
  void Fischfutter1_MouseDown(int position, int x, int y);

  // Options; a change withdraws the result shown.
  const WindowOptions& options() const { return m_options; }
  WindowOptions& options() { return m_options; }
  // What a run made now from the window's state would take, the fish tables read among it.
  RunInput runInput() const;

  // Flags and the result box.
  bool simpleMode() const { return m_simpleMode; }
  // "All options": the full layout shows every option control, and a single run takes the
  // fish-meal grade the chooser shows. Off, the hidden options go back to their start-up
  // values. The simple layout stays as it is.
  bool allOptions() const { return m_allOptions; }
  void setAllOptions(bool on);
  // The result box's text and whether it is red.
  const ResultBox& result() const { return m_result; }
  void Ergebnis_ausblenden();

  // Captions, places and shown and enabled states of every control; visible() and enabled()
  // are the ones to read, since some states follow from the database, the lists and the
  // options.
  const MainWindowLayout& layout() const { return m_layout; }
  bool visible(ControlId control) const;
  bool enabled(ControlId control) const;

  // Runs.
  void Optimierung_Click();
  void EinfacheOptimierung();
  // The first steps of a single run: in SimpleMode every available component takes part;
  // criterion and species follow the option buttons; PC is the third fish-meal grade.
  void prepareSingleRun();
  // With nothing chosen: "Please add components." while Label1 is red; true then.
  bool pleaseAddComponents();

  // The last run.
  const FeedRun& lastRun() const { return m_run; }
  FeedRun& lastRun() { return m_run; }

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

  // Its operations re-derive the lists, the result and the layout from the model's parts.
  friend class SubstanceEditing;

  // The available components of the current substance; the chosen list is emptied.
  void Futterliste_aktualisieren();

  SubstanceDatabase m_database;
  MainWindowLayout m_layout;
  SubstanceEditing m_substances{*this, m_layout};
  std::vector<FishSpecies> m_speciesTable;
  std::vector<FishMealGrade> m_fishmealTable;

  int m_substance = -1;
  ComponentSelection m_selection;
  bool m_chosenCaptionRed = false;

  WindowOptions m_options;
  int m_resultChanges = 0;  // inputChanges() when the result was shown

  bool m_simpleMode = false;
  bool m_allOptions = false;
  ResultBox m_result;
  FeedRun m_run;
  ReportState m_report;
  char m_decimalSeparator;
  Dialogs& m_dialogs;
};

}  // namespace pescavo
