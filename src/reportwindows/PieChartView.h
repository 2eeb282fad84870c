#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include "reports/ResultTables.h"

class QChartView;
class QLabel;
class QPieSeries;
class QVBoxLayout;

namespace pescavo {

// MSChart1: a two-dimensional pie with its title, its rows (colour, label) beside it and the
// footnote below, all drawn as the core handed them.
class PieChartView : public QWidget {
 public:
  explicit PieChartView(QWidget* parent);
  void draw(const PieChart& chart);
  // The chart as it is on screen, at scale times its size in pixels.
  QImage picture(double scale) const;
  QString title() const;
  QString footnote() const;
  QPieSeries* series() const { return m_series; }

 private:
  QLabel* m_title;
  QChartView* m_view;
  QPieSeries* m_series;
  QWidget* m_rows;
  QVBoxLayout* m_rowLayout;
  QLabel* m_footnote;
};

}  // namespace pescavo
