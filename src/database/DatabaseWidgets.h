#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "model/PointerRules.h"

class QPushButton;
class QTableWidget;
class QTableWidgetItem;
class QWidget;

namespace pescavo {

// What the editor and the overview share: page margins in millimetres, their buttons and grid.
constexpr float kMarginLeft = 10, kMarginTop = 15, kMarginRight = 10, kMarginBottom = 10;

QString qtext(const std::string& text);
// lightRed: the buttons the design paints light red.
QPushButton* button(QWidget* parent, const char* name, const char* caption, bool lightRed);
QTableWidget* makeGrid(QWidget* parent, int columns);
// The grid's width shared among its columns: each holds its header and cells, the text columns
// take more of what is left.
void shareWidth(QTableWidget* grid, const std::vector<int>& weights, int windowWidth);
void setBackground(QTableWidgetItem* item, bool marked);
// The hand from cursorFile over the window's controls as the rules say; no file: none.
void useHandPointers(QWidget* window, ComponentWindow which, std::function<QString()> cursorFile);

}  // namespace pescavo
