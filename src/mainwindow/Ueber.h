#pragma once

#include <QDialog>

namespace pescavo {

// The About window: the start screen's look with "OK" instead of the three buttons.
class Ueber : public QDialog {
  Q_OBJECT

 public:
  explicit Ueber(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pescavo
