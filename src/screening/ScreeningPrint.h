#pragma once

#include "desktop/PrintGrid.h"

class QPrinter;
class QTableView;

namespace pescavo {

class ScreeningTable;

// The screening table as shown, in its order and colours, for PrintGrid: each column as wide as
// its texts, all of them narrowed alike when they would not fit the page's width, and every
// row as high as its texts wrapped into their columns, so that nothing is cut on paper.
PrintTable screeningPrintTable(const ScreeningTable& rows, const QTableView& view,
                               double pageWidthPixels);

// The width PrintGrid has for the grid on the printer's page between these margins (mm), in
// the screen's pixels.
double printableWidth(const QPrinter& printer, double left, double right);

}  // namespace pescavo
