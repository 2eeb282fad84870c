#include "mainwindow/ResidueGridView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QTableWidget>
#include <QWheelEvent>

#include "desktop/Twips.h"

namespace pescavo {

namespace {

const QColor kMarkGreen(0, 255, 0);

// Keys that move the current cell: the table's own, after the model has seen them.
bool isNavigation(int key) {
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
      return true;
    default:
      return false;
  }
}

QTableWidgetItem* makeItem(const std::string& text, bool marked) {
  auto* item = new QTableWidgetItem(QString::fromStdString(text));
  item->setTextAlignment(Qt::AlignCenter);
  item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  if (marked) item->setBackground(kMarkGreen);
  return item;
}

void showMark(QTableWidgetItem& item, bool marked) {
  if (marked)
    item.setBackground(kMarkGreen);
  else
    item.setData(Qt::BackgroundRole, QVariant());  // the grid's own background
}

}  // namespace

int virtualKey(const QKeyEvent& event) {
  const int key = event.key();
  const bool keypad = event.modifiers() & Qt::KeypadModifier;
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return (keypad ? 96 : 48) + key - Qt::Key_0;
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return 65 + key - Qt::Key_A;
  switch (key) {
    case Qt::Key_Comma:
      return keypad ? 110 : 188;  // some layouts put a comma on the keypad
    case Qt::Key_Period:
      return keypad ? 110 : 190;
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Shift:
      return 16;
    case Qt::Key_Control:
      return 17;
    case Qt::Key_Alt:
      return 18;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return 35;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
    default:
      return 0;
  }
}

ResidueGridView::ResidueGridView(QTableWidget* table) : QObject(table), m_table(table) {
  table->setColumnCount(ResidueGrid::kColumns);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);  // the in-place editors edit
  table->setSelectionMode(QAbstractItemView::ContiguousSelection);
  table->setSelectionBehavior(QAbstractItemView::SelectItems);
  table->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);  // the wheel sets the top row
  table->setWordWrap(false);
  table->setCornerButtonEnabled(false);
  // A one-pixel border, which the editors' placing allows for.
  table->setFrameStyle(QFrame::Box | QFrame::Plain);
  table->setLineWidth(1);
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table->horizontalHeader()->setHighlightSections(false);
  table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  // Rows as high as the edit box needs, so that a page shows as many as it can.
  table->verticalHeader()->setMinimumSectionSize(1);
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
  table->verticalHeader()->hide();
  table->installEventFilter(this);
  table->viewport()->installEventFilter(this);
  connect(table, &QTableWidget::currentCellChanged, this, &ResidueGridView::reportCursor);
  connect(table, &QTableWidget::itemSelectionChanged, this, &ResidueGridView::reportCursor);
  connect(table->verticalScrollBar(), &QScrollBar::valueChanged, this, &ResidueGridView::scrolled);
}

void ResidueGridView::show(const ResidueGrid& grid) {
  m_showing = true;
  if (m_texts.size() != static_cast<std::size_t>(grid.rowCount())) {
    rebuild(grid);
  } else {
    for (int c = 0; c < ResidueGrid::kColumns; ++c) {
      if (m_texts[0][c] == grid.text(0, c)) continue;
      m_texts[0][c] = grid.text(0, c);
      m_table->horizontalHeaderItem(c)->setText(QString::fromStdString(m_texts[0][c]));
    }
    for (int r = 1; r < grid.rowCount(); ++r) {
      for (int c = 0; c < ResidueGrid::kColumns; ++c) {
        const std::string& text = grid.text(r, c);
        const bool marked = grid.marked(r, c);
        std::string& shownText = m_texts[r][c];
        bool& shownMark = m_marks[r][c];
        if (shownText == text && shownMark == marked) continue;
        QTableWidgetItem* item = m_table->item(r - 1, c);
        if (shownText != text) item->setText(QString::fromStdString(text));
        if (shownMark != marked) showMark(*item, marked);
        shownText = text;
        shownMark = marked;
      }
    }
  }
  showCursor(grid);
  m_showing = false;
}

void ResidueGridView::rebuild(const ResidueGrid& grid) {
  const int rows = grid.rowCount();
  m_texts.assign(static_cast<std::size_t>(rows), {});
  m_marks.assign(static_cast<std::size_t>(rows), {});
  m_table->setUpdatesEnabled(false);
  m_table->setRowCount(0);
  m_table->setRowCount(std::max(rows - 1, 0));
  QFont bold = m_table->font();
  bold.setBold(true);
  for (int c = 0; c < ResidueGrid::kColumns && rows > 0; ++c) {
    m_texts[0][c] = grid.text(0, c);
    auto* header = new QTableWidgetItem(QString::fromStdString(m_texts[0][c]));
    header->setTextAlignment(Qt::AlignCenter);
    header->setFont(bold);
    m_table->setHorizontalHeaderItem(c, header);
  }
  for (int r = 1; r < rows; ++r) {
    for (int c = 0; c < ResidueGrid::kColumns; ++c) {
      m_texts[r][c] = grid.text(r, c);
      m_marks[r][c] = grid.marked(r, c);
      m_table->setItem(r - 1, c, makeItem(m_texts[r][c], m_marks[r][c]));
    }
  }
  m_table->setUpdatesEnabled(true);
}

// Column edges rounded rather than widths, so the pixels add up as the twips do.
void ResidueGridView::setColumnWidths(const std::array<int, ResidueGrid::kColumns>& twips) {
  int edge = 0;
  for (int c = 0; c < ResidueGrid::kColumns; ++c) {
    const int pixels = twipsToPixels(edge + twips[c]) - twipsToPixels(edge);
    edge += twips[c];
    if (m_table->columnWidth(c) != pixels) m_table->setColumnWidth(c, pixels);
  }
}

int ResidueGridView::chromeWidth() const {
  const int scrollBar = m_table->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr,
                                                      m_table->verticalScrollBar());
  return (2 * m_table->frameWidth() + scrollBar) * kTwipsPerPixel;
}

std::array<int, 3> ResidueGridView::cursor() const {
  const int row = m_table->currentRow();
  int end = row;
  for (const QTableWidgetSelectionRange& range : m_table->selectedRanges()) {
    if (row < range.topRow() || row > range.bottomRow()) continue;
    end = row == range.topRow() ? range.bottomRow() : range.topRow();
    break;
  }
  return {row + 1, m_table->currentColumn(), end + 1};
}

void ResidueGridView::showCursor(const ResidueGrid& grid) {
  if (grid.rowCount() < 2) return;
  const std::array<int, 3> shown = cursor();
  if (shown == std::array<int, 3>{grid.row(), grid.column(), grid.selectionEnd()}) return;
  m_table->setCurrentCell(grid.row() - 1, grid.column(), QItemSelectionModel::ClearAndSelect);
  if (grid.selectionEnd() != grid.row()) {
    const int top = std::min(grid.row(), grid.selectionEnd()) - 1;
    const int bottom = std::max(grid.row(), grid.selectionEnd()) - 1;
    m_table->setRangeSelected(QTableWidgetSelectionRange(top, grid.column(), bottom, grid.column()),
                              true);
  }
}

void ResidueGridView::reportCursor() {
  if (m_showing || m_table->currentRow() < 0) return;
  const std::array<int, 3> shown = cursor();
  emit cursorChanged(shown[0], shown[1], shown[2]);
}

TwipsRect ResidueGridView::cellRect(int row, int column) {
  m_table->scrollTo(m_table->model()->index(row - 1, column));
  return cellPlace(row, column);
}

QRect ResidueGridView::cellsOn(const QWidget* parent) const {
  const QWidget* cells = m_table->viewport();
  return QRect(cells->mapTo(parent, QPoint(0, 0)), cells->size());
}

TwipsRect ResidueGridView::cellPlace(int row, int column) const {
  const QModelIndex index = m_table->model()->index(row - 1, column);
  const QRect cell = m_table->visualRect(index).translated(m_table->viewport()->pos());
  const int border = m_table->frameWidth();
  return {(cell.left() - border) * kTwipsPerPixel, (cell.top() - border) * kTwipsPerPixel,
          cell.width() * kTwipsPerPixel, cell.height() * kTwipsPerPixel};
}

int ResidueGridView::topRow() const { return m_table->rowAt(0) + 1; }

void ResidueGridView::setTopRow(int row) { m_table->verticalScrollBar()->setValue(row - 1); }

int ResidueGridView::headerHeight() const { return m_table->horizontalHeader()->height(); }

bool ResidueGridView::eventFilter(QObject* watched, QEvent* event) {
  // Asked only for the events below: while the table is taken down it is no table any more.
  const auto onCells = [&] { return watched == m_table->viewport(); };
  switch (event->type()) {
    case QEvent::KeyPress: {
      if (watched != m_table) break;
      const auto* key = static_cast<QKeyEvent*>(event);
      emit keyPressed(virtualKey(*key), key->modifiers() & Qt::ControlModifier);
      return !isNavigation(key->key());
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (onCells() && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        m_pressed = true;
      break;
    case QEvent::MouseButtonRelease:
      // Without dragging of items the press and the moves have set the selection.
      if (!m_pressed || !onCells()) break;
      if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) break;
      m_pressed = false;
      emit clicked();
      break;
    case QEvent::Wheel: {
      if (!onCells()) break;
      const int rotation = static_cast<QWheelEvent*>(event)->angleDelta().y();
      if (rotation == 0) break;  // a sideways wheel scrolls as the table does
      event->accept();
      emit wheelTurned(rotation);
      return true;
    }
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace pescavo
