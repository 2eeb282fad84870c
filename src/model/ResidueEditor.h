#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/MainWindowLayout.h"
#include "model/ResidueGrid.h"
#include "tables/ComponentTable.h"

namespace pescavo {

// The residue grid of the editing mode with what sits on it: the edit box, the basis drop-down,
// the substance name box and the search box. It shows them through the main window's layout,
// whose "Exit"/"Done" caption says whether a substance is being edited. The window forwards
// each of the grid's events to one operation; key codes are the platform's virtual key codes
// (Delete 46, C 67, Escape 27, digits 48 to 57, keypad 96 to 105).
class ResidueEditor {
 public:
  enum class GridEditor { None, EditBox, BasisChooser };

  explicit ResidueEditor(MainWindowLayout& layout) : m_layout(layout) {}

  bool editing() const { return m_layout.at(ControlId::Ende).caption != "Exit"; }
  const ResidueGrid& grid() const { return m_grid; }
  ResidueGrid& grid() { return m_grid; }

  const std::string& nameText() const { return m_layout.at(ControlId::Schadstoffname).caption; }
  void setNameText(std::string text);
  // Suche and Go; Enter in Suche is Go.
  const std::string& searchText() const { return m_layout.at(ControlId::Suche).caption; }
  void setSearchText(std::string text);
  void Go_Click() { m_grid.search(searchText()); }

  // The grid's current cell and the other end of its row selection, as the grid reports them.
  void setGridCursor(int row, int column, int selectionEnd) {
    m_grid.setCursor(row, column, selectionEnd);
  }
  // A click on the current cell: which in-place editor the window places over it.
  GridEditor schadstoffwerte_Click();
  // The wheel over the grid: the top row to show, or nothing when it stays.
  std::optional<int> MouseWheel(int rotation, int topRow, int gridHeight, int headerHeight) const {
    return ResidueGrid::wheelTopRow(topRow, rotation, gridHeight, headerHeight, m_grid.rowCount());
  }
  // Place the edit box or the drop-down over a cell of the grid at gridLeft, gridTop; all in
  // twips. The editor's place, also in the layout, which shows it.
  TwipsRect Eingabefeld_platzieren(int gridLeft, int gridTop, const TwipsRect& cell);
  TwipsRect Auswahlfeld_platzieren(int gridLeft, int gridTop, const TwipsRect& cell);

  // The edit box: a typed character (false when dropped; Enter is EingabeSchadstoff_Enter),
  // what the box shows after the platform's own editing (caret moves, mouse selection), Enter
  // (the row the box moves to; nothing when it hides), Ctrl+C (the text for the clipboard),
  // Ctrl+V, click, double-click.
  bool EingabeSchadstoff_KeyPress(int key) { return m_grid.editBox().type(key); }
  void setEditBox(std::string text, int selectionStart, int selectionLength) {
    m_grid.editBox().set(std::move(text), selectionStart, selectionLength);
  }
  std::optional<int> EingabeSchadstoff_Enter();
  std::string EingabeSchadstoff_Copy() const { return m_grid.editBox().text(); }
  void EingabeSchadstoff_Paste(std::string_view clipboard);
  void EingabeSchadstoff_Click();
  void EingabeSchadstoff_DblClick();
  // The basis drop-down's item at position for the cell, stored for substance target.
  void chooseBasis(int position, const ComponentTable& table, int target);

  // Typing in the edit box that Enter has not stored yet goes into its cell.
  void keepEditBoxText();

 private:
  void closeEditBox();

  ResidueGrid m_grid;
  MainWindowLayout& m_layout;
};

}  // namespace pescavo
