#include "reportwindows/PieChartView.h"

#include <QChart>
#include <QChartView>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPieSeries>
#include <QPieSlice>
#include <QVBoxLayout>
#include <array>

namespace pescavo {

namespace {

// Tells the slices apart in colour and in grey (the Okabe-Ito set).
const std::array<QColor, 6> kSliceColours = {QColor(0, 114, 178),  QColor(230, 159, 0),
                                             QColor(0, 158, 115),  QColor(204, 121, 167),
                                             QColor(86, 180, 233), QColor(213, 94, 0)};

QString qtext(const std::string& value) { return QString::fromStdString(value); }

QLabel* plainLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  return label;
}

QPixmap swatch(const QColor& colour, int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(colour);
  return pixmap;
}

}  // namespace

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

}  // namespace pescavo
