#include <QFileInfo>

#include "desktop/DesktopDialogs.h"
#include "mainwindow/Hauptform.h"
#include "mainwindow/Ueber.h"

namespace pescavo {

void Hauptform::showAll() {
  fillSubstances();
  fillAvailable();
  fillChosen();
  showOptions();
  showResult();
  applyLayout();
  showGrid();
}

void Hauptform::save_Click() {
  m_model->save();
  showAll();
}

void Hauptform::exit_Click() {
  if (!m_model->Ende_Click()) return showAll();
  m_ending = true;
  emit ended();
  close();
}

void Hauptform::restore_Click() {
  m_model->restore();
  showAll();
}

void Hauptform::help_Click() {
  const std::string help = m_startFolder + "/help.chm";
  if (QFileInfo::exists(QString::fromStdString(help))) m_dialogs.openWithDesktop(help);
}

// From the menu the About window waits for "OK"; from the logo the main window stays usable.
void Hauptform::showAbout(bool modal) {
  if (modal) {
    Ueber about(this);
    about.exec();
    return;
  }
  if (!m_about) {
    m_about = new Ueber(this);
    m_about->setAttribute(Qt::WA_DeleteOnClose);
  }
  m_about->show();
  m_about->raise();
}

}  // namespace pescavo
