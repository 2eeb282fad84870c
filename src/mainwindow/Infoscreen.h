#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace pescavo {

// The start screen: no border, our background and logo, "START", "SIMPLE" and "EXIT".
class Infoscreen : public QWidget {
  Q_OBJECT

 public:
  explicit Infoscreen(QWidget* parent = nullptr);

 signals:
  void started(bool simpleMode);  // "START" (false) or "SIMPLE" (true)
  void exitRequested();           // "EXIT"

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The start screen's and the About window's common face: logo, "Pescavo " and the version,
// the build date and the two credit lines, over the background picture.
QWidget* makeCreditsPanel(QWidget* parent);
void paintBackground(QWidget& window);

}  // namespace pescavo
