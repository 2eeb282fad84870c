#include "screening/ScreeningTable.h"

#include <QBrush>
#include <QFont>

#include "desktop/Styles.h"
#include "model/ScreeningView.h"

namespace pescavo {

ScreeningTable::ScreeningTable(std::vector<FishSpecies> species, QObject* parent)
    : QAbstractTableModel(parent),
      m_species(std::move(species)),
      m_headings(screeningHeadings(false)) {}

void ScreeningTable::setRows(std::vector<ScreeningRow> rows, bool scenarios) {
  beginResetModel();
  m_rows = std::move(rows);
  m_scenarios = scenarios;
  m_headings = screeningHeadings(scenarios);
  m_cells.clear();
  m_cells.reserve(m_rows.size());
  for (const ScreeningRow& row : m_rows)
    m_cells.push_back(screeningCells(row, scenarios, m_species));
  m_order.resize(m_rows.size());
  for (std::size_t i = 0; i < m_order.size(); ++i) m_order[i] = static_cast<int>(i);
  endResetModel();
}

int ScreeningTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ScreeningTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_headings.size());
}

QVariant ScreeningTable::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const std::size_t place = placeOf(index.row());
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:  // a long refusal is cut on screen
      return QString::fromStdString(m_cells[place][static_cast<std::size_t>(column)]);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignVCenter) |
                                 (screeningAlignedRight(m_rows[place], column, m_scenarios)
                                      ? Qt::AlignRight
                                      : Qt::AlignLeft));
    case Qt::ForegroundRole: {
      const ScreeningCellStyle style = screeningCellStyle(m_rows[place], column, m_scenarios);
      return style.text ? QVariant(QBrush(qcolor(*style.text))) : QVariant();
    }
    case Qt::BackgroundRole: {
      const ScreeningCellStyle style = screeningCellStyle(m_rows[place], column, m_scenarios);
      return style.background ? QVariant(QBrush(qcolor(*style.background))) : QVariant();
    }
    case Qt::FontRole: {
      if (!screeningCellStyle(m_rows[place], column, m_scenarios).bold) return {};
      QFont font;
      font.setBold(true);
      return font;
    }
    default:
      return {};
  }
}

QVariant ScreeningTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  if (section < 0 || section >= static_cast<int>(m_headings.size())) return {};
  return QString::fromStdString(m_headings[static_cast<std::size_t>(section)]);
}

void ScreeningTable::sort(int column, Qt::SortOrder order) {
  if (column < 0 || column >= columnCount()) return;
  emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
  const QModelIndexList before = persistentIndexList();
  // The selection and the current row stay on their runs.
  std::vector<int> places;
  for (const QModelIndex& index : before) places.push_back(m_order[index.row()]);
  m_order = screeningOrder(m_rows, column, order == Qt::DescendingOrder, m_scenarios);
  std::vector<int> shownAt(m_rows.size());
  for (std::size_t r = 0; r < m_order.size(); ++r) shownAt[placeOf(static_cast<int>(r))] = int(r);
  QModelIndexList after;
  for (int i = 0; i < before.size(); ++i)
    after.push_back(this->index(shownAt[static_cast<std::size_t>(places[i])], before[i].column()));
  changePersistentIndexList(before, after);
  emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

}  // namespace pescavo
