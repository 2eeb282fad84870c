#include "model/ComponentEditor.h"

#include <algorithm>
#include <cmath>

#include "model/ResidueGrid.h"
#include "model/VirtualKeys.h"
#include "tables/ComponentViews.h"
#include "tables/NumericText.h"
#include "tables/Utf8.h"

namespace pescavo {

using namespace VirtualKey;

namespace {

constexpr int kFirstNumberColumn = 4;
constexpr int kSearchColumns = 4;

const ComponentEditor::Row kHeaders = {"Category",
                                       "Crop",
                                       "Commodity",
                                       "IFN Code",
                                       "CP(%) of DM",
                                       "CL(%) of DM",
                                       "DM(%)",
                                       "Carp (max % of diet)",
                                       "Trout (max % of diet)"};

std::string shown(double value) { return " " + generalForm(value, '.'); }

void dropLastCharacter(std::string& text) {
  if (!text.empty()) text.erase(characterStart(text, text.size() - 1));
}

// What feedstuff.tab can hold as a percentage.
bool badPercentage(double value) { return !std::isfinite(value) || value < 0 || value > 100; }

// A text cell must stay one cell of one line of the file.
bool badText(const std::string& text) { return text.find_first_of("\t\r\n") != std::string::npos; }

}  // namespace

ComponentEditor::ComponentEditor(ComponentTable& table) : m_table(table) { load(); }

void ComponentEditor::load() {
  const int n = m_table.componentCount();
  m_rows.assign(1, kHeaders);
  m_rows.reserve(static_cast<std::size_t>(n) + 1);
  m_origin.assign(1, 0);
  for (int i = 1; i <= n; ++i) {
    const FeedComponent& c = m_table.component(i);
    m_rows.push_back({c.category, c.crop, c.commodity, " " + c.ifnCode, shown(c.cp), shown(c.cl),
                      shown(c.dm), shown(c.maxCarp), shown(c.maxTrout)});
    m_origin.push_back(i);
  }
  m_marks.assign(m_rows.size(), {});
  m_hits.assign(m_rows.size(), {});
}

int ComponentEditor::markCount() const {
  int count = 0;
  for (const auto& row : m_marks)
    count += static_cast<int>(std::count(row.begin(), row.end(), true));
  return count;
}

void ComponentEditor::setCursor(int row, int column, int rowEnd, int columnEnd) {
  m_row = std::clamp(row, 0, rowCount() - 1);
  m_column = std::clamp(column, 0, kColumns - 1);
  m_rowEnd = std::clamp(rowEnd, 0, rowCount() - 1);
  m_columnEnd = std::clamp(columnEnd, 0, kColumns - 1);
}

ComponentEditor::GridEditor ComponentEditor::cellClicked() {
  if (m_column == 0) return GridEditor::CategoryChooser;
  m_edit = cell(m_row, m_column);
  return GridEditor::EditBox;
}

int ComponentEditor::categoryItem() const {
  for (int k = 0; k < 5; ++k) {
    if (cell(m_row, 0) == kComponentCategories[k]) return k;
  }
  return -1;
}

void ComponentEditor::chooseCategory(int item) {
  if (item < 0 || item >= 5) return;
  const int from = std::min(m_row, m_rowEnd);
  const int to = std::max(m_row, m_rowEnd);
  for (int r = std::max(from, 1); r <= to; ++r) m_rows[r][0] = kComponentCategories[item];
}

bool ComponentEditor::editKeyPress(int key) {
  if (m_column < kFirstNumberColumn) return true;
  int caret = static_cast<int>(m_edit.size());
  return filterKey(key, m_edit, caret).has_value();
}

std::optional<int> ComponentEditor::editEnter() {
  if (m_row > 0) m_rows[m_row][m_column] = m_edit;
  if (m_row + 1 >= rowCount()) return std::nullopt;
  setCursor(m_row + 1, m_column);
  m_edit = cell(m_row, m_column);
  return m_row;
}

std::optional<int> ComponentEditor::editTab() {
  if (m_column + 1 >= kColumns) return std::nullopt;
  if (m_row > 0) m_rows[m_row][m_column] = m_edit;
  setCursor(m_row, m_column + 1);
  m_edit = cell(m_row, m_column);
  return m_column;
}

void ComponentEditor::editClick() {
  const int rowFrom = std::max(std::min(m_row, m_rowEnd), 1);
  const int rowTo = std::max(m_row, m_rowEnd);
  const int columnFrom = std::min(m_column, m_columnEnd);
  const int columnTo = std::max(m_column, m_columnEnd);
  for (int r = rowFrom; r <= rowTo; ++r) {
    for (int c = columnFrom; c <= columnTo; ++c) m_rows[r][c] = m_edit;
  }
}

bool ComponentEditor::gridKeyDown(int key) {
  if (m_row < 1) return false;
  std::string& text = m_rows[m_row][m_column];
  if (key == kDelete) {
    text.clear();
    return false;
  }
  if (m_column < 3) return false;  // typed characters there
  if (key >= '0' && key <= '9') {
    text += static_cast<char>(key);
  } else if (key >= kKeypadZero && key <= kKeypadNine) {
    text += static_cast<char>('0' + key - kKeypadZero);
  } else if (key == kCommaKey || key == kPeriodKey || key == kKeypadDecimal) {
    text += '.';
  } else if (key == kBackspace) {
    dropLastCharacter(text);
  } else if (key == kEscape) {
    return true;
  }
  return false;
}

void ComponentEditor::gridKeyPress(int character) {
  if (m_row < 1 || m_column >= 3) return;
  std::string& text = m_rows[m_row][m_column];
  if (character >= 32 && character <= 122) {
    text += static_cast<char>(character);
  } else if (character == kBackspace) {
    dropLastCharacter(text);
  }
}

bool ComponentEditor::Neuer_Datensatz() {
  if (rowCount() > ComponentTable::kMaxComponents) return false;
  m_rows.push_back(
      {"By-Products", "new crop", "new commodity", "IFN Code", "0", "0", "100", "100", "100"});
  m_marks.emplace_back();
  m_hits.emplace_back();
  m_origin.push_back(0);
  setCursor(rowCount() - 1, kColumns - 1);
  return true;
}

bool ComponentEditor::Loeschen() {
  if (m_row < 1 || m_row >= rowCount()) return false;
  m_rows.erase(m_rows.begin() + m_row);
  m_marks.erase(m_marks.begin() + m_row);
  m_hits.erase(m_hits.begin() + m_row);
  m_origin.erase(m_origin.begin() + m_row);
  setCursor(std::min(m_row, rowCount() - 1), m_column);
  return true;
}

void ComponentEditor::markRow(int r) {
  const FeedComponent& c = m_table.component(r);
  auto& marks = m_marks[r];
  for (int k = 0; k < 4; ++k) marks[k] = badText(m_rows[r][k]);
  const bool sumFails = !(c.cp + c.cl <= 100);
  marks[4] = sumFails || badPercentage(c.cp);
  marks[5] = sumFails || badPercentage(c.cl);
  marks[6] = badPercentage(c.dm);
  marks[7] = badPercentage(c.maxCarp);
  marks[8] = badPercentage(c.maxTrout);
}

int ComponentEditor::readBack() {
  if (m_row >= 0 && m_row < rowCount()) {
    m_marks[m_row][m_column] = false;
    m_hits[m_row][m_column] = false;
  }
  // Deleted components leave the table from the last one up, so each survivor keeps its
  // residues; the rows kept are in table order, new records after them.
  std::vector<bool> kept(static_cast<std::size_t>(m_table.componentCount()) + 1, false);
  for (int origin : m_origin) {
    if (origin > 0) kept[origin] = true;
  }
  for (int i = m_table.componentCount(); i >= 1; --i) {
    if (!kept[i]) m_table.deleteComponent(i);
  }
  for (int r = 1; r < rowCount(); ++r) {
    if (m_origin[r] == 0) m_table.addComponent({});
    m_origin[r] = r;
    const Row& row = m_rows[r];
    FeedComponent& c = m_table.component(r);
    c.category = row[0];
    c.crop = row[1];
    c.commodity = row[2];
    // The blank the grid puts before the code goes again: the file would drop it on reading.
    c.ifnCode = row[3].rfind(' ', 0) == 0 ? row[3].substr(1) : row[3];
    c.cp = leadingNumber(row[4]);
    c.cl = leadingNumber(row[5]);
    c.dm = leadingNumber(row[6]);
    c.maxCarp = leadingNumber(row[7]);
    c.maxTrout = leadingNumber(row[8]);
    markRow(r);
  }
  return markCount();
}

bool ComponentEditor::Fertig() {
  if (readBack() > 0) return false;
  m_modified = true;
  return true;
}

std::string ComponentEditor::clipboardText() const {
  std::string out;
  for (const Row& row : m_rows) {
    for (int k = 0; k < kColumns; ++k) {
      if (k > 0) out += '\t';
      out += row[k];
    }
    out += "\r\n";
  }
  return out;
}

void ComponentEditor::search(std::string_view text) {
  const std::string needle = searchFold(text);
  for (int r = 1; r < rowCount(); ++r) {
    for (int k = 0; k < kSearchColumns; ++k) {
      m_hits[r][k] = searchFold(m_rows[r][k]).find(needle) != std::string::npos;
    }
  }
}

std::vector<std::array<std::string, 10>> componentOverview(const ComponentTable& table,
                                                           int substance, char decimalSeparator) {
  std::vector<std::array<std::string, 10>> rows;
  rows.push_back({"Category", "Crop (Commodity)", "IFN Code", "CP(%) of DM", "CL(%) of DM", "DM(%)",
                  "Carp (max % of diet)", "Trout (max % of diet)", "Residue input value",
                  "Residue value (mg/kg)"});
  const AvailableComponents available = Futterliste_aktualisieren(table, substance);
  const auto number = [&](double v) { return " " + generalForm(v, decimalSeparator); };
  for (std::size_t k = 0; k < available.entries.size(); ++k) {
    const ListEntry& e = available.entries[k];
    const WorkingSetEntry& w = available.working[k];
    const int basis = e.artSchadstoffwert == "1" ? 1 : 0;
    rows.push_back({e.kategorie, e.text, w.ifnCode, number(w.protein), number(w.lipid),
                    number(w.dm), number(w.maxCarp), number(w.maxTrout),
                    std::string(" ") + kBasisItems[basis], number(w.residue)});
  }
  return rows;
}

std::vector<bool> overviewSearch(const std::vector<std::array<std::string, 10>>& rows,
                                 std::string_view text) {
  const std::string needle = searchFold(text);
  std::vector<bool> marks(rows.size(), false);
  for (std::size_t r = 1; r < rows.size(); ++r) {
    marks[r] = searchFold(rows[r][1]).find(needle) != std::string::npos;
  }
  return marks;
}

}  // namespace pescavo
