#include <QApplication>
#include <QDir>

#include "desktop/QtDialogs.h"
#include "mainwindow/Hauptform.h"
#include "mainwindow/Infoscreen.h"
#include "tables/DecimalSeparator.h"

// The start screen first; "START" or "SIMPLE" brings up the main window on the tables in the
// folder Input below the current directory.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const char decimal = pescavo::userDecimalSeparator();

  const std::string startFolder = QDir::currentPath().toStdString();
  pescavo::QtDialogs dialogs;
  pescavo::Infoscreen infoscreen;
  pescavo::Hauptform* mainWindow = nullptr;
  int exitCode = 0;
  QObject::connect(&infoscreen, &pescavo::Infoscreen::exitRequested, &application,
                   &QApplication::quit);
  QObject::connect(&infoscreen, &pescavo::Infoscreen::started, [&](bool simple) {
    mainWindow = new pescavo::Hauptform(dialogs, decimal);
    mainWindow->setAttribute(Qt::WA_DeleteOnClose);
    mainWindow->setStartFolder(startFolder);
    QObject::connect(mainWindow, &pescavo::Hauptform::ended, &application, &QApplication::quit);
    infoscreen.hide();
    if (!mainWindow->startUp(startFolder + "/Input", simple)) {
      exitCode = 1;
      delete mainWindow;
      application.quit();
      return;
    }
    mainWindow->show();
    infoscreen.close();
  });
  infoscreen.show();
  const int code = application.exec();
  return exitCode != 0 ? exitCode : code;
}
