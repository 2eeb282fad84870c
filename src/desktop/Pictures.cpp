#include "desktop/Pictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace pescavo {

namespace {

// Drawn at the screen's pixel ratio so that the pictures stay sharp at scale factor 2.
QPixmap blank(QSize size, qreal ratio = 2.0) {
  QPixmap pixmap(size * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

}  // namespace

QPixmap backgroundPicture(QSize size) {
  QPixmap pixmap = blank(size);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient water(0, 0, 0, size.height());
  water.setColorAt(0, QColor(232, 244, 248));
  water.setColorAt(1, QColor(168, 208, 222));
  painter.fillRect(QRect(QPoint(0, 0), size), water);
  painter.setPen(QPen(QColor(255, 255, 255, 150), 2));
  for (int row = 1; row <= 4; ++row) {
    QPainterPath wave;
    const qreal y = size.height() * (0.55 + 0.1 * row);
    wave.moveTo(0, y);
    for (int x = 0; x <= size.width(); x += 40)
      wave.quadTo(x + 10, y - 6, x + 20, y), wave.quadTo(x + 30, y + 6, x + 40, y);
    painter.drawPath(wave);
  }
  return pixmap;
}

QPixmap logoPicture(int size) {
  QPixmap pixmap = blank(QSize(size, size));
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal s = size;
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(20, 96, 140));
  painter.drawEllipse(QRectF(0.02 * s, 0.02 * s, 0.96 * s, 0.96 * s));
  // A fish over three feed pellets.
  QPainterPath fish;
  fish.moveTo(0.18 * s, 0.42 * s);
  fish.quadTo(0.45 * s, 0.18 * s, 0.70 * s, 0.42 * s);
  fish.quadTo(0.45 * s, 0.66 * s, 0.18 * s, 0.42 * s);
  fish.moveTo(0.66 * s, 0.42 * s);
  fish.lineTo(0.86 * s, 0.28 * s);
  fish.lineTo(0.86 * s, 0.56 * s);
  fish.closeSubpath();
  painter.setBrush(QColor(250, 176, 60));
  painter.drawPath(fish);
  painter.setBrush(QColor(20, 96, 140));
  painter.drawEllipse(QPointF(0.30 * s, 0.39 * s), 0.035 * s, 0.035 * s);
  painter.setBrush(QColor(214, 234, 200));
  for (int pellet = 0; pellet < 3; ++pellet)
    painter.drawEllipse(QPointF((0.34 + 0.16 * pellet) * s, 0.76 * s), 0.055 * s, 0.055 * s);
  return pixmap;
}

QPixmap informationPicture(int size) {
  QPixmap pixmap = blank(QSize(size, size));
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal s = size;
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(30, 100, 200));
  painter.drawEllipse(QRectF(0.5, 0.5, s - 1, s - 1));
  painter.setBrush(Qt::white);
  painter.drawEllipse(QPointF(0.5 * s, 0.27 * s), 0.09 * s, 0.09 * s);
  painter.drawRoundedRect(QRectF(0.41 * s, 0.42 * s, 0.18 * s, 0.42 * s), 0.05 * s, 0.05 * s);
  return pixmap;
}

}  // namespace pescavo
