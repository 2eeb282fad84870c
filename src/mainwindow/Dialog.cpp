#include "mainwindow/Dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "desktop/HandPointer.h"

namespace pescavo {

Dialog::Dialog(QWidget* parent, std::function<QString()> cursorFile) : QDialog(parent) {
  setObjectName("Dialog");
  setWindowTitle("Fish Species");
  m_info = new QTextEdit(this);
  m_info->setObjectName("InfoFisch");
  m_info->setAccessibleName("Information");
  m_info->setReadOnly(true);
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  ok->setAccessibleName("OK");
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  auto* page = new QVBoxLayout(this);
  page->addWidget(m_info, 1);
  page->addLayout(buttons);
  resize(420, 240);
  if (cursorFile) useHandPointer(ok, std::move(cursorFile));
  connect(ok, &QPushButton::clicked, this, &QDialog::close);
}

void Dialog::showText(const QString& caption, const QString& text) {
  setWindowTitle(caption);
  m_info->clear();
  m_info->setVisible(true);
  m_info->setEnabled(true);
  m_info->setReadOnly(false);
  // The texts separate their lines by a carriage return alone.
  m_info->setPlainText(QString(text).replace('\r', '\n'));
  m_info->setReadOnly(true);
  show();
  raise();
}

}  // namespace pescavo
