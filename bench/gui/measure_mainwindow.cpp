// Start-up of the desktop program as a user sees it: the start screen, "START", the main window
// on the tables in ./Input, shown and painted. Prints the monotonic clock at that moment (for
// scripts/measure-mainwindow, which took the clock before starting this process), then times
// switching the substance, each switch painted before the next, and then the substance
// editing: "Edit " clicked, a search that marks nearly every cell, one that clears the marks,
// and "Done", each painted.
//   measure_mainwindow [SWITCHES]
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

#include "desktop/QtDialogs.h"
#include "mainwindow/Hauptform.h"
#include "mainwindow/Infoscreen.h"

namespace {

double monotonicSeconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec + now.tv_nsec * 1e-9;
}

// Keys as the user types them, so the window sees what it sees then.
void type(QWidget* widget, const QString& text, int key = 0) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(widget, &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QApplication::sendEvent(widget, &release);
}

void paint(QWidget& window) {
  window.repaint();
  QApplication::processEvents();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const int switches = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
  pescavo::QtDialogs dialogs;
  pescavo::Infoscreen infoscreen;
  infoscreen.show();
  QApplication::processEvents();
  pescavo::Hauptform window(dialogs, '.');
  QObject::connect(&infoscreen, &pescavo::Infoscreen::started, [&](bool simple) {
    if (!window.startUp(QDir::currentPath().toStdString() + "/Input", simple)) std::exit(1);
    window.show();
    infoscreen.close();
  });
  infoscreen.findChild<QAbstractButton*>("Command1")->click();
  paint(window);
  std::printf("shown %.6f\n", monotonicSeconds());

  auto* substances = window.findChild<QListWidget*>("Schadstoffliste");
  std::vector<double> times;
  for (int i = 1; i <= switches; ++i) {
    const auto before = std::chrono::steady_clock::now();
    substances->setCurrentRow(i % substances->count());
    paint(window);
    times.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - before)
            .count());
  }
  std::sort(times.begin(), times.end());
  std::printf("switch median %.2f ms, max %.2f ms over %d switches\n", times[times.size() / 2],
              times.back(), switches);

  const auto timed = [&window](auto action) {
    const auto before = std::chrono::steady_clock::now();
    action();
    paint(window);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - before)
        .count();
  };
  const auto button = [&window](const char* name) {
    return window.findChild<QAbstractButton*>(name);
  };
  auto* search = window.findChild<QLineEdit*>("Suche");
  const auto find = [&](const char* text) {
    search->selectAll();
    type(search, QString(), Qt::Key_Backspace);
    for (const QChar character : QString(text))
      type(search, character, character.toUpper().unicode());
    type(search, "\r", Qt::Key_Return);
  };
  const double edit = timed([&] { button("Edit")->click(); });
  const double everything = timed([&] { find("o"); });
  int marked = 0;
  const pescavo::ResidueGrid& grid = window.model().substances().editor().grid();
  for (int r = 1; r < grid.rowCount(); ++r) {
    for (int c = 0; c < pescavo::ResidueGrid::kColumns; ++c) marked += grid.marked(r, c);
  }
  const double little = timed([&] { find("Crop 999"); });
  const double done = timed([&] { button("Ende")->click(); });
  std::printf("edit %.2f ms, search %.2f ms (%d cells marked) and %.2f ms, done %.2f ms\n", edit,
              everything, marked, little, done);
  return 0;
}
