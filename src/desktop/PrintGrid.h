#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <vector>

class QPrinter;
class QTableWidget;

namespace pescavo {

// One cell as PrintGrid draws it.
struct PrintCell {
  QString text;
  Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
  QColor background;  // invalid: none
  QColor foreground;  // invalid: black
};

// A grid to print. Widths and heights are in the screen's device-independent pixels (96 to the
// inch), so a printed grid has the size it has on screen; a column of width 0 is not printed.
// The fixed rows and columns open every page; the fixed rows are shaded.
struct PrintTable {
  std::vector<std::vector<PrintCell>> rows;  // every row as long as widths
  std::vector<int> widths;
  std::vector<int> heights;  // per row
  int fixedRows = 0;
  int fixedColumns = 0;
  QFont font;
};

// The grid as it is on screen: the header row (when shown) as a fixed row, the vertical header
// (when shown) as a fixed column, and each cell's text, alignment and background. Hidden
// columns get width 0.
PrintTable printTable(const QTableWidget& grid);

// The grid for the clipboard: rows top first, the header row included, cells joined by TAB and
// every row ended by CR LF.
QString gridClipboardText(const QTableWidget& grid);

// Prints the table in landscape on as many pages as it needs. Every page carries the title
// 10 mm and the second line (today's date "DD.MM.YYYY" when it is empty) 16 mm from the top
// edge, then the fixed rows and columns and the next portion of the grid: down the rows first,
// then across the columns. The grid starts below the date line, at least 20 mm from the top.
// Margins are in millimetres from the paper's edges. A firstHiddenColumn of 1 or more leaves
// out that column of the table (the fixed column counts) and all after it. Returns the number of
// pages printed; 0 for an empty table or when the printer could not start.
int PrintGrid(QPrinter& printer, const PrintTable& table, float left, float top, float right,
              float bottom, const QString& title, const QString& secondLine, int firstHiddenColumn);
// The same for a grid on screen; the grid itself is left as it is.
int PrintGrid(QPrinter& printer, const QTableWidget& grid, float left, float top, float right,
              float bottom, const QString& title, const QString& secondLine, int firstHiddenColumn);

}  // namespace pescavo
