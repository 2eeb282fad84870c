#include <QAction>
#include <QFileInfo>
#include <QMenu>

#include "desktop/DesktopDialogs.h"
#include "mainwindow/Dialog.h"
#include "mainwindow/Hauptform.h"
#include "mainwindow/HelpWindow.h"
#include "mainwindow/Ueber.h"
#include "model/ScreeningView.h"
#include "screening/ScreeningWindow.h"

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
  m_model->substances().save();
  showAll();
}

void Hauptform::exit_Click() {
  if (!m_model->substances().Ende_Click()) return showAll();
  m_ending = true;
  emit ended();
  close();
}

void Hauptform::restore_Click() {
  m_model->substances().restore();
  showAll();
}

// A help.chm in the start folder wins when the desktop can open it; otherwise the guide that
// comes with the program, in one window that a second F1 brings to the front.
void Hauptform::help_Click() {
  const std::string help = m_startFolder + "/help.chm";
  if (QFileInfo::exists(QString::fromStdString(help)) && m_dialogs.openWithDesktop(help)) return;
  if (!m_help) {
    std::vector<std::string> folders = m_guideFolders;
    if (folders.empty()) {
      for (const QString& folder : HelpWindow::guideFolders())
        folders.push_back(folder.toStdString());
    }
    m_help = new HelpWindow(Guide(Guide::locate(folders)), this);
    m_help->setAttribute(Qt::WA_DeleteOnClose);
  }
  m_help->show();
  m_help->raise();
  m_help->activateWindow();
}

// One information window for every image, not blocking the main window.
void Hauptform::showInformation(InformationImage image) {
  const InformationText info =
      informationText(image, m_model->runInput().species, m_model->runInput().fishmeal,
                      m_model->decimalSeparator());
  if (!m_information) m_information = new Dialog(this, cursorFile());
  m_information->showText(QString::fromStdString(info.caption), QString::fromStdString(info.text));
}

// From the menu the About window waits for "OK"; from the logo the main window stays usable.
void Hauptform::showAbout(bool modal) {
  if (modal) {
    Ueber about(this, cursorFile());
    about.exec();
    return;
  }
  if (!m_about) {
    m_about = new Ueber(this, cursorFile());
    m_about->setAttribute(Qt::WA_DeleteOnClose);
  }
  m_about->show();
  m_about->raise();
}

void Hauptform::buildScreeningEntry(QMenu* program) {
  m_screeningEntry = program->addAction(QString::fromUtf8(kScreeningEntry));
  m_screeningEntry->setObjectName("screening");
  connect(m_screeningEntry, &QAction::triggered, this, &Hauptform::screening_Click);
}

void Hauptform::showScreeningEntry() {
  m_screeningEntry->setVisible(screeningEntryShown(*m_model));
}

// The window screens a copy of the tables as they are now; a double click brings its run back
// here.
void Hauptform::screening_Click() {
  if (!m_screening) {
    m_screening = new ScreeningWindow(m_model->database().table(), m_model->runInput().species,
                                      m_model->runInput().fishmeal, m_model->decimalSeparator(),
                                      screeningRequest(*m_model), m_dialogs, m_startFolder, this,
                                      cursorFile());
    m_screening->setAttribute(Qt::WA_DeleteOnClose);
    m_screening->onRunChosen = [this](const ScreeningRow& row) {
      if (!selectScreeningRun(*m_model, row)) return;
      showAll();
      raise();
      activateWindow();
    };
  }
  m_screening->show();
  m_screening->raise();
  m_screening->activateWindow();
}

}  // namespace pescavo
