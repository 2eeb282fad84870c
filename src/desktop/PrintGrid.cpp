#include "desktop/PrintGrid.h"

#include <QDate>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QPainter>
#include <QPrinter>
#include <QTableWidget>
#include <algorithm>
#include <cmath>

namespace pescavo {

namespace {

constexpr double kScreenDpi = 96;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kTitleFromTop = 10;  // mm
constexpr double kSecondLineFromTop = 16;
constexpr double kGridFromTop = 20;  // below the date line
const QColor kFixedBackground(224, 224, 224);

// Rows or columns of one page: indices into the table.
using Band = std::vector<int>;

Qt::Alignment alignmentOf(const QTableWidgetItem* item, Qt::Alignment fallback) {
  if (!item) return fallback;
  const Qt::Alignment alignment = Qt::Alignment(item->textAlignment());
  return alignment ? alignment : fallback;
}

PrintCell cellOf(const QTableWidgetItem* item, Qt::Alignment fallback) {
  PrintCell cell;
  cell.alignment = alignmentOf(item, fallback);
  if (!item) return cell;
  cell.text = item->text();
  if (item->background().style() != Qt::NoBrush) cell.background = item->background().color();
  return cell;
}

// Splits the indices of non-zero extent into pages of at most room each; an index wider than
// room gets a page of its own and is cut at the edge.
std::vector<Band> bands(const std::vector<double>& extents, int first, double room) {
  std::vector<Band> result;
  Band band;
  double used = 0;
  for (int i = first; i < static_cast<int>(extents.size()); ++i) {
    if (extents[i] <= 0) continue;
    if (!band.empty() && used + extents[i] > room) {
      result.push_back(band);
      band.clear();
      used = 0;
    }
    band.push_back(i);
    used += extents[i];
  }
  if (!band.empty() || result.empty()) result.push_back(band);
  return result;
}

Band fixedBand(const std::vector<double>& extents, int count) {
  Band band;
  for (int i = 0; i < count && i < static_cast<int>(extents.size()); ++i)
    if (extents[i] > 0) band.push_back(i);
  return band;
}

double sum(const std::vector<double>& extents, const Band& band) {
  double total = 0;
  for (int i : band) total += extents[i];
  return total;
}

class PagePainter {
 public:
  PagePainter(QPainter& painter, const PrintTable& table, const std::vector<double>& widths,
              const std::vector<double>& heights, double scale)
      : m_painter(painter), m_table(table), m_widths(widths), m_heights(heights), m_scale(scale) {}

  void lines(const QRectF& area, double millimetre, const QString& title, const QString& second) {
    if (!title.isEmpty()) line(area.left(), kTitleFromTop * millimetre, title);
    line(area.left(), kSecondLineFromTop * millimetre,
         second.isEmpty() ? QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy")) : second);
  }

  void grid(const QRectF& area, const Band& rows, const Band& columns) {
    m_painter.save();
    m_painter.setClipRect(area);
    double y = area.top();
    for (int r : rows) {
      double x = area.left();
      for (int c : columns) {
        cell(QRectF(x, y, m_widths[c], m_heights[r]), r, c);
        x += m_widths[c];
      }
      y += m_heights[r];
    }
    m_painter.restore();
  }

 private:
  // One line from (x, y) down; a TAB goes on at the next stop of eight average characters.
  void line(double x, double y, const QString& text) {
    const QFontMetricsF metrics = m_painter.fontMetrics();
    const double stop = 8 * metrics.averageCharWidth();
    double at = x;
    for (const QString& part : text.split(QLatin1Char('\t'))) {
      if (at > x) at = x + std::ceil((at - x + 1) / stop) * stop;
      m_painter.drawText(QPointF(at, y + metrics.ascent()), part);
      at += metrics.horizontalAdvance(part);
    }
  }

  void cell(const QRectF& rect, int r, int c) {
    const PrintCell& cell = m_table.rows[r][c];
    QColor background = cell.background;
    if (!background.isValid() && r < m_table.fixedRows) background = kFixedBackground;
    if (background.isValid()) m_painter.fillRect(rect, background);
    m_painter.setPen(QPen(Qt::darkGray, m_scale));
    m_painter.drawRect(rect);
    m_painter.setPen(cell.foreground.isValid() ? cell.foreground : QColor(Qt::black));
    const double padding = 2 * m_scale;
    m_painter.drawText(rect.adjusted(padding, 0, -padding, 0),
                       int(cell.alignment) | Qt::TextWordWrap, cell.text);
  }

  QPainter& m_painter;
  const PrintTable& m_table;
  const std::vector<double>& m_widths;
  const std::vector<double>& m_heights;
  double m_scale;
};

}  // namespace

PrintTable printTable(const QTableWidget& grid) {
  PrintTable table;
  table.font = grid.font();
  const bool headerRow = !grid.horizontalHeader()->isHidden();
  const bool headerColumn = !grid.verticalHeader()->isHidden();
  table.fixedRows = headerRow ? 1 : 0;
  table.fixedColumns = headerColumn ? 1 : 0;
  const Qt::Alignment headerAlignment = grid.horizontalHeader()->defaultAlignment();
  const Qt::Alignment cellAlignment = Qt::AlignLeft | Qt::AlignVCenter;

  if (headerColumn) table.widths.push_back(grid.verticalHeader()->width());
  for (int c = 0; c < grid.columnCount(); ++c)
    table.widths.push_back(grid.isColumnHidden(c) ? 0 : grid.columnWidth(c));

  if (headerRow) {
    std::vector<PrintCell> row;
    if (headerColumn) row.emplace_back();
    for (int c = 0; c < grid.columnCount(); ++c)
      row.push_back(cellOf(grid.horizontalHeaderItem(c), headerAlignment));
    table.rows.push_back(row);
    table.heights.push_back(grid.horizontalHeader()->height());
  }
  for (int r = 0; r < grid.rowCount(); ++r) {
    std::vector<PrintCell> row;
    if (headerColumn) row.push_back(cellOf(grid.verticalHeaderItem(r), Qt::AlignCenter));
    for (int c = 0; c < grid.columnCount(); ++c)
      row.push_back(cellOf(grid.item(r, c), cellAlignment));
    table.rows.push_back(row);
    table.heights.push_back(grid.isRowHidden(r) ? 0 : grid.rowHeight(r));
  }
  return table;
}

QString gridClipboardText(const QTableWidget& grid) {
  QString text;
  for (const std::vector<PrintCell>& row : printTable(grid).rows) {
    for (std::size_t c = 0; c < row.size(); ++c) {
      if (c > 0) text += QLatin1Char('\t');
      text += row[c].text;
    }
    text += QLatin1String("\r\n");
  }
  return text;
}

int PrintGrid(QPrinter& printer, const PrintTable& table, float left, float top, float right,
              float bottom, const QString& title, const QString& secondLine,
              int firstHiddenColumn) {
  if (table.rows.empty()) return 0;
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setFullPage(true);  // margins count from the paper's edges
  QPainter painter;
  if (!painter.begin(&printer)) return 0;

  const double dpi = printer.resolution();
  const double millimetre = dpi / kMillimetresPerInch;
  const double scale = dpi / kScreenDpi;
  std::vector<double> widths, heights;
  for (std::size_t c = 0; c < table.widths.size(); ++c) {
    const bool hidden = firstHiddenColumn >= 1 && static_cast<int>(c) >= firstHiddenColumn;
    widths.push_back(hidden ? 0 : table.widths[c] * scale);
  }
  for (int height : table.heights) heights.push_back(height * scale);

  const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
  const QRectF area(
      QPointF(left * millimetre, std::max<double>(top, kGridFromTop) * millimetre),
      QPointF(paper.width() - right * millimetre, paper.height() - bottom * millimetre));
  const Band fixedRows = fixedBand(heights, table.fixedRows);
  const Band fixedColumns = fixedBand(widths, table.fixedColumns);
  const std::vector<Band> rowBands =
      bands(heights, table.fixedRows, area.height() - sum(heights, fixedRows));
  const std::vector<Band> columnBands =
      bands(widths, table.fixedColumns, area.width() - sum(widths, fixedColumns));

  // Without ligatures, text copied from a printed PDF reads as it was written.
  QFont font = table.font;
  font.setStyleStrategy(QFont::PreferNoShaping);
  painter.setFont(font);
  PagePainter page(painter, table, widths, heights, scale);
  int pages = 0;
  for (const Band& columnBand : columnBands) {
    Band columns = fixedColumns;
    columns.insert(columns.end(), columnBand.begin(), columnBand.end());
    for (const Band& rowBand : rowBands) {
      Band rows = fixedRows;
      rows.insert(rows.end(), rowBand.begin(), rowBand.end());
      if (pages++ > 0) printer.newPage();
      page.lines(area, millimetre, title, secondLine);
      page.grid(area, rows, columns);
    }
  }
  painter.end();
  return pages;
}

int PrintGrid(QPrinter& printer, const QTableWidget& grid, float left, float top, float right,
              float bottom, const QString& title, const QString& secondLine,
              int firstHiddenColumn) {
  return PrintGrid(printer, printTable(grid), left, top, right, bottom, title, secondLine,
                   firstHiddenColumn);
}

}  // namespace pescavo
