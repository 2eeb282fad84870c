#include "mainwindow/Ueber.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/HandPointer.h"
#include "mainwindow/Infoscreen.h"

namespace pescavo {

Ueber::Ueber(QWidget* parent, std::function<QString()> cursorFile)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
  setObjectName("Ueber");
  setWindowTitle("About Pescavo");
  setAccessibleName("About Pescavo");
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("Command1");
  ok->setAccessibleName("OK");
  ok->setMinimumSize(110, 32);
  ok->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(28, 28, 28, 20);
  page->addWidget(makeCreditsPanel(this), 1);
  page->addLayout(buttons);
  setFixedSize(560, 300);
  if (cursorFile) useHandPointer(ok, std::move(cursorFile));
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
}

void Ueber::paintEvent(QPaintEvent*) { paintBackground(*this); }

}  // namespace pescavo
