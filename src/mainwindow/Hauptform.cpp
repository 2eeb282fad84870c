#include "mainwindow/Hauptform.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QMouseEvent>

#include "desktop/DesktopDialogs.h"
#include "model/StartUpMessages.h"
#include "reportwindows/Report.h"
#include "tables/TableError.h"

namespace pescavo {

// The model's messages pass through the window first, so that what the model shows while a
// message is open (the list label in red) is on screen when the message appears.
class Hauptform::WindowDialogs : public Dialogs {
 public:
  WindowDialogs(Hauptform& window, DesktopDialogs& dialogs)
      : m_window(window), m_dialogs(dialogs) {}
  void information(const std::string& text) override {
    m_window.applyLayout();
    m_dialogs.information(text);
  }
  bool askYesNo(const std::string& text) override {
    m_window.applyLayout();
    return m_dialogs.askYesNo(text);
  }

 private:
  Hauptform& m_window;
  DesktopDialogs& m_dialogs;
};

Hauptform::Hauptform(DesktopDialogs& dialogs, char decimalSeparator, QWidget* parent)
    : QMainWindow(parent),
      m_dialogs(dialogs),
      m_windowDialogs(std::make_unique<WindowDialogs>(*this, dialogs)),
      m_model(std::make_unique<MainWindowModel>(*m_windowDialogs, decimalSeparator)) {
  setObjectName("Hauptform");
  setWindowTitle("Pescavo");
  // The design's places were made for an 8-point font.
  QFont designFont = font();
  designFont.setPointSize(8);
  setFont(designFont);
  buildControls();
  buildMenus();
  connectControls();
  m_dialogs.setParentWindow(this);
}

Hauptform::~Hauptform() = default;

bool Hauptform::startUp(const std::string& inputFolder, bool simpleMode) {
  try {
    m_model->startUp(inputFolder, simpleMode);
  } catch (const TableError& error) {
    m_dialogs.information(error.what());
    return false;
  }
  showAll();
  const std::string warning = startUpWarningText(m_model->database().duplicateWarnings());
  if (!warning.empty()) m_dialogs.information(warning);
  return true;
}

// The frame's close button ends the program without the save question.
void Hauptform::closeEvent(QCloseEvent* event) {
  event->accept();
  if (!m_ending) {
    m_ending = true;
    emit ended();
  }
}

bool Hauptform::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_availableView) {
    // The press point is taken before the list makes the pressed item current.
    if (event->type() == QEvent::MouseButtonPress)
      m_pressPoint = static_cast<QMouseEvent*>(event)->position().toPoint();
    else if (event->type() == QEvent::MouseMove)
      availableMoved(static_cast<QMouseEvent*>(event)->position().toPoint());
  }
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace pescavo
