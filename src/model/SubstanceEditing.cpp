// The main window's substance database: choosing, adding, copying, editing and deleting
// substances, and the residue grid with its in-place editors while a substance is edited.

#include "model/SubstanceEditing.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "model/AllOptionsLayout.h"
#include "model/MainWindowModel.h"

namespace pescavo {

using C = ControlId;

namespace {

constexpr int kEditingGridHeight = 4935;
const char* const kNewSubstance = "New substance";
const char* const kSearchPrompt = "Search...";
const std::string kTableFull = "The substance database holds " +
                               std::to_string(ComponentTable::kMaxSubstances) +
                               " substances, as many as it can hold.";
const std::string kUnstorable = "Residue values above " +
                                std::to_string(ComponentTable::kMaxResidue) +
                                " mg/kg can't be stored; they are marked green. Please check "
                                "your changes.";

}  // namespace

void SubstanceEditing::Schadstoffliste_DblClick() {
  Edit_Click();
  m_model.Ergebnis_ausblenden();
}

void SubstanceEditing::Schadstoffliste_KeyDown(int key, bool control) {
  if (key == VirtualKey::kDelete)
    Loeschen_Click();
  else if (key == VirtualKey::kKeyC && control)
    Kopieren_Click();
}

ComponentTable& SubstanceEditing::table() { return m_model.m_database.table(); }

bool SubstanceEditing::tableFull() {
  if (table().substanceCount() < ComponentTable::kMaxSubstances) return false;
  m_model.m_dialogs.information(kTableFull);
  return true;
}

int SubstanceEditing::targetSubstance() const {
  return editMode() ? m_model.m_substance + 1 : m_model.database().table().substanceCount() + 1;
}

void SubstanceEditing::Add_Click() {
  if (!editMode()) {
    // Refused here rather than at "Done", before anything is typed.
    if (tableFull()) return;
    m_editor.grid().startAdding(lade_Schadstoffwerte(table(), std::max(m_model.m_substance, 0) + 1),
                                targetSubstance());
    m_editor.setNameText(kNewSubstance);
  }
  showEditingLayout();
}

void SubstanceEditing::Edit_Click() {
  if (m_model.m_substance < 0) return;
  const int j = m_model.m_substance + 1;
  m_editor.grid().startEditing(lade_Schadstoffwerte(table(), j), table(), j);
  m_editor.setNameText(table().substanceName(j));
  m_editMode = true;
  m_model.m_layout.show({C::Abbrechen});
  showEditingLayout();
}

// "Add substance" but for its step 5. The grid covers the substance list, and the controls
// around it stand where the design has them: in SimpleMode the window takes its full width
// again until the simple layout is applied on leaving.
void SubstanceEditing::showEditingLayout() {
  static const MainWindowLayout design;
  for (ControlId name : {C::schadstoffwerte, C::Label5, C::Schadstoffname, C::Suche, C::Go,
                         C::Abbrechen, C::Ende, C::Image6, C::Image1}) {
    const ControlState& from = design.at(name);
    ControlState& to = m_model.m_layout.at(name);
    to.left = from.left;
    to.top = from.top;
    to.width = from.width;
    to.height = from.height;
  }
  m_model.m_layout.at(C::schadstoffwerte).height = kEditingGridHeight;
  m_model.m_layout.setWidth(MainWindowLayout::kFullWidth);
  m_model.m_layout.hide({C::Image2,       C::Image3,      C::Image4,       C::Image5,
                         C::Image7,       C::Image8,      C::Line1,        C::Line2,
                         C::Label7,       C::Label8,      C::Label9,       C::Frame1,
                         C::Frame2,       C::Optimierung, C::Optimierung2, C::Edit,
                         C::Add,          C::Command1,    C::Loeschen,     C::Kopieren,
                         C::Fischmehl,    C::Check1,      C::Check2,       C::Check4,
                         C::Check5,       C::MinMax,      C::Fischarten,   C::Fischfutter1,
                         C::Fischfutter2, C::Label1,      C::Label31,      C::alle_rein,
                         C::alle_raus,    C::Rein,        C::raus,         C::MenuEdit});
  m_model.Ergebnis_ausblenden();
  if (m_model.m_simpleMode || m_model.m_allOptions) m_model.m_layout.hide({C::FischmehlCaption});
  m_model.m_layout.show(
      {C::Image6, C::Schadstoffname, C::Label5, C::Suche, C::Go, C::Abbrechen, C::schadstoffwerte});
  m_editor.setSearchText(kSearchPrompt);
  m_editor.grid().home();
  m_model.m_layout.at(C::Ende).caption = "Done";
}

// What "Cancel" and "Done" both restore.
void SubstanceEditing::showNormalLayout() {
  m_model.m_layout.hide({C::schadstoffwerte, C::Schadstoffname, C::Label5});
  m_model.m_layout.at(C::Ende).caption = "Exit";
  m_model.m_layout.show({C::Edit,        C::Command1,     C::Add,          C::Loeschen, C::Kopieren,
                         C::Optimierung, C::Fischfutter1, C::Fischfutter2, C::Label1,   C::Label31,
                         C::alle_rein,   C::alle_raus,    C::Rein,         C::raus,     C::Line1,
                         C::Line2,       C::Label7,       C::Label8,       C::Label9,   C::Frame2,
                         C::Image2});
  m_model.setEnabled(C::Edit, true);
  m_model.m_layout.hide({C::MinMax, C::Fischarten, C::Image6, C::Abbrechen,
                         C::ArtSchadstoffwertCombo, C::EingabeSchadstoff, C::Suche, C::Go});
  m_editor.setNameText("");
  if (m_model.m_allOptions && !m_model.m_simpleMode) showAllOptions(m_model.m_layout);
}

void SubstanceEditing::applySimpleLayoutAfterEditing() {
  PseudoComponents pseudo = m_model.m_options.pseudoComponents();
  pseudo.pc = true;
  m_model.m_options.setPseudoComponents(pseudo);
  m_model.m_layout.applySimpleLayout(true);
  m_model.m_options.setFishmealGrade(1);
}

void SubstanceEditing::Abbrechen_Click() {
  showNormalLayout();
  m_editMode = false;
  if (m_model.m_simpleMode) applySimpleLayoutAfterEditing();
  m_editor.setSearchText(kSearchPrompt);
}

void SubstanceEditing::selectAddedSubstance() {
  m_model.selectSubstance(table().substanceCount() - 1);
}

bool SubstanceEditing::leaveEditing() {
  if (!m_editor.editing()) return false;
  m_editor.keepEditBoxText();
  const bool added = !editMode();
  if (!uebernehme_Werte()) return false;
  showNormalLayout();
  if (added) selectAddedSubstance();
  m_editMode = false;
  m_model.Futterliste_aktualisieren();
  if (m_model.m_simpleMode) applySimpleLayoutAfterEditing();
  return true;
}

bool SubstanceEditing::uebernehme_Werte() {
  const bool adding = !editMode();
  if (!adding && m_model.m_substance < 0) return false;
  // feedstuff.tab refuses such values, so storing them would lock the user out at the next
  // start.
  if (m_editor.grid().markUnstorableValues() > 0) {
    m_model.m_dialogs.information(kUnstorable);
    return false;
  }
  if (adding && tableFull()) return false;
  const int t = targetSubstance();
  const int rows = std::min(m_editor.grid().rowCount() - 1, table().componentCount());
  std::vector<std::int16_t> codes(static_cast<std::size_t>(std::max(rows, 0)));
  for (int r = 1; r <= rows; ++r)
    codes[static_cast<std::size_t>(r - 1)] = m_editor.grid().basisCopy().code(table(), t, r);
  if (adding)
    table().addSubstance(m_editor.nameText());
  else
    table().setSubstanceName(t, m_editor.nameText());
  for (int r = 1; r <= rows; ++r) {
    table().setResidue(t, r, m_editor.grid().value(r));
    table().setBasis(t, r, codes[static_cast<std::size_t>(r - 1)]);
  }
  m_model.m_database.markModified();
  return true;
}

void SubstanceEditing::Kopieren_Click() {
  if (m_model.m_substance < 0 || tableFull()) return;
  if (m_editor.editing()) m_editor.grid().basisCopy().freeze(table());
  const int p = m_model.m_substance;
  const int k = table().copySubstance(p + 1, table().substanceName(p + 1));
  m_model.selectSubstance(k - 1);
}

void SubstanceEditing::Loeschen_Click() {
  if (!m_model.m_database.canDelete() || m_model.m_substance < 0) return;
  m_model.m_database.markModified();
  const int p = m_model.m_substance;
  if (m_editor.editing()) m_editor.grid().basisCopy().freeze(table());
  table().deleteSubstance(p + 1);
  m_model.selectSubstance(std::min(p, table().substanceCount() - 1));
}

std::optional<std::string> SubstanceEditing::schadstoffwerte_KeyDown(int key, bool control) {
  if (!m_editor.editing()) return std::nullopt;
  std::optional<std::string> clipboard = m_editor.grid().gridKey(key, control);
  if (key == VirtualKey::kEscape) Abbrechen_Click();
  return clipboard;
}

void SubstanceEditing::ArtSchadstoffwertCombo_Click(int position) {
  m_editor.chooseBasis(position, table(), targetSubstance());
}

void SubstanceEditing::save() {
  m_model.Ergebnis_ausblenden();
  // After writing, so the file holds the table as it was; only while editing, since outside it
  // there is no grid to take over. A new substance is stored once: editing then goes on with
  // it, so that "Done" does not add it a second time.
  if (m_model.m_database.write(m_model.m_decimalSeparator) && m_editor.editing()) {
    m_editor.keepEditBoxText();
    const bool adding = !editMode();
    if (uebernehme_Werte() && adding) {
      selectAddedSubstance();
      m_editMode = true;
    }
  }
  m_model.Futterliste_aktualisieren();
}

bool SubstanceEditing::Ende_Click() {
  if (m_editor.editing()) {  // "Done"
    leaveEditing();
    return false;
  }
  return m_model.m_database.saveBeforeExit(m_model.m_decimalSeparator);
}

ComponentTable& SubstanceEditing::beginComponentEditing() {
  m_model.Ergebnis_ausblenden();
  return table();
}

void SubstanceEditing::endComponentEditing(bool done) {
  if (done) m_model.m_database.markModified();
  m_model.Futterliste_aktualisieren();
  m_model.Ergebnis_ausblenden();
}

void SubstanceEditing::restore() {
  if (!m_model.m_database.restore()) return;
  m_model.m_substance = 0;
  m_model.Futterliste_aktualisieren();
  // The lists were emptied, so a result on screen no longer belongs to them.
  m_model.Ergebnis_ausblenden();
}

}  // namespace pescavo
