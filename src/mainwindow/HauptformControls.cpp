#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTextEdit>
#include <QToolButton>

#include "desktop/HandPointer.h"
#include "desktop/Pictures.h"
#include "desktop/Twips.h"
#include "mainwindow/Hauptform.h"
#include "model/PointerRules.h"

namespace pescavo {

namespace {

enum class Kind {
  Label,
  Button,
  List,
  MultiList,
  Text,
  Combo,
  Grid,
  Frame,
  Option,
  Check,
  Rich,
  Image,
  Line,
  Menu
};

using C = ControlId;

Kind kindOf(ControlId id) {
  static const std::map<ControlId, Kind> kinds = {{C::Schadstoffliste, Kind::List},
                                                  {C::Fischfutter1, Kind::MultiList},
                                                  {C::Fischfutter2, Kind::MultiList},
                                                  {C::Schadstoffname, Kind::Text},
                                                  {C::EingabeSchadstoff, Kind::Text},
                                                  {C::Suche, Kind::Text},
                                                  {C::ArtSchadstoffwertCombo, Kind::Combo},
                                                  {C::Fischmehl, Kind::Combo},
                                                  {C::Fischarten, Kind::Combo},
                                                  {C::MinMax, Kind::Combo},
                                                  {C::schadstoffwerte, Kind::Grid},
                                                  {C::Frame1, Kind::Frame},
                                                  {C::Frame2, Kind::Frame},
                                                  {C::Option1, Kind::Option},
                                                  {C::Option2, Kind::Option},
                                                  {C::Option3, Kind::Option},
                                                  {C::Option4, Kind::Option},
                                                  {C::Check1, Kind::Check},
                                                  {C::Check2, Kind::Check},
                                                  {C::Check4, Kind::Check},
                                                  {C::Check5, Kind::Check},
                                                  {C::Ergebnis, Kind::Rich},
                                                  {C::Gegenpruefung, Kind::Label},
                                                  {C::Line1, Kind::Line},
                                                  {C::Line2, Kind::Line},
                                                  {C::restore, Kind::Menu},
                                                  {C::MenuEdit, Kind::Menu}};
  if (const auto found = kinds.find(id); found != kinds.end()) return found->second;
  const std::string name = controlName(id);
  if (name.rfind("Label", 0) == 0 || id == C::FischmehlCaption) return Kind::Label;
  if (name.rfind("Image", 0) == 0) return Kind::Image;
  return Kind::Button;
}

QString withoutAccelerator(const std::string& caption) {
  return QString::fromStdString(caption).remove('&');
}

}  // namespace

void Hauptform::buildControls() {
  auto* central = new QWidget(this);
  central->setObjectName("HauptformClient");
  setCentralWidget(central);
  const MainWindowLayout& layout = m_model->layout();
  for (ControlId id : allControls()) {
    const ControlState& state = layout.at(id);
    if (kindOf(id) == Kind::Menu) continue;
    QWidget* parent = state.parent ? m_controls[index(*state.parent)] : central;
    QWidget* widget = makeControl(id, state, parent);
    widget->setObjectName(controlName(id));
    const std::string& accessible =
        state.accessibleName.empty() ? state.caption : state.accessibleName;
    widget->setAccessibleName(withoutAccelerator(accessible));
    if (!state.tooltip.empty()) widget->setToolTip(QString::fromStdString(state.tooltip));
    m_controls[index(id)] = widget;
  }
  m_available = control<QListWidget>(C::Fischfutter1);
  auto* grid = control<QTableWidget>(C::schadstoffwerte);
  grid->setColumnCount(6);
  grid->verticalHeader()->hide();
  control<QComboBox>(C::MinMax)->addItems({kMinMaxItems[0], kMinMaxItems[1]});
  control<QComboBox>(C::ArtSchadstoffwertCombo)->addItems({kBasisItems[0], kBasisItems[1]});
  control<QPushButton>(C::Optimierung)->setStyleSheet("background-color: rgb(0, 192, 0);");
  control<QLabel>(C::FischmehlCaption)->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* check = control<QLabel>(C::Gegenpruefung);
  check->setWordWrap(true);
  check->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  check->setTextFormat(Qt::PlainText);
  auto* result = control<QTextEdit>(C::Ergebnis);
  result->setReadOnly(true);
  result->setFrameShape(QFrame::StyledPanel);
  // The small box shows the whole statement of a usual substance name without scrolling.
  result->document()->setDocumentMargin(2);
  QFont resultFont = result->font();
  resultFont.setPointSize(7);
  result->setFont(resultFont);
}

QWidget* Hauptform::makeControl(ControlId id, const ControlState& state, QWidget* parent) {
  const QString caption = QString::fromStdString(state.caption);
  switch (kindOf(id)) {
    case Kind::Label:
      return new QLabel(caption, parent);
    case Kind::List:
      return new QListWidget(parent);
    case Kind::MultiList: {
      auto* list = new QListWidget(parent);
      list->setSelectionMode(QAbstractItemView::ExtendedSelection);
      return list;
    }
    case Kind::Text:
      return new QLineEdit(caption, parent);
    case Kind::Combo:
      return new QComboBox(parent);
    case Kind::Grid:
      return new QTableWidget(parent);
    case Kind::Frame:
      return new QGroupBox(caption, parent);
    case Kind::Option:
      return new QRadioButton(caption, parent);
    case Kind::Check:
      return new QCheckBox(caption, parent);
    case Kind::Rich:
      return new QTextEdit(parent);
    case Kind::Image: {
      auto* image = new QToolButton(parent);
      image->setAutoRaise(true);
      image->setStyleSheet("QToolButton { border: none; padding: 0; }");
      const int size = twipsToPixels(state.width);
      image->setIcon(id == C::Image1 ? QIcon(logoPicture(size)) : QIcon(informationPicture(size)));
      image->setIconSize(QSize(size, size));
      return image;
    }
    case Kind::Line: {
      auto* line = new QFrame(parent);
      line->setFrameShape(QFrame::VLine);
      line->setFrameShadow(QFrame::Sunken);
      return line;
    }
    case Kind::Button:
    case Kind::Menu:
      break;
  }
  auto* button = new QPushButton(caption, parent);
  button->setAutoDefault(false);
  return button;
}

void Hauptform::buildMenus() {
  QMenu* program = menuBar()->addMenu("&Program");
  program->setObjectName("MenuProgramm");
  const auto item = [this](QMenu* menu, const char* name, const QString& caption,
                           const QKeySequence& shortcut = QKeySequence()) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    return action;
  };
  QAction* restore = item(program, controlName(C::restore), "&restore original data base");
  m_menuItems[index(C::restore)] = restore;
  connect(restore, &QAction::triggered, this, &Hauptform::restore_Click);
  connect(item(program, "save", "&save", QKeySequence("Ctrl+S")), &QAction::triggered, this,
          &Hauptform::save_Click);
  connect(item(program, "exit", "e&xit", QKeySequence("Ctrl+E")), &QAction::triggered, this,
          &Hauptform::exit_Click);
  buildAllOptionsEntry(program);
  buildScreeningEntry(program);
  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName(controlName(C::MenuEdit));
  connect(item(edit, "MenuFischfutter", "&Feed components"), &QAction::triggered, this,
          &Hauptform::MenuFischfutter_Click);
  edit->menuAction()->setObjectName(controlName(C::MenuEdit));
  m_menuItems[index(C::MenuEdit)] = edit->menuAction();
  QMenu* info = menuBar()->addMenu("?");
  info->setObjectName("Info");
  connect(item(info, "menuHilfe", "&Help", QKeySequence(Qt::Key_F1)), &QAction::triggered, this,
          &Hauptform::help_Click);
  connect(item(info, "M_About", "&About"), &QAction::triggered, this, [this] { showAbout(true); });
}

void Hauptform::connectControls() {
  auto* substances = control<QListWidget>(C::Schadstoffliste);
  connect(substances, &QListWidget::currentRowChanged, this, &Hauptform::Schadstoffliste_Click);
  const auto onClick = [this](ControlId name, void (Hauptform::*handler)()) {
    connect(control<QAbstractButton>(name), &QAbstractButton::clicked, this, handler);
  };
  const auto onMove = [this](ControlId name, std::function<void()> move) {
    connect(control<QAbstractButton>(name), &QAbstractButton::clicked, this, move);
  };
  using S = ComponentSelection;
  onMove(C::Rein, [this] {
    forwardAvailableSelection();
    moveComponents(&S::Rein);
  });
  onMove(C::alle_rein, [this] {
    moveComponents(&S::alle_rein);
    showAvailableSelection();
  });
  onMove(C::raus, [this] {
    m_model->selection().setCurrentChosen(control<QListWidget>(C::Fischfutter2)->currentRow());
    moveComponents(&S::raus);
  });
  onMove(C::alle_raus, [this] { moveComponents(&S::alle_raus); });
  onClick(C::Optimierung, &Hauptform::Optimierung_Click);
  onClick(C::Optimierung2, &Hauptform::Optimierung2_Click);
  onClick(C::ReportButton, &Hauptform::ReportButton_Click);
  onClick(C::Ende, &Hauptform::exit_Click);
  onClick(C::Command1, &Hauptform::Command1_Click);
  connect(control<QAbstractButton>(C::Image1), &QAbstractButton::clicked, this,
          [this] { showAbout(false); });
  const std::pair<ControlId, InformationImage> images[] = {
      {C::Image2, InformationImage::Image2}, {C::Image3, InformationImage::Image3},
      {C::Image4, InformationImage::Image4}, {C::Image5, InformationImage::Image5},
      {C::Image6, InformationImage::Image6}, {C::Image7, InformationImage::Image7},
      {C::Image8, InformationImage::Image8}};
  for (const auto& [id, image] : images) {
    connect(control<QAbstractButton>(id), &QAbstractButton::clicked, this,
            [this, image = image] { showInformation(image); });
  }
  connect(m_available, &QListWidget::pressed, this, &Hauptform::availablePressed);
  m_availableView = m_available->viewport();
  m_availableView->setMouseTracking(true);
  m_availableView->installEventFilter(this);
  connectOptions();
  useHandPointers();
  connectSubstanceEditing();
}

void Hauptform::applyLayout() {
  const MainWindowLayout& layout = m_model->layout();
  for (ControlId name : allControls()) {
    const ControlState& state = layout.at(name);
    if (QAction* menu = m_menuItems[index(name)]) {
      menu->setVisible(state.visible);
      continue;
    }
    QWidget* widget = m_controls[index(name)];
    widget->setGeometry(rectFromTwips(state.left, state.top, state.width, state.height));
    widget->setVisible(m_model->visible(name));
    widget->setEnabled(m_model->enabled(name));
    std::string& shown = m_shownCaptions[index(name)];
    if (shown == state.caption) continue;
    shown = state.caption;
    const QString caption = QString::fromStdString(state.caption);
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
      button->setText(caption);
    else if (auto* label = qobject_cast<QLabel*>(widget))
      label->setText(caption);
    else if (auto* text = qobject_cast<QLineEdit*>(widget)) {
      text->setText(caption);
      text->setCursorPosition(0);  // a long substance name shows its beginning
    } else if (auto* frame = qobject_cast<QGroupBox*>(widget))
      frame->setTitle(caption);
    if (!caption.isEmpty() && state.accessibleName.empty())
      widget->setAccessibleName(withoutAccelerator(state.caption));
  }
  showScreeningEntry();
  auto* chosenCaption = control<QLabel>(C::Label1);
  QPalette palette = chosenCaption->palette();
  palette.setColor(QPalette::WindowText,
                   m_model->chosenCaptionRed() ? QColor(255, 0, 0) : QColor(0, 0, 0));
  chosenCaption->setPalette(palette);
  chosenCaption->repaint();
  centralWidget()->setFixedSize(twipsToPixels(layout.width()),
                                twipsToPixels(MainWindowLayout::kHeight));
  setFixedSize(centralWidget()->width(),
               centralWidget()->height() + menuBar()->sizeHint().height());
}

// The hand from harrow.cur in the input folder, over the controls and at the times the rules
// say; lists and the grid take it on their viewport, where the mouse is.
std::function<QString()> Hauptform::cursorFile() const {
  return [this] { return QString::fromStdString(m_model->database().folder() + "/harrow.cur"); };
}

void Hauptform::useHandPointers() {
  const std::function<QString()> file = cursorFile();
  for (ControlId id : allControls()) {
    const HandPointerRule rule = handPointerRule(id);
    if (rule == HandPointerRule::Never) continue;
    QWidget* target = m_controls[index(id)];
    if (auto* area = qobject_cast<QAbstractScrollArea*>(target)) target = area->viewport();
    if (rule == HandPointerRule::Always) {
      useHandPointer(target, file);
      continue;
    }
    useHandPointerWhile(target, file, [this, id, rule](bool clicked) {
      const ComponentSelection& lists = m_model->selection();
      const std::size_t items =
          id == ControlId::Fischfutter1 ? lists.available().size() : lists.chosen().size();
      return showsHandPointer(rule, static_cast<int>(items),
                              m_model->substances().editor().grid().column(), clicked);
    });
  }
}

}  // namespace pescavo
