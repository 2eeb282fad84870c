#pragma once

#include <QPixmap>
#include <QSize>

namespace pescavo {

// The program's own pictures, drawn rather than shipped: the start screen's and the About
// window's background, the logo, and the information sign of the main window.
QPixmap backgroundPicture(QSize size);
QPixmap logoPicture(int size);
QPixmap informationPicture(int size);

}  // namespace pescavo
