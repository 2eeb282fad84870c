// The component windows on a feedstuff.tab given as argument, as the user sees them: the editor
// opened and painted, a search, "Del Record" (answered Yes) and "Save" (the read-back), each
// painted; then the overview of substance 1 opened and searched. Prints each time in ms, the
// slowest of REPEATS rounds.
// With a folder as third argument it leaves pictures of both windows and their printouts there.
//   measure_component_windows FEEDSTUFF.TAB [REPEATS [FOLDER]]
#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPrinter>
#include <QTableWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

#include "database/Futterkomponenten.h"
#include "database/Komponentenliste.h"
#include "desktop/QtDialogs.h"

namespace {

// Yes to the deletion question: a person at the screen is not timed. Printing goes to pdf.
class YesDialogs : public pescavo::QtDialogs {
 public:
  bool askYesNo(const std::string&) override { return true; }
  bool choosePrinter(QPrinter& printer) override {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(pdf));
    return true;
  }
  std::string pdf;
};

template <typename Action>
double timed(QWidget& window, Action action) {
  const auto before = std::chrono::steady_clock::now();
  action();
  window.repaint();
  QApplication::processEvents();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - before)
      .count();
}

void search(QWidget& window, const char* box, const char* text) {
  auto* line = window.findChild<QLineEdit*>(box);
  line->setText(text);
  emit line->returnPressed();
}

// Pictures of both windows and their printouts in folder.
void pictures(pescavo::ComponentTable table, YesDialogs& dialogs, const std::string& folder) {
  pescavo::Komponentenliste editor(table, dialogs);
  editor.show();
  auto* grid = editor.findChild<QTableWidget*>("Kompomenteneigenschaften");
  search(editor, "Suche2", "maize");
  grid->setCurrentCell(1, 5);
  QApplication::processEvents();
  editor.grab().save(QString::fromStdString(folder + "/component-editor.png"));
  dialogs.pdf = folder + "/component-editor.pdf";
  editor.PrintButton_Click();
  pescavo::Futterkomponenten overview(table, 1, '.', dialogs);
  overview.show();
  search(overview, "Suche3", "maize");
  QApplication::processEvents();
  overview.grab().save(QString::fromStdString(folder + "/component-overview.png"));
  dialogs.pdf = folder + "/component-overview.pdf";
  overview.PrintButton_Click();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc < 2) return 2;
  const int repeats = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
  pescavo::ComponentTable table = pescavo::readComponentTable(argv[1]);
  YesDialogs dialogs;
  if (argc > 3) pictures(table, dialogs, argv[3]);
  double open = 0, find = 0, remove = 0, readBack = 0, overview = 0, overviewFind = 0;
  for (int round = 0; round < repeats; ++round) {
    pescavo::ComponentTable copy = table;
    std::unique_ptr<pescavo::Komponentenliste> editor;
    QWidget dummy;
    open = std::max(open, timed(dummy, [&] {
                      editor = std::make_unique<pescavo::Komponentenliste>(copy, dialogs);
                      editor->show();
                      editor->repaint();
                    }));
    find = std::max(find, timed(*editor, [&] { search(*editor, "Suche2", "o"); }));
    auto* grid = editor->findChild<QTableWidget*>("Kompomenteneigenschaften");
    grid->setCurrentCell(2, 1);
    remove = std::max(remove, timed(*editor, [&] { editor->Loeschen_Click(); }));
    readBack = std::max(readBack, timed(*editor, [&] { editor->Command2_Click(); }));
    editor.reset();
    std::unique_ptr<pescavo::Futterkomponenten> view;
    overview = std::max(overview, timed(dummy, [&] {
                          view =
                              std::make_unique<pescavo::Futterkomponenten>(table, 1, '.', dialogs);
                          view->show();
                          view->repaint();
                        }));
    overviewFind = std::max(overviewFind, timed(*view, [&] { search(*view, "Suche3", "o"); }));
  }
  std::printf(
      "%d components, %d substances: editor open %.1f ms, search %.1f ms, delete %.1f ms, "
      "read-back %.1f ms; overview open %.1f ms, search %.1f ms (slowest of %d)\n",
      table.componentCount(), table.substanceCount(), open, find, remove, readBack, overview,
      overviewFind, repeats);
  return 0;
}
