#pragma once

#include <QTableWidget>
#include <vector>

#include "reports/ResultTables.h"

namespace pescavo {

// ErgebnisGrid: the composition table with the core's rows; row 0 is the header row. The
// column widths follow the grid's width whenever it changes.
class CompositionGrid : public QTableWidget {
 public:
  // Category and crop name the rows on every printed page.
  static constexpr int kRepeatedColumns = 2;
  explicit CompositionGrid(QWidget* parent);
  void setRows(const std::vector<CompositionRow>& rows);
  // The design's column widths, which add up to more than the grid, for the printout.
  std::vector<int> printWidths() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void applyWidths();
  int m_appliedWidth = -1;
};

}  // namespace pescavo
