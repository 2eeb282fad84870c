#include "database/Komponentenliste.h"

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

namespace {

// Key codes as the editor counts them.
int keyCode(int key, Qt::KeyboardModifiers modifiers) {
  const bool keypad = modifiers & Qt::KeypadModifier;
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return (keypad ? 96 : 48) + key - Qt::Key_0;
  switch (key) {
    case Qt::Key_Delete:
      return 46;
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Comma:
      return keypad ? 110 : 188;
    case Qt::Key_Period:
      return keypad ? 110 : 190;
    default:
      return -1;
  }
}

}  // namespace

Komponentenliste::Komponentenliste(ComponentTable& table, DesktopDialogs& dialogs, QWidget* parent,
                                   std::function<QString()> cursorFile)
    : QDialog(parent), m_editor(table), m_dialogs(dialogs) {
  setObjectName("Komponentenliste");
  setWindowTitle("List of Feed Components");
  setAccessibleName("List of Feed Components");
  setModal(true);
  m_grid = makeGrid(this, ComponentEditor::kColumns);
  m_edit = new QLineEdit(m_grid->viewport());
  m_edit->setObjectName("EingabeText");
  m_edit->setAccessibleName("Cell text");
  m_edit->hide();
  m_category = new QComboBox(m_grid->viewport());
  m_category->setObjectName("KategorieCombo");
  m_category->setAccessibleName("Category");
  for (const char* item : kComponentCategories) m_category->addItem(item);
  m_category->hide();
  m_search = new QLineEdit("Search", this);
  m_search->setObjectName("Suche2");
  m_search->setAccessibleName("Search text");

  auto* buttons = new QHBoxLayout;
  QPushButton* neu = button(this, "Neuer_Datensatz", "New Record", true);
  QPushButton* loeschen = button(this, "Loeschen", "Del Record", true);
  QPushButton* abbrechen = button(this, "Abbrechen", "Cancel", true);
  QPushButton* fertig = button(this, "Fertig", "Done", true);
  QPushButton* save = button(this, "Command2", "Save", false);
  QPushButton* copy = button(this, "Command1", "Copy to Clipboard", false);
  QPushButton* print = button(this, "PrintButton", "Print", false);
  QPushButton* go = button(this, "go2", "Go", false);
  for (QWidget* w :
       {static_cast<QWidget*>(neu), static_cast<QWidget*>(loeschen), static_cast<QWidget*>(save),
        static_cast<QWidget*>(copy), static_cast<QWidget*>(print), static_cast<QWidget*>(m_search),
        static_cast<QWidget*>(go)})
    buttons->addWidget(w);
  buttons->addStretch();
  buttons->addWidget(abbrechen);
  buttons->addWidget(fertig);
  auto* page = new QVBoxLayout(this);
  page->addWidget(m_grid, 1);
  page->addLayout(buttons);
  resize(1100, 600);

  connect(neu, &QPushButton::clicked, this, &Komponentenliste::Neuer_Datensatz_Click);
  connect(loeschen, &QPushButton::clicked, this, &Komponentenliste::Loeschen_Click);
  connect(abbrechen, &QPushButton::clicked, this, &QDialog::reject);
  connect(fertig, &QPushButton::clicked, this, &Komponentenliste::Fertig_Click);
  connect(save, &QPushButton::clicked, this, &Komponentenliste::Command2_Click);
  connect(copy, &QPushButton::clicked, this, &Komponentenliste::Command1_Click);
  connect(print, &QPushButton::clicked, this, &Komponentenliste::PrintButton_Click);
  connect(go, &QPushButton::clicked, this, &Komponentenliste::go2_Click);
  connect(m_search, &QLineEdit::returnPressed, this, &Komponentenliste::go2_Click);
  connect(m_grid, &QTableWidget::cellClicked, this, &Komponentenliste::cellClicked);
  connect(m_category, QOverload<int>::of(&QComboBox::activated), this, [this](int item) {
    takeCursor();
    m_editor.chooseCategory(item);
    m_category->hide();
    showCells();
  });
  m_grid->installEventFilter(this);
  m_edit->installEventFilter(this);
  showCells();
  useHandPointers(this, ComponentWindow::Komponentenliste, std::move(cursorFile));
}

void Komponentenliste::showCells() {
  const int rows = m_editor.rowCount() - 1;
  m_grid->setUpdatesEnabled(false);
  m_grid->setRowCount(rows);
  QStringList headers;
  for (int c = 0; c < ComponentEditor::kColumns; ++c) headers << qtext(m_editor.cell(0, c));
  m_grid->setHorizontalHeaderLabels(headers);
  for (int r = 1; r <= rows; ++r) {
    for (int c = 0; c < ComponentEditor::kColumns; ++c) {
      QTableWidgetItem* item = m_grid->item(r - 1, c);
      if (item == nullptr) {
        item = new QTableWidgetItem;
        m_grid->setItem(r - 1, c, item);
      }
      const QString text = qtext(m_editor.cell(r, c));
      if (item->text() != text) item->setText(text);
      setBackground(item, m_editor.marked(r, c));
    }
  }
  m_grid->setUpdatesEnabled(true);
}

void Komponentenliste::showMarks() {
  for (int r = 1; r < m_editor.rowCount(); ++r)
    for (int c = 0; c < ComponentEditor::kColumns; ++c)
      setBackground(m_grid->item(r - 1, c), m_editor.marked(r, c));
}

void Komponentenliste::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  shareWidth(m_grid, {16, 14, 16, 8, 8, 8, 7, 11, 11}, width());
}

// The grid's current cell and the other corner of its selection, in the editor's rows.
void Komponentenliste::takeCursor() {
  const int row = m_grid->currentRow() + 1;
  const int column = std::max(m_grid->currentColumn(), 0);
  int rowEnd = row, columnEnd = column;
  const QList<QTableWidgetSelectionRange> ranges = m_grid->selectedRanges();
  if (!ranges.isEmpty()) {
    const QTableWidgetSelectionRange& range = ranges.last();
    rowEnd = (range.topRow() + 1 == row ? range.bottomRow() : range.topRow()) + 1;
    columnEnd = range.leftColumn() == column ? range.rightColumn() : range.leftColumn();
  }
  m_editor.setCursor(row, column, rowEnd, columnEnd);
}

void Komponentenliste::placeOverCurrentCell(QWidget* editor) {
  const QRect cell = m_grid->visualItemRect(m_grid->currentItem());
  editor->setGeometry(cell);
  editor->show();
  editor->raise();
  editor->setFocus();
}

void Komponentenliste::cellClicked() {
  takeCursor();
  if (m_editor.currentRow() < 1) return;
  if (m_editor.cellClicked() == ComponentEditor::GridEditor::CategoryChooser) {
    m_edit->hide();
    m_category->setCurrentIndex(m_editor.categoryItem());
    placeOverCurrentCell(m_category);
  } else {
    m_category->hide();
    m_edit->setText(qtext(m_editor.editText()));
    placeOverCurrentCell(m_edit);
  }
}

bool Komponentenliste::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_edit && event->type() == QEvent::MouseButtonPress) {
    takeCursor();
    m_editor.setEditText(m_edit->text().toStdString());
    m_editor.editClick();
    m_category->hide();
    showCells();
    return false;
  }
  if (watched == m_edit && event->type() == QEvent::MouseButtonDblClick) {
    m_editor.setEditText(m_edit->text().toStdString());
    m_editor.editClick();
    m_edit->hide();
    showCells();
    return true;
  }
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  if (watched == m_edit) return editBoxKey(key->key(), key->modifiers(), key->text());
  if (watched == m_grid) return gridKey(key->key(), key->modifiers(), key->text());
  return QDialog::eventFilter(watched, event);
}

bool Komponentenliste::editBoxKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  m_editor.setEditText(m_edit->text().toStdString());
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    const std::optional<int> row = m_editor.editEnter();
    showCells();
    if (!row) {
      m_edit->hide();
      return true;
    }
    m_grid->setCurrentCell(*row - 1, m_editor.currentColumn());
    m_edit->setText(qtext(m_editor.editText()));
    placeOverCurrentCell(m_edit);
    return true;
  }
  if (key == Qt::Key_Tab) {
    const std::optional<int> column = m_editor.editTab();
    if (column) {
      showCells();
      m_grid->setCurrentCell(m_editor.currentRow() - 1, *column);
      m_edit->setText(qtext(m_editor.editText()));
      placeOverCurrentCell(m_edit);
    }
    return true;
  }
  if (key == Qt::Key_C && (modifiers & Qt::ControlModifier)) {
    m_dialogs.setClipboardText(m_editor.editText());
    return true;
  }
  if (modifiers & Qt::ControlModifier) return false;
  if (text.size() != 1 || !text[0].isPrint()) return false;  // caret keys, Backspace
  const std::string before = m_editor.editText();
  const bool passes = m_editor.editKeyPress(text[0].unicode());
  if (m_editor.editText() != before) m_edit->setText(qtext(m_editor.editText()));
  return !passes;
}

bool Komponentenliste::gridKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  takeCursor();
  if (m_editor.currentRow() < 1) return false;
  if (m_editor.currentColumn() < 3 && key != Qt::Key_Delete) {
    if (text.size() != 1 || (!text[0].isPrint() && key != Qt::Key_Backspace)) return false;
    m_editor.gridKeyPress(key == Qt::Key_Backspace ? 8 : text[0].unicode());
    showCells();
    return true;
  }
  const int code = keyCode(key, modifiers);
  if (code < 0) return false;
  if (m_editor.gridKeyDown(code)) {
    reject();
    return true;
  }
  showCells();
  return true;
}

void Komponentenliste::Neuer_Datensatz_Click() {
  m_grid->setFocus();
  if (!m_editor.Neuer_Datensatz()) return;
  showCells();
  m_grid->setCurrentCell(m_editor.currentRow() - 1, m_editor.currentColumn());
}

void Komponentenliste::Loeschen_Click() {
  takeCursor();
  if (!m_dialogs.askYesNo("Do you really want to delete the selected record?")) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  if (m_editor.Loeschen()) {
    m_edit->hide();
    m_category->hide();
    showCells();
    if (m_editor.currentRow() >= 1)
      m_grid->setCurrentCell(m_editor.currentRow() - 1, m_editor.currentColumn());
  }
  QApplication::restoreOverrideCursor();
}

void Komponentenliste::Fertig_Click() {
  takeCursor();
  const bool closes = m_editor.Fertig();
  showMarks();
  if (closes) return accept();
  m_dialogs.information("Please check your changes.");
}

void Komponentenliste::Command2_Click() {
  takeCursor();
  m_editor.readBack();
  showMarks();
}

void Komponentenliste::Command1_Click() { m_dialogs.setClipboardText(m_editor.clipboardText()); }

void Komponentenliste::PrintButton_Click() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!m_dialogs.choosePrinter(printer)) return;
  PrintGrid(printer, *m_grid, kMarginLeft, kMarginTop, kMarginRight, kMarginBottom,
            "Pescavo List of Feed Components", QString(), 0);
}

void Komponentenliste::go2_Click() {
  m_editor.search(m_search->text().toStdString());
  showMarks();
}

}  // namespace pescavo
