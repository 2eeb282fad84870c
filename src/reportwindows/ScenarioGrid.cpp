#include "reportwindows/ScenarioGrid.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPushButton>
#include <algorithm>

#include "desktop/Styles.h"
#include "model/ReportState.h"
#include "model/ScenarioSweep.h"
#include "reportwindows/ReportViews.h"

namespace pescavo {

namespace {

// Headings wrap into the row's height, on screen and on paper.
constexpr int kWrap = Qt::TextWordWrap;
// Pure green, as the sweep colours them, drawn flat so that the colour is the one given.
const QString kDetailsStyle = QStringLiteral(
    "QPushButton { background-color: rgb(0, 255, 0); border: 1px solid rgb(0, 128, 0); }"
    "QPushButton:pressed { background-color: rgb(0, 200, 0); }");

Qt::Alignment alignment(int code) {
  return code == kAlignCentre ? Qt::Alignment(Qt::AlignCenter)
                              : Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace

ScenarioGrid::ScenarioGrid(QWidget* parent) : QTableWidget(kScenarioRuns, kColumns, parent) {
  setObjectName("AllScnErgebnis");
  setAccessibleName(QStringLiteral("Scenario table"));
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  verticalHeader()->hide();
  horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
  horizontalHeader()->setHighlightSections(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  m_layer = new QWidget(parent);
  m_layer->setObjectName("Command4");
  m_layer->setAccessibleName(QStringLiteral("Details buttons"));
  m_layer->hide();
  for (QHeaderView* header : {horizontalHeader(), verticalHeader()})
    connect(header, &QHeaderView::sectionResized, this, [this] { placeButtons(); });
  for (int i = 0; i < kScenarioRuns; ++i) {
    const QString number = QString::number(i + 1);
    QPushButton* button = makeButton(m_layer, qPrintable(QStringLiteral("Command4_%1").arg(i)),
                                     QStringLiteral("Details"));
    // Named as the eye reads it; which run it opens is its description.
    button->setAccessibleName(QStringLiteral("Details"));
    button->setAccessibleDescription(QStringLiteral("Scenario ") + number);
    button->setStyleSheet(kDetailsStyle);
    button->hide();
    connect(button, &QPushButton::clicked, this, [this, i] {
      if (onDetails) onDetails(i);
    });
    m_buttons[i] = button;
  }
}

void ScenarioGrid::fill(const ReportState& report) {
  const ScenarioCells& cells = report.scenarioCells;
  for (int c = 0; c < 4; ++c) {
    auto* header = new QTableWidgetItem(QString::fromStdString(cells[0][c]));
    header->setTextAlignment(Qt::Alignment(alignment(report.scenarioAlignment[0][c]) | kWrap));
    setHorizontalHeaderItem(c, header);
  }
  for (int c : {kVerdictColumn, kTrueOptimumColumn}) {
    auto* header = new QTableWidgetItem(QString::fromUtf8(kCheckColumnHeadings[c - 4]));
    header->setTextAlignment(Qt::Alignment(int(Qt::AlignCenter) | kWrap));
    setHorizontalHeaderItem(c, header);
  }
  for (int run = 1; run <= kScenarioRuns; ++run) {
    for (int c = 0; c < 3; ++c) setCell(run, c, cells[run][c], report.scenarioAlignment[run][c]);
    m_buttons[run - 1]->setAccessibleDescription(
        QStringLiteral("Scenario %1: %2").arg(run).arg(QString::fromStdString(cells[run][1])));
    setCell(run, kVerdictColumn, report.scenarioVerdicts[run - 1], kAlignCentre);
    setCell(run, kTrueOptimumColumn, report.scenarioTrueOptima[run - 1], kAlignCentre);
    markRun(report, run);
  }
  fitCheckColumns();
  m_appliedWidth = -1;
  applyWidths();
}

void ScenarioGrid::setCell(int row, int column, const std::string& text, int code) {
  auto* cell = new QTableWidgetItem(QString::fromStdString(text));
  cell->setTextAlignment(alignment(code));
  setItem(row - 1, column, cell);
}

// Runs not yet made by an unfinished sweep have no check and no mark.
void ScenarioGrid::markRun(const ReportState& report, int run) {
  const bool made = !report.scenarioVerdicts[run - 1].empty();
  const std::optional<RunMark> mark = scenarioRunMark(report.scenarioChecks[run - 1].verdict, made);
  const QString tooltip = QString::fromStdString(report.scenarioVerdictTooltips[run - 1]);
  for (int c = 0; c < kColumns; ++c) {
    QTableWidgetItem* cell = item(run - 1, c);
    if (!cell) continue;
    if (mark) {
      cell->setBackground(qcolor(mark->background));
      cell->setToolTip(tooltip);
    }
    if (c == kVerdictColumn) cell->setToolTip(tooltip);
    if (mark && c >= kVerdictColumn) {
      QFont font = cell->font();
      font.setBold(mark->checkBold);
      cell->setFont(font);
      cell->setForeground(qcolor(mark->checkText));
    }
  }
}

void ScenarioGrid::setButtonsShown(bool shown) {
  m_buttonsShown = shown;
  for (QPushButton* button : m_buttons) button->setVisible(shown);
  placeButtons();
}

void ScenarioGrid::placeButtons() {
  if (!m_buttonsShown || !isVisible()) {
    m_layer->hide();
    return;
  }
  const QWidget* view = viewport();
  m_layer->setGeometry(QRect(view->mapTo(parentWidget(), QPoint(0, 0)), view->size()));
  QRegion reach;
  for (int i = 0; i < kScenarioRuns; ++i) {
    const QRect cell = visualRect(model()->index(i, 3));
    m_buttons[i]->setGeometry(cell);
    reach += cell;
  }
  reach &= m_layer->rect();
  // An empty mask would be no mask at all, and the layer would hide the table.
  if (reach.isEmpty()) {
    m_layer->hide();
    return;
  }
  m_layer->setMask(reach);
  m_layer->show();
  m_layer->raise();
}

void ScenarioGrid::scrollContentsBy(int dx, int dy) {
  QTableWidget::scrollContentsBy(dx, dy);
  placeButtons();
}

void ScenarioGrid::showEvent(QShowEvent* event) {
  QTableWidget::showEvent(event);
  placeButtons();
}

void ScenarioGrid::hideEvent(QHideEvent* event) {
  QTableWidget::hideEvent(event);
  m_layer->hide();
}

void ScenarioGrid::moveEvent(QMoveEvent* event) {
  QTableWidget::moveEvent(event);
  placeButtons();
}

// As narrow as their cells and the longest word of their headings, which wrap.
void ScenarioGrid::fitCheckColumns() {
  const QFontMetrics metrics(horizontalHeader()->font());
  for (int c : {kVerdictColumn, kTrueOptimumColumn}) {
    int widest = 0;
    for (const QString& word : horizontalHeaderItem(c)->text().split(QLatin1Char(' ')))
      widest = std::max(widest, metrics.horizontalAdvance(word));
    setColumnWidth(c, std::max(sizeHintForColumn(c), widest + 2 * metrics.averageCharWidth()));
  }
}

// The header row is as high as its highest wrapped heading.
void ScenarioGrid::fitHeaderHeight() {
  const QFontMetrics metrics(horizontalHeader()->font());
  const int margin = 2 * metrics.averageCharWidth();
  int lines = 1;
  for (int c = 0; c < kColumns; ++c) {
    const QTableWidgetItem* header = horizontalHeaderItem(c);
    if (!header) continue;
    const QRect room(0, 0, std::max(1, columnWidth(c) - margin), 10000);
    const int height =
        metrics.boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, header->text()).height();
    lines = std::max(lines, (height + metrics.lineSpacing() - 1) / metrics.lineSpacing());
  }
  horizontalHeader()->setFixedHeight(lines * metrics.lineSpacing() + metrics.height() / 2 + 4);
}

// The viewport narrows when the vertical scroll bar comes in; the columns follow it.
bool ScenarioGrid::viewportEvent(QEvent* event) {
  const bool handled = QTableWidget::viewportEvent(event);
  if (event->type() == QEvent::Resize) {
    applyWidths();
    placeButtons();
  }
  return handled;
}

// The four columns share what the check's columns leave of the grid's width.
void ScenarioGrid::applyWidths() {
  const int width = viewport()->width();
  if (width == m_appliedWidth) return;
  m_appliedWidth = width;
  const int checkColumns = columnWidth(kVerdictColumn) + columnWidth(kTrueOptimumColumn);
  const std::array<int, 4> widths = scenarioColumnWidths(std::max(0, width - checkColumns));
  for (int c = 0; c < 4; ++c) setColumnWidth(c, widths[c]);
  fitHeaderHeight();
}

}  // namespace pescavo
