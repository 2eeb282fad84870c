#include "database/Futterkomponenten.h"

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
#include <utility>

#include "database/DatabaseWidgets.h"
#include "desktop/DesktopDialogs.h"
#include "desktop/PrintGrid.h"
#include "desktop/Styles.h"

namespace pescavo {

Futterkomponenten::Futterkomponenten(const ComponentTable& table, int substance,
                                     char decimalSeparator, DesktopDialogs& dialogs,
                                     QWidget* parent, std::function<QString()> cursorFile)
    : QDialog(parent),
      m_rows(componentOverview(table, substance, decimalSeparator)),
      m_dialogs(dialogs) {
  setObjectName("Futterkomponenten");
  setWindowTitle("Components");
  setAccessibleName("Components");
  setModal(true);
  auto* label = new QLabel("Substance:", this);
  label->setObjectName("Label1");
  label->setAccessibleName("Substance:");
  m_substances = new QComboBox(this);
  m_substances->setObjectName("SchadstoffCombo");
  m_substances->setAccessibleName("Substance");
  for (int s = 1; s <= table.substanceCount(); ++s)
    m_substances->addItem(qtext(table.substanceName(s)));
  m_substances->setCurrentIndex(substance - 1);
  m_substances->setEnabled(false);
  m_grid = makeGrid(this, 10);
  m_search = new QLineEdit("Search...", this);
  m_search->setObjectName("Suche3");
  m_search->setAccessibleName("Search text");
  QPushButton* go = button(this, "Go3", "Go", false);
  QPushButton* copy = button(this, "Command2", "Copy to Clipboard", false);
  QPushButton* print = button(this, "PrintButton", "Print", false);
  QPushButton* done = button(this, "Fertig", "Done", true);

  auto* top = new QHBoxLayout;
  top->addWidget(label);
  top->addWidget(m_substances, 1);
  top->addStretch(2);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(m_search);
  buttons->addWidget(go);
  buttons->addWidget(copy);
  buttons->addWidget(print);
  buttons->addStretch();
  buttons->addWidget(done);
  auto* page = new QVBoxLayout(this);
  page->addLayout(top);
  page->addWidget(m_grid, 1);
  page->addLayout(buttons);
  resize(1080, 560);

  QStringList headers;
  for (const std::string& header : m_rows[0]) headers << qtext(header);
  m_grid->setHorizontalHeaderLabels(headers);
  m_grid->setRowCount(static_cast<int>(m_rows.size()) - 1);
  for (std::size_t r = 1; r < m_rows.size(); ++r)
    for (int c = 0; c < 10; ++c)
      m_grid->setItem(static_cast<int>(r) - 1, c, new QTableWidgetItem(qtext(m_rows[r][c])));

  connect(go, &QPushButton::clicked, this, &Futterkomponenten::Go3_Click);
  connect(m_search, &QLineEdit::returnPressed, this, &Futterkomponenten::Go3_Click);
  connect(copy, &QPushButton::clicked, this, &Futterkomponenten::Command2_Click);
  connect(print, &QPushButton::clicked, this, &Futterkomponenten::PrintButton_Click);
  connect(done, &QPushButton::clicked, this, &QDialog::accept);
  useHandPointers(this, ComponentWindow::Futterkomponenten, std::move(cursorFile));
}

void Futterkomponenten::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  shareWidth(m_grid, {14, 24, 8, 8, 8, 7, 10, 10, 10, 10}, width());
}

void Futterkomponenten::Go3_Click() {
  const std::vector<bool> hits = overviewSearch(m_rows, m_search->text().toStdString());
  for (std::size_t r = 1; r < m_rows.size(); ++r)
    for (int c = 0; c < 10; ++c)
      setBackground(m_grid->item(static_cast<int>(r) - 1, c), c == 1 && hits[r]);
}

void Futterkomponenten::Command2_Click() {
  m_dialogs.setClipboardText(gridClipboardText(*m_grid).toStdString());
}

void Futterkomponenten::PrintButton_Click() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!m_dialogs.choosePrinter(printer)) return;
  PrintGrid(printer, *m_grid, kMarginLeft, kMarginTop, kMarginRight, kMarginBottom,
            "Pescavo - Substance: " + m_substances->currentText(), QString(), 0);
}

}  // namespace pescavo
