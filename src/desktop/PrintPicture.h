#pragma once

#include <QSizeF>

class QImage;
class QPrinter;

namespace pescavo {

// The printed size of a picture on a printable area: the full width when the picture is at
// least as wide in proportion as the area, otherwise the full height; proportions kept.
QSizeF fitToPage(const QSizeF& picture, const QSizeF& printable);

// Prints the picture at the top left of the printable area, as large as fitToPage makes it:
// in portrait when it is less wide than high, in landscape otherwise. False when there is no
// picture or the printer could not start.
bool PrintPictureToFitPage(QPrinter& printer, const QImage& picture);

}  // namespace pescavo
