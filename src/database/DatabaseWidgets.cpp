#include "database/DatabaseWidgets.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/DesktopDialogs.h"
#include "desktop/PrintGrid.h"
#include "desktop/Styles.h"
#include "model/ComponentEditor.h"

namespace pescavo {

QString qtext(const std::string& text) { return QString::fromStdString(text); }

QPushButton* button(QWidget* parent, const char* name, const char* caption, bool lightRed) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  b->setAccessibleName(QString(caption).remove('&'));
  b->setAutoDefault(false);
  if (lightRed) {
    const QColor c = qcolor(kLightRed);
    b->setStyleSheet(QString("background-color: %1;").arg(c.name()));
  }
  return b;
}

QTableWidget* makeGrid(QWidget* parent, int columns) {
  auto* grid = new QTableWidget(0, columns, parent);
  grid->setObjectName("Kompomenteneigenschaften");
  grid->setAccessibleName("Components grid");
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->verticalHeader()->hide();
  grid->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
  grid->setWordWrap(false);
  return grid;
}

// The grid's width shared among its columns, the text columns wider.
// The grid spans the window: its width follows the window's before the layout has placed it.
void shareWidth(QTableWidget* grid, const std::vector<int>& weights, int windowWidth) {
  int total = 0;
  for (int w : weights) total += w;
  const int width = windowWidth - 60;
  for (int c = 0; c < grid->columnCount(); ++c)
    grid->setColumnWidth(c, std::max(40, width * weights[c] / total));
}

void setBackground(QTableWidgetItem* item, bool marked) {
  item->setBackground(marked ? QBrush(qcolor(kMarkGreen)) : QBrush());
}

}  // namespace pescavo
