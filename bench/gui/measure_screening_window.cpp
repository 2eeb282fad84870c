// "Screen all substances" on the tables of an input folder, as the window does it: prints how
// long the window took to open, the screening, putting its rows into the table and a sort by
// burden. HOLD_SECONDS keeps the window open after that, sorted, for screenshots; PDF prints
// the sorted table into that file.
//   measure_screening_window INPUT_FOLDER [single|scenarios|both] [HOLD_SECONDS] [PDF]
// (both: the sixteen scenarios for both species)

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QHeaderView>
#include <QPrinter>
#include <QTableView>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "desktop/DesktopDialogs.h"
#include "screening/ScreeningTable.h"
#include "screening/ScreeningWindow.h"
#include "tables/ComponentTable.h"
#include "tables/FishTables.h"

namespace {

using namespace pescavo;

class SilentDialogs : public DesktopDialogs {
 public:
  void information(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
  bool askYesNo(const std::string&) override { return false; }
  void setParentWindow(QWidget*) override {}
  bool choosePrinter(QPrinter& printer) override {
    if (pdf.empty()) return false;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(pdf));
    return true;
  }
  void setClipboardText(const std::string&) override {}
  std::string clipboardText() override { return {}; }
  void setClipboardImage(const QImage&) override {}
  bool openWithDesktop(const std::string&) override { return true; }
  std::string saveFileName(const std::string&, const std::string&) override { return {}; }
  std::string pdf;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: measure_screening_window INPUT_FOLDER [scenarios] [SHOTS]\n");
    return 2;
  }
  const std::string input = argv[1];
  const std::string mode = argc > 2 ? argv[2] : "single";
  const bool scenarios = mode == "scenarios" || mode == "both";
  const int hold = argc > 3 ? std::atoi(argv[3]) : 0;
  QElapsedTimer clock;
  clock.start();
  const ComponentTable table = readComponentTable(input + "/feedstuff.tab");
  const auto species = readSpeciesTable(input + "/Species.tab");
  const auto fishmeal = readFishmealTable(input + "/Fishmeal.tab");
  std::printf("tables read: %lld ms (%d substances, %d components)\n", clock.restart(),
              table.substanceCount(), table.componentCount());

  SilentDialogs dialogs;
  if (argc > 4) dialogs.pdf = argv[4];
  ScreeningRequest request;
  request.scenarios = scenarios;
  if (mode == "both") request.species = {0, 1};
  ScreeningWindow window(table, species, fishmeal, '.', request, dialogs, "/tmp");
  window.move(40, 40);
  window.show();
  QApplication::processEvents();
  std::printf("window open: %lld ms\n", clock.elapsed());
  // A loop of its own: quitting the application would close the window.
  QEventLoop wait;
  QObject::connect(&window, &ScreeningWindow::finished, &wait, &QEventLoop::quit);
  wait.exec();
  std::printf("screened and shown: %lld ms (%d rows)\n", clock.restart(),
              window.findChild<QTableView*>("ScreeningGrid")->model()->rowCount());

  // The table's own share: the rows into a fresh table and view, then the burden sorted.
  auto* view = window.findChild<QTableView*>("ScreeningGrid");
  auto* rows = dynamic_cast<ScreeningTable*>(view->model());
  std::vector<ScreeningRow> copy = rows->rows();
  clock.restart();
  window.showRows(std::move(copy), scenarios);
  QApplication::processEvents();
  std::printf("rows into the table: %lld ms\n", clock.restart());
  view->horizontalHeader()->setSortIndicator(scenarios ? 5 : 4, Qt::DescendingOrder);
  QApplication::processEvents();
  std::printf("sorted by burden: %lld ms\n", clock.restart());
  view->scrollToTop();
  if (!dialogs.pdf.empty()) {
    window.print_Click();
    std::printf("printed: %lld ms\n", clock.restart());
  }
  if (hold > 0) {
    QTimer::singleShot(hold * 1000, &wait, &QEventLoop::quit);
    wait.exec();
  }
  return 0;
}
