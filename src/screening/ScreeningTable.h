#pragma once

#include <QAbstractTableModel>
#include <string>
#include <vector>

#include "model/Screening.h"

namespace pescavo {

// The screening's rows for a table view, in the order of the column last sorted by. A model of
// its own rather than a cell widget each, since a screening with scenarios has tens of
// thousands of rows.
class ScreeningTable : public QAbstractTableModel {
 public:
  ScreeningTable(std::vector<FishSpecies> species, QObject* parent);

  void setRows(std::vector<ScreeningRow> rows, bool scenarios);
  bool scenarios() const { return m_scenarios; }
  const std::vector<ScreeningRow>& rows() const { return m_rows; }
  // Places in rows() as shown, top first.
  const std::vector<int>& order() const { return m_order; }
  const ScreeningRow& shownRow(int row) const { return m_rows[placeOf(row)]; }
  const std::vector<FishSpecies>& species() const { return m_species; }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  std::size_t placeOf(int row) const { return static_cast<std::size_t>(m_order[row]); }

  std::vector<FishSpecies> m_species;
  std::vector<ScreeningRow> m_rows;
  std::vector<std::vector<std::string>> m_cells;  // per row of m_rows
  std::vector<std::string> m_headings;
  std::vector<int> m_order;
  bool m_scenarios = false;
};

}  // namespace pescavo
