#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/CheckStyles.h"
#include "tables/ComponentTable.h"

namespace pescavo {

// The category drop-down's items, in their order.
constexpr const char* kComponentCategories[5] = {"By-Products", "Cereal Grains/ Crop Seeds", "Fat",
                                                 "Forages/Fodders", "Roots and Tubers"};
// The four buttons that change or leave the table.
constexpr Rgb kLightRed{255, 128, 128};
// Search hits and values that fail a check.
constexpr Rgb kMarkGreen{0, 255, 0};

// The grid of the component editor, row 0 the header, rows 1.. the components, nine columns.
// The table changes only when the grid is read back ("Done", "Save"): until then a deleted row
// and its residues stay in the table, so "Cancel" leaves the table as it was.
class ComponentEditor {
 public:
  static constexpr int kColumns = 9;
  using Row = std::array<std::string, kColumns>;
  enum class GridEditor { EditBox, CategoryChooser };

  // Form_Load. Numbers are shown with "." whatever the locale, since the read-back takes "."
  // only.
  explicit ComponentEditor(ComponentTable& table);

  int rowCount() const { return static_cast<int>(m_rows.size()); }
  const std::string& cell(int row, int column) const { return m_rows.at(row).at(column); }
  void setCell(int row, int column, std::string text) {
    m_rows.at(row).at(column) = std::move(text);
  }
  // Green: a search hit or a value that failed the last read-back's checks.
  bool marked(int row, int column) const {
    return m_marks.at(row).at(column) || m_hits.at(row).at(column);
  }
  // The cells failing the last read-back's checks.
  int markCount() const;

  // The grid's current cell and the other corner of its selection.
  void setCursor(int row, int column, int rowEnd, int columnEnd);
  void setCursor(int row, int column) { setCursor(row, column, row, column); }
  int currentRow() const { return m_row; }
  int currentColumn() const { return m_column; }

  // A click on the current cell: what the window places over it. For the edit box its text is
  // the cell's; for the chooser categoryItem() is the item to make current (-1: none).
  GridEditor cellClicked();
  int categoryItem() const;
  // The chooser's item for every selected row.
  void chooseCategory(int item);

  // The edit box. A typed character: false when the filter drops it.
  const std::string& editText() const { return m_edit; }
  void setEditText(std::string text) { m_edit = std::move(text); }
  bool editKeyPress(int key);
  // Enter: the row the box moves to, nothing when it hides on the last row.
  std::optional<int> editEnter();
  // Tab: the column the box moves to, nothing when it stays (last column).
  std::optional<int> editTab();
  // A click into the box: its text into every cell of the selected block.
  void editClick();

  // Keys on the grid: key codes (Delete 46, Backspace 8, Escape 27, digits 48 to 57, keypad 96
  // to 105 and 110, "," 188, "." 190) and typed characters. gridKeyDown is true for Escape,
  // which the window takes as "Cancel".
  bool gridKeyDown(int key);
  void gridKeyPress(int character);

  // "New Record": one more row, current at its last cell; false when the table is full.
  bool Neuer_Datensatz();
  // "Del Record" after Yes: the current row leaves the grid; the row that moves into its place,
  // or the new last row, becomes current. False when there is no component row to delete.
  bool Loeschen();
  // The read-back of "Save": deletions, new rows and every cell's value go into the table; the
  // number of cells marked as failing a check.
  int readBack();
  // "Done": true when the window closes; false when "Please check your changes." is due. Only
  // "Done" marks the database modified; editing cells and "Save" leave the flag as it is.
  bool Fertig();
  bool databaseModified() const { return m_modified; }

  // All rows, cells joined by TAB, each row ended by CR LF.
  std::string clipboardText() const;
  // Columns 0 to 3 of rows 1..: a cell containing the text, ignoring case, is marked, every
  // other such cell unmarked.
  void search(std::string_view text);

 private:
  void load();
  void markRow(int row);

  ComponentTable& m_table;
  std::vector<Row> m_rows;
  std::vector<std::array<bool, kColumns>> m_marks;  // checks
  std::vector<std::array<bool, kColumns>> m_hits;   // search
  // The table component each grid row shows; 0 for a new record.
  std::vector<int> m_origin;
  int m_row = 1;
  int m_column = 0;
  int m_rowEnd = 1;
  int m_columnEnd = 0;
  std::string m_edit;
  bool m_modified = false;
};

// The overview of the components available for substance s (1-based): row 0 the ten headers,
// then one row per component with a residue value above 0.
std::vector<std::array<std::string, 10>> componentOverview(const ComponentTable& table,
                                                           int substance, char decimalSeparator);
// The overview's search: the column-1 cells of rows 1.. that contain the text, ignoring case.
std::vector<bool> overviewSearch(const std::vector<std::array<std::string, 10>>& rows,
                                 std::string_view text);

}  // namespace pescavo
