#include "mainwindow/Infoscreen.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/HandPointer.h"
#include "desktop/Pictures.h"
#include "reports/Credits.h"

namespace pescavo {

namespace {

QLabel* label(QWidget* parent, const char* name, const QString& text, int points, bool bold) {
  auto* result = new QLabel(text, parent);
  result->setObjectName(name);
  result->setAccessibleName(text);
  QFont font = result->font();
  font.setPointSize(points);
  font.setBold(bold);
  result->setFont(font);
  return result;
}

QPushButton* button(QWidget* parent, const char* name, const char* caption) {
  auto* result = new QPushButton(caption, parent);
  result->setObjectName(name);
  result->setAccessibleName(caption);
  result->setMinimumSize(110, 32);
  return result;
}

}  // namespace

QWidget* makeCreditsPanel(QWidget* parent) {
  auto* panel = new QWidget(parent);
  auto* logo = new QLabel(panel);
  logo->setObjectName("Picture1");
  logo->setAccessibleName("Pescavo logo");
  logo->setPixmap(logoPicture(96));
  auto* texts = new QVBoxLayout;
  texts->addWidget(label(panel, "Label1", QString("Pescavo ") + versionText().c_str(), 20, true));
  texts->addWidget(label(panel, "Label3", kBuildDate, 10, false));
  texts->addSpacing(12);
  texts->addWidget(label(panel, "Label2", kCreditLine, 9, false));
  texts->addWidget(label(panel, "Label4", kLicenceLine, 9, false));
  texts->addStretch();
  auto* row = new QHBoxLayout(panel);
  row->addWidget(logo, 0, Qt::AlignTop);
  row->addSpacing(16);
  row->addLayout(texts, 1);
  return panel;
}

void paintBackground(QWidget& window) {
  QPainter painter(&window);
  painter.drawPixmap(0, 0, backgroundPicture(window.size()));
  painter.setPen(QColor(20, 96, 140));
  painter.drawRect(window.rect().adjusted(0, 0, -1, -1));
}

Infoscreen::Infoscreen(std::function<QString()> cursorFile, QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint) {
  setObjectName("Infoscreen");
  setAccessibleName("Pescavo start screen");
  auto* start = button(this, "Command1", "START");
  auto* simple = button(this, "SimpleButton", "SIMPLE");
  auto* exit = button(this, "Command2", "EXIT");
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* b : {start, simple, exit}) buttons->addWidget(b);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(28, 28, 28, 20);
  page->addWidget(makeCreditsPanel(this), 1);
  page->addLayout(buttons);
  setFixedSize(560, 300);
  start->setDefault(true);
  if (cursorFile) {
    useHandPointer(start, cursorFile);
    useHandPointer(exit, cursorFile);
  }
  connect(start, &QPushButton::clicked, this, [this] { emit started(false); });
  connect(simple, &QPushButton::clicked, this, [this] { emit started(true); });
  connect(exit, &QPushButton::clicked, this, [this] { emit exitRequested(); });
}

void Infoscreen::paintEvent(QPaintEvent*) { paintBackground(*this); }

}  // namespace pescavo
