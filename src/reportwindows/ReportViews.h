#pragma once

#include <QString>
#include <QTableWidget>
#include <QWidget>
#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "model/ReportRun.h"
#include "model/ReportViewState.h"
#include "reports/ResultTables.h"

class QChartView;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QPieSeries;
class QVBoxLayout;

namespace pescavo {

class DesktopDialogs;
class ScenarioGrid;

// The pieces both report windows are made of: the report text box, the labels above the
// table, the composition table, the pie chart and the independent check's warning, with the
// printing and copying each of them offers.

// Courier New, or the system's fixed-pitch font where it is missing.
QFont reportFont();

// The multi-line report text box (Bericht, BerichtNeu): read-only, fixed pitch, TAB stops
// every eight characters. Holds the core's text byte for byte for copying.
class ReportTextBox {
 public:
  ReportTextBox(QWidget* parent, const char* name);
  void setText(const std::string& text);
  const std::string& text() const { return m_text; }
  QPlainTextEdit* widget() const { return m_box; }
  // The print dialog, then the whole text; nothing on Cancel.
  void print(DesktopDialogs& dialogs) const;

 private:
  QPlainTextEdit* m_box;
  std::string m_text;
};

// Label1 "Substance:" with TextSubstanz, Label2 "Species:" with TextFischname and
// TextFischname2, shown and hidden together.
class ReportLabelRow {
 public:
  explicit ReportLabelRow(QWidget* parent);
  void setLabels(const ReportLabels& labels);
  void setShown(bool shown);
  QWidget* widget() const { return m_row; }

 private:
  QWidget* m_row;
  QLabel* m_label1;
  QLabel* m_label2;
  QLineEdit* m_substance;
  QLineEdit* m_species;
  QLineEdit* m_targets;
};

// A red line above the report when the independent check does not agree with the run shown.
class CheckWarning {
 public:
  explicit CheckWarning(QWidget* parent);
  void show(CheckVerdict verdict, const std::string& sentence);
  QWidget* widget() const;

 private:
  QLabel* m_label;
};

// ErgebnisGrid: the composition table with the core's rows; row 0 is the header row. The
// column widths follow the grid's width whenever it changes.
class CompositionGrid : public QTableWidget {
 public:
  // Category and crop name the rows on every printed page.
  static constexpr int kRepeatedColumns = 2;
  explicit CompositionGrid(QWidget* parent);
  void setRows(const std::vector<CompositionRow>& rows);
  // The design's column widths, which add up to more than the grid, for the printout.
  std::vector<int> printWidths() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void applyWidths();
  int m_appliedWidth = -1;
};

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

// Printing and copying what a report window shows.
// The grid's first repeatedColumns columns open every page, naming the rows of a wide table.
void printGrid(DesktopDialogs& dialogs, const QTableWidget& grid, const std::string& title,
               int repeatedColumns = 0);
void printChart(DesktopDialogs& dialogs, const PieChartView& chart);
void copyGrid(DesktopDialogs& dialogs, const QTableWidget& grid);
void copyChart(DesktopDialogs& dialogs, const PieChartView& chart);

// What "Print" and "Copy into Clipboard" take: the view on screen. A scenario window has no
// scenario table (null) and takes its text instead.
struct ReportViewPages {
  const ReportTextBox& text;
  const CompositionGrid& table;
  const PieChartView& chart;
  const ScenarioGrid* scenarioTable;
  const std::string& printTitle;
};
void printReportView(DesktopDialogs& dialogs, ReportViewState::View view,
                     const ReportViewPages& pages);
void copyReportView(DesktopDialogs& dialogs, ReportViewState::View view,
                    const ReportViewPages& pages);

// A button named name, with its caption as accessible name; setCaption keeps the two together.
QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption);
void setCaption(QPushButton* button, const QString& caption);

// The controls a report window switches between its views; a scenario window has no
// scenario table and no Command3 (null).
struct ReportViewWidgets {
  QWidget* text;
  QWidget* table;
  QWidget* chart;
  QComboBox* chartKinds;
  ReportLabelRow* labels;
  ScenarioGrid* scenarioTable;
  QPushButton* command1;
  QPushButton* command2;
  QPushButton* command3;
};
void applyReportView(const ReportViewWidgets& widgets, const ReportViewState::Controls& controls);

// Combo1, the chart kind; addChartKinds adds "Dietary Load" and "Feed composition" once per
// window and leaves nothing chosen.
QComboBox* makeChartChooser(QWidget* parent);
void addChartKinds(QComboBox* combo);

}  // namespace pescavo
