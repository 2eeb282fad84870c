#include "database/DatabaseWidgets.h"

#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/DesktopDialogs.h"
#include "desktop/HandPointer.h"
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
  grid->horizontalHeader()->setDefaultAlignment(Qt::Alignment(Qt::AlignCenter | Qt::TextWordWrap));
  grid->setWordWrap(false);
  return grid;
}

namespace {

// The narrowest width that holds the header in two lines, broken at a blank.
int twoLineWidth(const QFontMetrics& font, const QString& text) {
  int best = font.horizontalAdvance(text);
  for (int at = text.indexOf(' '); at >= 0; at = text.indexOf(' ', at + 1))
    best = std::min(best, std::max(font.horizontalAdvance(text.left(at)),
                                   font.horizontalAdvance(text.mid(at + 1))));
  return best;
}

// The column's longest texts by characters, among which is its widest: measuring every cell of
// a thousand rows at each resize would be felt.
std::vector<QString> longestTexts(const QTableWidget* grid, int column) {
  constexpr std::size_t kKept = 8;
  std::vector<QString> texts;
  for (int r = 0; r < grid->rowCount(); ++r) {
    const QTableWidgetItem* item = grid->item(r, column);
    if (item == nullptr) continue;
    if (texts.size() < kKept) {
      texts.push_back(item->text());
      continue;
    }
    const auto shortest =
        std::min_element(texts.begin(), texts.end(),
                         [](const QString& a, const QString& b) { return a.size() < b.size(); });
    if (item->text().size() > shortest->size()) *shortest = item->text();
  }
  return texts;
}

}  // namespace

// Every column is at least as wide as its header in two lines and its widest cell; what the
// window has beyond that goes to the columns by weight. The grid spans the window: its width
// follows the window's before the layout has placed it.
void shareWidth(QTableWidget* grid, const std::vector<int>& weights, int windowWidth) {
  QHeaderView* header = grid->horizontalHeader();
  // The current column's header is bold.
  QFont bold = header->font();
  bold.setBold(true);
  const QFontMetrics headerFont(bold);
  const QFontMetrics cellFont(grid->font());
  const int headerPadding = 2 * header->style()->pixelMetric(QStyle::PM_HeaderMargin) + 8;
  const int cellPadding = 2 * grid->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 8;
  const int columns = grid->columnCount();
  std::vector<int> need(static_cast<std::size_t>(columns));
  int needed = 0, total = 0;
  for (int c = 0; c < columns; ++c) {
    const QTableWidgetItem* head = grid->horizontalHeaderItem(c);
    int width = head ? twoLineWidth(headerFont, head->text()) + headerPadding : 0;
    for (const QString& text : longestTexts(grid, c))
      width = std::max(width, cellFont.horizontalAdvance(text) + cellPadding);
    need[c] = width;
    needed += width;
    total += weights[c];
  }
  const int spare = std::max(0, windowWidth - 60 - needed);
  bool wraps = false;
  for (int c = 0; c < columns; ++c) {
    const int width = need[c] + spare * weights[c] / total;
    grid->setColumnWidth(c, width);
    const QTableWidgetItem* head = grid->horizontalHeaderItem(c);
    wraps = wraps || (head && headerFont.horizontalAdvance(head->text()) + headerPadding > width);
  }
  const int lines = wraps ? 2 : 1;
  header->setMinimumHeight(lines * headerFont.lineSpacing() + headerPadding);
}

void setBackground(QTableWidgetItem* item, bool marked) {
  item->setBackground(marked ? QBrush(qcolor(kMarkGreen)) : QBrush());
}

void useHandPointers(QWidget* window, ComponentWindow which, std::function<QString()> cursorFile) {
  if (!cursorFile) return;
  for (QWidget* control : window->findChildren<QWidget*>()) {
    const HandPointerRule rule = handPointerRule(which, control->objectName().toStdString());
    if (rule == HandPointerRule::Always) {
      useHandPointer(control, cursorFile);
    } else if (rule != HandPointerRule::Never) {
      useHandPointerWhile(control, cursorFile,
                          [rule](bool clicked) { return showsHandPointer(rule, 0, -1, clicked); });
    }
  }
}

}  // namespace pescavo
