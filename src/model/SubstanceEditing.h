#pragma once

#include <optional>
#include <string>

#include "model/MainWindowLayout.h"
#include "model/ResidueEditor.h"
#include "tables/ComponentTable.h"

namespace pescavo {

class MainWindowModel;

// The main window's substance database as the user changes it: the substance list's
// double-click and keys, the buttons that add, edit, copy, delete and cancel, the residue grid
// while a substance is added or edited, the component editor, and the file commands. While a
// substance is added or edited Ende reads "Done", and the window forwards the events of the
// residue grid and the boxes on it to editor(). Each operation leaves the lists, the result
// and the layout of the model it belongs to as they follow from the change.
class SubstanceEditing {
 public:
  using GridEditor = ResidueEditor::GridEditor;

  SubstanceEditing(MainWindowModel& model, MainWindowLayout& layout)
      : m_model(model), m_editor(layout) {}
  // Bound to its model: a copy would change the model it was copied from.
  SubstanceEditing(const SubstanceEditing&) = delete;
  SubstanceEditing& operator=(const SubstanceEditing&) = delete;

  ResidueEditor& editor() { return m_editor; }
  const ResidueEditor& editor() const { return m_editor; }
  // An existing substance is edited (false while adding and outside editing).
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

  // The component editor works on the table itself: the result is withdrawn before it opens;
  // after it closed (done: by "Done") the lists are rebuilt from the table.
  ComponentTable& beginComponentEditing();
  void endComponentEditing(bool done);

  // "&save": writes feedstuff.tab; a failed write is shown with the file and the reason.
  void save();
  // "Exit" and "e&xit": the save and sort questions. True when the program is to end now;
  // false when it stays open (a failed write loses nothing).
  bool Ende_Click();
  // "&restore original data base": the question, then feedstuff1.tab over feedstuff.tab.
  void restore();

 private:
  // Stores the grid into the table: the substance added or edited. False when nothing was
  // stored (a value the table can't hold, or no room for another substance).
  bool uebernehme_Werte();
  void showEditingLayout();
  void showNormalLayout();
  // The simple layout as leaving the editing mode applies it: fish meal lower, second grade.
  void applySimpleLayoutAfterEditing();
  // The substance uebernehme_Werte stores into and a basis choice goes to.
  int targetSubstance() const;
  // A substance just added becomes the current one.
  void selectAddedSubstance();
  bool tableFull();  // shows why another substance can't be added
  ComponentTable& table();

  MainWindowModel& m_model;
  ResidueEditor m_editor;
  bool m_editMode = false;
};

}  // namespace pescavo
