// Start-up of the desktop program as a user sees it: the start screen, "START", the main window
// on the tables in ./Input, shown and painted. Prints the monotonic clock at that moment (for
// scripts/measure-mainwindow, which took the clock before starting this process), then times
// switching the substance, each switch painted before the next.
//   measure_mainwindow [SWITCHES]
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
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
  return 0;
}
