#include "reportwindows/CompositionGrid.h"

#include <QEvent>
#include <QHeaderView>
#include <array>

namespace pescavo {

CompositionGrid::CompositionGrid(QWidget* parent) : QTableWidget(parent) {
  setObjectName("ErgebnisGrid");
  setAccessibleName(QStringLiteral("Composition table"));
  setColumnCount(9);
  setRowCount(1);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  verticalHeader()->hide();
  horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
  horizontalHeader()->setHighlightSections(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void CompositionGrid::setRows(const std::vector<CompositionRow>& rows) {
  clearContents();
  setRowCount(rows.empty() ? 0 : static_cast<int>(rows.size()) - 1);
  for (std::size_t r = 0; r < rows.size(); ++r) {
    for (int c = 0; c < 9; ++c) {
      auto* item = new QTableWidgetItem(QString::fromStdString(rows[r][c]));
      if (compositionCellCentred(static_cast<int>(r), c)) item->setTextAlignment(Qt::AlignCenter);
      if (r == 0)
        setHorizontalHeaderItem(c, item);
      else
        setItem(static_cast<int>(r) - 1, c, item);
    }
  }
  m_appliedWidth = -1;
  applyWidths();
}

void CompositionGrid::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  applyWidths();
}

// On screen every column is in sight; the printout takes the design's wider columns.
void CompositionGrid::applyWidths() {
  const int width = viewport()->width();
  if (width == m_appliedWidth) return;
  m_appliedWidth = width;
  const std::array<int, 9> widths = compositionScreenWidths(width);
  for (int c = 0; c < 9; ++c) setColumnWidth(c, widths[c]);
}

std::vector<int> CompositionGrid::printWidths() const {
  const std::array<int, 9> widths = compositionColumnWidths(width() - 2 * frameWidth());
  return std::vector<int>(widths.begin(), widths.end());
}

bool CompositionGrid::viewportEvent(QEvent* event) {
  const bool handled = QTableWidget::viewportEvent(event);
  if (event->type() == QEvent::Resize) applyWidths();
  return handled;
}

}  // namespace pescavo
