#pragma once

#include <QString>
#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace pescavo {

// The start screen: no border, our background and logo, "START", "SIMPLE" and "EXIT".
class Infoscreen : public QWidget {
  Q_OBJECT

 public:
  // cursorFile names the hand pointer's file for "START" and "EXIT"; none: the usual pointer.
  explicit Infoscreen(std::function<QString()> cursorFile = {}, QWidget* parent = nullptr);

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
