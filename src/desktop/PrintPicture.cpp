#include "desktop/PrintPicture.h"

#include <QImage>
#include <QPainter>
#include <QPrinter>

namespace pescavo {

QSizeF fitToPage(const QSizeF& picture, const QSizeF& printable) {
  if (picture.isEmpty() || printable.isEmpty()) return {};
  const double pictureRatio = picture.width() / picture.height();
  const double pageRatio = printable.width() / printable.height();
  if (pictureRatio >= pageRatio) return {printable.width(), printable.width() / pictureRatio};
  return {printable.height() * pictureRatio, printable.height()};
}

bool PrintPictureToFitPage(QPrinter& printer, const QImage& picture) {
  if (picture.isNull()) return false;
  printer.setPageOrientation(picture.width() < picture.height() ? QPageLayout::Portrait
                                                                : QPageLayout::Landscape);
  printer.setFullPage(false);
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  // Without full page the painter's origin is the printable area's top left.
  const QRectF printable = printer.pageLayout().paintRectPixels(printer.resolution());
  const QSizeF size = fitToPage(picture.size(), printable.size());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(QPointF(0, 0), size), picture);
  painter.end();
  return true;
}

}  // namespace pescavo
