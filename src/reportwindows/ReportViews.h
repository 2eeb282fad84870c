#pragma once

#include <QString>
#include <string>

#include "engine/IndependentCheck.h"
#include "model/ReportRun.h"

class QComboBox;
class QFont;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace pescavo {

class DesktopDialogs;

// The small pieces both report windows are made of: the text boxes, the labels above the
// table, the independent check's warning, the buttons and the chart chooser.

// Courier New, or the system's fixed-pitch font where it is missing.
QFont reportFont();

// A multi-line text box (Bericht, BerichtNeu, the explanation): read-only, fixed pitch, TAB
// stops every eight characters. Holds the core's text byte for byte for copying.
class ReportTextBox {
 public:
  ReportTextBox(QWidget* parent, const char* name, const QString& accessibleName);
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

// A button named name, with its caption as accessible name; setCaption keeps the two together.
QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption);
void setCaption(QPushButton* button, const QString& caption);

// Combo1, the chart kind; addChartKinds adds "Dietary Load" and "Feed composition" once per
// window and leaves nothing chosen.
QComboBox* makeChartChooser(QWidget* parent);
void addChartKinds(QComboBox* combo);

}  // namespace pescavo
