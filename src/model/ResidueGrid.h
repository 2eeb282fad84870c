#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/NumericEditBox.h"
#include "model/VirtualKeys.h"
#include "tables/ComponentTable.h"

namespace pescavo {

// Lower case for the searches: ASCII and the Latin-1 capitals, every byte count kept.
std::string searchFold(std::string_view text);

// A rectangle in twips.
struct TwipsRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const TwipsRect& other) const {
    return left == other.left && top == other.top && width == other.width && height == other.height;
  }
};

// The editing copy of the residue-basis codes. "Edit " copies every code of every substance,
// yet only the codes of the substance being edited are ever chosen, and the table's codes stay
// as they are until the copy is stored back. So the copy holds only the substances whose codes
// were set here and reads every other code through to the table: the same codes at a fraction
// of the cost. Del and Copy, the only steps that change the table's codes under the copy while
// editing, freeze it first.
class BasisCopy {
 public:
  void copyAll();                            // "Edit ": every code as the table holds it
  void zero(int substance, int components);  // "Add substance": the new substance's codes 0
  std::int16_t code(const ComponentTable& table, int substance, int component) const;
  void setCode(const ComponentTable& table, int substance, int component, std::int16_t code);
  void freeze(const ComponentTable& table);

 private:
  // Codes by component - 1.
  std::map<int, std::vector<std::int16_t>> m_set;
  std::vector<std::int16_t> m_frozen;  // [(substance - 1) * m_frozenComponents + component - 1]
  int m_frozenSubstances = 0;
  int m_frozenComponents = 0;
};

// The residue grid schadstoffwerte while a substance is added or edited: its cells, the search
// and check marks, the current cell and the selection, the in-place edit box's text and the
// basis drop-down's choice. Rows are 0 (the header) to rowCount() - 1, one per component;
// columns 0 to 5. Texts are UTF-8; edit box positions count bytes.
class ResidueGrid {
 public:
  static constexpr int kColumns = 6;
  static constexpr int kBasisColumn = 4;
  static constexpr int kValueColumn = 5;
  static constexpr int kSearchColumns = 4;  // category, crop, commodity, IFN code
  static constexpr double kMaxResidue = ComponentTable::kMaxResidue;  // mg/kg

  // Rows as lade_Schadstoffwerte gives them. Marks are cleared and row 1, column 5 becomes the
  // current cell.
  void startAdding(std::vector<std::array<std::string, kColumns>> rows, int newSubstance);
  void startEditing(std::vector<std::array<std::string, kColumns>> rows,
                    const ComponentTable& table, int substance);

  int rowCount() const { return static_cast<int>(m_cells.size()); }
  const std::string& text(int row, int column) const;
  // Green: a search hit in columns 0 to 3, a value that can't be stored in column 5.
  bool marked(int row, int column) const;

  // The current cell and the other end of the row selection, as the grid reports them.
  int row() const { return m_row; }
  int column() const { return m_column; }
  int selectionEnd() const { return m_selectionEnd; }
  void setCursor(int row, int column, int selectionEnd);
  // The search marks gone and row 1, column 5 current, as every start of editing leaves them.
  void home();

  // The edit box EingabeSchadstoff.
  const NumericEditBox& editBox() const { return m_editBox; }
  NumericEditBox& editBox() { return m_editBox; }
  // The box opened over the current cell with that cell's text, and closed.
  void openEditBox();
  void closeEditBox() { m_boxRow = -1; }
  // What was typed into an open box and not yet entered goes into the cell the box stands
  // over, so that leaving the box another way than Enter loses nothing.
  void keepEditBoxText();
  // Enter: the box's text into the current cell, then one row down with that cell's text in
  // the box. The row the box moves to, or nothing when it was the last row.
  std::optional<int> enterEditBox();
  // Ctrl+V: line by line into column 5 from the current row down. A line ends with CR LF (or
  // a bare LF, as the clipboard of this platform carries it); text after the last line end is
  // not written, lines beyond the last row are dropped.
  void paste(std::string_view clipboard);
  // The click into the box: its text into column 5 of every selected row.
  void fillSelectionFromEditBox();

  // The basis drop-down ArtSchadstoffwertCombo: the item shown, 0 "STMR" or 1 "STMR-P".
  int basisChoice() const { return m_basisChoice; }
  // A click on column 4 shows the item the cell names.
  void showBasisOfCurrentCell();
  // A choice: column 4 of every selected row, and those codes of substance in the copy.
  void chooseBasis(int position, const ComponentTable& table, int substance);
  BasisCopy& basisCopy() { return m_basisCopy; }
  const BasisCopy& basisCopy() const { return m_basisCopy; }

  // Keys on the grid itself (after the current column has become 5). What goes to the
  // clipboard for Ctrl+C; Escape is the caller's ("Cancel").
  std::optional<std::string> gridKey(int key, bool control);
  // Ctrl+C: the current cell's text; with several rows selected, the column-5 texts of the
  // selected rows, each ended by CR LF.
  std::string copyText() const;

  // Marks every cell of columns 0 to 3 that contains text, ignoring case (ASCII and Latin-1
  // letters), and clears the others.
  void search(std::string_view text);

  // The number column 5 of row holds: its leading number, a comma read as the decimal point.
  double value(int row) const;
  // Marks the column-5 cells whose values feedstuff.tab can't hold (above kMaxResidue, not
  // finite) and clears the other column-5 marks; the number of cells marked.
  int markUnstorableValues();

  // Column widths in twips of a grid gridWidth wide whose cells have clientWidth inside its
  // border and scroll bar: category, crop and commodity a sixth of the grid each, basis and
  // value a seventh each. The IFN code takes what is left, so the columns end at the border;
  // never less than a seventh.
  static std::array<int, kColumns> columnWidths(int gridWidth, int clientWidth);

  // The mouse wheel: the new top row, or nothing when it stays (the grid's height or its
  // header row's height unusable, or no row to show).
  static std::optional<int> wheelTopRow(int topRow, int rotation, int gridHeight, int headerHeight,
                                        int rowCount);

 private:
  void reset(std::vector<std::array<std::string, kColumns>> rows);
  void setText(int row, int column, std::string text);
  // The selected rows, lowest first.
  int firstSelected() const { return m_row < m_selectionEnd ? m_row : m_selectionEnd; }
  int lastSelected() const { return m_row < m_selectionEnd ? m_selectionEnd : m_row; }
  std::size_t cellIndex(int row, int column) const {
    return static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column);
  }

  std::vector<std::array<std::string, kColumns>> m_cells;
  // Columns 0 to 3 of rows 1.. in lower case, made once per start so a search only compares.
  std::vector<std::string> m_folded;
  std::vector<unsigned char> m_marks;
  int m_row = 1;
  int m_column = kValueColumn;
  int m_selectionEnd = 1;
  NumericEditBox m_editBox;
  int m_boxRow = -1;  // the row the open edit box stands over, -1 when it is closed
  int m_basisChoice = 0;
  BasisCopy m_basisCopy;
};

}  // namespace pescavo
