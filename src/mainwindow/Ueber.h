#pragma once

#include <QDialog>
#include <QString>
#include <functional>

namespace pescavo {

// The About window: the start screen's look with "OK" instead of the three buttons.
class Ueber : public QDialog {
  Q_OBJECT

 public:
  // cursorFile names the hand pointer's file for "OK"; none: the usual pointer.
  explicit Ueber(QWidget* parent = nullptr, std::function<QString()> cursorFile = {});

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pescavo
