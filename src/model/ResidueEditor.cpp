#include "model/ResidueEditor.h"

namespace pescavo {

namespace {

using C = ControlId;

constexpr int kEditorInset = 15;  // the grid's border

}  // namespace

void ResidueEditor::setNameText(std::string text) {
  m_layout.at(C::Schadstoffname).caption = std::move(text);
}

void ResidueEditor::setSearchText(std::string text) {
  m_layout.at(C::Suche).caption = std::move(text);
}

ResidueEditor::GridEditor ResidueEditor::schadstoffwerte_Click() {
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

TwipsRect ResidueEditor::Eingabefeld_platzieren(int gridLeft, int gridTop, const TwipsRect& cell) {
  const TwipsRect place{gridLeft + cell.left + kEditorInset, gridTop + cell.top + kEditorInset,
                        cell.width, cell.height};
  ControlState& box = m_layout.at(C::EingabeSchadstoff);
  box.visible = true;
  box.left = place.left;
  box.top = place.top;
  box.width = place.width;
  box.height = place.height;
  m_grid.editBox().selectAll();
  return place;
}

TwipsRect ResidueEditor::Auswahlfeld_platzieren(int gridLeft, int gridTop, const TwipsRect& cell) {
  ControlState& combo = m_layout.at(C::ArtSchadstoffwertCombo);
  const TwipsRect place{gridLeft + cell.left + kEditorInset, gridTop + cell.top + kEditorInset,
                        cell.width, combo.height};
  combo.visible = true;
  combo.left = place.left;
  combo.top = place.top;
  combo.width = place.width;
  return place;
}

std::optional<int> ResidueEditor::EingabeSchadstoff_Enter() {
  const std::optional<int> next = m_grid.enterEditBox();
  if (!next) m_layout.hide({C::EingabeSchadstoff});
  return next;
}

void ResidueEditor::closeEditBox() {
  m_grid.closeEditBox();
  m_layout.hide({C::EingabeSchadstoff});
}

void ResidueEditor::EingabeSchadstoff_Paste(std::string_view clipboard) {
  m_grid.paste(clipboard);
  closeEditBox();
}

void ResidueEditor::EingabeSchadstoff_Click() {
  m_grid.fillSelectionFromEditBox();
  m_layout.hide({C::ArtSchadstoffwertCombo});
}

void ResidueEditor::EingabeSchadstoff_DblClick() {
  EingabeSchadstoff_Click();
  closeEditBox();
}

void ResidueEditor::chooseBasis(int position, const ComponentTable& table, int target) {
  keepEditBoxText();
  m_grid.chooseBasis(position, table, target);
  m_layout.hide({C::ArtSchadstoffwertCombo, C::EingabeSchadstoff});
}

void ResidueEditor::keepEditBoxText() {
  if (!m_layout.at(C::EingabeSchadstoff).visible) return;
  m_grid.keepEditBoxText();
  closeEditBox();
}

}  // namespace pescavo
