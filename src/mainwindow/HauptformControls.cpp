#include <QAbstractButton>
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

#include "desktop/Pictures.h"
#include "desktop/Twips.h"
#include "mainwindow/Hauptform.h"

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

Kind kindOf(const std::string& name) {
  static const std::map<std::string, Kind> kinds = {{"Schadstoffliste", Kind::List},
                                                    {"Fischfutter1", Kind::MultiList},
                                                    {"Fischfutter2", Kind::MultiList},
                                                    {"Schadstoffname", Kind::Text},
                                                    {"EingabeSchadstoff", Kind::Text},
                                                    {"Suche", Kind::Text},
                                                    {"ArtSchadstoffwertCombo", Kind::Combo},
                                                    {"Fischmehl", Kind::Combo},
                                                    {"Fischarten", Kind::Combo},
                                                    {"MinMax", Kind::Combo},
                                                    {"schadstoffwerte", Kind::Grid},
                                                    {"Frame1", Kind::Frame},
                                                    {"Frame2", Kind::Frame},
                                                    {"Option1", Kind::Option},
                                                    {"Option2", Kind::Option},
                                                    {"Option3", Kind::Option},
                                                    {"Option4", Kind::Option},
                                                    {"Check1", Kind::Check},
                                                    {"Check2", Kind::Check},
                                                    {"Check4", Kind::Check},
                                                    {"Check5", Kind::Check},
                                                    {"Ergebnis", Kind::Rich},
                                                    {"Gegenpruefung", Kind::Label},
                                                    {"Line1", Kind::Line},
                                                    {"Line2", Kind::Line},
                                                    {"restore", Kind::Menu},
                                                    {"MenuEdit", Kind::Menu}};
  if (const auto found = kinds.find(name); found != kinds.end()) return found->second;
  if (name.rfind("Label", 0) == 0 || name == "FischmehlCaption" || name == "Gegenpruefung")
    return Kind::Label;
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
  for (const std::string& name : layout.names()) {
    const ControlState& state = layout.at(name);
    if (kindOf(name) == Kind::Menu) continue;
    QWidget* parent = state.parent.empty() ? central : m_controls.at(state.parent);
    QWidget* widget = makeControl(name, state, parent);
    widget->setObjectName(QString::fromStdString(name));
    const std::string& accessible =
        state.accessibleName.empty() ? state.caption : state.accessibleName;
    widget->setAccessibleName(withoutAccelerator(accessible));
    if (!state.tooltip.empty()) widget->setToolTip(QString::fromStdString(state.tooltip));
    m_controls.emplace(name, widget);
  }
  auto* grid = control<QTableWidget>("schadstoffwerte");
  grid->setColumnCount(6);
  grid->verticalHeader()->hide();
  control<QComboBox>("MinMax")->addItems({kMinMaxItems[0], kMinMaxItems[1]});
  control<QComboBox>("ArtSchadstoffwertCombo")->addItems({"STMR", "STMR-P"});
  control<QPushButton>("Optimierung")->setStyleSheet("background-color: rgb(0, 192, 0);");
  control<QLabel>("FischmehlCaption")->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* check = control<QLabel>("Gegenpruefung");
  check->setWordWrap(true);
  check->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  check->setTextFormat(Qt::PlainText);
  auto* result = control<QTextEdit>("Ergebnis");
  result->setReadOnly(true);
  result->setFrameShape(QFrame::StyledPanel);
  // The small box shows the whole statement of a usual substance name without scrolling.
  result->document()->setDocumentMargin(2);
  QFont resultFont = result->font();
  resultFont.setPointSize(7);
  result->setFont(resultFont);
}

QWidget* Hauptform::makeControl(const std::string& name, const ControlState& state,
                                QWidget* parent) {
  const QString caption = QString::fromStdString(state.caption);
  switch (kindOf(name)) {
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
      image->setIcon(name == "Image1" ? QIcon(logoPicture(size)) : QIcon(informationPicture(size)));
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
    m_menuItems.emplace(name, action);
    return action;
  };
  connect(item(program, "restore", "&restore original data base"), &QAction::triggered, this,
          &Hauptform::restore_Click);
  connect(item(program, "save", "&save", QKeySequence("Ctrl+S")), &QAction::triggered, this,
          &Hauptform::save_Click);
  connect(item(program, "exit", "e&xit", QKeySequence("Ctrl+E")), &QAction::triggered, this,
          &Hauptform::exit_Click);
  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setObjectName("MenuEdit");
  item(edit, "MenuFischfutter", "&Feed components");
  edit->menuAction()->setObjectName("MenuEdit");
  m_menuItems.emplace("MenuEdit", edit->menuAction());
  QMenu* info = menuBar()->addMenu("?");
  info->setObjectName("Info");
  connect(item(info, "menuHilfe", "&Help", QKeySequence(Qt::Key_F1)), &QAction::triggered, this,
          &Hauptform::help_Click);
  connect(item(info, "M_About", "&About"), &QAction::triggered, this, [this] { showAbout(true); });
}

void Hauptform::connectControls() {
  auto* substances = control<QListWidget>("Schadstoffliste");
  connect(substances, &QListWidget::currentRowChanged, this, &Hauptform::Schadstoffliste_Click);
  const auto onClick = [this](const char* name, void (Hauptform::*handler)()) {
    connect(control<QAbstractButton>(name), &QAbstractButton::clicked, this, handler);
  };
  onClick("Rein", &Hauptform::Rein_Click);
  onClick("alle_rein", &Hauptform::alle_rein_Click);
  onClick("raus", &Hauptform::raus_Click);
  onClick("alle_raus", &Hauptform::alle_raus_Click);
  onClick("Optimierung", &Hauptform::Optimierung_Click);
  onClick("Optimierung2", &Hauptform::Optimierung2_Click);
  onClick("ReportButton", &Hauptform::ReportButton_Click);
  onClick("Ende", &Hauptform::exit_Click);
  connect(control<QAbstractButton>("Image1"), &QAbstractButton::clicked, this,
          [this] { showAbout(false); });
  auto* available = control<QListWidget>("Fischfutter1");
  connect(available, &QListWidget::pressed, this, &Hauptform::availablePressed);
  available->viewport()->setMouseTracking(true);
  available->viewport()->installEventFilter(this);
  connectOptions();
  connectSubstanceEditing();
}

void Hauptform::applyLayout() {
  const MainWindowLayout& layout = m_model->layout();
  for (const std::string& name : layout.names()) {
    const ControlState& state = layout.at(name);
    if (const auto menu = m_menuItems.find(name); menu != m_menuItems.end()) {
      menu->second->setVisible(state.visible);
      continue;
    }
    QWidget* widget = m_controls.at(name);
    widget->setGeometry(rectFromTwips(state.left, state.top, state.width, state.height));
    widget->setVisible(state.visible);
    widget->setEnabled(m_model->enabled(name));
    std::string& shown = m_shownCaptions[name];
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
  auto* chosenCaption = control<QLabel>("Label1");
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

}  // namespace pescavo
