#include "desktop/QtDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QImage>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QUrl>

namespace pescavo {

namespace {

const char* const kTitle = "Pescavo";

}  // namespace

// Over the window the user works in: a report window while it is open, else the main window.
QWidget* QtDialogs::parent() const {
  QWidget* active = QApplication::activeWindow();
  return active ? active : m_parent.data();
}

void QtDialogs::information(const std::string& text) {
  QMessageBox::information(parent(), kTitle, QString::fromStdString(text));
}

bool QtDialogs::askYesNo(const std::string& text) {
  // The questions carry no icon.
  QMessageBox box(QMessageBox::NoIcon, kTitle, QString::fromStdString(text),
                  QMessageBox::Yes | QMessageBox::No, parent());
  return box.exec() == QMessageBox::Yes;
}

bool QtDialogs::choosePrinter(QPrinter& printer) {
  QPrintDialog dialog(&printer, parent());
  return dialog.exec() == QDialog::Accepted;
}

void QtDialogs::setClipboardText(const std::string& text) {
  QApplication::clipboard()->setText(QString::fromStdString(text));
}

std::string QtDialogs::clipboardText() { return QApplication::clipboard()->text().toStdString(); }

void QtDialogs::setClipboardImage(const QImage& image) {
  QApplication::clipboard()->setImage(image);
}

bool QtDialogs::openWithDesktop(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

std::string QtDialogs::saveFileName(const std::string& proposed, const std::string& filter) {
  return QFileDialog::getSaveFileName(parent(), kTitle, QString::fromStdString(proposed),
                                      QString::fromStdString(filter))
      .toStdString();
}

}  // namespace pescavo
