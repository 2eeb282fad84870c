// The main window's substance database: choosing, adding, copying, editing and deleting
// substances, and the residue grid with its in-place editors while a substance is edited.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "model/MainWindowModel.h"

namespace pescavo {

using C = ControlId;

namespace {

constexpr int kEditingGridHeight = 4935;
constexpr int kEditorInset = 15;  // the grid's border
const char* const kNewSubstance = "New substance";
const char* const kSearchPrompt = "Search...";
const char* const kTableFull =
    "The substance database holds 998 substances, as many as it can hold.";
const char* const kUnstorable =
    "Residue values above 1000000 mg/kg can't be stored; they are marked green. Please check "
    "your changes.";

}  // namespace

void MainWindowModel::setSubstanceNameText(std::string text) {
  m_layout.at(C::Schadstoffname).caption = std::move(text);
}

void MainWindowModel::setSearchText(std::string text) {
  m_layout.at(C::Suche).caption = std::move(text);
}

void MainWindowModel::Schadstoffliste_DblClick() {
  Edit_Click();
  Ergebnis_ausblenden();
}

void MainWindowModel::Schadstoffliste_KeyDown(int key, bool control) {
  if (key == ResidueGrid::kDelete)
    Loeschen_Click();
  else if (key == ResidueGrid::kKeyC && control)
    Kopieren_Click();
}

bool MainWindowModel::tableFull() {
  if (m_database.table().substanceCount() < ComponentTable::kMaxSubstances) return false;
  m_dialogs.information(kTableFull);
  return true;
}

int MainWindowModel::targetSubstance() const {
  return editMode() ? m_substance + 1 : m_database.table().substanceCount() + 1;
}

void MainWindowModel::Add_Click() {
  if (!editMode()) {
    // Refused here rather than at "Done", before anything is typed.
    if (tableFull()) return;
    m_grid.startAdding(lade_Schadstoffwerte(m_database.table(), std::max(m_substance, 0) + 1),
                       targetSubstance());
    setSubstanceNameText(kNewSubstance);
  }
  showEditingLayout();
}

void MainWindowModel::Edit_Click() {
  if (m_substance < 0) return;
  const int j = m_substance + 1;
  m_grid.startEditing(lade_Schadstoffwerte(m_database.table(), j), m_database.table(), j);
  setSubstanceNameText(m_database.table().substanceName(j));
  m_editMode = true;
  m_layout.show({C::Abbrechen});
  showEditingLayout();
}

// "Add substance" but for its step 5. The grid covers the substance list, and the controls
// around it stand where the design has them: in SimpleMode the window takes its full width
// again until the simple layout is applied on leaving.
void MainWindowModel::showEditingLayout() {
  static const MainWindowLayout design;
  for (ControlId name : {C::schadstoffwerte, C::Label5, C::Schadstoffname, C::Suche, C::Go,
                         C::Abbrechen, C::Ende, C::Image6, C::Image1}) {
    const ControlState& from = design.at(name);
    ControlState& to = m_layout.at(name);
    to.left = from.left;
    to.top = from.top;
    to.width = from.width;
    to.height = from.height;
  }
  m_layout.at(C::schadstoffwerte).height = kEditingGridHeight;
  m_layout.setWidth(MainWindowLayout::kFullWidth);
  m_layout.hide({C::Image2,    C::Image3,     C::Image4,       C::Image5,       C::Image7,
                 C::Image8,    C::Line1,      C::Line2,        C::Label7,       C::Label8,
                 C::Label9,    C::Frame1,     C::Frame2,       C::Optimierung,  C::Optimierung2,
                 C::Edit,      C::Add,        C::Command1,     C::Loeschen,     C::Kopieren,
                 C::Fischmehl, C::Check1,     C::Check2,       C::Check4,       C::Check5,
                 C::MinMax,    C::Fischarten, C::Fischfutter1, C::Fischfutter2, C::Label1,
                 C::Label31,   C::alle_rein,  C::alle_raus,    C::Rein,         C::raus});
  Ergebnis_ausblenden();
  if (m_simpleMode) m_layout.hide({C::FischmehlCaption});
  m_layout.show(
      {C::Image6, C::Schadstoffname, C::Label5, C::Suche, C::Go, C::Abbrechen, C::schadstoffwerte});
  setSearchText(kSearchPrompt);
  m_grid.home();
  m_layout.at(C::Ende).caption = "Done";
}

// What "Cancel" and "Done" both restore.
void MainWindowModel::showNormalLayout() {
  m_layout.hide({C::schadstoffwerte, C::Schadstoffname, C::Label5});
  m_layout.at(C::Ende).caption = "Exit";
  m_layout.show({C::Edit,        C::Command1,     C::Add,          C::Loeschen, C::Kopieren,
                 C::Optimierung, C::Fischfutter1, C::Fischfutter2, C::Label1,   C::Label31,
                 C::alle_rein,   C::alle_raus,    C::Rein,         C::raus,     C::Line1,
                 C::Line2,       C::Label7,       C::Label8,       C::Label9,   C::Frame2,
                 C::Image2});
  setEnabled(C::Edit, true);
  m_layout.hide({C::MinMax, C::Fischarten, C::Image6, C::Abbrechen, C::ArtSchadstoffwertCombo,
                 C::EingabeSchadstoff, C::Suche, C::Go});
  setSubstanceNameText("");
}

void MainWindowModel::applySimpleLayoutAfterEditing() {
  m_options.pseudo.pc = true;
  m_layout.applySimpleLayout(true);
  m_options.fishmealGrade = 1;
}

void MainWindowModel::Abbrechen_Click() {
  showNormalLayout();
  m_editMode = false;
  if (m_simpleMode) applySimpleLayoutAfterEditing();
  setSearchText(kSearchPrompt);
}

void MainWindowModel::keepEditBoxText() {
  if (!m_layout.at(C::EingabeSchadstoff).visible) return;
  m_grid.keepEditBoxText();
  m_grid.closeEditBox();
  m_layout.hide({C::EingabeSchadstoff});
}

void MainWindowModel::selectAddedSubstance() {
  selectSubstance(m_database.table().substanceCount() - 1);
}

bool MainWindowModel::leaveEditing() {
  if (!editing()) return false;
  keepEditBoxText();
  const bool added = !editMode();
  if (!uebernehme_Werte()) return false;
  showNormalLayout();
  if (added) selectAddedSubstance();
  m_editMode = false;
  Futterliste_aktualisieren();
  if (m_simpleMode) applySimpleLayoutAfterEditing();
  return true;
}

bool MainWindowModel::uebernehme_Werte() {
  const bool adding = !editMode();
  if (!adding && m_substance < 0) return false;
  // feedstuff.tab refuses such values, so storing them would lock the user out at the next
  // start.
  if (m_grid.markUnstorableValues() > 0) {
    m_dialogs.information(kUnstorable);
    return false;
  }
  if (adding && tableFull()) return false;
  const int t = targetSubstance();
  const int rows = std::min(m_grid.rowCount() - 1, m_database.table().componentCount());
  std::vector<std::int16_t> codes(static_cast<std::size_t>(std::max(rows, 0)));
  for (int r = 1; r <= rows; ++r)
    codes[static_cast<std::size_t>(r - 1)] = m_grid.basisCopy().code(m_database.table(), t, r);
  if (adding)
    m_database.table().addSubstance(substanceNameText());
  else
    m_database.table().setSubstanceName(t, substanceNameText());
  for (int r = 1; r <= rows; ++r) {
    m_database.table().setResidue(t, r, m_grid.value(r));
    m_database.table().setBasis(t, r, codes[static_cast<std::size_t>(r - 1)]);
  }
  m_database.markModified();
  return true;
}

void MainWindowModel::Kopieren_Click() {
  if (m_substance < 0 || tableFull()) return;
  if (editing()) m_grid.basisCopy().freeze(m_database.table());
  const int p = m_substance;
  const int k = m_database.table().copySubstance(p + 1, m_database.table().substanceName(p + 1));
  selectSubstance(k - 1);
}

void MainWindowModel::Loeschen_Click() {
  if (!m_database.canDelete() || m_substance < 0) return;
  m_database.markModified();
  const int p = m_substance;
  if (editing()) m_grid.basisCopy().freeze(m_database.table());
  m_database.table().deleteSubstance(p + 1);
  selectSubstance(std::min(p, m_database.table().substanceCount() - 1));
}

void MainWindowModel::setGridCursor(int row, int column, int selectionEnd) {
  m_grid.setCursor(row, column, selectionEnd);
}

MainWindowModel::GridEditor MainWindowModel::schadstoffwerte_Click() {
  if (!editing() || m_grid.rowCount() < 2) return GridEditor::None;
  keepEditBoxText();
  if (m_grid.column() == ResidueGrid::kBasisColumn) {
    m_grid.showBasisOfCurrentCell();
    m_layout.hide({C::EingabeSchadstoff});
    return GridEditor::BasisChooser;
  }
  if (m_grid.column() == ResidueGrid::kValueColumn) {
    m_grid.openEditBox();
    m_layout.hide({C::ArtSchadstoffwertCombo});
    return GridEditor::EditBox;
  }
  return GridEditor::None;
}

std::optional<std::string> MainWindowModel::schadstoffwerte_KeyDown(int key, bool control) {
  if (!editing()) return std::nullopt;
  std::optional<std::string> clipboard = m_grid.gridKey(key, control);
  if (key == ResidueGrid::kEscape) Abbrechen_Click();
  return clipboard;
}

TwipsRect MainWindowModel::Eingabefeld_platzieren(int gridLeft, int gridTop,
                                                  const TwipsRect& cell) {
  const TwipsRect place{gridLeft + cell.left + kEditorInset, gridTop + cell.top + kEditorInset,
                        cell.width, cell.height};
  ControlState& box = m_layout.at(C::EingabeSchadstoff);
  box.visible = true;
  box.left = place.left;
  box.top = place.top;
  box.width = place.width;
  box.height = place.height;
  m_grid.selectAllOfEditBox();
  return place;
}

TwipsRect MainWindowModel::Auswahlfeld_platzieren(int gridLeft, int gridTop,
                                                  const TwipsRect& cell) {
  ControlState& combo = m_layout.at(C::ArtSchadstoffwertCombo);
  const TwipsRect place{gridLeft + cell.left + kEditorInset, gridTop + cell.top + kEditorInset,
                        cell.width, combo.height};
  combo.visible = true;
  combo.left = place.left;
  combo.top = place.top;
  combo.width = place.width;
  return place;
}

bool MainWindowModel::EingabeSchadstoff_KeyPress(int key) { return m_grid.typeIntoEditBox(key); }

void MainWindowModel::setEditBox(std::string text, int selectionStart, int selectionLength) {
  m_grid.setEditBox(std::move(text), selectionStart, selectionLength);
}

std::optional<int> MainWindowModel::EingabeSchadstoff_Enter() {
  const std::optional<int> next = m_grid.enterEditBox();
  if (!next) m_layout.hide({C::EingabeSchadstoff});
  return next;
}

void MainWindowModel::EingabeSchadstoff_Paste(std::string_view clipboard) {
  m_grid.paste(clipboard);
  m_grid.closeEditBox();
  m_layout.hide({C::EingabeSchadstoff});
}

void MainWindowModel::EingabeSchadstoff_Click() {
  m_grid.fillSelectionFromEditBox();
  m_layout.hide({C::ArtSchadstoffwertCombo});
}

void MainWindowModel::EingabeSchadstoff_DblClick() {
  EingabeSchadstoff_Click();
  m_grid.closeEditBox();
  m_layout.hide({C::EingabeSchadstoff});
}

void MainWindowModel::ArtSchadstoffwertCombo_Click(int position) {
  keepEditBoxText();
  m_grid.chooseBasis(position, m_database.table(), targetSubstance());
  m_layout.hide({C::ArtSchadstoffwertCombo, C::EingabeSchadstoff});
}

void MainWindowModel::Go_Click() { m_grid.search(searchText()); }

}  // namespace pescavo
