#include "model/ResidueGrid.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/VirtualKeys.h"
#include "reports/ResultTables.h"
#include "tables/ComponentViews.h"
#include "tables/NumericText.h"
#include "tables/Utf8.h"

namespace pescavo {

using namespace VirtualKey;

// Lower case for ASCII and the Latin-1 capitals (UTF-8 C3 80 to C3 9E, without the
// multiplication sign), which keeps every byte count as it is.
std::string searchFold(std::string_view text) {
  std::string out(text);
  for (std::size_t k = 0; k < out.size(); ++k) {
    const auto c = static_cast<unsigned char>(out[k]);
    if (c >= 'A' && c <= 'Z') {
      out[k] = static_cast<char>(c + 32);
    } else if (c == 0xC3 && k + 1 < out.size()) {
      const auto next = static_cast<unsigned char>(out[k + 1]);
      if (next >= 0x80 && next <= 0x9E && next != 0x97) out[k + 1] = static_cast<char>(next + 32);
      ++k;
    }
  }
  return out;
}

void BasisCopy::copyAll() {
  m_set.clear();
  m_frozen.clear();
  m_frozenSubstances = m_frozenComponents = 0;
}

void BasisCopy::zero(int substance, int components) {
  copyAll();
  m_set[substance].assign(static_cast<std::size_t>(components), 0);
}

std::int16_t BasisCopy::code(const ComponentTable& table, int substance, int component) const {
  if (const auto found = m_set.find(substance); found != m_set.end()) {
    const std::vector<std::int16_t>& codes = found->second;
    const auto k = static_cast<std::size_t>(component - 1);
    return k < codes.size() ? codes[k] : 0;
  }
  if (!m_frozen.empty()) {
    if (substance < 1 || substance > m_frozenSubstances || component < 1 ||
        component > m_frozenComponents)
      return 0;
    return m_frozen[static_cast<std::size_t>(substance - 1) * m_frozenComponents +
                    static_cast<std::size_t>(component - 1)];
  }
  if (substance < 1 || substance > table.substanceCount() || component < 1 ||
      component > table.componentCount())
    return 0;
  return table.basis(substance, component);
}

void BasisCopy::setCode(const ComponentTable& table, int substance, int component,
                        std::int16_t code) {
  if (component < 1) return;
  auto found = m_set.find(substance);
  if (found == m_set.end()) {
    std::vector<std::int16_t> codes(static_cast<std::size_t>(table.componentCount()));
    for (int i = 1; i <= table.componentCount(); ++i)
      codes[static_cast<std::size_t>(i - 1)] = this->code(table, substance, i);
    found = m_set.emplace(substance, std::move(codes)).first;
  }
  std::vector<std::int16_t>& codes = found->second;
  const auto k = static_cast<std::size_t>(component - 1);
  if (k >= codes.size()) codes.resize(k + 1, 0);
  codes[k] = code;
}

void BasisCopy::freeze(const ComponentTable& table) {
  if (!m_frozen.empty()) return;  // the copy stands as it was taken
  m_frozenSubstances = table.substanceCount();
  m_frozenComponents = table.componentCount();
  m_frozen.resize(static_cast<std::size_t>(m_frozenSubstances) * m_frozenComponents);
  for (int s = 1; s <= m_frozenSubstances; ++s) {
    for (int i = 1; i <= m_frozenComponents; ++i) {
      m_frozen[static_cast<std::size_t>(s - 1) * m_frozenComponents +
               static_cast<std::size_t>(i - 1)] = table.basis(s, i);
    }
  }
}

void ResidueGrid::reset(std::vector<std::array<std::string, kColumns>> rows) {
  m_cells = std::move(rows);
  m_marks.assign(m_cells.size() * kColumns, 0);
  m_folded.resize(m_cells.size() * kSearchColumns);
  for (std::size_t r = 1; r < m_cells.size(); ++r) {
    for (int c = 0; c < kSearchColumns; ++c)
      m_folded[r * kSearchColumns + static_cast<std::size_t>(c)] = searchFold(m_cells[r][c]);
  }
  m_editBox.set("", 0, 0);
  home();
}

void ResidueGrid::home() {
  for (std::size_t r = 1; r < m_cells.size(); ++r) {
    for (std::size_t c = 0; c < kSearchColumns; ++c) m_marks[r * kColumns + c] = 0;
  }
  m_row = m_selectionEnd = 1;
  m_column = kValueColumn;
}

void ResidueGrid::startAdding(std::vector<std::array<std::string, kColumns>> rows,
                              int newSubstance) {
  reset(std::move(rows));
  for (std::size_t r = 1; r < m_cells.size(); ++r) {
    m_cells[r][kBasisColumn] = kBasisItems[0];
    m_cells[r][kValueColumn] = "0";
  }
  m_basisCopy.zero(newSubstance, rowCount() - 1);
}

void ResidueGrid::startEditing(std::vector<std::array<std::string, kColumns>> rows,
                               const ComponentTable& table, int substance) {
  reset(std::move(rows));
  const int rows1 = std::min(rowCount() - 1, table.componentCount());
  for (int r = 1; r <= rows1; ++r) {
    const std::int16_t code = table.basis(substance, r);
    m_cells[r][kBasisColumn] = code == 0 || code == 1 ? kBasisItems[code] : "";
    m_cells[r][kValueColumn] = plainDecimalText(table.residue(substance, r));
  }
  m_basisCopy.copyAll();
}

const std::string& ResidueGrid::text(int row, int column) const {
  return m_cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

bool ResidueGrid::marked(int row, int column) const {
  if (row < 0 || row >= rowCount() || column < 0 || column >= kColumns) return false;
  return m_marks[cellIndex(row, column)] != 0;
}

void ResidueGrid::setText(int row, int column, std::string text) {
  if (column < kSearchColumns) {
    m_folded[static_cast<std::size_t>(row) * kSearchColumns + static_cast<std::size_t>(column)] =
        searchFold(text);
  }
  m_cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = std::move(text);
}

void ResidueGrid::setCursor(int row, int column, int selectionEnd) {
  if (rowCount() < 2) return;
  m_row = std::clamp(row, 1, rowCount() - 1);
  m_column = std::clamp(column, 0, kColumns - 1);
  m_selectionEnd = std::clamp(selectionEnd, 1, rowCount() - 1);
}

void ResidueGrid::openEditBox() {
  m_editBox.set(text(m_row, m_column), 0, 0);
  m_boxRow = m_row;
}

void ResidueGrid::keepEditBoxText() {
  if (m_boxRow >= 1 && m_boxRow < rowCount() && text(m_boxRow, kValueColumn) != m_editBox.text())
    setText(m_boxRow, kValueColumn, m_editBox.text());
}

std::optional<int> ResidueGrid::enterEditBox() {
  if (rowCount() < 2) return std::nullopt;
  setText(m_row, m_column, m_editBox.text());
  if (m_row >= rowCount() - 1) {
    m_boxRow = -1;
    return std::nullopt;
  }
  m_selectionEnd = ++m_row;
  m_boxRow = m_row;
  m_editBox.set(text(m_row, m_column), 0, 0);
  m_editBox.selectAll();
  return m_row;
}

void ResidueGrid::paste(std::string_view clipboard) {
  int row = m_row;
  for (std::size_t end = clipboard.find('\n');
       end != std::string_view::npos && row >= 1 && row < rowCount(); end = clipboard.find('\n')) {
    std::string_view line = clipboard.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    setText(row++, kValueColumn, std::string(line));
    clipboard.remove_prefix(end + 1);
  }
}

void ResidueGrid::fillSelectionFromEditBox() {
  if (rowCount() < 2) return;
  for (int r = firstSelected(); r <= lastSelected(); ++r)
    setText(r, kValueColumn, m_editBox.text());
}

void ResidueGrid::showBasisOfCurrentCell() {
  if (rowCount() < 2) return;
  for (int position = 0; position < 2; ++position) {
    if (text(m_row, m_column) == kBasisItems[position]) m_basisChoice = position;
  }
}

void ResidueGrid::chooseBasis(int position, const ComponentTable& table, int substance) {
  if (position < 0 || position > 1 || rowCount() < 2) return;
  m_basisChoice = position;
  for (int r = firstSelected(); r <= lastSelected(); ++r) {
    setText(r, kBasisColumn, kBasisItems[position]);
    m_basisCopy.setCode(table, substance, r, static_cast<std::int16_t>(position));
  }
}

std::optional<std::string> ResidueGrid::gridKey(int key, bool control) {
  if (rowCount() < 2) return std::nullopt;
  m_column = kValueColumn;
  std::string cell = text(m_row, m_column);
  if (key == kKeyC && control) return copyText();
  if (key == kDelete) {
    cell.clear();
  } else if (key == kCommaKey || key == kPeriodKey || key == kKeypadDecimal) {
    cell += '.';
  } else if (key == kBackspace) {
    if (!cell.empty()) cell.erase(characterStart(cell, cell.size() - 1));
  } else if (key >= '0' && key <= '9') {
    cell += static_cast<char>(key);
  } else if (key >= kKeypadZero && key <= kKeypadNine) {
    cell += static_cast<char>('0' + key - kKeypadZero);
  } else {
    return std::nullopt;
  }
  setText(m_row, m_column, std::move(cell));
  return std::nullopt;
}

std::string ResidueGrid::copyText() const {
  if (rowCount() < 2) return std::string();
  if (firstSelected() == lastSelected()) return text(m_row, m_column);
  std::string out;
  for (int r = firstSelected(); r <= lastSelected(); ++r) {
    out += text(r, kValueColumn);
    out += "\r\n";
  }
  return out;
}

void ResidueGrid::search(std::string_view text) {
  const std::string needle = searchFold(text);
  for (std::size_t r = 1; r < m_cells.size(); ++r) {
    for (std::size_t c = 0; c < kSearchColumns; ++c) {
      const std::string& cell = m_folded[r * kSearchColumns + c];
      m_marks[r * kColumns + c] = cell.find(needle) != std::string::npos;
    }
  }
}

// The typed keys never leave a comma, but a pasted text can hold one ("0,5" from a
// spreadsheet); read comma-tolerant, it is stored as the 0.5 it shows rather than 0.
double ResidueGrid::value(int row) const { return zahl(text(row, kValueColumn)); }

int ResidueGrid::markUnstorableValues() {
  int count = 0;
  for (int r = 1; r < rowCount(); ++r) {
    const double v = value(r);
    const bool bad = !std::isfinite(v) || v > kMaxResidue;
    m_marks[cellIndex(r, kValueColumn)] = bad;
    count += bad;
  }
  return count;
}

std::array<int, ResidueGrid::kColumns> ResidueGrid::columnWidths(int gridWidth, int clientWidth) {
  const int sixth = roundedWidth(gridWidth / 6.0);
  const int seventh = roundedWidth(gridWidth / 7.0);
  const int rest = clientWidth - 3 * sixth - 2 * seventh;
  return {sixth, sixth, sixth, std::max(rest, seventh), seventh, seventh};
}

std::optional<int> ResidueGrid::wheelTopRow(int topRow, int rotation, int gridHeight,
                                            int headerHeight, int rowCount) {
  if (headerHeight <= 0 || gridHeight < 0) return std::nullopt;
  const int step = std::max(gridHeight / headerHeight, 10);
  const int top = rotation < 1 ? std::min(topRow + step, rowCount - 1) : std::max(topRow - step, 1);
  if (top < 1 || top > rowCount - 1) return std::nullopt;
  return top;
}

}  // namespace pescavo
