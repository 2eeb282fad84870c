#include "reportwindows/ReportViews.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>
#include <QTextOption>

#include "desktop/DesktopDialogs.h"
#include "desktop/Styles.h"

namespace pescavo {

namespace {

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

// The report's labels and values line up at stops of eight characters.
double tabStop(const QFont& font) {
  return 8 * QFontMetricsF(font).horizontalAdvance(QLatin1Char(' '));
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

ReportTextBox::ReportTextBox(QWidget* parent, const char* name, const QString& accessibleName)
    : m_box(new QPlainTextEdit(parent)) {
  m_box->setObjectName(name);
  m_box->setAccessibleName(accessibleName);
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

}  // namespace pescavo
