// The substance database: the substance list's double-click and keys, the buttons that add,
// edit, copy, delete and cancel, and, while a substance is added or edited, the residue grid
// with its in-place editors and the search.

#include <QAbstractButton>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTableWidget>

#include "desktop/DesktopDialogs.h"
#include "mainwindow/Hauptform.h"
#include "mainwindow/ResidueGridView.h"

namespace pescavo {

namespace {

// The model counts the edit box's text in UTF-8 bytes, the line edit in UTF-16 units.
int bytesBefore(const QString& text, int position) {
  return static_cast<int>(text.left(position).toUtf8().size());
}
int unitsBefore(const std::string& text, int bytes) {
  return static_cast<int>(QString::fromUtf8(text.data(), bytes).size());
}

// Pure green: with a border of its own the style draws no shading over it.
void paintGreen(QWidget& editor) {
  editor.setStyleSheet(QString("%1 { background-color: rgb(0, 255, 0); border: 1px solid "
                               "rgb(0, 96, 0); padding-left: 2px; }")
                           .arg(editor.metaObject()->className()));
}

Qt::MouseButton button(const QEvent* event) {
  return static_cast<const QMouseEvent*>(event)->button();
}

}  // namespace

void Hauptform::connectSubstanceEditing() {
  auto* substances = control<QListWidget>(C::Schadstoffliste);
  connect(substances, &QListWidget::itemDoubleClicked, this,
          [this] { substanceCommand(&SubstanceEditing::Schadstoffliste_DblClick); });
  auto* listKeys = new EventHook(
      {QEvent::KeyPress},
      [this](QObject*, QEvent* event) { return Schadstoffliste_KeyDown(event); }, this);
  listKeys->watch(substances);
  const auto command = [this](ControlId name, void (SubstanceEditing::*operation)()) {
    connect(control<QAbstractButton>(name), &QAbstractButton::clicked, this,
            [this, operation] { substanceCommand(operation); });
  };
  command(C::Add, &SubstanceEditing::Add_Click);
  command(C::Edit, &SubstanceEditing::Edit_Click);
  command(C::Kopieren, &SubstanceEditing::Kopieren_Click);
  command(C::Loeschen, &SubstanceEditing::Loeschen_Click);
  command(C::Abbrechen, &SubstanceEditing::Abbrechen_Click);

  m_gridView = new ResidueGridView(control<QTableWidget>(C::schadstoffwerte));
  connect(m_gridView, &ResidueGridView::cursorChanged, this, [this](int row, int column, int end) {
    m_model->substances().editor().setGridCursor(row, column, end);
  });
  connect(m_gridView, &ResidueGridView::clicked, this, &Hauptform::schadstoffwerte_Click);
  connect(m_gridView, &ResidueGridView::keyPressed, this, &Hauptform::schadstoffwerte_KeyDown);
  connect(m_gridView, &ResidueGridView::wheelTurned, this, &Hauptform::schadstoffwerte_Wheel);
  connect(m_gridView, &ResidueGridView::scrolled, this, &Hauptform::followGridScroll);

  auto* box = control<QLineEdit>(C::EingabeSchadstoff);
  paintGreen(*box);
  // Every character reaches the box through the model's numeric filter: no menu, no drops.
  box->setContextMenuPolicy(Qt::NoContextMenu);
  box->setAcceptDrops(false);
  auto* boxEvents = new EventHook(
      {QEvent::KeyPress, QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
       QEvent::MouseButtonDblClick},
      [this](QObject*, QEvent* event) { return EingabeSchadstoff_Event(event); }, this);
  boxEvents->watch(box);
  connect(box, &QLineEdit::textEdited, this, &Hauptform::editBoxChanged);
  connect(box, &QLineEdit::cursorPositionChanged, this, &Hauptform::editBoxChanged);
  connect(box, &QLineEdit::selectionChanged, this, &Hauptform::editBoxChanged);

  auto* basis = control<QComboBox>(C::ArtSchadstoffwertCombo);
  paintGreen(*basis);
  connect(basis, QOverload<int>::of(&QComboBox::activated), this,
          &Hauptform::ArtSchadstoffwertCombo_Click);

  // What is typed into the two text boxes is the model's caption from then on.
  const auto typedInto = [this](ControlId name, void (ResidueEditor::*set)(std::string)) {
    connect(control<QLineEdit>(name), &QLineEdit::textEdited, this,
            [this, name, set](const QString& text) {
              (m_model->substances().editor().*set)(text.toStdString());
              m_shownCaptions[index(name)] = text.toStdString();
            });
  };
  typedInto(C::Suche, &ResidueEditor::setSearchText);
  typedInto(C::Schadstoffname, &ResidueEditor::setNameText);
  connect(control<QLineEdit>(C::Suche), &QLineEdit::returnPressed, this, &Hauptform::Go_Click);
  connect(control<QAbstractButton>(C::Go), &QAbstractButton::clicked, this, &Hauptform::Go_Click);
  auto* name = control<QLineEdit>(C::Schadstoffname);
  auto* nameClicks = new EventHook(
      {QEvent::MouseButtonRelease},
      [name](QObject*, QEvent* event) {
        if (event->type() == QEvent::MouseButtonRelease && button(event) == Qt::LeftButton)
          name->selectAll();
        return false;
      },
      this);
  nameClicks->watch(name);
}

void Hauptform::substanceCommand(void (SubstanceEditing::*operation)()) {
  const bool wasEditing = m_model->substances().editor().editing();
  (m_model->substances().*operation)();
  showAll();
  if (!wasEditing && m_model->substances().editor().editing()) m_gridView->table()->setFocus();
}

bool Hauptform::Schadstoffliste_KeyDown(QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const int code = virtualKey(*key);
  const bool control = key->modifiers() & Qt::ControlModifier;
  m_model->substances().Schadstoffliste_KeyDown(code, control);
  // Delete and Ctrl+C are the model's; every other key moves through the list as usual.
  if (code != VirtualKey::kDelete && !(code == VirtualKey::kKeyC && control)) return false;
  showAll();
  return true;
}

void Hauptform::showGrid() {
  if (!m_model->substances().editor().editing()) return;
  const ControlState& place = m_model->layout().at(C::schadstoffwerte);
  m_gridView->setColumnWidths(
      ResidueGrid::columnWidths(place.width, place.width - m_gridView->chromeWidth()));
  m_gridView->show(m_model->substances().editor().grid());
}

void Hauptform::schadstoffwerte_Click() {
  placeEditor(m_model->substances().editor().schadstoffwerte_Click());
}

void Hauptform::placeEditor(SubstanceEditing::GridEditor editor) {
  if (editor == SubstanceEditing::GridEditor::None) return;
  const ControlState& grid = m_model->layout().at(C::schadstoffwerte);
  const std::pair<int, int> at{m_model->substances().editor().grid().row(),
                               m_model->substances().editor().grid().column()};
  const TwipsRect cell = m_gridView->cellRect(at.first, at.second);
  if (editor == SubstanceEditing::GridEditor::EditBox) {
    m_editBoxCell = at;
    m_model->substances().editor().Eingabefeld_platzieren(grid.left, grid.top, cell);
    applyLayout();
    clipEditors();
    showEditBox();
    auto* box = control<QLineEdit>(C::EingabeSchadstoff);
    box->raise();
    box->setFocus();
    return;
  }
  m_chooserCell = at;
  m_model->substances().editor().Auswahlfeld_platzieren(grid.left, grid.top, cell);
  applyLayout();
  clipEditors();
  auto* basis = control<QComboBox>(C::ArtSchadstoffwertCombo);
  const QSignalBlocker quiet(basis);
  basis->setCurrentIndex(m_model->substances().editor().grid().basisChoice());
  basis->raise();
}

void Hauptform::followGridScroll() {
  const MainWindowLayout& layout = m_model->layout();
  const bool box = layout.at(C::EingabeSchadstoff).visible;
  const bool chooser = layout.at(C::ArtSchadstoffwertCombo).visible;
  if (!m_model->substances().editor().editing() || !(box || chooser)) return;
  const ControlState& grid = layout.at(C::schadstoffwerte);
  if (box) {
    // Placing selects the box's text; scrolling leaves it as the user had it.
    const NumericEditBox kept = m_model->substances().editor().grid().editBox();
    m_model->substances().editor().Eingabefeld_platzieren(
        grid.left, grid.top, m_gridView->cellPlace(m_editBoxCell.first, m_editBoxCell.second));
    m_model->substances().editor().setEditBox(kept.text(), kept.selectionStart(),
                                              kept.selectionLength());
  }
  if (chooser) {
    m_model->substances().editor().Auswahlfeld_platzieren(
        grid.left, grid.top, m_gridView->cellPlace(m_chooserCell.first, m_chooserCell.second));
  }
  applyLayout();
  clipEditors();
}

void Hauptform::clipEditors() {
  const QRect cells = m_gridView->cellsOn(centralWidget());
  for (ControlId name : {C::EingabeSchadstoff, C::ArtSchadstoffwertCombo}) {
    QWidget* editor = control<QWidget>(name);
    const QRect place = editor->geometry();
    if (cells.contains(place)) {
      editor->clearMask();
    } else {
      // Out of view altogether: a region beside the editor, since an empty one masks nothing.
      const QRect shown = cells.intersected(place).translated(-place.topLeft());
      editor->setMask(shown.isEmpty() ? QRegion(-1, -1, 1, 1) : QRegion(shown));
    }
  }
}

void Hauptform::schadstoffwerte_KeyDown(int key, bool control) {
  if (const std::optional<std::string> copied =
          m_model->substances().schadstoffwerte_KeyDown(key, control))
    m_dialogs.setClipboardText(*copied);
  if (m_model->substances().editor().editing())
    showGrid();
  else
    showAll();  // Escape cancelled
}

void Hauptform::schadstoffwerte_Wheel(int rotation) {
  const std::optional<int> top = m_model->substances().editor().MouseWheel(
      rotation, m_gridView->topRow(), m_gridView->table()->height(), m_gridView->headerHeight());
  if (top) m_gridView->setTopRow(*top);
}

bool Hauptform::EingabeSchadstoff_Event(QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return EingabeSchadstoff_KeyPress(event);
    case QEvent::MouseButtonPress:
      return button(event) == Qt::MiddleButton;  // no pasting of the selection past the filter
    case QEvent::MouseButtonRelease:
      // After a double-click has hidden the box, its last release is no click.
      if (button(event) != Qt::LeftButton || !control<QLineEdit>(C::EingabeSchadstoff)->isVisible())
        return false;
      m_model->substances().editor().EingabeSchadstoff_Click();
      showGrid();
      applyLayout();
      return false;
    case QEvent::MouseButtonDblClick:
      if (button(event) != Qt::LeftButton) return false;
      m_model->substances().editor().EingabeSchadstoff_DblClick();
      showGrid();
      applyLayout();
      m_gridView->table()->setFocus();
      return true;
    default:
      return false;
  }
}

bool Hauptform::EingabeSchadstoff_KeyPress(QEvent* event) {
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    const std::optional<int> next = m_model->substances().editor().EingabeSchadstoff_Enter();
    showGrid();
    if (next) {
      placeEditor(SubstanceEditing::GridEditor::EditBox);
    } else {
      applyLayout();
      m_gridView->table()->setFocus();
    }
    return true;
  }
  if (key->matches(QKeySequence::Copy)) {
    m_dialogs.setClipboardText(m_model->substances().editor().EingabeSchadstoff_Copy());
    return true;
  }
  if (key->matches(QKeySequence::Paste)) {
    m_model->substances().editor().EingabeSchadstoff_Paste(m_dialogs.clipboardText());
    showGrid();
    applyLayout();
    m_gridView->table()->setFocus();
    return true;
  }
  if (key->matches(QKeySequence::Cut)) return true;
  // Delete, Tab and the caret keys are the box's own; what they did is reported after.
  if (key->key() == Qt::Key_Delete || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
    return false;
  int character = key->key() == Qt::Key_Backspace ? VirtualKey::kBackspace : -1;
  if (character < 0 && !key->text().isEmpty()) character = key->text().at(0).unicode();
  if (character < 0) return false;
  m_model->substances().editor().EingabeSchadstoff_KeyPress(character);
  showEditBox();
  return true;
}

void Hauptform::showEditBox() {
  auto* box = control<QLineEdit>(C::EingabeSchadstoff);
  const NumericEditBox& edit = m_model->substances().editor().grid().editBox();
  const std::string& text = edit.text();
  const int start = unitsBefore(text, edit.selectionStart());
  const int end = unitsBefore(text, edit.selectionStart() + edit.selectionLength());
  m_showingEditBox = true;
  const QString shown = QString::fromStdString(text);
  if (box->text() != shown) box->setText(shown);
  if (end > start)
    box->setSelection(start, end - start);
  else
    box->setCursorPosition(start);
  m_showingEditBox = false;
}

void Hauptform::editBoxChanged() {
  if (m_showingEditBox) return;
  auto* box = control<QLineEdit>(C::EingabeSchadstoff);
  const QString text = box->text();
  const int start = box->hasSelectedText() ? box->selectionStart() : box->cursorPosition();
  const int length = box->hasSelectedText() ? box->selectionLength() : 0;
  const int startBytes = bytesBefore(text, start);
  m_model->substances().editor().setEditBox(text.toStdString(), startBytes,
                                            bytesBefore(text, start + length) - startBytes);
}

void Hauptform::ArtSchadstoffwertCombo_Click(int position) {
  m_model->substances().ArtSchadstoffwertCombo_Click(position);
  showGrid();
  applyLayout();
  m_gridView->table()->setFocus();
}

void Hauptform::Go_Click() {
  m_model->substances().editor().Go_Click();
  showGrid();
}

}  // namespace pescavo
