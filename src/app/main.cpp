#include <QApplication>
#include <QDir>
#include <cstring>
#include <iostream>

#include "desktop/QtDialogs.h"
#include "mainwindow/Hauptform.h"
#include "mainwindow/Infoscreen.h"
#include "tables/DecimalSeparator.h"

namespace {

// What --help prints; the manual page is made from it.
const char* const kHelp =
    "Usage: pescavo [--help | --version]\n"
    "\n"
    "Computes the dietary burden of a fish feed for one pesticide, in mg/kg of feed dry matter,\n"
    "in a window: the feed a linear programme mixes from the chosen components within the\n"
    "target crude lipid and protein of common carp or rainbow trout and the maximum inclusion\n"
    "of each component. Above 0.1 mg/kg dry matter fish feeding studies are required.\n"
    "\n"
    "The tables feedstuff.tab, feedstuff1.tab, Species.tab and Fishmeal.tab are read from the\n"
    "folder Input below the current directory, and Report.txt and Report.rtf are written into\n"
    "the current directory. The menu entry starts the program through pescavo-start in\n"
    "$XDG_DATA_HOME/pescavo (~/.local/share/pescavo), which receives the sample tables on the\n"
    "first start; tables already there are never overwritten. pescavo-cli does the same work\n"
    "from the command line.\n"
    "\n"
    "Options:\n"
    "  --help      print this text and exit\n"
    "  --version   print the version and exit\n";

}  // namespace

// The start screen first; "START" or "SIMPLE" brings up the main window on the tables in the
// folder Input below the current directory.
int main(int argc, char** argv) {
  if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
    std::cout << kHelp;
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::cout << "pescavo " << PESCAVO_VERSION << '\n';
    return 0;
  }
  QApplication application(argc, argv);
  // Where QSettings keeps what the program remembers between starts.
  QApplication::setOrganizationName("Pescavo");
  QApplication::setApplicationName("pescavo");
  const char decimal = pescavo::userDecimalSeparator();

  const std::string startFolder = QDir::currentPath().toStdString();
  pescavo::QtDialogs dialogs;
  pescavo::Infoscreen infoscreen(
      [startFolder] { return QString::fromStdString(startFolder + "/Input/harrow.cur"); });
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
