#include "reportwindows/ReportViews.h"

#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPieSeries>
#include <QPieSlice>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>
#include <array>

#include "desktop/DesktopDialogs.h"
#include "desktop/PrintGrid.h"
#include "desktop/PrintPicture.h"
#include "desktop/Styles.h"
#include "reportwindows/ScenarioGrid.h"

namespace pescavo {

namespace {

// The report windows print their tables with these margins (mm) and the date as second line.
constexpr float kGridLeft = 10, kGridTop = 15, kGridRight = 10, kGridBottom = 10;
// Printed charts are drawn at this multiple of their size on screen, sharp on paper.
constexpr double kPrintScale = 4;

// Tells the slices apart in colour and in grey (the Okabe-Ito set).
const std::array<QColor, 6> kSliceColours = {QColor(0, 114, 178),  QColor(230, 159, 0),
                                             QColor(0, 158, 115),  QColor(204, 121, 167),
                                             QColor(86, 180, 233), QColor(213, 94, 0)};

QString qtext(const std::string& value) { return QString::fromStdString(value); }

QLineEdit* makeField(QWidget* parent, const char* name, const char* accessible) {
  auto* field = new QLineEdit(parent);
  field->setObjectName(name);
  field->setAccessibleName(accessible);
  field->setReadOnly(true);
  return field;
}

QLabel* makeLabel(QWidget* parent, const char* name, const QString& caption) {
  auto* label = new QLabel(caption, parent);
  label->setObjectName(name);
  label->setAccessibleName(caption);
  return label;
}

QLabel* plainLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  return label;
}

// The report's labels and values line up at stops of eight characters.
double tabStop(const QFont& font) {
  return 8 * QFontMetricsF(font).horizontalAdvance(QLatin1Char(' '));
}

QPixmap swatch(const QColor& colour, int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(colour);
  return pixmap;
}

}  // namespace

QFont reportFont() {
  QFont font(QStringLiteral("Courier New"));
  font.setStyleHint(QFont::TypeWriter);
  font.setFixedPitch(true);
  if (QFontInfo(font).fixedPitch()) return font;
  return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setAccessibleName(caption);
  button->setAutoDefault(false);
  return button;
}

void setCaption(QPushButton* button, const QString& caption) {
  button->setText(caption);
  button->setAccessibleName(caption);
}

void applyReportView(const ReportViewWidgets& widgets, const ReportViewState::Controls& controls) {
  widgets.text->setVisible(controls.text);
  widgets.table->setVisible(controls.table);
  widgets.chart->setVisible(controls.chart);
  widgets.chartKinds->setVisible(controls.chartKinds);
  widgets.labels->setShown(controls.labels);
  if (widgets.scenarioTable) {
    widgets.scenarioTable->setVisible(controls.scenarioTable);
    widgets.scenarioTable->setButtonsShown(controls.detailsButtons);
  }
  widgets.command1->setVisible(controls.command1);
  widgets.command2->setVisible(controls.command2);
  setCaption(widgets.command1, QString::fromStdString(controls.command1Caption));
  setCaption(widgets.command2, QString::fromStdString(controls.command2Caption));
  if (widgets.command3) {
    widgets.command3->setVisible(controls.command3);
    setCaption(widgets.command3, QString::fromStdString(controls.command3Caption));
  }
}

QComboBox* makeChartChooser(QWidget* parent) {
  auto* combo = new QComboBox(parent);
  combo->setObjectName("Combo1");
  combo->setAccessibleName(QStringLiteral("Chart"));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return combo;
}

void addChartKinds(QComboBox* combo) {
  if (combo->count() > 0) return;
  const QSignalBlocker quiet(combo);
  combo->addItem(QStringLiteral("Dietary Load"));
  combo->addItem(QStringLiteral("Feed composition"));
  combo->setCurrentIndex(-1);
}

ReportTextBox::ReportTextBox(QWidget* parent, const char* name)
    : m_box(new QPlainTextEdit(parent)) {
  m_box->setObjectName(name);
  m_box->setAccessibleName(QStringLiteral("Report text"));
  m_box->setReadOnly(true);
  m_box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_box->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_box->setFont(reportFont());
  m_box->setTabStopDistance(tabStop(m_box->font()));
}

void ReportTextBox::setText(const std::string& value) {
  m_text = value;
  m_box->setPlainText(qtext(value));
}

void ReportTextBox::print(DesktopDialogs& dialogs) const {
  QPrinter printer(QPrinter::HighResolution);
  if (!dialogs.choosePrinter(printer)) return;
  QTextDocument document;
  document.setDefaultFont(reportFont());
  QTextOption option = document.defaultTextOption();
  option.setTabStopDistance(tabStop(document.defaultFont()));
  document.setDefaultTextOption(option);
  document.setPlainText(qtext(m_text));
  document.print(&printer);
}

ReportLabelRow::ReportLabelRow(QWidget* parent) : m_row(new QWidget(parent)) {
  m_row->setObjectName("LabelRow");
  m_label1 = makeLabel(m_row, "Label1", QStringLiteral("Substance:"));
  m_substance = makeField(m_row, "TextSubstanz", "Substance");
  m_label2 = makeLabel(m_row, "Label2", QStringLiteral("Species:"));
  m_species = makeField(m_row, "TextFischname", "Species");
  m_targets = makeField(m_row, "TextFischname2", "Species targets");
  m_label1->setBuddy(m_substance);
  m_label2->setBuddy(m_species);
  auto* layout = new QHBoxLayout(m_row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_label1);
  layout->addWidget(m_substance, 2);
  layout->addSpacing(12);
  layout->addWidget(m_label2);
  layout->addWidget(m_species, 1);
  layout->addWidget(m_targets, 1);
}

void ReportLabelRow::setLabels(const ReportLabels& labels) {
  m_substance->setText(qtext(labels.substance));
  m_species->setText(qtext(labels.speciesName));
  m_targets->setText(qtext(labels.speciesTargets));
  // The species and its targets are short and always shown whole.
  for (QLineEdit* field : {m_species, m_targets})
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(field->text()) +
                           4 * field->fontMetrics().averageCharWidth());
}

void ReportLabelRow::setShown(bool shown) {
  for (QWidget* widget :
       std::initializer_list<QWidget*>{m_label1, m_label2, m_substance, m_species, m_targets})
    widget->setVisible(shown);
  m_row->setVisible(shown);
}

CheckWarning::CheckWarning(QWidget* parent) : m_label(new QLabel(parent)) {
  m_label->setObjectName("CheckWarning");
  m_label->setAccessibleName(QStringLiteral("Independent check"));
  m_label->setTextFormat(Qt::PlainText);
  m_label->setWordWrap(true);
  const TextStyle style = reportCheckWarningStyle();
  QPalette palette = m_label->palette();
  palette.setColor(QPalette::WindowText, qcolor(style.text));
  m_label->setPalette(palette);
  QFont font = m_label->font();
  font.setBold(style.bold);
  m_label->setFont(font);
  m_label->hide();
}

QWidget* CheckWarning::widget() const { return m_label; }

void CheckWarning::show(CheckVerdict verdict, const std::string& sentence) {
  m_label->setText(qtext(sentence));
  m_label->setVisible(reportCheckWarningShown(verdict));
}

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
      auto* item = new QTableWidgetItem(qtext(rows[r][c]));
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

PieChartView::PieChartView(QWidget* parent) : QWidget(parent) {
  setObjectName("MSChart1");
  setAccessibleName(QStringLiteral("Pie chart"));
  setAutoFillBackground(true);
  QPalette palette = this->palette();
  palette.setColor(QPalette::Window, Qt::white);
  palette.setColor(QPalette::WindowText, Qt::black);
  setPalette(palette);

  m_title = plainLabel(this, "MSChart1Title");
  QFont titleFont = m_title->font();
  titleFont.setBold(true);
  titleFont.setPointSizeF(titleFont.pointSizeF() * 1.25);
  m_title->setFont(titleFont);
  m_footnote = plainLabel(this, "MSChart1Footnote");

  m_series = new QPieSeries(this);
  m_series->setPieSize(0.9);
  auto* chart = new QChart;
  chart->addSeries(m_series);
  chart->legend()->hide();
  chart->setBackgroundVisible(false);
  chart->setMargins(QMargins(0, 0, 0, 0));
  m_view = new QChartView(chart, this);
  m_view->setObjectName("MSChart1Pie");
  m_view->setAccessibleName(QStringLiteral("Pie"));
  m_view->setRenderHint(QPainter::Antialiasing);
  m_view->setMinimumSize(200, 200);

  // The rows beside the pie, largest first, each with its colour: the full label, never cut.
  m_rows = new QWidget(this);
  m_rows->setObjectName("MSChart1Rows");
  m_rowLayout = new QVBoxLayout(m_rows);
  m_rowLayout->setContentsMargins(0, 0, 0, 0);

  auto* middle = new QHBoxLayout;
  middle->addWidget(m_view, 3);
  middle->addWidget(m_rows, 2, Qt::AlignVCenter);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_title);
  layout->addLayout(middle, 1);
  layout->addWidget(m_footnote);
}

void PieChartView::draw(const PieChart& chart) {
  m_title->setText(qtext(chart.title));
  m_footnote->setText(qtext(chart.footnote));
  m_series->clear();
  // A row is a widget of its own, so that deleting it takes it out of the layout too.
  qDeleteAll(m_rows->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
  const int swatchSize = fontMetrics().height() * 3 / 4;
  for (std::size_t r = 0; r < chart.slices.size(); ++r) {
    const PieSlice& slice = chart.slices[r];
    const QColor colour = kSliceColours[r % kSliceColours.size()];
    QPieSlice* pie = m_series->append(qtext(slice.label), slice.value);
    pie->setColor(colour);
    pie->setBorderColor(Qt::white);

    auto* row = new QWidget(m_rows);
    auto* mark = new QLabel(row);
    mark->setPixmap(swatch(colour, swatchSize));
    auto* label = new QLabel(row);
    label->setObjectName(QStringLiteral("MSChart1Row%1").arg(r + 1));
    label->setTextFormat(Qt::PlainText);
    label->setText(qtext(slice.label));
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(mark);
    line->addWidget(label, 1);
    m_rowLayout->addWidget(row);
  }
  setVisible(true);
}

QImage PieChartView::picture(double scale) const {
  QImage image((QSizeF(size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::white);
  const_cast<PieChartView*>(this)->render(&image);
  return image;
}

QString PieChartView::title() const { return m_title->text(); }

QString PieChartView::footnote() const { return m_footnote->text(); }

void printGrid(DesktopDialogs& dialogs, const QTableWidget& grid, const std::string& title,
               int repeatedColumns) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!dialogs.choosePrinter(printer)) return;
  PrintTable table = printTable(grid);
  table.fixedColumns = repeatedColumns;
  if (const auto* composition = dynamic_cast<const CompositionGrid*>(&grid)) {
    table.widths = composition->printWidths();
  }
  PrintGrid(printer, table, kGridLeft, kGridTop, kGridRight, kGridBottom, qtext(title), QString(),
            0);
}

void printChart(DesktopDialogs& dialogs, const PieChartView& chart) {
  QPrinter printer(QPrinter::HighResolution);
  if (!dialogs.choosePrinter(printer)) return;
  // The chart goes through the clipboard on its way to the printer.
  copyChart(dialogs, chart);
  PrintPictureToFitPage(printer, chart.picture(kPrintScale));
}

void copyGrid(DesktopDialogs& dialogs, const QTableWidget& grid) {
  dialogs.setClipboardText(gridClipboardText(grid).toStdString());
}

void copyChart(DesktopDialogs& dialogs, const PieChartView& chart) {
  dialogs.setClipboardText(std::string());  // the clipboard holds the picture alone
  dialogs.setClipboardImage(chart.picture(chart.devicePixelRatioF()));
}

void printReportView(DesktopDialogs& dialogs, ReportViewState::View view,
                     const ReportViewPages& pages) {
  switch (view) {
    case ReportViewState::View::Chart:
      printChart(dialogs, pages.chart);
      break;
    case ReportViewState::View::Table:
      printGrid(dialogs, pages.table, pages.printTitle, CompositionGrid::kRepeatedColumns);
      break;
    case ReportViewState::View::ScenarioTable:
      if (pages.scenarioTable) {
        printGrid(dialogs, *pages.scenarioTable, pages.printTitle, 1);  // the scenario number
        break;
      }
      [[fallthrough]];
    case ReportViewState::View::Text:
      pages.text.print(dialogs);
      break;
  }
}

void copyReportView(DesktopDialogs& dialogs, ReportViewState::View view,
                    const ReportViewPages& pages) {
  switch (view) {
    case ReportViewState::View::Chart:
      copyChart(dialogs, pages.chart);
      break;
    case ReportViewState::View::Table:
      copyGrid(dialogs, pages.table);
      break;
    case ReportViewState::View::ScenarioTable:
      if (pages.scenarioTable) {
        copyGrid(dialogs, *pages.scenarioTable);
        break;
      }
      [[fallthrough]];
    case ReportViewState::View::Text:
      dialogs.setClipboardText(pages.text.text());
      break;
  }
}

}  // namespace pescavo
