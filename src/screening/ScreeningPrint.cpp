#include "screening/ScreeningPrint.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QPrinter>
#include <QTableView>
#include <algorithm>
#include <numeric>

#include "screening/ScreeningTable.h"

namespace pescavo {

namespace {

constexpr double kScreenDpi = 96;
constexpr int kPadding = 6;       // around a cell's text
constexpr int kDrawnPadding = 4;  // what PrintGrid leaves beside it
constexpr int kNarrowest = 80;    // columns are not cut narrower than this to fit the page

int wrappedHeight(const std::vector<PrintCell>& line, const std::vector<int>& widths,
                  const QFontMetrics& metrics, int least) {
  int height = least;
  for (std::size_t c = 0; c < line.size(); ++c) {
    const QRect room(0, 0, std::max(widths[c] - kDrawnPadding, 1), 1 << 20);
    const QRect text = metrics.boundingRect(room, Qt::TextWordWrap, line[c].text);
    height = std::max(height, text.height() + kPadding);
  }
  return height;
}

PrintCell cellOf(const ScreeningTable& rows, const QModelIndex& index) {
  PrintCell cell;
  cell.text = rows.data(index, Qt::DisplayRole).toString();
  cell.alignment = rows.data(index, Qt::TextAlignmentRole).value<Qt::Alignment>();
  const QVariant background = rows.data(index, Qt::BackgroundRole);
  if (background.isValid()) cell.background = background.value<QBrush>().color();
  const QVariant foreground = rows.data(index, Qt::ForegroundRole);
  if (foreground.isValid()) cell.foreground = foreground.value<QBrush>().color();
  return cell;
}

// Each column as wide as its widest text, the heading's longest word included.
std::vector<int> textWidths(const ScreeningTable& rows, const QFontMetrics& metrics) {
  std::vector<int> widths;
  for (int c = 0; c < rows.columnCount(); ++c) {
    int width = 0;
    const QString heading = rows.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
    for (const QString& word : heading.split(' '))
      width = std::max(width, metrics.horizontalAdvance(word));
    for (int r = 0; r < rows.rowCount(); ++r)
      width = std::max(width, metrics.horizontalAdvance(rows.index(r, c).data().toString()));
    widths.push_back(width + kPadding);
  }
  return widths;
}

}  // namespace

PrintTable screeningPrintTable(const ScreeningTable& rows, const QTableView& view,
                               double pageWidthPixels) {
  PrintTable table;
  table.font = view.font();
  table.fixedRows = 1;
  const QFontMetrics metrics(table.font);
  table.widths = textWidths(rows, metrics);
  // Too wide for the page: the widest columns, a refusal's mostly, wrap first.
  const auto capped = [&table](int cap) {
    double sum = 0;
    for (int width : table.widths) sum += std::min(width, cap);
    return sum;
  };
  int cap = *std::max_element(table.widths.begin(), table.widths.end());
  while (cap > kNarrowest && capped(cap) > pageWidthPixels) --cap;
  for (int& width : table.widths) width = std::min(width, cap);
  const double total = std::accumulate(table.widths.begin(), table.widths.end(), 0.0);
  if (total > pageWidthPixels) {
    for (int& width : table.widths) width = static_cast<int>(width * pageWidthPixels / total);
  }
  const int least = metrics.height() + kPadding;
  std::vector<PrintCell> header;
  for (int c = 0; c < rows.columnCount(); ++c)
    header.push_back({rows.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString(),
                      Qt::AlignCenter, QColor(), QColor()});
  table.heights.push_back(wrappedHeight(header, table.widths, metrics, least));
  table.rows.push_back(std::move(header));
  for (int r = 0; r < rows.rowCount(); ++r) {
    std::vector<PrintCell> line;
    for (int c = 0; c < rows.columnCount(); ++c) line.push_back(cellOf(rows, rows.index(r, c)));
    table.heights.push_back(wrappedHeight(line, table.widths, metrics, least));
    table.rows.push_back(std::move(line));
  }
  return table;
}

double printableWidth(const QPrinter& printer, double left, double right) {
  const double paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).width();
  return (paper - left - right) / 25.4 * kScreenDpi - 1;
}

}  // namespace pescavo
